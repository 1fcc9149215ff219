#include "ravelin/skeleton/RvSkeleton.h"

#include <cmath>
#include <iterator>

#include "ravelin/numeric/Number.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

namespace {

// The planar pair of each vertex, in stored order.
std::vector<Point> ContourOf(const RvPolygon2D& polygon) {
    std::vector<Point> contour;
    contour.reserve(polygon.size());
    for (const RvPoint2D& v : polygon) {
        contour.push_back(Point{v.x2D, v.y2D});
    }
    return contour;
}

// Erases each point equal to the surviving point before it. The last point is not compared with
// the first: a contour that repeats its first point keeps a closing edge of zero length.
void EraseAdjacentDuplicates(std::vector<Point>& contour) {
    if (contour.empty()) {
        return;
    }
    auto a = contour.begin();
    auto b = a + 1;
    while (b != contour.end()) {
        if (*a == *b) {
            b = contour.erase(b);
        } else {
            a = b;
            ++b;
        }
    }
}

}  // namespace

// ---- Vertices and events -------------------------------------------------------------------

SkeletonVertex::SkeletonVertex(const Point& p, const Point& prev, const Point& next)
    : point(p), bisector(BisectorRay(p, prev, next)), prevEdge(p, prev), nextEdge(p, next) {}

SkeletonVertex::SkeletonVertex(const Point& p, SkeletonVertex& left, SkeletonVertex& right)
    : point(p),
      prevEdge(left.prevEdge),
      nextEdge(right.nextEdge),
      leftParent(&left),
      rightParent(&right) {
    const Point meet = IntersectRays(prevEdge, nextEdge);
    if (Number(meet.x) != SKELETON_INFINITY) {
        bisector = SkeletonRay(p, meet);  // the edges converge
        return;
    }
    const Point lines = IntersectLines(prevEdge, nextEdge);
    if (Number(lines.x) == SKELETON_INFINITY) {
        // Parallel edges: the vertex moves along them.
        bisector.origin = p;
        bisector.angle = prevEdge.angle;
        NormalizeAngle(bisector.angle);
        return;
    }
    // Diverging edges: the vertex moves away from the meeting point of their lines.
    bisector = SkeletonRay(p, lines);
    bisector.angle += kPi;
    NormalizeAngle(bisector.angle);
}

SkeletonVertex* Highest(SkeletonVertex* v) {
    while (v->successor != nullptr) {
        v = v->successor;
    }
    return v;
}

bool SkeletonEventAbove::operator()(const SkeletonEvent& a, const SkeletonEvent& b) const {
    return Number(a.height) > b.height;
}

// ---- Construction ------------------------------------------------------------------------

RvSkeleton::RvSkeleton() = default;

RvSkeleton::RvSkeleton(RvPolygon2D& polygon) {
    std::vector<std::vector<Point>> contours{ContourOf(polygon)};
    Build(contours);
}

RvSkeleton::RvSkeleton(std::vector<RvPolygon2D>& polygons) {
    std::vector<std::vector<Point>> contours;
    contours.reserve(polygons.size());
    for (const RvPolygon2D& p : polygons) {
        contours.push_back(ContourOf(p));
    }
    Build(contours);
}

RvSkeleton::RvSkeleton(std::vector<std::vector<Point>>& contours) {
    Build(contours);
}

RvSkeleton::~RvSkeleton() = default;

void RvSkeleton::Build(std::vector<std::vector<Point>>& contours) {
    while (!m_events.empty()) {
        m_events.pop();
    }
    m_vertices.clear();
    clear();
    for (std::size_t c = 0; c < contours.size(); ++c) {
        // An empty contour ends the input: the contours after it are not read.
        if (contours[c].empty()) {
            break;
        }
        EraseAdjacentDuplicates(contours[c]);
        AppendContour(contours[c]);
        if (c == 0) {
            m_boundaryVertexCount = static_cast<int>(m_vertices.size());
        }
    }
    if (m_boundaryVertexCount < 3) {
        return;
    }
    LinkRings(contours);
    for (SkeletonVertex& v : m_vertices) {
        if (!v.done) {
            PushIfFinite(SkeletonEvent(*this, v));
        }
    }
    if (!m_events.empty()) {
        RunEvents();
    }
}

void RvSkeleton::AppendContour(std::vector<Point>& contour) {
    const std::size_t n = contour.size();
    for (std::size_t i = 0; i < n; ++i) {
        Store(SkeletonVertex(contour[i], contour[(i + n - 1) % n], contour[(i + 1) % n]));
    }
}

// Makes each contour a closed ring of its own: the vertices are linked in list order, and the
// last of each contour back to its first.
void RvSkeleton::LinkRings(const std::vector<std::vector<Point>>& contours) {
    std::size_t c = 0;
    std::size_t k = 0;
    SkeletonVertex* first = nullptr;
    for (auto it = m_vertices.begin(); it != m_vertices.end(); ++it) {
        SkeletonVertex& v = *it;
        v.prevVertex = it == m_vertices.begin() ? &m_vertices.back() : &*std::prev(it);
        v.nextVertex = std::next(it) == m_vertices.end() ? &m_vertices.front() : &*std::next(it);
        v.leftParent = &v;
        v.rightParent = &v;
        if (k == 0) {
            first = &v;
        }
        if (k + 1 == contours[c].size()) {
            v.nextVertex = first;
            first->prevVertex = &v;
            ++c;
            k = 0;
        } else {
            ++k;
        }
    }
}

void RvSkeleton::PushIfFinite(const SkeletonEvent& e) {
    if (!(Number(e.height) == SKELETON_INFINITY)) {
        m_events.push(e);
    }
}

SkeletonVertex& RvSkeleton::Store(SkeletonVertex v) {
    v.id = static_cast<int>(m_vertices.size());
    m_vertices.push_back(v);
    return m_vertices.back();
}

SkeletonLine& RvSkeleton::PushLine(SkeletonVertex* lower, SkeletonVertex* higher) {
    SkeletonLine& line = emplace_back();
    line.lower.vertex = lower;
    line.higher.vertex = higher;
    return line;
}

}  // namespace ravelin
