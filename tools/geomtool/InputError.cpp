// SPDX-License-Identifier: MIT
#include "tools/geomtool/InputError.h"

#include <algorithm>

namespace geomtool {

namespace {

constexpr std::size_t LONGEST_MESSAGE = 400;

/// The length of the UTF-8 character at the start of a text, 0 when there is none. Overlong
/// forms of three and four bytes pass: they are harmless on a terminal.
std::size_t CharacterLength(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lead < 0x80                   ? 1
                               : lead >= 0xC2 && lead < 0xE0 ? 2
                               : lead >= 0xE0 && lead < 0xF0 ? 3
                               : lead >= 0xF0 && lead < 0xF5 ? 4
                                                             : 0;
    if (length > text.size()) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
            return 0;
        }
    }
    return length;
}

/// Control characters of ASCII and, in UTF-8, those from U+0080 to U+009F.
bool IsControl(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    return first < 0x20 || first == 0x7F ||
           (first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0);
}

} // namespace

InputError ErrorIn(const std::string& file, const std::string& message) {
    return InputError(file + ": " + message);
}

InputError ErrorAtLine(const std::string& file, std::string_view text, std::size_t position,
                       const std::string& message) {
    const std::string_view before = text.substr(0, std::min(position, text.size()));
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    return InputError(file + ":" + std::to_string(line) + ": " + message);
}

InputError ErrorAtByte(const std::string& file, std::size_t offset, const std::string& message) {
    return InputError(file + ": byte " + std::to_string(offset) + ": " + message);
}

std::string OneLine(std::string_view text) {
    std::string line;
    while (!text.empty() && line.size() < LONGEST_MESSAGE) {
        const std::size_t length = CharacterLength(text);
        const std::size_t taken = std::max<std::size_t>(length, 1);
        if (length == 0 || IsControl(text.substr(0, length))) {
            line += '?';
        } else {
            line += text.substr(0, length);
        }
        text.remove_prefix(taken);
    }
    if (!text.empty()) {
        line += "...";
    }
    return line;
}

} // namespace geomtool
