#pragma once

// The comparison of boolean combination with Boost.Geometry that the peer test and the
// agreement report share, on the random polygons of RandomPolygons.h.
//
// The comparison reads the rings that Combine returns under the even-odd rule (a hole comes back
// as a ring of its own) and measures the area of the symmetric difference of that region with
// Boost.Geometry's result; then it asks both for the membership of random points that lie
// farther than 0.1 from every boundary involved. The area is integrated here, slab by slab,
// rather than by Boost.Geometry's overlay: fed two nearly equal regions, the overlay of Boost
// 1.74, which rounds to an integer grid, can return one of them whole as their difference. The
// same integration measures each result against the exact region, computed from the operands,
// so that a disagreement can be put down to one side or the other: on touching and shared
// boundaries Boost.Geometry is not always the one that is right.

// Boost 1.74's own headers include one of its deprecated headers, which prints a note on every
// build; and Boost.Geometry's rescaling policy draws a false -Wmaybe-uninitialized from GCC once
// inlined.
#ifndef BOOST_ALLOW_DEPRECATED_HEADERS
#define BOOST_ALLOW_DEPRECATED_HEADERS
#endif
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <boost/geometry/algorithms/area.hpp>
#include <boost/geometry/algorithms/correct.hpp>
#include <boost/geometry/algorithms/difference.hpp>
#include <boost/geometry/algorithms/intersection.hpp>
#include <boost/geometry/algorithms/sym_difference.hpp>
#include <boost/geometry/algorithms/union.hpp>
#include <boost/geometry/algorithms/within.hpp>
#include <boost/geometry/geometries/multi_polygon.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <initializer_list>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvIntersection.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "support/RandomPolygons.h"

namespace ravelin::testing_support {

namespace bg = boost::geometry;
using BgPoint = bg::model::d2::point_xy<double>;
using BgPolygon = bg::model::polygon<BgPoint>;
using BgMultiPolygon = bg::model::multi_polygon<BgPolygon>;

inline BgPolygon ToBoost(const Outline& ring) {
    BgPolygon polygon;
    for (const Pt& p : ring) {
        polygon.outer().push_back(BgPoint(p.x, p.y));
    }
    bg::correct(polygon);
    return polygon;
}

/// The rings of a multi-polygon's boundary as outlines, holes included.
inline std::vector<Outline> BoundaryOf(const BgMultiPolygon& region) {
    std::vector<Outline> rings;
    const auto add = [&rings](const auto& ring) {
        Outline o;
        for (const BgPoint& p : ring) {
            o.push_back({p.x(), p.y()});
        }
        if (!o.empty()) {
            o.pop_back();  // Boost.Geometry's rings repeat the first point at the end.
        }
        rings.push_back(o);
    };
    for (const BgPolygon& polygon : region) {
        add(polygon.outer());
        for (const auto& hole : polygon.inners()) {
            add(hole);
        }
    }
    return rings;
}

/// Splits a closed chain that may touch or cross itself into loops that do neither, with the
/// same even-odd region: every crossing becomes a vertex of both edges, and the chain is cut
/// wherever it comes back to a point it has passed. Parity is additive over the loops, so
/// folding them with the even-odd rule gives back the region of the chain. Loops without area
/// (there and back along one line) are dropped.
inline std::vector<Outline> SimpleLoops(const Outline& ring) {
    const std::size_t n = ring.size();
    std::vector<std::vector<std::pair<double, Pt>>> cuts(n);
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = i + 1; j < n; ++j) {
            const Pt a0 = ring[i];
            const Pt a1 = ring[(i + 1) % n];
            const Pt b0 = ring[j];
            const Pt b1 = ring[(j + 1) % n];
            const Pt r = Sub(a1, a0);
            const Pt s = Sub(b1, b0);
            const double den = Cross(r, s);
            if (den == 0.0) {
                continue;
            }
            const double t = Cross(Sub(b0, a0), s) / den;
            const double u = Cross(Sub(b0, a0), r) / den;
            if (t > 0.0 && t < 1.0 && u > 0.0 && u < 1.0) {
                const Pt at = Add(a0, Scale(r, t));
                cuts[i].push_back({t, at});
                cuts[j].push_back({u, at});
            }
        }
    }
    // A vertex lying on another edge touches the chain there without crossing it.
    for (std::size_t v = 0; v < n; ++v) {
        for (std::size_t e = 0; e < n; ++e) {
            const std::size_t f = (e + 1) % n;
            if (e == v || f == v) {
                continue;
            }
            const Pt d = Sub(ring[f], ring[e]);
            const double t = Dot(Sub(ring[v], ring[e]), d) / Dot(d, d);
            if (t > 0.0 && t < 1.0 && DistanceToSegment(ring[v], ring[e], ring[f]) < 1e-7) {
                cuts[e].push_back({t, ring[v]});
            }
        }
    }
    Outline chain;
    for (std::size_t i = 0; i < n; ++i) {
        chain.push_back(ring[i]);
        std::sort(cuts[i].begin(), cuts[i].end(),
                  [](const auto& l, const auto& r) { return l.first < r.first; });
        for (const auto& cut : cuts[i]) {
            chain.push_back(cut.second);
        }
    }
    const auto same = [](Pt a, Pt b) { return std::fabs(a.x - b.x) + std::fabs(a.y - b.y) < 1e-7; };
    std::vector<Outline> loops;
    Outline stack;
    const auto keep = [&loops](Outline loop) {
        if (loop.size() >= 3 && std::fabs(SignedArea2(loop)) > 1e-9) {
            loops.push_back(std::move(loop));
        }
    };
    for (std::size_t k = 0; k <= chain.size(); ++k) {
        const Pt p = chain[k % chain.size()];
        std::size_t found = stack.size();
        for (std::size_t m = 0; m < stack.size(); ++m) {
            if (same(stack[m], p)) {
                found = m;
                break;
            }
        }
        if (found == stack.size()) {
            stack.push_back(p);
            continue;
        }
        keep(Outline(stack.begin() + static_cast<std::ptrdiff_t>(found), stack.end()));
        stack.resize(found + 1);
    }
    keep(stack);
    return loops;
}

