// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Exception.h"
#include "geometry/Export.h"

namespace geom {

/// Thrown when the polygon set-operation engine meets a state that a correct run never
/// reaches: input so nearly degenerate that rounding made the sweep inconsistent. Rounding the
/// coordinates to fewer digits usually helps; GpcPolygon does so once by itself.
///
/// An exhausted heap is reported by the base class instead, which a handler for this class
/// does not see.
class GEOM_API GPCException : public kit::Exception {
public:
    GPCException(const kit::GString& file, int line);
};

} // namespace geom
