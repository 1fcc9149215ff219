#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <numbers>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "support/RavelinTesting.h"

namespace ravelin {
namespace {

using testing_support::ExpectThrowWithMessage;
using testing_support::Path;
using testing_support::Ring;
using testing_support::SameVertices;
using testing_support::VertexAt;

// ---- Helpers ----------------------------------------------------------------------------------

// Whether vertex `p` lies within `tol` of `v`, in space and on the planar pair.
bool Near(const RvPoint2D& p, const VertexAt& v, double tol) {
    return std::fabs(p.x - v.x) <= tol && std::fabs(p.y - v.y) <= tol &&
           std::fabs(p.z - v.z) <= tol && std::fabs(p.x2D - v.x) <= tol &&
           std::fabs(p.y2D - v.y) <= tol;
}

// Whether `p` is the ring `expected`, run the same way, starting at any of its vertices.
testing::AssertionResult RingIs(const RvPolygon2D& p, const std::vector<VertexAt>& expected,
                                double tol = 1e-9) {
    const std::size_t n = expected.size();
    if (p.size() != n) {
        return testing::AssertionFailure() << p.size() << " vertices against " << n;
    }
    for (std::size_t start = 0; start < n; ++start) {
        bool all = true;
        for (std::size_t k = 0; k < n && all; ++k) {
            all = Near(p[(start + k) % n], expected[k], tol);
        }
        if (all) {
            return testing::AssertionSuccess();
        }
    }
    testing::AssertionResult failure = testing::AssertionFailure();
    failure << "the ring is";
    for (std::size_t k = 0; k < p.size(); ++k) {
        failure << " (" << p[k].x << ", " << p[k].y << ", " << p[k].z << ")";
    }
    return failure;
}

// Whether every entry of `distances` has come down to 0.
testing::AssertionResult AllZero(const std::vector<double>& distances) {
    for (std::size_t i = 0; i < distances.size(); ++i) {
        if (std::fabs(distances[i]) > 1e-9) {
            return testing::AssertionFailure() << "entry " << i << " is " << distances[i];
        }
    }
    return testing::AssertionSuccess();
}

// The two per-edge entry points, so that a case can be run through both.
using PerEdge = void (RvPolygon2D::*)(std::vector<double>&, std::vector<RvPolygon2D>&);
struct Variant {
    const char* name;
    PerEdge call;
};
const Variant kVariants[] = {{"GetExtendEx", &RvPolygon2D::GetExtendEx},
                             {"GetExtendEx2", &RvPolygon2D::GetExtendEx2}};

// The pieces that `call` appends for `p` with `distances` (changed in place).
std::vector<RvPolygon2D> Extend(const Variant& variant, RvPolygon2D p,
                                std::vector<double>& distances) {
    std::vector<RvPolygon2D> result;
    (p.*variant.call)(distances, result);
    return result;
}

RvPolygon2D Square() {
    return Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

// The L: a 10 by 10 square less its top right 6 by 6 corner; the corner (4, 4) is reflex.
RvPolygon2D LShape() {
    return Ring({{0, 0}, {10, 0}, {10, 4}, {4, 4}, {4, 10}, {0, 10}});
}

// The U: arms 4 wide either side of a slot 2 wide and 8 deep, on a base 2 high.
RvPolygon2D UShape() {
    return Ring({{0, 0}, {10, 0}, {10, 10}, {6, 10}, {6, 2}, {4, 2}, {4, 10}, {0, 10}});
}

// ---- Equal distances: the constant offset ------------------------------------------------------

// Convex rings on which every edge moved by one small distance gives the mitred offset that
// GetExtend computes too.
std::vector<std::pair<std::string, RvPolygon2D>> ConvexRings() {
    std::vector<std::pair<std::string, RvPolygon2D>> rings;
    rings.emplace_back("square", Square());
    rings.emplace_back("triangle", Ring({{0, 0}, {10, 0}, {0, 10}}));
    RvPolygon2D hexagon;
    for (int k = 0; k < 6; ++k) {
        const double a = k * std::numbers::pi / 3.0;
        hexagon.push_backA(RvPoint2D(10.0 * std::cos(a), 10.0 * std::sin(a)));
    }
    rings.emplace_back("hexagon", hexagon);
    rings.emplace_back("clockwise square", Ring({{0, 0}, {0, 10}, {10, 10}, {10, 0}}));
    rings.emplace_back("square at z = 5", Ring({RvPoint2D(0, 0, 5), RvPoint2D(10, 0, 5),
                                                RvPoint2D(10, 10, 5), RvPoint2D(0, 10, 5)}));
    return rings;
}

void ExpectEqualDistancesMatchGetExtend(const Variant& variant) {
    int checked = 0;
    for (const auto& [name, ring] : ConvexRings()) {
        for (const double d : {0.5, -0.5}) {
            SCOPED_TRACE(name + " at " + std::to_string(d));
            std::vector<RvPolygon2D> expected;
            RvPolygon2D(ring).GetExtend(d, expected);
            ASSERT_EQ(expected.size(), 1u);
            std::vector<double> distances(ring.size(), d);
            const std::vector<RvPolygon2D> result = Extend(variant, ring, distances);
            ASSERT_EQ(result.size(), 1u);
            EXPECT_TRUE(result[0] == expected[0]);
            EXPECT_NEAR(result[0].GetPlochu(), expected[0].GetPlochu(), 1e-6);
            EXPECT_TRUE(AllZero(distances));
            ++checked;
        }
    }
    EXPECT_EQ(checked, 10);
}

TEST(RvPolygon2DGetExtendEx, EqualSmallDistancesMatchGetExtendOnConvexRings) {
    ExpectEqualDistancesMatchGetExtend(kVariants[0]);
}

TEST(RvPolygon2DGetExtendEx2, EqualSmallDistancesMatchGetExtendOnConvexRings) {
    ExpectEqualDistancesMatchGetExtend(kVariants[1]);
}

TEST(RvPolygon2DGetExtendEx, EqualDistancesMoveTheSquareCornersDiagonally) {
    // Every side moves by d along its outer normal; each corner is the meeting point of the two
    // moved sides, so (0, 0) goes to (-d, -d) and so on, the ring keeping its direction.
    for (const Variant& variant : kVariants) {
        for (const double d : {1.0, -2.0}) {
            SCOPED_TRACE(std::string(variant.name) + " at " + std::to_string(d));
            std::vector<double> distances(4, d);
            const std::vector<RvPolygon2D> result = Extend(variant, Square(), distances);
            ASSERT_EQ(result.size(), 1u);
            EXPECT_TRUE(
                RingIs(result[0], {{-d, -d}, {10 + d, -d}, {10 + d, 10 + d}, {-d, 10 + d}}));
            EXPECT_EQ(distances.size(), 4u);
            EXPECT_TRUE(AllZero(distances));
        }
    }
}

TEST(RvPolygon2DGetExtendEx, ClockwiseRingGrowsAwayFromItsInterior) {
    // The normal of a clockwise ring is -z, and N x B still points outward: a positive distance
    // grows the square on every side, and the ring stays clockwise.
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances(4, 1.0);
        const std::vector<RvPolygon2D> result =
            Extend(variant, Ring({{0, 0}, {0, 10}, {10, 10}, {10, 0}}), distances);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{-1, -1}, {-1, 11}, {11, 11}, {11, -1}}));
        EXPECT_LT(result[0].GetPlochuOriented(), 0.0);
    }
}

