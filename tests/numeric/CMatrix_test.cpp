#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>
#include <numbers>
#include <stdexcept>
#include <string>
#include <type_traits>

#include "ravelin/numeric/CMatrix.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/CPoint.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

double At(const CMatrix& a, int row, int col) {
    return a.m[row * 4 + col];
}

void Put(CMatrix& a, int row, int col, double v) {
    a.m[row * 4 + col] = v;
}

// A matrix from its rows.
CMatrix FromRows(const std::array<std::array<double, 4>, 4>& rows) {
    CMatrix a;
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            Put(a, r, c, rows[r][c]);
        }
    }
    return a;
}

// Element (r, c) is 4 r + c + 1: the values 1 to 16 in reading order.
CMatrix Numbered() {
    CMatrix a;
    for (int i = 0; i < 16; ++i) {
        a.m[i] = i + 1;
    }
    return a;
}

// Every element distinct and far from any value a Create operation writes.
CMatrix Filled() {
    CMatrix a;
    for (int i = 0; i < 16; ++i) {
        a.m[i] = 100 + i;
    }
    return a;
}

testing::AssertionResult IsIdentity(const CMatrix& a, double tol) {
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            const double expected = r == c ? 1.0 : 0.0;
            if (!(std::fabs(At(a, r, c) - expected) <= tol)) {
                return testing::AssertionFailure()
                       << "element (" << r << ", " << c << ") is " << At(a, r, c);
            }
        }
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult ElementsNear(const CMatrix& a, const CMatrix& b, double tol) {
    for (int i = 0; i < 16; ++i) {
        if (!(std::fabs(a.m[i] - b.m[i]) <= tol)) {
            return testing::AssertionFailure() << "element (" << i / 4 << ", " << i % 4 << ") is "
                                               << a.m[i] << ", expected " << b.m[i];
        }
    }
    return testing::AssertionSuccess();
}

