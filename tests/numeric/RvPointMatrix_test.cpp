#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/numeric/RvPointMatrix.h"
#include "ravelin/platform/CArchive.h"
#include "ravelin/platform/CException.h"
#include "ravelin/platform/CFile.h"
#include "ravelin/platform/CObject.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

// A distinct point for every grid position.
RvPoint3D P(int r, int c) {
    return RvPoint3D(10 * r + c, -(10 * r + c) - 0.5, 0.25 * (r + 1) * (c + 1));
}

std::vector<std::size_t> RowLengths(const RvPointMatrix& m) {
    std::vector<std::size_t> lengths;
    for (const auto& row : m.m_rows) {
        lengths.push_back(row.size());
    }
    return lengths;
}

void ExpectPoint(const RvPoint3D& actual, const RvPoint3D& expected) {
    EXPECT_DOUBLE_EQ(actual.x, expected.x);
    EXPECT_DOUBLE_EQ(actual.y, expected.y);
    EXPECT_DOUBLE_EQ(actual.z, expected.z);
}

void ExpectSameGrid(const RvPointMatrix& actual, const RvPointMatrix& expected) {
    ASSERT_EQ(RowLengths(actual), RowLengths(expected));
    for (std::size_t r = 0; r < expected.m_rows.size(); ++r) {
        for (std::size_t c = 0; c < expected.m_rows[r].size(); ++c) {
            SCOPED_TRACE(testing::Message() << "row " << r << ", column " << c);
            ExpectPoint(actual.m_rows[r][c], expected.m_rows[r][c]);
        }
    }
}

// A grid of `rows` rows of `columns` points P(r, c).
RvPointMatrix Grid(int rows, int columns) {
    RvPointMatrix m;
    for (int r = 0; r < rows; ++r) {
        std::vector<RvPoint3D> row;
        for (int c = 0; c < columns; ++c) {
            row.push_back(P(r, c));
        }
        m.AddRow(row);
    }
    return m;
}

void AppendPoint(Bytes& bytes, const RvPoint3D& p) {
    AppendDouble(bytes, p.x);
    AppendDouble(bytes, p.y);
    AppendDouble(bytes, p.z);
}

RvPoint3D PointAt(const Bytes& bytes, std::size_t offset) {
    return RvPoint3D(DoubleAt(bytes, offset), DoubleAt(bytes, offset + 8),
                     DoubleAt(bytes, offset + 16));
}

Bytes Store(RvPointMatrix& m) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    m.Serialize(ar);
    ar.Close();
    return file.GetData();
}

void Load(RvPointMatrix& m, Bytes bytes) {
    CMemFile file(std::move(bytes));
    CArchive ar(&file, CArchive::load);
    m.Serialize(ar);
}

}  // namespace

// --- Construction -------------------------------------------------------------------------

TEST(RvPointMatrixConstruction, DefaultHasNoRows) {
    const RvPointMatrix m;
    EXPECT_TRUE(m.m_rows.empty());
}

TEST(RvPointMatrixConstruction, FromRowHoldsOneCopiedRow) {
    std::vector<RvPoint3D> row = {P(0, 0), P(0, 1), P(0, 2)};
    const RvPointMatrix m(row);
    row[0].Set(99, 99, 99);
    ASSERT_EQ(RowLengths(m), (std::vector<std::size_t>{3}));
    ExpectPoint(m.m_rows[0][0], P(0, 0));
    ExpectPoint(m.m_rows[0][2], P(0, 2));
}

TEST(RvPointMatrixConstruction, FromSizesMakesBRowsOfAPlusOnePoints) {
    const RvPointMatrix m(3, 2);
    ASSERT_EQ(RowLengths(m), (std::vector<std::size_t>{4, 4}));
    for (const auto& row : m.m_rows) {
        for (const auto& p : row) {
            ExpectPoint(p, RvPoint3D(0, 0, 0));
        }
    }
}

TEST(RvPointMatrixConstruction, FromSizesWithZeroAMakesRowsOfOnePoint) {
    const RvPointMatrix m(0, 3);
    EXPECT_EQ(RowLengths(m), (std::vector<std::size_t>{1, 1, 1}));
}