/// The even-odd region of a set of rings, as Boost.Geometry's multi-polygon: the rings are
/// folded one by one with the symmetric difference, which is what the even-odd rule does.
inline BgMultiPolygon EvenOddRegion(const std::vector<Outline>& rings) {
    BgMultiPolygon region;
    for (const Outline& ring : rings) {
        for (const Outline& loop : SimpleLoops(ring)) {
            BgMultiPolygon next;
            bg::sym_difference(region, ToBoost(loop), next);
            region = std::move(next);
        }
    }
    return region;
}

/// The area of the points whose membership in a few even-odd regions `keep` accepts. Each group
/// of rings is one region; its rings may cross, touch and overlap one another and themselves.
/// `keep` receives a mask with bit `g` set where the point lies inside group `g`.
///
/// The plane is cut into vertical slabs at every vertex and at every crossing of two edges of
/// any groups. Inside a slab no two edges cross, so the edges keep their order from bottom to
/// top and each gap between neighbours is a trapezoid with a constant mask: the midpoint rule is
/// exact for it. Nearly coincident edges only add thin slivers, which is why this is robust
/// where an overlay of two nearly equal regions is not.
template <class Keep>
double SlabArea(const std::vector<const std::vector<Outline>*>& groups, Keep keep) {
    struct Edge {
        Pt lo;  // the end with the smaller x
        Pt hi;
        unsigned group;
    };
    std::vector<Edge> edges;
    std::vector<double> cuts;
    for (std::size_t g = 0; g < groups.size(); ++g) {
        for (const Outline& ring : *groups[g]) {
            for (std::size_t i = 0; i < ring.size(); ++i) {
                const Pt a = ring[i];
                const Pt b = ring[(i + 1) % ring.size()];
                cuts.push_back(a.x);
                if (a.x < b.x) {
                    edges.push_back({a, b, static_cast<unsigned>(g)});
                } else if (b.x < a.x) {
                    edges.push_back({b, a, static_cast<unsigned>(g)});
                }
            }
        }
    }
    std::sort(edges.begin(), edges.end(),
              [](const Edge& l, const Edge& r) { return l.lo.x < r.lo.x; });
    for (std::size_t i = 0; i < edges.size(); ++i) {
        for (std::size_t j = i + 1; j < edges.size() && edges[j].lo.x < edges[i].hi.x; ++j) {
            const Pt r = Sub(edges[i].hi, edges[i].lo);
            const Pt s = Sub(edges[j].hi, edges[j].lo);
            const double den = Cross(r, s);
            if (den == 0.0) {
                continue;
            }
            const Pt w = Sub(edges[j].lo, edges[i].lo);
            const double t = Cross(w, s) / den;
            const double u = Cross(w, r) / den;
            if (t > 0.0 && t < 1.0 && u > 0.0 && u < 1.0) {
                cuts.push_back(edges[i].lo.x + r.x * t);
            }
        }
    }
    std::sort(cuts.begin(), cuts.end());
    cuts.erase(std::unique(cuts.begin(), cuts.end()), cuts.end());
    double area = 0.0;
    std::vector<const Edge*> active;
    std::vector<std::pair<double, unsigned>> ys;
    std::size_t next = 0;
    for (std::size_t k = 0; k + 1 < cuts.size(); ++k) {
        const double x0 = cuts[k];
        const double x1 = cuts[k + 1];
        const double xm = 0.5 * (x0 + x1);
        while (next < edges.size() && edges[next].lo.x <= x0) {
            active.push_back(&edges[next]);
            ++next;
        }
        active.erase(std::remove_if(active.begin(), active.end(),
                                    [x0](const Edge* e) { return e->hi.x <= x0; }),
                     active.end());
        ys.clear();
        for (const Edge* e : active) {
            const double f = (xm - e->lo.x) / (e->hi.x - e->lo.x);
            ys.push_back({e->lo.y + (e->hi.y - e->lo.y) * f, e->group});
        }
        std::sort(ys.begin(), ys.end());
        unsigned mask = 0;
        for (std::size_t m = 0; m + 1 < ys.size(); ++m) {
            mask ^= 1u << ys[m].second;
            if (keep(mask)) {
                area += (ys[m + 1].first - ys[m].first) * (x1 - x0);
            }
        }
    }
    return area;
}

