#pragma once

#include "ravelin/RvExport.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/CPoint.h"

namespace ravelin {

/// A 4 by 4 transform, row-major: element (r, c) is `m[r * 4 + c]`, and the translation is the
/// fourth column. Points are multiplied as columns; the fourth row is never used on a point and
/// there is no perspective divide.
///
/// The Create operations other than CreateIdentityM write only their own elements into the
/// matrix as it stands, so they are meant for a fresh identity.
class RAVELIN_API CMatrix {
public:
    double m[16];

    /// Identity.
    CMatrix();
    CMatrix(const CMatrix& o);
    CMatrix& operator=(const CMatrix& o);
    virtual ~CMatrix();

    void CreateIdentityM();
    /// Writes the rotation by `a` radians about x into (1,1), (1,2), (2,1), (2,2).
    void CreateRotateMX(double a);
    /// Writes (0,0) = cos a, (0,2) = -sin a, (2,0) = sin a, (2,2) = cos a: the transpose of the
    /// textbook rotation about y.
    void CreateRotateMY(double a);
    /// Writes the rotation by `a` radians about z into (0,0), (0,1), (1,0), (1,1).
    void CreateRotateMZ(double a);
    /// Writes the translation column.
    void CreateTranslateM(double x, double y, double z);
    /// Writes the diagonal's first three elements.
    void CreateScaleM(double x, double y, double z);
    /// Rotation by `angle` about an axis through the origin; expects an identity matrix.
    void CreateRotateM(double angle, RvPoint3D axis);
    /// MutlMatrix: this becomes the product `a` times `b`.
    void MutlMatrix(CMatrix a, CMatrix b);

    /// The product `o` times this: the transform that applies this one first, then `o`.
    CMatrix operator*(const CMatrix& o) const;
    /// This becomes `*this * o`.
    CMatrix& operator*=(const CMatrix& o);

    /// Rows 0 to 2 applied to the point (x, y, z, 1).
    RvPoint3D GetPoint3D(double x, double y, double z) const;
    RvPoint3D GetPoint3D(const RvPoint3D& p) const;
    /// Rows 0 to 2 applied to the vector (x, y, z, 0).
    RvPoint3D GetVector3D(double x, double y, double z) const;
    RvPoint3D GetVector3D(const RvPoint3D& p) const;
    /// The input point in space, with rows 0 and 1 on (x, y, z, 1) as its planar pair.
    RvPoint2D GetRvPoint2D(const RvPoint3D& p) const;
    RvPoint2D GetRvPoint2D(double x, double y, double z) const;
    /// Sets the planar pair of `p` from its position in space; the rest stays.
    void SetRvPoint2DOnly(RvPoint2D& p) const;
    /// Device point of a device point: rows 0 and 1 without the z column, rounded.
    CPoint GetPoint(const CPoint& p) const;
    /// Device point of a point in space: rows 0 and 1 on (x, y, z, 1), rounded.
    CPoint GetPoint(const RvPoint3D& p) const;

    /// Multiplies the four elements of `row` by `f`.
    void MultRow(int row, double f);
    void SwapRows(int a, int b);
    /// Row `dst` += row `src` * `f`.
    void AddRow(double f, int src, int dst);
    /// Row `dst` -= row `src` * `f`.
    void SubRow(double f, int src, int dst);
    /// The first column of `row` whose magnitude is above 1e-10; 4 if there is none.
    int GetIndexOfFirst(int row) const;
    /// Sets rows 0 to 2 of column `col` to `p`; row 3 stays.
    void SetCol(int col, const RvPoint3D& p);
    /// Determinant of the upper left 3 by 3 block.
    double GetA33() const;
    /// Gauss-Jordan inverse with the threshold 1e-10. A matrix with a row of no usable value
    /// gives identity; the first usable column is the pivot, not the largest; the pivots are
    /// brought onto the diagonal in at most six passes, and a permutation that needs more comes
    /// back partly sorted.
    CMatrix GetInverseMatrix() const;

private:
    double& At(int row, int col);
    double At(int row, int col) const;
    // One row applied to (x, y, z, w), summed from the first column to the fourth.
    double Row(int row, double x, double y, double z, double w) const;
};

}  // namespace ravelin
