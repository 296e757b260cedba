// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Kit.h"

/// \file
/// Brings the foundation types into namespace geom.

namespace geom {

using kit::Box2d;
using kit::Box3d;
using kit::CBufferedFile;
using kit::CPodVector;
using kit::doubledouble;
using kit::Exception;
using kit::GString;
using kit::IError;
using kit::Mat4d;
using kit::Vec2d;
using kit::Vec3d;
using kit::Vec4d;

} // namespace geom
