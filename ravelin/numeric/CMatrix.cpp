#include "ravelin/numeric/CMatrix.h"

#include <cmath>
#include <utility>

#include "ravelin/platform/CheckedVector.h"

namespace ravelin {

namespace {

constexpr double kPivot = 1e-10;
constexpr int kNoColumn = 4;
constexpr int kMaxPasses = 5;

void CheckIndex(int index) {
    if (index < 0 || index > 3) {
        ThrowInvalidSubscript();
    }
}

}  // namespace

CMatrix::CMatrix() : m() {
    CreateIdentityM();
}

CMatrix::CMatrix(const CMatrix& o) = default;

CMatrix& CMatrix::operator=(const CMatrix& o) = default;

CMatrix::~CMatrix() = default;

double& CMatrix::At(int row, int col) {
    CheckIndex(row);
    CheckIndex(col);
    return m[row * 4 + col];
}

double CMatrix::At(int row, int col) const {
    CheckIndex(row);
    CheckIndex(col);
    return m[row * 4 + col];
}

double CMatrix::Row(int row, double x, double y, double z, double w) const {
    return At(row, 0) * x + At(row, 1) * y + At(row, 2) * z + At(row, 3) * w;
}

void CMatrix::CreateIdentityM() {
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            At(r, c) = r == c ? 1.0 : 0.0;
        }
    }
}

void CMatrix::CreateRotateMX(double a) {
    At(1, 1) = std::cos(a);
    At(1, 2) = -std::sin(a);
    At(2, 1) = std::sin(a);
    At(2, 2) = std::cos(a);
}

void CMatrix::CreateRotateMY(double a) {
    At(0, 0) = std::cos(a);
    At(0, 2) = -std::sin(a);
    At(2, 0) = std::sin(a);
    At(2, 2) = std::cos(a);
}

void CMatrix::CreateRotateMZ(double a) {
    At(0, 0) = std::cos(a);
    At(0, 1) = -std::sin(a);
    At(1, 0) = std::sin(a);
    At(1, 1) = std::cos(a);
}

void CMatrix::CreateTranslateM(double x, double y, double z) {
    At(0, 3) = x;
    At(1, 3) = y;
    At(2, 3) = z;
}

void CMatrix::CreateScaleM(double x, double y, double z) {
    At(0, 0) = x;
    At(1, 1) = y;
    At(2, 2) = z;
}

void CMatrix::CreateRotateM(double angle, RvPoint3D axis) {
    // Turn the axis onto z about x, then about y, rotate about z, and turn back.
    const double a = std::atan2(axis.y, axis.z);
    CreateRotateMX(a);
    axis = GetPoint3D(axis);
    const double b = std::atan2(axis.x, axis.z);
    CMatrix m1;
    m1.CreateRotateMY(b);
    MutlMatrix(m1, *this);
    CMatrix m2;
    m2.CreateRotateMZ(angle);
    MutlMatrix(m2, *this);
    CMatrix m3;
    m3.CreateRotateMY(-b);
    MutlMatrix(m3, *this);
    CMatrix m4;
    m4.CreateRotateMX(-a);
    MutlMatrix(m4, *this);
}

void CMatrix::MutlMatrix(CMatrix a, CMatrix b) {
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            At(i, j) = a.At(i, 0) * b.At(0, j) + a.At(i, 1) * b.At(1, j) + a.At(i, 2) * b.At(2, j) +
                       a.At(i, 3) * b.At(3, j);
        }
    }
}

CMatrix CMatrix::operator*(const CMatrix& o) const {
    CMatrix product;
    product.MutlMatrix(o, *this);
    return product;
}

CMatrix& CMatrix::operator*=(const CMatrix& o) {
    return *this = *this * o;
}

RvPoint3D CMatrix::GetPoint3D(double x, double y, double z) const {
    return {Row(0, x, y, z, 1), Row(1, x, y, z, 1), Row(2, x, y, z, 1)};
}

RvPoint3D CMatrix::GetPoint3D(const RvPoint3D& p) const {
    return GetPoint3D(p.x, p.y, p.z);
}

RvPoint3D CMatrix::GetVector3D(double x, double y, double z) const {
    return {At(0, 0) * x + At(0, 1) * y + At(0, 2) * z, At(1, 0) * x + At(1, 1) * y + At(1, 2) * z,
            At(2, 0) * x + At(2, 1) * y + At(2, 2) * z};
}

