#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

// Planar intersection of an entity's segments with segments, lines, half-lines and other
// entities. Throughout, "u" is the parameter on the entity's segment (0 at its first vertex,
// 1 at its second) and "t" the parameter on the other object (0 at its start, 1 at start plus
// direction).

namespace {

// A point whose space and planar positions agree: (x, y, 0) and (x, y).
RvPoint2D P(double x, double y) {
    return RvPoint2D(x, y);
}

// A value that none of the operations computes, to tell whether an output was written.
RvPoint2D Untouched() {
    return RvPoint2D(-777, -888, 111, 222, 333);
}

bool IsUntouched(const RvPoint2D& p) {
    return HasValues(p, 111, 222, 333, -777, -888);
}

void ExpectValuesNear(const RvPoint2D& p, double x, double y, double z, double x2D, double y2D,
                      double tol = 1e-09) {
    EXPECT_NEAR(p.x, x, tol);
    EXPECT_NEAR(p.y, y, tol);
    EXPECT_NEAR(p.z, z, tol);
    EXPECT_NEAR(p.x2D, x2D, tol);
    EXPECT_NEAR(p.y2D, y2D, tol);
}

// A parameter value and whether it lies within the accepted range.
struct BoundCase {
    double value;
    bool hit;
};

// The outer range -1e-06 < v < 1.000001, both ends strict.
const BoundCase kOuterBounds[] = {
    {-2e-06, false}, {-1e-06, false},   {-5e-07, true},    {0.0, true},       {0.5, true},
    {1.0, true},     {1.0000005, true}, {1.000001, false}, {1.000002, false},
};

// The inner range of Intersect, 1e-06 < v < 0.999999 (both computed by shifting the outer
// bounds by 2e-06).
const BoundCase kInnerBounds[] = {
    {0.0, false},      {5e-07, false},     {1.5e-06, true}, {0.5, true},
    {0.9999985, true}, {0.9999995, false}, {1.0, false},
};

// The segment parameter: this path runs from (0, 0) to (1, 0); the other object is the
// vertical from (X, -1) with direction (0, 2). Then den = 0*0 - 2*1 = -2,
// u = -((X - 0)*2 - (-1 - 0)*0) / -2 = X exactly, and t = 0.5. The hit is (X, 0).
RvPolyLine2D UnitPath() {
    return Path(P(0, 0), P(1, 0));
}

// The other-object parameter: this path is the vertical from (X, -1) to (X, 1), the other
// object runs from (0, 0) with direction (1, 0). Then den = 1*2 - 0*0 = 2,
// t = (2*(X - 0) - 0*(-1 - 0)) / 2 = X exactly, and u = 0.5. The hit is (X, 0).
RvPolyLine2D VerticalPath(double x) {
    return Path(P(x, -1), P(x, 1));
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// The shared computation: parallel and collinear input

TEST(RvDrawEntityIntersect2D, CollinearOverlapIsNoHitForEveryOperation) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    std::vector<RvPoint2D> out;

    EXPECT_FALSE(path.TestIntersectSegment2D(P(2, 0), P(12, 0)));
    EXPECT_FALSE(path.IntersectSegment2D(P(2, 0), P(12, 0), out));
    RvPoint2D hit = Untouched();
    EXPECT_FALSE(path.IntersectSegment2D(P(2, 0), P(12, 0), hit, 0, true));
    EXPECT_TRUE(IsUntouched(hit));

    RvPoint2D a = P(2, 0);
    RvPoint2D d = P(1, 0);
    EXPECT_FALSE(path.TestIntersectLine2D(a, d, false));
    EXPECT_FALSE(path.IntersectLine2D(a, d, out));
    EXPECT_FALSE(path.Intersection2D_HalfLine(a, d, out));

    RvPolyLine2D other = Path(P(2, 0), P(12, 0));
    EXPECT_FALSE(path.Intersect(other, out, false));
    EXPECT_TRUE(out.empty());
}

TEST(RvDrawEntityIntersect2D, DenominatorOfExactly1e06IsParallel) {
    // s = (1, 0) and d = (1, 1e-06): den = 1*0 - 1e-06*1 = -1e-06, not strictly above 1e-06 in
    // magnitude, although the line passes through (0.5, 0) on the segment.
    RvPolyLine2D path = UnitPath();
    std::vector<RvPoint2D> out;
    RvPoint2D a = P(-0.5, -1e-06);
    RvPoint2D d = P(1, 1e-06);
    EXPECT_FALSE(path.TestIntersectLine2D(a, d, false));
    EXPECT_FALSE(path.IntersectLine2D(a, d, out));
    EXPECT_TRUE(out.empty());
}

TEST(RvDrawEntityIntersect2D, DenominatorJustAbove1e06IsAHit) {
    // d = (1, 2e-06): den = -2e-06; u = -((-0.5)*2e-06 - (-2e-06)*1) / -2e-06 = 0.5.
    RvPolyLine2D path = UnitPath();
    std::vector<RvPoint2D> out;
    RvPoint2D a = P(-0.5, -2e-06);
    RvPoint2D d = P(1, 2e-06);
    EXPECT_TRUE(path.TestIntersectLine2D(a, d, false));
    ASSERT_TRUE(path.IntersectLine2D(a, d, out));
    ASSERT_EQ(out.size(), 1u);
    ExpectValuesNear(out[0], 0.5, 0, 0, 0.5, 0);
}

TEST(RvDrawEntityIntersect2D, ParallelTestIsOnTheUnscaledDirection) {
    // The same direction as in DenominatorOfExactly1e06IsParallel, twice as long: den = -2e-06,
    // so the line now counts as crossing, at a + d*0.5 = (0.5, 0).
    RvPolyLine2D path = UnitPath();
    std::vector<RvPoint2D> out;
    RvPoint2D a = P(-0.5, -1e-06);
    RvPoint2D d = P(2, 2e-06);
    ASSERT_TRUE(path.IntersectLine2D(a, d, out));
    ASSERT_EQ(out.size(), 1u);
    ExpectValuesNear(out[0], 0.5, 0, 0, 0.5, 0);
}

// ---------------------------------------------------------------------------------------------
// Fewer than two vertices

TEST(RvDrawEntityIntersect2D, EntityOfFewerThanTwoVerticesHasNoHit) {
    RvPolyLine2D empty;
    RvPolyLine2D single = Path(P(0, 0));
    for (RvPolyLine2D* path : {&empty, &single}) {
        SCOPED_TRACE(path->size());
        std::vector<RvPoint2D> out;
        RvPoint2D a = P(0, -1);
        RvPoint2D d = P(0, 2);
        EXPECT_FALSE(path->TestIntersectLine2D(a, d, false));
        EXPECT_FALSE(path->TestIntersectSegment2D(P(0, -1), P(0, 1)));
        EXPECT_FALSE(path->IntersectSegment2D(P(0, -1), P(0, 1), out));
        EXPECT_FALSE(path->IntersectLine2D(a, d, out));
        EXPECT_FALSE(path->Intersection2D_HalfLine(a, d, out));
        RvPolyLine2D other = Path(P(0, -1), P(0, 1));
        EXPECT_FALSE(path->Intersect(other, out, false));
        EXPECT_TRUE(out.empty());
    }
}

TEST(RvDrawEntityIntersect2D, ClosingSegmentIsNotWalkedByOpenChainOperations) {
    // The segment (2, 4)-(4, 2) crosses only the closing diagonal from (10, 10) back to (0, 0),
    // at (3, 3); the open chain (0, 0)-(10, 0)-(10, 10) does not reach it.
    RvPolyLine2D path = Path(P(0, 0), P(10, 0), P(10, 10));
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(path.TestIntersectSegment2D(P(2, 4), P(4, 2)));
    EXPECT_FALSE(path.IntersectSegment2D(P(2, 4), P(4, 2), out));
    RvPolyLine2D other = Path(P(2, 4), P(4, 2));
    EXPECT_FALSE(path.Intersect(other, out, false));
    // The half-line from (6, 4), inside the triangle, towards (-1, 1) leaves it across the
    // diagonal at (5, 5) and meets nothing else.
    RvPoint2D o = P(6, 4);
    RvPoint2D d = P(-1, 1);
    EXPECT_FALSE(path.Intersection2D_HalfLine(o, d, out));
    EXPECT_TRUE(out.empty());
}

// ---------------------------------------------------------------------------------------------
// Bounds on the segment parameter u

TEST(RvDrawEntityIntersect2D, TestIntersectLine2DBoundsSegmentParameter) {
    RvPolyLine2D path = UnitPath();
    for (const BoundCase& c : kOuterBounds) {
        SCOPED_TRACE(c.value);
        RvPoint2D a = P(c.value, -1);
        RvPoint2D d = P(0, 2);
        EXPECT_EQ(path.TestIntersectLine2D(a, d, false), c.hit);
    }
}

TEST(RvDrawEntityIntersect2D, TestIntersectSegment2DBoundsSegmentParameter) {
    RvPolyLine2D path = UnitPath();
    for (const BoundCase& c : kOuterBounds) {
        SCOPED_TRACE(c.value);
        EXPECT_EQ(path.TestIntersectSegment2D(P(c.value, -1), P(c.value, 1)), c.hit);
    }
}

TEST(RvDrawEntityIntersect2D, IntersectSegment2DPointBoundsSegmentParameter) {
    RvPolyLine2D path = UnitPath();
    for (const BoundCase& c : kOuterBounds) {
        SCOPED_TRACE(c.value);
        RvPoint2D out = Untouched();
        EXPECT_EQ(path.IntersectSegment2D(P(c.value, -1), P(c.value, 1), out, 0, true), c.hit);
        if (c.hit) {
            ExpectValuesNear(out, c.value, 0, 0, c.value, 0);
        } else {
            EXPECT_TRUE(IsUntouched(out));
        }
    }
}

TEST(RvDrawEntityIntersect2D, IntersectSegment2DVectorBoundsSegmentParameter) {
    RvPolyLine2D path = UnitPath();
    for (const BoundCase& c : kOuterBounds) {
        SCOPED_TRACE(c.value);
        std::vector<RvPoint2D> out;
        EXPECT_EQ(path.IntersectSegment2D(P(c.value, -1), P(c.value, 1), out), c.hit);
        ASSERT_EQ(out.size(), c.hit ? 1u : 0u);
        if (c.hit) {
            ExpectValuesNear(out[0], c.value, 0, 0, c.value, 0);
        }
    }
}

TEST(RvDrawEntityIntersect2D, IntersectLine2DVectorBoundsSegmentParameter) {
    RvPolyLine2D path = UnitPath();
    for (const BoundCase& c : kOuterBounds) {
        SCOPED_TRACE(c.value);
        std::vector<RvPoint2D> out;
        EXPECT_EQ(path.IntersectLine2D(P(c.value, -1), P(0, 2), out), c.hit);
        ASSERT_EQ(out.size(), c.hit ? 1u : 0u);
        if (c.hit) {
            ExpectValuesNear(out[0], c.value, 0, 0, c.value, 0);
        }
    }
}

TEST(RvDrawEntityIntersect2D, HalfLineBoundsSegmentParameter) {
    RvPolyLine2D path = UnitPath();
    for (const BoundCase& c : kOuterBounds) {
        SCOPED_TRACE(c.value);
        std::vector<RvPoint2D> out;
        EXPECT_EQ(path.Intersection2D_HalfLine(P(c.value, -1), P(0, 2), out), c.hit);
        ASSERT_EQ(out.size(), c.hit ? 1u : 0u);
        if (c.hit) {
            ExpectValuesNear(out[0], c.value, 0, 0, c.value, 0);
        }
    }
}

TEST(RvDrawEntityIntersect2D, IntersectBoundsParameterOnThisEntity) {
    RvPolyLine2D path = UnitPath();
    for (const BoundCase& c : kOuterBounds) {
        SCOPED_TRACE(c.value);
        RvPolyLine2D other = Path(P(c.value, -1), P(c.value, 1));
        std::vector<RvPoint2D> out;
        EXPECT_EQ(path.Intersect(other, out, false), c.hit);
        ASSERT_EQ(out.size(), c.hit ? 1u : 0u);
        if (c.hit) {
            ExpectValuesNear(out[0], c.value, 0, 0, c.value, 0);
        }
    }
}

TEST(RvDrawEntityIntersect2D, InnerIntersectNarrowsParameterOnThisEntity) {
    RvPolyLine2D path = UnitPath();
    for (const BoundCase& c : kInnerBounds) {
        SCOPED_TRACE(c.value);
        RvPolyLine2D other = Path(P(c.value, -1), P(c.value, 1));
        std::vector<RvPoint2D> out;
        EXPECT_EQ(path.Intersect(other, out, true), c.hit);
        EXPECT_EQ(out.size(), c.hit ? 1u : 0u);
        // Without `inner` every one of these values is in range.
        std::vector<RvPoint2D> all;
        EXPECT_TRUE(path.Intersect(other, all, false));
    }
}

// ---------------------------------------------------------------------------------------------
// Bounds on the other object's parameter t

TEST(RvDrawEntityIntersect2D, SegmentOperationsBoundOtherParameter) {
    for (const BoundCase& c : kOuterBounds) {
        SCOPED_TRACE(c.value);
        RvPolyLine2D path = VerticalPath(c.value);
        EXPECT_EQ(path.TestIntersectSegment2D(P(0, 0), P(1, 0)), c.hit);

        RvPoint2D hit = Untouched();
        EXPECT_EQ(path.IntersectSegment2D(P(0, 0), P(1, 0), hit, 0, true), c.hit);
        if (c.hit) {
            ExpectValuesNear(hit, c.value, 0, 0, c.value, 0);
        } else {
            EXPECT_TRUE(IsUntouched(hit));
        }

        std::vector<RvPoint2D> out;
        EXPECT_EQ(path.IntersectSegment2D(P(0, 0), P(1, 0), out), c.hit);
        EXPECT_EQ(out.size(), c.hit ? 1u : 0u);

        RvPolyLine2D other = Path(P(0, 0), P(1, 0));
        std::vector<RvPoint2D> crossings;
        EXPECT_EQ(path.Intersect(other, crossings, false), c.hit);
        EXPECT_EQ(crossings.size(), c.hit ? 1u : 0u);
    }
}

TEST(RvDrawEntityIntersect2D, InnerIntersectNarrowsOtherParameter) {
    for (const BoundCase& c : kInnerBounds) {
        SCOPED_TRACE(c.value);
        RvPolyLine2D path = VerticalPath(c.value);
        RvPolyLine2D other = Path(P(0, 0), P(1, 0));
        std::vector<RvPoint2D> out;
        EXPECT_EQ(path.Intersect(other, out, true), c.hit);
        EXPECT_EQ(out.size(), c.hit ? 1u : 0u);
    }
}

TEST(RvDrawEntityIntersect2D, LineOperationsDoNotBoundOtherParameter) {
    // t from -5 to 7: far outside any segment bound, and all are hits of the line.
    for (const double x : {-5.0, -2e-06, 1.000002, 7.0}) {
        SCOPED_TRACE(x);
        RvPolyLine2D path = VerticalPath(x);
        RvPoint2D a = P(0, 0);
        RvPoint2D d = P(1, 0);
        EXPECT_TRUE(path.TestIntersectLine2D(a, d, false));
        EXPECT_TRUE(path.TestIntersectLine2D(a, d, true));  // (x, 0) is mid-segment
        std::vector<RvPoint2D> out;
        ASSERT_TRUE(path.IntersectLine2D(a, d, out));
        ASSERT_EQ(out.size(), 1u);
        ExpectValuesNear(out[0], x, 0, 0, x, 0);
    }
}

TEST(RvDrawEntityIntersect2D, HalfLineBoundsOtherParameterFromBelowOnly) {
    const BoundCase cases[] = {
        {-1.0, false}, {-2e-06, false},  {-1e-06, false}, {-5e-07, true},
        {0.0, true},   {1.000002, true}, {1000.0, true},
    };
    for (const BoundCase& c : cases) {
        SCOPED_TRACE(c.value);
        RvPolyLine2D path = VerticalPath(c.value);
        std::vector<RvPoint2D> out;
        EXPECT_EQ(path.Intersection2D_HalfLine(P(0, 0), P(1, 0), out), c.hit);
        ASSERT_EQ(out.size(), c.hit ? 1u : 0u);
        if (c.hit) {
            ExpectValuesNear(out[0], c.value, 0, 0, c.value, 0);
        }
    }
}

// ---------------------------------------------------------------------------------------------
// TestIntersectLine2D and skipEnds

TEST(RvDrawEntityIntersect2D, SkipEndsIgnoresLineThatOnlyTouchesAVertex) {
    // The horizontal through the apex (1, 1) meets segment 0 at u = 1 and segment 1 at u = 0:
    // both hits are end vertices.
    RvPolyLine2D path = Path(P(0, 0), P(1, 1), P(2, 0));
    RvPoint2D a = P(0, 1);
    RvPoint2D d = P(1, 0);
    EXPECT_FALSE(path.TestIntersectLine2D(a, d, true));
    EXPECT_TRUE(path.TestIntersectLine2D(a, d, false));
}

TEST(RvDrawEntityIntersect2D, SkipEndsCountsCrossingOfSegmentInterior) {
    RvPolyLine2D path = Path(P(0, 0), P(1, 1), P(2, 0));
    RvPoint2D a = P(0, 0.5);
    RvPoint2D d = P(1, 0);
    EXPECT_TRUE(path.TestIntersectLine2D(a, d, true));
}

TEST(RvDrawEntityIntersect2D, SkipEndsWalksOnPastAVertexHit) {
    // The vertical x = 2 touches the vertex (2, 0) of segments 0 and 1, then crosses the
    // interior of segment 2 from (4, 0) to (0, 4) at (2, 2).
    RvPolyLine2D path = Path(P(0, 0), P(2, 0), P(4, 0), P(0, 4));
    RvPoint2D a = P(2, -1);
    RvPoint2D d = P(0, 1);
    EXPECT_TRUE(path.TestIntersectLine2D(a, d, true));
    // Without the last segment only the vertex is met.
    RvPolyLine2D shorter = Path(P(0, 0), P(2, 0), P(4, 0));
    EXPECT_FALSE(shorter.TestIntersectLine2D(a, d, true));
}

TEST(RvDrawEntityIntersect2D, SkipEndsUsesTolerance001) {
    RvPolyLine2D path = Path(P(0, 0), P(1, 0));
    RvPoint2D d = P(0, 1);
    RvPoint2D nearStart = P(0.005, -1);
    EXPECT_FALSE(path.TestIntersectLine2D(nearStart, d, true));
    RvPoint2D nearEnd = P(0.995, -1);
    EXPECT_FALSE(path.TestIntersectLine2D(nearEnd, d, true));
    RvPoint2D offStart = P(0.02, -1);
    EXPECT_TRUE(path.TestIntersectLine2D(offStart, d, true));
}

TEST(RvDrawEntityIntersect2D, SkipEndsComparesAllFiveValuesOfTheHit) {
    // The segment climbs from z = 0 to z = 10: the hit at u = 0.005 has z = 0.05, more than
    // 0.01 away from the first vertex although the planar pair is within 0.01 of it.
    RvPolyLine2D path = Path(RvPoint2D(0, 0, 0), RvPoint2D(1, 0, 10));
    RvPoint2D a = P(0.005, -1);
    RvPoint2D d = P(0, 1);
    EXPECT_TRUE(path.TestIntersectLine2D(a, d, true));
}

// ---------------------------------------------------------------------------------------------
// TestIntersectSegment2D

TEST(RvDrawEntityIntersect2D, TestIntersectSegment2DIsTrueForSegmentEndingOnInnerVertex) {
    RvPolyLine2D path = Path(P(0, 0), P(1, 1), P(2, 0));
    EXPECT_TRUE(path.TestIntersectSegment2D(P(1, 2), P(1, 1)));
}

TEST(RvDrawEntityIntersect2D, TestIntersectSegment2DIsFalseForSegmentShortOfThePath) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    EXPECT_FALSE(path.TestIntersectSegment2D(P(5, 3), P(5, 1)));
    EXPECT_TRUE(path.TestIntersectSegment2D(P(5, 3), P(5, -1)));
}

