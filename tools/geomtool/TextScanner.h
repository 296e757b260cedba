// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// \file
/// A walk over a text in memory that knows where it stands, so that errors name their line.

namespace geomtool {

class TextScanner {
public:
    /// \param file the name for messages. The text must outlive the scanner. A byte order mark
    /// at its start is passed over.
    TextScanner(std::string file, std::string_view text);

    void SkipBlanks();
    /// Whether nothing but white space is left.
    bool AtEnd();
    /// The bytes not yet read.
    std::size_t Remaining() const { return m_text.size() - m_position; }

    /// Takes a character when it comes next, white space before it passed over.
    bool Accept(char c);
    /// Takes a character or fails with "expected ...".
    void Expect(char c);
    /// Takes a run of letters, turned into upper case and cut to a readable length; empty when
    /// there is none.
    std::string Word();
    /// Whether a sign, digit or point comes next.
    bool AtNumber();
    /// Takes a finite number, white space before it passed over.
    double Number();
    /// Takes a whole number that is not negative and not above `limit`.
    /// \param what the number's meaning, for messages, such as "a vertex count".
    std::size_t Count(const char* what, std::size_t limit);

    /// Throws the error of the place that was read last.
    [[noreturn]] void Fail(const std::string& message) const;

private:
    [[noreturn]] void FailExpected(const std::string& what);

    std::string m_file;
    std::string_view m_text;
    std::size_t m_position = 0;
    /// Where the token in hand begins.
    std::size_t m_token = 0;
};

} // namespace geomtool
