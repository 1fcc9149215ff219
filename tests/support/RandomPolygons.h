#pragma once

// Seeded random polygons for the property tests: rectangles, convex and star-shaped rings and
// pairs of them in general position, with the small planar geometry that checks them.
//
// Every generator draws from a seeded std::mt19937 and turns its raw 32-bit outputs into doubles
// itself, so a seed gives the same polygons with every standard library. Function arguments are
// never two draws at once: their order of evaluation is unspecified.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin::testing_support {

// ---------------------------------------------------------------------------------------------
// Random numbers

/// A seeded source of doubles and indices built from the raw outputs of std::mt19937.
class CorpusRandom {
public:
    explicit CorpusRandom(std::uint32_t seed) : m_engine(seed) {}

    /// A double in [0, 1) with 53 random bits: the high 27 bits of one output, then the high 26
    /// bits of the next.
    double Unit() {
        const std::uint64_t high = static_cast<std::uint64_t>(m_engine()) >> 5;
        const std::uint64_t low = static_cast<std::uint64_t>(m_engine()) >> 6;
        return static_cast<double>(high * 67108864u + low) / 9007199254740992.0;
    }

    /// A double in [lo, hi).
    double Uniform(double lo, double hi) { return lo + (hi - lo) * Unit(); }

    /// An integer in [lo, hi].
    int Between(int lo, int hi) {
        const auto span = static_cast<std::uint32_t>(hi - lo + 1);
        return lo + static_cast<int>(static_cast<std::uint32_t>(m_engine()) % span);
    }

    /// True with probability `p`.
    bool Chance(double p) { return Unit() < p; }

private:
    std::mt19937 m_engine;
};

// ---------------------------------------------------------------------------------------------
// Plain outlines

/// A planar point of an outline.
struct Pt {
    double x;
    double y;
};

/// A ring of points, not closed: the last point differs from the first.
using Outline = std::vector<Pt>;

inline Pt Add(Pt a, Pt b) {
    return {a.x + b.x, a.y + b.y};
}
inline Pt Sub(Pt a, Pt b) {
    return {a.x - b.x, a.y - b.y};
}
inline Pt Scale(Pt a, double f) {
    return {a.x * f, a.y * f};
}
inline double Cross(Pt a, Pt b) {
    return a.x * b.y - a.y * b.x;
}
inline double Dot(Pt a, Pt b) {
    return a.x * b.x + a.y * b.y;
}
inline double Length(Pt a) {
    return std::hypot(a.x, a.y);
}
inline Pt Polar(Pt centre, double radius, double angle) {
    return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
}

/// The distance from `p` to the segment `a`-`b`.
inline double DistanceToSegment(Pt p, Pt a, Pt b) {
    const Pt d = Sub(b, a);
    const double len2 = Dot(d, d);
    double t = len2 > 0.0 ? Dot(Sub(p, a), d) / len2 : 0.0;
    t = std::clamp(t, 0.0, 1.0);
    return Length(Sub(p, Add(a, Scale(d, t))));
}

/// Whether the segments `a0`-`a1` and `b0`-`b1` cross at a single point strictly inside both;
/// `sine` receives the sine of the angle between them.
inline bool SegmentsCross(Pt a0, Pt a1, Pt b0, Pt b1, double& sine) {
    const Pt r = Sub(a1, a0);
    const Pt s = Sub(b1, b0);
    const double den = Cross(r, s);
    sine = std::fabs(den) / (Length(r) * Length(s));
    if (den == 0.0) {
        return false;
    }
    const double t = Cross(Sub(b0, a0), s) / den;
    const double u = Cross(Sub(b0, a0), r) / den;
    return t > 0.0 && t < 1.0 && u > 0.0 && u < 1.0;
}

/// Twice the signed area: positive for a counterclockwise ring.
inline double SignedArea2(const Outline& ring) {
    double sum = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        sum += Cross(ring[i], ring[(i + 1) % ring.size()]);
    }
    return sum;
}

inline double Perimeter(const Outline& ring) {
    double sum = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        sum += Length(Sub(ring[(i + 1) % ring.size()], ring[i]));
    }
    return sum;
}

/// The distance from `p` to the nearest edge of `ring`.
inline double DistanceToRing(Pt p, const Outline& ring) {
    double best = HUGE_VAL;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        best = std::min(best, DistanceToSegment(p, ring[i], ring[(i + 1) % ring.size()]));
    }
    return best;
}