// ---------------------------------------------------------------------------------------------
// IntersectSegment2D with a point result

TEST(RvDrawEntityIntersect2D, PointFormHitIsInterpolatedOnTheOtherSegment) {
    // a = planar (4, -1), space (40, -10, 2); b = planar (4, 3), space (40, 30, 10). The path
    // y = 0 is met at t = 10 / 40 = 0.25: a + (b - a)*0.25 = planar (4, 0), space (40, 0, 4). The
    // path's own z (100 to 200) plays no part.
    RvPolyLine2D path = Path(RvPoint2D(0, 0, 0, 0, 100), RvPoint2D(10, 0, 10, 0, 200));
    const RvPoint2D a(4, -1, 40, -10, 2);
    const RvPoint2D b(4, 3, 40, 30, 10);
    RvPoint2D out = Untouched();
    ASSERT_TRUE(path.IntersectSegment2D(a, b, out, 0, true));
    EXPECT_TRUE(HasValues(out, 40, 0, 4, 4, 0));
}

TEST(RvDrawEntityIntersect2D, PointFormWithLastIndexTestsClosingSegment) {
    // Index 2 of three vertices is the segment from (10, 10) back to (0, 0).
    RvPolyLine2D path = Path(P(0, 0), P(10, 0), P(10, 10));
    RvPoint2D out = Untouched();
    ASSERT_TRUE(path.IntersectSegment2D(P(0, 10), P(10, 0), out, 2, true));
    ExpectValuesNear(out, 5, 5, 0, 5, 5);
    // Segment 0 (y = 0) meets the same segment only at its end (10, 0): t = 1.
    RvPoint2D first = Untouched();
    ASSERT_TRUE(path.IntersectSegment2D(P(0, 10), P(10, 0), first, 0, true));
    ExpectValuesNear(first, 10, 0, 0, 10, 0);
}

