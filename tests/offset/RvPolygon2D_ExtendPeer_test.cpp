// GetExtend against Clipper's mitred offset (ClipperOffset with jtMiter and a mitre limit so high
// that no corner is ever squared), on random polygons at drawing scale:
//
// - convex polygons offset outward by several distances;
// - orthogonal polygons, given counterclockwise and clockwise, offset inward by fractions of half
//   their narrowest part.
//
// In both families the mitred ring of the shifted edges neither crosses itself nor has an edge
// that turns round, so the offset region is that ring. Clipper works on integers: every
// coordinate is scaled by 1e6 and rounded, and Clipper's own boolean operations on the scaled
// rings give the area of the symmetric difference of the two regions. It must stay within 1e-6
// of the polygon's area, or within a band of 0.01 along the offset outline (0.01 times its
// perimeter), the distance within which GetExtend merges points where it cuts a ring; and the
// number of rings must be the same.
//
// Convex polygons are given both ways round too. The convex family agrees in every case. The
// orthogonal family agrees except in one kind of case, named in the test with its reason and
// counted: near half the narrowest part, where the offset thins a part of the polygon to less
// than one unit, GetExtend may return nothing. The sign of the offset ring's normal is read at
// its first corner by a probe one unit along each edge; in a part thinner than that the probe
// lands outside, the normal comes out reversed, and the filter that throws away turned rings
// drops the ring. The test predicts these cases from the geometry alone and accepts them only
// when GetExtend returns nothing.
//
// Beyond the families, three more cases are named in tests of their own: an inward offset past
// half the narrowest part, where every edge of a square turns round and the turned ring comes
// back, lying inside the polygon and running its way, where Clipper gives nothing; a ray of the
// point test that grazes a vertex of the polygon, which drops the ring of an inward offset; and
// an outward offset that closes a slot, where the shifted edges meet at an end and along one
// line, a single cut is found, and only the overlap of the slot's shifted edges is kept.

#include <gtest/gtest.h>
#include <polyclipping/clipper.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iomanip>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {
namespace {

namespace cl = ClipperLib;

// Coordinates go to Clipper multiplied by this and rounded: at drawing scale (0 to 1000, a few
// thousand with long mitres) the integers stay far inside Clipper's range, and the rounding moves
// an outline by at most 5e-7, which changes an area by far less than the tolerance below.
constexpr double kScale = 1e6;

// The agreement bounds: the symmetric difference within 1e-6 of the polygon's area, or within a
// band of 0.01 along the offset outline.
constexpr double kRelative = 1e-6;
constexpr double kBand = 0.01;

// The polygons per family: the whole program takes about a second in an optimised build; fewer
// under the address sanitizer, which slows the quadratic steps of both libraries down.
#if defined(__SANITIZE_ADDRESS__)
constexpr int kConvexCount = 1000;
constexpr int kOrthogonalCount = 1000;
#else
constexpr int kConvexCount = 2000;
constexpr int kOrthogonalCount = 2000;
#endif

// Outward distances for the convex polygons, from below a unit to twice the least semi-axis.
constexpr double kOutwardDistances[] = {0.37, 4.1, 23.5, 130.0};

// Inward distances for the orthogonal polygons, as fractions of half the narrowest part.
constexpr double kInwardFractions[] = {0.05, 0.3, 0.62, 0.9, 0.98};

// ---------------------------------------------------------------------------------------------
// Outlines and their measures

struct Pt {
    double x = 0.0;
    double y = 0.0;
};

using Outline = std::vector<Pt>;

double SignedArea(const Outline& o) {
    double twice = 0.0;
    for (std::size_t i = 0; i < o.size(); ++i) {
        const Pt& a = o[i];
        const Pt& b = o[(i + 1) % o.size()];
        twice += a.x * b.y - b.x * a.y;
    }
    return 0.5 * twice;
}

double Perimeter(const Outline& o) {
    double sum = 0.0;
    for (std::size_t i = 0; i < o.size(); ++i) {
        const Pt& a = o[i];
        const Pt& b = o[(i + 1) % o.size()];
        sum += std::hypot(b.x - a.x, b.y - a.y);
    }
    return sum;
}

Outline Reversed(Outline o) {
    std::reverse(o.begin(), o.end());
    return o;
}

std::string Describe(const Outline& o) {
    std::ostringstream s;
    s << std::setprecision(10);
    for (std::size_t i = 0; i < o.size(); ++i) {
        s << (i == 0 ? "" : ", ") << "(" << o[i].x << ", " << o[i].y << ")";
    }
    return s.str();
}

RvPolygon2D ToPolygon(const Outline& o) {
    RvPolygon2D p;
    for (const Pt& v : o) {
        p.push_backA(RvPoint2D(v.x, v.y));
    }
    return p;
}

Outline ToOutline(const RvPolygon2D& p) {
    Outline o;
    for (std::size_t i = 0; i < p.size(); ++i) {
        o.push_back({p[i].x, p[i].y});
    }
    return o;
}

cl::Path ToPath(const Outline& o) {
    cl::Path path;
    for (const Pt& v : o) {
        path.emplace_back(static_cast<cl::cInt>(std::llround(v.x * kScale)),
                          static_cast<cl::cInt>(std::llround(v.y * kScale)));
    }
    return path;
}

Outline FromPath(const cl::Path& path) {
    Outline o;
    for (const cl::IntPoint& v : path) {
        o.push_back({static_cast<double>(v.X) / kScale, static_cast<double>(v.Y) / kScale});
    }
    return o;
}

// The area of a region Clipper returned: outer rings count positive and holes, which run the
// other way, negative.
double RegionArea(const cl::Paths& paths) {
    double area = 0.0;
    for (const cl::Path& p : paths) {
        area += cl::Area(p);
    }
    return area / (kScale * kScale);
}

// The mitred offset by Clipper; the sign convention is GetExtend's: positive outward.
cl::Paths ClipperExtend(const Outline& o, double distance) {
    cl::ClipperOffset offset(1e6);
    offset.AddPath(ToPath(o), cl::jtMiter, cl::etClosedPolygon);
    cl::Paths out;
    offset.Execute(out, distance * kScale);
    return out;
}

// The area of the symmetric difference of GetExtend's rings, read under the even-odd rule, and
// Clipper's region, read under the non-zero rule.
double SymmetricDifferenceArea(const std::vector<Outline>& rings, const cl::Paths& peer) {
    cl::Paths subject;
    for (const Outline& r : rings) {
        subject.push_back(ToPath(r));
    }
    cl::Clipper c;
    c.AddPaths(subject, cl::ptSubject, true);
    c.AddPaths(peer, cl::ptClip, true);
    cl::Paths out;
    c.Execute(cl::ctXor, out, cl::pftEvenOdd, cl::pftNonZero);
    return RegionArea(out);
}

// ---------------------------------------------------------------------------------------------
// The comparison of one case

struct Comparison {
    std::vector<Outline> rings;  // GetExtend's
    cl::Paths peer;              // Clipper's
    double inputArea = 0.0;
    double ravelinArea = 0.0;  // even-odd area of GetExtend's rings
    double peerArea = 0.0;
    double symmetricDifference = 0.0;
    double allowance = 0.0;
    bool finite = true;  // every coordinate of GetExtend's rings is a number
    bool withinRelative = false;

