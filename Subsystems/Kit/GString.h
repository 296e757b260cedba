// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Export.h"

#include <cstddef>
#include <string>

namespace kit {

/// A wide-character text.
///
/// Narrow text is taken as UTF-8; bytes that are not valid UTF-8 are kept as lone surrogates
/// U+DC80 to U+DCFF, so that Narrow() gives back the same bytes.
class KIT_API GString {
public:
    GString() = default;
    /// A null pointer gives the empty text.
    GString(const wchar_t* text);
    /// A null pointer gives the empty text.
    GString(const char* text);

    const wchar_t* c_str() const { return m_text.c_str(); }
    /// The number of wide characters before the terminating zero.
    std::size_t Length() const { return m_text.size(); }
    /// The text in UTF-8, for file names and the console.
    std::string Narrow() const;

    bool operator==(const GString& o) const { return m_text == o.m_text; }
    bool operator!=(const GString& o) const { return m_text != o.m_text; }

private:
    std::wstring m_text;
};

} // namespace kit