// Checks that only the listed element indices differ from those of Filled().
testing::AssertionResult OthersUnchanged(const CMatrix& a, std::initializer_list<int> written) {
    for (int i = 0; i < 16; ++i) {
        if (std::find(written.begin(), written.end(), i) != written.end()) {
            continue;
        }
        if (a.m[i] != 100 + i) {
            return testing::AssertionFailure()
                   << "element (" << i / 4 << ", " << i % 4 << ") changed to " << a.m[i];
        }
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult ThrowsInvalidSubscript(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::out_of_range& e) {
        if (std::string(e.what()) == "invalid vector<T> subscript") {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << "out_of_range with message \"" << e.what() << "\"";
    } catch (...) {
        return testing::AssertionFailure() << "another exception";
    }
    return testing::AssertionFailure() << "nothing thrown";
}

struct Vec {
    double x;
    double y;
    double z;
};

Vec Cross(const Vec& a, const Vec& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Vec Unit(const Vec& a) {
    const double s = std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z);
    return {a.x / s, a.y / s, a.z / s};
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Construction and copying

TEST(CMatrixConstruction, DefaultIsIdentity) {
    const CMatrix a;
    EXPECT_TRUE(IsIdentity(a, 0.0));
}

TEST(CMatrixConstruction, HasVirtualDestructor) {
    EXPECT_TRUE(std::has_virtual_destructor_v<CMatrix>);
}

TEST(CMatrixConstruction, CopyTakesAllSixteenValuesAndIsIndependent) {
    CMatrix a = Numbered();
    const CMatrix b(a);
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(b.m[i], i + 1.0);
    }
    a.m[5] = -1.0;
    EXPECT_EQ(b.m[5], 6.0);
}

TEST(CMatrixConstruction, AssignmentTakesAllSixteenValues) {
    const CMatrix a = Numbered();
    CMatrix b;
    CMatrix& result = (b = a);
    EXPECT_EQ(&result, &b);
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(b.m[i], i + 1.0);
    }
}

// ---------------------------------------------------------------------------------------------
// Create operations

TEST(CMatrixCreate, IdentityWritesAllSixteen) {
    CMatrix a = Filled();
    a.CreateIdentityM();
    EXPECT_TRUE(IsIdentity(a, 0.0));
}

TEST(CMatrixCreate, RotateXWritesOnlyItsFourElements) {
    CMatrix a = Filled();
    const double angle = kPi / 6;  // cos = sqrt(3)/2, sin = 1/2
    a.CreateRotateMX(angle);
    EXPECT_NEAR(At(a, 1, 1), std::sqrt(3.0) / 2, 1e-15);
    EXPECT_NEAR(At(a, 1, 2), -0.5, 1e-15);
    EXPECT_NEAR(At(a, 2, 1), 0.5, 1e-15);
    EXPECT_NEAR(At(a, 2, 2), std::sqrt(3.0) / 2, 1e-15);
    EXPECT_TRUE(OthersUnchanged(a, {5, 6, 9, 10}));
}

TEST(CMatrixCreate, RotateYWritesOnlyItsFourElementsWithTransposedSigns) {
    CMatrix a = Filled();
    a.CreateRotateMY(kPi / 6);
    EXPECT_NEAR(At(a, 0, 0), std::sqrt(3.0) / 2, 1e-15);
    EXPECT_NEAR(At(a, 0, 2), -0.5, 1e-15);
    EXPECT_NEAR(At(a, 2, 0), 0.5, 1e-15);
    EXPECT_NEAR(At(a, 2, 2), std::sqrt(3.0) / 2, 1e-15);
    EXPECT_TRUE(OthersUnchanged(a, {0, 2, 8, 10}));
}

TEST(CMatrixCreate, RotateZWritesOnlyItsFourElements) {
    CMatrix a = Filled();
    a.CreateRotateMZ(kPi / 6);
    EXPECT_NEAR(At(a, 0, 0), std::sqrt(3.0) / 2, 1e-15);
    EXPECT_NEAR(At(a, 0, 1), -0.5, 1e-15);
    EXPECT_NEAR(At(a, 1, 0), 0.5, 1e-15);
    EXPECT_NEAR(At(a, 1, 1), std::sqrt(3.0) / 2, 1e-15);
    EXPECT_TRUE(OthersUnchanged(a, {0, 1, 4, 5}));
}

TEST(CMatrixCreate, TranslateWritesOnlyFourthColumn) {
    CMatrix a = Filled();
    a.CreateTranslateM(1.5, -2.5, 3.5);
    EXPECT_EQ(At(a, 0, 3), 1.5);
    EXPECT_EQ(At(a, 1, 3), -2.5);
    EXPECT_EQ(At(a, 2, 3), 3.5);
    EXPECT_TRUE(OthersUnchanged(a, {3, 7, 11}));
}

TEST(CMatrixCreate, ScaleWritesOnlyFirstThreeDiagonalElements) {
    CMatrix a = Filled();
    a.CreateScaleM(2.0, -3.0, 0.5);
    EXPECT_EQ(At(a, 0, 0), 2.0);
    EXPECT_EQ(At(a, 1, 1), -3.0);
    EXPECT_EQ(At(a, 2, 2), 0.5);
    EXPECT_TRUE(OthersUnchanged(a, {0, 5, 10}));
}

TEST(CMatrixCreate, RotateXTurnsYOntoZ) {
    CMatrix a;
    a.CreateRotateMX(kPi / 2);
    ExpectXyzNear(a.GetVector3D(0, 1, 0), 0, 0, 1, 1e-15);
    ExpectXyzNear(a.GetVector3D(0, 0, 1), 0, -1, 0, 1e-15);
}

TEST(CMatrixCreate, RotateYTurnsXOntoPositiveZ) {
    // With (2,0) = sin a and (0,2) = -sin a, a quarter turn takes x to +z and z to -x: the
    // opposite sense of the textbook rotation about y.
    CMatrix a;
    a.CreateRotateMY(kPi / 2);
    ExpectXyzNear(a.GetVector3D(1, 0, 0), 0, 0, 1, 1e-15);
    ExpectXyzNear(a.GetVector3D(0, 0, 1), -1, 0, 0, 1e-15);
    ExpectXyzNear(a.GetVector3D(0, 1, 0), 0, 1, 0, 1e-15);
}

TEST(CMatrixCreate, RotateZTurnsXOntoY) {
    CMatrix a;
    a.CreateRotateMZ(kPi / 2);
    ExpectXyzNear(a.GetVector3D(1, 0, 0), 0, 1, 0, 1e-15);
    ExpectXyzNear(a.GetVector3D(0, 1, 0), -1, 0, 0, 1e-15);
}

TEST(CMatrixCreate, SecondTranslateReplacesTranslationAndKeepsRotation) {
    CMatrix a;
    a.CreateRotateMZ(kPi / 3);
    a.CreateTranslateM(1.0, 2.0, 3.0);
    const CMatrix rotated = a;
    a.CreateTranslateM(4.0, 5.0, 6.0);
    EXPECT_EQ(At(a, 0, 3), 4.0);
    EXPECT_EQ(At(a, 1, 3), 5.0);
    EXPECT_EQ(At(a, 2, 3), 6.0);
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 3; ++c) {
            EXPECT_EQ(At(a, r, c), At(rotated, r, c)) << "(" << r << ", " << c << ")";
        }
    }
    EXPECT_EQ(At(a, 3, 3), 1.0);
}

// ---------------------------------------------------------------------------------------------
// CreateRotateM

TEST(CMatrixCreateRotateM, AboutZAxisEqualsRotateZ) {
    for (const double angle : {0.0, 0.7, -1.3, kPi / 2, 2.5}) {
        SCOPED_TRACE("angle " + std::to_string(angle));
        CMatrix expected;
        expected.CreateRotateMZ(angle);
        CMatrix a;
        a.CreateRotateM(angle, RvPoint3D(0, 0, 1));
        EXPECT_TRUE(ElementsNear(a, expected, 1e-15));
        CMatrix b;
        b.CreateRotateM(angle, RvPoint3D(0, 0, 5));
        EXPECT_TRUE(ElementsNear(b, expected, 1e-15));
    }
}