TEST(RvPointMatrixConstruction, FromSizesWithZeroBMakesNoRows) {
    const RvPointMatrix m(5, 0);
    EXPECT_TRUE(m.m_rows.empty());
}

TEST(RvPointMatrixConstruction, FromSizesWithAOfMinusOneMakesEmptyRows) {
    const RvPointMatrix m(-1, 2);
    EXPECT_EQ(RowLengths(m), (std::vector<std::size_t>{0, 0}));
}

TEST(RvPointMatrixConstruction, FromSizesWithNegativeRowLengthIsTooLong) {
    ExpectThrowWithMessage<std::length_error>([] { RvPointMatrix m(-2, 1); }, "vector<T> too long");
}

// --- Rows and columns --------------------------------------------------------------------

TEST(RvPointMatrixAddRow, AppendsRowsOfAnyLength) {
    RvPointMatrix m;
    m.AddRow({P(0, 0), P(0, 1)});
    m.AddRow({});
    m.AddRow({P(2, 0), P(2, 1), P(2, 2)});
    ASSERT_EQ(RowLengths(m), (std::vector<std::size_t>{2, 0, 3}));
    ExpectPoint(m.m_rows[0][1], P(0, 1));
    ExpectPoint(m.m_rows[2][2], P(2, 2));
}

TEST(RvPointMatrixAddRow, StoresACopy) {
    RvPointMatrix m;
    std::vector<RvPoint3D> row = {P(0, 0)};
    m.AddRow(row);
    row[0].Set(7, 7, 7);
    ExpectPoint(m.m_rows[0][0], P(0, 0));
}

TEST(RvPointMatrixAddColumn, LongerColumnAddsShortRows) {
    RvPointMatrix m;
    m.AddRow({P(0, 0), P(0, 1)});
    m.AddColumn({P(9, 0), P(9, 1), P(9, 2)});
    ASSERT_EQ(RowLengths(m), (std::vector<std::size_t>{3, 1, 1}));
    ExpectPoint(m.m_rows[0][0], P(0, 0));
    ExpectPoint(m.m_rows[0][1], P(0, 1));
    ExpectPoint(m.m_rows[0][2], P(9, 0));
    ExpectPoint(m.m_rows[1][0], P(9, 1));
    ExpectPoint(m.m_rows[2][0], P(9, 2));
}

TEST(RvPointMatrixAddColumn, AppendsOnePointToEveryRow) {
    RvPointMatrix m = Grid(2, 2);
    m.AddColumn({P(0, 2), P(1, 2)});
    ExpectSameGrid(m, Grid(2, 3));
}

TEST(RvPointMatrixAddColumn, ToEmptyMatrixMakesRowsOfOne) {
    RvPointMatrix m;
    m.AddColumn({P(0, 0), P(1, 0)});
    ExpectSameGrid(m, Grid(2, 1));
}

TEST(RvPointMatrixAddColumn, EmptyColumnOnEmptyMatrixChangesNothing) {
    RvPointMatrix m;
    m.AddColumn({});
    EXPECT_TRUE(m.m_rows.empty());
}

TEST(RvPointMatrixAddColumn, ShorterColumnStopsAtItsEnd) {
    RvPointMatrix m = Grid(3, 2);
    m.AddColumn({P(0, 2)});
    ASSERT_EQ(RowLengths(m), (std::vector<std::size_t>{3, 2, 2}));
    ExpectPoint(m.m_rows[0][2], P(0, 2));
    ExpectPoint(m.m_rows[1][1], P(1, 1));
    ExpectPoint(m.m_rows[2][1], P(2, 1));
}

// --- Set --------------------------------------------------------------------------------

TEST(RvPointMatrixSet, OnEmptyMatrixMakesRowsLongEnough) {
    RvPointMatrix m;
    m.Set(2, 3, RvPoint3D(1, 2, 3));
    ASSERT_EQ(RowLengths(m), (std::vector<std::size_t>{4, 4, 4}));
    ExpectPoint(m.m_rows[2][3], RvPoint3D(1, 2, 3));
    ExpectPoint(m.m_rows[0][0], RvPoint3D(0, 0, 0));
    ExpectPoint(m.m_rows[2][2], RvPoint3D(0, 0, 0));
}

