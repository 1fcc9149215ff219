#pragma once

#include <vector>

#include "ravelin/RvExport.h"
#include "ravelin/polygon/RvIntersection.h"

namespace ravelin {

class RvPolygon2D;

/// The node graph of one boolean combination of two polygons, `a` and `b`, and the four phases
/// that RvPolygon2D::_Combine runs on it: preparation of the operands, nodes and links,
/// classification of the links, and tracing of rings. The phases are public so that each can
/// be run and inspected on its own; _Combine is their only caller in the library.
///
/// The graph refers to both polygons and changes them in the preparation.
class RAVELIN_API RvCombineGraph {
public:
    /// Prepares both operands, `a` first: zeroes `z`, drops each vertex within 0.01 of the last
    /// one kept, and leaves a stored closing vertex out of the counts.
    RvCombineGraph(RvPolygon2D& a, RvPolygon2D& b);

    /// The vertex count of the first operand's ring after preparation.
    int CountA() const { return m_nA; }
    /// The vertex count of the second operand's ring after preparation.
    int CountB() const { return m_nB; }
    const RvIntersectionArray& Nodes() const { return m_nodes; }

    /// Appends the nodes: the vertices of `a`, the vertices of `b` not at a vertex of `a`, then
    /// the proper crossings of their edges.
    void BuildNodes();
    /// Links each node to its nearest neighbours along each polygon.
    void BuildLinks();
    /// Gives every link its class by a midpoint test, and each shared edge by a probe beside it.
    void Classify();
    /// Traces the rings that `mode` selects and appends those of three points or more.
    void TraceRings(_RvCombineMode mode, std::vector<RvPolygon2D>& result);

    /// The four classes the mode follows: two primary, then two secondary; 1 where none.
    static void AllowedClasses(_RvCombineMode mode, int allowed[4]);

private:
    bool IsPrimary(int linkClass) const;
    bool IsSecondary(int linkClass) const;
    void AppendVertexNodesA();
    void AppendVertexNodesB();
    void AppendCrossingNodes();
    void LinkNode(_RvIntersection& r);
    void Offer(_RvIntersection& r, int o, int preferred, int other, bool insideEdge);
    bool IsNearer(const _RvIntersection& r, int held, int o) const;
    int ClassOf(const _RvIntersection& r, int slot);
    int SharedEdgeClass(const _RvIntersection& r, const _RvIntersection& o, const RvPoint2D& m);
    int FindStart() const;
    int NextNode(int r);
    bool Trace(int f);
    void ReleaseLink(int r, int o);
    void TraceOneRing(int s, RvPolygon2D& ring);
    void ClearTraceFlags(int s);
    static void TidySeam(RvPolygon2D& ring);

    RvPolygon2D& m_a;
    RvPolygon2D& m_b;
    int m_nA;
    int m_nB;
    RvIntersectionArray m_nodes;
    int m_allowed[4];
};

}  // namespace ravelin