/// The parity of the crossings of a rightward ray from `p` with the edges of `ring`: 1 inside
/// under the even-odd rule. Points on an edge get either answer; callers keep away from edges.
inline int RayParity(Pt p, const Outline& ring) {
    int parity = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Pt a = ring[i];
        const Pt b = ring[(i + 1) % ring.size()];
        if ((a.y > p.y) != (b.y > p.y)) {
            const double x = a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y);
            if (x > p.x) {
                parity ^= 1;
            }
        }
    }
    return parity;
}

/// Membership in the even-odd region of a set of rings.
inline bool InsideEvenOdd(Pt p, const std::vector<Outline>& rings) {
    int parity = 0;
    for (const Outline& ring : rings) {
        parity ^= RayParity(p, ring);
    }
    return parity == 1;
}

/// The same ring, reversed half of the time and started at a random vertex, so that no
/// comparison depends on the orientation or the start of an operand.
inline Outline Reseated(CorpusRandom& rng, Outline ring) {
    if (rng.Chance(0.5)) {
        std::reverse(ring.begin(), ring.end());
    }
    const int start = rng.Between(0, static_cast<int>(ring.size()) - 1);
    std::rotate(ring.begin(), ring.begin() + start, ring.end());
    return ring;
}

/// Whether the ring is fit for the general-position corpus: no two vertices within 1 unit, and
/// no vertex within `minFeature` of an edge that does not end at it, so that every spike, notch
/// and neck is wider than `minFeature`.
inline bool IsWellFormed(const Outline& ring, double minFeature) {
    const std::size_t n = ring.size();
    if (n < 3) {
        return false;
    }
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t k = i + 1; k < n; ++k) {
            if (Length(Sub(ring[i], ring[k])) < 1.0) {
                return false;
            }
        }
        for (std::size_t e = 0; e < n; ++e) {
            const std::size_t f = (e + 1) % n;
            if (e == i || f == i) {
                continue;
            }
            if (DistanceToSegment(ring[i], ring[e], ring[f]) < minFeature) {
                return false;
            }
        }
    }
    return true;
}

/// Whether two rings are in general position to each other: every vertex of one lies at least
/// 1 unit from every edge of the other (so no vertices within 1 unit, no touching and no edges
/// running together), and edges that cross meet at an angle whose sine is at least 0.05.
inline bool InGeneralPosition(const Outline& a, const Outline& b) {
    for (const Pt& p : a) {
        if (DistanceToRing(p, b) < 1.0) {
            return false;
        }
    }
    for (const Pt& p : b) {
        if (DistanceToRing(p, a) < 1.0) {
            return false;
        }
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        for (std::size_t j = 0; j < b.size(); ++j) {
            double sine = 0.0;
            if (SegmentsCross(a[i], a[(i + 1) % a.size()], b[j], b[(j + 1) % b.size()], sine) &&
                sine < 0.05) {
                return false;
            }
        }
    }
    return true;
}

// ---------------------------------------------------------------------------------------------
// Shapes

/// A rectangle about `centre` with sides from 20 to 2 * `maxHalf`, axis-aligned or turned by a
/// random angle.
inline Outline RandomRectangle(CorpusRandom& rng, Pt centre, double maxHalf, bool axisAligned) {
    const double hw = rng.Uniform(10.0, maxHalf);
    const double hh = rng.Uniform(10.0, maxHalf);
    const double angle = axisAligned ? 0.0 : rng.Uniform(0.0, kPi);
    const Pt u{std::cos(angle), std::sin(angle)};
    const Pt v{-u.y, u.x};
    Outline ring;
    ring.push_back(Add(centre, Add(Scale(u, -hw), Scale(v, -hh))));
    ring.push_back(Add(centre, Add(Scale(u, hw), Scale(v, -hh))));
    ring.push_back(Add(centre, Add(Scale(u, hw), Scale(v, hh))));
    ring.push_back(Add(centre, Add(Scale(u, -hw), Scale(v, hh))));
    return ring;
}

/// `n` angles from `start` counterclockwise round the full turn, with gaps drawn in proportion
/// to weights from [0.3, 1), so that no gap is tiny.
inline std::vector<double> RandomAngles(CorpusRandom& rng, int n, double start) {
    std::vector<double> gaps;
    double total = 0.0;
    for (int i = 0; i < n; ++i) {
        gaps.push_back(rng.Uniform(0.3, 1.0));
        total += gaps.back();
    }
    std::vector<double> angles;
    double angle = start;
    for (int i = 0; i < n; ++i) {
        angles.push_back(angle);
        angle += 2.0 * kPi * gaps[static_cast<std::size_t>(i)] / total;
    }
    return angles;
}