    bool Agrees() const {
        return finite && symmetricDifference <= allowance && rings.size() == peer.size();
    }

    std::string Report() const {
        std::ostringstream s;
        s << std::setprecision(10) << "GetExtend: " << rings.size() << " ring(s), area "
          << ravelinArea << "; Clipper: " << peer.size() << " ring(s), area " << peerArea
          << "; symmetric difference " << symmetricDifference << " (allowed " << allowance << ")"
          << (finite ? "" : "; GetExtend gave a coordinate that is not a number");
        for (const Outline& r : rings) {
            s << "\n    GetExtend ring: " << Describe(r);
        }
        for (const cl::Path& p : peer) {
            s << "\n    Clipper ring: " << Describe(FromPath(p));
        }
        return s.str();
    }
};

Comparison Compare(const Outline& o, double distance) {
    Comparison c;
    RvPolygon2D polygon = ToPolygon(o);
    std::vector<RvPolygon2D> result;
    polygon.GetExtend(distance, result);
    for (const RvPolygon2D& r : result) {
        c.rings.push_back(ToOutline(r));
        for (const Pt& v : c.rings.back()) {
            c.finite = c.finite && std::isfinite(v.x) && std::isfinite(v.y);
        }
    }
    c.peer = ClipperExtend(o, distance);
    c.inputArea = std::abs(SignedArea(o));
    c.peerArea = RegionArea(c.peer);
    if (!c.finite) {
        return c;
    }
    c.ravelinArea = SymmetricDifferenceArea(c.rings, {});
    c.symmetricDifference = SymmetricDifferenceArea(c.rings, c.peer);
    double outline = 0.0;
    for (const cl::Path& p : c.peer) {
        outline += Perimeter(FromPath(p));
    }
    const double relative = kRelative * std::max(c.inputArea, c.peerArea);
    c.withinRelative = c.symmetricDifference <= relative;
    c.allowance = std::max(relative, kBand * outline);
    return c;
}

// ---------------------------------------------------------------------------------------------
// Random polygons
//
// Every generator draws from a seeded std::mt19937 and turns its raw 32-bit outputs into
// doubles itself, so that a seed gives the same polygon with every standard library. No
// expression takes two draws, as the order of their evaluation would be unspecified.

double Unit(std::mt19937& g) {
    return static_cast<double>(g()) / 4294967296.0;
}

double Uniform(std::mt19937& g, double lo, double hi) {
    const double u = Unit(g);
    return lo + (hi - lo) * u;
}

// An integer in [lo, hi].
int UniformInt(std::mt19937& g, int lo, int hi) {
    return lo + static_cast<int>(g() % static_cast<std::uint32_t>(hi - lo + 1));
}

// Every edge at least `minEdge` long and every corner turning by an angle whose sine is at
// least `minTurn`: no two vertices close together and no three nearly on one line.
bool WellSpread(const Outline& o, double minEdge, double minTurn) {
    const std::size_t n = o.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Pt& a = o[(i + n - 1) % n];
        const Pt& b = o[i];
        const Pt& c = o[(i + 1) % n];
        const double l1 = std::hypot(b.x - a.x, b.y - a.y);
        const double l2 = std::hypot(c.x - b.x, c.y - b.y);
        const double cross = (b.x - a.x) * (c.y - b.y) - (b.y - a.y) * (c.x - b.x);
        if (l2 < minEdge || std::abs(cross) < minTurn * l1 * l2) {
            return false;
        }
    }
    return true;
}

