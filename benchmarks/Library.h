// SPDX-License-Identifier: MIT
#pragma once

#include "Inputs.h"

#include "geometry/Gpc.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace geom::bench {

/// What a run found, to be compared between libraries, and the vertices of its result.
struct Answer {
    double value = 0; ///< an area, a length, a count; not finite when the library failed
    std::size_t vertices = 0;
};

/// One task, set up in the library's own types. Only `run` is timed; it leaves its result in
/// place until `clear`.
struct Job {
    std::function<void()> run;
    std::function<Answer()> answer;
    std::function<void()> clear;

    explicit operator bool() const { return run != nullptr; }
};

/// A job whose state outlives it and has the members Run, Find and Clear.
template <typename State>
Job MakeJob(std::shared_ptr<State> state) {
    return {[state] { state->Run(); }, [state] { return state->Find(); },
            [state] { state->Clear(); }};
}

/// A library in the comparison. Every function sets up one task; those a library cannot do, or
/// for inputs it does not take, stay as they are here and give an empty job.
class Library {
public:
    Library() = default;
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    virtual ~Library() = default;

    virtual std::string Name() const = 0;

    /// Whether rings of one operand may share borders or cross each other.
    virtual bool TakesTouchingRings() const { return true; }

    // Areas; the value is the area of the result.
    virtual Job SetOperation(gpc_op, const Regions&) const { return {}; }
    virtual Job Strips(const Region&) const { return {}; }
    virtual Job ClipToBoxes(const Region&, const std::vector<Box2d>&) const { return {}; }
    virtual Job Offset(const Region&, double) const { return {}; }
    virtual Job Area(const Ring&) const { return {}; }

    // Lines; the value is the length of the result.
    virtual Job ClipLinesToBox(const Lines&, const Box2d&) const { return {}; }
    virtual Job ClipLinesToRegion(const Lines&, const Region&) const { return {}; }
    virtual Job Dash(const Lines&, const std::vector<double>&) const { return {}; }
    virtual Job Perimeter(const Ring&) const { return {}; }

    /// The value is the number of points inside.
    virtual Job PointsInside(const Ring&, const std::vector<Vec2d>&) const { return {}; }
    /// The value is the sum of the distances; building the index is part of the run.
    virtual Job Nearest(const std::vector<Vec2d>&, const std::vector<Vec2d>&) const { return {}; }

    // Without a peer; the value is a number of vertices.
    virtual Job CleanRings(const Region&) const { return {}; }
    virtual Job WriteFile(const Region&, bool) const { return {}; }
    virtual Job ReadFile(const Region&, bool) const { return {}; }
};

/// All libraries that were found when this program was built; the one to be measured is first.
const std::vector<const Library*>& Libraries();

// Measures of results, for any library's types.

/// Twice the signed area between an edge and the origin.
inline double Cross(double ax, double ay, double bx, double by) {
    return ax * by - bx * ay;
}

} // namespace geom::bench