TEST(CMatrixCreateRotateM, KeepsAxisAndTurnsPerpendicularVectorsByAngle) {
    // The steps turn the axis onto +z about x and then about y, rotate about z, and turn back,
    // so the result is the right-handed rotation about the axis: for a unit axis n and u
    // perpendicular to it, R u = cos(angle) u + sin(angle) (n x u).
    const Vec axes[] = {{1, 0, 0}, {0, 1, 0},  {0, -1, 0}, {0, 0, -1},
                        {1, 1, 1}, {1, 2, -2}, {-3, 0, 4}, {0.2, -0.5, 0.1}};
    for (const Vec& axis : axes) {
        for (const double angle : {0.7, -1.3, kPi / 2}) {
            SCOPED_TRACE("axis (" + std::to_string(axis.x) + ", " + std::to_string(axis.y) + ", " +
                         std::to_string(axis.z) + "), angle " + std::to_string(angle));
            CMatrix a;
            a.CreateRotateM(angle, RvPoint3D(axis.x, axis.y, axis.z));

            ExpectXyzNear(a.GetVector3D(axis.x, axis.y, axis.z), axis.x, axis.y, axis.z, 1e-12);
            ExpectXyzNear(a.GetPoint3D(0, 0, 0), 0, 0, 0, 1e-15);

            const Vec n = Unit(axis);
            const Vec helper = std::fabs(n.x) < 0.9 ? Vec{1, 0, 0} : Vec{0, 1, 0};
            const Vec u = Cross(n, helper);
            const Vec nu = Cross(n, u);
            const double c = std::cos(angle);
            const double s = std::sin(angle);
            ExpectXyzNear(a.GetVector3D(u.x, u.y, u.z), c * u.x + s * nu.x, c * u.y + s * nu.y,
                          c * u.z + s * nu.z, 1e-12);
            // The second perpendicular direction turns the same way: n x u goes to
            // cos(angle) (n x u) - sin(angle) u.
            ExpectXyzNear(a.GetVector3D(nu.x, nu.y, nu.z), c * nu.x - s * u.x, c * nu.y - s * u.y,
                          c * nu.z - s * u.z, 1e-12);
        }
    }
}

// ---------------------------------------------------------------------------------------------
// Products

// With A(i, k) = 4 i + k + 1 and B(k, j) = k + j, summing over k = 0..3 (sum k = 6,
// sum k^2 = 14):
//   (A B)(i, j) = (4 i + 1)(6 + 4 j) + 14 + 6 j
//   (B A)(i, j) = i (4 j + 28) + 6 j + 62
namespace {

CMatrix SumOfIndices() {
    CMatrix b;
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            Put(b, r, c, r + c);
        }
    }
    return b;
}

double ProductAB(int i, int j) {
    return (4.0 * i + 1) * (6.0 + 4 * j) + 14 + 6 * j;
}

double ProductBA(int i, int j) {
    return i * (4.0 * j + 28) + 6 * j + 62;
}

}  // namespace

TEST(CMatrixMutlMatrix, IsOrdinaryProduct) {
    CMatrix p;
    p.MutlMatrix(Numbered(), SumOfIndices());
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            EXPECT_EQ(At(p, i, j), ProductAB(i, j)) << "(" << i << ", " << j << ")";
        }
    }
    p.MutlMatrix(SumOfIndices(), Numbered());
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            EXPECT_EQ(At(p, i, j), ProductBA(i, j)) << "(" << i << ", " << j << ")";
        }
    }
}

TEST(CMatrixMutlMatrix, MayTakeItselfAsArgument) {
    CMatrix p = Numbered();
    p.MutlMatrix(SumOfIndices(), p);
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            EXPECT_EQ(At(p, i, j), ProductBA(i, j)) << "(" << i << ", " << j << ")";
        }
    }
    CMatrix q = Numbered();
    q.MutlMatrix(q, SumOfIndices());
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            EXPECT_EQ(At(q, i, j), ProductAB(i, j)) << "(" << i << ", " << j << ")";
        }
    }
}

TEST(CMatrixOperatorMultiply, RightOperandIsAppliedAfterLeft) {
    // A * B is the ordinary product B A.
    const CMatrix p = Numbered() * SumOfIndices();
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            EXPECT_EQ(At(p, i, j), ProductBA(i, j)) << "(" << i << ", " << j << ")";
        }
    }
}