TEST(RvPolygon2DGetExtendEx, RingInPlaneZFiveStaysInItsPlane) {
    // The edges move within the polygon's plane, so every vertex keeps z = 5.
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances{1.0, 2.0, 1.0, 2.0};
        const std::vector<RvPolygon2D> result =
            Extend(variant,
                   Ring({RvPoint2D(0, 0, 5), RvPoint2D(10, 0, 5), RvPoint2D(10, 10, 5),
                         RvPoint2D(0, 10, 5)}),
                   distances);
        ASSERT_EQ(result.size(), 1u);
        // Left and right by 1, bottom and top by 2.
        EXPECT_TRUE(RingIs(result[0], {{-1, -2, 5}, {11, -2, 5}, {11, 12, 5}, {-1, 12, 5}}));
    }
}

// ---- Per-edge distances ----------------------------------------------------------------------

TEST(RvPolygon2DGetExtendEx, ZeroDistanceEdgeStaysWhileNeighboursSlide) {
    // Entry 0 belongs to the closing edge from (0, 10) to (0, 0), which stays on x = 0. The
    // bottom and top slide their ends along it to y = -1 and y = 11; the right side goes to
    // x = 11.
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances{0.0, 1.0, 1.0, 1.0};
        const std::vector<RvPolygon2D> result = Extend(variant, Square(), distances);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{0, -1}, {11, -1}, {11, 11}, {0, 11}}));
        EXPECT_EQ(distances.size(), 4u);
        EXPECT_TRUE(AllZero(distances));
    }
}

