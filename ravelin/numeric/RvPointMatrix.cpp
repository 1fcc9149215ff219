#include "ravelin/numeric/RvPointMatrix.h"

#include <algorithm>
#include <cstdint>

#include "ravelin/platform/CArchive.h"
#include "ravelin/platform/CException.h"
#include "ravelin/platform/CFile.h"
#include "ravelin/platform/CheckedVector.h"

namespace ravelin {

RAVELIN_IMPLEMENT_SERIAL(RvPointMatrix, CObject, 1)

namespace {

constexpr std::uint64_t kPointRecordBytes = 3 * sizeof(double);

void StoreCoordinates(std::vector<RvPoint3D>& row, std::size_t c, const RvPoint3D& p) {
    if (row.size() <= c) {
        row.resize(c + 1);
    }
    row[c].Set(p.x, p.y, p.z);
}

// Refuses, before the grid is grown, a stored size whose points the archive cannot hold.
void RequireStoredPoints(const CArchive& ar, std::int32_t rowCount, std::int32_t columnCount) {
    if (rowCount < 0 || columnCount < 0) {
        AfxThrowArchiveException(CArchiveException::badIndex);
    }
    const CFile* file = ar.GetFile();
    const std::uint64_t left = file->GetLength() - std::min(file->GetPosition(), file->GetLength());
    const std::uint64_t points = static_cast<std::uint64_t>(rowCount) * columnCount;
    if (points > left / kPointRecordBytes) {
        AfxThrowArchiveException(CArchiveException::endOfFile);
    }
}

}  // namespace

RvPointMatrix::RvPointMatrix() = default;

RvPointMatrix::RvPointMatrix(const std::vector<RvPoint3D>& row) : m_rows{row} {}

RvPointMatrix::RvPointMatrix(int a, int b) {
    const std::size_t rowLength = CheckedCount(static_cast<long long>(a) + 1);
    m_rows.assign(static_cast<std::size_t>(std::max(b, 0)), std::vector<RvPoint3D>(rowLength));
}

RvPointMatrix::~RvPointMatrix() = default;

void RvPointMatrix::AddRow(const std::vector<RvPoint3D>& row) {
    m_rows.push_back(row);
}

void RvPointMatrix::AddColumn(const std::vector<RvPoint3D>& column) {
    if (column.size() > m_rows.size()) {
        m_rows.resize(column.size());
    }
    const std::size_t filled = std::min(column.size(), m_rows.size());
    for (std::size_t i = 0; i < filled; ++i) {
        m_rows[i].push_back(column[i]);
    }
}

void RvPointMatrix::Set(int r, int c, const RvPoint3D& p) {
    if (r < 0 || c < 0) {
        ThrowInvalidSubscript();
    }
    const std::size_t row = static_cast<std::size_t>(r);
    const std::size_t column = static_cast<std::size_t>(c);
    if (m_rows.size() <= row) {
        m_rows.resize(row + 1, std::vector<RvPoint3D>(column + 1));
    }
    StoreCoordinates(m_rows[row], column, p);
}

bool RvPointMatrix::GetAt(int r, int c, RvPoint3D& out) const {
    if (static_cast<unsigned>(c) >= m_rows.size() ||
        static_cast<unsigned>(r) >= m_rows.front().size()) {
        return false;
    }
    // On a grid that is not square the crossed check can pass for an element that is missing.
    const std::size_t row = static_cast<unsigned>(r);
    const std::size_t column = static_cast<unsigned>(c);
    if (row >= m_rows.size() || column >= m_rows[row].size()) {
        return false;
    }
    out.Set(m_rows[row][column].x, m_rows[row][column].y, m_rows[row][column].z);
    return true;
}

RvPoint3D& RvPointMatrix::GetAt(int r, int c) {
    return CheckedAt(CheckedAt(m_rows, r), c);
}

void RvPointMatrix::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        Store(ar);
    } else {
        Load(ar);
    }
}

void RvPointMatrix::Store(CArchive& ar) {
    const std::int32_t rowCount = static_cast<std::int32_t>(m_rows.size());
    const std::int32_t columnCount =
        m_rows.empty() ? 0 : static_cast<std::int32_t>(m_rows.front().size());
    ar << rowCount << columnCount;
    for (auto& row : m_rows) {
        for (auto& point : row) {
            point.Serialize(ar);
        }
    }
}

void RvPointMatrix::Load(CArchive& ar) {
    std::int32_t rowCount = 0;
    std::int32_t columnCount = 0;
    ar >> rowCount >> columnCount;
    RequireStoredPoints(ar, rowCount, columnCount);
    if (rowCount == 0 || columnCount == 0) {
        return;
    }
    Set(rowCount - 1, columnCount - 1, RvPoint3D());
    for (std::int32_t r = 0; r < rowCount; ++r) {
        for (std::int32_t c = 0; c < columnCount; ++c) {
            RvPoint3D point;
            point.Serialize(ar);
            StoreCoordinates(m_rows[static_cast<std::size_t>(r)], static_cast<std::size_t>(c),
                             point);
        }
    }
}

}  // namespace ravelin
