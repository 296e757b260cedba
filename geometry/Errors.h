// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"

/// \file
/// The library's module name and its throwers.

namespace geom {

/// The module name that the library's errors carry: "Geometry".
GEOM_API const wchar_t* ModuleName();

/// Throws a kit::Exception of the given module, file, line and message, for callers outside
/// the library. A null module means this library's own.
[[noreturn]] GEOM_API void ThrowErrorImpl(const wchar_t* module, const wchar_t* file, int line,
                                          const wchar_t* message);

/// Throws the foundation's internal error with this library's module name.
[[noreturn]] GEOM_API void ThrowInternalError(const wchar_t* file, int line);

} // namespace geom
