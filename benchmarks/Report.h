// SPDX-License-Identifier: MIT
#pragma once

#include "Workloads.h"

#include <iosfwd>

namespace geom::bench {

/// One case of the comparison.
struct Result {
    const Workload* workload;
    int size;
    const Library* library;
    double nanoseconds; ///< per unit; meaningless when there is a remark
    double units;
    double work;   ///< what the time of a task is expected to grow with
    double memory; ///< bytes per unit
    double output; ///< vertices of the result per unit
    std::string remark;
};

/// Writes a Markdown table for each group of workloads.
void WriteTables(const std::vector<Result>& results, std::ostream& out);

/// Writes a page of documentation around the tables.
void WritePage(const std::vector<Result>& results, std::ostream& out);

} // namespace geom::bench
