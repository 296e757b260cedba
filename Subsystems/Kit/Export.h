// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Marks the exported names of libkit; everything else stays hidden.
#if defined(_WIN32)
#if defined(KIT_BUILDING)
#define KIT_API __declspec(dllexport)
#else
#define KIT_API __declspec(dllimport)
#endif
#else
#define KIT_API __attribute__((visibility("default")))
#endif
