// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <cstddef>
#include <vector>

/// \file
/// What the planar and the spatial dash generator know about a pattern of lengths, and how they
/// take one over from a caller.

namespace geom::detail {

/// Where the pen stands in its pattern.
struct PenState {
    int index;        ///< the pattern entry being walked
    bool penDown;     ///< whether the current stretch is visible
    double remaining; ///< what is left of the entry
};

/// The pen at the start of a pattern: down, with the whole first entry ahead. An empty pattern
/// has nothing ahead.
PenState StartOfPattern(const std::vector<double>& dashes);

/// The lines that a failed take-over of a pattern reports, by generator.
struct PatternErrorLines {
    int nullDashes;
    int outOfMemory;
};

/// Appends `count` lengths to a pattern; a count of 0 appends the single length 0.
///
/// A null array with a count above 0 is an internal error, a failed growth the foundation's
/// out-of-memory error; both leave the pattern as it was.
void AppendPattern(std::vector<double>& pattern, const double* dashes, std::size_t count,
                   const PatternErrorLines& lines);

/// A pattern, read for one walk.
class DashPattern {
public:
    /// Keeps a reference to the lengths. There is at least one.
    explicit DashPattern(const std::vector<double>& dashes);

    /// Whether the pattern gets nowhere: its lengths do not sum to more than 0, so that no
    /// number of cycles would reach the end of a segment. Such a pattern draws solid lines.
    bool IsSolid() const { return !(m_sum > 0.0); }

    /// Whether the pen can walk `distance` beyond what `remaining` covers within 2^32 cycles.
    /// More would keep a host busy for hours.
    bool CanCover(double distance, double remaining) const;

    double operator[](int index) const { return m_dashes[static_cast<std::size_t>(index)]; }
    /// The entry that follows; entry 0 follows the last one.
    int Next(int index) const {
        return static_cast<std::size_t>(index) + 1 == m_dashes.size() ? 0 : index + 1;
    }

private:
    const std::vector<double>& m_dashes;
    double m_scale;
    double m_sum; ///< of the lengths times m_scale, which keeps it finite
};

} // namespace geom::detail