TEST(RvPolygon2DGetExtendEx, StraightVertexWhereTheRingClosesMovesOnce) {
    // (5, 0) starts the ring on the bottom edge, (0, 5) ends it on the left edge: the working
    // copy drops such a vertex where the ring closes as it does one in the middle, so no vertex
    // is moved once by each of two edges along the same line.
    int checked = 0;
    for (const Variant& variant : kVariants) {
        for (const RvPolygon2D& ring : {Ring({{5, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}),
                                        Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 5}})}) {
            SCOPED_TRACE(variant.name);
            std::vector<double> distances(5, 1.0);
            const std::vector<RvPolygon2D> result = Extend(variant, ring, distances);
            ASSERT_EQ(result.size(), 1u);
            EXPECT_TRUE(RingIs(result[0], {{-1, -1}, {11, -1}, {11, 11}, {-1, 11}}));
            ++checked;
        }
    }
    EXPECT_EQ(checked, 4);
}

TEST(RvPolygon2DGetExtendEx, PerEdgeDistancesGrowTheSquareSideBySide) {
    // Left by 1 to x = -1, bottom by 2 to y = -2, right by 3 to x = 13, top by 0.5 to y = 10.5.
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances{1.0, 2.0, 3.0, 0.5};
        const std::vector<RvPolygon2D> result = Extend(variant, Square(), distances);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{-1, -2}, {13, -2}, {13, 10.5}, {-1, 10.5}}));
        EXPECT_EQ(distances.size(), 4u);
        EXPECT_TRUE(AllZero(distances));
    }
}

TEST(RvPolygon2DGetExtendEx, PerEdgeDistancesShrinkTheSquareSideBySide) {
    // Left in by 1 to x = 1, bottom by 2 to y = 2, right by 0.5 to x = 9.5, top by 3 to y = 7.
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances{-1.0, -2.0, -0.5, -3.0};
        const std::vector<RvPolygon2D> result = Extend(variant, Square(), distances);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{1, 2}, {9.5, 2}, {9.5, 7}, {1, 7}}));
        EXPECT_NEAR(result[0].GetPlochu(), 8.5 * 5, 1e-9);
        EXPECT_TRUE(AllZero(distances));
    }
}

TEST(RvPolygon2DGetExtendEx, MixedSignsMoveEachSideItsOwnWay) {
    // Left out to x = -1, bottom in to y = 2, right out to x = 13, top in to y = 9.
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances{1.0, -2.0, 3.0, -1.0};
        const std::vector<RvPolygon2D> result = Extend(variant, Square(), distances);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{-1, 2}, {13, 2}, {13, 9}, {-1, 9}}));
        EXPECT_TRUE(AllZero(distances));
    }
}

TEST(RvPolygon2DGetExtendEx, PerEdgeDistancesGrowTheLShape) {
    // Edges by their end vertex: 0 the left side x = 0, 1 the bottom y = 0, 2 the right side
    // x = 10, 3 the step y = 4 (outer normal +y), 4 the inner side x = 4 (outer normal +x), 5 the
    // top y = 10. Moved to x = -1, y = -0.5, x = 12, y = 5, x = 4.5, y = 11.5; each vertex is the
    // meeting point of its two edges, the reflex one (4, 4) going to (4.5, 5).
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances{1.0, 0.5, 2.0, 1.0, 0.5, 1.5};
        const std::vector<RvPolygon2D> result = Extend(variant, LShape(), distances);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0],
                           {{-1, -0.5}, {12, -0.5}, {12, 5}, {4.5, 5}, {4.5, 11.5}, {-1, 11.5}}));
        EXPECT_EQ(distances.size(), 6u);
        EXPECT_TRUE(AllZero(distances));
    }
}

