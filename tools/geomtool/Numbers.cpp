// SPDX-License-Identifier: MIT
#include "tools/geomtool/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace geomtool {

namespace {

/// The exponent written after the digits, cut at a size that no row of digits can make up for.
long long WrittenExponent(std::string_view digits) {
    const std::size_t mark = digits.find_first_of("eE");
    if (mark == std::string_view::npos) {
        return 0;
    }
    std::string_view tail = digits.substr(mark + 1);
    const bool negative = !tail.empty() && tail[0] == '-';
    if (!tail.empty() && (tail[0] == '+' || tail[0] == '-')) {
        tail.remove_prefix(1);
    }
    constexpr long long CUT = 1'000'000'000'000'000;
    long long exponent = 0;
    for (const char c : tail) {
        exponent = std::min(exponent * 10 + (c - '0'), CUT);
    }
    return negative ? -exponent : exponent;
}

/// Whether a valid number that does not fit a double is too small rather than too large: the
/// power of ten of its first digit other than 0 tells.
bool IsTiny(std::string_view number) {
    const std::string_view mantissa = number.substr(0, number.find_first_of("eE"));
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) {
        return true;
    }
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const auto power = static_cast<long long>(point) - static_cast<long long>(first);
    return power + WrittenExponent(number) < 0;
}

} // namespace

NumberStatus TakeNumber(std::string_view& text, double& value) {
    std::string_view rest = text;
    if (!rest.empty() && rest[0] == '+') {
        rest.remove_prefix(1);
        if (!rest.empty() && rest[0] == '-') {
            return NumberStatus::NotANumber;
        }
    }
    double result = 0;
    const char* const begin = rest.data();
    const auto [stop, error] = std::from_chars(begin, begin + rest.size(), result);
    if (error == std::errc::invalid_argument) {
        return NumberStatus::NotANumber;
    }
    const auto length = static_cast<std::size_t>(stop - begin);
    if (error == std::errc::result_out_of_range) {
        if (!IsTiny(rest.substr(0, length))) {
            return NumberStatus::TooLarge;
        }
        result = 0;
    }
    if (!std::isfinite(result)) {
        return std::isnan(result) ? NumberStatus::NotANumber : NumberStatus::TooLarge;
    }
    text = rest.substr(length);
    value = result;
    return NumberStatus::Valid;
}

void AppendNumber(std::string& out, double value) {
    char digits[32];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, value);
    static_cast<void>(error); // 24 characters hold the shortest form of every double
    out.append(digits, end);
}

void AppendFixed(std::string& out, long long units, int decimals) {
    if (units < 0) {
        out += '-';
        units = -units;
    }
    std::string digits = std::to_string(units);
    const auto places = static_cast<std::size_t>(decimals);
    if (digits.size() <= places) {
        digits.insert(0, places + 1 - digits.size(), '0');
    }
    std::string fraction = digits.substr(digits.size() - places);
    fraction.erase(fraction.find_last_not_of('0') + 1);
    const std::string whole = digits.substr(0, digits.size() - places);
    if (whole != "0" || fraction.empty()) {
        out += whole;
    }
    if (!fraction.empty()) {
        out += '.';
        out += fraction;
    }
}

} // namespace geomtool