/// A convex polygon of 3 to 12 vertices on an ellipse about `centre`, with semi-axes from 40 to
/// `maxRadius`, turned by a random angle.
inline Outline RandomConvex(CorpusRandom& rng, Pt centre, double maxRadius) {
    const int n = rng.Between(3, 12);
    const double rx = rng.Uniform(40.0, maxRadius);
    const double ry = rng.Uniform(40.0, maxRadius);
    const double turn = rng.Uniform(0.0, 2.0 * kPi);
    const double start = rng.Uniform(0.0, 2.0 * kPi);
    const Pt u{std::cos(turn), std::sin(turn)};
    const Pt v{-u.y, u.x};
    Outline ring;
    for (const double a : RandomAngles(rng, n, start)) {
        ring.push_back(Add(centre, Add(Scale(u, rx * std::cos(a)), Scale(v, ry * std::sin(a)))));
    }
    return ring;
}

/// A polygon that is star-shaped about `centre`: `nMin` to `nMax` vertices at increasing angles,
/// each at a radius from `rMin` to `rMax`. Simple by construction.
inline Outline RandomStar(CorpusRandom& rng, Pt centre, double rMin, double rMax, int nMin,
                          int nMax) {
    const int n = rng.Between(nMin, nMax);
    const double start = rng.Uniform(0.0, 2.0 * kPi);
    Outline ring;
    for (const double a : RandomAngles(rng, n, start)) {
        const double r = rng.Uniform(rMin, rMax);
        ring.push_back(Polar(centre, r, a));
    }
    return ring;
}

// ---------------------------------------------------------------------------------------------
// Pairs

/// Two operands and where they came from.
struct OutlinePair {
    Outline a;
    Outline b;
    std::string label;
};

/// A point in [300, 700] squared, so that shapes of radius up to 300 keep within [0, 1000].
inline Pt RandomCentre(CorpusRandom& rng) {
    const double x = rng.Uniform(300.0, 700.0);
    const double y = rng.Uniform(300.0, 700.0);
    return {x, y};
}

/// A point within `reach` of `centre`, uniform over the disc.
inline Pt NearbyCentre(CorpusRandom& rng, Pt centre, double reach) {
    const double r = reach * std::sqrt(rng.Unit());
    const double a = rng.Uniform(0.0, 2.0 * kPi);
    return Polar(centre, r, a);
}

inline std::string Label(const char* family, std::uint32_t seed) {
    std::ostringstream s;
    s << family << " seed " << seed;
    return s.str();
}

/// Draws pairs from `make` until one is well formed and in general position; up to 1000 tries.
/// `make` returns the two rings.
template <class Make>
OutlinePair GeneralPositionPair(const char* family, std::uint32_t seed, Make make) {
    CorpusRandom rng(seed);
    for (int attempt = 0; attempt < 1000; ++attempt) {
        std::pair<Outline, Outline> rings = make(rng);
        if (IsWellFormed(rings.first, 10.0) && IsWellFormed(rings.second, 10.0) &&
            InGeneralPosition(rings.first, rings.second)) {
            return {Reseated(rng, rings.first), Reseated(rng, rings.second), Label(family, seed)};
        }
    }
    return {{}, {}, Label(family, seed)};
}

/// Two rectangles, both axis-aligned for even seeds and both turned for odd ones.
inline OutlinePair RectanglePair(std::uint32_t seed) {
    return GeneralPositionPair("rectangle pair", seed, [seed](CorpusRandom& rng) {
        const bool axisAligned = seed % 2 == 0;
        const Pt ca = RandomCentre(rng);
        Outline a = RandomRectangle(rng, ca, 250.0, axisAligned);
        const Pt cb = NearbyCentre(rng, ca, 350.0);
        Outline b = RandomRectangle(rng, cb, 250.0, axisAligned);
        return std::make_pair(std::move(a), std::move(b));
    });
}

