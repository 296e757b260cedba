// SPDX-License-Identifier: MIT
#include "PlainLineClip.h"

#include <algorithm>
#include <utility>

namespace geom::test {

namespace {

constexpr double NEAR_SQUARED = 1e-10;

double DistSq(double ax, double ay, double bx, double by) {
    return (ax - bx) * (ax - bx) + (ay - by) * (ay - by);
}

bool Near(const Vec2d& a, const Vec2d& b) {
    return DistSq(a.x, a.y, b.x, b.y) <= NEAR_SQUARED;
}

bool Less(double ax, double ay, double bx, double by) {
    if (ax < bx) {
        return true;
    }
    if (ax > bx) {
        return false;
    }
    return ax == bx && ay < by;
}

} // namespace

PlainLineClip::PlainLineClip(const std::vector<Vec2d>& sequence) {
    if (!sequence.empty()) {
        AddContour(sequence, false);
        m_box = m_contours[0].box;
    }
}

void PlainLineClip::AddContour(const std::vector<Vec2d>& points, bool isHole) {
    Contour contour;
    contour.isHole = isHole;
    const std::size_t n = points.size();
    const Vec2d second = n > 1 ? points[1] : points[0];
    contour.edges.push_back({points[0].x, points[0].y, second.x, second.y});
    for (std::size_t i = 1; i < n; ++i) {
        const Vec2d next = i == n - 1 ? points[0] : points[i + 1];
        Edge& last = contour.edges.back();
        if ((next.y - last.y2) * (last.x2 - last.x1) == (next.x - last.x2) * (last.y2 - last.y1)) {
            last.x2 = next.x;
            last.y2 = next.y;
        } else {
            contour.edges.push_back({points[i].x, points[i].y, next.x, next.y});
        }
    }
    for (const Vec2d& point : points) {
        contour.box.ExtendBy(point);
    }
    m_contours.push_back(contour);
}

std::size_t PlainLineClip::EdgeCount() const {
    std::size_t count = 0;
    for (const Contour& contour : m_contours) {
        count += contour.edges.size();
    }
    return count;
}

int PlainLineClip::Where(const Vec2d& a, const Vec2d& b, const Edge& segment) {
    const double dx = segment.x2 - segment.x1;
    const double dy = segment.y2 - segment.y1;
    const double sa = (a.y - segment.y1) * dx - (a.x - segment.x1) * dy;
    const double sb = (b.y - segment.y2) * dx - (b.x - segment.x2) * dy;
    if (sa == 0 || sb == 0) {
        return 0;
    }
    if ((sa < 0 && sb > 0) || (sa > 0 && sb < 0)) {
        return -1;
    }
    return 1;
}

bool PlainLineClip::On(const Contour& contour, const Vec2d& p) {
    for (const Edge& e : contour.edges) {
        const bool inBox = std::min(e.x1, e.x2) <= p.x && p.x <= std::max(e.x1, e.x2) &&
                           std::min(e.y1, e.y2) <= p.y && p.y <= std::max(e.y1, e.y2);
        if (inBox && (p.y - e.y1) * (e.x2 - p.x) == (p.x - e.x1) * (e.y2 - p.y)) {
            return true;
        }
    }
    return false;
}

void PlainLineClip::CrossCalc(const Contour& contour, const Edge& seg,
                              std::vector<Entry>& list) const {
    const std::size_t n = contour.edges.size();
    const std::size_t before = list.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Edge& edge = contour.edges[i];
        const Edge& prev = contour.edges[(i + n - 1) % n];
        const Edge& next = contour.edges[(i + 1) % n];
        const double dx = seg.x2 - seg.x1;
        const double dy = seg.y2 - seg.y1;
        const double ex = edge.x2 - edge.x1;
        const double ey = edge.y2 - edge.y1;
        const double den = dx * ey - ex * dy;
        const double s = (edge.x1 - seg.x1) * dy - (edge.y1 - seg.y1) * dx;
        const double t = (edge.x1 - seg.x1) * ey - (edge.y1 - seg.y1) * ex;
        if (den == 0 && s == 0) {
            if (Where({prev.x1, prev.y1}, {next.x2, next.y2}, seg) > 0) {
                continue;
            }
            const bool vertical = seg.x1 == seg.x2;
            const double edgeMin =
                vertical ? std::min(edge.y1, edge.y2) : std::min(edge.x1, edge.x2);
            const double edgeMax =
                vertical ? std::max(edge.y1, edge.y2) : std::max(edge.x1, edge.x2);
            const double segMin = vertical ? std::min(seg.y1, seg.y2) : std::min(seg.x1, seg.x2);
            const double segMax = vertical ? std::max(seg.y1, seg.y2) : std::max(seg.x1, seg.x2);
            if (edgeMin <= segMax && edgeMax >= segMin) {
                if (edgeMin > segMin) {
                    list.push_back({edge.x1, edge.y1, 1});
                }
                if (segMax > edgeMax) {
                    list.push_back({edge.x2, edge.y2, 1});
                }
            }
        } else if (den != 0) {
            bool crosses = false;
            if (den > 0) {
                crosses = 0 <= s && s <= den && 0 <= t && t <= den;
            } else if (den < 0) {
                crosses = den <= s && s <= 0 && den <= t && t <= 0;
            }
            if (!crosses || s == den || t == den || t == 0) {
                continue;
            }
            if (s == 0 && !(Where({prev.x1, prev.y1}, {edge.x2, edge.y2}, seg) < 0)) {
                continue;
            }
            double x = edge.x1 + ex * (s / den);
            double y = edge.y1 + ey * (s / den);
            if (seg.x1 == seg.x2) {
                x = seg.x1;
            }
            if (seg.y1 == seg.y2) {
                y = seg.y1;
            }
            list.push_back({x, y, 0});
        }
    }
    m_recorded += list.size() - before;
    std::stable_sort(list.begin(), list.end(),
                     [](const Entry& a, const Entry& b) { return Less(a.x, a.y, b.x, b.y); });
}