TEST(RvPointMatrixSet, FirstElementMakesOneRowOfOne) {
    RvPointMatrix m;
    m.Set(0, 0, RvPoint3D(4, 5, 6));
    ASSERT_EQ(RowLengths(m), (std::vector<std::size_t>{1}));
    ExpectPoint(m.m_rows[0][0], RvPoint3D(4, 5, 6));
}

TEST(RvPointMatrixSet, ExistingTooShortRowIsLengthened) {
    RvPointMatrix m = Grid(2, 2);
    m.Set(1, 5, RvPoint3D(1, 2, 3));
    // Row 1 has no element 5; it is lengthened to 6 points. Row 0 is not touched.
    ASSERT_EQ(RowLengths(m), (std::vector<std::size_t>{2, 6}));
    ExpectPoint(m.m_rows[1][0], P(1, 0));
    ExpectPoint(m.m_rows[1][1], P(1, 1));
    for (int c = 2; c < 5; ++c) {
        SCOPED_TRACE(testing::Message() << "column " << c);
        ExpectPoint(m.m_rows[1][static_cast<std::size_t>(c)], RvPoint3D(0, 0, 0));
    }
    ExpectPoint(m.m_rows[1][5], RvPoint3D(1, 2, 3));
    ExpectPoint(m.m_rows[0][1], P(0, 1));
}

TEST(RvPointMatrixSet, OnlyNewRowsTakeTheLengthOfTheIndex) {
    RvPointMatrix m = Grid(1, 5);
    m.Set(3, 1, RvPoint3D(1, 2, 3));
    ASSERT_EQ(RowLengths(m), (std::vector<std::size_t>{5, 2, 2, 2}));
    ExpectPoint(m.m_rows[3][1], RvPoint3D(1, 2, 3));
    ExpectPoint(m.m_rows[0][4], P(0, 4));
}

TEST(RvPointMatrixSet, NewRowDoesNotLengthenOlderRows) {
    RvPointMatrix m = Grid(1, 2);
    m.Set(2, 4, RvPoint3D(1, 2, 3));
    EXPECT_EQ(RowLengths(m), (std::vector<std::size_t>{2, 5, 5}));
}

TEST(RvPointMatrixSet, ExistingElementIsOverwrittenInPlace) {
    RvPointMatrix m = Grid(2, 3);
    m.Set(1, 1, RvPoint3D(-1, -2, -3));
    ASSERT_EQ(RowLengths(m), (std::vector<std::size_t>{3, 3}));
    ExpectPoint(m.m_rows[1][1], RvPoint3D(-1, -2, -3));
    ExpectPoint(m.m_rows[1][0], P(1, 0));
    ExpectPoint(m.m_rows[1][2], P(1, 2));
}

TEST(RvPointMatrixSet, StoresOnlyTheSpatialCoordinatesOfADerivedPoint) {
    RvPointMatrix m;
    m.Set(0, 0, RvPoint2D(100, 200, 1, 2, 3));
    ExpectPoint(m.m_rows[0][0], RvPoint3D(1, 2, 3));
}

TEST(RvPointMatrixSet, NegativeIndicesAreInvalidSubscripts) {
    RvPointMatrix m = Grid(2, 2);
    ExpectThrowWithMessage<std::out_of_range>([&] { m.Set(-1, 0, RvPoint3D(1, 1, 1)); },
                                              "invalid vector<T> subscript");
    ExpectThrowWithMessage<std::out_of_range>([&] { m.Set(0, -1, RvPoint3D(1, 1, 1)); },
                                              "invalid vector<T> subscript");
    ExpectSameGrid(m, Grid(2, 2));
}

// --- GetAt ------------------------------------------------------------------------------

TEST(RvPointMatrixGetAt, CheckedReadOnSquareGrid) {
    RvPointMatrix m = Grid(2, 2);
    for (int r = 0; r < 2; ++r) {
        for (int c = 0; c < 2; ++c) {
            SCOPED_TRACE(testing::Message() << "row " << r << ", column " << c);
            RvPoint3D out;
            EXPECT_TRUE(m.GetAt(r, c, out));
            ExpectPoint(out, P(r, c));
        }
    }
}

