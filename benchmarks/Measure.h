// SPDX-License-Identifier: MIT
#pragma once

#include "Library.h"

namespace geom::bench {

/// How long a case may take.
struct Effort {
    double enough;  ///< seconds of runs after which the least time counts
    double longest; ///< a case that would take longer in one run is left out
};

struct Measurement {
    double seconds = 0; ///< processor time of the fastest of several runs
    double memory = 0;  ///< bytes by which the first run grew the process; negative where unknown
    Answer answer;
};

/// Runs a job as often as the effort allows, at least once.
Measurement Measure(const Job& job, const Effort& effort);

} // namespace geom::bench