TEST(CMatrixOperatorMultiply, TranslationTimesRotationTranslatesFirst) {
    CMatrix x;
    x.CreateTranslateM(1.0, 0.0, 0.0);
    CMatrix o;
    o.CreateRotateMZ(kPi / 2);
    const CMatrix p = x * o;
    // The origin is moved to (1, 0, 0) and then turned a quarter about z to (0, 1, 0).
    ExpectXyzNear(p.GetPoint3D(0, 0, 0), 0, 1, 0, 1e-15);
    ExpectXyzNear(p.GetPoint3D(1, 0, 0), 0, 2, 0, 1e-15);
    ExpectXyzNear(p.GetPoint3D(0, 1, 0), -1, 1, 0, 1e-15);
    EXPECT_NEAR(At(p, 0, 3), 0.0, 1e-15);
    EXPECT_NEAR(At(p, 1, 3), 1.0, 1e-15);
    // The other order turns first: the origin stays and is then moved to (1, 0, 0).
    const CMatrix q = o * x;
    ExpectXyzNear(q.GetPoint3D(0, 0, 0), 1, 0, 0, 1e-15);
    ExpectXyzNear(q.GetPoint3D(1, 0, 0), 1, 1, 0, 1e-15);
}

TEST(CMatrixOperatorMultiply, CompoundAssignmentAppliesRightOperandAfter) {
    CMatrix a = Numbered();
    CMatrix& result = (a *= SumOfIndices());
    EXPECT_EQ(&result, &a);
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            EXPECT_EQ(At(a, i, j), ProductBA(i, j)) << "(" << i << ", " << j << ")";
        }
    }
    CMatrix x;
    x.CreateTranslateM(1.0, 0.0, 0.0);
    CMatrix o;
    o.CreateRotateMZ(kPi / 2);
    x *= o;
    ExpectXyzNear(x.GetPoint3D(0, 0, 0), 0, 1, 0, 1e-15);
}

// ---------------------------------------------------------------------------------------------
// Applying the matrix to points
//
// On Numbered(), rows 0 to 2 on (1, 2, 3, 1) give 1 + 4 + 9 + 4 = 18, 5 + 12 + 21 + 8 = 46 and
// 9 + 20 + 33 + 12 = 74; on (1, 2, 3, 0) they give 14, 38 and 62.

TEST(CMatrixGetPoint3D, AppliesRowsZeroToTwoWithTranslation) {
    const CMatrix a = Numbered();
    const RvPoint3D p = a.GetPoint3D(1, 2, 3);
    EXPECT_EQ(p.x, 18.0);
    EXPECT_EQ(p.y, 46.0);
    EXPECT_EQ(p.z, 74.0);
    const RvPoint3D q = a.GetPoint3D(RvPoint3D(1, 2, 3));
    EXPECT_EQ(q.x, 18.0);
    EXPECT_EQ(q.y, 46.0);
    EXPECT_EQ(q.z, 74.0);
}

TEST(CMatrixGetPoint3D, TranslationMovesPoint) {
    CMatrix a;
    a.CreateTranslateM(1.0, -2.0, 3.0);
    const RvPoint3D p = a.GetPoint3D(RvPoint3D(10, 20, 30));
    EXPECT_EQ(p.x, 11.0);
    EXPECT_EQ(p.y, 18.0);
    EXPECT_EQ(p.z, 33.0);
}

TEST(CMatrixGetVector3D, LeavesOutTranslation) {
    const CMatrix a = Numbered();
    const RvPoint3D v = a.GetVector3D(1, 2, 3);
    EXPECT_EQ(v.x, 14.0);
    EXPECT_EQ(v.y, 38.0);
    EXPECT_EQ(v.z, 62.0);
    const RvPoint3D w = a.GetVector3D(RvPoint3D(1, 2, 3));
    EXPECT_EQ(w.x, 14.0);
    EXPECT_EQ(w.y, 38.0);
    EXPECT_EQ(w.z, 62.0);

    CMatrix t;
    t.CreateTranslateM(1.0, -2.0, 3.0);
    const RvPoint3D u = t.GetVector3D(RvPoint3D(10, 20, 30));
    EXPECT_EQ(u.x, 10.0);
    EXPECT_EQ(u.y, 20.0);
    EXPECT_EQ(u.z, 30.0);
}

TEST(CMatrixGetRvPoint2D, PlanarPairFromRowsZeroAndOneAndSpaceUnchanged) {
    const CMatrix a = Numbered();
    EXPECT_TRUE(HasValues(a.GetRvPoint2D(RvPoint3D(1, 2, 3)), 1, 2, 3, 18, 46));
    EXPECT_TRUE(HasValues(a.GetRvPoint2D(1, 2, 3), 1, 2, 3, 18, 46));
}

TEST(CMatrixGetRvPoint2D, ReadsSpaceOfPlanarPointNotItsPlanarPair) {
    CMatrix a;
    a.CreateTranslateM(10.0, 20.0, 30.0);
    const RvPoint2D source(-5.0, -6.0, 1.0, 2.0, 3.0);
    const RvPoint2D p = a.GetRvPoint2D(source);
    EXPECT_EQ(p.x2D, 11.0);
    EXPECT_EQ(p.y2D, 22.0);
    EXPECT_EQ(p.x, 1.0);
    EXPECT_EQ(p.y, 2.0);
    EXPECT_EQ(p.z, 3.0);
}

