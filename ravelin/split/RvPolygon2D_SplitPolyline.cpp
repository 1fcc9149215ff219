#include <cstddef>
#include <vector>

#include "ravelin/polygon/RvPolygon2D.h"
#include "ravelin/split/SplitNode.h"

namespace ravelin {

namespace {

// The next point off the queue that differs from `a` (within 0.01); false when none is left.
// `last` receives every point taken, the skipped ones too.
bool NextDistinct(SplitPolylineQueue& points, const RvPoint2D& a, RvPoint2D& b, RvPoint2D& last) {
    while (!points.empty()) {
        const RvPoint2D p = points.top().point;
        points.pop();
        last = p;
        if (!(p == a)) {
            b = p;
            return true;
        }
    }
    return false;
}

}  // namespace

bool RvPolygon2D::SplitPolyline(const RvPolyLine2D& line, std::vector<RvPolyLine2D>& result,
                                bool inside) const {
    if (line.size() < 2) {
        return false;
    }
    const std::size_t before = result.size();
    SplitPolylineQueue points;
    double length = 0.0;
    for (std::size_t k = 0; k < line.size(); ++k) {
        if (k > 0) {
            length += line[k - 1].Distance2D(line[k]);
        }
        points.push(SplitPolylinePoint{line[k], length, static_cast<int>(k)});
    }
    FindPolylineCrossings(line, points);

    RvPoint2D a = points.top().point;
    points.pop();
    RvPoint2D last = a;
    RvPoint2D b;
    if (!NextDistinct(points, a, b, last)) {
        return false;
    }
    // A stretch is inside when its midpoint is; a midpoint on the boundary is not.
    const auto stretchInside = [this](const RvPoint2D& from, const RvPoint2D& to) {
        return PointInPolygonEx2D_const((from + to) * 0.5) == 1;
    };
    bool state = stretchInside(a, b);
    RvPolyLine2D current;
    if (state == inside) {
        current.push_back(a);
    }
    // Each pair of successive distinct points is one stretch, the last pair included.
    do {
        const bool now = stretchInside(a, b);
        if (now == inside) {
            if (state != inside) {
                current.push_back(a);
            }
            current.push_back(b);
        } else if (state == inside) {
            if (current.size() > 1) {
                result.push_back(current);
            }
            current.clear();
        }
        state = now;
        a = b;
    } while (NextDistinct(points, a, b, last));

    if (state == inside && !current.empty() && current.back() != last) {
        current.push_back(last);
    }
    if (current.size() > 1) {
        result.push_back(current);
    }
    return result.size() > before;
}

void RvPolygon2D::FindPolylineCrossings(const RvPolyLine2D& line,
                                        SplitPolylineQueue& points) const {
    const RvPoint3D normal = GetNormalVector();
    if (normal.IsNull()) {
        return;
    }
    for (int i = 0; i < static_cast<int>(size()); ++i) {
        const RvPoint3D edgeNormal = normal.GetVektorovySucin(GetSegmentVector(i));
        if (edgeNormal.IsNull()) {
            continue;
        }
        const RvPoint2D& end = (*this)[static_cast<std::size_t>(i)];
        const RvPoint2D& start = *GetPrevPoint(i);
        double walked = 0.0;
        for (std::size_t k = 1; k < line.size(); ++k) {
            const RvPoint2D& p = line[k - 1];
            const RvPoint2D& q = line[k];
            RvPoint2D x;
            const PathSegmentHit hit =
                CrossPathSegment(edgeNormal, end, p, q, k + 1 == line.size(), x);
            // Only points strictly within the edge count: a crossing at a ring vertex is left
            // to the classification of the stretches beside it.
            if (hit != PathSegmentHit::None && x.IsInsideSegment2D(start, end)) {
                points.push(SplitPolylinePoint{x, walked + p.Distance2D(x), static_cast<int>(k)});
            }
            walked += p.Distance2D(q);
        }
    }
}

}  // namespace ravelin
