// SPDX-License-Identifier: MIT
#include "geometry/GPCException.h"

namespace geom {

namespace {

constexpr const wchar_t* MODULE = L"GPC Library";
constexpr const wchar_t* MESSAGE =
    L"Internal Error in General Polygon Clipping library.\n"
    L"Please report this to Vexlor Software at https://www.vexlor.example/support.";

} // namespace

GPCException::GPCException(const kit::GString& file, int line)
    : kit::Exception(MODULE, file, line, MESSAGE, false) {}

} // namespace geom