TEST(RvPointMatrixGetAt, CheckedReadRefusesOutsideSquareGrid) {
    const RvPointMatrix m = Grid(2, 2);
    const int indices[][2] = {{2, 0}, {0, 2}, {2, 2}, {-1, 0}, {0, -1}};
    for (const auto& index : indices) {
        SCOPED_TRACE(testing::Message() << "row " << index[0] << ", column " << index[1]);
        RvPoint3D out(7, 8, 9);
        EXPECT_FALSE(m.GetAt(index[0], index[1], out));
        ExpectPoint(out, RvPoint3D(7, 8, 9));
    }
}

TEST(RvPointMatrixGetAt, CheckedReadOnEmptyMatrixRefuses) {
    const RvPointMatrix m;
    RvPoint3D out;
    EXPECT_FALSE(m.GetAt(0, 0, out));
}

TEST(RvPointMatrixGetAt, RowIndexIsCheckedAgainstLengthOfRowZero) {
    // Two rows of one point: the row index 1 is compared with row 0's length, 1, and refused.
    const RvPointMatrix m = Grid(2, 1);
    RvPoint3D out(7, 8, 9);
    EXPECT_FALSE(m.GetAt(1, 0, out));
    ExpectPoint(out, RvPoint3D(7, 8, 9));
}

TEST(RvPointMatrixGetAt, ColumnIndexIsCheckedAgainstNumberOfRows) {
    // One row of three points: column 1 exists, but it is compared with the row count, 1.
    const RvPointMatrix m = Grid(1, 3);
    RvPoint3D out;
    EXPECT_TRUE(m.GetAt(0, 0, out));
    ExpectPoint(out, P(0, 0));
    EXPECT_FALSE(m.GetAt(0, 1, out));
    ExpectPoint(out, P(0, 0));
}

TEST(RvPointMatrixGetAt, CrossedCheckThatPassesForMissingRowIsRefused) {
    // One row of three points: (2, 0) passes the crossed check (0 < 1 row, 2 < 3 points), but
    // there is no row 2.
    const RvPointMatrix m = Grid(1, 3);
    RvPoint3D out(7, 8, 9);
    EXPECT_FALSE(m.GetAt(2, 0, out));
    ExpectPoint(out, RvPoint3D(7, 8, 9));
}

TEST(RvPointMatrixGetAt, CrossedCheckThatPassesForMissingElementIsRefused) {
    // Rows of three and one points: (1, 1) passes the crossed check (1 < 2 rows, 1 < 3 points),
    // but row 1 has no element 1.
    RvPointMatrix m;
    m.AddRow({P(0, 0), P(0, 1), P(0, 2)});
    m.AddRow({P(1, 0)});
    RvPoint3D out(7, 8, 9);
    EXPECT_FALSE(m.GetAt(1, 1, out));
    ExpectPoint(out, RvPoint3D(7, 8, 9));
    EXPECT_TRUE(m.GetAt(1, 0, out));
    ExpectPoint(out, P(1, 0));
}

TEST(RvPointMatrixGetAt, CheckedReadSetsOnlyTheSpatialCoordinates) {
    const RvPointMatrix m = Grid(1, 1);
    RvPoint2D out(100, 200, 0, 0, 0);
    EXPECT_TRUE(m.GetAt(0, 0, out));
    ExpectPoint(out, P(0, 0));
    EXPECT_DOUBLE_EQ(out.x2D, 100);
    EXPECT_DOUBLE_EQ(out.y2D, 200);
}

TEST(RvPointMatrixGetAt, ReferenceReadsRowThenElement) {
    RvPointMatrix m = Grid(2, 3);
    ExpectPoint(m.GetAt(1, 2), P(1, 2));
    ExpectPoint(m.GetAt(0, 1), P(0, 1));
}

TEST(RvPointMatrixGetAt, ReferenceWritesIntoTheGrid) {
    RvPointMatrix m = Grid(2, 3);
    m.GetAt(1, 0) = RvPoint3D(-4, -5, -6);
    ExpectPoint(m.m_rows[1][0], RvPoint3D(-4, -5, -6));
}

