// SPDX-License-Identifier: MIT
// Every failure is an exception that says where it was noticed and why.
#include <geometry/geom.h>

#include <cstdio>

namespace {

template <typename Call>
void Try(const char* what, Call call) {
    try {
        call();
        std::printf("%s: done\n", what);
    } catch (const geom::Exception& e) {
        std::printf("%s: %s [%s, %s]\n", what, e.Message().Narrow().c_str(),
                    e.Module().Narrow().c_str(), e.File().Narrow().c_str());
    }
}

} // namespace

int main() {
    geom::GpcPolygon polygon(0.0, 0.0, 4.0, 3.0);
    Try("an index out of range", [&] { polygon.GetContourVertexCount(1); });
    Try("a file that is not there", [&] {
        geom::CBufferedFile file("no/such/map.txt", "r");
        polygon.LoadFromTextFile(file);
    });
    Try("a polygon that is fine", [&] { polygon.Union(geom::GpcPolygon(2.0, 1.0, 9.0, 2.0)); });
}
