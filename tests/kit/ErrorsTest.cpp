// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Errors.h"

#include "tests/support/Exceptions.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <type_traits>

namespace kit {
namespace {

using geom::test::Caught;
using geom::test::ExpectError;

static_assert(!std::has_virtual_destructor_v<Exception> && !std::is_polymorphic_v<Exception>);
static_assert(std::is_copy_constructible_v<Exception> && std::is_copy_assignable_v<Exception>);
static_assert(std::is_abstract_v<IError> && std::has_virtual_destructor_v<IError>);

TEST(Exception, HoldsItsFiveValues) {
    const Exception e("Module", L"File", -7, "why", true);
    EXPECT_EQ(e.Module(), GString("Module"));
    EXPECT_EQ(e.File(), GString("File"));
    EXPECT_EQ(e.Line(), -7);
    EXPECT_EQ(e.Message(), GString("why"));
    EXPECT_TRUE(e.Flag());
}

TEST(Exception, IsCopiedAndAssigned) {
    const Exception a("A", "a", 1, "first", false);
    Exception b("B", "b", 2, "second", true);
    const Exception copy(b);
    b = a;
    EXPECT_EQ(b.Module(), GString("A"));
    EXPECT_EQ(b.File(), GString("a"));
    EXPECT_EQ(b.Line(), 1);
    EXPECT_EQ(b.Message(), GString("first"));
    EXPECT_FALSE(b.Flag());
    EXPECT_EQ(copy.Message(), GString("second"));
}

TEST(ThrowInternalError, CarriesModuleFileAndLine) {
    ExpectError([] { ThrowInternalError("M", "F", 12); }, "M", "F", 12, "Internal error");
}

TEST(ThrowOutOfMemory, CarriesModuleFileAndLine) {
    ExpectError([] { Throw_ERR_KIT_NOGLOBALMEM(L"M", L"F", 13); }, "M", "F", 13, "Out of memory");
}

TEST(ThrowFileError, ReadFailureNamesFileAndOperation) {
    ExpectError([] { Throw_ERR_KIT_FILE_READ("M", "F", 14, "map.txt", "load"); }, "M", "F", 14,
                "Cannot read file \"map.txt\" (load)");
}

TEST(ThrowFileError, WriteFailureNamesFileAndOperation) {
    ExpectError([] { Throw_ERR_KIT_FILE_WRITE("M", "F", 15, "map.txt", "dump"); }, "M", "F", 15,
                "Cannot write file \"map.txt\" (dump)");
}

TEST(ThrowFileError, PercentSignInFileNameIsNoFormat) {
    ExpectError([] { Throw_ERR_KIT_FILE_READ("M", "F", 1, "100%s%n.txt", "load"); }, "M", "F", 1,
                "Cannot read file \"100%s%n.txt\" (load)");
}

// The message that ThrowKitError makes of a format and its arguments.
template <typename... Arguments>
std::string Message(const wchar_t* format, Arguments... arguments) {
    const auto e = Caught([&] { ThrowKitError("M", "F", 16, format, arguments...); });
    return e ? e->Message().Narrow() : "";
}

TEST(ThrowKitError, CarriesModuleFileLineAndMessage) {
    ExpectError([] { ThrowKitError("M", "F", 16, L"plain"); }, "M", "F", 16, "plain");
}

TEST(ThrowKitError, CapitalSTakesNarrowText) {
    EXPECT_EQ(Message(L"%S", "vertex missing"), "vertex missing");
    EXPECT_EQ(Message(L"a %S b %S c", "1", "2"), "a 1 b 2 c");
    EXPECT_EQ(Message(L"%S", ""), "");
}

TEST(ThrowKitError, NarrowTextOutsideAsciiIsKept) {
    EXPECT_EQ(Message(L"%S", "caf\xC3\xA9"), "caf\xC3\xA9");
}

TEST(ThrowKitError, LongNarrowTextIsKeptWhole) {
    const std::string text(100000, 'x');
    EXPECT_EQ(Message(L"%S", text.c_str()), text);
}

TEST(ThrowKitError, SmallSTakesWideText) {
    EXPECT_EQ(Message(L"%s", L"wide"), "wide");
    EXPECT_EQ(Message(L"%ls and %hs", L"wide", "narrow"), "wide and narrow");
    EXPECT_EQ(Message(L"%lS", L"wide"), "wide");
}

TEST(ThrowKitError, NullTextsAreEmpty) {
    EXPECT_EQ(Message(L"[%S]", static_cast<const char*>(nullptr)), "[]");
    EXPECT_EQ(Message(L"[%s]", static_cast<const wchar_t*>(nullptr)), "[]");
    EXPECT_EQ(Message(nullptr), "");
}

TEST(ThrowKitError, WidthAndPrecisionOfTexts) {
    EXPECT_EQ(Message(L"[%5S]", "ab"), "[   ab]");
    EXPECT_EQ(Message(L"[%-5S]", "ab"), "[ab   ]");
    EXPECT_EQ(Message(L"[%.2s]", L"abcdef"), "[ab]");
    EXPECT_EQ(Message(L"[%*S]", 4, "ab"), "[  ab]");
    EXPECT_EQ(Message(L"[%*S]", -4, "ab"), "[ab  ]");
    EXPECT_EQ(Message(L"[%-*.*s]", 4, 1, L"xyz"), "[x   ]");
    EXPECT_EQ(Message(L"[%.*S]", -1, "all"), "[all]") << "a negative precision is none";
}

TEST(ThrowKitError, TextNeedNotEndWithinItsPrecision) {
    const char open[3] = {'a', 'b', 'c'};
    EXPECT_EQ(Message(L"%.3S", open), "abc");
}

TEST(ThrowKitError, Numbers) {
    EXPECT_EQ(Message(L"%d %i %u %x %X %o", -1, 2, 3U, 255U, 255U, 8U), "-1 2 3 ff FF 10");
    EXPECT_EQ(Message(L"%05d|%-5d|%+d|%#x", 42, 42, 42, 42U), "00042|42   |+42|0x2a");
    EXPECT_EQ(Message(L"%ld %lld %zu %jd %td", -5L, -6LL, std::size_t{7}, std::intmax_t{-8},
                      std::ptrdiff_t{9}),
              "-5 -6 7 -8 9");
    EXPECT_EQ(Message(L"%I64d %I32d %Iu", 1LL << 40, 5, std::size_t{6}), "1099511627776 5 6");
    EXPECT_EQ(Message(L"%hd %hhd", 7, 8), "7 8");
    EXPECT_EQ(Message(L"%.2f %g %e", 1.005, 0.5, 1.0), "1.00 0.5 1.000000e+00");
    EXPECT_EQ(Message(L"%Lg", 0.25L), "0.25");
    EXPECT_EQ(Message(L"%.0f", 1e300).size(), 301U);
    char address[32];
    std::snprintf(address, sizeof address, "%p", static_cast<void*>(address));
    EXPECT_EQ(Message(L"%p", static_cast<void*>(address)), address);
}

TEST(ThrowKitError, ArgumentsBehindTextsStayInStep) {
    EXPECT_EQ(Message(L"%S %d %s %g %c", "a", 1, L"b", 2.5, 'z'), "a 1 b 2.5 z");
}

TEST(ThrowKitError, PercentSigns) {
    EXPECT_EQ(Message(L"100%%"), "100%");
    EXPECT_EQ(Message(L"ends with %"), "ends with ");
}

} // namespace
} // namespace kit
