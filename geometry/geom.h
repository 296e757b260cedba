// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Everything of namespace geom.

#include "geometry/CLineClip.h"
#include "geometry/CPolyClip.h"
#include "geometry/Circle.h"
#include "geometry/ClipUtil.h"
#include "geometry/Curves.h"
#include "geometry/DashLineGenerator.h"
#include "geometry/Errors.h"
#include "geometry/Foundation.h"
#include "geometry/GPCException.h"
#include "geometry/Geometry.h"
#include "geometry/Gpc.h"
#include "geometry/GpcPolygon.h"
#include "geometry/Line2.h"
#include "geometry/LineClipPolygon.h"
#include "geometry/LineSegment2.h"
#include "geometry/LineSegment3.h"
#include "geometry/OffsetPolygon.h"
#include "geometry/ParametricLine3.h"
#include "geometry/Plane.h"
#include "geometry/Polygon2.h"
#include "geometry/PolygonMeasures.h"
#include "geometry/Polyline.h"
#include "geometry/RemoveSelfIntersections.h"
#include "geometry/SpatialSearchGrid2D.h"
#include "geometry/Thinning.h"
#include "geometry/TriStrip.h"
#include "geometry/Triangle.h"