TEST(CMatrixSetRvPoint2DOnly, SetsPlanarPairAndKeepsSpace) {
    const CMatrix a = Numbered();
    RvPoint2D p(-9.0, -9.0, 1.0, 2.0, 3.0);
    a.SetRvPoint2DOnly(p);
    EXPECT_EQ(p.x2D, 18.0);
    EXPECT_EQ(p.y2D, 46.0);
    EXPECT_EQ(p.x, 1.0);
    EXPECT_EQ(p.y, 2.0);
    EXPECT_EQ(p.z, 3.0);
}

TEST(CMatrixGetPoint, DevicePointUsesRowsZeroAndOneWithTranslation) {
    // X = 1 * 1 + 2 * 2 + 4 = 9, Y = 5 * 1 + 6 * 2 + 8 = 25.
    const CMatrix a = Numbered();
    const CPoint p = a.GetPoint(CPoint(1, 2));
    EXPECT_EQ(p.x, 9);
    EXPECT_EQ(p.y, 25);
}

TEST(CMatrixGetPoint, DevicePointIgnoresZColumn) {
    CMatrix a;
    Put(a, 0, 2, 1000.0);
    Put(a, 1, 2, -1000.0);
    const CPoint p = a.GetPoint(CPoint(3, -4));
    EXPECT_EQ(p.x, 3);
    EXPECT_EQ(p.y, -4);
}

TEST(CMatrixGetPoint, PointInSpaceUsesRowsZeroAndOneWithZ) {
    const CMatrix a = Numbered();
    const CPoint p = a.GetPoint(RvPoint3D(1, 2, 3));
    EXPECT_EQ(p.x, 18);
    EXPECT_EQ(p.y, 46);
}

TEST(CMatrixGetPoint, HalvesRoundAwayFromZero) {
    const CMatrix identity;
    const CPoint p = identity.GetPoint(RvPoint3D(0.5, -0.5, 0.0));
    EXPECT_EQ(p.x, 1);
    EXPECT_EQ(p.y, -1);
    const CPoint q = identity.GetPoint(RvPoint3D(2.5, -2.5, 7.0));
    EXPECT_EQ(q.x, 3);
    EXPECT_EQ(q.y, -3);
    const CPoint r = identity.GetPoint(RvPoint3D(0.4999, -0.4999, 0.0));
    EXPECT_EQ(r.x, 0);
    EXPECT_EQ(r.y, 0);
    const CPoint zero = identity.GetPoint(RvPoint3D(0.0, 0.0, 0.0));
    EXPECT_EQ(zero.x, 0);
    EXPECT_EQ(zero.y, 0);
}

TEST(CMatrixGetPoint, DevicePointOverloadRoundsHalvesAwayFromZero) {
    CMatrix a;
    a.CreateTranslateM(0.5, -0.5, 0.0);
    const CPoint p = a.GetPoint(CPoint(0, 0));
    EXPECT_EQ(p.x, 1);
    EXPECT_EQ(p.y, -1);
    CMatrix b;
    b.CreateScaleM(0.5, 0.5, 1.0);
    const CPoint q = b.GetPoint(CPoint(-5, 5));
    EXPECT_EQ(q.x, -3);
    EXPECT_EQ(q.y, 3);
}

TEST(CMatrixGetPoint, HugeValuesSaturateToIntegerLimits) {
    CMatrix a;
    a.CreateTranslateM(1e12, -1e12, 0.0);
    const CPoint p = a.GetPoint(RvPoint3D(0, 0, 0));
    EXPECT_EQ(p.x, std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(p.y, std::numeric_limits<std::int32_t>::min());
    const CPoint q = a.GetPoint(CPoint(0, 0));
    EXPECT_EQ(q.x, std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(q.y, std::numeric_limits<std::int32_t>::min());
}

// ---------------------------------------------------------------------------------------------
// Row operations

TEST(CMatrixRows, MultRowScalesOnlyThatRow) {
    CMatrix a = Numbered();
    a.MultRow(1, 2.0);
    for (int i = 0; i < 16; ++i) {
        const double expected = (i >= 4 && i < 8) ? 2.0 * (i + 1) : i + 1.0;
        EXPECT_EQ(a.m[i], expected) << "index " << i;
    }
}

TEST(CMatrixRows, SwapRowsExchangesTwoRows) {
    CMatrix a = Numbered();
    a.SwapRows(0, 3);
    const double expected[16] = {13, 14, 15, 16, 5, 6, 7, 8, 9, 10, 11, 12, 1, 2, 3, 4};
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(a.m[i], expected[i]) << "index " << i;
    }
}

TEST(CMatrixRows, AddRowAddsMultipleOfSourceToDestination) {
    // Row 2 (9, 10, 11, 12) + 2 * row 0 (1, 2, 3, 4).
    CMatrix a = Numbered();
    a.AddRow(2.0, 0, 2);
    const double expected[16] = {1, 2, 3, 4, 5, 6, 7, 8, 11, 14, 17, 20, 13, 14, 15, 16};
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(a.m[i], expected[i]) << "index " << i;
    }
}

