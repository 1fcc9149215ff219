// Boolean combination against Boost.Geometry on random pairs of simple polygons in general
// position: rectangles, convex polygons and star-shaped polygons at drawing scale. Combine's
// rings are read under the even-odd rule (a hole comes back as a ring of its own); the area of
// the symmetric difference of that region with Boost's must stay within 0.01 times the sum of
// the operands' perimeters, the band that snapping vertices at 0.01 allows, and both must agree
// on the membership of random points farther than 0.1 from every boundary.

#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "support/PolygonCorpus.h"

namespace ravelin {
namespace {

using testing_support::CompareWithPeer;
using testing_support::ConvexPair;
using testing_support::ErrorArea;
using testing_support::EvenOddArea;
using testing_support::EvenOddRegion;
using testing_support::ModeName;
using testing_support::Outline;
using testing_support::OutlinePair;
using testing_support::PeerComparison;
using testing_support::RectanglePair;
using testing_support::SimpleLoops;
using testing_support::StarPair;
using testing_support::SymmetricDifferenceArea;

// A few hundred pairs: the whole program takes well under a second, also with the address
// sanitizer.
constexpr int kRectanglePairs = 150;
constexpr int kConvexPairs = 150;
constexpr int kStarPairs = 400;
constexpr int kSamplesPerCase = 200;

constexpr _RvCombineMode kModes[3] = {CombineDifference, CombineIntersection, CombineUnion};

// What one family of pairs gave, over all pairs and modes.
struct Tally {
    int pairs = 0;
    int overlappingPairs = 0;  // pairs whose intersection has area by Boost.Geometry
    int cases = 0;             // pairs times modes
    int agreed = 0;
    int nonEmpty = 0;  // cases where both results have area and Combine returned rings
    long samples = 0;
    long samplesInside = 0;
    std::vector<std::string> disagreements;