TEST(RvPolygon2DGetExtendEx, PerEdgeDistancesShrinkTheLShape) {
    // Moved inward to x = 1, y = 0.5, x = 9, y = 3.5, x = 3, y = 9.5: the reflex corner goes to
    // (3, 3.5). Area 8 * 3 (the foot) + 2 * 6 (the arm above it).
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances{-1.0, -0.5, -1.0, -0.5, -1.0, -0.5};
        const std::vector<RvPolygon2D> result = Extend(variant, LShape(), distances);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(
            RingIs(result[0], {{1, 0.5}, {9, 0.5}, {9, 3.5}, {3, 3.5}, {3, 9.5}, {1, 9.5}}));
        EXPECT_NEAR(result[0].GetPlochu(), 8 * 3 + 2 * 6, 1e-9);
        EXPECT_EQ(distances.size(), 6u);
        EXPECT_TRUE(AllZero(distances));
    }
}

// ---- Crossings ----------------------------------------------------------------------------------

TEST(RvPolygon2DGetExtendEx, ShrunkUShapeFallsIntoItsTwoArms) {
    // Shrunk by 1.5 the base (2 high) turns inside out: the bottom goes up to y = 1.5 and the
    // floor of the slot down to y = 0.5. The moved ring crosses itself where the bottom meets the
    // slot's sides, now at x = 2.5 and x = 7.5; the loop between them runs clockwise and goes,
    // leaving the arms x in [1.5, 2.5] and [7.5, 8.5], y in [1.5, 8.5], each 1 by 7.
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances(8, -1.5);
        const std::vector<RvPolygon2D> result = Extend(variant, UShape(), distances);
        ASSERT_EQ(result.size(), 2u);
        const std::vector<VertexAt> left{{1.5, 1.5}, {2.5, 1.5}, {2.5, 8.5}, {1.5, 8.5}};
        const std::vector<VertexAt> right{{7.5, 1.5}, {8.5, 1.5}, {8.5, 8.5}, {7.5, 8.5}};
        const bool leftFirst = RingIs(result[0], left);
        EXPECT_TRUE(RingIs(result[leftFirst ? 0 : 1], left));
        EXPECT_TRUE(RingIs(result[leftFirst ? 1 : 0], right));
        for (const RvPolygon2D& piece : result) {
            EXPECT_NEAR(piece.GetPlochuOriented(), 7.0, 1e-9);
        }
        EXPECT_EQ(distances.size(), 8u);
        EXPECT_TRUE(AllZero(distances));
    }
}

TEST(RvPolygon2DGetExtendEx, TriangleShrunkPastItsInradiusVanishes) {
    // The right triangle with legs 10 has inradius 10 / (2 + sqrt 2), about 2.93. Shrunk by 4,
    // the legs reach x = 4 and y = 4 and the hypotenuse, held back where its neighbours meet,
    // collapses onto (4, 4) with the rest of the ring: every edge is null or turned round, so
    // nothing is left to trace.
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances(3, -4.0);
        const std::vector<RvPolygon2D> result =
            Extend(variant, Ring({{0, 0}, {10, 0}, {0, 10}}), distances);
        EXPECT_TRUE(result.empty());
        EXPECT_EQ(distances.size(), 3u);
    }
}

// ---- The overloads -----------------------------------------------------------------------------

TEST(RvPolygon2DGetExtendEx, ScalarOverloadGivesEveryEdgeTheDistance) {
    // The L grown by 1 everywhere: x = -1, y = -1, x = 11, y = 5, x = 5, y = 11.
    for (const int useEx2 : {0, 1}) {
        SCOPED_TRACE(useEx2);
        std::vector<RvPolygon2D> result;
        LShape().GetExtendEx(1.0, result, useEx2);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{-1, -1}, {11, -1}, {11, 5}, {5, 5}, {5, 11}, {-1, 11}}));
    }
}

// A regular 64-gon of radius 10 (sides about 0.98 long, turning by 5.6 degrees at each corner).
// Moved in by 3, an edge's ends slide about ten times as far along its neighbours, whose lengths
// hold it back: only the unlimited last pass of GetExtendEx takes every edge the whole way.
RvPolygon2D SixtyFourGon() {
    RvPolygon2D ring;
    for (int k = 0; k < 64; ++k) {
        const double a = k * std::numbers::pi / 32.0;
        ring.push_backA(RvPoint2D(10.0 * std::cos(a), 10.0 * std::sin(a)));
    }
    return ring;
}