TEST(CMatrixRows, SubRowSubtractsMultipleOfSourceFromDestination) {
    // Row 2 (9, 10, 11, 12) - 2 * row 0 (1, 2, 3, 4).
    CMatrix a = Numbered();
    a.SubRow(2.0, 0, 2);
    const double expected[16] = {1, 2, 3, 4, 5, 6, 7, 8, 7, 6, 5, 4, 13, 14, 15, 16};
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(a.m[i], expected[i]) << "index " << i;
    }
}

TEST(CMatrixRows, OutOfRangeIndicesRaiseInvalidSubscript) {
    CMatrix a;
    const RvPoint3D p(1, 2, 3);
    EXPECT_TRUE(ThrowsInvalidSubscript([&] { a.MultRow(4, 2.0); }));
    EXPECT_TRUE(ThrowsInvalidSubscript([&] { a.MultRow(-1, 2.0); }));
    EXPECT_TRUE(ThrowsInvalidSubscript([&] { a.SwapRows(0, 4); }));
    EXPECT_TRUE(ThrowsInvalidSubscript([&] { a.SwapRows(-1, 0); }));
    EXPECT_TRUE(ThrowsInvalidSubscript([&] { a.AddRow(1.0, 4, 0); }));
    EXPECT_TRUE(ThrowsInvalidSubscript([&] { a.AddRow(1.0, 0, 4); }));
    EXPECT_TRUE(ThrowsInvalidSubscript([&] { a.SubRow(1.0, 5, 0); }));
    EXPECT_TRUE(ThrowsInvalidSubscript([&] { a.SubRow(1.0, 0, -1); }));
    EXPECT_TRUE(ThrowsInvalidSubscript([&] { (void)a.GetIndexOfFirst(4); }));
    EXPECT_TRUE(ThrowsInvalidSubscript([&] { (void)a.GetIndexOfFirst(-1); }));
    EXPECT_TRUE(ThrowsInvalidSubscript([&] { a.SetCol(4, p); }));
    EXPECT_TRUE(ThrowsInvalidSubscript([&] { a.SetCol(-1, p); }));
}

TEST(CMatrixGetIndexOfFirst, FirstColumnPlainlyAboveThreshold) {
    CMatrix a = FromRows({{{0.0, 1e-10, 2e-10, 0.0},
                           {-1e-10, -1.1e-10, 5.0, 0.0},
                           {1e-10, 1e-10, -1e-10, 1e-10},
                           {0.0, 0.0, 0.0, 5.0}}});
    EXPECT_EQ(a.GetIndexOfFirst(0), 2);  // 1e-10 is not above the threshold
    EXPECT_EQ(a.GetIndexOfFirst(1), 1);  // magnitude counts
    EXPECT_EQ(a.GetIndexOfFirst(2), 4);  // none
    EXPECT_EQ(a.GetIndexOfFirst(3), 3);
    const CMatrix identity;
    for (int r = 0; r < 4; ++r) {
        EXPECT_EQ(identity.GetIndexOfFirst(r), r);
    }
}

TEST(CMatrixSetCol, WritesRowsZeroToTwoAndLeavesRowThree) {
    CMatrix a = Numbered();
    a.SetCol(1, RvPoint3D(-7, -8, -9));
    const double expected[16] = {1, -7, 3, 4, 5, -8, 7, 8, 9, -9, 11, 12, 13, 14, 15, 16};
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(a.m[i], expected[i]) << "index " << i;
    }
    CMatrix b = Numbered();
    b.SetCol(3, RvPoint3D(0.5, 0.25, 0.125));
    EXPECT_EQ(At(b, 0, 3), 0.5);
    EXPECT_EQ(At(b, 1, 3), 0.25);
    EXPECT_EQ(At(b, 2, 3), 0.125);
    EXPECT_EQ(At(b, 3, 3), 16.0);
}

// ---------------------------------------------------------------------------------------------
// GetA33

TEST(CMatrixGetA33, IdentityAndScale) {
    EXPECT_EQ(CMatrix().GetA33(), 1.0);
    CMatrix s;
    s.CreateScaleM(2.0, 3.0, 4.0);
    EXPECT_EQ(s.GetA33(), 24.0);
}

TEST(CMatrixGetA33, EachPermutationHasItsSign) {
    // Each of the six terms of the rule is the only nonzero term for one permutation matrix.
    // The fourth row and column hold values that must not matter.
    struct Case {
        int perm[3];
        double sign;
    };
    const Case cases[] = {{{0, 1, 2}, 1.0},  {{1, 2, 0}, 1.0},  {{2, 0, 1}, 1.0},
                          {{0, 2, 1}, -1.0}, {{1, 0, 2}, -1.0}, {{2, 1, 0}, -1.0}};
    for (const Case& c : cases) {
        SCOPED_TRACE("permutation " + std::to_string(c.perm[0]) + std::to_string(c.perm[1]) +
                     std::to_string(c.perm[2]));
        CMatrix a = Filled();
        for (int r = 0; r < 3; ++r) {
            for (int col = 0; col < 3; ++col) {
                Put(a, r, col, c.perm[r] == col ? 1.0 : 0.0);
            }
        }
        EXPECT_EQ(a.GetA33(), c.sign);
    }
}