// A convex polygon of 3 to 16 vertices: points counterclockwise on an ellipse turned by a random
// angle, at random parameters, with semi-axes between 60 and 330 about a centre between 330 and
// 670, so that all coordinates lie between 0 and 1000. Every edge is at least 15 long and every
// corner turns by at least about 3 degrees.
Outline Convex(std::uint32_t seed) {
    std::mt19937 g(seed);
    for (;;) {
        const int n = UniformInt(g, 3, 16);
        const double cx = Uniform(g, 330.0, 670.0);
        const double cy = Uniform(g, 330.0, 670.0);
        const double a = Uniform(g, 60.0, 330.0);
        const double b = Uniform(g, 60.0, 330.0);
        const double turn = Uniform(g, 0.0, 2 * kPi);
        std::vector<double> t;
        for (int i = 0; i < n; ++i) {
            t.push_back(Uniform(g, 0.0, 2 * kPi));
        }
        std::sort(t.begin(), t.end());
        Outline o;
        for (const double ti : t) {
            const double ex = a * std::cos(ti);
            const double ey = b * std::sin(ti);
            o.push_back({cx + ex * std::cos(turn) - ey * std::sin(turn),
                         cy + ex * std::sin(turn) + ey * std::cos(turn)});
        }
        if (WellSpread(o, 15.0, 0.05)) {
            return o;
        }
    }
}

// A polyomino on a grid of unequal columns and rows, with its boundary traced counterclockwise
// and collinear vertices merged: an orthogonal polygon. The grid has 3 to 7 columns and rows,
// each between 8 and 900 / count wide, starting between 20 and 80; the cells are grown from
// one cell by adding a random empty neighbour of the shape, 3 to 60 % of the grid. Shapes with
// a hole, or with two cells touching only at a corner (the boundary would pass twice through
// that point), are drawn again.
Outline Orthogonal(std::uint32_t seed) {
    std::mt19937 g(seed);
    for (;;) {
        const int cols = UniformInt(g, 3, 7);
        const int rows = UniformInt(g, 3, 7);
        std::vector<double> xs{Uniform(g, 20.0, 80.0)};
        for (int i = 0; i < cols; ++i) {
            xs.push_back(xs.back() + Uniform(g, 8.0, 900.0 / cols));
        }
        std::vector<double> ys{Uniform(g, 20.0, 80.0)};
        for (int i = 0; i < rows; ++i) {
            ys.push_back(ys.back() + Uniform(g, 8.0, 900.0 / rows));
        }
        // in[c][r] for the cell of column c and row r, with a border of empty cells.
        std::vector<std::vector<bool>> in(cols + 2, std::vector<bool>(rows + 2, false));
        const int wanted = UniformInt(g, 3, std::max(3, cols * rows * 6 / 10));
        const int c0 = UniformInt(g, 1, cols);
        const int r0 = UniformInt(g, 1, rows);
        in[c0][r0] = true;
        for (int k = 1; k < wanted; ++k) {
            std::vector<std::pair<int, int>> candidates;
            for (int c = 1; c <= cols; ++c) {
                for (int r = 1; r <= rows; ++r) {
                    if (!in[c][r] &&
                        (in[c - 1][r] || in[c + 1][r] || in[c][r - 1] || in[c][r + 1])) {
                        candidates.emplace_back(c, r);
                    }
                }
            }
            const auto& pick = candidates[g() % candidates.size()];
            in[pick.first][pick.second] = true;
        }
        // A grid point where the four cells around it are filled crosswise is a pinch.
        bool pinched = false;
        for (int c = 0; c <= cols; ++c) {
            for (int r = 0; r <= rows; ++r) {
                const bool a = in[c][r];
                const bool b = in[c + 1][r];
                const bool d = in[c][r + 1];
                const bool e = in[c + 1][r + 1];
                pinched = pinched || (a == e && b == d && a != b);
            }
        }
        if (pinched) {
            continue;
        }
        // The boundary edges between a cell and an empty neighbour, each with the shape on its
        // left, keyed by the grid point it starts at; without pinches each grid point starts at
        // most one of them.
        std::vector<std::pair<int, int>> next((cols + 1) * (rows + 1), {-1, -1});
        int edges = 0;
        auto key = [rows](int i, int j) { return i * (rows + 1) + j; };
        for (int c = 1; c <= cols; ++c) {
            for (int r = 1; r <= rows; ++r) {
                if (!in[c][r]) {
                    continue;
                }
                // The cell spans grid points c-1..c and r-1..r.
                if (!in[c][r - 1]) {
                    next[key(c - 1, r - 1)] = {c, r - 1};
                    ++edges;
                }
                if (!in[c + 1][r]) {
                    next[key(c, r - 1)] = {c, r};
                    ++edges;
                }
                if (!in[c][r + 1]) {
                    next[key(c, r)] = {c - 1, r};
                    ++edges;
                }
                if (!in[c - 1][r]) {
                    next[key(c - 1, r)] = {c - 1, r - 1};
                    ++edges;
                }
            }
        }
        int startI = -1;
        int startJ = -1;
        for (int i = 0; i <= cols && startI < 0; ++i) {
            for (int j = 0; j <= rows; ++j) {
                if (next[key(i, j)].first >= 0) {
                    startI = i;
                    startJ = j;
                    break;
                }
            }
        }
        std::vector<std::pair<int, int>> loop{{startI, startJ}};
        for (;;) {
            const auto step = next[key(loop.back().first, loop.back().second)];
            if (step.first == startI && step.second == startJ) {
                break;
            }
            loop.push_back(step);
        }
        // A hole would leave boundary edges outside the one loop.
        if (static_cast<int>(loop.size()) != edges) {
            continue;
        }
        Outline o;
        const std::size_t n = loop.size();
        for (std::size_t k = 0; k < n; ++k) {
            const auto& a = loop[(k + n - 1) % n];
            const auto& b = loop[k];
            const auto& c = loop[(k + 1) % n];
            const bool straight = (a.first == b.first && b.first == c.first) ||
                                  (a.second == b.second && b.second == c.second);
            if (!straight) {
                o.push_back({xs[b.first], ys[b.second]});
            }
        }
        return o;
    }
}

