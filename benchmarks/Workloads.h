// SPDX-License-Identifier: MIT
#pragma once

#include "Library.h"

/// \file
/// The table of workloads: what is measured, at which sizes, and in which unit.

namespace geom::bench {

/// Whatever a task needs; the others stay empty.
struct Input {
    Regions regions;
    Lines lines;
    Box2d box;
    std::vector<Box2d> tiles;
    std::vector<Vec2d> points;
    std::vector<Vec2d> queries;
    std::vector<double> pattern;
    double distance = 0;
    double units = 0; ///< what the time is divided by
    double work = 0;  ///< what the time is expected to grow with; the units, where it stays 0
};

struct Workload {
    const char* group; ///< the table it stands in
    const char* name;
    const char* unit; ///< what a time is given per
    std::vector<int> sizes;
    std::function<Input(int size)> input;
    std::function<Job(const Library& library, const Input& input)> job;
    /// How far an answer may be from ours, as a part of it.
    double tolerance = 1e-6;
};

/// In the order of the tables.
const std::vector<Workload>& Workloads();

/// Whether a library takes part in a workload.
bool Takes(const Library& library, const Workload& workload);

} // namespace geom::bench