TEST(RvDrawEntityIntersect2D, PointFormIndexBeyondLastIsFalse) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0), P(10, 10));
    RvPoint2D out = Untouched();
    EXPECT_FALSE(path.IntersectSegment2D(P(0, 10), P(10, 0), out, 3, true));
    EXPECT_FALSE(path.IntersectSegment2D(P(0, 10), P(10, 0), out, 100, true));
    EXPECT_TRUE(IsUntouched(out));
    RvPolyLine2D empty;
    EXPECT_FALSE(empty.IntersectSegment2D(P(0, 10), P(10, 0), out, 0, true));
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect2D, PointFormLeavesOutUntouchedOnAMiss) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    RvPoint2D out = Untouched();
    EXPECT_FALSE(path.IntersectSegment2D(P(5, 0.5), P(5, 3), out, 0, true));
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect2D, WithoutEndsRefusesCrossingNearVertexIButWritesIt) {
    // The crossing (0.005, 0) lies 0.005 from vertex 0.
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    RvPoint2D out = Untouched();
    EXPECT_FALSE(path.IntersectSegment2D(P(0.005, -1), P(0.005, 1), out, 0, false));
    ExpectValuesNear(out, 0.005, 0, 0, 0.005, 0);
    RvPoint2D with = Untouched();
    EXPECT_TRUE(path.IntersectSegment2D(P(0.005, -1), P(0.005, 1), with, 0, true));
    ExpectValuesNear(with, 0.005, 0, 0, 0.005, 0);
}

