// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Marks the exported names of libgeometry; everything else stays hidden.
#if defined(_WIN32)
#if defined(GEOM_BUILDING)
#define GEOM_API __declspec(dllexport)
#else
#define GEOM_API __declspec(dllimport)
#endif
#else
#define GEOM_API __attribute__((visibility("default")))
#endif