TEST(RvPointMatrixGetAt, ReferenceOutsideTheGridIsInvalidSubscript) {
    RvPointMatrix m = Grid(2, 3);
    const int indices[][2] = {{2, 0}, {0, 3}, {-1, 0}, {0, -1}};
    for (const auto& index : indices) {
        SCOPED_TRACE(testing::Message() << "row " << index[0] << ", column " << index[1]);
        ExpectThrowWithMessage<std::out_of_range>([&] { m.GetAt(index[0], index[1]); },
                                                  "invalid vector<T> subscript");
    }
    RvPointMatrix empty;
    ExpectThrowWithMessage<std::out_of_range>([&] { empty.GetAt(0, 0); },
                                              "invalid vector<T> subscript");
}

// --- Archive ----------------------------------------------------------------------------

TEST(RvPointMatrixSerialize, StoresCountsThenPointsByteForByte) {
    RvPointMatrix m;
    m.AddRow({RvPoint3D(1, 2, 3)});
    m.AddRow({RvPoint3D(-0.5, 0.25, 4)});
    const Bytes expected = {
        0x02, 0x00, 0x00, 0x00,                          // rows
        0x01, 0x00, 0x00, 0x00,                          // length of row 0
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0x3F,  // 1.0
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x40,  // 2.0
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x08, 0x40,  // 3.0
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xE0, 0xBF,  // -0.5
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xD0, 0x3F,  // 0.25
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x10, 0x40,  // 4.0
    };
    EXPECT_EQ(Store(m), expected);
}

TEST(RvPointMatrixSerialize, CountsAreLittleEndianInt32) {
    RvPointMatrix m(299, 1);
    const Bytes bytes = Store(m);
    ASSERT_EQ(bytes.size(), 8u + 300u * 24u);
    // 1 row of 300 = 0x12C points.
    EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + 8),
              (Bytes{0x01, 0x00, 0x00, 0x00, 0x2C, 0x01, 0x00, 0x00}));
}

TEST(RvPointMatrixSerialize, StoresPointsRowByRow) {
    RvPointMatrix m = Grid(2, 3);
    const Bytes bytes = Store(m);
    ASSERT_EQ(bytes.size(), 8u + 6u * 24u);
    std::size_t offset = 8;
    for (int r = 0; r < 2; ++r) {
        for (int c = 0; c < 3; ++c) {
            SCOPED_TRACE(testing::Message() << "row " << r << ", column " << c);
            ExpectPoint(PointAt(bytes, offset), P(r, c));
            offset += 24;
        }
    }
}

TEST(RvPointMatrixSerialize, EmptyMatrixStoresZeroCounts) {
    RvPointMatrix m;
    EXPECT_EQ(Store(m), Bytes(8, 0x00));
}

TEST(RvPointMatrixSerialize, EmptyMatrixRoundTripsToEmpty) {
    RvPointMatrix empty;
    RvPointMatrix loaded;
    Load(loaded, Store(empty));
    EXPECT_TRUE(loaded.m_rows.empty());
}

TEST(RvPointMatrixSerialize, TwoByThreeGridRoundTrips) {
    RvPointMatrix original = Grid(2, 3);
    RvPointMatrix loaded;
    Load(loaded, Store(original));
    ExpectSameGrid(loaded, Grid(2, 3));
}

TEST(RvPointMatrixSerialize, RaggedRowsAreStoredWithTheirActualLengths) {
    RvPointMatrix m;
    m.AddRow({P(0, 0), P(0, 1)});
    m.AddRow({P(1, 0)});
    m.AddRow({P(2, 0), P(2, 1), P(2, 2)});
    const Bytes bytes = Store(m);
    // 3 rows, row 0 of 2 points, then all 6 points that are there.
    Bytes expected;
    AppendInt32(expected, 3);
    AppendInt32(expected, 2);
    for (const RvPoint3D& p : {P(0, 0), P(0, 1), P(1, 0), P(2, 0), P(2, 1), P(2, 2)}) {
        AppendPoint(expected, p);
    }
    EXPECT_EQ(bytes, expected);
}

TEST(RvPointMatrixSerialize, EmptyFirstRowStoresZeroColumns) {
    RvPointMatrix m;
    m.AddRow({});
    m.AddRow({P(1, 0), P(1, 1)});
    Bytes expected;
    AppendInt32(expected, 2);
    AppendInt32(expected, 0);
    AppendPoint(expected, P(1, 0));
    AppendPoint(expected, P(1, 1));
    EXPECT_EQ(Store(m), expected);
}

