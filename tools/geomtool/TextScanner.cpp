// SPDX-License-Identifier: MIT
#include "tools/geomtool/TextScanner.h"

#include "tools/geomtool/InputError.h"
#include "tools/geomtool/Numbers.h"

#include <charconv>
#include <system_error>
#include <utility>

namespace geomtool {

namespace {

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

bool IsBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// Whether a number may end before the given text: 12 is one before a comma, not before a letter.
bool EndsNumber(std::string_view rest) {
    return rest.empty() || IsBlank(rest[0]) || rest[0] == ',' || rest[0] == '(' || rest[0] == ')';
}

char UpperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

} // namespace

TextScanner::TextScanner(std::string file, std::string_view text)
    : m_file(std::move(file)), m_text(text) {
    if (text.substr(0, BYTE_ORDER_MARK.size()) == BYTE_ORDER_MARK) {
        m_position = BYTE_ORDER_MARK.size();
    }
}

void TextScanner::SkipBlanks() {
    while (m_position < m_text.size() && IsBlank(m_text[m_position])) {
        ++m_position;
    }
    m_token = m_position;
}

bool TextScanner::AtEnd() {
    SkipBlanks();
    return m_position == m_text.size();
}

bool TextScanner::Accept(char c) {
    if (AtEnd() || m_text[m_position] != c) {
        return false;
    }
    ++m_position;
    return true;
}

void TextScanner::Expect(char c) {
    if (!Accept(c)) {
        FailExpected(std::string("'") + c + "'");
    }
}

bool TextScanner::AtNumber() {
    return !AtEnd() &&
           std::string_view("+-.0123456789").find(m_text[m_position]) != std::string_view::npos;
}

std::string TextScanner::Word() {
    constexpr std::size_t LONGEST_WORD = 40;
    std::string word;
    SkipBlanks();
    for (; m_position < m_text.size() && IsLetter(m_text[m_position]); ++m_position) {
        if (word.size() < LONGEST_WORD) {
            word += UpperCase(m_text[m_position]);
        }
    }
    return word;
}

double TextScanner::Number() {
    if (AtEnd()) {
        FailExpected("a number");
    }
    std::string_view rest = m_text.substr(m_position);
    double value = 0;
    switch (TakeNumber(rest, value)) {
    case NumberStatus::Valid: break;
    case NumberStatus::NotANumber: FailExpected("a number");
    case NumberStatus::TooLarge: Fail("the number is too large");
    }
    if (!EndsNumber(rest)) {
        FailExpected("a number");
    }
    m_position = m_text.size() - rest.size();
    return value;
}

std::size_t TextScanner::Count(const char* what, std::size_t limit) {
    if (AtEnd()) {
        FailExpected(what);
    }
    const char* const begin = m_text.data() + m_position;
    const char* const end = m_text.data() + m_text.size();
    std::size_t value = 0;
    const auto [stop, error] = std::from_chars(begin, end, value);
    const auto length = static_cast<std::size_t>(stop - begin);
    if (error == std::errc::invalid_argument || !EndsNumber(m_text.substr(m_position + length))) {
        FailExpected(what);
    }
    if (error == std::errc::result_out_of_range || value > limit) {
        Fail(std::string(what) + " is larger than the file can hold");
    }
    m_position += length;
    return value;
}

void TextScanner::Fail(const std::string& message) const {
    throw ErrorAtLine(m_file, m_text, m_token, message);
}

void TextScanner::FailExpected(const std::string& what) {
    constexpr std::size_t LONGEST_QUOTE = 20;
    if (AtEnd()) {
        Fail("expected " + what + ", but the file ends");
    }
    std::size_t end = m_position;
    while (end < m_text.size() && end - m_position <= LONGEST_QUOTE && !IsBlank(m_text[end])) {
        ++end;
    }
    const bool cut = end - m_position > LONGEST_QUOTE;
    const std::string_view quote =
        m_text.substr(m_position, cut ? LONGEST_QUOTE : end - m_position);
    Fail("expected " + what + ", found '" + OneLine(quote) + (cut ? "...'" : "'"));
}

} // namespace geomtool
