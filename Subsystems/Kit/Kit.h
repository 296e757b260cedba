// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Everything of namespace kit: the foundation types that the geometry library is built on.

#include "Subsystems/Kit/Box2d.h"
#include "Subsystems/Kit/Box3d.h"
#include "Subsystems/Kit/BufferedFile.h"
#include "Subsystems/Kit/Constants.h"
#include "Subsystems/Kit/DoubleDouble.h"
#include "Subsystems/Kit/Errors.h"
#include "Subsystems/Kit/Exception.h"
#include "Subsystems/Kit/GString.h"
#include "Subsystems/Kit/Mat4d.h"
#include "Subsystems/Kit/Platform.h"
#include "Subsystems/Kit/PodVector.h"
#include "Subsystems/Kit/Vec2d.h"
#include "Subsystems/Kit/Vec3d.h"
#include "Subsystems/Kit/Vec4d.h"
