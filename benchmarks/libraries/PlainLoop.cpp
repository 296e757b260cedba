// SPDX-License-Identifier: MIT
// What a host would write by hand.
#include "Entries.h"

#include "tests/reference/PlainRings.h"

namespace geom::bench {

namespace {

struct InsideState {
    void Run() {
        inside = 0;
        for (const Vec2d& p : queries) {
            inside += test::PlainPointInRing(p, ring) ? 1U : 0U;
        }
    }
    Answer Find() const { return {static_cast<double>(inside), 0}; }
    void Clear() {}

    std::vector<Vec2d> ring;
    std::vector<Vec2d> queries;
    std::size_t inside = 0;
};

class PlainLoop : public Library {
public:
    std::string Name() const override { return "plain loop"; }

    Job PointsInside(const Ring& ring, const std::vector<Vec2d>& queries) const override {
        InsideState state{{}, queries};
        for (const gpc_vertex& v : ring) {
            state.ring.emplace_back(v.x, v.y);
        }
        return MakeJob(std::make_shared<InsideState>(state));
    }
};

} // namespace

const Library& PlainLoopEntry() {
    static const PlainLoop loop;
    return loop;
}

} // namespace geom::bench