TEST(RvDrawEntityIntersect2D, WithoutEndsRefusesCrossingNearTheOtherVertex) {
    // Near vertex 1, the second end of segment 0.
    RvPolyLine2D path = Path(P(0, 0), P(10, 0), P(10, 10));
    RvPoint2D out = Untouched();
    EXPECT_FALSE(path.IntersectSegment2D(P(9.995, -1), P(9.995, 1), out, 0, false));
    ExpectValuesNear(out, 9.995, 0, 0, 9.995, 0);
    // The closing segment 2 runs from (10, 10) to vertex 0, on y = x. The segment from
    // (-1, 1.005) to (1, -0.995) lies on y = 0.005 - x and meets it at (0.0025, 0.0025), within
    // 0.01 of vertex 0: refused.
    RvPoint2D closing = Untouched();
    EXPECT_FALSE(path.IntersectSegment2D(P(-1, 1.005), P(1, -0.995), closing, 2, false));
    ExpectValuesNear(closing, 0.0025, 0.0025, 0, 0.0025, 0.0025);
    closing = Untouched();
    EXPECT_TRUE(path.IntersectSegment2D(P(-1, 1.005), P(1, -0.995), closing, 2, true));
}

TEST(RvDrawEntityIntersect2D, WithoutEndsRefusesCrossingNearEitherEndOfTheOtherSegment) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    RvPoint2D out = Untouched();
    EXPECT_FALSE(path.IntersectSegment2D(P(5, 0.005), P(5, -2), out, 0, false));
    ExpectValuesNear(out, 5, 0, 0, 5, 0);
    out = Untouched();
    EXPECT_FALSE(path.IntersectSegment2D(P(5, 2), P(5, -0.005), out, 0, false));
    ExpectValuesNear(out, 5, 0, 0, 5, 0);
}

