// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Gpc.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

/// \file
/// Streams and records for the tests of the polygon files.

namespace geom::test {

struct Contour {
    int hole;
    std::vector<gpc_vertex> vertices;
};

/// A record that releases itself; empty, or full of contours.
struct Record : gpc_polygon {
    Record() : gpc_polygon{0, nullptr, nullptr} {}
    explicit Record(const std::vector<Contour>& contours) : Record() {
        for (const Contour& c : contours) {
            std::vector<gpc_vertex> vertices = c.vertices;
            const gpc_vertex_list list = {static_cast<int>(vertices.size()),
                                          vertices.empty() ? nullptr : vertices.data()};
            gpc_add_contour(this, &list, c.hole);
        }
    }
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;
    ~Record() { gpc_free_polygon(this); }
};

/// The same contours, flags and vertices, to the bit.
inline bool SameToTheBit(const gpc_polygon& a, const gpc_polygon& b) {
    if (a.num_contours != b.num_contours) {
        return false;
    }
    for (int i = 0; i < a.num_contours; ++i) {
        const gpc_vertex_list& p = a.contour[i];
        const gpc_vertex_list& q = b.contour[i];
        if (a.hole[i] != b.hole[i] || p.num_vertices != q.num_vertices ||
            (p.num_vertices > 0 &&
             std::memcmp(p.vertex, q.vertex,
                         static_cast<std::size_t>(p.num_vertices) * sizeof(gpc_vertex)) != 0)) {
            return false;
        }
    }
    return true;
}

struct CloseFile {
    void operator()(std::FILE* f) const { std::fclose(f); }
};
using Stream = std::unique_ptr<std::FILE, CloseFile>;

/// A file with the given content, opened at its start.
inline Stream StreamOf(const std::string& bytes) {
    Stream stream(std::tmpfile());
    if (bytes.size() != std::fwrite(bytes.data(), 1, bytes.size(), stream.get())) {
        ADD_FAILURE() << "no room for a temporary file";
    }
    std::rewind(stream.get());
    return stream;
}

/// What is left to read.
inline std::string RestOf(std::FILE* stream) {
    std::string rest;
    for (int c = std::fgetc(stream); c != EOF; c = std::fgetc(stream)) {
        rest += static_cast<char>(c);
    }
    return rest;
}

/// One of the two file formats.
struct FileFormat {
    const char* name;
    bool (*read)(std::FILE*, int, gpc_polygon*);
    bool (*write)(std::FILE*, int, const gpc_polygon*);

    std::string Written(const gpc_polygon& polygon, int holeFlags) const {
        const Stream stream = StreamOf("");
        EXPECT_TRUE(write(stream.get(), holeFlags, &polygon));
        std::rewind(stream.get());
        return RestOf(stream.get());
    }
};

inline const FileFormat TEXT = {"text", gpc_read_polygon, gpc_write_polygon};
inline const FileFormat BINARY = {"binary", gpc_read_polygon_binary, gpc_write_polygon_binary};

inline std::string BytesOf(int value) {
    return std::string(reinterpret_cast<const char*>(&value), sizeof value);
}
inline std::string BytesOf(double value) {
    return std::string(reinterpret_cast<const char*>(&value), sizeof value);
}

} // namespace geom::test
