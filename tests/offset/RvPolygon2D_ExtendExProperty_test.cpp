#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "support/RandomPolygons.h"

// Property tests of the per-edge offsets over seeded random rectangles, rectilinear polygons and
// convex polygons. Every distance stays well below what would make an edge vanish or two parts
// of the ring meet, so the expected result is the mitred offset: each vertex where the moved
// lines of its two edges meet.

namespace ravelin {
namespace {

using testing_support::Add;
using testing_support::CorpusRandom;
using testing_support::Cross;
using testing_support::DistanceToSegment;
using testing_support::Dot;
using testing_support::Length;
using testing_support::Outline;
using testing_support::Pt;
using testing_support::RandomConvex;
using testing_support::RandomRectangle;
using testing_support::Reseated;
using testing_support::Scale;
using testing_support::SignedArea2;
using testing_support::Sub;
using testing_support::ToOutline;
using testing_support::ToRavelin;

// How near a result vertex must come to the vertex worked out here, and a result edge to the
// line at its distance.
constexpr double kTolerance = 1e-6;
// The relative tolerance on areas.
constexpr double kAreaTolerance = 1e-6;
// An edge is done when what it has left to travel is below this.
constexpr double kRemainderTolerance = 1e-4;

// ---- Cases ------------------------------------------------------------------------------------

// A ring and the distance of each of its edges: distances[i] belongs to the edge from vertex
// i - 1 to vertex i, entry 0 to the closing edge.
struct EdgeOffsetCase {
    Outline ring;
    std::vector<double> distances;
    std::string label;
};

// The ring and the distances, in full precision, so that a failing case can be rebuilt.
std::string Describe(const EdgeOffsetCase& c) {
    std::ostringstream s;
    s << std::setprecision(17) << c.label << "\n  ring {";
    for (std::size_t i = 0; i < c.ring.size(); ++i) {
        s << (i == 0 ? "" : ", ") << "{" << c.ring[i].x << ", " << c.ring[i].y << "}";
    }
    s << "}\n  distances {";
    for (std::size_t i = 0; i < c.distances.size(); ++i) {
        s << (i == 0 ? "" : ", ") << c.distances[i];
    }
    s << "}";
    return s.str();
}

std::string Label(const char* family, std::uint32_t seed) {
    return std::string(family) + " seed " + std::to_string(seed);
}

// ---- Planar geometry of the expectations ---------------------------------------------------

std::size_t Prev(std::size_t i, std::size_t n) {
    return (i + n - 1) % n;
}

// The unit direction of the edge that ends at vertex `i`.
Pt EdgeDirection(const Outline& ring, std::size_t i) {
    const Pt e = Sub(ring[i], ring[Prev(i, ring.size())]);
    return Scale(e, 1.0 / Length(e));
}

// The unit outer normal of the edge that ends at vertex `i`: to the right of a counterclockwise
// ring's edges, to the left of a clockwise one's.
Pt OuterNormal(const Outline& ring, std::size_t i) {
    const Pt e = EdgeDirection(ring, i);
    return SignedArea2(ring) > 0.0 ? Pt{e.y, -e.x} : Pt{-e.y, e.x};
}

// The signed distance of `p` from the line of the edge ending at vertex `i`, positive outside.
double SignedDistanceFromEdgeLine(const Outline& ring, std::size_t i, Pt p) {
    return Dot(Sub(p, ring[i]), OuterNormal(ring, i));
}

// The mitred offset: vertex i where the line of the edge ending at i, moved by distances[i],
// meets the line of the edge starting at i, moved by distances[i + 1].
Outline MitredRing(const Outline& ring, const std::vector<double>& distances) {
    const std::size_t n = ring.size();
    Outline mitred;
    for (std::size_t i = 0; i < n; ++i) {
        const std::size_t j = (i + 1) % n;
        const Pt e = EdgeDirection(ring, i);
        const Pt f = EdgeDirection(ring, j);
        const Pt p = Add(ring[i], Scale(OuterNormal(ring, i), distances[i]));
        const Pt q = Add(ring[j], Scale(OuterNormal(ring, j), distances[j]));
        const double t = Cross(Sub(q, p), f) / Cross(e, f);
        mitred.push_back(Add(p, Scale(e, t)));
    }
    return mitred;
}

// The turning angle's sine at vertex `i`: |e x f| for the unit edges into and out of it.
double TurnSine(const Outline& ring, std::size_t i) {
    return std::fabs(Cross(EdgeDirection(ring, i), EdgeDirection(ring, (i + 1) % ring.size())));
}

// The narrowest part of a ring: its shortest edge, or the least distance from a vertex to an
// edge that does not end at it (a neck, a slot or the width of an arm).
double NarrowestPart(const Outline& ring) {
    const std::size_t n = ring.size();
    double best = HUGE_VAL;
    for (std::size_t i = 0; i < n; ++i) {
        best = std::min(best, Length(Sub(ring[i], ring[Prev(i, n)])));
        for (std::size_t e = 0; e < n; ++e) {
            const std::size_t s = Prev(e, n);
            if (e == i || s == i) {
                continue;
            }
            best = std::min(best, DistanceToSegment(ring[i], ring[s], ring[e]));
        }
    }
    return best;
}

// The largest distance by which any one edge of a convex ring may move, whatever its
// neighbours do, with every edge keeping at least four fifths of its length: an end of edge i
// slides along it by at most (|d_i| + |d_neighbour|) / sin(turn) at the vertex it shares with
// that neighbour.
double ConvexPerEdgeBound(const Outline& ring) {
    const std::size_t n = ring.size();
    double best = HUGE_VAL;
    for (std::size_t i = 0; i < n; ++i) {
        const double length = Length(Sub(ring[i], ring[Prev(i, n)]));
        const double rate = 2.0 / TurnSine(ring, Prev(i, n)) + 2.0 / TurnSine(ring, i);
        best = std::min(best, 0.2 * length / rate);
    }
    return best;
}

// How far a convex ring shrinks with every edge at one distance before its first edge vanishes:
// an edge loses tan(turn / 2) of length at each end per unit moved inward.
double ConvexCollapseDistance(const Outline& ring) {
    const std::size_t n = ring.size();
    double best = HUGE_VAL;
    for (std::size_t i = 0; i < n; ++i) {
        const double length = Length(Sub(ring[i], ring[Prev(i, n)]));
        // The turns at the two ends, which may pass a right angle.
        const Pt a = EdgeDirection(ring, Prev(i, n));
        const Pt b = EdgeDirection(ring, i);
        const Pt c = EdgeDirection(ring, (i + 1) % n);
        const double before = std::atan2(std::fabs(Cross(a, b)), Dot(a, b));
        const double after = std::atan2(std::fabs(Cross(b, c)), Dot(b, c));
        best = std::min(best, length / (std::tan(before / 2.0) + std::tan(after / 2.0)));
    }
    return best;
}

Outline Translated(const Outline& ring, Pt by) {
    Outline moved;
    for (const Pt& p : ring) {
        moved.push_back(Add(p, by));
    }
    return moved;
}

// The area of a ring, whatever its orientation.
double Area(const Outline& ring) {
    return std::fabs(SignedArea2(ring)) / 2.0;
}

// The place in a matched `actual` of expected vertex `j`.
std::size_t MatchedPlace(std::size_t start, int step, std::size_t j, std::size_t n) {
    return step > 0 ? (start + j) % n : (start + n - j % n) % n;
}

// Where `actual` runs through the points of `expected`, each within `tol`: the place in
// `actual` of expected[0] and the step (+1 or -1) to the next. False if it does not, or if the
// two rings differ in size.
bool MatchRing(const Outline& actual, const Outline& expected, double tol, std::size_t& start,
               int& step) {
    const std::size_t n = expected.size();
    if (actual.size() != n || n == 0) {
        return false;
    }
    for (std::size_t k = 0; k < n; ++k) {
        for (const int s : {1, -1}) {
            bool all = true;
            for (std::size_t j = 0; j < n && all; ++j) {
                all = Length(Sub(actual[MatchedPlace(k, s, j, n)], expected[j])) <= tol;
            }
            if (all) {
                start = k;
                step = s;
                return true;
            }
        }
    }
    return false;
}

std::string RingText(const Outline& ring) {
    std::ostringstream s;
    s << std::setprecision(12) << "{";
    for (std::size_t i = 0; i < ring.size(); ++i) {
        s << (i == 0 ? "" : ", ") << "{" << ring[i].x << ", " << ring[i].y << "}";
    }
    s << "}";
    return s.str();
}

// ---- Generators -----------------------------------------------------------------------------

// A rectilinear polygon: the outline of 3 to 16 cells of a 7 x 7 grid, joined edge to edge,
// without holes and without two cells that touch only at a corner, so that the outline is one
// simple ring. Columns and rows have widths of their own from 12 to 60, and the ring is turned
// by a random angle half of the time. Counterclockwise; empty if the outline has fewer than 6
// vertices.
Outline RandomOrthogonal(CorpusRandom& rng) {
    constexpr int kGrid = 7;
    // Cells of a grid padded by one empty cell all round.
    constexpr int kPadded = kGrid + 2;
    std::array<std::array<bool, kPadded>, kPadded> filled{};
    const auto at = [&filled](int c, int r) -> bool& {
        return filled[static_cast<std::size_t>(c)][static_cast<std::size_t>(r)];
    };
    // Whether two cells of a 2 x 2 block meet only at a corner.
    const auto pinched = [&at]() {
        for (int c = 0; c + 1 < kPadded; ++c) {
            for (int r = 0; r + 1 < kPadded; ++r) {
                const bool a = at(c, r);
                const bool b = at(c + 1, r);
                const bool d = at(c, r + 1);
                const bool e = at(c + 1, r + 1);
                if ((a && e && !b && !d) || (b && d && !a && !e)) {
                    return true;
                }
            }
        }
        return false;
    };
    // Whether some empty cell cannot be reached from the padding.
    const auto holed = [&at]() {
        std::array<std::array<bool, kPadded>, kPadded> seen{};
        std::vector<std::pair<int, int>> stack{{0, 0}};
        seen[0][0] = true;
        while (!stack.empty()) {
            const auto [c, r] = stack.back();
            stack.pop_back();
            const std::array<std::pair<int, int>, 4> steps{{{1, 0}, {-1, 0}, {0, 1}, {0, -1}}};
            for (const auto& [dc, dr] : steps) {
                const int nc = c + dc;
                const int nr = r + dr;
                if (nc < 0 || nr < 0 || nc >= kPadded || nr >= kPadded) {
                    continue;
                }
                auto& mark = seen[static_cast<std::size_t>(nc)][static_cast<std::size_t>(nr)];
                if (!mark && !at(nc, nr)) {
                    mark = true;
                    stack.emplace_back(nc, nr);
                }
            }
        }
        for (int c = 0; c < kPadded; ++c) {
            for (int r = 0; r < kPadded; ++r) {
                if (!at(c, r) && !seen[static_cast<std::size_t>(c)][static_cast<std::size_t>(r)]) {
                    return true;
                }
            }
        }
        return false;
    };

    std::vector<std::pair<int, int>> cells{{kPadded / 2, kPadded / 2}};
    at(kPadded / 2, kPadded / 2) = true;
    const int target = rng.Between(3, 16);
    for (int attempt = 0; attempt < 400 && static_cast<int>(cells.size()) < target; ++attempt) {
        const auto from =
            cells[static_cast<std::size_t>(rng.Between(0, static_cast<int>(cells.size()) - 1))];
        const int dir = rng.Between(0, 3);
        const int c = from.first + (dir == 0 ? 1 : dir == 1 ? -1 : 0);
        const int r = from.second + (dir == 2 ? 1 : dir == 3 ? -1 : 0);
        if (c < 1 || r < 1 || c > kGrid || r > kGrid || at(c, r)) {
            continue;
        }
        at(c, r) = true;
        if (pinched() || holed()) {
            at(c, r) = false;
            continue;
        }
        cells.emplace_back(c, r);
    }

    // Grid line positions.
    std::array<double, kPadded + 1> xs{};
    std::array<double, kPadded + 1> ys{};
    for (std::size_t k = 1; k <= kPadded; ++k) {
        const double w = rng.Uniform(12.0, 60.0);
        xs[k] = xs[k - 1] + w;
    }
    for (std::size_t k = 1; k <= kPadded; ++k) {
        const double h = rng.Uniform(12.0, 60.0);
        ys[k] = ys[k - 1] + h;
    }

    // The boundary edges of the cells, counterclockwise round each cell, where the cell across
    // is empty; with neither holes nor pinches each grid point starts at most one of them.
    std::vector<std::pair<int, int>> next(static_cast<std::size_t>((kPadded + 1) * (kPadded + 1)),
                                          {-1, -1});
    const auto key = [](int c, int r) { return static_cast<std::size_t>(c * (kPadded + 1) + r); };
    std::pair<int, int> first{-1, -1};
    for (const auto& [c, r] : cells) {
        if (!at(c, r - 1)) {
            next[key(c, r)] = {c + 1, r};
            first = {c, r};
        }
        if (!at(c + 1, r)) {
            next[key(c + 1, r)] = {c + 1, r + 1};
        }
        if (!at(c, r + 1)) {
            next[key(c + 1, r + 1)] = {c, r + 1};
        }
        if (!at(c - 1, r)) {
            next[key(c, r + 1)] = {c, r};
        }
    }
    std::vector<std::pair<int, int>> corners;
    std::pair<int, int> p = first;
    do {
        corners.push_back(p);
        p = next[key(p.first, p.second)];
    } while (p != first && corners.size() < 400);

    // Only the corners where the outline turns.
    Outline ring;
    const std::size_t m = corners.size();
    for (std::size_t i = 0; i < m; ++i) {
        const auto& a = corners[Prev(i, m)];
        const auto& b = corners[i];
        const auto& c = corners[(i + 1) % m];
        const bool straight = (a.first == b.first && b.first == c.first) ||
                              (a.second == b.second && b.second == c.second);
        if (!straight) {
            ring.push_back({xs[static_cast<std::size_t>(b.first)] + 100.0,
                            ys[static_cast<std::size_t>(b.second)] + 100.0});
        }
    }
    if (ring.size() < 6) {
        return {};
    }
    if (rng.Chance(0.5)) {
        const double angle = rng.Uniform(0.0, 2.0 * kPi);
        const Pt centre{400.0, 400.0};
        for (Pt& q : ring) {
            const Pt v = Sub(q, centre);
            q = Add(centre, Pt{v.x * std::cos(angle) - v.y * std::sin(angle),
                               v.x * std::sin(angle) + v.y * std::cos(angle)});
        }
    }
    return ring;
}

// A distance for each edge, from -`bound` to `bound`; one edge in eight stays where it is.
std::vector<double> RandomDistances(CorpusRandom& rng, std::size_t n, double bound) {
    std::vector<double> distances;
    for (std::size_t i = 0; i < n; ++i) {
        if (rng.Chance(0.125)) {
            distances.push_back(0.0);
        } else {
            distances.push_back(rng.Uniform(-bound, bound));
        }
    }
    return distances;
}

// A rectangle, axis-aligned for even seeds and turned for odd ones, in either orientation and
// from any vertex, with each edge moved by up to a quarter of the shorter side.
EdgeOffsetCase RectangleCase(std::uint32_t seed) {
    CorpusRandom rng(seed);
    const double cx = rng.Uniform(200.0, 800.0);
    const double cy = rng.Uniform(200.0, 800.0);
    Outline ring = Reseated(rng, RandomRectangle(rng, {cx, cy}, 150.0, seed % 2 == 0));
    std::vector<double> distances = RandomDistances(rng, ring.size(), 0.25 * NarrowestPart(ring));
    return {std::move(ring), std::move(distances), Label("rectangle", seed)};
}

// A rectilinear polygon of 6 vertices or more, in either orientation and from any vertex, with
// each edge moved by up to a quarter of its narrowest part.
EdgeOffsetCase OrthogonalCase(std::uint32_t seed) {
    CorpusRandom rng(seed);
    Outline ring;
    while (ring.empty()) {
        ring = RandomOrthogonal(rng);
    }
    ring = Reseated(rng, std::move(ring));
    std::vector<double> distances = RandomDistances(rng, ring.size(), 0.25 * NarrowestPart(ring));
    return {std::move(ring), std::move(distances), Label("rectilinear", seed)};
}

// A convex polygon, in either orientation and from any vertex, with each edge moved by a
// distance of its own small enough that every edge keeps most of its length.
EdgeOffsetCase ConvexCase(std::uint32_t seed) {
    CorpusRandom rng(seed);
    const double cx = rng.Uniform(300.0, 700.0);
    const double cy = rng.Uniform(300.0, 700.0);
    Outline ring = Reseated(rng, RandomConvex(rng, {cx, cy}, 250.0));
    std::vector<double> distances = RandomDistances(rng, ring.size(), ConvexPerEdgeBound(ring));
    return {std::move(ring), std::move(distances), Label("convex", seed)};
}

// ---- Running the offsets ------------------------------------------------------------------------

enum class Method { kEx, kEx2 };

const char* Name(Method m) {
    return m == Method::kEx ? "GetExtendEx" : "GetExtendEx2";
}

// The per-edge offset of `ring` by `method`, into a fresh vector; `distances` ends with the
// remainders.
std::vector<RvPolygon2D> ExtendEx(const Outline& ring, std::vector<double>& distances,
                                  Method method) {
    RvPolygon2D polygon = ToRavelin(ring);
    std::vector<RvPolygon2D> result;
    if (method == Method::kEx) {
        polygon.GetExtendEx(distances, result);
    } else {
        polygon.GetExtendEx2(distances, result);
    }
    return result;
}

// Checks one case against the mitred offset: one polygon, each edge on the line of its input
// edge moved by its own distance, the area of the mitred ring, the orientation of the input and
// nothing left to travel. True when every check passed.
bool ExpectMitredOffset(const EdgeOffsetCase& c, Method method) {
    SCOPED_TRACE(Name(method));
    const std::size_t n = c.ring.size();
    std::vector<double> distances = c.distances;
    const std::vector<RvPolygon2D> result = ExtendEx(c.ring, distances, method);
    const Outline expected = MitredRing(c.ring, c.distances);
    bool ok = true;
    const auto check = [&ok](bool passed) {
        ok = ok && passed;
        return passed;
    };

    for (std::size_t i = 0; i < n; ++i) {
        EXPECT_TRUE(check(std::fabs(distances[i]) < kRemainderTolerance))
            << "edge " << i << " has " << distances[i] << " left";
    }
    if (!check(result.size() == 1)) {
        ADD_FAILURE() << result.size() << " polygons came back";
        return false;
    }
    const Outline actual = ToOutline(result[0]);
    std::size_t start = 0;
    int step = 0;
    if (!check(MatchRing(actual, expected, kTolerance, start, step))) {
        ADD_FAILURE() << "the result " << RingText(actual) << "\n is not the mitred ring "
                      << RingText(expected);
        return false;
    }
    // The result edge from the place of expected vertex i - 1 to that of vertex i stands for
    // input edge i: both its ends lie at distances[i] from that edge's line.
    for (std::size_t i = 0; i < n; ++i) {
        const Pt& from = actual[MatchedPlace(start, step, Prev(i, n), n)];
        const Pt& to = actual[MatchedPlace(start, step, i, n)];
        EXPECT_TRUE(check(std::fabs(SignedDistanceFromEdgeLine(c.ring, i, from) - c.distances[i]) <=
                          kTolerance))
            << "edge " << i << " starts at " << SignedDistanceFromEdgeLine(c.ring, i, from);
        EXPECT_TRUE(check(std::fabs(SignedDistanceFromEdgeLine(c.ring, i, to) - c.distances[i]) <=
                          kTolerance))
            << "edge " << i << " ends at " << SignedDistanceFromEdgeLine(c.ring, i, to);
    }
    EXPECT_TRUE(check(std::fabs(Area(actual) - Area(expected)) <= kAreaTolerance * Area(expected)))
        << Area(actual) << " against " << Area(expected);
    // The pieces kept turn the way the polygon turns.
    EXPECT_TRUE(check(SignedArea2(actual) * SignedArea2(c.ring) > 0.0));
    return ok;
}

// How many cases of each property are drawn, and how many must really have been checked.
constexpr std::uint32_t kCases = 250;

// ---- Per-edge distances: the mitred offset --------------------------------------------------

TEST(RvPolygon2DExtendExProperty, RectanglesMoveEachEdgeToItsOwnDistance) {
    int checked = 0;
    for (std::uint32_t seed = 1; seed <= kCases; ++seed) {
        const EdgeOffsetCase c = RectangleCase(seed);
        SCOPED_TRACE(Describe(c));
        ASSERT_EQ(c.ring.size(), 4u);
        const bool ex = ExpectMitredOffset(c, Method::kEx);
        const bool ex2 = ExpectMitredOffset(c, Method::kEx2);
        checked += ex && ex2 ? 1 : 0;
    }
    EXPECT_EQ(checked, static_cast<int>(kCases));
}

TEST(RvPolygon2DExtendExProperty, RectilinearPolygonsMoveEachEdgeToItsOwnDistance) {
    int checked = 0;
    std::size_t largest = 0;
    int clockwise = 0;
    for (std::uint32_t seed = 1001; seed < 1001 + 2 * kCases; ++seed) {
        const EdgeOffsetCase c = OrthogonalCase(seed);
        SCOPED_TRACE(Describe(c));
        ASSERT_GE(c.ring.size(), 6u);
        largest = std::max(largest, c.ring.size());
        clockwise += SignedArea2(c.ring) < 0.0 ? 1 : 0;
        const bool ex = ExpectMitredOffset(c, Method::kEx);
        const bool ex2 = ExpectMitredOffset(c, Method::kEx2);
        checked += ex && ex2 ? 1 : 0;
    }
    EXPECT_EQ(checked, static_cast<int>(2 * kCases));
    // The corpus reaches well past a handful of corners, in both orientations.
    EXPECT_GE(largest, 20u);
    EXPECT_GE(clockwise, static_cast<int>(kCases / 2));
    EXPECT_LE(clockwise, static_cast<int>(2 * kCases - kCases / 2));
}

TEST(RvPolygon2DExtendExProperty, ConvexPolygonsMoveEachEdgeToItsOwnDistance) {
    int checked = 0;
    for (std::uint32_t seed = 2001; seed < 2001 + kCases; ++seed) {
        const EdgeOffsetCase c = ConvexCase(seed);
        SCOPED_TRACE(Describe(c));
        const bool ex = ExpectMitredOffset(c, Method::kEx);
        const bool ex2 = ExpectMitredOffset(c, Method::kEx2);
        checked += ex && ex2 ? 1 : 0;
    }
    EXPECT_EQ(checked, static_cast<int>(kCases));
}

// The oracle itself: the mitred ring of a hand-made L, worked out on paper.
TEST(RvPolygon2DExtendExProperty, MitredRingOfAnLMeetsTheMovedLines) {
    // Counterclockwise L; edge i ends at vertex i. Edge 0 (x = 0, from (0, 20) down to (0, 0))
    // moves out by 1 to x = -1; edge 1 (y = 0) by 2 to y = -2; edge 2 (x = 20) by 0; edge 3
    // (y = 10) in by 1 to y = 9; edge 4 (x = 10) by 3 to x = 13; edge 5 (y = 20) by 0.5 to
    // y = 20.5.
    const Outline ring{{0, 0}, {20, 0}, {20, 10}, {10, 10}, {10, 20}, {0, 20}};
    const Outline mitred = MitredRing(ring, {1.0, 2.0, 0.0, -1.0, 3.0, 0.5});
    const Outline expected{{-1, -2}, {20, -2}, {20, 9}, {13, 9}, {13, 20.5}, {-1, 20.5}};
    ASSERT_EQ(mitred.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(mitred[i].x, expected[i].x, 1e-12) << "vertex " << i;
        EXPECT_NEAR(mitred[i].y, expected[i].y, 1e-12) << "vertex " << i;
    }
    EXPECT_NEAR(NarrowestPart(ring), 10.0, 1e-12);
}

TEST(RvPolygon2DExtendExProperty, RectilinearGeneratorGivesSimpleRingsOfRightAngles) {
    int checked = 0;
    for (std::uint32_t seed = 1001; seed < 1001 + 2 * kCases; ++seed) {
        const EdgeOffsetCase c = OrthogonalCase(seed);
        SCOPED_TRACE(c.label);
        const std::size_t n = c.ring.size();
        ASSERT_GE(n, 6u);
        EXPECT_LE(n, 40u);
        // Every corner is a right angle, and a rectilinear ring turns four more times one way
        // than the other.
        int left = 0;
        for (std::size_t i = 0; i < n; ++i) {
            const Pt e = EdgeDirection(c.ring, i);
            const Pt f = EdgeDirection(c.ring, (i + 1) % n);
            EXPECT_NEAR(Dot(e, f), 0.0, 1e-9);
            left += Cross(e, f) > 0.0 ? 1 : -1;
        }
        EXPECT_EQ(std::abs(left), 4);
        EXPECT_GE(NarrowestPart(c.ring), 12.0 - 1e-9);
        ++checked;
    }
    EXPECT_EQ(checked, static_cast<int>(2 * kCases));
}

// ---- Equal distances: agreement with the constant offset ------------------------------------

// The least distance by which a ring's edges may move, all by the same amount, one at a time,
// before one of them is squeezed to nothing by its neighbours: a neighbour moved by d slides
// the end it shares with edge i along it by d / sin(turn), and edge i has length L_i.
double SqueezeDistance(const Outline& ring) {
    const std::size_t n = ring.size();
    double best = HUGE_VAL;
    for (std::size_t i = 0; i < n; ++i) {
        const double length = Length(Sub(ring[i], ring[Prev(i, n)]));
        const double rate = 1.0 / TurnSine(ring, Prev(i, n)) + 1.0 / TurnSine(ring, i);
        best = std::min(best, length / rate);
    }
    return best;
}

// A convex polygon with every edge at one distance: outward by up to 80, or inward by up to a
// fifth of the distance at which its first edge would vanish. `shallow` when the distance is
// outward, or inward by at most half its squeeze distance.
struct ConvexEqualCase {
    Outline ring;
    double distance;
    bool shallow;
    std::string label;
};

ConvexEqualCase ConvexEqual(std::uint32_t seed) {
    CorpusRandom rng(seed);
    const double cx = rng.Uniform(300.0, 700.0);
    const double cy = rng.Uniform(300.0, 700.0);
    Outline ring = Reseated(rng, RandomConvex(rng, {cx, cy}, 250.0));
    const double collapse = ConvexCollapseDistance(ring);
    const double squeeze = SqueezeDistance(ring);
    const int size = rng.Between(0, 3);
    double distance = 0.0;
    if (size == 0) {
        distance = rng.Uniform(0.5, 5.0);
    } else if (size == 1) {
        distance = rng.Uniform(5.0, 80.0);
    } else if (size == 2) {
        distance = -rng.Uniform(0.05, 1.0) * std::min(0.2 * collapse, 0.5 * squeeze);
    } else {
        distance = -rng.Uniform(0.02, 0.2) * collapse;
    }
    const bool shallow = distance > 0.0 || -distance <= 0.5 * squeeze;
    std::ostringstream s;
    s << std::setprecision(17) << Label("convex, one distance", seed) << "\n  ring "
      << RingText(ring) << "\n  distance " << distance;
    return {std::move(ring), distance, shallow, s.str()};
}

// Checks `method` with every edge at the case's distance against the constant offset of the
// same polygon: one polygon, the same ring within 0.01, the same area, nothing left to travel.
// True when every check passed.
bool ExpectConstantOffset(const ConvexEqualCase& c, Method method) {
    SCOPED_TRACE(Name(method));
    RvPolygon2D polygon = ToRavelin(c.ring);
    std::vector<RvPolygon2D> constant;
    polygon.GetExtend(c.distance, constant);
    if (constant.size() != 1) {
        ADD_FAILURE() << "the constant offset gave " << constant.size() << " polygons";
        return false;
    }
    const double area = Area(ToOutline(constant[0]));
    // The constant offset of a convex polygon is its mitred ring.
    const double mitred = Area(MitredRing(c.ring, std::vector<double>(c.ring.size(), c.distance)));
    EXPECT_NEAR(area, mitred, kAreaTolerance * mitred);
    std::vector<double> distances(c.ring.size(), c.distance);
    const std::vector<RvPolygon2D> result = ExtendEx(c.ring, distances, method);
    bool passed = result.size() == 1 && result[0] == constant[0] &&
                  std::fabs(Area(ToOutline(result[0])) - area) <= kAreaTolerance * area;
    EXPECT_TRUE(passed) << result.size() << " polygons; first "
                        << (result.empty() ? std::string("none") : RingText(ToOutline(result[0])))
                        << "\n the constant offset " << RingText(ToOutline(constant[0]));
    for (std::size_t i = 0; i < distances.size(); ++i) {
        EXPECT_LT(std::fabs(distances[i]), kRemainderTolerance) << "edge " << i;
        passed = passed && std::fabs(distances[i]) < kRemainderTolerance;
    }
    return passed;
}

TEST(RvPolygon2DExtendExProperty, ConvexPolygonsAtOneDistanceAgreeWithTheConstantOffset) {
    int checked = 0;
    int inward = 0;
    for (std::uint32_t seed = 3001; seed < 3001 + 2 * kCases; ++seed) {
        const ConvexEqualCase c = ConvexEqual(seed);
        SCOPED_TRACE(c.label);
        inward += c.distance < 0.0 ? 1 : 0;
        checked += ExpectConstantOffset(c, Method::kEx) ? 1 : 0;
    }
    EXPECT_EQ(checked, static_cast<int>(2 * kCases));
    EXPECT_GE(inward, static_cast<int>(kCases / 2));
    EXPECT_LE(inward, static_cast<int>(2 * kCases - kCases / 2));
}

// The edges move one at a time, so a shrinking past the squeeze distance can squeeze an edge to
// nothing before its own turn comes. GetExtendEx moves its last pass without limits and still
// gets there; GetExtendEx2 limits every pass, and such an edge can be held short of its
// distance. The inward cases here stay within half the squeeze distance.
TEST(RvPolygon2DExtendExProperty, ConvexPolygonsAtOneShallowDistanceAgreeWithTheConstantOffset2) {
    int checked = 0;
    int inward = 0;
    for (std::uint32_t seed = 3001; seed < 3001 + 2 * kCases; ++seed) {
        const ConvexEqualCase c = ConvexEqual(seed);
        if (!c.shallow) {
            continue;
        }
        SCOPED_TRACE(c.label);
        inward += c.distance < 0.0 ? 1 : 0;
        checked += ExpectConstantOffset(c, Method::kEx2) ? 1 : 0;
    }
    EXPECT_GE(checked, static_cast<int>(kCases + kCases / 4));
    EXPECT_GE(inward, static_cast<int>(kCases / 4));
}

TEST(RvPolygon2DExtendExProperty, OneDistanceForEveryEdgeGivesTheSameAsTheVectorOfIt) {
    int checked = 0;
    for (std::uint32_t seed = 3001; seed < 3001 + kCases; ++seed) {
        const ConvexEqualCase c = ConvexEqual(seed);
        SCOPED_TRACE(c.label);
        for (const int useEx2 : {0, 1}) {
            SCOPED_TRACE(useEx2 == 0 ? "GetExtendEx" : "GetExtendEx2");
            RvPolygon2D polygon = ToRavelin(c.ring);
            std::vector<RvPolygon2D> fromOne;
            polygon.GetExtendEx(c.distance, fromOne, useEx2);
            std::vector<double> distances(c.ring.size(), c.distance);
            const std::vector<RvPolygon2D> fromVector =
                ExtendEx(c.ring, distances, useEx2 == 0 ? Method::kEx : Method::kEx2);
            ASSERT_EQ(fromOne.size(), 1u);
            ASSERT_EQ(fromVector.size(), 1u);
            EXPECT_TRUE(fromOne[0] == fromVector[0]);
            const double area = Area(ToOutline(fromVector[0]));
            EXPECT_NEAR(Area(ToOutline(fromOne[0])), area, kAreaTolerance * area);
        }
        ++checked;
    }
    EXPECT_EQ(checked, static_cast<int>(kCases));
}

// ---- Metamorphic checks ----------------------------------------------------------------------

// How many cases of each family the metamorphic checks draw.
constexpr std::uint32_t kPerFamily = 80;

// The cases of all three families.
std::vector<EdgeOffsetCase> MixedCases(std::uint32_t base, std::uint32_t perFamily) {
    std::vector<EdgeOffsetCase> cases;
    for (std::uint32_t k = 0; k < perFamily; ++k) {
        cases.push_back(RectangleCase(base + k));
        cases.push_back(OrthogonalCase(base + 10000 + k));
        cases.push_back(ConvexCase(base + 20000 + k));
    }
    return cases;
}

// The one polygon that `method` gives for `ring` and `distances`, as an outline; empty, with a
// failure recorded, if it gives another number of them.
Outline OnePiece(const Outline& ring, std::vector<double> distances, Method method) {
    const std::vector<RvPolygon2D> result = ExtendEx(ring, distances, method);
    if (result.size() != 1) {
        ADD_FAILURE() << result.size() << " polygons came back";
        return {};
    }
    return ToOutline(result[0]);
}

TEST(RvPolygon2DExtendExProperty, TranslatingTheInputTranslatesTheResult) {
    int checked = 0;
    CorpusRandom shifts(4242);
    for (const EdgeOffsetCase& c : MixedCases(5001, kPerFamily)) {
        SCOPED_TRACE(Describe(c));
        const double sx = shifts.Uniform(-400.0, 400.0);
        const double sy = shifts.Uniform(-400.0, 400.0);
        const Pt by{sx, sy};
        SCOPED_TRACE("moved by (" + std::to_string(sx) + ", " + std::to_string(sy) + ")");
        bool ok = true;
        for (const Method method : {Method::kEx, Method::kEx2}) {
            SCOPED_TRACE(Name(method));
            const Outline here = OnePiece(c.ring, c.distances, method);
            const Outline there = OnePiece(Translated(c.ring, by), c.distances, method);
            if (here.empty() || there.empty()) {
                ok = false;
                continue;
            }
            const Outline expected = Translated(here, by);
            std::size_t start = 0;
            int step = 0;
            const bool matched = MatchRing(there, expected, kTolerance, start, step);
            EXPECT_TRUE(matched) << RingText(there) << "\n against " << RingText(expected);
            EXPECT_TRUE(ToRavelin(there) == ToRavelin(expected));
            EXPECT_NEAR(Area(there), Area(here), kAreaTolerance * Area(here));
            ok = ok && matched;
        }
        checked += ok ? 1 : 0;
    }
    EXPECT_EQ(checked, static_cast<int>(3 * kPerFamily));
}

TEST(RvPolygon2DExtendExProperty, ReversingTheRingWithItsDistancesGivesTheSameRegion) {
    int checked = 0;
    for (const EdgeOffsetCase& c : MixedCases(6001, kPerFamily)) {
        SCOPED_TRACE(Describe(c));
        const std::size_t n = c.ring.size();
        // Reversed, vertex j is vertex n - 1 - j, and the edge ending at it comes from vertex
        // n - j: it is the input edge that ends at vertex (n - j) mod n.
        Outline reversed(c.ring.rbegin(), c.ring.rend());
        std::vector<double> reversedDistances;
        for (std::size_t j = 0; j < n; ++j) {
            reversedDistances.push_back(c.distances[(n - j) % n]);
        }
        bool ok = true;
        for (const Method method : {Method::kEx, Method::kEx2}) {
            SCOPED_TRACE(Name(method));
            const Outline forward = OnePiece(c.ring, c.distances, method);
            const Outline backward = OnePiece(reversed, reversedDistances, method);
            if (forward.empty() || backward.empty()) {
                ok = false;
                continue;
            }
            std::size_t start = 0;
            int step = 0;
            const bool matched = MatchRing(backward, forward, kTolerance, start, step);
            EXPECT_TRUE(matched) << RingText(backward) << "\n against " << RingText(forward);
            // Each runs the way its input ran.
            EXPECT_EQ(step, -1);
            // The same ring, compared running the same way round.
            const Outline turned(backward.rbegin(), backward.rend());
            EXPECT_TRUE(ToRavelin(turned) == ToRavelin(forward));
            EXPECT_NEAR(Area(backward), Area(forward), kAreaTolerance * Area(forward));
            ok = ok && matched;
        }
        checked += ok ? 1 : 0;
    }
    EXPECT_EQ(checked, static_cast<int>(3 * kPerFamily));
}

TEST(RvPolygon2DExtendExProperty, StartingAtAnotherVertexGivesTheSameRegion) {
    int checked = 0;
    CorpusRandom starts(777);
    for (const EdgeOffsetCase& c : MixedCases(7001, kPerFamily)) {
        SCOPED_TRACE(Describe(c));
        const std::size_t n = c.ring.size();
        const auto shift = static_cast<std::size_t>(starts.Between(1, static_cast<int>(n) - 1));
        SCOPED_TRACE("started at vertex " + std::to_string(shift));
        // The ring started at vertex `shift`, each edge keeping its distance.
        Outline rotated;
        std::vector<double> rotatedDistances;
        for (std::size_t j = 0; j < n; ++j) {
            rotated.push_back(c.ring[(j + shift) % n]);
            rotatedDistances.push_back(c.distances[(j + shift) % n]);
        }
        bool ok = true;
        for (const Method method : {Method::kEx, Method::kEx2}) {
            SCOPED_TRACE(Name(method));
            const Outline first = OnePiece(c.ring, c.distances, method);
            const Outline second = OnePiece(rotated, rotatedDistances, method);
            if (first.empty() || second.empty()) {
                ok = false;
                continue;
            }
            std::size_t start = 0;
            int step = 0;
            const bool matched = MatchRing(second, first, kTolerance, start, step);
            EXPECT_TRUE(matched) << RingText(second) << "\n against " << RingText(first);
            EXPECT_EQ(step, 1);
            EXPECT_NEAR(Area(second), Area(first), kAreaTolerance * Area(first));
            ok = ok && matched;
        }
        checked += ok ? 1 : 0;
    }
    EXPECT_EQ(checked, static_cast<int>(3 * kPerFamily));
}

}  // namespace
}  // namespace ravelin
