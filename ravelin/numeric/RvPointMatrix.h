#pragma once

#include <vector>

#include "ravelin/RvExport.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/CObject.h"

namespace ravelin {

/// A grid of points, row by row, such as a surface is built from. Nothing forces the rows to be
/// of equal length.
class RAVELIN_API RvPointMatrix : public CObject {
    RAVELIN_DECLARE_SERIAL(RvPointMatrix)

public:
    std::vector<std::vector<RvPoint3D>> m_rows;

    /// No rows.
    RvPointMatrix();
    /// One row, a copy of `row`.
    explicit RvPointMatrix(const std::vector<RvPoint3D>& row);
    /// `b` rows of `a` + 1 default points each. A negative row length raises std::length_error.
    RvPointMatrix(int a, int b);
    ~RvPointMatrix() override;

    /// Appends a copy of `row`, whatever its length.
    void AddRow(const std::vector<RvPoint3D>& row);
    /// Appends `column[i]` to row `i`, first adding empty rows until there are as many rows as
    /// elements. A column shorter than the grid leaves the rows beyond its end as they are.
    void AddColumn(const std::vector<RvPoint3D>& column);
    /// Stores `x`, `y`, `z` of `p` in element `c` of row `r`. Missing rows are added, each of
    /// `c` + 1 default points; an existing row too short for `c` is lengthened to `c` + 1.
    /// A negative index raises std::out_of_range.
    void Set(int r, int c, const RvPoint3D& p);
    /// The checked read. Refuses (false) when `c` is not below the number of rows or `r` is not
    /// below the length of row 0: the limits are crossed over with the indices, which only a
    /// square grid makes harmless. Also refuses an element that does not exist. Otherwise `out`
    /// takes the point's `x`, `y`, `z`.
    bool GetAt(int r, int c, RvPoint3D& out) const;
    /// Element `c` of row `r`; an index outside the grid raises std::out_of_range.
    RvPoint3D& GetAt(int r, int c);

    /// The row count and the length of row 0 (0 for no rows) as 32-bit integers, then every
    /// point of every row in order. Loading grows the grid to the stored size, keeping contents
    /// that are not overwritten; a stored size with no points leaves the grid as it is. Negative
    /// counts, or more points than the archive holds, raise CArchiveException before anything
    /// changes.
    void Serialize(CArchive& ar) override;

private:
    void Load(CArchive& ar);
    void Store(CArchive& ar);
};

}  // namespace ravelin