TEST(RvPolygon2DGetExtendEx, LastUnlimitedPassTakesEveryEdgeTheWholeWay) {
    // The apothem 10 cos(pi / 64) comes down by 3, so the corners lie at 10 - 3 / cos(pi / 64)
    // from the centre and the area is 64 a'^2 tan(pi / 64) for the new apothem a'.
    const double half = std::numbers::pi / 64.0;
    const double apothem = 10.0 * std::cos(half) - 3.0;
    std::vector<double> distances(64, -3.0);
    const std::vector<RvPolygon2D> result = Extend(kVariants[0], SixtyFourGon(), distances);
    ASSERT_EQ(result.size(), 1u);
    ASSERT_EQ(result[0].size(), 64u);
    EXPECT_NEAR(result[0].GetPlochuOriented(), 64.0 * apothem * apothem * std::tan(half), 1e-6);
    for (std::size_t i = 0; i < result[0].size(); ++i) {
        const RvPoint2D& v = result[0][i];
        EXPECT_NEAR(std::hypot(v.x, v.y), 10.0 - 3.0 / std::cos(half), 1e-6) << "vertex " << i;
    }
    EXPECT_TRUE(AllZero(distances));
}

TEST(RvPolygon2DGetExtendEx2, EdgesHeldBackKeepTheirRemainders) {
    // Limited in every pass, the 64-gon's edges run out of passes on the way: every other edge
    // is held back where its neighbours have squeezed it to nothing, and leaves the ring. What
    // comes back lies inside the input but is not the full offset, and the remainders say how
    // far each edge still had to go (some of the 3, never more, never past it).
    const double half = std::numbers::pi / 64.0;
    const double apothem = 10.0 * std::cos(half) - 3.0;
    const double full = 64.0 * apothem * apothem * std::tan(half);
    const RvPolygon2D input = SixtyFourGon();
    std::vector<double> distances(64, -3.0);
    const std::vector<RvPolygon2D> result = Extend(kVariants[1], input, distances);
    ASSERT_EQ(result.size(), 1u);
    EXPECT_GT(std::fabs(result[0].GetPlochuOriented() - full), 0.1);
    EXPECT_LT(result[0].GetPlochuOriented(), input.GetPlochuOriented());
    int held = 0;
    for (const double r : distances) {
        EXPECT_LE(r, 0.0);
        EXPECT_GT(r, -3.0);
        if (std::fabs(r) >= 0.0001) {
            ++held;
        }
    }
    EXPECT_GT(held, 0);
}

TEST(RvPolygon2DGetExtendEx, ScalarOverloadPicksTheVariantByUseEx2) {
    // On the 64-gon the two variants differ (see above), so the overload's choice shows: 0
    // must give GetExtendEx's answer, anything else GetExtendEx2's.
    std::vector<double> d1(64, -3.0);
    std::vector<double> d2(64, -3.0);
    std::vector<RvPolygon2D> ex;
    std::vector<RvPolygon2D> ex2;
    SixtyFourGon().GetExtendEx(d1, ex);
    SixtyFourGon().GetExtendEx2(d2, ex2);
    ASSERT_EQ(ex.size(), 1u);
    ASSERT_EQ(ex2.size(), 1u);
    ASSERT_NE(ex2[0].size(), ex[0].size());
    ASSERT_GT(std::fabs(ex2[0].GetPlochu() - ex[0].GetPlochu()), 0.1);

    int checked = 0;
    for (const int useEx2 : {0, 1, -3}) {
        SCOPED_TRACE(useEx2);
        std::vector<RvPolygon2D> result;
        SixtyFourGon().GetExtendEx(-3.0, result, useEx2);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(SameVertices(result[0], useEx2 == 0 ? ex[0] : ex2[0]));
        ++checked;
    }
    EXPECT_EQ(checked, 3);
}

TEST(RvPolygon2DGetExtendEx, OutlineOverloadPicksTheVariantByUseEx2) {
    // An outline without vertices gives `first` to every edge, so the outline overload then
    // answers as the scalar one does, variant for variant.
    int checked = 0;
    for (const int useEx2 : {0, 1, -3}) {
        SCOPED_TRACE(useEx2);
        std::vector<RvPolygon2D> scalar;
        SixtyFourGon().GetExtendEx(-3.0, scalar, useEx2);
        std::vector<RvPolygon2D> result;
        SixtyFourGon().GetExtendEx(-3.0, 7.0, RvPolyLine2D(), result, useEx2);
        ASSERT_EQ(scalar.size(), 1u);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(SameVertices(result[0], scalar[0]));
        ++checked;
    }
    EXPECT_EQ(checked, 3);
}

