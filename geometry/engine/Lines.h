// SPDX-License-Identifier: MIT
#pragma once

namespace geom::detail {

/// The source name that the engine's errors carry.
inline constexpr const char* ENGINE_FILE = "Gpc";

/// The line numbers that the engine's errors carry, by what they mean.
enum EngineLine : int {
    // Arguments.
    LINE_NULL_ARGUMENT = 100,
    LINE_UNKNOWN_OPERATION = 101,
    LINE_COORDINATE_NOT_FINITE = 102,
    LINE_TOO_MANY_ITEMS = 103,
    // Failed allocations.
    LINE_ALLOCATE_RECORD = 200,
    LINE_ALLOCATE_FILE = 201,
    LINE_ALLOCATE_RUN = 202,
    // States that a correct sweep never reaches.
    LINE_HORIZONTAL_COLUMN = 300,
    LINE_NO_ADJACENT_CROSSING = 302,
    LINE_ADD_LEFT_TO_NOTHING = 310,
    LINE_ADD_RIGHT_TO_NOTHING = 311,
    LINE_MERGE_WITH_NOTHING = 312,
    LINE_NO_CARRIED_EDGE = 320,
    LINE_ADD_TO_NO_STRIP = 321,
    LINE_NO_PREVIOUS_LIVE_EDGE = 322,
    LINE_NO_NEXT_LIVE_EDGE = 323,
};

/// Throws the GPCException of one of the engine's checks.
[[noreturn]] void ThrowEngineError(EngineLine line);

/// Throws the foundation's internal error for an argument that the engine cannot take.
[[noreturn]] void ThrowArgumentError(EngineLine line);

} // namespace geom::detail
