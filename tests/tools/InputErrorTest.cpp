// SPDX-License-Identifier: MIT
#include "tools/geomtool/InputError.h"

#include <gtest/gtest.h>

namespace geomtool {
namespace {

TEST(InputError, CountsLinesUpToThePosition) {
    EXPECT_STREQ(ErrorAtLine("a.wkt", "ab\ncd\n", 0, "odd").what(), "a.wkt:1: odd");
    EXPECT_STREQ(ErrorAtLine("a.wkt", "ab\ncd\n", 2, "odd").what(), "a.wkt:1: odd");
    EXPECT_STREQ(ErrorAtLine("a.wkt", "ab\ncd\n", 3, "odd").what(), "a.wkt:2: odd");
    EXPECT_STREQ(ErrorAtLine("a.wkt", "ab\ncd\n", 99, "odd").what(), "a.wkt:3: odd");
}

TEST(InputError, TakesBytesAndWholeFiles) {
    EXPECT_STREQ(ErrorAtByte("a.bin", 20, "odd").what(), "a.bin: byte 20: odd");
    EXPECT_STREQ(ErrorIn("a.bin", "odd").what(), "a.bin: odd");
}

TEST(InputError, OneLineKeepsTextAndReplacesWhatATerminalWouldObey) {
    EXPECT_EQ(OneLine("Zürich – 東京 😀"), "Zürich – 東京 😀");
    EXPECT_EQ(OneLine("a\nb\tc\x1b[31m\x7f"), "a?b?c?[31m?");
    EXPECT_EQ(OneLine("\xC2\x9B"
                      "x"),
              "?x"); // an escape of the upper control characters
    EXPECT_EQ(OneLine("\xFF\xC3+\xE2\x82"), "??+??");
    EXPECT_EQ(OneLine(""), "");
}

TEST(InputError, OneLineCutsLongTexts) {
    const std::string cut = OneLine(std::string(100000, 'x'));
    EXPECT_EQ(cut, std::string(400, 'x') + "...");
}

} // namespace
} // namespace geomtool
