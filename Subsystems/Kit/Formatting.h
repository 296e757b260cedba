// SPDX-License-Identifier: MIT
#pragma once

#include <cstdarg>
#include <string>

namespace kit {

/// Formats as vswprintf does on Windows: %s is a wide text, %S a narrow one, on every platform
/// and in every locale. Consumes the arguments; the caller still calls va_end.
std::wstring FormatWide(const wchar_t* format, std::va_list arguments);

} // namespace kit
