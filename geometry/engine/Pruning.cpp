// SPDX-License-Identifier: MIT
#include "geometry/engine/Pruning.h"

#include <algorithm>
#include <limits>

namespace geom::detail {

namespace {

struct Box {
    double xmin, ymin, xmax, ymax;
};

constexpr double LARGEST = std::numeric_limits<double>::max();
constexpr Box EMPTY_BOX = {LARGEST, LARGEST, -LARGEST, -LARGEST};

Box BoxOfContour(const gpc_vertex* vertices, std::uint32_t count) {
    Box box = EMPTY_BOX;
    for (std::uint32_t i = 0; i < count; ++i) {
        const gpc_vertex& v = vertices[i];
        box.xmin = v.x < box.xmin ? v.x : box.xmin;
        box.ymin = v.y < box.ymin ? v.y : box.ymin;
        box.xmax = v.x > box.xmax ? v.x : box.xmax;
        box.ymax = v.y > box.ymax ? v.y : box.ymax;
    }
    return box;
}

bool Overlap(const Box& a, const Box& b) {
    return !(a.xmax < b.xmin || a.xmin > b.xmax || a.ymax < b.ymin || a.ymin > b.ymax);
}

Box Union(const Box& a, const Box& b) {
    return {std::min(a.xmin, b.xmin), std::min(a.ymin, b.ymin), std::max(a.xmax, b.xmax),
            std::max(a.ymax, b.ymax)};
}

using Boxes = Block<Box>;

void Fill(Boxes& boxes, const Operand& operand) {
    const std::uint32_t count = operand.ContourCount();
    boxes.Reserve(count);
    for (std::uint32_t c = 0; c < count; ++c) {
        boxes.Append(BoxOfContour(operand.Vertices(c), operand.VertexCount(c)));
    }
}

// A hierarchy of boxes over one operand's contours: a run of boxes is split at its median along
// the longer side of the box around it, until a few are left. A query descends only where the
// surrounding box overlaps, so it need not look at every contour.
class BoxTree {
public:
    explicit BoxTree(const Boxes& boxes)
        : m_leaves("overlap table creation"), m_nodes("overlap table creation") {
        m_leaves.Reserve(boxes.Count());
        for (const Box& box : boxes) {
            m_leaves.Append(box);
        }
        if (!boxes.IsEmpty()) {
            Build(0, boxes.Count());
        }
    }

    bool OverlapsAny(const Box& box) const { return !m_nodes.IsEmpty() && Search(0, box); }

private:
    static constexpr std::uint64_t LEAF_SIZE = 8;

    struct Node {
        Box box;
        std::uint64_t first, last; ///< the run of leaves
        std::uint32_t right;       ///< the second child; the first follows its parent
    };

    // Depth is the logarithm of the count, since runs are halved.
    std::uint32_t Build(std::uint64_t first, std::uint64_t last) {
        Box around = EMPTY_BOX;
        for (std::uint64_t i = first; i < last; ++i) {
            around = Union(around, m_leaves[i]);
        }
        const std::uint32_t node = m_nodes.Append({around, first, last, 0});
        if (last - first > LEAF_SIZE) {
            const std::uint64_t middle = first + (last - first) / 2;
            Split(around, m_leaves.begin() + first, m_leaves.begin() + middle,
                  m_leaves.begin() + last);
            Build(first, middle);
            const std::uint32_t right = Build(middle, last);
            m_nodes[node].right = right;
        }
        return node;
    }

    static void Split(const Box& around, Box* first, Box* middle, Box* last) {
        if (around.xmax - around.xmin > around.ymax - around.ymin) {
            std::nth_element(first, middle, last,
                             [](const Box& a, const Box& b) { return a.xmin < b.xmin; });
        } else {
            std::nth_element(first, middle, last,
                             [](const Box& a, const Box& b) { return a.ymin < b.ymin; });
        }
    }

    bool Search(std::uint32_t index, const Box& box) const {
        const Node& node = m_nodes[index];
        if (!Overlap(node.box, box)) {
            return false;
        }
        if (node.right != 0) {
            return Search(index + 1, box) || Search(node.right, box);
        }
        return std::any_of(m_leaves.begin() + node.first, m_leaves.begin() + node.last,
                           [&box](const Box& leaf) { return Overlap(leaf, box); });
    }

    Block<Box> m_leaves;
    Block<Node> m_nodes;
};

// Against a few boxes a hierarchy is not worth building.
constexpr std::uint64_t FEW = 8;

bool OverlapsAny(const Box& box, const Boxes& others) {
    return std::any_of(others.begin(), others.end(),
                       [&box](const Box& other) { return Overlap(box, other); });
}

template <typename OverlapsOther>
void MarkApart(const Boxes& boxes, ContourMarks& marks, OverlapsOther overlapsOther) {
    marks.Expect(static_cast<std::uint32_t>(boxes.Count()));
    for (std::uint32_t c = 0; c < boxes.Count(); ++c) {
        if (!overlapsOther(boxes[c])) {
            marks.Mark(c);
        }
    }
}

void MarkApart(const Boxes& boxes, const Boxes& others, ContourMarks& marks) {
    if (std::min(boxes.Count(), others.Count()) <= FEW) {
        MarkApart(boxes, marks, [&others](const Box& box) { return OverlapsAny(box, others); });
    } else {
        const BoxTree tree(others);
        MarkApart(boxes, marks, [&tree](const Box& box) { return tree.OverlapsAny(box); });
    }
}

} // namespace

void ContourMarks::Expect(std::uint32_t contours) {
    m_marks.Reserve(contours);
    for (std::uint32_t c = 0; c < contours; ++c) {
        m_marks.Append(0);
    }
}

void MarkNonContributing(gpc_op operation, const Operand& subject, const Operand& clip,
                         ContourMarks& subjectMarks, ContourMarks& clipMarks) {
    Boxes subjectBoxes("Bounding box creation");
    Boxes clipBoxes("Bounding box creation");
    Fill(subjectBoxes, subject);
    Fill(clipBoxes, clip);
    MarkApart(clipBoxes, subjectBoxes, clipMarks);
    if (operation == GPC_INT) {
        MarkApart(subjectBoxes, clipBoxes, subjectMarks);
    }
}

} // namespace geom::detail
