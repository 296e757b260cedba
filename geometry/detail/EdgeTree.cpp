// SPDX-License-Identifier: MIT
#include "geometry/detail/EdgeTree.h"

#include <utility>

namespace geom::detail {

namespace {

using Iterator = std::vector<EdgeTree::Entry>::iterator;

// Twice the centre, which sorts like the centre.
double PlaceX(const EdgeTree::Entry& entry) {
    return entry.box.minX + entry.box.maxX;
}

double PlaceY(const EdgeTree::Entry& entry) {
    return entry.box.minY + entry.box.maxY;
}

bool SpreadsWider(Iterator first, Iterator last) {
    double lowX = PlaceX(*first);
    double highX = lowX;
    double lowY = PlaceY(*first);
    double highY = lowY;
    for (Iterator entry = first; entry != last; ++entry) {
        lowX = std::min(lowX, PlaceX(*entry));
        highX = std::max(highX, PlaceX(*entry));
        lowY = std::min(lowY, PlaceY(*entry));
        highY = std::max(highY, PlaceY(*entry));
    }
    return highX - lowX >= highY - lowY;
}

// Parts the entries again and again so that each child of each node gets a compact lot. The
// first part is always the largest power of two that leaves something for the second one: it
// fills whole subtrees.
void Arrange(Iterator first, Iterator last) {
    const std::size_t count = static_cast<std::size_t>(last - first);
    if (count <= EdgeTree::WIDTH) {
        return;
    }
    std::size_t part = EdgeTree::WIDTH;
    while (2 * part < count) {
        part *= 2;
    }
    const Iterator middle = first + static_cast<std::ptrdiff_t>(part);
    if (SpreadsWider(first, last)) {
        std::nth_element(first, middle, last,
                         [](const auto& a, const auto& b) { return PlaceX(a) < PlaceX(b); });
    } else {
        std::nth_element(first, middle, last,
                         [](const auto& a, const auto& b) { return PlaceY(a) < PlaceY(b); });
    }
    Arrange(first, middle);
    Arrange(middle, last);
}

} // namespace

EdgeTree::EdgeTree(std::vector<Entry> entries) {
    if (entries.empty()) {
        return;
    }
    Arrange(entries.begin(), entries.end());
    m_runs.reserve(entries.size());
    m_levels.emplace_back((entries.size() + WIDTH - 1) / WIDTH);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        m_runs.push_back(entries[i].run);
        const Box2d& box = entries[i].box;
        m_levels[0][i / WIDTH].SetChild(i % WIDTH, RoundedDown(box.minX), RoundedDown(box.minY),
                                        RoundedUp(box.maxX), RoundedUp(box.maxY));
    }
    while (m_levels.back().size() > 1) {
        AddLevel();
    }
}

void EdgeTree::AddLevel() {
    const std::vector<Node>& below = m_levels.back();
    std::vector<Node> level((below.size() + WIDTH - 1) / WIDTH);
    for (std::size_t i = 0; i < below.size(); ++i) {
        const Node& node = below[i];
        level[i / WIDTH].SetChild(i % WIDTH, *std::min_element(node.lowX, node.lowX + WIDTH),
                                  *std::min_element(node.lowY, node.lowY + WIDTH),
                                  *std::max_element(node.highX, node.highX + WIDTH),
                                  *std::max_element(node.highY, node.highY + WIDTH));
    }
    m_levels.push_back(std::move(level));
}

} // namespace geom::detail