TEST(RvPolygon2DGetExtendEx, OutlineOverloadMatchesTheVectorCallWithItsDistances) {
    // The outline x = 9.5 run downwards, from (9.5, 20) to (9.5, -20): (p - q) = (0, 40) and
    // (v - q) = (x - 9.5, y + 20) give c = -40 (x - 9.5), positive left of x = 9.5. Of the L only
    // the right side, from (10, 0) to (10, 4), has both ends right of it: it alone takes
    // `second`, entry 2.
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances{1.0, 1.0, 3.0, 1.0, 1.0, 1.0};
        const std::vector<RvPolygon2D> direct = Extend(variant, LShape(), distances);
        std::vector<RvPolygon2D> result;
        LShape().GetExtendEx(1.0, 3.0, Path({{9.5, 20}, {9.5, -20}}), result,
                             variant.call == kVariants[0].call ? 0 : 1);
        ASSERT_EQ(direct.size(), 1u);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(SameVertices(result[0], direct[0]));
        EXPECT_TRUE(RingIs(result[0], {{-1, -1}, {13, -1}, {13, 5}, {5, 5}, {5, 11}, {-1, 11}}));
    }
}

// An outline along +x at height `y`: from (-100, y) to (100, y). For it (p - q) = (-200, 0), and
// a vertex v gives c = (-200) (v.y - y): positive below the line (to its right), negative above
// it (to its left).
RvPolyLine2D OutlineAlongX(double y) {
    return Path({{-100, y}, {100, y}});
}

TEST(RvPolygon2DGetExtendEx, PolygonWhollyLeftOfTheOutlineTakesSecond) {
    // The square lies above y = -5, to the left of the outline, where c is negative at every
    // vertex: every edge takes `second` (2), none `first` (1). The left side is not the side of
    // `first`, as one might expect of an outline run the way the polygon turns: the product is
    // taken with the segment from its end back to its start, which turns the sign round.
    for (const int useEx2 : {0, 1}) {
        SCOPED_TRACE(useEx2);
        std::vector<RvPolygon2D> result;
        Square().GetExtendEx(1.0, 2.0, OutlineAlongX(-5), result, useEx2);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{-2, -2}, {12, -2}, {12, 12}, {-2, 12}}));
    }
}

TEST(RvPolygon2DGetExtendEx, PolygonWhollyRightOfTheOutlineTakesFirst) {
    // The square lies below y = 20, to the right of the outline, where c is positive: every edge
    // takes `first`.
    for (const int useEx2 : {0, 1}) {
        SCOPED_TRACE(useEx2);
        std::vector<RvPolygon2D> result;
        Square().GetExtendEx(1.0, 2.0, OutlineAlongX(20), result, useEx2);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{-1, -1}, {11, -1}, {11, 11}, {-1, 11}}));
    }
}

TEST(RvPolygon2DGetExtendEx, EdgesWithAnEndRightOfTheOutlineTakeFirst) {
    // The outline y = 5 cuts the square: (0, 0) and (10, 0) lie right of it (c > 0), (10, 10) and
    // (0, 10) left of it. The left, bottom and right sides each have an end on the positive side
    // and move by `first` (1); only the top has both ends on the left and moves by `second` (3).
    for (const int useEx2 : {0, 1}) {
        SCOPED_TRACE(useEx2);
        std::vector<RvPolygon2D> result;
        Square().GetExtendEx(1.0, 3.0, OutlineAlongX(5), result, useEx2);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{-1, -1}, {11, -1}, {11, 13}, {-1, 13}}));
    }
}

TEST(RvPolygon2DGetExtendEx, OutlineWithoutVerticesGivesFirstEverywhere) {
    for (const int useEx2 : {0, 1}) {
        SCOPED_TRACE(useEx2);
        std::vector<RvPolygon2D> result;
        Square().GetExtendEx(2.0, 5.0, RvPolyLine2D(), result, useEx2);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{-2, -2}, {12, -2}, {12, 12}, {-2, 12}}));
    }
}

// ---- Edge cases ---------------------------------------------------------------------------------

TEST(RvPolygon2DGetExtendEx, PolygonWithoutVerticesAppendsNothing) {
    std::vector<RvPolygon2D> result;
    result.push_back(Square());
    for (const int useEx2 : {0, 1}) {
        SCOPED_TRACE(useEx2);
        EXPECT_NO_THROW(RvPolygon2D().GetExtendEx(1.0, result, useEx2));
        EXPECT_NO_THROW(RvPolygon2D().GetExtendEx(1.0, 2.0, OutlineAlongX(5), result, useEx2));
    }
    ASSERT_EQ(result.size(), 1u);
    EXPECT_TRUE(SameVertices(result[0], Square()));
}