TEST(RvDrawEntityIntersect2D, WithoutEndsAcceptsCrossingAwayFromAllEnds) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    RvPoint2D out = Untouched();
    EXPECT_TRUE(path.IntersectSegment2D(P(0.02, -1), P(0.02, 1), out, 0, false));
    ExpectValuesNear(out, 0.02, 0, 0, 0.02, 0);
    out = Untouched();
    EXPECT_TRUE(path.IntersectSegment2D(P(5, 0.02), P(5, -2), out, 0, false));
    ExpectValuesNear(out, 5, 0, 0, 5, 0);
}

TEST(RvDrawEntityIntersect2D, WithoutEndsComparesSpacePositionNotPlanarPair) {
    // In the plane the crossing (5, 0) is far from every end. In space a and b both sit at the
    // origin, so the crossing, interpolated between them, is the origin too and equals `a` on
    // `x`, `y`.
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    const RvPoint2D a(5, -1, 0, 0, 0);
    const RvPoint2D b(5, 1, 0, 0, 0);
    RvPoint2D out = Untouched();
    EXPECT_FALSE(path.IntersectSegment2D(a, b, out, 0, false));
    EXPECT_TRUE(HasValues(out, 0, 0, 0, 5, 0));
    out = Untouched();
    EXPECT_TRUE(path.IntersectSegment2D(a, b, out, 0, true));
}

TEST(RvDrawEntityIntersect2D, WithoutEndsAcceptsPlanarVertexHitFarInSpace) {
    // In the plane the crossing is vertex 0 itself; in space it is (0, 5), 0.01 or more away from
    // all four ends (0, 0), (0, 10), (50, 50), (60, 50).
    RvPolyLine2D path = Path(RvPoint2D(0, 0, 50, 50, 0), RvPoint2D(10, 0, 60, 50, 0));
    const RvPoint2D a(0, -1, 0, 0, 0);
    const RvPoint2D b(0, 1, 0, 10, 0);
    RvPoint2D out = Untouched();
    EXPECT_TRUE(path.IntersectSegment2D(a, b, out, 0, false));
    EXPECT_TRUE(HasValues(out, 0, 5, 0, 0, 0));
}

TEST(RvDrawEntityIntersect2D, RejectBoxRefusesHitBeyondTheGrownBoxInX) {
    // a = (0, 0), b = (1e6, 0): the box reaches x = 1e6 + 0.1. A vertical segment at
    // x = 1e6 + 0.5 is met at t = (1e6 + 0.5) / 1e6 = 1.0000005, within the bound, but both of
    // its vertices lie beyond the box, so the point form refuses what the vector form accepts.
    const RvPoint2D a = P(0, 0);
    const RvPoint2D b = P(1e6, 0);
    RvPolyLine2D path = Path(P(1e6 + 0.5, -1), P(1e6 + 0.5, 1));
    RvPoint2D out = Untouched();
    EXPECT_FALSE(path.IntersectSegment2D(a, b, out, 0, true));
    EXPECT_TRUE(IsUntouched(out));
    std::vector<RvPoint2D> all;
    EXPECT_TRUE(path.IntersectSegment2D(a, b, all));
    EXPECT_TRUE(path.TestIntersectSegment2D(a, b));
    // Inside the box (x = 1e6 + 0.05, t = 1.00000005) the point form finds it.
    RvPolyLine2D inside = Path(P(1e6 + 0.05, -1), P(1e6 + 0.05, 1));
    ASSERT_TRUE(inside.IntersectSegment2D(a, b, out, 0, true));
    EXPECT_NEAR(out.x2D, 1e6 + 0.05, 1e-06);
    EXPECT_NEAR(out.y2D, 0, 1e-09);
}