/// Two convex polygons.
inline OutlinePair ConvexPair(std::uint32_t seed) {
    return GeneralPositionPair("convex pair", seed, [](CorpusRandom& rng) {
        const Pt ca = RandomCentre(rng);
        Outline a = RandomConvex(rng, ca, 280.0);
        const Pt cb = NearbyCentre(rng, ca, 350.0);
        Outline b = RandomConvex(rng, cb, 280.0);
        return std::make_pair(std::move(a), std::move(b));
    });
}

/// Two star-shaped polygons of 5 to 14 vertices.
inline OutlinePair StarPair(std::uint32_t seed) {
    return GeneralPositionPair("star pair", seed, [](CorpusRandom& rng) {
        const Pt ca = RandomCentre(rng);
        Outline a = RandomStar(rng, ca, 60.0, 280.0, 5, 14);
        const Pt cb = NearbyCentre(rng, ca, 250.0);
        Outline b = RandomStar(rng, cb, 60.0, 280.0, 5, 14);
        return std::make_pair(std::move(a), std::move(b));
    });
}

// The hard corpus: no general position is asked for.

/// Two stars of 16 to 48 spikes round nearby centres, so that their boundaries cross many times.
inline OutlinePair SpikyStarPair(std::uint32_t seed) {
    CorpusRandom rng(seed);
    const Pt ca = RandomCentre(rng);
    Outline a = RandomStar(rng, ca, 40.0, 290.0, 16, 48);
    const Pt cb = NearbyCentre(rng, ca, 60.0);
    Outline b = RandomStar(rng, cb, 40.0, 290.0, 16, 48);
    return {Reseated(rng, std::move(a)), Reseated(rng, std::move(b)), Label("spiky stars", seed)};
}

/// A ring on the edge `p`-`q`, on the side of `normal` (a unit vector): it shares the stretch of
/// that edge from parameter `s` to `t` (both in [0, 1], `s` < `t`; 0 and 1 take the edge's own
/// vertices exactly) and reaches out by a height `h` with one to three more vertices.
inline Outline RingOnEdge(CorpusRandom& rng, Pt p, Pt q, Pt normal, double s, double t, double h) {
    const Pt d = Sub(q, p);
    const Pt from = s == 0.0 ? p : Add(p, Scale(d, s));
    const Pt to = t == 1.0 ? q : Add(p, Scale(d, t));
    const int extra = rng.Between(1, 3);
    Outline ring{from, to};
    // The outer vertices run back from about `to` to about `from`, their positions along the edge
    // falling all the way, and all of them on the side of `normal`: the ring is simple.
    const double reachOut = rng.Uniform(-0.3, 0.5);
    const double reachBack = rng.Uniform(-0.3, 0.5);
    const double span = t - s;
    for (int k = 0; k < extra; ++k) {
        const double f = extra == 1 ? 0.5 : static_cast<double>(k) / (extra - 1);
        const double along = (t + span * reachOut) * (1.0 - f) + (s - span * reachBack) * f;
        const double height = h * rng.Uniform(0.7, 1.0);
        ring.push_back(Add(Add(p, Scale(d, along)), Scale(normal, height)));
    }
    return ring;
}

/// A polygon `a` (a star, a convex polygon or an axis-aligned rectangle with integer corners)
/// and a polygon `b` that shares all or part of one of its edges, on the outside or the inside,
/// and reaches from 20 to 200 units away from it, or, in one case in five, from 1 to 8 units.
inline OutlinePair SharedEdgePair(std::uint32_t seed) {
    CorpusRandom rng(seed);
    const Pt ca = RandomCentre(rng);
    const int shape = rng.Between(0, 2);
    Outline a;
    if (shape == 0) {
        a = RandomStar(rng, ca, 80.0, 280.0, 5, 12);
    } else if (shape == 1) {
        a = RandomConvex(rng, ca, 280.0);
    } else {
        a = RandomRectangle(rng, {std::round(ca.x), std::round(ca.y)}, 250.0, true);
        for (Pt& p : a) {
            p = {std::round(p.x), std::round(p.y)};
        }
    }
    if (SignedArea2(a) < 0.0) {
        std::reverse(a.begin(), a.end());
    }
    const auto edge = static_cast<std::size_t>(rng.Between(0, static_cast<int>(a.size()) - 1));
    const Pt p = a[edge];
    const Pt q = a[(edge + 1) % a.size()];
    const Pt d = Sub(q, p);
    // `a` runs counterclockwise, so its outside lies to the right of each edge.
    const Pt outward = Scale(Pt{d.y, -d.x}, 1.0 / Length(d));
    const bool outside = rng.Chance(0.6);
    const Pt normal = outside ? outward : Scale(outward, -1.0);
    double s = 0.0;
    double t = 1.0;
    const int stretch = rng.Between(0, 2);
    if (stretch == 1) {
        s = rng.Uniform(0.1, 0.45);
        t = rng.Uniform(0.55, 0.9);
    } else if (stretch == 2) {
        s = rng.Chance(0.5) ? 0.0 : rng.Uniform(0.1, 0.4);
        t = s == 0.0 ? rng.Uniform(0.5, 0.9) : 1.0;
    }
    // One strip in five is thinner than 8 units.
    const double h = rng.Chance(0.2) ? rng.Uniform(1.0, 8.0) : rng.Uniform(20.0, 200.0);
    Outline b = RingOnEdge(rng, p, q, normal, s, t, h);
    if (shape == 2) {
        for (Pt& v : b) {
            v = {std::round(v.x), std::round(v.y)};
        }
    }
    return {Reseated(rng, std::move(a)), Reseated(rng, std::move(b)),
            Label(h < 10.0 ? (outside ? "thin strip on an edge, outside"
                                      : "thin strip on an edge, inside")
                           : (outside ? "shared edge, outside" : "shared edge, inside"),
                  seed)};
}

