// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Numbers from a stream of text, as fscanf takes them in the "C" locale, whatever the
/// program's locale is.

#include "geometry/engine/Memory.h"

#include <cstddef>
#include <cstdio>
#include <string_view>

namespace geom::detail {

/// The characters of one number. Only a number of absurd length needs the heap.
class NumberText {
public:
    NumberText() = default;
    NumberText(const NumberText&) = delete;
    NumberText& operator=(const NumberText&) = delete;
    ~NumberText() { GpcFree(m_heap); }

    void Clear() { m_count = 0; }
    void Append(int c);
    /// The text; a zero follows it in storage.
    std::string_view Text();

private:
    void Grow();

    char m_inline[512];
    char* m_heap = nullptr;
    std::size_t m_count = 0;
    std::size_t m_capacity = sizeof m_inline;
};

/// Reads one number after the other from a stream that it locks while it lives.
///
/// What does not belong to a number stays in the stream, at most one character of it pushed
/// back; so pipes are left where fscanf leaves them, too. Of a failed scan those characters are
/// gone that could have begun a number.
class TextScanner {
public:
    explicit TextScanner(std::FILE* stream);
    TextScanner(const TextScanner&) = delete;
    TextScanner& operator=(const TextScanner&) = delete;
    ~TextScanner();

    /// As "%d". A number beyond 32 bits gives the nearest one within them.
    bool ScanInt(int& value);
    /// As "%lf": decimal and hexadecimal numbers, infinities, NaN.
    bool ScanDouble(double& value);

private:
    void Advance();
    void Keep();
    void PutBack();
    void SkipWhiteSpace();
    // What follows the sign. Each begins at the character last read and returns whether the
    // text can be a number.
    bool KeepWord(std::string_view word);
    bool KeepInfinity();
    bool KeepNumber();
    void KeepMantissa(bool hexadecimal, bool& hasDigit);
    void KeepExponent();

    std::FILE* m_stream;
    int m_char = 0; // the character last read, EOF at the end
    NumberText m_number;
};

} // namespace geom::detail