TEST(RvPolygon2DGetExtendEx, PolygonWithNullNormalLeavesEverythingUnchanged) {
    // Two vertices, or three on one line: no normal, so nothing moves and nothing is appended.
    const RvPolygon2D flats[] = {Ring({{0, 0}, {10, 0}}), Ring({{0, 0}, {5, 0}, {10, 0}})};
    int checked = 0;
    for (const RvPolygon2D& flat : flats) {
        for (const Variant& variant : kVariants) {
            SCOPED_TRACE(std::string(variant.name) + " on " + std::to_string(flat.size()));
            std::vector<RvPolygon2D> result;
            result.push_back(Square());
            std::vector<double> distances(flat.size(), 1.0);
            RvPolygon2D p(flat);
            (p.*variant.call)(distances, result);
            ASSERT_EQ(result.size(), 1u);
            EXPECT_TRUE(SameVertices(result[0], Square()));
            EXPECT_EQ(distances, std::vector<double>(flat.size(), 1.0));
            EXPECT_TRUE(SameVertices(p, flat));
            ++checked;
        }
        for (const int useEx2 : {0, 1}) {
            SCOPED_TRACE(useEx2);
            std::vector<RvPolygon2D> result;
            RvPolygon2D(flat).GetExtendEx(1.0, result, useEx2);
            RvPolygon2D(flat).GetExtendEx(1.0, 2.0, OutlineAlongX(5), result, useEx2);
            EXPECT_TRUE(result.empty());
            ++checked;
        }
    }
    EXPECT_EQ(checked, 8);
}

TEST(RvPolygon2DGetExtendEx, PolygonsAlreadyInTheResultAreKeptBeforeTheNewOnes) {
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<RvPolygon2D> result;
        result.push_back(Ring({{1, 2}, {3, 4}}));
        result.push_back(RvPolygon2D());
        result.push_back(LShape());
        const std::vector<RvPolygon2D> before = result;
        std::vector<double> distances(4, 1.0);
        RvPolygon2D p = Square();
        (p.*variant.call)(distances, result);
        ASSERT_EQ(result.size(), 4u);
        for (std::size_t i = 0; i < before.size(); ++i) {
            EXPECT_TRUE(SameVertices(result[i], before[i])) << "element " << i;
        }
        EXPECT_TRUE(RingIs(result[3], {{-1, -1}, {11, -1}, {11, 11}, {-1, 11}}));
    }
}

TEST(RvPolygon2DGetExtendEx, DroppedPiecesDoNotTouchWhatWasAlreadyThere) {
    // The U's clockwise loop is dropped by the filter; it is searched for only among the new
    // pieces, so a clockwise ring already in the result stays.
    const RvPolygon2D clockwise = Ring({{0, 0}, {0, 10}, {10, 10}, {10, 0}});
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<RvPolygon2D> result{clockwise};
        std::vector<double> distances(8, -1.5);
        RvPolygon2D u = UShape();
        (u.*variant.call)(distances, result);
        ASSERT_EQ(result.size(), 3u);
        EXPECT_TRUE(SameVertices(result[0], clockwise));
    }
}

TEST(RvPolygon2DGetExtendEx, TooShortADistancesVectorThrows) {
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        ExpectThrowWithMessage<std::out_of_range>(
            [&] {
                std::vector<double> distances(3, 1.0);
                RvPolygon2D p = Square();
                std::vector<RvPolygon2D> result;
                (p.*variant.call)(distances, result);
            },
            "invalid vector<T> subscript");
    }
}

TEST(RvPolygon2DGetExtendEx, CollinearVertexIsDroppedAndTheEntriesFollowTheCleanRing) {
    // (5, 0) lies on the bottom: the working ring is (0, 0), (10, 0), (10, 10), (0, 10), so entry
    // 1 is the whole bottom, 2 the right side, 3 the top, and entry 4 belongs to no edge. Left
    // by 1, bottom by 2, right by 3, top by 4.
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances{1.0, 2.0, 3.0, 4.0, 99.0};
        const std::vector<RvPolygon2D> result =
            Extend(variant, Ring({{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}}), distances);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{-1, -2}, {13, -2}, {13, 14}, {-1, 14}}));
        ASSERT_EQ(distances.size(), 5u);
        EXPECT_TRUE(AllZero({distances[0], distances[1], distances[2], distances[3]}));
        EXPECT_EQ(distances[4], 99.0);
    }
}