bool PlainLineClip::Inside(const Contour& contour, const Vec2d& p) const {
    std::vector<Entry> list;
    CrossCalc(contour, {contour.box.minX - 2.0, p.y, p.x, p.y}, list);
    std::size_t pairs = 0;
    for (std::size_t k = 0; k + 1 < list.size(); ++k) {
        if (list[k].kind == 1 && list[k + 1].kind == 1) {
            ++pairs;
            ++k;
        }
    }
    if ((list.size() - pairs) % 2 == 0) {
        return false;
    }
    return !On(contour, p);
}

bool PlainLineClip::Inside(const Vec2d& p) const {
    return Inside(m_contours[0], p);
}

bool PlainLineClip::OnContour(const Vec2d& p) const {
    return On(m_contours[0], p);
}

void PlainLineClip::ClipTo(std::size_t contourIndex, Vec2d p, Vec2d q,
                           std::vector<Piece>& pieces) const {
    if (Less(q.x, q.y, p.x, p.y)) {
        std::swap(p, q);
    }
    if (contourIndex == m_contours.size()) {
        pieces.push_back({p, q});
        return;
    }
    const Contour& contour = m_contours[contourIndex];
    const Box2d& box = contour.box;
    if (box.minX > std::max(p.x, q.x) || std::min(p.x, q.x) > box.maxX ||
        box.minY > std::max(p.y, q.y) || std::min(p.y, q.y) > box.maxY) {
        if (contour.isHole) {
            ClipTo(contourIndex + 1, p, q, pieces);
        }
        return;
    }
    std::vector<Entry> list = {{p.x, p.y, 0}, {q.x, q.y, 0}};
    CrossCalc(contour, {p.x, p.y, q.x, q.y}, list);

    bool inside = Inside(contour, p);
    if (On(contour, p)) {
        for (;;) {
            const Entry first = list[0];
            Entry second = list[1];
            bool found = false;
            bool stuck = false;
            while (!found && !stuck &&
                   DistSq(first.x, first.y, second.x, second.y) > NEAR_SQUARED) {
                const Vec2d middle((first.x + second.x) * 0.5, (first.y + second.y) * 0.5);
                if (!On(contour, middle)) {
                    inside = Inside(contour, middle);
                    found = true;
                } else if (middle.x == second.x && middle.y == second.y) {
                    stuck = true; // neighbouring doubles: halving ends here
                } else {
                    second.x = middle.x;
                    second.y = middle.y;
                }
            }
            if (found || !(stuck || DistSq(first.x, first.y, second.x, second.y) <= NEAR_SQUARED)) {
                break;
            }
            list.erase(list.begin());
            if (list.size() < 2) {
                return;
            }
        }
    }

    bool pass = (inside && !contour.isHole) || (!inside && contour.isHole);
    bool overlapOpen = false;
    for (std::size_t k = 0; k + 1 < list.size(); ++k) {
        if (pass) {
            ClipTo(contourIndex + 1, {list[k].x, list[k].y}, {list[k + 1].x, list[k + 1].y},
                   pieces);
        }
        if (overlapOpen) {
            overlapOpen = false;
            pass = !pass;
        } else if (list[k + 1].kind == 1) {
            overlapOpen = true;
        } else {
            pass = !pass;
        }
    }
}

