// SPDX-License-Identifier: MIT
#include "geometry/Errors.h"

#include "Subsystems/Kit/Errors.h"
#include "Subsystems/Kit/Exception.h"

namespace geom {

const wchar_t* ModuleName() {
    return L"Geometry";
}

void ThrowErrorImpl(const wchar_t* module, const wchar_t* file, int line, const wchar_t* message) {
    throw kit::Exception(module != nullptr ? module : ModuleName(), file, line, message, false);
}

void ThrowInternalError(const wchar_t* file, int line) {
    kit::ThrowInternalError(ModuleName(), file, line);
}

} // namespace geom