RvPoint3D CMatrix::GetVector3D(const RvPoint3D& p) const {
    return GetVector3D(p.x, p.y, p.z);
}

RvPoint2D CMatrix::GetRvPoint2D(const RvPoint3D& p) const {
    return GetRvPoint2D(p.x, p.y, p.z);
}

RvPoint2D CMatrix::GetRvPoint2D(double x, double y, double z) const {
    return {Row(0, x, y, z, 1), Row(1, x, y, z, 1), x, y, z};
}

void CMatrix::SetRvPoint2DOnly(RvPoint2D& p) const {
    p.x2D = Row(0, p.x, p.y, p.z, 1);
    p.y2D = Row(1, p.x, p.y, p.z, 1);
}

CPoint CMatrix::GetPoint(const CPoint& p) const {
    const double x = p.x;
    const double y = p.y;
    return {RoundToPixel(At(0, 0) * x + At(0, 1) * y + At(0, 3)),
            RoundToPixel(At(1, 0) * x + At(1, 1) * y + At(1, 3))};
}

CPoint CMatrix::GetPoint(const RvPoint3D& p) const {
    return {RoundToPixel(Row(0, p.x, p.y, p.z, 1)), RoundToPixel(Row(1, p.x, p.y, p.z, 1))};
}

void CMatrix::MultRow(int row, double f) {
    for (int c = 0; c < 4; ++c) {
        At(row, c) *= f;
    }
}

void CMatrix::SwapRows(int a, int b) {
    for (int c = 0; c < 4; ++c) {
        std::swap(At(a, c), At(b, c));
    }
}

void CMatrix::AddRow(double f, int src, int dst) {
    for (int c = 0; c < 4; ++c) {
        At(dst, c) += At(src, c) * f;
    }
}

void CMatrix::SubRow(double f, int src, int dst) {
    for (int c = 0; c < 4; ++c) {
        At(dst, c) -= At(src, c) * f;
    }
}

int CMatrix::GetIndexOfFirst(int row) const {
    for (int c = 0; c < 4; ++c) {
        if (std::fabs(At(row, c)) > kPivot) {
            return c;
        }
    }
    return kNoColumn;
}

void CMatrix::SetCol(int col, const RvPoint3D& p) {
    At(0, col) = p.x;
    At(1, col) = p.y;
    At(2, col) = p.z;
}

double CMatrix::GetA33() const {
    return At(0, 0) * At(1, 1) * At(2, 2) + At(2, 1) * At(1, 0) * At(0, 2) +
           At(0, 1) * At(2, 0) * At(1, 2) - At(0, 2) * At(1, 1) * At(2, 0) -
           At(0, 1) * At(1, 0) * At(2, 2) - At(1, 2) * At(0, 0) * At(2, 1);
}

CMatrix CMatrix::GetInverseMatrix() const {
    CMatrix w(*this);
    CMatrix inverse;
    for (int r = 0; r < 4; ++r) {
        if (w.GetIndexOfFirst(r) == kNoColumn) {
            return inverse;
        }
    }
    for (int i = 0; i < 4; ++i) {
        const int c = w.GetIndexOfFirst(i);
        if (c == kNoColumn) {
            continue;
        }
        const double f = 1 / w.At(i, c);
        inverse.MultRow(i, f);
        w.MultRow(i, f);
        for (int r = 0; r < 4; ++r) {
            if (r != i && std::fabs(w.At(r, c)) > kPivot) {
                inverse.SubRow(w.At(r, c), i, r);
                w.SubRow(w.At(r, c), i, r);
            }
        }
    }
    // Bring each row's pivot onto the diagonal by swapping, for at most six passes.
    int passes = 0;
    for (int i = 0; i < 4;) {
        const int j = w.GetIndexOfFirst(i);
        if (j == kNoColumn) {  // singular: the row lost its pivot to rounding
            return inverse;
        }
        if (j != i) {
            w.SwapRows(j, i);
            inverse.SwapRows(j, i);
            i = 0;
        }
        if (++passes > kMaxPasses) {
            return inverse;
        }
        ++i;
    }
    return inverse;
}

}  // namespace ravelin