TEST(RvPointMatrixSerialize, RaggedArchiveCannotBeReadBack) {
    // Stored as 2 rows of 2 with only 3 points behind the counts.
    RvPointMatrix ragged;
    ragged.AddRow({P(0, 0), P(0, 1)});
    ragged.AddRow({P(1, 0)});
    RvPointMatrix loaded;
    EXPECT_EQ(CauseOf<CArchiveException>([&] { Load(loaded, Store(ragged)); }),
              CArchiveException::endOfFile);
    EXPECT_TRUE(loaded.m_rows.empty());
}

TEST(RvPointMatrixSerialize, LoadingKeepsContentsThatAreNotOverwritten) {
    RvPointMatrix m;
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 4; ++c) {
            m.Set(r, c, RvPoint3D(100 + 10 * r + c, 0, 0));
        }
    }
    RvPointMatrix source = Grid(2, 2);
    Load(m, Store(source));
    ASSERT_EQ(RowLengths(m), (std::vector<std::size_t>{4, 4, 4}));
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 4; ++c) {
            SCOPED_TRACE(testing::Message() << "row " << r << ", column " << c);
            const RvPoint3D expected = r < 2 && c < 2 ? P(r, c) : RvPoint3D(100 + 10 * r + c, 0, 0);
            ExpectPoint(m.m_rows[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)],
                        expected);
        }
    }
}

TEST(RvPointMatrixSerialize, LoadingLengthensExistingShortRows) {
    RvPointMatrix m;
    m.AddRow({RvPoint3D(-1, -1, -1)});
    RvPointMatrix source = Grid(2, 3);
    Load(m, Store(source));
    ExpectSameGrid(m, Grid(2, 3));
}

TEST(RvPointMatrixSerialize, LoadingKeepsTheTailOfLongerRows) {
    RvPointMatrix m;
    m.AddRow({RvPoint3D(-1, 0, 0), RvPoint3D(-2, 0, 0), RvPoint3D(-3, 0, 0), RvPoint3D(-4, 0, 0),
              RvPoint3D(-5, 0, 0)});
    RvPointMatrix source = Grid(2, 2);
    Load(m, Store(source));
    ASSERT_EQ(RowLengths(m), (std::vector<std::size_t>{5, 2}));
    ExpectPoint(m.m_rows[0][0], P(0, 0));
    ExpectPoint(m.m_rows[0][1], P(0, 1));
    ExpectPoint(m.m_rows[0][2], RvPoint3D(-3, 0, 0));
    ExpectPoint(m.m_rows[0][4], RvPoint3D(-5, 0, 0));
    ExpectPoint(m.m_rows[1][0], P(1, 0));
    ExpectPoint(m.m_rows[1][1], P(1, 1));
}

TEST(RvPointMatrixSerialize, LoadingZeroCountsKeepsContents) {
    RvPointMatrix m = Grid(2, 2);
    Load(m, Bytes(8, 0x00));
    ExpectSameGrid(m, Grid(2, 2));
}

TEST(RvPointMatrixSerialize, ConsecutiveRecordsLoadInTurn) {
    RvPointMatrix first = Grid(1, 2);
    RvPointMatrix second = Grid(3, 1);
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        first.Serialize(ar);
        second.Serialize(ar);
        ar.Close();
    }
    CMemFile input(file.GetData());
    CArchive ar(&input, CArchive::load);
    RvPointMatrix a;
    RvPointMatrix b;
    a.Serialize(ar);
    b.Serialize(ar);
    ExpectSameGrid(a, Grid(1, 2));
    ExpectSameGrid(b, Grid(3, 1));
    EXPECT_EQ(input.GetPosition(), input.GetLength());
}

TEST(RvPointMatrixSerialize, CountBeyondTheStoredPointsIsEndOfFile) {
    Bytes bytes;
    AppendInt32(bytes, 2);
    AppendInt32(bytes, 2);
    AppendPoint(bytes, P(0, 0));
    AppendPoint(bytes, P(0, 1));
    AppendPoint(bytes, P(1, 0));
    RvPointMatrix m = Grid(1, 1);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { Load(m, bytes); }), CArchiveException::endOfFile);
    ExpectSameGrid(m, Grid(1, 1));
}