std::vector<PlainLineClip::Piece> PlainLineClip::AllPieces(const Vec2d& p, const Vec2d& q) const {
    std::vector<Piece> pieces;
    ClipTo(0, p, q, pieces);
    return pieces;
}

std::vector<PlainLineClip::Piece> PlainLineClip::Clip(const std::vector<Vec2d>& points) const {
    std::vector<Piece> kept;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        for (const Piece& piece : AllPieces(points[i], points[i + 1])) {
            if (!Near(piece.a, piece.b)) {
                kept.push_back(piece);
            }
        }
    }
    return kept;
}

void PlainLineClip::Clip(const std::vector<Vec2d>& points, std::vector<Vec2d>& outPoints,
                         std::vector<unsigned int>& outCounts) const {
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        for (const Piece& piece : AllPieces(points[i], points[i + 1])) {
            const Vec2d a = piece.a;
            const Vec2d b = piece.b;
            if (Near(a, b)) {
                continue;
            }
            bool joined = false;
            if (!outPoints.empty()) {
                for (int attempt = 0; attempt < 2 && !joined; ++attempt) {
                    if (attempt == 1) {
                        if (outCounts.back() != 2) {
                            break;
                        }
                        std::swap(outPoints[outPoints.size() - 2], outPoints.back());
                    }
                    const Vec2d last = outPoints.back();
                    if (Near(last, a)) {
                        outPoints.push_back(b);
                        joined = true;
                    } else if (Near(last, b)) {
                        outPoints.push_back(a);
                        joined = true;
                    }
                }
            }
            if (joined) {
                ++outCounts.back();
            } else {
                outPoints.push_back(a);
                outPoints.push_back(b);
                outCounts.push_back(2);
            }
        }
    }
}

bool PlainLineClip::PointInside(const Vec2d& p) const {
    if (!(m_box.minX <= p.x && p.x <= m_box.maxX && m_box.minY <= p.y && p.y <= m_box.maxY)) {
        return false;
    }
    for (const Piece& piece : Clip({{m_box.minX - 1.0, p.y}, p})) {
        if (piece.a.x == p.x || piece.b.x == p.x) {
            return true;
        }
    }
    for (const Piece& piece : Clip({p, {m_box.minX + 1.0, p.y}})) {
        if (piece.a.x == p.x || piece.b.x == p.x) {
            return true;
        }
    }
    return false;
}

} // namespace geom::test