TEST(CMatrixGetA33, GeneralMatrix) {
    // det [[1, 2, 3], [4, 5, 6], [7, 8, 10]] = 1 (50 - 48) - 2 (40 - 42) + 3 (32 - 35) = -3.
    const CMatrix a = FromRows({{{1, 2, 3, 99}, {4, 5, 6, 99}, {7, 8, 10, 99}, {99, 99, 99, 99}}});
    EXPECT_DOUBLE_EQ(a.GetA33(), -3.0);
    // Rows in arithmetic progression are dependent.
    EXPECT_DOUBLE_EQ(Numbered().GetA33(), 0.0);
}

TEST(CMatrixGetA33, RotationHasDeterminantOne) {
    CMatrix a;
    a.CreateRotateM(0.9, RvPoint3D(1, 2, 3));
    EXPECT_NEAR(a.GetA33(), 1.0, 1e-12);
}

// ---------------------------------------------------------------------------------------------
// GetInverseMatrix

TEST(CMatrixGetInverseMatrix, RowAtOrBelowThresholdGivesIdentity) {
    for (int row = 0; row < 4; ++row) {
        SCOPED_TRACE("row " + std::to_string(row));
        CMatrix a;
        a.CreateScaleM(2.0, 3.0, 4.0);
        a.CreateTranslateM(1.0, 2.0, 3.0);
        for (int c = 0; c < 4; ++c) {
            Put(a, row, c, c % 2 == 0 ? 1e-10 : -1e-10);
        }
        EXPECT_TRUE(IsIdentity(a.GetInverseMatrix(), 0.0));
    }
}

TEST(CMatrixGetInverseMatrix, ZeroFourthRowGivesIdentity) {
    CMatrix a;
    a.CreateScaleM(2.0, 3.0, 4.0);
    Put(a, 3, 3, 0.0);
    EXPECT_TRUE(IsIdentity(a.GetInverseMatrix(), 0.0));
}

TEST(CMatrixGetInverseMatrix, PivotJustAboveThresholdIsUsed) {
    CMatrix a;
    a.CreateScaleM(1.0, 1.0, 2e-10);
    const CMatrix inverse = a.GetInverseMatrix();
    EXPECT_DOUBLE_EQ(At(inverse, 2, 2), 1.0 / 2e-10);
    EXPECT_EQ(At(inverse, 0, 0), 1.0);
    EXPECT_EQ(At(inverse, 3, 3), 1.0);
}

TEST(CMatrixGetInverseMatrix, DiagonalInvertsExactly) {
    const CMatrix a = FromRows({{{2, 0, 0, 0}, {0, 4, 0, 0}, {0, 0, 8, 0}, {0, 0, 0, 0.5}}});
    const CMatrix inverse = a.GetInverseMatrix();
    const CMatrix expected =
        FromRows({{{0.5, 0, 0, 0}, {0, 0.25, 0, 0}, {0, 0, 0.125, 0}, {0, 0, 0, 2}}});
    EXPECT_TRUE(ElementsNear(inverse, expected, 0.0));
}

TEST(CMatrixGetInverseMatrix, TranslationInverseHasNegatedTranslation) {
    // The first three pivots are 1 with nothing below or above them in their columns; the
    // fourth row then clears each translation value t from the fourth column, leaving -t there
    // in the result.
    CMatrix a;
    a.CreateTranslateM(3.0, -4.0, 5.0);
    const CMatrix inverse = a.GetInverseMatrix();
    CMatrix expected;
    expected.CreateTranslateM(-3.0, 4.0, -5.0);
    EXPECT_TRUE(ElementsNear(inverse, expected, 0.0));
}

TEST(CMatrixGetInverseMatrix, GeneralMatrixTimesInverseIsIdentity) {
    // Determinants 66 and -7; the second has a zero first pivot, so its pivots start off the
    // diagonal and have to be sorted back.
    const CMatrix matrices[] = {
        FromRows({{{2, 1, 0, 1}, {1, 3, 1, 0}, {0, 1, 4, 2}, {1, 0, 1, 5}}}),
        FromRows({{{0, 2, 1, 0}, {3, 0, 0, 1}, {1, 1, 1, 0}, {0, 0, 2, 1}}}),
    };
    for (const CMatrix& a : matrices) {
        SCOPED_TRACE("matrix starting " + std::to_string(a.m[0]) + ", " + std::to_string(a.m[1]));
        const CMatrix inverse = a.GetInverseMatrix();
        CMatrix left;
        left.MutlMatrix(a, inverse);
        CMatrix right;
        right.MutlMatrix(inverse, a);
        EXPECT_TRUE(IsIdentity(left, 1e-12));
        EXPECT_TRUE(IsIdentity(right, 1e-12));
    }
}

