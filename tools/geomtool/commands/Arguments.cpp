// SPDX-License-Identifier: MIT
#include "tools/geomtool/commands/Arguments.h"

#include "tools/geomtool/InputError.h"
#include "tools/geomtool/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>
#include <system_error>

namespace geomtool {

namespace {

[[noreturn]] void FailExpected(const std::string& option, const std::string& what,
                               const std::string& text) {
    throw UsageError(option + ": expected " + what + ", found '" + text + "'");
}

} // namespace

double ParseNumber(const std::string& option, const std::string& text) {
    std::string_view rest = text;
    double number = 0;
    if (TakeNumber(rest, number) != NumberStatus::Valid || !rest.empty()) {
        FailExpected(option, "a number", text);
    }
    return number;
}

double ParsePositive(const std::string& option, const std::string& text) {
    const double number = ParseNumber(option, text);
    if (!(number > 0)) {
        FailExpected(option, "a number above 0", text);
    }
    return number;
}

std::size_t ParseCount(const std::string& option, const std::string& text, std::size_t least,
                       std::size_t most) {
    const char* const end = text.data() + text.size();
    std::size_t count = 0;
    const auto [stop, error] = std::from_chars(text.data(), end, count);
    if (error != std::errc() || stop != end || count < least || count > most) {
        FailExpected(option,
                     "a whole number from " + std::to_string(least) + " to " + std::to_string(most),
                     text);
    }
    return count;
}

std::vector<double> ParseNumbers(const std::string& option, const std::string& text,
                                 std::size_t count) {
    std::vector<double> numbers;
    std::string_view rest = text;
    double number = 0;
    while (TakeNumber(rest, number) == NumberStatus::Valid) {
        numbers.push_back(number);
        if (rest.empty() && numbers.size() == count) {
            return numbers;
        }
        if (rest.empty() || rest[0] != ',') {
            break;
        }
        rest.remove_prefix(1);
    }
    FailExpected(option,
                 count == 1 ? "a number"
                            : std::to_string(count) + " numbers with commas between them",
                 text);
}

geom::Vec2d ParsePoint(const std::string& option, const std::string& text) {
    const std::vector<double> numbers = ParseNumbers(option, text, 2);
    return {numbers[0], numbers[1]};
}

geom::Box2d ParseBox(const std::string& option, const std::string& text) {
    const std::vector<double> n = ParseNumbers(option, text, 4);
    geom::Box2d box(n[0], n[1], n[2], n[3]);
    box.Normalize();
    if (!box.HasArea()) {
        throw UsageError(option + ": a rectangle needs an area, unlike '" + text + "'");
    }
    return box;
}

std::vector<double> ParsePattern(const std::string& option, const std::string& text) {
    const auto commas = static_cast<std::size_t>(std::count(text.begin(), text.end(), ','));
    std::vector<double> pattern = ParseNumbers(option, text, commas + 1);
    const bool isNegative = *std::min_element(pattern.begin(), pattern.end()) < 0;
    const double sum = std::accumulate(pattern.begin(), pattern.end(), 0.0);
    if (isNegative || !(sum > 0) || !std::isfinite(sum)) {
        throw UsageError(option + ": no length may be negative, and their sum must be a number " +
                         "above 0, unlike '" + text + "'");
    }
    return pattern;
}

} // namespace geomtool
