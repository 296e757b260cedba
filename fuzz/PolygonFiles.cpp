// SPDX-License-Identifier: MIT
// The readers and writers of polygon files on hostile bytes. The first byte chooses text or
// binary, with or without hole flags. What must hold:
// - a plain reader, with fscanf for text, sees the same: complete or not, every entry, and where
//   it stops;
// - the record counts no more than it holds and can be released, whatever happened;
// - what was read completely is written and read again as the same record: binary files as the
//   very bytes, text rounded to its 15 decimals once.
#include "fuzz/support/ByteSource.h"
#include "fuzz/support/Check.h"
#include "fuzz/support/Coordinates.h"
#include "fuzz/support/MemoryStream.h"
#include "fuzz/support/Target.h"

#include "Subsystems/Kit/Exception.h"
#include "geometry/Gpc.h"

#include <algorithm>
#include <limits>

namespace geom::fuzz {

namespace {

struct FileForm {
    bool isBinary;
    bool hasFlags;
};

/// What the plain reader found.
struct PlainFile {
    struct Contour {
        int hole = 0;
        Points points;
    };
    std::vector<Contour> contours;
    bool isComplete = false;
    bool hasNegativeCount = false;
    long end = 0; ///< where reading stopped
};

bool ReadInt(std::FILE* stream, FileForm form, int& value) {
    if (form.isBinary) {
        return std::fread(&value, sizeof value, 1, stream) == 1;
    }
    long wide = 0;
    if (std::fscanf(stream, "%ld", &wide) != 1) {
        return false;
    }
    value = static_cast<int>(
        std::clamp<long>(wide, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
    return true;
}

bool ReadVertex(std::FILE* stream, FileForm form, Vec2d& p) {
    p = Vec2d(0, 0);
    if (form.isBinary) {
        return std::fread(&p.x, sizeof p.x, 1, stream) == 1 &&
               std::fread(&p.y, sizeof p.y, 1, stream) == 1;
    }
    if (std::fscanf(stream, "%lf", &p.x) != 1) {
        return false;
    }
    // A line may end after x.
    if (std::fscanf(stream, "%lf", &p.y) != 1) {
        p.y = 0;
    }
    return true;
}

bool ReadContours(std::FILE* stream, FileForm form, PlainFile& file) {
    int contours = 0;
    if (!ReadInt(stream, form, contours)) {
        return false;
    }
    file.hasNegativeCount = contours < 0;
    for (; contours > 0; --contours) {
        PlainFile::Contour contour;
        int vertices = 0;
        if (!ReadInt(stream, form, vertices) ||
            (form.hasFlags && !ReadInt(stream, form, contour.hole))) {
            return false;
        }
        if (vertices < 0) {
            file.hasNegativeCount = true;
            return false;
        }
        for (; vertices > 0; --vertices) {
            Vec2d p;
            if (!ReadVertex(stream, form, p)) {
                return false;
            }
            contour.points.push_back(p);
        }
        file.contours.push_back(contour);
    }
    return true;
}

PlainFile ReadPlainly(std::string_view bytes, FileForm form) {
    const InputStream stream(bytes);
    PlainFile file;
    file.isComplete = ReadContours(stream.Get(), form, file) && !file.hasNegativeCount;
    file.end = stream.Position();
    return file;
}

/// A record that is released at the end, as every reader's result can be.
struct Record {
    Record() = default;
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;
    ~Record() { gpc_free_polygon(&polygon); }

    gpc_polygon polygon = {0, nullptr, nullptr};
};

bool Read(std::FILE* stream, FileForm form, Record& record) {
    return form.isBinary ? gpc_read_polygon_binary(stream, form.hasFlags, &record.polygon)
                         : gpc_read_polygon(stream, form.hasFlags, &record.polygon);
}

std::string Write(const Record& record, FileForm form) {
    OutputStream stream;
    FUZZ_CHECK(form.isBinary
                   ? gpc_write_polygon_binary(stream.Get(), form.hasFlags, &record.polygon)
                   : gpc_write_polygon(stream.Get(), form.hasFlags, &record.polygon));
    return stream.Content();
}

/// Touches everything that the counts promise.
double SumOfAll(const gpc_polygon& polygon) {
    double sum = 0;
    for (int c = 0; c < polygon.num_contours; ++c) {
        sum += polygon.hole[c];
        for (int v = 0; v < polygon.contour[c].num_vertices; ++v) {
            sum += polygon.contour[c].vertex[v].x + polygon.contour[c].vertex[v].y;
        }
    }
    return sum;
}

bool IsSame(const gpc_polygon& polygon, const PlainFile& file) {
    if (polygon.num_contours != static_cast<int>(file.contours.size())) {
        return false;
    }
    for (int c = 0; c < polygon.num_contours; ++c) {
        const PlainFile::Contour& expected = file.contours[static_cast<std::size_t>(c)];
        Points points;
        for (int v = 0; v < polygon.contour[c].num_vertices; ++v) {
            points.emplace_back(polygon.contour[c].vertex[v].x, polygon.contour[c].vertex[v].y);
        }
        if (polygon.hole[c] != expected.hole || !SameBits(points, expected.points)) {
            return false;
        }
    }
    return true;
}

/// \return whether a negative count was refused, which is done by an exception.
bool ReadOrRefuse(std::FILE* stream, FileForm form, Record& record, bool& isComplete) {
    try {
        isComplete = Read(stream, form, record);
        return false;
    } catch (const kit::Exception&) {
        return true;
    }
}

void CheckRoundTrip(const Record& record, FileForm form, std::string_view original) {
    const std::string written = Write(record, form);
    if (form.isBinary) {
        FUZZ_CHECK(written == original);
    }
    const InputStream stream(written);
    Record again;
    FUZZ_CHECK(Read(stream.Get(), form, again));
    FUZZ_CHECK(IsSame(again.polygon, ReadPlainly(written, form)));
    FUZZ_CHECK(Write(again, form) == written);
}

void Check(std::string_view bytes, FileForm form) {
    const PlainFile expected = ReadPlainly(bytes, form);
    const InputStream stream(bytes);
    Record record;
    bool isComplete = false;
    const bool wasRefused = ReadOrRefuse(stream.Get(), form, record, isComplete);
    FUZZ_CHECK(wasRefused == expected.hasNegativeCount);
    [[maybe_unused]] const volatile double touched = SumOfAll(record.polygon);
    if (wasRefused) {
        return;
    }
    FUZZ_CHECK(isComplete == expected.isComplete);
    FUZZ_CHECK(stream.Position() == expected.end);
    if (isComplete) {
        FUZZ_CHECK(IsSame(record.polygon, expected));
        CheckRoundTrip(record, form, bytes.substr(0, static_cast<std::size_t>(expected.end)));
    }
}

} // namespace

} // namespace geom::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    geom::fuzz::ByteSource bytes(data, size);
    const int choice = bytes.Byte();
    geom::fuzz::Check(bytes.Rest(), {(choice & 1) != 0, (choice & 2) != 0});
    return 0;
}