TEST(RvDrawEntityIntersect2D, RejectBoxRefusesHitBelowTheGrownBoxInX) {
    // a = (0, 0), b = (1e6, 0): the box starts at x = -0.1. At x = -0.5, t = -5e-07 is in
    // bounds, but both vertices lie below the box.
    const RvPoint2D a = P(0, 0);
    const RvPoint2D b = P(1e6, 0);
    RvPolyLine2D path = Path(P(-0.5, -1), P(-0.5, 1));
    RvPoint2D out = Untouched();
    EXPECT_FALSE(path.IntersectSegment2D(a, b, out, 0, true));
    EXPECT_TRUE(IsUntouched(out));
    EXPECT_TRUE(path.TestIntersectSegment2D(a, b));
}

TEST(RvDrawEntityIntersect2D, RejectBoxRefusesHitsBeyondTheGrownBoxInY) {
    const RvPoint2D a = P(0, 0);
    const RvPoint2D b = P(0, 1e6);
    RvPolyLine2D above = Path(P(-1, 1e6 + 0.5), P(1, 1e6 + 0.5));
    RvPolyLine2D below = Path(P(-1, -0.5), P(1, -0.5));
    RvPoint2D out = Untouched();
    EXPECT_FALSE(above.IntersectSegment2D(a, b, out, 0, true));
    EXPECT_FALSE(below.IntersectSegment2D(a, b, out, 0, true));
    EXPECT_TRUE(IsUntouched(out));
    EXPECT_TRUE(above.TestIntersectSegment2D(a, b));
    EXPECT_TRUE(below.TestIntersectSegment2D(a, b));
}

// ---------------------------------------------------------------------------------------------
// IntersectSegment2D with a vector result

TEST(RvDrawEntityIntersect2D, SegmentEndingOnInnerVertexIsFoundTwice) {
    // Segment 0 meets (1, 1) at u = 1, segment 1 at u = 0.
    RvPolyLine2D path = Path(P(0, 0), P(1, 1), P(2, 0));
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(path.IntersectSegment2D(P(1, 2), P(1, 1), out));
    ASSERT_EQ(out.size(), 2u);
    ExpectValuesNear(out[0], 1, 1, 0, 1, 1);
    ExpectValuesNear(out[1], 1, 1, 0, 1, 1);
}

TEST(RvDrawEntityIntersect2D, VectorFormHitIsInterpolatedOnThePath) {
    // The path runs from planar (0, 0), space (0, 0, 100) to planar (10, 0), space (20, 0, 200).
    // The vertical x = 5 meets it at u = 0.5: planar (5, 0), space (10, 0, 150). The z of a and
    // b plays no part.
    RvPolyLine2D path = Path(RvPoint2D(0, 0, 0, 0, 100), RvPoint2D(10, 0, 20, 0, 200));
    const RvPoint2D a(5, -1, 5, -1, -40);
    const RvPoint2D b(5, 1, 5, 1, 70);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(path.IntersectSegment2D(a, b, out));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 10, 0, 150, 5, 0));
}

TEST(RvDrawEntityIntersect2D, VectorFormAppendsToOutput) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0), P(10, 10));
    std::vector<RvPoint2D> out;
    out.push_back(Untouched());
    // (2, 5)-(12, 5) crosses segment 1 at (10, 5).
    ASSERT_TRUE(path.IntersectSegment2D(P(2, 5), P(12, 5), out));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(IsUntouched(out[0]));
    ExpectValuesNear(out[1], 10, 5, 0, 10, 5);
    // A miss leaves the vector as it is.
    EXPECT_FALSE(path.IntersectSegment2D(P(2, 5), P(8, 5), out));
    EXPECT_EQ(out.size(), 2u);
}

TEST(RvDrawEntityIntersect2D, VectorFormReportsHitsInSegmentOrder) {
    // A zigzag crossed by y = 1: segment 0 at (1, 1), segment 1 at (3, 1), segment 2 at (5, 1).
    RvPolyLine2D path = Path(P(0, 0), P(2, 2), P(4, 0), P(6, 2));
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(path.IntersectSegment2D(P(-1, 1), P(7, 1), out));
    ASSERT_EQ(out.size(), 3u);
    ExpectValuesNear(out[0], 1, 1, 0, 1, 1);
    ExpectValuesNear(out[1], 3, 1, 0, 3, 1);
    ExpectValuesNear(out[2], 5, 1, 0, 5, 1);
}

// ---------------------------------------------------------------------------------------------
// IntersectLine2D with a vector result

TEST(RvDrawEntityIntersect2D, LineVectorFormFindsHitsFarFromTheLinePoint) {
    // The line through (5, 100) with direction (0, 1) meets y = 0 at t = -100.
    RvPolyLine2D path = Path(RvPoint2D(0, 0, 0), RvPoint2D(10, 0, 10));
    std::vector<RvPoint2D> out;
    out.push_back(Untouched());
    ASSERT_TRUE(path.IntersectLine2D(P(5, 100), P(0, 1), out));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(IsUntouched(out[0]));
    // z follows the path's segment, from 0 to 10.
    ExpectValuesNear(out[1], 5, 0, 5, 5, 0);
}

TEST(RvDrawEntityIntersect2D, LineVectorFormReportsEverySegmentCrossed) {
    RvPolyLine2D path = Path(P(0, 0), P(2, 2), P(4, 0), P(6, 2));
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(path.IntersectLine2D(P(100, 1), P(-1, 0), out));
    ASSERT_EQ(out.size(), 3u);
    ExpectValuesNear(out[0], 1, 1, 0, 1, 1);
    ExpectValuesNear(out[1], 3, 1, 0, 3, 1);
    ExpectValuesNear(out[2], 5, 1, 0, 5, 1);
}

