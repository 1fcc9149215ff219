#pragma once

#include "ravelin/RvExport.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/platform/CArray.h"

namespace ravelin {

/// The operation of a boolean combination.
enum _RvCombineMode {
    CombineDifference = 0,    ///< This polygon less the other.
    CombineIntersection = 1,  ///< The common part.
    CombineUnion = 2,         ///< The two together.
};

/// The class of a link of the combination graph: where its midpoint lies against the other
/// polygon, or how a shared edge has the two interiors. 0 is an empty or unclassified slot.
enum _RvLinkClass {
    LinkNone = 0,                ///< No link in the slot, or not classified yet.
    LinkNoClass = 1,             ///< Never stored: the empty places of the mode table.
    LinkBInsideA = 2,            ///< Along the second polygon, midpoint strictly inside the first.
    LinkAInsideB = 3,            ///< Along the first polygon, midpoint strictly inside the second.
    LinkBOutsideA = 4,           ///< Along the second polygon, midpoint not strictly inside.
    LinkAOutsideB = 5,           ///< Along the first polygon, midpoint not strictly inside.
    LinkSharedSameSide = 7,      ///< A common edge with both interiors on one side.
    LinkSharedOppositeSide = 8,  ///< A common edge with the interiors on opposite sides.
};

/// One node of the combination graph: a vertex of either polygon, a vertex of one on the
/// boundary of the other (a touching node), or a proper crossing of two edges. Nodes refer to
/// each other by their index in the node array.
struct RAVELIN_API _RvIntersection {
    static constexpr int kKindPlain = 1;     ///< On one polygon only, or a crossing.
    static constexpr int kKindTouching = 6;  ///< A vertex of one polygon on the other's boundary.

    int m_nNext;         ///< The next node of the trace in progress; -1 if none.
    bool m_bTraceStart;  ///< Set on the node at which the trace in progress began.
    bool m_bVisited;     ///< Set on a node the trace in progress has passed.
    /// The vertex of the first polygon at this node; for a node on an edge (a crossing too),
    /// the edge's start vertex; -1 off the first polygon.
    int m_nIndexA;
    /// The vertex before `m_nIndexA`; equal to it for a node on an edge; -1 off the polygon.
    int m_nPrevA;
    int m_nIndexB;  ///< As `m_nIndexA`, on the second polygon.
    int m_nPrevB;   ///< As `m_nPrevA`, on the second polygon.
    /// Neighbouring nodes, -1 where none: slots 0 and 1 along the first polygon, 2 and 3 along
    /// the second.
    int m_aLink[4];
    int m_aClass[4];  ///< The class of each link (_RvLinkClass); 0 until classified.
    bool m_aUsed[4];  ///< Set while a trace has taken the link.
    int m_nKind;      ///< kKindPlain or kKindTouching; 0 before a kind is given.
    RvPoint2D m_Point;
    int m_nIndex;  ///< The node's own index in the node array; -1 until links are built.

    /// No links, indices 0, no kind.
    _RvIntersection();
    _RvIntersection(int indexA, int prevA, int indexB, int prevB, RvPoint2D point, int kind);
};

/// The node array of a combination, and what DrawResult paints.
using RvIntersectionArray = CArray<_RvIntersection, _RvIntersection>;

}  // namespace ravelin
