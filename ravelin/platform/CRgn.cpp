#include "ravelin/platform/CRgn.h"

#include <algorithm>
#include <vector>

namespace ravelin {

/// A polygon under a fill rule, or two shapes combined; shapes are shared and never change, so
/// a region may be combined with itself.
struct CRgn::Shape {
    int mode = ALTERNATE;
    std::vector<POINT> points;
    int op = 0;
    std::shared_ptr<const Shape> left;
    std::shared_ptr<const Shape> right;
    CRect box;

    bool Contains(double cx, double cy) const;
    bool PolygonContains(double cx, double cy) const;
};

namespace {

CRect BoxOf(const std::vector<POINT>& points) {
    CRect box(points[0].x, points[0].y, points[0].x, points[0].y);
    for (const POINT& p : points) {
        box.left = std::min(box.left, p.x);
        box.top = std::min(box.top, p.y);
        box.right = std::max(box.right, p.x);
        box.bottom = std::max(box.bottom, p.y);
    }
    return box;
}

CRect Intersection(const CRect& a, const CRect& b) {
    CRect r(std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom));
    return r.IsRectEmpty() ? CRect() : r;
}

CRect Union(const CRect& a, const CRect& b) {
    if (a.IsRectEmpty()) {
        return b;
    }
    if (b.IsRectEmpty()) {
        return a;
    }
    return CRect(std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                 std::max(a.bottom, b.bottom));
}

}  // namespace

bool CRgn::Shape::PolygonContains(double cx, double cy) const {
    // Crossings of the rightward ray from the centre, each edge taken from its lower to its
    // upper end with the lower end included; pixel centres never lie on a horizontal edge.
    int parity = 0;
    int winding = 0;
    const std::size_t n = points.size();
    for (std::size_t k = 0; k < n; ++k) {
        const POINT& a = points[k];
        const POINT& b = points[(k + 1) % n];
        const bool upward = a.y <= cy && cy < b.y;
        const bool downward = b.y <= cy && cy < a.y;
        if (!upward && !downward) {
            continue;
        }
        const double ax = a.x;
        const double ay = a.y;
        const double x = ax + (cy - ay) * (b.x - ax) / (b.y - ay);
        if (x > cx) {
            parity ^= 1;
            winding += upward ? 1 : -1;
        }
    }
    return mode == ALTERNATE ? parity != 0 : winding != 0;
}

bool CRgn::Shape::Contains(double cx, double cy) const {
    switch (op) {
        case RGN_AND:
            return left->Contains(cx, cy) && right->Contains(cx, cy);
        case RGN_OR:
            return left->Contains(cx, cy) || right->Contains(cx, cy);
        case RGN_XOR:
            return left->Contains(cx, cy) != right->Contains(cx, cy);
        case RGN_DIFF:
            return left->Contains(cx, cy) && !right->Contains(cx, cy);
        case RGN_COPY:
            return left->Contains(cx, cy);
        default:
            return PolygonContains(cx, cy);
    }
}

CRgn::CRgn() = default;

CRgn::~CRgn() = default;

bool CRgn::CreatePolygonRgn(const POINT* points, int n, int mode) {
    if (points == nullptr || n < 2 || (mode != ALTERNATE && mode != WINDING)) {
        return false;
    }
    auto shape = std::make_shared<Shape>();
    shape->mode = mode;
    shape->points.assign(points, points + n);
    shape->box = BoxOf(shape->points);
    m_shape = std::move(shape);
    m_bCreated = true;
    return true;
}

bool CRgn::CreateRectRgn(int left, int top, int right, int bottom) {
    const POINT corners[4] = {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
    return CreatePolygonRgn(corners, 4, ALTERNATE);
}

bool CRgn::PtInRegion(int x, int y) const {
    return m_bCreated && m_shape != nullptr && m_shape->Contains(x + 0.5, y + 0.5);
}

int CRgn::CombineRgn(const CRgn* a, const CRgn* b, int mode) {
    if (a == nullptr || !a->m_bCreated || a->m_shape == nullptr) {
        return RGN_ERROR;
    }
    if (mode != RGN_COPY && (b == nullptr || !b->m_bCreated || b->m_shape == nullptr)) {
        return RGN_ERROR;
    }
    auto shape = std::make_shared<Shape>();
    shape->op = mode;
    shape->left = a->m_shape;
    switch (mode) {
        case RGN_COPY:
            shape->box = a->m_shape->box;
            break;
        case RGN_AND:
            shape->right = b->m_shape;
            shape->box = Intersection(a->m_shape->box, b->m_shape->box);
            break;
        case RGN_OR:
        case RGN_XOR:
            shape->right = b->m_shape;
            shape->box = Union(a->m_shape->box, b->m_shape->box);
            break;
        case RGN_DIFF:
            shape->right = b->m_shape;
            shape->box = a->m_shape->box;
            break;
        default:
            return RGN_ERROR;
    }
    const bool empty = shape->box.IsRectEmpty();
    m_shape = std::move(shape);
    m_bCreated = true;
    return empty ? NULLREGION : COMPLEXREGION;
}

CRect CRgn::GetRgnBox() const {
    return m_bCreated && m_shape != nullptr ? m_shape->box : CRect();
}

}  // namespace ravelin
