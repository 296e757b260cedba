// SPDX-License-Identifier: MIT
#include "Entries.h"

#include <cmath>
#include <geos_c.h>
#include <limits>

namespace geom::bench {

namespace {

struct Destroy {
    void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy(geometry); }
    void operator()(const GEOSPreparedGeometry* geometry) const {
        GEOSPreparedGeom_destroy(geometry);
    }
};
using Geometry = std::unique_ptr<GEOSGeometry, Destroy>;
using Prepared = std::unique_ptr<const GEOSPreparedGeometry, Destroy>;

/// Failed operations give no geometry; what they print is not wanted.
void Ignore(const char*, ...) {}

GEOSCoordSequence* Sequence(const Vec2d* points, std::size_t n) {
    return GEOSCoordSeq_copyFromBuffer(&points->x, static_cast<unsigned int>(n), 0, 0);
}

GEOSGeometry* ClosedRing(const Ring& ring) {
    std::vector<Vec2d> points;
    for (const gpc_vertex& v : ring) {
        points.emplace_back(v.x, v.y);
    }
    points.push_back(points.front());
    return GEOSGeom_createLinearRing(Sequence(points.data(), points.size()));
}

Geometry Collection(int type, std::vector<GEOSGeometry*>& parts) {
    return Geometry(
        GEOSGeom_createCollection(type, parts.data(), static_cast<unsigned int>(parts.size())));
}

/// A hole belongs to the outer ring before it.
Geometry ToPolygons(const Region& region) {
    std::vector<GEOSGeometry*> polygons;
    for (std::size_t i = 0; i < region.rings.size();) {
        GEOSGeometry* outer = ClosedRing(region.rings[i]);
        std::vector<GEOSGeometry*> holes;
        for (++i; i < region.rings.size() && region.holes[i] != 0; ++i) {
            holes.push_back(ClosedRing(region.rings[i]));
        }
        polygons.push_back(
            GEOSGeom_createPolygon(outer, holes.data(), static_cast<unsigned int>(holes.size())));
    }
    if (polygons.size() == 1) {
        return Geometry(polygons.front());
    }
    return Collection(GEOS_MULTIPOLYGON, polygons);
}

std::vector<GEOSGeometry*> ToLines(const Lines& lines) {
    std::vector<GEOSGeometry*> parts;
    const Vec2d* at = lines.points.data();
    for (unsigned int n : lines.counts) {
        parts.push_back(GEOSGeom_createLineString(Sequence(at, n)));
        at += n;
    }
    return parts;
}

using Measure = int (*)(const GEOSGeometry*, double*);

double Measured(Measure measure, const GEOSGeometry* geometry) {
    double value = 0;
    return geometry != nullptr && measure(geometry, &value) == 1
               ? value
               : std::numeric_limits<double>::quiet_NaN();
}

/// Any operation on two geometries.
struct BinaryState {
    using Operation = GEOSGeometry* (*)(const GEOSGeometry*, const GEOSGeometry*);

    void Run() { result.reset(operation(first.get(), second.get())); }
    Answer Find() const { return {Measured(measure, result.get()), 0}; }
    void Clear() { result.reset(); }

    Operation operation;
    Measure measure;
    Geometry first, second;
    Geometry result = nullptr;
};

BinaryState::Operation FunctionOf(gpc_op operation) {
    switch (operation) {
    case GPC_DIFF: return &GEOSDifference;
    case GPC_INT: return &GEOSIntersection;
    case GPC_XOR: return &GEOSSymDifference;
    case GPC_UNION: break;
    }
    return &GEOSUnion;
}

struct LinesToBoxState {
    void Run() {
        result.reset(GEOSClipByRect(lines.get(), box.minX, box.minY, box.maxX, box.maxY));
    }
    Answer Find() const { return {Measured(&GEOSLength, result.get()), 0}; }
    void Clear() { result.reset(); }

