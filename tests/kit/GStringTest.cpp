// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/GString.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace kit {
namespace {

static_assert(std::is_convertible_v<const wchar_t*, GString>);
static_assert(std::is_convertible_v<const char*, GString>);
static_assert(std::is_same_v<decltype(GString().c_str()), const wchar_t*>);

TEST(GString, DefaultIsTheEmptyText) {
    const GString text;
    EXPECT_EQ(text.Length(), 0U);
    EXPECT_EQ(*text.c_str(), L'\0');
}

TEST(GString, NullPointersGiveTheEmptyText) {
    EXPECT_EQ(GString(static_cast<const char*>(nullptr)), GString());
    EXPECT_EQ(GString(static_cast<const wchar_t*>(nullptr)), GString());
}

TEST(GString, WideTextIsTerminated) {
    const GString text(L"Geometry");
    EXPECT_EQ(std::wstring(text.c_str()), L"Geometry");
    EXPECT_EQ(text.Length(), 8U);
}

TEST(GString, NarrowAndWideTextsCompareEqual) {
    EXPECT_EQ(GString("Gpc"), GString(L"Gpc"));
    EXPECT_TRUE(GString("Gpc") != GString("Gpd"));
    EXPECT_TRUE(GString("Gpc") != GString("Gp"));
    EXPECT_FALSE(GString("Gpc") != GString("Gpc"));
}

TEST(GString, CopiesAreIndependent) {
    GString text("first");
    GString copy(text);
    text = GString("second");
    EXPECT_EQ(copy, GString("first"));
    copy = text;
    EXPECT_EQ(copy, GString("second"));
}

TEST(GString, TextIsCopiedFromTheCaller) {
    char buffer[] = "abc";
    const GString text(buffer);
    buffer[0] = 'x';
    EXPECT_EQ(text, GString("abc"));
}

TEST(GString, NarrowTextIsUtf8) {
    EXPECT_EQ(GString("\xC3\xA9"), GString(L"\u00E9"));
    EXPECT_EQ(GString("\xE2\x82\xAC"), GString(L"\u20AC"));
    EXPECT_EQ(GString("\xF0\x9D\x84\x9E"), GString(L"\U0001D11E"));
    EXPECT_EQ(GString(L"\u00E9\u20AC\U0001D11E").Narrow(), "\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E");
}

TEST(GString, BytesThatAreNotUtf8SurviveTheRoundTrip) {
    const std::string texts[] = {
        "plain",
        "\x80",                 // a continuation without a lead
        "\xC3",                 // a lead at the end
        "\xC3(",                // a lead without its continuation
        "\xC0\xAF",             // an overlong form
        "\xE0\x80\xAF",         // an overlong form of three bytes
        "\xED\xA0\x80",         // a surrogate
        "\xED\xB2\x80",         // the surrogate that stands for the byte 80
        "\xF4\x90\x80\x80",     // beyond the last code point
        "\xFF\xFE",             // never valid
        "caf\xE9.txt",          // Latin-1
        "\xE2\x82",             // cut short
        "\xF0\x9D\x84\x9E\xF0", // valid, then cut short
    };
    for (const std::string& text : texts) {
        EXPECT_EQ(GString(text.c_str()).Narrow(), text);
    }
}

} // namespace
} // namespace kit