// The narrowest part of an orthogonal polygon (either way round): the least distance between
// two edges that do not meet, lie parallel and face each other, each with the interior on the
// side towards the other. The distance is measured as the larger of the gap across the edges
// and the gap along them, so that two edges whose ends pass each other at a diagonal neck count
// with the width of that neck. An inward offset by less than half this leaves every edge
// running its way and brings no two offset edges together.
double NarrowestPart(const Outline& o) {
    const std::size_t n = o.size();
    const double orientation = SignedArea(o) > 0 ? 1.0 : -1.0;
    double narrowest = 1e300;
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = i + 2; j < n; ++j) {
            if (i == 0 && j == n - 1) {
                continue;
            }
            const Pt& a0 = o[i];
            const Pt& a1 = o[(i + 1) % n];
            const Pt& b0 = o[j];
            const Pt& b1 = o[(j + 1) % n];
            const bool aHorizontal = a0.y == a1.y;
            const bool bHorizontal = b0.y == b1.y;
            if (aHorizontal != bHorizontal) {
                continue;
            }
            // Along: the coordinate that runs with the edges; across: the other one. The
            // interior lies to the left of a counterclockwise edge.
            const double aAcross = aHorizontal ? a0.y : a0.x;
            const double bAcross = aHorizontal ? b0.y : b0.x;
            const double aDir = aHorizontal ? a1.x - a0.x : a1.y - a0.y;
            const double bDir = aHorizontal ? b1.x - b0.x : b1.y - b0.y;
            // The side of the interior, as the sign of the across coordinate: left of +x is +y,
            // left of +y is -x.
            const double aInside =
                (aHorizontal ? 1.0 : -1.0) * (aDir > 0 ? 1.0 : -1.0) * orientation;
            const double bInside =
                (aHorizontal ? 1.0 : -1.0) * (bDir > 0 ? 1.0 : -1.0) * orientation;
            const double across = bAcross - aAcross;
            if (!(across * aInside > 0 && -across * bInside > 0)) {
                continue;
            }
            const double aLo = std::min(aHorizontal ? a0.x : a0.y, aHorizontal ? a1.x : a1.y);
            const double aHi = std::max(aHorizontal ? a0.x : a0.y, aHorizontal ? a1.x : a1.y);
            const double bLo = std::min(aHorizontal ? b0.x : b0.y, aHorizontal ? b1.x : b1.y);
            const double bHi = std::max(aHorizontal ? b0.x : b0.y, aHorizontal ? b1.x : b1.y);
            const double along = std::max(0.0, std::max(aLo, bLo) - std::min(aHi, bHi));
            narrowest = std::min(narrowest, std::max(std::abs(across), along));
        }
    }
    return narrowest;
}

// ---------------------------------------------------------------------------------------------
// The one case outside what GetExtend gives in these families
//
// After an inward offset, GetExtend drops every ring whose normal (GetNormalVector) runs against
// the polygon's, to throw away turned parts. That normal is read at the ring's first corner, and
// its sign is settled by a probe: the corner plus the sum of the two unit vectors along its
// edges, a step of fixed length (1.41 at a right angle, one unit along each edge) whatever the
// size of the ring. Where the offset ring is narrower than that step at its first corner, the
// probe lands on the wrong side, the ring's normal comes out reversed and the ring is dropped,
// although it is the right answer. Clipper keeps it. That happens only close to half the
// narrowest part, where a part of the ring is thinned to less than one unit.

