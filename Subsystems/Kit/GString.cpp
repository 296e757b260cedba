// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/GString.h"

#include <cstdint>

namespace kit {

namespace {

constexpr std::uint32_t INVALID_BYTE_BASE = 0xDC00; // byte 0x80..0xFF becomes U+DC80..U+DCFF

struct Decoded {
    std::uint32_t codePoint;
    std::size_t length;
};

std::uint32_t ByteAt(const char* text) {
    return static_cast<unsigned char>(*text);
}

std::size_t SequenceLength(std::uint32_t lead) {
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 2;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 3;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

bool IsScalarValue(std::uint32_t codePoint, std::size_t length) {
    constexpr std::uint32_t SMALLEST[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    return codePoint >= SMALLEST[length] && codePoint <= 0x10FFFF && !surrogate;
}

Decoded DecodeNext(const char* text) {
    const std::uint32_t lead = ByteAt(text);
    if (lead < 0x80) {
        return {lead, 1};
    }
    const Decoded invalid{INVALID_BYTE_BASE + lead, 1};
    const std::size_t length = SequenceLength(lead);
    if (length == 0) {
        return invalid;
    }
    std::uint32_t codePoint = lead & (0xFFU >> (length + 1));
    for (std::size_t k = 1; k < length; ++k) {
        const std::uint32_t byte = ByteAt(text + k); // a terminating zero is no continuation
        if ((byte & 0xC0U) != 0x80) {
            return invalid;
        }
        codePoint = (codePoint << 6U) | (byte & 0x3FU);
    }
    return IsScalarValue(codePoint, length) ? Decoded{codePoint, length} : invalid;
}

void AppendWide(std::wstring& out, std::uint32_t codePoint) {
    if (sizeof(wchar_t) == 2 && codePoint > 0xFFFF) {
        codePoint -= 0x10000;
        out += static_cast<wchar_t>(0xD800 + (codePoint >> 10U));
        codePoint = 0xDC00 + (codePoint & 0x3FFU);
    }
    out += static_cast<wchar_t>(codePoint);
}

void AppendNarrow(std::string& out, std::uint32_t codePoint) {
    const auto byte = [&out](std::uint32_t value) { out += static_cast<char>(value); };
    if (codePoint < 0x80) {
        byte(codePoint);
    } else if (codePoint >= INVALID_BYTE_BASE + 0x80 && codePoint <= INVALID_BYTE_BASE + 0xFF) {
        byte(codePoint - INVALID_BYTE_BASE);
    } else if (codePoint < 0x800) {
        byte(0xC0U | (codePoint >> 6U));
        byte(0x80U | (codePoint & 0x3FU));
    } else if (codePoint < 0x10000) {
        byte(0xE0U | (codePoint >> 12U));
        byte(0x80U | ((codePoint >> 6U) & 0x3FU));
        byte(0x80U | (codePoint & 0x3FU));
    } else {
        byte(0xF0U | ((codePoint >> 18U) & 0x07U));
        byte(0x80U | ((codePoint >> 12U) & 0x3FU));
        byte(0x80U | ((codePoint >> 6U) & 0x3FU));
        byte(0x80U | (codePoint & 0x3FU));
    }
}

bool IsPair(std::uint32_t first, std::uint32_t second) {
    return first >= 0xD800 && first <= 0xDBFF && second >= 0xDC00 && second <= 0xDFFF;
}

} // namespace

GString::GString(const wchar_t* text) : m_text(text != nullptr ? text : L"") {}

GString::GString(const char* text) {
    while (text != nullptr && *text != '\0') {
        const Decoded next = DecodeNext(text);
        AppendWide(m_text, next.codePoint);
        text += next.length;
    }
}

std::string GString::Narrow() const {
    std::string out;
    for (std::size_t i = 0; i < m_text.size(); ++i) {
        std::uint32_t unit = static_cast<char32_t>(m_text[i]);
        if (sizeof(wchar_t) == 2 && i + 1 < m_text.size()) {
            const std::uint32_t second = static_cast<char32_t>(m_text[i + 1]);
            if (IsPair(unit, second)) {
                unit = 0x10000 + ((unit - 0xD800) << 10U) + (second - 0xDC00);
                ++i;
            }
        }
        AppendNarrow(out, unit);
    }
    return out;
}

} // namespace kit