    std::string Report() const {
        std::ostringstream s;
        s << agreed << " of " << cases << " cases agree";
        for (const std::string& d : disagreements) {
            s << "\n  " << d;
        }
        return s.str();
    }
};

// Compares every pair of the family in the three modes.
template <class Make>
Tally RunFamily(Make make, std::uint32_t firstSeed, int count) {
    Tally t;
    for (int k = 0; k < count; ++k) {
        const std::uint32_t seed = firstSeed + static_cast<std::uint32_t>(k);
        const OutlinePair pair = make(seed);
        SCOPED_TRACE(pair.label);
        // The generator gives up after 1000 draws; every seed used here finds a pair.
        EXPECT_FALSE(pair.a.empty() || pair.b.empty());
        if (pair.a.empty() || pair.b.empty()) {
            continue;
        }
        ++t.pairs;
        for (const _RvCombineMode mode : kModes) {
            SCOPED_TRACE(ModeName(mode));
            const PeerComparison c = CompareWithPeer(
                pair.a, pair.b, mode, seed * 4 + static_cast<std::uint32_t>(mode), kSamplesPerCase);
            // Both operands are non-empty, so Combine answers true whatever the result.
            EXPECT_TRUE(c.combined);
            EXPECT_FALSE(c.peerFailed) << c.note;
            ++t.cases;
            t.samples += c.samples;
            t.samplesInside += c.samplesInside;
            if (mode == CombineIntersection && c.peerArea > 1.0) {
                ++t.overlappingPairs;
            }
            if (c.peerArea > 1.0 && c.rings > 0) {
                ++t.nonEmpty;
            }
            if (c.Agrees()) {
                ++t.agreed;
            } else {
                t.disagreements.push_back(pair.label + ", " + ModeName(mode) + ": " + c.Describe());
            }
        }
    }
    return t;
}

// Guards against a comparison that passes for want of anything to compare: most pairs overlap,
// most results have area, and the sample points are numerous and fall on both sides.
void ExpectSubstantial(const Tally& t, int pairs) {
    EXPECT_EQ(t.pairs, pairs);
    EXPECT_EQ(t.cases, 3 * pairs);
    EXPECT_GE(t.overlappingPairs * 2, t.pairs) << "fewer than half of the pairs overlap";
    EXPECT_GE(t.nonEmpty * 3, t.cases * 2) << "fewer than two thirds of the results have area";
    EXPECT_GE(t.samples, static_cast<long>(t.cases) * kSamplesPerCase * 9 / 10)
        << "too many sample points fell near a boundary";
    EXPECT_GE(t.samplesInside * 5, t.samples) << "too few sample points inside the results";
    EXPECT_GE((t.samples - t.samplesInside) * 5, t.samples)
        << "too few sample points outside the results";
}

// The measures the comparison rests on, on regions whose areas follow from their corners.
TEST(RvPolygon2DCombinePeerTest, AreaOracleMeasuresEvenOddRegionsOfHandBuiltRings) {
    const Outline square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    const Outline inner{{2, 2}, {8, 2}, {8, 8}, {2, 8}};
    const Outline shifted{{5, 5}, {15, 5}, {15, 15}, {5, 15}};
    // Two triangles of base 10 and height 5 meeting at (5, 5).
    const Outline bowTie{{0, 0}, {10, 10}, {10, 0}, {0, 10}};
    EXPECT_NEAR(EvenOddArea({square}), 100.0, 1e-9);
    // A ring inside another is a hole: 100 - 36.
    EXPECT_NEAR(EvenOddArea({square, inner}), 64.0, 1e-9);
    // Overlapping rings cancel where they overlap: 100 + 100 - 2 * 25.
    EXPECT_NEAR(EvenOddArea({square, shifted}), 150.0, 1e-9);
    EXPECT_NEAR(EvenOddArea({bowTie}), 50.0, 1e-9);
    EXPECT_NEAR(SymmetricDifferenceArea({square}, {inner}), 64.0, 1e-9);
    EXPECT_NEAR(SymmetricDifferenceArea({square}, {square}), 0.0, 1e-9);
    // The bow tie splits at its crossing into two triangles, and Boost.Geometry's region of them
    // has their area.
    EXPECT_EQ(SimpleLoops(bowTie).size(), 2u);
    EXPECT_NEAR(boost::geometry::area(EvenOddRegion({bowTie})), 50.0, 1e-9);
    EXPECT_NEAR(boost::geometry::area(EvenOddRegion({square, inner})), 64.0, 1e-9);
}

TEST(RvPolygon2DCombinePeerTest, AreaOracleMeasuresTheErrorOfAResultAgainstTheOperands) {
    const Outline a{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    const Outline b{{5, 5}, {15, 5}, {15, 15}, {5, 15}};
    const Outline common{{5, 5}, {10, 5}, {10, 10}, {5, 10}};
    const Outline aLessB{{0, 0}, {10, 0}, {10, 5}, {5, 5}, {5, 10}, {0, 10}};
    EXPECT_NEAR(ErrorArea(a, b, CombineIntersection, {common}), 0.0, 1e-9);
    EXPECT_NEAR(ErrorArea(a, b, CombineDifference, {aLessB}), 0.0, 1e-9);
    // The union as two overlapping rings is not the union under the even-odd rule: the overlap
    // of 25 is missing.
    EXPECT_NEAR(ErrorArea(a, b, CombineUnion, {a, b}), 25.0, 1e-9);
    // `a` whole, offered as the intersection, has 75 too much.
    EXPECT_NEAR(ErrorArea(a, b, CombineIntersection, {a}), 75.0, 1e-9);
    EXPECT_NEAR(ErrorArea(a, b, CombineIntersection, {}), 25.0, 1e-9);
}

// In general position every node of the graph is a vertex of one polygon, with two links, or a
// proper crossing, with four; no link runs along the other polygon's boundary, so each midpoint
// test has a clear answer, a crossing has exactly two links of each mode's classes, and the
// chosen links form closed rings. Rectangles (both axis-aligned, or both turned) and convex
// polygons must therefore agree in every case.
TEST(RvPolygon2DCombinePeerTest, RectanglePairsAgreeWithBoostGeometryInEveryMode) {
    const Tally t = RunFamily(RectanglePair, 1, kRectanglePairs);
    ExpectSubstantial(t, kRectanglePairs);
    EXPECT_EQ(t.agreed, t.cases) << t.Report();
}

TEST(RvPolygon2DCombinePeerTest, ConvexPairsAgreeWithBoostGeometryInEveryMode) {
    const Tally t = RunFamily(ConvexPair, 1001, kConvexPairs);
    ExpectSubstantial(t, kConvexPairs);
    EXPECT_EQ(t.agreed, t.cases) << t.Report();
}

// Star-shaped polygons add reflex corners and many crossings per pair. More than 98% of the
// cases must agree; the failure message lists those that do not.
TEST(RvPolygon2DCombinePeerTest, StarPairsAgreeWithBoostGeometryInMoreThan98PercentOfCases) {
    const Tally t = RunFamily(StarPair, 2001, kStarPairs);
    ExpectSubstantial(t, kStarPairs);
    EXPECT_GT(t.agreed * 100, t.cases * 98) << t.Report();
}

}  // namespace
}  // namespace ravelin
