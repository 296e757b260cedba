// SPDX-License-Identifier: MIT
/// \file
/// The decomposition of a GpcPolygon into triangle strips.
#include "geometry/Errors.h"
#include "geometry/GPCException.h"
#include "geometry/GpcPolygon.h"
#include "geometry/TriStrip.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace geom {

namespace {

constexpr const wchar_t* UNIT = L"GpcPolygon";

enum Line : int {
    LINE_NULL_CALLBACK = 700,
    LINE_COPY_STRIP = 701,
    LINE_COLLECT_OUTLINES = 702,
};

/// Releases the strips on every way out, the callback's exceptions among them.
struct StripOwner : gpc_tristrip {
    StripOwner() : gpc_tristrip{0, nullptr} {}
    StripOwner(const StripOwner&) = delete;
    StripOwner& operator=(const StripOwner&) = delete;
    ~StripOwner() { gpc_free_tristrip(this); }
};

[[noreturn]] void ThrowOutOfMemory(Line line) {
    kit::Throw_ERR_KIT_NOGLOBALMEM(ModuleName(), UNIT, line);
}

void CopyStrip(const gpc_vertex_list& strip, std::vector<Vec2d>& pts) {
    try {
        pts.clear();
        pts.reserve(static_cast<std::size_t>(strip.num_vertices));
    } catch (...) {
        ThrowOutOfMemory(LINE_COPY_STRIP);
    }
    std::transform(strip.vertex, strip.vertex + strip.num_vertices, std::back_inserter(pts),
                   [](const gpc_vertex& v) { return Vec2d(v.x, v.y); });
}

using Rings = std::vector<std::vector<Vec2d>>;

std::vector<Vec2d> ClosedOutline(const Vec2d* strip, std::size_t n) {
    std::vector<Vec2d> ring;
    ring.reserve(n + 1);
    ring.resize(n);
    TriStripToCWPolygon(strip, n, ring.data());
    if (ring.back() != ring.front()) {
        ring.push_back(ring.front());
    }
    return ring;
}

bool CollectOutline(const Vec2d* pts, unsigned int n, void* user) {
    if (pts == nullptr || n < 3) {
        return true;
    }
    try {
        static_cast<Rings*>(user)->push_back(ClosedOutline(pts, n));
    } catch (...) {
        ThrowOutOfMemory(LINE_COLLECT_OUTLINES);
    }
    return true;
}

} // namespace

bool GpcPolygon::Decompose(bool (*callback)(const Vec2d* pts, unsigned int n, void* user),
                           void* user) const {
    if (callback == nullptr) {
        ThrowInternalError(UNIT, LINE_NULL_CALLBACK);
    }
    StripOwner strips;
    ToTriStripOrRetry(strips);
    std::vector<Vec2d> pts;
    for (int i = 0; i < strips.num_strips; ++i) {
        CopyStrip(strips.strip[i], pts);
        if (!callback(pts.data(), static_cast<unsigned int>(pts.size()), user)) {
            return false;
        }
    }
    return true;
}

bool GpcPolygon::Decompose(std::vector<std::vector<Vec2d>>& out) const {
    Rings outlines;
    Decompose(CollectOutline, &outlines);
    try {
        out.reserve(out.size() + outlines.size());
    } catch (...) {
        ThrowOutOfMemory(LINE_COLLECT_OUTLINES);
    }
    std::move(outlines.begin(), outlines.end(), std::back_inserter(out));
    return true;
}

// As with polygons, the record is the engine's until the engine returns.
void GpcPolygon::ToTriStripOrRetry(gpc_tristrip& strips) const {
    gpc_tristrip record{0, nullptr};
    try {
        gpc_polygon_to_tristrip(this, &record);
    } catch (const GPCException&) {
        GpcPolygon rounded;
        GetQuantizedToFloat(rounded);
        gpc_polygon_to_tristrip(&rounded, &record);
    }
    strips = record;
}

} // namespace geom
