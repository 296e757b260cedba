// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

/// \file
/// The two ways in which a run of the tool fails by its user's doing.

namespace geomtool {

/// An input that cannot be read or an output that cannot be written (exit status 1). The text
/// begins with the file's name.
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Options that make no sense together (exit status 2).
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// "file: message"
InputError ErrorIn(const std::string& file, const std::string& message);
/// "file:12: message", for the line that holds the byte at `position` of `text`.
InputError ErrorAtLine(const std::string& file, std::string_view text, std::size_t position,
                       const std::string& message);
/// "file: byte 12: message", counted from 0.
InputError ErrorAtByte(const std::string& file, std::size_t offset, const std::string& message);

/// What a hostile file may put into a message, made fit for one line of a terminal: control
/// characters and bytes that are no UTF-8 become question marks, long texts are cut.
std::string OneLine(std::string_view text);

} // namespace geomtool
