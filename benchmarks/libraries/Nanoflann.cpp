// SPDX-License-Identifier: MIT
#include "Entries.h"

#include <cmath>
#include <nanoflann.hpp>

namespace geom::bench {

namespace {

/// The points as the library asks for them.
struct Cloud {
    std::size_t kdtree_get_point_count() const { return points.size(); }
    double kdtree_get_pt(std::size_t i, std::size_t dimension) const {
        return dimension == 0 ? points[i].x : points[i].y;
    }
    template <typename Box>
    bool kdtree_get_bbox(Box&) const {
        return false;
    }

    std::vector<Vec2d> points;
};

using Tree =
    nanoflann::KDTreeSingleIndexAdaptor<nanoflann::L2_Simple_Adaptor<double, Cloud>, Cloud, 2>;

struct NearestState {
    void Run() {
        const Tree tree(2, cloud, nanoflann::KDTreeSingleIndexAdaptorParams(10));
        sum = 0;
        for (const Vec2d& p : queries) {
            const double query[] = {p.x, p.y};
            std::uint32_t index = 0;
            double squared = 0;
            tree.knnSearch(query, 1, &index, &squared);
            sum += std::sqrt(squared);
        }
    }
    Answer Find() const { return {sum, 0}; }
    void Clear() {}

    Cloud cloud;
    std::vector<Vec2d> queries;
    double sum = 0;
};

class Nanoflann : public Library {
public:
    std::string Name() const override { return "nanoflann"; }

    Job Nearest(const std::vector<Vec2d>& points,
                const std::vector<Vec2d>& queries) const override {
        return MakeJob(std::make_shared<NearestState>(NearestState{{points}, queries}));
    }
};

} // namespace

const Library& NanoflannEntry() {
    static const Nanoflann nanoflann;
    return nanoflann;
}

} // namespace geom::bench