/// A star `a` and a star `b` with one vertex exactly at a vertex of `a`, or on the interior of
/// one of its edges; `b` lies mostly outside `a`, or reaches across it.
inline OutlinePair TouchingVertexPair(std::uint32_t seed) {
    CorpusRandom rng(seed);
    const Pt ca = RandomCentre(rng);
    Outline a = RandomStar(rng, ca, 80.0, 250.0, 5, 12);
    if (SignedArea2(a) < 0.0) {
        std::reverse(a.begin(), a.end());
    }
    const auto k = static_cast<std::size_t>(rng.Between(0, static_cast<int>(a.size()) - 1));
    const bool atVertex = rng.Chance(0.5);
    Pt touch = a[k];
    if (!atVertex) {
        touch = Add(a[k], Scale(Sub(a[(k + 1) % a.size()], a[k]), rng.Uniform(0.2, 0.8)));
    }
    // `b` is star-shaped about a centre off the touching point: away from `a`'s centre for a
    // mostly outside `b`, towards it for one that reaches across.
    const bool across = rng.Chance(0.3);
    Pt away = Sub(touch, ca);
    away = Scale(away, 1.0 / Length(away));
    const double r0 = rng.Uniform(60.0, 200.0);
    const double turn = rng.Uniform(-0.6, 0.6);
    Pt dir{away.x * std::cos(turn) - away.y * std::sin(turn),
           away.x * std::sin(turn) + away.y * std::cos(turn)};
    if (across) {
        dir = Scale(dir, -1.0);
    }
    const Pt cb = Add(touch, Scale(dir, r0));
    const double start = std::atan2(touch.y - cb.y, touch.x - cb.x);
    const int n = rng.Between(5, 12);
    Outline b;
    for (const double angle : RandomAngles(rng, n, start)) {
        if (b.empty()) {
            b.push_back(touch);
            continue;
        }
        const double r = rng.Uniform(0.4 * r0, 1.4 * r0);
        b.push_back(Polar(cb, r, angle));
    }
    return {Reseated(rng, std::move(a)), Reseated(rng, std::move(b)),
            Label(atVertex ? "touching at a vertex" : "touching on an edge", seed)};
}

// ---------------------------------------------------------------------------------------------
// Conversions

inline RvPolygon2D ToRavelin(const Outline& ring) {
    RvPolygon2D polygon;
    for (const Pt& p : ring) {
        polygon.push_backA(RvPoint2D(p.x, p.y));
    }
    return polygon;
}

/// The planar points of a ring, without consecutive repeats and without a closing repeat.
inline Outline ToOutline(const RvPolygon2D& polygon) {
    Outline ring;
    for (const RvPoint2D& p : polygon) {
        const Pt q{p.x2D, p.y2D};
        if (ring.empty() || q.x != ring.back().x || q.y != ring.back().y) {
            ring.push_back(q);
        }
    }
    while (ring.size() > 1 && ring.front().x == ring.back().x && ring.front().y == ring.back().y) {
        ring.pop_back();
    }
    return ring;
}

}  // namespace ravelin::testing_support