/// The area of the even-odd region of a set of rings.
inline double EvenOddArea(const std::vector<Outline>& rings) {
    return SlabArea({&rings}, [](unsigned mask) { return mask == 1u; });
}

/// The area of the symmetric difference of the even-odd regions of two sets of rings.
inline double SymmetricDifferenceArea(const std::vector<Outline>& p,
                                      const std::vector<Outline>& q) {
    return SlabArea({&p, &q}, [](unsigned mask) { return mask == 1u || mask == 2u; });
}

/// Whether a point inside `a` by `inA` and inside `b` by `inB` belongs to the result of `mode`.
inline bool ExpectedMembership(bool inA, bool inB, _RvCombineMode mode) {
    if (mode == CombineDifference) {
        return inA && !inB;
    }
    if (mode == CombineIntersection) {
        return inA && inB;
    }
    return inA || inB;
}

/// The area of the symmetric difference of the even-odd region of `rings` with the result of
/// `mode` on `a` and `b`, computed from the operands directly.
inline double ErrorArea(const Outline& a, const Outline& b, _RvCombineMode mode,
                        const std::vector<Outline>& rings) {
    const std::vector<Outline> ga{a};
    const std::vector<Outline> gb{b};
    return SlabArea({&ga, &gb, &rings}, [mode](unsigned mask) {
        const bool expected = ExpectedMembership((mask & 1u) != 0, (mask & 2u) != 0, mode);
        return expected != ((mask & 4u) != 0);
    });
}

/// Boost.Geometry's answer for `mode`.
inline BgMultiPolygon PeerCombine(const Outline& a, const Outline& b, _RvCombineMode mode) {
    const BgPolygon pa = ToBoost(a);
    const BgPolygon pb = ToBoost(b);
    BgMultiPolygon out;
    if (mode == CombineDifference) {
        bg::difference(pa, pb, out);
    } else if (mode == CombineIntersection) {
        bg::intersection(pa, pb, out);
    } else {
        bg::union_(pa, pb, out);
    }
    return out;
}

inline const char* ModeName(_RvCombineMode mode) {
    switch (mode) {
        case CombineDifference:
            return "difference";
        case CombineIntersection:
            return "intersection";
        default:
            return "union";
    }
}

// ---------------------------------------------------------------------------------------------
// The comparison

/// How Combine's region compares with Boost.Geometry's for one pair and one mode.
struct PeerComparison {
    bool combined = false;      ///< Combine returned true.
    bool peerFailed = false;    ///< Boost.Geometry threw; `note` says what.
    int rings = 0;              ///< Rings that Combine returned.
    int shortRings = 0;         ///< Of them, rings of fewer than 3 points.
    double peerArea = 0.0;      ///< Area of Boost.Geometry's result.
    double ravelinArea = 0.0;   ///< Area of the even-odd region of Combine's rings.
    double symDiffArea = 0.0;   ///< Area of the symmetric difference of the two.
    double band = 0.0;          ///< 0.01 times the sum of the operands' perimeters.
    double ravelinError = 0.0;  ///< Area of the symmetric difference of Combine's region with
                                ///< the exact result, integrated from the operands.
    double peerError = 0.0;     ///< The same for Boost.Geometry's result.
    double overlayArea = -1.0;  ///< The same symmetric difference by Boost.Geometry's overlay,
                                ///< when asked for: for information only.
    int samples = 0;            ///< Sample points compared (farther than 0.1 from all edges).
    int samplesInside = 0;      ///< Of them, points inside Boost.Geometry's result.
    int mismatches = 0;         ///< Of them, points on which the two disagree.
    int ravelinWrong = 0;       ///< Mismatches where Combine contradicts the operands.
    std::string note;

