#pragma once

#include <vector>

#include "ravelin/RvExport.h"
#include "ravelin/numeric/RvPoint3D.h"

namespace ravelin {

class RvPolyLine2D;

/// A control point of a rational B-spline: a point in space with its weight.
class RAVELIN_API NURBSPoint : public RvPoint3D {
public:
    double weight;  ///< The control point's weight.

    /// The point (`x`, `y`, `z`) with weight `weight`.
    NURBSPoint(double x, double y, double z, double weight);
    /// Copies the coordinates and the weight.
    NURBSPoint(const NURBSPoint& p);
    /// Copies `x`, `y`, `z` and the weight.
    NURBSPoint& operator=(const NURBSPoint& p);
    ~NURBSPoint() override;
};

/// A rational B-spline curve held as its control points, weights and knots. The client declares
/// the degree and the numbers of control points and knots with the setters, then adds the points
/// and knots; knots are never derived here. The only way out is sampling into a polyline, over
/// the parameters 0 to 1.
///
/// The basis recursion reads knot `i + p + 1` for control point `i` and degree `p`. Knots and
/// control points are read through checked subscripts: asking N_ip, GetKoef or Eval for an index
/// beyond the stored knots or control points raises std::out_of_range with
/// "invalid vector<T> subscript" instead of reading past the end.
///
/// Several members keep the names their authors gave them (Lenght, SetSegmentLenght,
/// m_dSegmentLenght); each is described in English.
class RAVELIN_API RvNURBS {
public:
    /// The largest number of sampling steps GetPolyLine accepts (it then appends one point
    /// more). A larger count, which a tiny segment length gives, is refused rather than allowed
    /// to overflow an int or exhaust memory.
    static constexpr int kMaxPolyLineSteps = 1000000;

    int m_nExponent;          ///< The degree `p` of the basis.
    int m_nControlPoints;     ///< The declared number of control points.
    int m_nKnots;             ///< The declared number of knots.
    double m_dSegmentLenght;  ///< m_dSegmentLenght: the desired length of a sampled piece.
    std::vector<NURBSPoint> m_controlPoints;  ///< The control points, in order.
    std::vector<double> m_knots;              ///< The knots, in the order they were added.

    /// Degree, declared numbers and segment length zero; no control points and no knots.
    RvNURBS();
    /// Copies every field.
    RvNURBS(const RvNURBS& n);
    /// Copies every field.
    RvNURBS& operator=(const RvNURBS& n);
    virtual ~RvNURBS();

    /// Stores the declared number of control points; nothing is resized.
    void SetNumberOfControlPoints(int n);
    /// Stores the declared number of knots; nothing is resized.
    void SetNumberOfKnots(int n);
    /// SetSegmentLenght: stores the desired length of a sampled piece.
    void SetSegmentLenght(double d);
    /// Stores the degree of the basis.
    void SetExponent(int p);

    /// Whether the declared number of knots equals the declared number of control points plus
    /// the degree plus one. The stored vectors are not looked at.
    bool CheckConsistency();
    /// Appends `p` and gives true, unless the declared number of control points is already held
    /// (or is not positive), in which case nothing is stored and the result is false.
    bool AddControlPoint(const NURBSPoint& p);
    /// The first knot added is always 0.0, whatever `k` is, and is accepted without looking at
    /// the declared number. Later ones append `k` and give true while fewer than the declared
    /// number of knots are held, else false. The order of the knots is not checked.
    bool AddKnot(double k);

    /// The B-spline basis function of index `i` and degree `p` at `u`, by the Cox-de Boor
    /// recursion, recomputed on every call. Both ends of a knot span are closed, so at an inner
    /// knot two neighbouring degree 0 functions both give 1. A term whose knot difference is
    /// exactly zero is left out. Knots up to `i + p + 1` are read; a missing one raises
    /// std::out_of_range ("invalid vector<T> subscript"). A negative degree gives 0.
    double N_ip(int i, int p, double u);
    /// GetKoef: the basis function of control point `i` at `u`, of the curve's degree, times that
    /// point's weight. A missing knot or control point raises std::out_of_range.
    double GetKoef(double u, int i);
    /// The point of the curve at `u`: the control points weighted by GetKoef, divided by the sum
    /// of those coefficients unless it is exactly zero, in which case the plain weighted sum is
    /// given. An empty curve gives (0, 0, 0). Missing knots raise std::out_of_range.
    RvPoint3D Eval(double u);
    /// Lenght: the number of sampling steps, which is the length of the control polygon (the 3D
    /// distances between consecutive control points, 0 for fewer than two) divided by the
    /// segment length. A zero segment length gives the division's result (infinity or NaN).
    double Lenght();
    /// Appends to `out`, after its present vertices, the points Eval(i / n) for i from 0 to n,
    /// with n the integer part of Lenght() + 1: n + 1 evenly spaced samples over 0 to 1. `out`
    /// is left unchanged when it is null, when the degree is negative or the stored knots are
    /// fewer than the stored control points plus the degree plus one (the evaluation would read
    /// past them), and when Lenght() is negative, not finite (a zero segment length), NaN, or
    /// would make n exceed kMaxPolyLineSteps.
    void GetPolyLine(RvPolyLine2D* out);
};

}  // namespace ravelin
