// SPDX-License-Identifier: MIT
// The characters of a number are collected one by one, for only one can be pushed back, and
// converted without the help of a locale.
//
// The grammar is that of the C library's own fscanf, with its one liberty: an exponent without
// digits is taken from the stream and ignored ("1e" and "1e+" are 1).
#include "geometry/engine/TextScanner.h"

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>

namespace geom::detail {

namespace {

// The classification of the "C" locale, whatever the program has set.
bool IsSpace(int c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsDigit(int c) {
    return c >= '0' && c <= '9';
}

int ToLower(int c) {
    return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c;
}

bool IsHexDigit(int c) {
    return IsDigit(c) || (ToLower(c) >= 'a' && ToLower(c) <= 'f');
}

#if defined(_WIN32)
void Lock(std::FILE* stream) {
    _lock_file(stream);
}
void Unlock(std::FILE* stream) {
    _unlock_file(stream);
}
int GetChar(std::FILE* stream) {
    return _getc_nolock(stream);
}
double StringToDouble(const char* text) {
    const _locale_t locale = _create_locale(LC_ALL, "C");
    const double value = _strtod_l(text, nullptr, locale);
    _free_locale(locale);
    return value;
}
#else
void Lock(std::FILE* stream) {
    flockfile(stream);
}
void Unlock(std::FILE* stream) {
    funlockfile(stream);
}
int GetChar(std::FILE* stream) {
    return getc_unlocked(stream);
}
double StringToDouble(const char* text) {
    const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    const double value = strtod_l(text, nullptr, locale);
    freelocale(locale);
    return value;
}
#endif

// The number at the start of a text without a sign, followed by a zero in storage.
std::optional<double> UnsignedValue(std::string_view text) {
    const bool hexadecimal = text.size() > 1 && text[0] == '0' && ToLower(text[1]) == 'x';
    const std::string_view digits = hexadecimal ? text.substr(2) : text;
    double value = 0;
    const std::from_chars_result result =
        std::from_chars(digits.data(), digits.data() + digits.size(), value,
                        hexadecimal ? std::chars_format::hex : std::chars_format::general);
    if (result.ec == std::errc::result_out_of_range) {
        return StringToDouble(text.data()); // infinity or zero: says which
    }
    if (result.ec != std::errc()) {
        // "0x." has no hexadecimal digit, but its 0 is a number.
        return hexadecimal ? std::optional<double>(0) : std::nullopt;
    }
    return value;
}

} // namespace

void NumberText::Append(int c) {
    if (m_count + 1 == m_capacity) {
        Grow();
    }
    (m_heap != nullptr ? m_heap : m_inline)[m_count++] = static_cast<char>(c);
}

std::string_view NumberText::Text() {
    char* text = m_heap != nullptr ? m_heap : m_inline;
    text[m_count] = '\0';
    return {text, m_count};
}

void NumberText::Grow() {
    const bool isInline = m_heap == nullptr;
    m_heap = static_cast<char*>(
        GpcRealloc(m_heap, 2 * m_capacity, ENGINE_FILE, LINE_ALLOCATE_FILE, "vertex creation"));
    if (isInline) {
        std::memcpy(m_heap, m_inline, m_count);
    }
    m_capacity *= 2;
}

TextScanner::TextScanner(std::FILE* stream) : m_stream(stream) {
    Lock(m_stream);
}

TextScanner::~TextScanner() {
    Unlock(m_stream);
}

void TextScanner::Advance() {
    m_char = GetChar(m_stream);
}

void TextScanner::Keep() {
    m_number.Append(m_char);
    Advance();
}

void TextScanner::PutBack() {
    if (m_char != EOF) {
        std::ungetc(m_char, m_stream);
    }
}

void TextScanner::SkipWhiteSpace() {
    do {
        Advance();
    } while (IsSpace(m_char));
}

bool TextScanner::ScanInt(int& value) {
    SkipWhiteSpace();
    const bool negative = m_char == '-';
    if (negative || m_char == '+') {
        Advance();
    }
    if (!IsDigit(m_char)) {
        PutBack();
        return false;
    }
    const std::int64_t limit = std::int64_t{std::numeric_limits<int>::max()} + (negative ? 1 : 0);
    std::int64_t magnitude = 0;
    for (; IsDigit(m_char); Advance()) {
        magnitude = std::min(limit, 10 * magnitude + (m_char - '0'));
    }
    PutBack();
    value = static_cast<int>(negative ? -magnitude : magnitude);
    return true;
}

bool TextScanner::ScanDouble(double& value) {
    m_number.Clear();
    SkipWhiteSpace();
    const bool negative = m_char == '-';
    if (negative || m_char == '+') {
        Advance();
    }
    const bool complete = ToLower(m_char) == 'n'   ? KeepWord("nan")
                          : ToLower(m_char) == 'i' ? KeepInfinity()
                                                   : KeepNumber();
    const std::optional<double> magnitude =
        complete ? UnsignedValue(m_number.Text()) : std::nullopt;
    if (magnitude) {
        value = negative ? -*magnitude : *magnitude;
    }
    return magnitude.has_value();
}

bool TextScanner::KeepWord(std::string_view word) {
    for (std::size_t i = 0; ToLower(m_char) == word[i]; Advance()) {
        m_number.Append(m_char);
        if (++i == word.size()) {
            return true;
        }
    }
    return false;
}

// "inf" or "infinity"; nothing between the two.
bool TextScanner::KeepInfinity() {
    if (!KeepWord("inf")) {
        return false;
    }
    Advance();
    if (ToLower(m_char) == 'i') {
        return KeepWord("inity");
    }
    PutBack();
    return true;
}

bool TextScanner::KeepNumber() {
    bool hexadecimal = false;
    bool hasDigit = m_char == '0';
    if (hasDigit) {
        Keep();
        hexadecimal = ToLower(m_char) == 'x';
    }
    if (hexadecimal) {
        Keep();
        hasDigit = false; // the 0 before the x is none of its digits
    }
    KeepMantissa(hexadecimal, hasDigit);
    if (hasDigit && ToLower(m_char) == (hexadecimal ? 'p' : 'e')) {
        KeepExponent();
    }
    PutBack();
    return m_number.Text().size() > (hexadecimal ? 2U : 0U);
}

void TextScanner::KeepMantissa(bool hexadecimal, bool& hasDigit) {
    bool hasPoint = false;
    for (;; Keep()) {
        if (hexadecimal ? IsHexDigit(m_char) : IsDigit(m_char)) {
            hasDigit = true;
        } else if (m_char == '.' && !hasPoint) {
            hasPoint = true;
        } else {
            return;
        }
    }
}

void TextScanner::KeepExponent() {
    Keep();
    if (m_char == '+' || m_char == '-') {
        Keep();
    }
    while (IsDigit(m_char)) {
        Keep();
    }
}

} // namespace geom::detail