// ---------------------------------------------------------------------------------------------
// Intersection2D_HalfLine

TEST(RvDrawEntityIntersect2D, HalfLineStartingOnSegmentIsReported) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(path.Intersection2D_HalfLine(P(5, 0), P(0, 1), out));
    ASSERT_EQ(out.size(), 1u);
    ExpectValuesNear(out[0], 5, 0, 0, 5, 0);
}

TEST(RvDrawEntityIntersect2D, HalfLineMissesSegmentsBehindItsStart) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(path.Intersection2D_HalfLine(P(5, 1), P(0, 1), out));
    EXPECT_TRUE(out.empty());
    ASSERT_TRUE(path.Intersection2D_HalfLine(P(5, 1), P(0, -1), out));
    ASSERT_EQ(out.size(), 1u);
    ExpectValuesNear(out[0], 5, 0, 0, 5, 0);
}

TEST(RvDrawEntityIntersect2D, HalfLineHitIsInterpolatedOnThePathAndAppended) {
    RvPolyLine2D path = Path(RvPoint2D(0, 0, 0, 0, 100), RvPoint2D(10, 0, 20, 0, 200));
    std::vector<RvPoint2D> out;
    out.push_back(Untouched());
    ASSERT_TRUE(path.Intersection2D_HalfLine(RvPoint2D(5, -3, 0, 0, -9), P(0, 1), out));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(IsUntouched(out[0]));
    EXPECT_TRUE(HasValues(out[1], 10, 0, 150, 5, 0));
}

TEST(RvDrawEntityIntersect2D, HalfLineThroughInnerVertexReportsItTwice) {
    RvPolyLine2D path = Path(P(0, 0), P(1, 1), P(2, 0));
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(path.Intersection2D_HalfLine(P(1, 5), P(0, -1), out));
    ASSERT_EQ(out.size(), 2u);
    ExpectValuesNear(out[0], 1, 1, 0, 1, 1);
    ExpectValuesNear(out[1], 1, 1, 0, 1, 1);
}

// ---------------------------------------------------------------------------------------------
// Intersect

TEST(RvDrawEntityIntersect2D, IntersectWithEmptyEntityRaisesRangeError) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    RvPolyLine2D empty;
    std::vector<RvPoint2D> out;
    ExpectThrowWithMessage<std::out_of_range>([&] { path.Intersect(empty, out, false); },
                                              "invalid vector<T> subscript");
    ExpectThrowWithMessage<std::out_of_range>([&] { path.Intersect(empty, out, true); },
                                              "invalid vector<T> subscript");
    EXPECT_TRUE(out.empty());
}

TEST(RvDrawEntityIntersect2D, IntersectWithSingleVertexEntityIsFalse) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    RvPolyLine2D single = Path(P(5, 0));
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(path.Intersect(single, out, false));
    EXPECT_TRUE(out.empty());
}

TEST(RvDrawEntityIntersect2D, IntersectSharedEndPointCountsOnlyWithoutInner) {
    // The two paths meet only in (10, 0): u = 1 on this one, t = 0 on the other.
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    RvPolyLine2D other = Path(P(10, 0), P(10, 10));
    std::vector<RvPoint2D> inner;
    EXPECT_FALSE(path.Intersect(other, inner, true));
    EXPECT_TRUE(inner.empty());
    std::vector<RvPoint2D> all;
    ASSERT_TRUE(path.Intersect(other, all, false));
    ASSERT_EQ(all.size(), 1u);
    ExpectValuesNear(all[0], 10, 0, 0, 10, 0);
}

TEST(RvDrawEntityIntersect2D, IntersectInnerStillFindsInteriorCrossings) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    RvPolyLine2D other = Path(P(4, -2), P(4, 2));
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(path.Intersect(other, out, true));
    ASSERT_EQ(out.size(), 1u);
    ExpectValuesNear(out[0], 4, 0, 0, 4, 0);
}

TEST(RvDrawEntityIntersect2D, IntersectWalksOtherEntityInOuterLoop) {
    // This path: A = (0, 0)-(10, 0), B = (10, 0)-(10, 10). The other path's first segment
    // crosses only B, at (10, 5); its second crosses neither; its third crosses only A, at
    // (8, 0) (from (11, -1) to (5, 1), half way). Walking the other entity first gives
    // B's crossing first.
    RvPolyLine2D path = Path(P(0, 0), P(10, 0), P(10, 10));
    RvPolyLine2D other = Path(P(9, 5), P(11, 5), P(11, -1), P(5, 1));
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(path.Intersect(other, out, false));
    ASSERT_EQ(out.size(), 2u);
    ExpectValuesNear(out[0], 10, 5, 0, 10, 5);
    ExpectValuesNear(out[1], 8, 0, 0, 8, 0);
}

TEST(RvDrawEntityIntersect2D, IntersectHitIsInterpolatedOnTheOtherEntity) {
    // The other path climbs from z = 2 to z = 6 (planar (4, -1) to (4, 3), space shifted by
    // (100, 0)); it meets y = 0 at t = 0.25: planar (4, 0), space (104, 0, 3). This path's z of
    // 50 plays no part.
    RvPolyLine2D path = Path(RvPoint2D(0, 0, 50), RvPoint2D(10, 0, 50));
    RvPolyLine2D other = Path(RvPoint2D(4, -1, 104, -1, 2), RvPoint2D(4, 3, 104, 3, 6));
    std::vector<RvPoint2D> out;
    out.push_back(Untouched());
    ASSERT_TRUE(path.Intersect(other, out, false));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(IsUntouched(out[0]));
    EXPECT_TRUE(HasValues(out[1], 104, 0, 3, 4, 0));
}