TEST(RvPointMatrixSerialize, HugeCountsWithoutPointsAreEndOfFile) {
    Bytes bytes;
    AppendInt32(bytes, 0x7FFFFFFF);
    AppendInt32(bytes, 0x7FFFFFFF);
    RvPointMatrix m = Grid(1, 2);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { Load(m, bytes); }), CArchiveException::endOfFile);
    ExpectSameGrid(m, Grid(1, 2));
}

TEST(RvPointMatrixSerialize, TruncatedCountsAreEndOfFile) {
    Bytes bytes;
    AppendInt32(bytes, 1);
    RvPointMatrix m = Grid(1, 2);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { Load(m, bytes); }), CArchiveException::endOfFile);
    ExpectSameGrid(m, Grid(1, 2));
}

TEST(RvPointMatrixSerialize, NegativeCountsRaiseArchiveException) {
    const std::int32_t counts[][2] = {{-1, 2}, {2, -1}, {-1, -1}};
    for (const auto& count : counts) {
        SCOPED_TRACE(testing::Message() << count[0] << " rows of " << count[1]);
        Bytes bytes;
        AppendInt32(bytes, count[0]);
        AppendInt32(bytes, count[1]);
        for (int i = 0; i < 4; ++i) {
            AppendPoint(bytes, P(0, i));
        }
        RvPointMatrix m = Grid(1, 2);
        EXPECT_THROW(Load(m, bytes), CArchiveException);
        ExpectSameGrid(m, Grid(1, 2));
    }
}

// --- Run-time class -----------------------------------------------------------------------

TEST(RvPointMatrixRuntimeClass, IsASerialClassNamedRvPointMatrix) {
    const CRuntimeClass* runtimeClass = RUNTIME_CLASS(RvPointMatrix);
    EXPECT_STREQ(runtimeClass->m_lpszClassName, "RvPointMatrix");
    EXPECT_EQ(runtimeClass->m_wSchema, 1u);
    EXPECT_EQ(runtimeClass->m_pBaseClass, &CObject::classCObject);
    const RvPointMatrix m;
    EXPECT_EQ(m.GetRuntimeClass(), runtimeClass);
    EXPECT_TRUE(m.IsSerializable());
    EXPECT_TRUE(m.IsKindOf(&CObject::classCObject));
}

TEST(RvPointMatrixRuntimeClass, IsCreatableByName) {
    EXPECT_EQ(CRuntimeClass::FromName("RvPointMatrix"), RUNTIME_CLASS(RvPointMatrix));
    const std::unique_ptr<CObject> object = CRuntimeClass::CreateObject("RvPointMatrix");
    ASSERT_NE(object, nullptr);
    const auto* matrix = dynamic_cast<const RvPointMatrix*>(object.get());
    ASSERT_NE(matrix, nullptr);
    EXPECT_TRUE(matrix->m_rows.empty());
}

TEST(RvPointMatrixRuntimeClass, WrittenAsObjectAndReadBack) {
    RvPointMatrix original = Grid(2, 2);
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        ar.WriteObject(&original);
        ar.Close();
    }
    Bytes expected = {0xFF, 0xFF, 0x01, 0x00, 0x0D, 0x00};
    AppendText(expected, "RvPointMatrix");
    AppendInt32(expected, 2);
    AppendInt32(expected, 2);
    for (int r = 0; r < 2; ++r) {
        for (int c = 0; c < 2; ++c) {
            AppendPoint(expected, P(r, c));
        }
    }
    EXPECT_EQ(file.GetData(), expected);

    CMemFile input(file.GetData());
    CArchive ar(&input, CArchive::load);
    const std::unique_ptr<CObject> object = ar.ReadObject(RUNTIME_CLASS(RvPointMatrix));
    const auto* matrix = dynamic_cast<const RvPointMatrix*>(object.get());
    ASSERT_NE(matrix, nullptr);
    ExpectSameGrid(*matrix, Grid(2, 2));
}