TEST(CMatrixGetInverseMatrix, RigidTransformInverseUndoesIt) {
    CMatrix a;
    a.CreateRotateM(0.8, RvPoint3D(1, -2, 2));
    a.CreateTranslateM(5.0, -6.0, 7.0);
    const CMatrix inverse = a.GetInverseMatrix();
    const RvPoint3D moved = a.GetPoint3D(1.5, 2.5, -3.5);
    ExpectXyzNear(inverse.GetPoint3D(moved), 1.5, 2.5, -3.5, 1e-12);
    CMatrix product;
    product.MutlMatrix(a, inverse);
    EXPECT_TRUE(IsIdentity(product, 1e-12));
}

namespace {

// Step 3 of the inverse on a permutation matrix whose row i has its 1 in column perm[i]:
// elimination leaves the matrix as it is and the work inverse at identity, and only the
// swaps act. Returns whether the rows are in order when the loop stops, by running out of rows
// or after the sixth pass.
bool SortedWhenPassesStop(std::array<int, 4> perm) {
    int passes = 0;
    int i = 0;
    while (i < 4) {
        const int j = perm[i];
        if (j != i) {
            std::swap(perm[i], perm[j]);
            i = 0;
        }
        passes += 1;
        if (passes > 5) {
            break;
        }
        i += 1;
    }
    return perm == std::array<int, 4>{0, 1, 2, 3};
}

CMatrix PermutationMatrix(const std::array<int, 4>& perm) {
    CMatrix a;
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            Put(a, r, c, perm[r] == c ? 1.0 : 0.0);
        }
    }
    return a;
}

}  // namespace

TEST(CMatrixGetInverseMatrix, RowPermutationsOfIdentityComeBackCorrectWithinSixPasses) {
    // The work inverse only collects the swaps S, and the work copy becomes S P; the result is
    // the inverse of P exactly when the work copy ends sorted. The pass counter is tested after
    // that pass's swap, so a permutation whose last swap falls in the sixth pass still comes
    // back sorted; worked through by hand, all 24 permutations of four rows are sorted by then.
    std::array<int, 4> perm = {0, 1, 2, 3};
    int fitting = 0;
    do {
        SCOPED_TRACE("permutation " + std::to_string(perm[0]) + std::to_string(perm[1]) +
                     std::to_string(perm[2]) + std::to_string(perm[3]));
        const CMatrix p = PermutationMatrix(perm);
        const CMatrix inverse = p.GetInverseMatrix();
        CMatrix product;
        product.MutlMatrix(p, inverse);
        if (SortedWhenPassesStop(perm)) {
            ++fitting;
            EXPECT_TRUE(IsIdentity(product, 0.0));
        } else {
            EXPECT_FALSE(IsIdentity(product, 0.0));
        }
    } while (std::next_permutation(perm.begin(), perm.end()));
    EXPECT_GE(fitting, 7);
    EXPECT_EQ(fitting, 24);
}

TEST(CMatrixGetInverseMatrix, SingleRowSwapsComeBackCorrect) {
    for (int a = 0; a < 4; ++a) {
        for (int b = a + 1; b < 4; ++b) {
            SCOPED_TRACE("swap " + std::to_string(a) + " " + std::to_string(b));
            std::array<int, 4> perm = {0, 1, 2, 3};
            std::swap(perm[a], perm[b]);
            const CMatrix p = PermutationMatrix(perm);
            // A single swap is its own inverse.
            EXPECT_TRUE(ElementsNear(p.GetInverseMatrix(), p, 0.0));
        }
    }
}

TEST(CMatrixGetInverseMatrix, SingularMatrixPassingZeroRowTestReturnsWithoutCrashing) {
    // Each has no zero row, so the elimination runs; a row then loses its pivot and the pivot
    // sorting meets a row with no usable column.
    const CMatrix matrices[] = {
        FromRows({{{1, 2, 0, 0}, {2, 4, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}}),
        FromRows({{{0, 0, 0, 1}, {1, 1, 1, 1}, {1, 1, 1, 1}, {0, 1, 0, 0}}}),
        FromRows({{{0.1, 0.2, 0.3, 0}, {0.4, 0.5, 0.6, 0}, {0.7, 0.8, 0.9, 0}, {0, 0, 0, 1}}}),
    };
    for (const CMatrix& a : matrices) {
        SCOPED_TRACE("matrix starting " + std::to_string(a.m[0]) + ", " + std::to_string(a.m[1]));
        CMatrix inverse;
        EXPECT_NO_THROW(inverse = a.GetInverseMatrix());
        for (int i = 0; i < 16; ++i) {
            EXPECT_TRUE(std::isfinite(inverse.m[i])) << "index " << i;
        }
    }
}