// The mitred corner of vertex `i` of an outline offset by `distance`: the vertex moved along
// the sum of the outward normals of its edges, scaled so that both edges move by `distance`.
Pt OffsetCorner(const Outline& o, std::size_t i, double distance) {
    const std::size_t n = o.size();
    const Pt& a = o[(i + n - 1) % n];
    const Pt& b = o[i];
    const Pt& c = o[(i + 1) % n];
    const double orientation = SignedArea(o) > 0 ? 1.0 : -1.0;
    const double l1 = std::hypot(b.x - a.x, b.y - a.y);
    const double l2 = std::hypot(c.x - b.x, c.y - b.y);
    // Outward normals: to the right of a counterclockwise edge.
    const Pt n1{orientation * (b.y - a.y) / l1, -orientation * (b.x - a.x) / l1};
    const Pt n2{orientation * (c.y - b.y) / l2, -orientation * (c.x - b.x) / l2};
    const double scale = distance / (1.0 + n1.x * n2.x + n1.y * n2.y);
    return {b.x + (n1.x + n2.x) * scale, b.y + (n1.y + n2.y) * scale};
}

// Whether the probe at the first corner of the offset ring lands on the wrong side of Clipper's
// region, the right one: outside at a convex corner, or inside at a reflex one. The ring's first
// corner is that of the polygon's first vertex, with the neighbours' corners on either side.
bool ProbeMisleads(const Outline& o, double distance, const cl::Paths& peer) {
    const std::size_t n = o.size();
    const Pt prev = OffsetCorner(o, n - 1, distance);
    const Pt cur = OffsetCorner(o, 0, distance);
    const Pt next = OffsetCorner(o, 1, distance);
    const double la = std::hypot(prev.x - cur.x, prev.y - cur.y);
    const double lb = std::hypot(next.x - cur.x, next.y - cur.y);
    const Pt probe{cur.x + (prev.x - cur.x) / la + (next.x - cur.x) / lb,
                   cur.y + (prev.y - cur.y) / la + (next.y - cur.y) / lb};
    const cl::Path probePath = ToPath({probe});
    int containing = 0;
    for (const cl::Path& ring : peer) {
        if (cl::PointInPolygon(probePath[0], ring) != 0) {
            ++containing;
        }
    }
    const bool inside = containing % 2 == 1;
    const double turn = (cur.x - prev.x) * (next.y - cur.y) - (cur.y - prev.y) * (next.x - cur.x);
    const bool convex = turn * SignedArea(o) > 0;
    return inside != convex;
}

// ---------------------------------------------------------------------------------------------
// Families

// What one family gave over all its cases.
struct Tally {
    int cases = 0;
    int agreed = 0;
    int withinRelative = 0;  // agreed within 1e-6 of the area, without the band
    int nonEmpty = 0;        // both give a region with area (some are tiny near the limit)
    int changed = 0;         // the region's area differs from the polygon's by 0.1 % or more
    std::vector<std::string> narrowFirstCorner;  // dropped for the probe of the normal
    std::vector<std::string> disagreements;      // unexplained

    void Add(const std::string& label, const Comparison& c, bool probeMisleads) {
        ++cases;
        if (c.Agrees()) {
            ++agreed;
        } else if (probeMisleads && c.rings.empty() && c.finite) {
            narrowFirstCorner.push_back(label);
        } else {
            disagreements.push_back(label + ": " + c.Report());
        }
        if (c.withinRelative) {
            ++withinRelative;
        }
        if (c.ravelinArea > 0.0 && c.peerArea > 0.0) {
            ++nonEmpty;
        }
        if (std::abs(c.peerArea - c.inputArea) >= 1e-3 * c.inputArea) {
            ++changed;
        }
    }

    std::string Report() const {
        std::ostringstream s;
        s << agreed << " of " << cases << " cases agree, " << narrowFirstCorner.size()
          << " are dropped for a first corner narrower than the probe of the normal";
        for (const std::string& d : disagreements) {
            s << "\n  " << d;
        }
        return s.str();
    }
};

std::string Label(const char* family, std::uint32_t seed, const char* way, const Outline& o,
                  double distance) {
    std::ostringstream s;
    s << std::setprecision(10) << family << " seed " << seed << way << ", distance " << distance
      << ", polygon " << Describe(o);
    return s.str();
}

// Guards against a comparison that passes for want of anything to compare: every case but the
// named ones gives a region with area on both sides, and the offset changes the area.
void ExpectSubstantial(const Tally& t, int cases) {
    const int named = static_cast<int>(t.narrowFirstCorner.size());
    EXPECT_EQ(t.cases, cases);
    EXPECT_EQ(t.nonEmpty + named, t.cases) << "some offsets came back empty";
    EXPECT_GE(t.changed * 10, t.cases * 9) << "too few offsets changed the area";
    // The named cases need a part thinner than one unit; they stay rare.
    EXPECT_LE(named * 20, t.cases) << "more than one case in 20 named";
    // No cut is made in these families, so no point is merged at 0.01 and the regions agree
    // without the band.
    EXPECT_EQ(t.withinRelative + named, t.cases);
}