    bool Agrees() const {
        return combined && !peerFailed && shortRings == 0 && symDiffArea <= band && mismatches == 0;
    }

    std::string Describe() const {
        std::ostringstream s;
        s << "combined=" << combined << " rings=" << rings << " peerArea=" << peerArea
          << " ravelinArea=" << ravelinArea << " symDiffArea=" << symDiffArea << " band=" << band
          << " samples=" << samples << " mismatches=" << mismatches << " (Combine wrong on "
          << ravelinWrong << ") errors from the exact region: Combine " << ravelinError
          << ", Boost.Geometry " << peerError;
        if (overlayArea >= 0.0) {
            s << " overlayArea=" << overlayArea;
        }
        if (shortRings != 0) {
            s << " shortRings=" << shortRings;
        }
        if (!note.empty()) {
            s << " note: " << note;
        }
        return s.str();
    }
};

/// Runs Combine on the pair in `mode`, and Boost.Geometry on the same pair, and compares the two
/// regions: by the area of their symmetric difference, and by the membership of `sampleCount`
/// random points (drawn from `sampleSeed` over the box of both operands, grown by 5) of which
/// those within 0.1 of an edge of an operand or of either result are left out. With
/// `withOverlay`, the symmetric difference is also measured by Boost.Geometry's overlay, from the
/// even-odd region of Combine's rings, for information.
inline PeerComparison CompareWithPeer(const Outline& a, const Outline& b, _RvCombineMode mode,
                                      std::uint32_t sampleSeed, int sampleCount,
                                      bool withOverlay = false) {
    PeerComparison c;
    c.band = 0.01 * (Perimeter(a) + Perimeter(b));

    std::vector<RvPolygon2D> result;
    c.combined = ToRavelin(a).Combine(ToRavelin(b), mode, result);
    std::vector<Outline> rings;
    for (const RvPolygon2D& ring : result) {
        rings.push_back(ToOutline(ring));
        if (rings.back().size() < 3) {
            ++c.shortRings;
        }
    }
    c.rings = static_cast<int>(rings.size());

    BgMultiPolygon peer;
    try {
        peer = PeerCombine(a, b, mode);
        c.peerArea = bg::area(peer);
        if (withOverlay) {
            BgMultiPolygon diff;
            bg::sym_difference(EvenOddRegion(rings), peer, diff);
            c.overlayArea = bg::area(diff);
        }
    } catch (const std::exception& e) {
        c.peerFailed = true;
        c.note = e.what();
        return c;
    }
    const std::vector<Outline> peerRings = BoundaryOf(peer);
    c.ravelinArea = EvenOddArea(rings);
    c.symDiffArea = SymmetricDifferenceArea(rings, peerRings);
    c.ravelinError = ErrorArea(a, b, mode, rings);
    c.peerError = ErrorArea(a, b, mode, peerRings);

    double minX = HUGE_VAL;
    double minY = HUGE_VAL;
    double maxX = -HUGE_VAL;
    double maxY = -HUGE_VAL;
    for (const Outline* ring : {&a, &b}) {
        for (const Pt& p : *ring) {
            minX = std::min(minX, p.x);
            minY = std::min(minY, p.y);
            maxX = std::max(maxX, p.x);
            maxY = std::max(maxY, p.y);
        }
    }
    CorpusRandom rng(sampleSeed);
    for (int k = 0; k < sampleCount; ++k) {
        const double x = rng.Uniform(minX - 5.0, maxX + 5.0);
        const double y = rng.Uniform(minY - 5.0, maxY + 5.0);
        const Pt p{x, y};
        bool clear = DistanceToRing(p, a) > 0.1 && DistanceToRing(p, b) > 0.1;
        for (const Outline& ring : rings) {
            clear = clear && DistanceToRing(p, ring) > 0.1;
        }
        for (const Outline& ring : peerRings) {
            clear = clear && DistanceToRing(p, ring) > 0.1;
        }
        if (!clear) {
            continue;
        }
        ++c.samples;
        const bool inPeer = bg::within(BgPoint(x, y), peer);
        const bool inOurs = InsideEvenOdd(p, rings);
        if (inPeer) {
            ++c.samplesInside;
        }
        if (inPeer != inOurs) {
            ++c.mismatches;
            const bool truth = ExpectedMembership(RayParity(p, a) == 1, RayParity(p, b) == 1, mode);
            if (inOurs != truth) {
                ++c.ravelinWrong;
            }
        }
    }
    return c;
}

}  // namespace ravelin::testing_support