TEST(RvPolygon2DGetExtendEx, CleanRingNeedsOnlyItsOwnEdgeCount) {
    // Four entries serve the five input vertices, one of them straight.
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances{1.0, 2.0, 3.0, 4.0};
        const std::vector<RvPolygon2D> result =
            Extend(variant, Ring({{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}}), distances);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{-1, -2}, {13, -2}, {13, 14}, {-1, 14}}));
        EXPECT_TRUE(AllZero(distances));
    }
}

TEST(RvPolygon2DGetExtendEx, DoubledVertexIsDropped) {
    // The second (10, 0) ends a null edge and is left out: the working ring is the square, entry
    // 2 its right side and 3 its top.
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances{1.0, 2.0, 3.0, 4.0, 99.0};
        const std::vector<RvPolygon2D> result =
            Extend(variant, Ring({{0, 0}, {10, 0}, {10, 0}, {10, 10}, {0, 10}}), distances);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{-1, -2}, {13, -2}, {13, 14}, {-1, 14}}));
        EXPECT_EQ(distances[4], 99.0);
    }
}

TEST(RvPolygon2DGetExtendEx, RingStoredClosedShiftsTheEntriesByOne) {
    // Vertex 0 repeats the last one, so it ends a null edge and is left out: the working ring is
    // (10, 0), (10, 10), (0, 10), (0, 0). Entry 0 is the bottom (ending at (10, 0)), 1 the right
    // side, 2 the top, 3 the left side.
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<double> distances{1.0, 2.0, 3.0, 4.0, 99.0};
        const std::vector<RvPolygon2D> result =
            Extend(variant, Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}), distances);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{-4, -1}, {12, -1}, {12, 13}, {-4, 13}}));
        EXPECT_TRUE(AllZero({distances[0], distances[1], distances[2], distances[3]}));
        EXPECT_EQ(distances[4], 99.0);
    }
}

TEST(RvPolygon2DGetExtendEx, ClosedRingThroughTheScalarOverload) {
    // Five entries are made for the five stored vertices; the four edges use the first four.
    for (const int useEx2 : {0, 1}) {
        SCOPED_TRACE(useEx2);
        std::vector<RvPolygon2D> result;
        Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}).GetExtendEx(1.0, result, useEx2);
        ASSERT_EQ(result.size(), 1u);
        EXPECT_TRUE(RingIs(result[0], {{-1, -1}, {11, -1}, {11, 11}, {-1, 11}}));
    }
}

TEST(RvPolygon2DGetExtendEx, PolygonHeldInTheResultCanBeOffsetIntoIt) {
    // Appending moves the vector's storage (its capacity is its size); the polygon is read in
    // full before that.
    for (const int useEx2 : {0, 1}) {
        SCOPED_TRACE(useEx2);
        std::vector<RvPolygon2D> result{Square()};
        result.shrink_to_fit();
        result[0].GetExtendEx(1.0, result, useEx2);
        ASSERT_EQ(result.size(), 2u);
        EXPECT_TRUE(SameVertices(result[0], Square()));
        EXPECT_TRUE(RingIs(result[1], {{-1, -1}, {11, -1}, {11, 11}, {-1, 11}}));
    }
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        std::vector<RvPolygon2D> result{LShape()};
        result.shrink_to_fit();
        std::vector<double> distances(6, -0.5);
        (result[0].*variant.call)(distances, result);
        ASSERT_EQ(result.size(), 2u);
        EXPECT_TRUE(SameVertices(result[0], LShape()));
        EXPECT_TRUE(RingIs(
            result[1], {{0.5, 0.5}, {9.5, 0.5}, {9.5, 3.5}, {3.5, 3.5}, {3.5, 9.5}, {0.5, 9.5}}));
    }
}

TEST(RvPolygon2DGetExtendEx, ThePolygonItselfIsNotChanged) {
    for (const Variant& variant : kVariants) {
        SCOPED_TRACE(variant.name);
        RvPolygon2D u = UShape();
        std::vector<double> distances(8, -1.5);
        std::vector<RvPolygon2D> result;
        (u.*variant.call)(distances, result);
        EXPECT_TRUE(SameVertices(u, UShape()));
    }
}

}  // namespace
}  // namespace ravelin