TEST(RvPolygon2DExtendPeerTest, ConvexPolygonsOffsetOutwardGiveClippersRegion) {
    Tally t;
    int rings = 0;
    for (int k = 0; k < kConvexCount; ++k) {
        const std::uint32_t seed = 1000 + static_cast<std::uint32_t>(k);
        const Outline o = Convex(seed);
        // Every other polygon is given clockwise: the sign of the distance alone says outward.
        const bool clockwise = k % 2 == 1;
        const Outline given = clockwise ? Reversed(o) : o;
        for (const double d : kOutwardDistances) {
            const std::string label =
                Label("convex", seed, clockwise ? " clockwise" : " counterclockwise", given, d);
            SCOPED_TRACE(label);
            const Comparison c = Compare(given, d);
            t.Add(label, c, ProbeMisleads(given, d, c.peer));
            rings += static_cast<int>(c.rings.size());
        }
    }
    EXPECT_TRUE(t.disagreements.empty()) << t.Report();
    ExpectSubstantial(t, kConvexCount * static_cast<int>(std::size(kOutwardDistances)));
    // The filter that reads the normal runs on inward offsets only.
    EXPECT_TRUE(t.narrowFirstCorner.empty());
    EXPECT_EQ(rings, t.cases) << "an outward offset of a convex polygon is one ring";
}

TEST(RvPolygon2DExtendPeerTest, OrthogonalPolygonsOffsetInwardGiveClippersRegion) {
    Tally t;
    int reflex = 0;  // polygons with a reflex corner, so not rectangles
    for (int k = 0; k < kOrthogonalCount; ++k) {
        const std::uint32_t seed = 5000 + static_cast<std::uint32_t>(k);
        const Outline o = Orthogonal(seed);
        if (o.size() > 4) {
            ++reflex;
        }
        const double narrowest = NarrowestPart(o);
        for (const bool clockwise : {false, true}) {
            const Outline given = clockwise ? Reversed(o) : o;
            for (const double f : kInwardFractions) {
                const double d = -f * 0.5 * narrowest;
                const std::string label = Label(
                    "orthogonal", seed, clockwise ? " clockwise" : " counterclockwise", given, d);
                SCOPED_TRACE(label);
                const Comparison c = Compare(given, d);
                t.Add(label, c, ProbeMisleads(given, d, c.peer));
            }
        }
    }
    EXPECT_TRUE(t.disagreements.empty()) << t.Report();
    ExpectSubstantial(t, kOrthogonalCount * 2 * static_cast<int>(std::size(kInwardFractions)));
    EXPECT_GE(reflex * 10, kOrthogonalCount * 8) << "too few polygons with a reflex corner";
}

// ---------------------------------------------------------------------------------------------
// The oracle and the generators on hand-built cases

// Clipper's mitred offset and the symmetric difference on regions whose areas follow from their
// corners.
TEST(RvPolygon2DExtendPeerTest, OracleMeasuresHandBuiltRegions) {
    const Outline square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    // The square grown by 1 is the square from -1 to 11: 144; shrunk by 2, from 2 to 8: 36. The
    // clockwise square gives the same.
    EXPECT_NEAR(RegionArea(ClipperExtend(square, 1.0)), 144.0, 1e-9);
    EXPECT_NEAR(RegionArea(ClipperExtend(Reversed(square), 1.0)), 144.0, 1e-9);
    EXPECT_NEAR(RegionArea(ClipperExtend(square, -2.0)), 36.0, 1e-9);
    // A right triangle with legs 30 and 40 grown by 10 with mitres: the incircle radius is
    // (30 + 40 - 50) / 2 = 10, so the grown triangle is similar with ratio (10 + 10) / 10 = 2
    // about the incentre, and has four times the area: 4 * 600.
    const Outline triangle{{0, 0}, {40, 0}, {0, 30}};
    EXPECT_NEAR(RegionArea(ClipperExtend(triangle, 10.0)), 2400.0, 1e-6);
    // The square against itself shifted by 1 along x: two strips of 1 by 10.
    const Outline shifted{{1, 0}, {11, 0}, {11, 10}, {1, 10}};
    EXPECT_NEAR(SymmetricDifferenceArea({square}, ClipperExtend(shifted, 0.0)), 20.0, 1e-9);
    // Two rings read even-odd: the 2-by-2 square inside the square is a hole, 100 - 4.
    const Outline inner{{4, 4}, {6, 4}, {6, 6}, {4, 6}};
    EXPECT_NEAR(SymmetricDifferenceArea({square, inner}, {}), 96.0, 1e-9);
}

// An L of an arm 10 wide: its narrowest part is 10, the width of each arm; the two long outer
// edges 30 apart face each other too but farther. Shrunk by 4, each arm is 2 wide: the L from
// (4,4) to (26,4), (26,6), (6,6), (6,26), (4,26), of area 22 * 2 + 20 * 2 = 84.
TEST(RvPolygon2DExtendPeerTest, NarrowestPartOfAnLIsTheWidthOfItsArms) {
    const Outline l{{0, 0}, {30, 0}, {30, 10}, {10, 10}, {10, 30}, {0, 30}};
    EXPECT_DOUBLE_EQ(NarrowestPart(l), 10.0);
    EXPECT_DOUBLE_EQ(NarrowestPart(Reversed(l)), 10.0);
    EXPECT_NEAR(RegionArea(ClipperExtend(l, -4.0)), 84.0, 1e-9);
    const Comparison c = Compare(l, -4.0);
    EXPECT_TRUE(c.Agrees()) << c.Report();
    EXPECT_NEAR(c.ravelinArea, 84.0, 1e-9);
}

