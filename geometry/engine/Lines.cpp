// SPDX-License-Identifier: MIT
#include "geometry/engine/Lines.h"

#include "geometry/Errors.h"
#include "geometry/GPCException.h"

namespace geom::detail {

void ThrowEngineError(EngineLine line) {
    throw GPCException(ENGINE_FILE, line);
}

void ThrowArgumentError(EngineLine line) {
    ThrowInternalError(L"Gpc", line);
}

} // namespace geom::detail
