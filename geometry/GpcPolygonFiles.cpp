// SPDX-License-Identifier: MIT
/// \file
/// A GpcPolygon in the engine's text and binary files.
#include "geometry/Errors.h"
#include "geometry/GpcPolygon.h"

namespace geom {

namespace {

constexpr const wchar_t* UNIT = L"GpcPolygon";
constexpr int WITH_HOLE_FLAGS = 1;

enum Line : int {
    LINE_WRITE_TEXT = 811,
    LINE_READ_TEXT = 824,
    LINE_WRITE_BINARY = 838,
    LINE_READ_BINARY = 851,
};

} // namespace

void GpcPolygon::DumpToTextFile(CBufferedFile& file) const {
    if (!gpc_write_polygon(file.GetStream(), WITH_HOLE_FLAGS, this)) {
        kit::Throw_ERR_KIT_FILE_WRITE(ModuleName(), UNIT, LINE_WRITE_TEXT, file.GetFileName(),
                                      L"Polygon::DumpToTextFile");
    }
}

void GpcPolygon::LoadFromTextFile(CBufferedFile& file) {
    FreeAll();
    if (!gpc_read_polygon(file.GetStream(), WITH_HOLE_FLAGS, this)) {
        kit::Throw_ERR_KIT_FILE_READ(ModuleName(), UNIT, LINE_READ_TEXT, file.GetFileName(),
                                     L"Polygon::LoadFromTextFile");
    }
    CalcBBox();
}

void GpcPolygon::DumpToBinaryFile(CBufferedFile& file) const {
    if (!gpc_write_polygon_binary(file.GetStream(), WITH_HOLE_FLAGS, this)) {
        kit::Throw_ERR_KIT_FILE_WRITE(ModuleName(), UNIT, LINE_WRITE_BINARY, file.GetFileName(),
                                      L"Polygon::DumpToBinaryFile");
    }
}

void GpcPolygon::LoadFromBinaryFile(CBufferedFile& file) {
    FreeAll();
    if (!gpc_read_polygon_binary(file.GetStream(), WITH_HOLE_FLAGS, this)) {
        kit::Throw_ERR_KIT_FILE_READ(ModuleName(), UNIT, LINE_READ_BINARY, file.GetFileName(),
                                     L"Polygon::LoadFromBinaryFile");
    }
    CalcBBox();
}

} // namespace geom