// A square from -50 to 54 by -50 to 56 without two corner boxes: the lower left one up to the
// reflex corner (0,0) and the upper right one from the reflex corner (4,6). The two corners make
// a diagonal neck: the mitred offsets of the edges at them, the quarter planes below and left of
// (d,d) and above and right of (4-d,6-d), first overlap when d passes both 2 and 3, so the neck
// is 6 wide, the larger of its two gaps. Shrunk by 2.5, the region is the box from -47.5 to 51.5
// by -47.5 to 53.5 (99 by 101) without two boxes of 50 by 50: 9999 - 2 * 2500 = 4999.
TEST(RvPolygon2DExtendPeerTest, NarrowestPartCountsADiagonalNeck) {
    const Outline o{{0, -50}, {54, -50}, {54, 6}, {4, 6}, {4, 56}, {-50, 56}, {-50, 0}, {0, 0}};
    EXPECT_DOUBLE_EQ(NarrowestPart(o), 6.0);
    EXPECT_DOUBLE_EQ(NarrowestPart(Reversed(o)), 6.0);
    EXPECT_NEAR(RegionArea(ClipperExtend(o, -2.5)), 4999.0, 1e-9);
    const Comparison c = Compare(o, -2.5);
    EXPECT_TRUE(c.Agrees()) << c.Report();
    EXPECT_NEAR(c.ravelinArea, 4999.0, 1e-9);
}

// The generated polygons are what the tests above take them to be: simple orthogonal rings,
// counterclockwise, with no collinear vertices, and convex rings well apart.
TEST(RvPolygon2DExtendPeerTest, GeneratorsGiveTheShapesTheFamiliesNeed) {
    for (std::uint32_t seed = 5000; seed < 5100; ++seed) {
        SCOPED_TRACE(seed);
        const Outline o = Orthogonal(seed);
        ASSERT_GE(o.size(), 4U);
        EXPECT_EQ(o.size() % 2, 0U);
        EXPECT_GT(SignedArea(o), 0.0);
        for (std::size_t i = 0; i < o.size(); ++i) {
            const Pt& a = o[i];
            const Pt& b = o[(i + 1) % o.size()];
            const Pt& c = o[(i + 2) % o.size()];
            // Each edge is axis-parallel, and consecutive edges alternate between the axes.
            EXPECT_TRUE((a.x == b.x) != (a.y == b.y));
            EXPECT_NE(a.x == b.x, b.x == c.x);
            EXPECT_GE(std::max(std::abs(b.x - a.x), std::abs(b.y - a.y)), 8.0);
        }
        // Clipper's union of the ring alone keeps its area and finds one ring: it is simple.
        cl::Paths clean;
        cl::SimplifyPolygon(ToPath(o), clean, cl::pftNonZero);
        EXPECT_EQ(clean.size(), 1U);
        // Rounding to Clipper's integers moves the outline by at most 5e-7.
        EXPECT_NEAR(RegionArea(clean), SignedArea(o), 1e-6 * Perimeter(o));
        EXPECT_GE(NarrowestPart(o), 8.0);
    }
    for (std::uint32_t seed = 1000; seed < 1100; ++seed) {
        SCOPED_TRACE(seed);
        const Outline o = Convex(seed);
        ASSERT_GE(o.size(), 3U);
        EXPECT_GT(SignedArea(o), 0.0);
        EXPECT_TRUE(WellSpread(o, 15.0, 0.05));
        for (std::size_t i = 0; i < o.size(); ++i) {
            EXPECT_GE(o[i].x, 0.0);
            EXPECT_LE(o[i].x, 1000.0);
            EXPECT_GE(o[i].y, 0.0);
            EXPECT_LE(o[i].y, 1000.0);
        }
    }
}

// ---------------------------------------------------------------------------------------------
// Cases outside what GetExtend gives

// Past half the narrowest part every edge of a square turns round. No crossing of the turned
// ring is a crossing of edges that still run their way, and no turned edge has a neighbour that
// does not turn, so nothing is cut; the turned ring lies inside the square and runs its way, so
// the filter keeps it: the square from 4 to 6, of area 4, where Clipper's region is empty.
TEST(RvPolygon2DExtendPeerTest, PastHalfTheNarrowestPartATurnedSquareComesBack) {
    for (const bool clockwise : {false, true}) {
        SCOPED_TRACE(clockwise ? "clockwise" : "counterclockwise");
        const Outline square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
        const Comparison c = Compare(clockwise ? Reversed(square) : square, -6.0);
        EXPECT_TRUE(c.peer.empty());
        ASSERT_EQ(c.rings.size(), 1U);
        EXPECT_NEAR(c.ravelinArea, 4.0, 1e-9);
    }
}