TEST(RvDrawEntityIntersect2D, IntersectReportsCrossingAtInnerVertexTwice) {
    RvPolyLine2D path = Path(P(0, 0), P(1, 1), P(2, 0));
    RvPolyLine2D other = Path(P(1, 3), P(1, 0.5));
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(path.Intersect(other, out, false));
    ASSERT_EQ(out.size(), 2u);
    ExpectValuesNear(out[0], 1, 1, 0, 1, 1);
    ExpectValuesNear(out[1], 1, 1, 0, 1, 1);
    std::vector<RvPoint2D> inner;
    EXPECT_FALSE(path.Intersect(other, inner, true));
}

// ---------------------------------------------------------------------------------------------
// IntersectLine2D of two segments taken as lines

TEST(RvDrawEntityIntersect2D, TwoSegmentLinesMeetBeyondBothSegments) {
    // This segment 0 lies on y = 0; the other's segment 0 on x = 5 from y = 5 up. t2 = (0, 1),
    // s = (10, 0), den = 0*0 - 1*10 = -10, w = ((5 - 0)*10 - (5 - 0)*0) / -10 = -5, and
    // out = q + t2*w with q = planar (5, 5), space (50, 5, 1), t2 = planar (0, 1), space (0, 1, 2):
    // planar (5, 0), space (50, 0, -9).
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    RvPolyLine2D other = Path(RvPoint2D(5, 5, 50, 5, 1), RvPoint2D(5, 6, 50, 6, 3));
    RvPoint2D out = Untouched();
    ASSERT_TRUE(path.IntersectLine2D(other, out, 0, 0));
    EXPECT_TRUE(HasValues(out, 50, 0, -9, 5, 0));
}

TEST(RvDrawEntityIntersect2D, SegmentsOfOneLineHaveNoMeetingPoint) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    RvPolyLine2D other = Path(P(20, 0), P(30, 0));
    RvPoint2D out = Untouched();
    EXPECT_FALSE(path.IntersectLine2D(other, out, 0, 0));
    EXPECT_TRUE(IsUntouched(out));
    RvPolyLine2D parallel = Path(P(20, 1), P(30, 1));
    EXPECT_FALSE(path.IntersectLine2D(parallel, out, 0, 0));
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect2D, LineIndexIAtLastWrapsToFirstVertex) {
    // Segment 2 of this entity is the closing one from (10, 10) to (0, 0), on y = x; the other
    // path's line x = 4 meets it at (4, 4).
    RvPolyLine2D path = Path(P(0, 0), P(10, 0), P(10, 10));
    RvPolyLine2D other = Path(P(4, -1), P(4, 1), P(6, 1));
    RvPoint2D out = Untouched();
    ASSERT_TRUE(path.IntersectLine2D(other, out, 2, 0));
    ExpectValuesNear(out, 4, 4, 0, 4, 4);
}

TEST(RvDrawEntityIntersect2D, LineIndicesBeyondThisEntityAreFalse) {
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    RvPolyLine2D other = Path(P(4, -1), P(4, 1), P(6, 1), P(6, 3));
    RvPoint2D out = Untouched();
    EXPECT_FALSE(path.IntersectLine2D(other, out, 2, 0));
    // `other` has a segment 2 (from (6, 1) to (6, 3), meeting y = 0 at (6, 0)), but `j` is
    // bounded by this entity's count of two vertices.
    EXPECT_FALSE(path.IntersectLine2D(other, out, 0, 2));
    EXPECT_TRUE(IsUntouched(out));
    RvPolyLine2D empty;
    EXPECT_FALSE(empty.IntersectLine2D(other, out, 0, 0));
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect2D, LineIndexJWrapsByThisEntitysCount) {
    // This entity has two vertices, so j = 1 is its last index and wraps to 0: the other
    // path's segment is taken from (1, 6) back to (0, 5), on y = x + 5, meeting y = 0 at (-5, 0).
    // The other path's own next vertex (3, 6) would give a horizontal, parallel line.
    // s = (10, 0), q = (1, 6), t2 = (-1, -1): den = -1*0 - (-1)*10 = 10,
    // w = (6*10 - 1*0) / 10 = 6, out = (1, 6) + (-1, -1)*6 = (-5, 0).
    RvPolyLine2D path = Path(P(0, 0), P(10, 0));
    RvPolyLine2D other = Path(P(0, 5), P(1, 6), P(3, 6), P(4, 5));
    RvPoint2D out = Untouched();
    ASSERT_TRUE(path.IntersectLine2D(other, out, 0, 1));
    EXPECT_TRUE(HasValues(out, -5, 0, 0, -5, 0));
}

TEST(RvDrawEntityIntersect2D, LineIndexJBeyondOtherEntityRaisesRangeError) {
    // This entity has four vertices, the other two: j = 2 passes the bound of this entity but
    // indexes past the other's vertices; so does j = 1, whose next index is 2.
    RvPolyLine2D path = Path(P(0, 0), P(10, 0), P(10, 10), P(0, 10));
    RvPolyLine2D other = Path(P(4, -1), P(4, 1));
    RvPoint2D out = Untouched();
    ExpectThrowWithMessage<std::out_of_range>([&] { path.IntersectLine2D(other, out, 0, 2); },
                                              "invalid vector<T> subscript");
    ExpectThrowWithMessage<std::out_of_range>([&] { path.IntersectLine2D(other, out, 0, 1); },
                                              "invalid vector<T> subscript");
    EXPECT_TRUE(IsUntouched(out));
    // j = 0 is fine: the other's segment from (4, -1) to (4, 1) meets y = 0 at (4, 0).
    ASSERT_TRUE(path.IntersectLine2D(other, out, 0, 0));
    ExpectValuesNear(out, 4, 0, 0, 4, 0);
}