    Geometry lines;
    Box2d box;
    Geometry result = nullptr;
};

struct OffsetState {
    // Nine segments to a quarter of a circle are 10 degrees each, as our own.
    void Run() { result.reset(GEOSBuffer(polygon.get(), distance, 9)); }
    Answer Find() const { return {Measured(&GEOSArea, result.get()), 0}; }
    void Clear() { result.reset(); }

    Geometry polygon;
    double distance;
    Geometry result = nullptr;
};

struct MeasureState {
    void Run() { value = Measured(measure, polygon.get()); }
    Answer Find() const { return {value, 0}; }
    void Clear() {}

    Measure measure;
    Geometry polygon;
    double value = 0;
};

class Geos : public Library {
public:
    Geos() { initGEOS(&Ignore, &Ignore); }

    std::string Name() const override { return "GEOS"; }
    bool TakesTouchingRings() const override { return false; }

    Job SetOperation(gpc_op operation, const Regions& operands) const override {
        return Binary(FunctionOf(operation), &GEOSArea, ToPolygons(operands.subject),
                      ToPolygons(operands.clip));
    }
    Job Offset(const Region& region, double distance) const override {
        auto state = std::make_shared<OffsetState>();
        state->polygon = ToPolygons(region);
        state->distance = distance;
        return MakeJob(state);
    }
    Job Area(const Ring& ring) const override { return MeasureOf(ring, &GEOSArea); }
    Job Perimeter(const Ring& ring) const override { return MeasureOf(ring, &GEOSLength); }
    Job ClipLinesToBox(const Lines& lines, const Box2d& box) const override {
        auto state = std::make_shared<LinesToBoxState>();
        std::vector<GEOSGeometry*> parts = ToLines(lines);
        state->lines = Collection(GEOS_MULTILINESTRING, parts);
        state->box = box;
        return MakeJob(state);
    }
    Job ClipLinesToRegion(const Lines& lines, const Region& region) const override {
        std::vector<GEOSGeometry*> parts = ToLines(lines);
        return Binary(&GEOSIntersection, &GEOSLength, Collection(GEOS_MULTILINESTRING, parts),
                      ToPolygons(region));
    }

private:
    static Job Binary(BinaryState::Operation operation, Measure measure, Geometry first,
                      Geometry second) {
        auto state = std::make_shared<BinaryState>();
        state->operation = operation;
        state->measure = measure;
        state->first = std::move(first);
        state->second = std::move(second);
        return MakeJob(state);
    }
    static Job MeasureOf(const Ring& ring, Measure measure) {
        auto state = std::make_shared<MeasureState>();
        state->measure = measure;
        state->polygon = ToPolygons({{ring}, {0}});
        return MakeJob(state);
    }
};

/// The index answers whether a line is wholly inside or outside; the others are cut one by one.
struct PreparedLinesState {
    void Run() {
        const Prepared prepared(GEOSPrepare(polygon.get()));
        for (const Geometry& line : lines) {
            if (GEOSPreparedContains(prepared.get(), line.get()) == 1) {
                length += Measured(&GEOSLength, line.get());
            } else if (GEOSPreparedIntersects(prepared.get(), line.get()) == 1) {
                const Geometry piece(GEOSIntersection(line.get(), polygon.get()));
                length += Measured(&GEOSLength, piece.get());
            }
        }
    }
    Answer Find() const { return {length, 0}; }
    void Clear() { length = 0; }

    Geometry polygon;
    std::vector<Geometry> lines;
    double length = 0;
};

class PreparedGeos : public Library {
public:
    std::string Name() const override { return "GEOS prepared"; }

    Job ClipLinesToRegion(const Lines& lines, const Region& region) const override {
        auto state = std::make_shared<PreparedLinesState>();
        state->polygon = ToPolygons(region);
        for (GEOSGeometry* line : ToLines(lines)) {
            state->lines.emplace_back(line);
        }
        return MakeJob(state);
    }
};

} // namespace

const Library& GeosEntry() {
    static const Geos geos;
    return geos;
}

const Library& PreparedGeosEntry() {
    static const PreparedGeos geos;
    return geos;
}

} // namespace geom::bench