// A 30 by 10 rectangle shrunk by 4.7 is the strip from (4.7,4.7) to (25.3,5.3), 0.6 high. At its
// first corner (4.7,4.7) the probe of the normal steps one unit along each edge, to (5.7,5.7),
// above the strip: the ring's normal comes out reversed, and the filter drops the ring. Shrunk by
// 4.4, the strip is 1.2 high, the probe (5.4,5.4) lies inside it, and the ring stays: 21.2 by
// 1.2, an area of 25.44. Clipper gives both strips.
TEST(RvPolygon2DExtendPeerTest, AStripThinnerThanTheProbeAtItsFirstCornerIsDropped) {
    const Outline rectangle{{0, 0}, {30, 0}, {30, 10}, {0, 10}};
    const Comparison thin = Compare(rectangle, -4.7);
    EXPECT_TRUE(ProbeMisleads(rectangle, -4.7, thin.peer));
    EXPECT_TRUE(thin.rings.empty());
    EXPECT_NEAR(thin.peerArea, 20.6 * 0.6, 1e-9);
    const Comparison wider = Compare(rectangle, -4.4);
    EXPECT_FALSE(ProbeMisleads(rectangle, -4.4, wider.peer));
    EXPECT_TRUE(wider.Agrees()) << wider.Report();
    EXPECT_NEAR(wider.ravelinArea, 25.44, 1e-9);
    // Given from another first vertex the same strip starts at another corner, with the same
    // outcome: every corner of the strip is 0.6 from the opposite edge.
    const Outline turned{{30, 0}, {30, 10}, {0, 10}, {0, 0}};
    EXPECT_TRUE(Compare(turned, -4.7).rings.empty());
}

// The filter of an inward offset asks the point-in-polygon test of the polygon about every vertex
// of the result. That test casts a horizontal ray and counts a hit at a vertex (within 1e-5)
// only on the edge whose lower end the vertex is; the edge segment itself is hit only within a
// millionth of its length past its ends. A ray that passes between those two bands below a
// vertex, next to a short edge, hits the edge below the vertex, where the hit counts as the
// vertex and as the upper end of that edge, and misses the short edge above: no crossing is
// counted, the vertex of the result is taken to be outside, and the whole ring is dropped.
//
// Here the right side has a vertex at (100.2, 5 + h) between (100,0) and (100,7), the edge above
// it about 2 long. Shrunk by 5, the ring's corner (5,5) casts its ray at y = 5; with h = 8e-6
// that is within 1e-5 of the vertex, and 4e-6 of the short edge's length below its lower end,
// more than a millionth: the ring is dropped, while Clipper's region is about the rectangle from
// 5 to 95 by 5 to 25, of area 1800. With h = 2e-5 the ray passes clear of the vertex, and with
// h = 0 through it, counted once on the short edge, and GetExtend gives Clipper's region.
TEST(RvPolygon2DExtendPeerTest, ARayOfThePointTestGrazingAVertexDropsTheRing) {
    const auto polygon = [](double h) {
        return Outline{{0, 0}, {100, 0}, {100.2, 5 + h}, {100, 7}, {100, 30}, {0, 30}};
    };
    const Comparison grazing = Compare(polygon(8e-6), -5.0);
    EXPECT_TRUE(grazing.rings.empty());
    EXPECT_GT(grazing.peerArea, 1500.0);
    for (const double h : {2e-5, 0.0}) {
        SCOPED_TRACE(h);
        const Comparison clear = Compare(polygon(h), -5.0);
        EXPECT_TRUE(clear.Agrees()) << clear.Report();
        EXPECT_GT(clear.ravelinArea, 1700.0);
        EXPECT_LT(clear.ravelinArea, 1810.0);
    }
}

// A square of side 100 with a slot 20 high and 50 deep cut in from its left side. Grown by 9 the
// slot stays open, 2 high: the square from -9 to 109 without the slot from -9 to 41 by 49 to
// 51, 118 * 118 - 50 * 2 = 13824, as Clipper gives. Grown by 15 the slot's two long edges pass
// each other and the slot closes: Clipper gives the whole square from -15 to 115, 16900. The
// shifted ring runs down the left side at x = -15 twice over between y = 45 and 55, on the
// shifted upper and lower parts of the side. The slot's shifted upper edge, now at y = 45,
// starts on the lower part of the side at (-15,45); its shifted lower edge, at y = 55, ends on
// the upper part at (-15,55). The crossing test takes a meeting at the start of the later edge
// of a pair but not at its end, so only (-15,45) is cut; the two parts of the side, on one
// line, give no cut since the end of one lies on the other. With a single cut the walk keeps
// the stretch from the cut round to itself, the slot's shifted edges: GetExtend gives the
// rectangle from -15 to 35 by 45 to 55, 500, and drops the rest.
TEST(RvPolygon2DExtendPeerTest, AClosingSlotKeepsOnlyTheOverlapOfItsShiftedEdges) {
    const Outline slotted{{0, 0},  {100, 0}, {100, 100}, {0, 100},
                          {0, 60}, {50, 60}, {50, 40},   {0, 40}};
    const Comparison open = Compare(slotted, 9.0);
    EXPECT_TRUE(open.Agrees()) << open.Report();
    EXPECT_NEAR(open.ravelinArea, 13824.0, 1e-9);
    const Comparison closed = Compare(slotted, 15.0);
    EXPECT_NEAR(closed.peerArea, 16900.0, 1e-9);
    ASSERT_EQ(closed.rings.size(), 1U);
    EXPECT_NEAR(closed.ravelinArea, 500.0, 1e-9);
}

}  // namespace
}  // namespace ravelin
