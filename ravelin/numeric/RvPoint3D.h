#pragma once

#include "ravelin/RvExport.h"
#include "ravelin/numeric/Number.h"
#include "ravelin/platform/CObject.h"

namespace ravelin {

/// A point, or a vector, in space. Equality is a box comparison with 0.01 per coordinate; sizes,
/// distances and dot products come back as Number, to be compared within its band.
///
/// Several members keep the names their authors gave them; each is described in English below.
class RAVELIN_API RvPoint3D : public CObject {
    RAVELIN_DECLARE_SERIAL(RvPoint3D)

public:
    double x;
    double y;
    double z;

    /// Arms the one-shot warning of Normalize; true when the library is loaded.
    static bool s_bNormalizeWarning;

    RvPoint3D();
    RvPoint3D(double x, double y, double z);
    RvPoint3D(const RvPoint3D& p);
    RvPoint3D& operator=(const RvPoint3D& p);
    ~RvPoint3D() override;

    void Set(double x, double y, double z);
    /// Exchanges the three coordinates with those of `p`.
    void Swap(RvPoint3D& p);

    RvPoint3D operator+(const RvPoint3D& p) const;
    RvPoint3D operator-(const RvPoint3D& p) const;
    RvPoint3D operator*(double f) const;
    /// Divides each coordinate by `f`, with no guard against zero.
    RvPoint3D operator/(double f) const;
    RvPoint3D& operator+=(const RvPoint3D& p);
    RvPoint3D& operator-=(const RvPoint3D& p);
    void operator*=(const double& f);
    void operator/=(const double& f);

    /// Dot product; `x` and `y` terms are summed first, then `z`.
    Number operator*(const RvPoint3D& o) const;
    /// GetVektorovySucin: vector (cross) product `this` x `o`.
    RvPoint3D GetVektorovySucin(const RvPoint3D& o) const;
    /// SetVektorovySucin: replaces the point by the vector product `this` x `o`.
    void SetVektorovySucin(const RvPoint3D& o);
    Number GetSquareSize() const;
    Number GetSize() const;
    Number Distance(const RvPoint3D& p) const;
    /// Distance on `x` and `y` alone.
    Number Distance2D(const RvPoint3D& p) const;
    /// Square of the distance on `x` and `y` alone.
    Number SquareDistance2D(const RvPoint3D& p) const;

    /// Box comparison with 0.01 on `x`, `y`, `z`, strict on both sides.
    bool operator==(const RvPoint3D& p) const;
    bool operator!=(const RvPoint3D& p) const;
    /// Box comparison with `tol` on `x` and `y`.
    bool IsEqual2D(const RvPoint3D& o, double tol) const;
    /// Box comparison with `tol` on `x`, `y` and `z`.
    bool IsEqual3D(const RvPoint3D& o, double tol) const;
    /// Every coordinate strictly below 9e-07 in magnitude.
    bool IsNull() const;
    /// Some coordinate strictly above 9e-07 in magnitude. Not the negation of IsNull: a vector
    /// whose largest coordinate is exactly 9e-07 is neither.
    bool IsNotNull() const;
    /// Some coordinate strictly above `tol` in magnitude.
    bool IsNotNull(double tol) const;
    /// Whether `o` points to the same side, judged on the first coordinate of this vector whose
    /// magnitude exceeds 0.0001: `o`'s same coordinate divided by it must exceed 0.0001. False if
    /// no coordinate qualifies.
    bool IsEqualOrientation(const RvPoint3D& o) const;
    /// `a` if `b` is farther by the band or more, else `b`: a tie within the band goes to `b`.
    const RvPoint3D& GetNearest(const RvPoint3D& a, const RvPoint3D& b) const;

    /// Scales to unit length. A vector shorter than the band stays as it is and, while the
    /// warning is armed, shows one message box and disarms it.
    void Normalize();
    /// Rounds each coordinate to `n` steps per unit, halves away from zero.
    void Round(int n);
    /// Whether the point lies on the line through `p` with direction `dir`.
    bool IsOnLine(const RvPoint3D& p, const RvPoint3D& dir) const;
    /// Whether the point lies on the plane through `a`, `b`, `c`, all rounded to 1e-04 first.
    bool IsOnPlane(RvPoint3D a, RvPoint3D b, RvPoint3D c) const;
    /// Whether the point lies strictly between `a` and `b`.
    bool IsInsideSegment(const RvPoint3D& a, const RvPoint3D& b) const;
    /// Whether the point lies strictly between `a` and `b`, on `x` and `y`.
    bool IsInsideSegment2D(const RvPoint3D& a, const RvPoint3D& b) const;
    /// Whether `a*x + b*y + c*z + d` is strictly above 1e-07; a point on the plane is outside.
    bool IsInHalfSpace(double a, double b, double c, double d) const;
    /// Distance from the line through `a` and `b`; the distance to `a` if they coincide.
    Number DistanceFromLine(const RvPoint3D& a, const RvPoint3D& b) const;
    /// Distance from the segment `a`-`b`. A foot beyond either end measures to `a`.
    Number DistanceFromSegment(const RvPoint3D& a, const RvPoint3D& b) const;
    /// Distance from the plane through `a` with normal `n`, which need not be of unit length.
    Number DistanceFromPlane(const RvPoint3D& a, const RvPoint3D& n) const;
    /// GetSumernyBod: the mirror image in the plane `a*x + b*y + c*z + d = 0`.
    RvPoint3D GetSumernyBod(double a, double b, double c, double d) const;
    /// SetSumernyBod: replaces the point by its mirror image in the plane.
    void SetSumernyBod(double a, double b, double c, double d);

    /// DajBodNaOsiUhla: the point on the axis of the angle at `p`, between the unit arm
    /// directions `u` and `v` in the plane of normal `n`, at distance `d` from both arms.
    static RvPoint3D DajBodNaOsiUhla(const RvPoint3D& p, const RvPoint3D& u, const RvPoint3D& v,
                                     double d, const RvPoint3D& n);
    /// DajBodNaOsiUhlaEx: as DajBodNaOsiUhla, at distance `d1` from arm `u` and `d2` from `v`.
    static RvPoint3D DajBodNaOsiUhlaEx(const RvPoint3D& p, const RvPoint3D& u, double d1,
                                       const RvPoint3D& v, double d2, const RvPoint3D& n);
    /// DajPriesecnik: the intersection of the line through `a` with direction `dir` and the
    /// plane through `q` with normal `n`. A line parallel to the plane throws a double.
    static RvPoint3D DajPriesecnik(const RvPoint3D& a, const RvPoint3D& dir, const RvPoint3D& q,
                                   const RvPoint3D& n);

    /// Arms the one-shot warning of Normalize again.
    static void Activate_Normalize_Warning_ERR();

    /// Three little-endian doubles: `x`, `y`, `z`.
    void Serialize(CArchive& ar) override;

protected:
    /// One coordinate rounded to `n` steps per unit, halves away from zero; the sign test is on
    /// the coordinate itself.
    static double RoundCoordinate(double c, int n);
};

}  // namespace ravelin
