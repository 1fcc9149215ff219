#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <vector>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/CPoint.h"
#include "ravelin/platform/CRect.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

const char kInvalidSubscript[] = "invalid vector<T> subscript";

// The smallest concrete entity: it sets no type word of its own, so what the base class does
// with `type` shows through.
class BareEntity : public RvDrawEntity {
public:
    BareEntity() = default;
    BareEntity(const BareEntity&) = default;
    BareEntity& operator=(const BareEntity&) = default;
    ~BareEntity() override = default;

    CRect Draw(CDC*) override { return CRect(); }
    bool IsIncident(const RvPoint2D&, double&, enumSnapType&, RvDrawEntity&) const override {
        return false;
    }
    bool InvSelectArea(const CRect&, int) const override { return false; }
};

// A path that writes its id into `log` when it is destroyed, so that the destruction of list
// members through a base pointer can be watched.
class LoggedLine : public RvPolyLine2D {
public:
    LoggedLine(int id, std::vector<int>* log) : m_id(id), m_log(log) {}
    ~LoggedLine() override { m_log->push_back(m_id); }

private:
    int m_id;
    std::vector<int>* m_log;
};

// A vertex whose planar pair (x2D, y2D) differs from its position in space (x, y, z), so that a
// test reading the wrong pair would notice.
RvPoint2D V(double x2D, double y2D, double x, double y, double z) {
    return RvPoint2D(x2D, y2D, x, y, z);
}

// The path A, B, C used by the index tests; each vertex has its own planar pair and position.
RvPolyLine2D Abc() {
    return Path({V(1, 2, 10, 20, 30), V(3, 4, 40, 50, 60), V(5, 6, 70, 80, 90)});
}

// Every field that the copy and assignment rules name, set to a recognisable value.
void FillFields(RvDrawEntity& e) {
    e.reservedWord1 = 11;
    e.reservedWord2 = 22;
    e.reservedWord3 = 33;
    e.reservedFlag = 44;
    e.type = 55;
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Construction, copy and assignment

TEST(RvDrawEntityConstruction, DefaultIsEmptyWithAllFieldsZero) {
    const BareEntity e;
    EXPECT_TRUE(e.empty());
    EXPECT_EQ(e.reservedWord1, 0u);
    EXPECT_EQ(e.reservedWord2, 0u);
    EXPECT_EQ(e.reservedWord3, 0u);
    EXPECT_EQ(e.reservedFlag, 0u);
    EXPECT_EQ(e.type, 0u);
    EXPECT_EQ(e.GetType(), 0u);
    EXPECT_EQ(e.next, nullptr);
    EXPECT_EQ(e.prev, nullptr);
}

TEST(RvDrawEntityConstruction, PolyLineSetsItsTypeWord) {
    const RvPolyLine2D e;
    EXPECT_TRUE(e.empty());
    EXPECT_EQ(e.GetType(), 2u);
    EXPECT_EQ(e.reservedWord1, 0u);
    EXPECT_EQ(e.reservedWord3, 0u);
    EXPECT_EQ(e.next, nullptr);
    EXPECT_EQ(e.prev, nullptr);
}

TEST(RvDrawEntityConstruction, CopyTakesReservedWords1And2AndTheVertices) {
    BareEntity source;
    FillFields(source);
    source.push_backA(V(1, 2, 3, 4, 5));
    source.push_backA(V(6, 7, 8, 9, 10));

    const BareEntity copy(source);
    ASSERT_EQ(copy.size(), 2u);
    EXPECT_TRUE(HasValues(copy[0], 3, 4, 5, 1, 2));
    EXPECT_TRUE(HasValues(copy[1], 8, 9, 10, 6, 7));
    EXPECT_EQ(copy.reservedWord1, 11u);
    EXPECT_EQ(copy.reservedWord2, 22u);
}

TEST(RvDrawEntityConstruction, CopyLeavesReservedWord3FlagAndTypeZero) {
    BareEntity source;
    FillFields(source);
    const BareEntity copy(source);
    EXPECT_EQ(copy.reservedWord3, 0u);
    EXPECT_EQ(copy.reservedFlag, 0u);
    // No derived constructor sets a type word here, so the copy keeps the base's zero.
    EXPECT_EQ(copy.type, 0u);
}

TEST(RvDrawEntityConstruction, CopyOfPolyLineHasTheDerivedTypeNotTheSources) {
    RvPolyLine2D source;
    source.SetType(9);
    const RvPolyLine2D copy(source);
    EXPECT_EQ(copy.GetType(), 2u);
}

TEST(RvDrawEntityConstruction, CopyOfListMemberIsNotLinked) {
    RvPolyLine2D before;
    RvPolyLine2D member;
    RvPolyLine2D after;
    before.SetNextItem(&member);
    member.SetNextItem(&after);

    {
        const RvPolyLine2D copy(member);
        EXPECT_EQ(copy.next, nullptr);
        EXPECT_EQ(copy.prev, nullptr);
    }
    // The copy was never on the list, so its end leaves the list as it was.
    EXPECT_EQ(before.next, &member);
    EXPECT_EQ(after.prev, &member);
    EXPECT_EQ(member.prev, &before);
    EXPECT_EQ(member.next, &after);

    before.ClearThisItem();
    member.ClearThisItem();
    after.ClearThisItem();
}

TEST(RvDrawEntityConstruction, AssignmentCopiesVerticesAndEveryFieldButTheLinks) {
    BareEntity source;
    FillFields(source);
    source.push_backA(V(1, 2, 3, 4, 5));

    BareEntity target;
    target.push_backA(RvPoint2D(7, 7));
    target.push_backA(RvPoint2D(8, 8));
    target = source;

    ASSERT_EQ(target.size(), 1u);
    EXPECT_TRUE(HasValues(target[0], 3, 4, 5, 1, 2));
    EXPECT_EQ(target.reservedWord1, 11u);
    EXPECT_EQ(target.reservedWord2, 22u);
    EXPECT_EQ(target.reservedWord3, 33u);
    EXPECT_EQ(target.reservedFlag, 44u);
    EXPECT_EQ(target.type, 55u);
}

TEST(RvDrawEntityConstruction, AssignmentKeepsTheSourcesType) {
    RvPolyLine2D source;
    source.SetType(9);
    RvPolyLine2D target;
    target = source;
    EXPECT_EQ(target.GetType(), 9u);

    // Through the base class the type word of another class comes over as well.
    BareEntity bare;
    bare.SetType(13);
    RvDrawEntity& base = target;
    base = bare;
    EXPECT_EQ(target.GetType(), 13u);
}

TEST(RvDrawEntityConstruction, AssignmentForgetsTheTargetsLinksWithoutTellingTheNeighbours) {
    RvPolyLine2D before;
    RvPolyLine2D target;
    RvPolyLine2D after;
    before.SetNextItem(&target);
    target.SetNextItem(&after);

    RvPolyLine2D source;
    RvPolyLine2D sourceNext;
    source.SetNextItem(&sourceNext);

    target = source;
    EXPECT_EQ(target.next, nullptr);
    EXPECT_EQ(target.prev, nullptr);
    // The neighbours still point at the target: nothing repaired them.
    EXPECT_EQ(before.next, &target);
    EXPECT_EQ(after.prev, &target);
    // The source keeps its own link.
    EXPECT_EQ(source.next, &sourceNext);

    before.ClearThisItem();
    after.ClearThisItem();
    source.ClearThisItem();
    sourceNext.ClearThisItem();
}

TEST(RvDrawEntityConstruction, SelfAssignmentKeepsVerticesAndDropsLinks) {
    RvPolyLine2D e = Path({RvPoint2D(1, 2), RvPoint2D(3, 4)});
    FillFields(e);
    RvPolyLine2D other;
    e.SetNextItem(&other);

    RvDrawEntity& alias = e;
    e = static_cast<RvPolyLine2D&>(alias);
    ASSERT_EQ(e.size(), 2u);
    EXPECT_TRUE(HasValues(e[1], 3, 4, 0, 3, 4));
    EXPECT_EQ(e.reservedWord3, 33u);
    EXPECT_EQ(e.type, 55u);
    EXPECT_EQ(e.next, nullptr);

    other.ClearThisItem();
}

// ---------------------------------------------------------------------------------------------
// Destruction and the list

TEST(RvDrawEntityList, DestroyingTheMiddleMemberJoinsTheOtherTwo) {
    auto* a = new RvPolyLine2D;
    auto* b = new RvPolyLine2D;
    auto* c = new RvPolyLine2D;
    a->SetNextItem(b);
    b->SetNextItem(c);

    delete b;
    EXPECT_EQ(a->GetNextItem(), c);
    EXPECT_EQ(c->GetPrevItem(), a);
    EXPECT_EQ(a->GetPrevItem(), nullptr);
    EXPECT_EQ(c->GetNextItem(), nullptr);

    delete a;
    delete c;
}

TEST(RvDrawEntityList, DestroyingTheFirstMemberLeavesTheSecondWithoutPrevious) {
    auto* a = new RvPolyLine2D;
    auto* b = new RvPolyLine2D;
    a->SetNextItem(b);

    delete a;
    EXPECT_EQ(b->GetPrevItem(), nullptr);
    delete b;
}

TEST(RvDrawEntityList, DestroyingTheLastMemberLeavesThePreviousWithoutNext) {
    auto* a = new RvPolyLine2D;
    auto* b = new RvPolyLine2D;
    a->SetNextItem(b);

    delete b;
    EXPECT_EQ(a->GetNextItem(), nullptr);
    delete a;
}

TEST(RvDrawEntityList, SetNextItemLinksBothWaysAndTouchesNothingElse) {
    RvPolyLine2D a;
    RvPolyLine2D b;
    RvPolyLine2D c;
    a.SetNextItem(&b);
    EXPECT_EQ(a.GetNextItem(), &b);
    EXPECT_EQ(b.GetPrevItem(), &a);
    EXPECT_EQ(a.GetPrevItem(), nullptr);
    EXPECT_EQ(b.GetNextItem(), nullptr);

    // Linking b onward leaves its link back to a as it is.
    b.SetNextItem(&c);
    EXPECT_EQ(b.GetPrevItem(), &a);
    EXPECT_EQ(b.GetNextItem(), &c);
    EXPECT_EQ(c.GetPrevItem(), &b);

    a.ClearThisItem();
    b.ClearThisItem();
    c.ClearThisItem();
}

TEST(RvDrawEntityList, ClearThisItemForgetsBothLinksWithoutTellingTheNeighbours) {
    RvPolyLine2D a;
    RvPolyLine2D b;
    RvPolyLine2D c;
    a.SetNextItem(&b);
    b.SetNextItem(&c);

    b.ClearThisItem();
    EXPECT_EQ(b.GetNextItem(), nullptr);
    EXPECT_EQ(b.GetPrevItem(), nullptr);
    EXPECT_EQ(a.GetNextItem(), &b);
    EXPECT_EQ(c.GetPrevItem(), &b);

    a.ClearThisItem();
    c.ClearThisItem();
}

TEST(RvDrawEntityList, DeleteWholeListDestroysEveryMemberInOrderAndNullsTheHead) {
    std::vector<int> destroyed;
    auto* a = new LoggedLine(1, &destroyed);
    auto* b = new LoggedLine(2, &destroyed);
    auto* c = new LoggedLine(3, &destroyed);
    a->SetNextItem(b);
    b->SetNextItem(c);

    RvDrawEntity* head = a;
    RvDrawEntity::DeleteWholeList(&head);
    EXPECT_EQ(head, nullptr);
    // Each member is destroyed through the base pointer, so the derived destructor runs.
    EXPECT_EQ(destroyed, (std::vector<int>{1, 2, 3}));
}

TEST(RvDrawEntityList, DeleteWholeListFromTheMiddleKeepsTheMembersBefore) {
    std::vector<int> destroyed;
    auto* a = new LoggedLine(1, &destroyed);
    auto* b = new LoggedLine(2, &destroyed);
    auto* c = new LoggedLine(3, &destroyed);
    a->SetNextItem(b);
    b->SetNextItem(c);

    RvDrawEntity* head = b;
    RvDrawEntity::DeleteWholeList(&head);
    EXPECT_EQ(head, nullptr);
    EXPECT_EQ(destroyed, (std::vector<int>{2, 3}));
    // Each destructor joined its neighbours, so a is left at the end of an empty tail.
    EXPECT_EQ(a->GetNextItem(), nullptr);

    delete a;
    EXPECT_EQ(destroyed, (std::vector<int>{2, 3, 1}));
}

TEST(RvDrawEntityList, DeleteWholeListOfNoMembersDoesNothing) {
    RvDrawEntity* head = nullptr;
    RvDrawEntity::DeleteWholeList(&head);
    EXPECT_EQ(head, nullptr);
}

TEST(RvDrawEntityList, SetTypeAndGetTypeRoundTrip) {
    RvPolyLine2D e;
    e.SetType(1234);
    EXPECT_EQ(e.GetType(), 1234u);
    EXPECT_EQ(e.type, 1234u);
}

// ---------------------------------------------------------------------------------------------
// Vertices

TEST(RvDrawEntityVertices, PushBackAAppendsAndClearARemovesAll) {
    RvPolyLine2D e;
    e.push_backA(V(1, 2, 3, 4, 5));
    e.push_backA(V(6, 7, 8, 9, 10));
    ASSERT_EQ(e.size(), 2u);
    EXPECT_TRUE(HasValues(e[0], 3, 4, 5, 1, 2));
    EXPECT_TRUE(HasValues(e[1], 8, 9, 10, 6, 7));

    e.clearA();
    EXPECT_TRUE(e.empty());
}

TEST(RvDrawEntityVertices, ClearAKeepsTheFields) {
    RvPolyLine2D e = Path({RvPoint2D(1, 1)});
    FillFields(e);
    e.clearA();
    EXPECT_EQ(e.reservedWord1, 11u);
    EXPECT_EQ(e.type, 55u);
}

TEST(RvDrawEntityVertices, InsertAPutsOneVertexBeforePosition) {
    RvPolyLine2D e = Path({RvPoint2D(1, 0), RvPoint2D(3, 0)});
    e.insertA(e.cbegin() + 1, RvPoint2D(2, 0));
    e.insertA(e.cbegin(), RvPoint2D(0, 0));
    e.insertA(e.cend(), RvPoint2D(4, 0));
    ASSERT_EQ(e.size(), 5u);
    for (int k = 0; k < 5; ++k) {
        EXPECT_TRUE(HasValues(e[k], k, 0, 0, k, 0)) << "vertex " << k;
    }
}

TEST(RvDrawEntityVertices, InsertAPutsARangeBeforePosition) {
    RvPolyLine2D e = Path({RvPoint2D(0, 0), RvPoint2D(4, 0)});
    const RvPoint2D range[] = {RvPoint2D(1, 0), RvPoint2D(2, 0), RvPoint2D(3, 0)};
    e.insertA(e.cbegin() + 1, range, range + 3);
    ASSERT_EQ(e.size(), 5u);
    for (int k = 0; k < 5; ++k) {
        EXPECT_TRUE(HasValues(e[k], k, 0, 0, k, 0)) << "vertex " << k;
    }
}

TEST(RvDrawEntityVertices, InsertAOfAnEmptyRangeChangesNothing) {
    RvPolyLine2D e = Path({RvPoint2D(0, 0)});
    const RvPoint2D range[] = {RvPoint2D(1, 0)};
    e.insertA(e.cbegin(), range, range);
    ASSERT_EQ(e.size(), 1u);
    EXPECT_TRUE(HasValues(e[0], 0, 0, 0, 0, 0));
}

TEST(RvDrawEntityVertices, AssignAReplacesAllVerticesByTheRange) {
    RvPolyLine2D e = Path({RvPoint2D(9, 9), RvPoint2D(8, 8), RvPoint2D(7, 7), RvPoint2D(6, 6)});
    const RvPolyLine2D source = Path({RvPoint2D(0, 0), V(1, 2, 3, 4, 5), RvPoint2D(2, 2)});
    e.assignA(source.cbegin() + 1, source.cend());
    ASSERT_EQ(e.size(), 2u);
    EXPECT_TRUE(HasValues(e[0], 3, 4, 5, 1, 2));
    EXPECT_TRUE(HasValues(e[1], 2, 2, 0, 2, 2));
}

TEST(RvDrawEntityVertices, AssignAOfAnEmptyRangeLeavesNoVertices) {
    RvPolyLine2D e = Path({RvPoint2D(9, 9)});
    const RvPolyLine2D source;
    e.assignA(source.cbegin(), source.cend());
    EXPECT_TRUE(e.empty());
}

TEST(RvDrawEntityVertices, ReInitRemovesVerticesAndZeroesEveryField) {
    BareEntity e;
    FillFields(e);
    e.push_backA(RvPoint2D(1, 1));
    RvPolyLine2D other;
    e.SetNextItem(&other);

    e.ReInit();
    EXPECT_TRUE(e.empty());
    EXPECT_EQ(e.reservedWord1, 0u);
    EXPECT_EQ(e.reservedWord2, 0u);
    EXPECT_EQ(e.reservedWord3, 0u);
    EXPECT_EQ(e.reservedFlag, 0u);
    EXPECT_EQ(e.type, 0u);
    EXPECT_EQ(e.next, nullptr);
    EXPECT_EQ(e.prev, nullptr);

    other.ClearThisItem();
}

TEST(RvDrawEntityVertices, ReInitDoesNotUnlinkTheNeighbours) {
    RvPolyLine2D before;
    BareEntity e;
    RvPolyLine2D after;
    before.SetNextItem(&e);
    e.SetNextItem(&after);

    e.ReInit();
    EXPECT_EQ(before.next, &e);
    EXPECT_EQ(after.prev, &e);

    before.ClearThisItem();
    after.ClearThisItem();
}

TEST(RvDrawEntityVertices, PolyLineReInitSetsItsTypeWordAgain) {
    RvPolyLine2D e = Path({RvPoint2D(1, 1)});
    FillFields(e);
    e.ReInit();
    EXPECT_TRUE(e.empty());
    EXPECT_EQ(e.GetType(), 2u);
    EXPECT_EQ(e.reservedWord1, 0u);
    EXPECT_EQ(e.reservedWord3, 0u);
    EXPECT_EQ(e.reservedFlag, 0u);
}

// ---------------------------------------------------------------------------------------------
// Index arithmetic

TEST(RvDrawEntityIndex, ValidateIndexWrapsIntoTheVertexRange) {
    const RvPolyLine2D e = Abc();
    const int in[] = {-1, -4, 3, 7, 0, 1, 2, -3, -7, 6};
    const int out[] = {2, 2, 0, 1, 0, 1, 2, 0, 2, 0};
    for (int k = 0; k < 10; ++k) {
        int i = in[k];
        e.ValidateIndex(i);
        EXPECT_EQ(i, out[k]) << "from " << in[k];
    }
}

TEST(RvDrawEntityIndex, ValidateIndexOfASingleVertexIsAlwaysZero) {
    const RvPolyLine2D e = Path({RvPoint2D(1, 1)});
    for (int from : {-5, -1, 0, 1, 5}) {
        int i = from;
        e.ValidateIndex(i);
        EXPECT_EQ(i, 0) << "from " << from;
    }
}

TEST(RvDrawEntityIndex, ValidateIndexWithoutVerticesLeavesTheIndexAndReturns) {
    const RvPolyLine2D e;
    for (int from : {-3, 0, 4}) {
        int i = from;
        e.ValidateIndex(i);
        EXPECT_EQ(i, from);
    }
}

TEST(RvDrawEntityIndex, NextPointOfIndex) {
    RvPolyLine2D e = Abc();
    EXPECT_EQ(e.GetNextPoint(0), e.begin() + 1);
    EXPECT_EQ(e.GetNextPoint(1), e.begin() + 2);
    // From the last vertex on to the first.
    EXPECT_EQ(e.GetNextPoint(2), e.begin());
    // -1, taken as unsigned, is beyond n - 1 as well.
    EXPECT_EQ(e.GetNextPoint(-1), e.begin());
    EXPECT_EQ(e.GetNextPoint(-2), e.begin());
    EXPECT_EQ(e.GetNextPoint(5), e.begin());
}

TEST(RvDrawEntityIndex, NextPointOfIndexConst) {
    const RvPolyLine2D e = Abc();
    EXPECT_EQ(e.GetNextPoint(0), e.cbegin() + 1);
    EXPECT_EQ(e.GetNextPoint(1), e.cbegin() + 2);
    EXPECT_EQ(e.GetNextPoint(2), e.cbegin());
    EXPECT_EQ(e.GetNextPoint(-1), e.cbegin());
    EXPECT_EQ(e.GetNextPoint(5), e.cbegin());
    EXPECT_TRUE(HasValues(*e.GetNextPoint(2), 10, 20, 30, 1, 2));
}

TEST(RvDrawEntityIndex, PrevPointOfFirstVertexIsTheLast) {
    RvPolyLine2D e = Abc();
    EXPECT_EQ(e.GetPrevPoint(0), e.begin() + 2);
    EXPECT_EQ(e.GetPrevPoint(-1), e.begin() + 2);
    EXPECT_EQ(e.GetPrevPoint(-7), e.begin() + 2);
    EXPECT_TRUE(HasValues(*e.GetPrevPoint(0), 70, 80, 90, 5, 6));
}

TEST(RvDrawEntityIndex, PrevPointOfLaterVertexIsTheOneBefore) {
    RvPolyLine2D e = Abc();
    EXPECT_EQ(e.GetPrevPoint(1), e.begin());
    EXPECT_EQ(e.GetPrevPoint(2), e.begin() + 1);
    // Index n has vertex n - 1 before it, which exists.
    EXPECT_EQ(e.GetPrevPoint(3), e.begin() + 2);
}

TEST(RvDrawEntityIndex, PrevPointOfIndexConst) {
    const RvPolyLine2D e = Abc();
    EXPECT_EQ(e.GetPrevPoint(0), e.cbegin() + 2);
    EXPECT_EQ(e.GetPrevPoint(-1), e.cbegin() + 2);
    EXPECT_EQ(e.GetPrevPoint(1), e.cbegin());
    EXPECT_EQ(e.GetPrevPoint(2), e.cbegin() + 1);
    EXPECT_EQ(e.GetPrevPoint(3), e.cbegin() + 2);
}

TEST(RvDrawEntityIndex, PrevPointBeyondTheCountRaises) {
    RvPolyLine2D e = Abc();
    ExpectThrowWithMessage<std::out_of_range>([&e] { (void)e.GetPrevPoint(4); }, kInvalidSubscript);
    ExpectThrowWithMessage<std::out_of_range>([&e] { (void)e.GetPrevPoint(100); },
                                              kInvalidSubscript);
    const RvPolyLine2D& c = e;
    ExpectThrowWithMessage<std::out_of_range>([&c] { (void)c.GetPrevPoint(4); }, kInvalidSubscript);
}

TEST(RvDrawEntityIndex, NextAndPrevOfIterator) {
    RvPolyLine2D e = Abc();
    const auto a = e.begin();
    const auto b = e.begin() + 1;
    const auto c = e.begin() + 2;
    EXPECT_EQ(e.GetNextPoint(a), b);
    EXPECT_EQ(e.GetNextPoint(b), c);
    EXPECT_EQ(e.GetNextPoint(c), a);
    EXPECT_EQ(e.GetPrevPoint(a), c);
    EXPECT_EQ(e.GetPrevPoint(b), a);
    EXPECT_EQ(e.GetPrevPoint(c), b);
}

TEST(RvDrawEntityIndex, NextAndPrevOfConstIterator) {
    const RvPolyLine2D e = Abc();
    const auto a = e.cbegin();
    const auto b = e.cbegin() + 1;
    const auto c = e.cbegin() + 2;
    EXPECT_EQ(e.GetNextPoint(a), b);
    EXPECT_EQ(e.GetNextPoint(b), c);
    EXPECT_EQ(e.GetNextPoint(c), a);
    EXPECT_EQ(e.GetPrevPoint(a), c);
    EXPECT_EQ(e.GetPrevPoint(b), a);
    EXPECT_EQ(e.GetPrevPoint(c), b);
}

TEST(RvDrawEntityIndex, SingleVertexIsItsOwnNeighbour) {
    RvPolyLine2D e = Path({RvPoint2D(1, 1)});
    EXPECT_EQ(e.GetNextPoint(0), e.begin());
    EXPECT_EQ(e.GetPrevPoint(0), e.begin());
    EXPECT_EQ(e.GetNextPoint(e.begin()), e.begin());
    EXPECT_EQ(e.GetPrevPoint(e.begin()), e.begin());
}

TEST(RvDrawEntityIndex, NeighboursInAnEmptyEntityAreEnd) {
    RvPolyLine2D e;
    EXPECT_EQ(e.GetNextPoint(0), e.end());
    EXPECT_EQ(e.GetNextPoint(-1), e.end());
    EXPECT_EQ(e.GetPrevPoint(0), e.end());
    EXPECT_EQ(e.GetPrevPoint(3), e.end());
    EXPECT_EQ(e.GetNextPoint(e.begin()), e.end());
    EXPECT_EQ(e.GetPrevPoint(e.begin()), e.end());

    const RvPolyLine2D& c = e;
    EXPECT_EQ(c.GetNextPoint(0), c.cend());
    EXPECT_EQ(c.GetPrevPoint(0), c.cend());
    EXPECT_EQ(c.GetPrevPoint(3), c.cend());
    EXPECT_EQ(c.GetNextPoint(c.cbegin()), c.cend());
    EXPECT_EQ(c.GetPrevPoint(c.cbegin()), c.cend());
}

// ---------------------------------------------------------------------------------------------
// Transformations

TEST(RvDrawEntityTransform, MoveAddsAllFiveValues) {
    RvPolyLine2D e = Path({V(1, 2, 3, 4, 5), V(-1, -2, -3, -4, -5)});
    // The planar part of the offset differs from its part in space; each is added to its own.
    e.Move(V(10, 20, 30, 40, 50));
    ASSERT_EQ(e.size(), 2u);
    EXPECT_TRUE(HasValues(e[0], 33, 44, 55, 11, 22));
    EXPECT_TRUE(HasValues(e[1], 27, 36, 45, 9, 18));
}

TEST(RvDrawEntityTransform, MirrorInPlaneXZeroSetsPlanarPairToTheNewPosition) {
    // The planar pair (7, 8) differs from x, y = (3, 4); afterwards it equals the mirrored x, y.
    RvPolyLine2D e = Path({V(7, 8, 3, 4, 5)});
    e.Mirror(1, 0, 0, 0);
    ASSERT_EQ(e.size(), 1u);
    EXPECT_TRUE(HasValues(e[0], -3, 4, 5, -3, 4));
}

TEST(RvDrawEntityTransform, MirrorInAnObliquePlane) {
    // The plane x + y - 2 = 0: p - 2 * (n.p + d) / (n.n) * n with n = (1, 1, 0).
    // (0, 0, 0): n.p + d = -2, so p + 2 * (1, 1, 0) = (2, 2, 0).
    // (3, 1, 6): n.p + d = 2, so p - 2 * (1, 1, 0) = (1, -1, 6).
    RvPolyLine2D e = Path({V(50, 60, 0, 0, 0), V(-5, -6, 3, 1, 6)});
    e.Mirror(1, 1, 0, -2);
    ASSERT_EQ(e.size(), 2u);
    ExpectXyzNear(e[0], 2, 2, 0, 1e-12);
    EXPECT_NEAR(e[0].x2D, 2, 1e-12);
    EXPECT_NEAR(e[0].y2D, 2, 1e-12);
    ExpectXyzNear(e[1], 1, -1, 6, 1e-12);
    EXPECT_NEAR(e[1].x2D, 1, 1e-12);
    EXPECT_NEAR(e[1].y2D, -1, 1e-12);
}

TEST(RvDrawEntityTransform, MirrorInAHorizontalPlaneKeepsXYAndResetsThePlanarPair) {
    // The plane z = 1 maps (1, 2, 3) to (1, 2, -1); the planar pair follows x, y.
    RvPolyLine2D e = Path({V(9, 9, 1, 2, 3)});
    e.Mirror(0, 0, 1, -1);
    ExpectXyzNear(e[0], 1, 2, -1, 1e-12);
    EXPECT_NEAR(e[0].x2D, 1, 1e-12);
    EXPECT_NEAR(e[0].y2D, 2, 1e-12);
}

TEST(RvDrawEntityTransform, LocateSetsZOnly) {
    RvPolyLine2D e = Path({V(1, 2, 3, 4, 5), V(6, 7, 8, 9, 10)});
    e.Locate(-2.5);
    EXPECT_TRUE(HasValues(e[0], 3, 4, -2.5, 1, 2));
    EXPECT_TRUE(HasValues(e[1], 8, 9, -2.5, 6, 7));
}

TEST(RvDrawEntityTransform, ReverseReversesTheOrderOfWholeVertices) {
    RvPolyLine2D e = Abc();
    e.Reverse();
    ASSERT_EQ(e.size(), 3u);
    EXPECT_TRUE(HasValues(e[0], 70, 80, 90, 5, 6));
    EXPECT_TRUE(HasValues(e[1], 40, 50, 60, 3, 4));
    EXPECT_TRUE(HasValues(e[2], 10, 20, 30, 1, 2));
}

TEST(RvDrawEntityTransform, ReverseOfAnEvenCountAndOfNothing) {
    RvPolyLine2D e = Path({RvPoint2D(1, 0), RvPoint2D(2, 0)});
    e.Reverse();
    EXPECT_TRUE(HasValues(e[0], 2, 0, 0, 2, 0));
    EXPECT_TRUE(HasValues(e[1], 1, 0, 0, 1, 0));

    RvPolyLine2D empty;
    empty.Reverse();
    EXPECT_TRUE(empty.empty());
}

TEST(RvDrawEntityTransform, TransformationsKeepTheFields) {
    RvPolyLine2D e = Abc();
    FillFields(e);
    e.Move(RvPoint2D(1, 1));
    e.Mirror(1, 0, 0, 0);
    e.Locate(3);
    e.Reverse();
    EXPECT_EQ(e.size(), 3u);
    EXPECT_EQ(e.reservedWord1, 11u);
    EXPECT_EQ(e.reservedWord3, 33u);
    EXPECT_EQ(e.type, 55u);
}

// ---------------------------------------------------------------------------------------------
// Queries

TEST(RvDrawEntityQuery, LengthSumsSpaceDistancesWithoutTheClosingSegment) {
    // 5 from (0, 0, 0) to (3, 4, 0), 12 up to (3, 4, 12); the closing 13 is not counted. The
    // planar pairs are far apart and do not count either.
    const RvPolyLine2D e = Path({V(100, 0, 0, 0, 0), V(-100, 0, 3, 4, 0), V(0, 500, 3, 4, 12)});
    EXPECT_DOUBLE_EQ(e.GetLength(), 17.0);
}

TEST(RvDrawEntityQuery, LengthOfFewerThanTwoVerticesIsZero) {
    EXPECT_EQ(RvPolyLine2D().GetLength(), 0.0);
    EXPECT_EQ(Path({RvPoint2D(3, 4, 5)}).GetLength(), 0.0);
}

TEST(RvDrawEntityQuery, SegmentVectorZeroIsFirstLessLast) {
    // A - C in space: (10, 20, 30) - (70, 80, 90).
    const RvPolyLine2D e = Abc();
    EXPECT_TRUE(PointIs(e.GetSegmentVector(0), -60, -60, -60));
}

TEST(RvDrawEntityQuery, SegmentVectorEndsAtVertexI) {
    const RvPolyLine2D e = Path({V(0, 0, 1, 2, 3), V(0, 0, 4, 6, 8), V(0, 0, 4, 0, -1)});
    EXPECT_TRUE(PointIs(e.GetSegmentVector(1), 3, 4, 5));
    EXPECT_TRUE(PointIs(e.GetSegmentVector(2), 0, -6, -9));
    EXPECT_TRUE(PointIs(e.GetSegmentVector(0), -3, 2, 4));
}

TEST(RvDrawEntityQuery, SegmentNormalUpIsTheRightHandNormal) {
    // (2, 0, 0) x (0, 0, 1) = (0, -2, 0), normalised.
    const RvPolyLine2D e = Path({RvPoint2D(0, 0), RvPoint2D(2, 0)});
    ExpectXyzNear(e.GetSegmentNormalVector(1, true), 0, -1, 0, 1e-12);
}

TEST(RvDrawEntityQuery, SegmentNormalDownIsTheLeftHandNormal) {
    // (2, 0, 0) x (0, 0, -1) = (0, 2, 0), normalised.
    const RvPolyLine2D e = Path({RvPoint2D(0, 0), RvPoint2D(2, 0)});
    ExpectXyzNear(e.GetSegmentNormalVector(1, false), 0, 1, 0, 1e-12);
}

TEST(RvDrawEntityQuery, SegmentNormalOfAnObliqueSegment) {
    // (3, 4, 0) x (0, 0, 1) = (4, -3, 0), of length 5.
    const RvPolyLine2D e = Path({RvPoint2D(1, 1), RvPoint2D(4, 5)});
    ExpectXyzNear(e.GetSegmentNormalVector(1, true), 0.8, -0.6, 0, 1e-12);
    ExpectXyzNear(e.GetSegmentNormalVector(1, false), -0.8, 0.6, 0, 1e-12);
    // Segment 0 is the closing one, (-3, -4, 0).
    ExpectXyzNear(e.GetSegmentNormalVector(0, true), -0.8, 0.6, 0, 1e-12);
}

TEST(RvDrawEntityQuery, SegmentNormalOfANullSegmentIsReturnedAsItIs) {
    MessageBoxRecorder recorder;
    const RvPolyLine2D e = Path({RvPoint2D(1, 1), RvPoint2D(1, 1)});
    EXPECT_TRUE(PointIs(e.GetSegmentNormalVector(1, true), 0, 0, 0));
    EXPECT_TRUE(PointIs(e.GetSegmentNormalVector(1, false), 0, 0, 0));
    // It is not normalised, so no warning is shown.
    EXPECT_TRUE(recorder.calls().empty());
}

TEST(RvDrawEntityQuery, SegmentNormalOfAVerticalSegmentIsNull) {
    // (0, 0, 5) x (0, 0, 1) = 0.
    MessageBoxRecorder recorder;
    const RvPolyLine2D e = Path({RvPoint2D(1, 1, 0), RvPoint2D(1, 1, 5)});
    EXPECT_TRUE(PointIs(e.GetSegmentNormalVector(1, true), 0, 0, 0));
    EXPECT_TRUE(recorder.calls().empty());
}

TEST(RvDrawEntityQuery, SegmentNormalBelowTheNullBoundIsNotScaled) {
    // (8e-07, 0, 0) x (0, 0, 1) = (0, -8e-07, 0): no coordinate is above 9e-07, so the vector
    // counts as null and comes back unscaled.
    MessageBoxRecorder recorder;
    const RvPolyLine2D e = Path({RvPoint2D(0, 0), RvPoint2D(8e-07, 0)});
    EXPECT_TRUE(PointIs(e.GetSegmentNormalVector(1, true), 0, -8e-07, 0));
    EXPECT_TRUE(recorder.calls().empty());
}

TEST(RvDrawEntityQuery, SegmentNormalJustAboveTheNullBoundIsNormalised) {
    // (0, -1e-06, 0) has a coordinate above 9e-07, so it is scaled to unit length.
    MessageBoxRecorder recorder;
    const RvPolyLine2D e = Path({RvPoint2D(0, 0), RvPoint2D(1e-06, 0)});
    ExpectXyzNear(e.GetSegmentNormalVector(1, true), 0, -1, 0, 1e-9);
    EXPECT_TRUE(recorder.calls().empty());
}

TEST(RvDrawEntityQuery, InHalfSpaceHoldsBothWaysForAnEntityInThePlane) {
    const RvPolyLine2D e = Path({RvPoint2D(0, 0), RvPoint2D(5, 0), RvPoint2D(5, 5)});
    EXPECT_TRUE(e.IsInHalfSpace(0, 0, 1, 0, 1));
    EXPECT_TRUE(e.IsInHalfSpace(0, 0, 1, 0, -1));
}

TEST(RvDrawEntityQuery, InHalfSpaceAsksForTheSideOppositeToThePointTest) {
    // z = 1 gives z - 0 = 1 above the plane: the point test says inside, the entity test not.
    const RvPolyLine2D e = Path({RvPoint2D(0, 0, 1), RvPoint2D(5, 0, 2)});
    EXPECT_FALSE(e.IsInHalfSpace(0, 0, 1, 0, 1));
    EXPECT_TRUE(e.IsInHalfSpace(0, 0, 1, 0, -1));
    EXPECT_TRUE(e[0].IsInHalfSpace(0, 0, 1, 0));
}

TEST(RvDrawEntityQuery, InHalfSpaceFailsForOneVertexOnTheWrongSide) {
    const RvPolyLine2D e =
        Path({RvPoint2D(0, 0, -1), RvPoint2D(5, 0, -2), RvPoint2D(5, 5, 3), RvPoint2D(0, 5, -1)});
    EXPECT_FALSE(e.IsInHalfSpace(0, 0, 1, 0, 1));
    EXPECT_FALSE(e.IsInHalfSpace(0, 0, 1, 0, -1));
    // Shifting the plane up by 3 puts every vertex on or below it.
    EXPECT_TRUE(e.IsInHalfSpace(0, 0, 1, -3, 1));
}

TEST(RvDrawEntityQuery, InHalfSpaceBoundIsStrictlyAbove1e07) {
    // 1 * 1e-07 is not strictly above 1e-07; 2e-07 is.
    EXPECT_TRUE(Path({RvPoint2D(0, 0, 1e-07)}).IsInHalfSpace(0, 0, 1, 0, 1));
    EXPECT_FALSE(Path({RvPoint2D(0, 0, 2e-07)}).IsInHalfSpace(0, 0, 1, 0, 1));
}

TEST(RvDrawEntityQuery, InHalfSpaceReadsSpaceNotThePlanarPair) {
    // x = -1 in space, x2D = 50 in the plane: with the plane x = 0 only -1 counts.
    const RvPolyLine2D e = Path({V(50, 50, -1, 0, 0)});
    EXPECT_TRUE(e.IsInHalfSpace(1, 0, 0, 0, 1));
    EXPECT_FALSE(e.IsInHalfSpace(1, 0, 0, 0, -1));
}

TEST(RvDrawEntityQuery, InHalfSpaceOfAnEmptyEntityIsTrue) {
    const RvPolyLine2D e;
    EXPECT_TRUE(e.IsInHalfSpace(0, 0, 1, 0, 1));
    EXPECT_TRUE(e.IsInHalfSpace(1, 2, 3, 100, -1));
}

TEST(RvDrawEntityQuery, POINTArrayHoldsThePixelOfEveryPlanarPosition) {
    // Nearest pixel, halves away from zero; the position in space is ignored.
    const RvPolyLine2D e =
        Path({V(1.4, 2.6, 99, 99, 99), V(2.5, -2.5, 0, 0, 0), V(-1.5, 0.4, 7, 7, 7)});
    tagPOINT* points = e.GetPOINTArray();
    ASSERT_NE(points, nullptr);
    EXPECT_EQ(points[0].x, 1);
    EXPECT_EQ(points[0].y, 3);
    EXPECT_EQ(points[1].x, 3);
    EXPECT_EQ(points[1].y, -3);
    EXPECT_EQ(points[2].x, -2);
    EXPECT_EQ(points[2].y, 0);
    delete[] points;
}

// ---------------------------------------------------------------------------------------------
// Bounding queries

TEST(RvDrawEntityBounds, Extens2DIsThePlanarExtentWithTopTheLeastOrdinate) {
    const RvPolyLine2D e = Path({V(1, 5, 100, 100, 0), V(-2, 3, -100, -100, 0), V(4, -1, 0, 0, 0)});
    CTtagRECT r{9, 9, 9, 9};
    EXPECT_TRUE(e.GetExtens2D(r));
    EXPECT_EQ(r.left, -2.0);
    EXPECT_EQ(r.right, 4.0);
    EXPECT_EQ(r.top, -1.0);
    EXPECT_EQ(r.bottom, 5.0);
}

TEST(RvDrawEntityBounds, Extens2DOfTwoVertices) {
    const RvPolyLine2D e = Path({RvPoint2D(3, -4), RvPoint2D(-1.5, 2.5)});
    CTtagRECT r{};
    EXPECT_TRUE(e.GetExtens2D(r));
    EXPECT_EQ(r.left, -1.5);
    EXPECT_EQ(r.right, 3.0);
    EXPECT_EQ(r.top, -4.0);
    EXPECT_EQ(r.bottom, 2.5);
}

TEST(RvDrawEntityBounds, Extens2DOfASingleVertexIsFalseAndZero) {
    const RvPolyLine2D e = Path({RvPoint2D(3.2, 4.7)});
    CTtagRECT r{9, 9, 9, 9};
    EXPECT_FALSE(e.GetExtens2D(r));
    EXPECT_EQ(r.left, 0.0);
    EXPECT_EQ(r.top, 0.0);
    EXPECT_EQ(r.right, 0.0);
    EXPECT_EQ(r.bottom, 0.0);
}

TEST(RvDrawEntityBounds, Extens2DOfNoVerticesIsFalseAndZero) {
    const RvPolyLine2D e;
    CTtagRECT r{-9, -9, -9, -9};
    EXPECT_FALSE(e.GetExtens2D(r));
    EXPECT_EQ(r.left, 0.0);
    EXPECT_EQ(r.top, 0.0);
    EXPECT_EQ(r.right, 0.0);
    EXPECT_EQ(r.bottom, 0.0);
}

TEST(RvDrawEntityBounds, BoundingRectOfASingleVertexIsEmptyAtItsPixel) {
    // (3.2, 4.7) lies on the pixel (3, 5).
    const RvPolyLine2D e = Path({V(3.2, 4.7, 50, 50, 0)});
    const CRect r = e.GetBoundingRect();
    EXPECT_EQ(r, CRect(3, 5, 3, 5));
    EXPECT_TRUE(r.IsRectEmpty());
}

TEST(RvDrawEntityBounds, BoundingRectIsTheExtentOfThePixels) {
    // Pixels (1, 8), (-3, 3), (5, 0): halves away from zero, -0.4 to 0.
    const RvPolyLine2D e =
        Path({V(1.4, 7.6, 0, 0, 0), V(-2.5, 3.2, 90, 90, 0), V(4.5, -0.4, -90, -90, 0)});
    EXPECT_EQ(e.GetBoundingRect(), CRect(-3, 0, 5, 8));
}

TEST(RvDrawEntityBounds, BoundingRectOfNoVerticesRaises) {
    const RvPolyLine2D e;
    ExpectThrowWithMessage<std::out_of_range>([&e] { (void)e.GetBoundingRect(); },
                                              kInvalidSubscript);
}

TEST(RvDrawEntityBounds, BoundingCubeIsTheExtentInSpace) {
    const RvPolyLine2D e =
        Path({V(100, 100, 1, -2, 3), V(-100, -100, -4, 5, 0), V(0, 0, 2, 1, -6)});
    RvPoint3D lo(9, 9, 9);
    RvPoint3D hi(9, 9, 9);
    e.GetBoundingCube(lo, hi);
    EXPECT_TRUE(PointIs(lo, -4, -2, -6));
    EXPECT_TRUE(PointIs(hi, 2, 5, 3));
}

TEST(RvDrawEntityBounds, BoundingCubeOfFewerThanTwoVerticesIsZero) {
    RvPoint3D lo(9, 9, 9);
    RvPoint3D hi(9, 9, 9);
    Path({RvPoint2D(1, 2, 3)}).GetBoundingCube(lo, hi);
    EXPECT_TRUE(PointIs(lo, 0, 0, 0));
    EXPECT_TRUE(PointIs(hi, 0, 0, 0));

    lo.Set(9, 9, 9);
    hi.Set(9, 9, 9);
    RvPolyLine2D().GetBoundingCube(lo, hi);
    EXPECT_TRUE(PointIs(lo, 0, 0, 0));
    EXPECT_TRUE(PointIs(hi, 0, 0, 0));
}

TEST(RvDrawEntityBounds, BoundingRectangleIsFourCornersCounterclockwiseFromTheLeast) {
    // x from 1 to 5, y from -1 to 4, read in space; grown by 0.5 on each side.
    const RvPolyLine2D e = Path({V(90, 90, 1, 2, 7), V(-90, 0, 5, -1, -7), V(0, -90, 3, 4, 2)});
    RvPolyLine2D out = Path({RvPoint2D(100, 100), RvPoint2D(200, 200)});
    e.GetBoundingRectangle(out, 0.5);
    ASSERT_EQ(out.size(), 4u);
    EXPECT_TRUE(HasValues(out[0], 0.5, -1.5, 0, 0.5, -1.5));
    EXPECT_TRUE(HasValues(out[1], 5.5, -1.5, 0, 5.5, -1.5));
    EXPECT_TRUE(HasValues(out[2], 5.5, 4.5, 0, 5.5, 4.5));
    EXPECT_TRUE(HasValues(out[3], 0.5, 4.5, 0, 0.5, 4.5));
}

TEST(RvDrawEntityBounds, BoundingRectangleOfASingleVertexWithoutMargin) {
    const RvPolyLine2D e = Path({RvPoint2D(2, 3, 4)});
    RvPolyLine2D out;
    e.GetBoundingRectangle(out, 0);
    ASSERT_EQ(out.size(), 4u);
    for (int k = 0; k < 4; ++k) {
        EXPECT_TRUE(HasValues(out[k], 2, 3, 0, 2, 3)) << "corner " << k;
    }
}

TEST(RvDrawEntityBounds, BoundingRectangleOfNoVerticesRaisesBeforeTouchingOut) {
    const RvPolyLine2D e;
    RvPolyLine2D out = Path({RvPoint2D(1, 2), RvPoint2D(3, 4)});
    ExpectThrowWithMessage<std::out_of_range>([&] { e.GetBoundingRectangle(out, 1.0); },
                                              kInvalidSubscript);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 1, 2, 0, 1, 2));
    EXPECT_TRUE(HasValues(out[1], 3, 4, 0, 3, 4));
}

// ---------------------------------------------------------------------------------------------
// Checked subscript

TEST(RvDrawEntitySubscript, ValidIndexGivesTheVertexForReadingAndWriting) {
    RvPolyLine2D e = Abc();
    EXPECT_TRUE(HasValues(e[1], 40, 50, 60, 3, 4));
    e[1] = RvPoint2D(0, 0);
    EXPECT_TRUE(HasValues(e[1], 0, 0, 0, 0, 0));
    const RvPolyLine2D& c = e;
    EXPECT_TRUE(HasValues(c[2], 70, 80, 90, 5, 6));
}

TEST(RvDrawEntitySubscript, IndexAtTheCountRaises) {
    RvPolyLine2D e = Abc();
    ExpectThrowWithMessage<std::out_of_range>([&e] { (void)e[3]; }, kInvalidSubscript);
    const RvPolyLine2D& c = e;
    ExpectThrowWithMessage<std::out_of_range>([&c] { (void)c[3]; }, kInvalidSubscript);
}

TEST(RvDrawEntitySubscript, AnyIndexOfAnEmptyEntityRaises) {
    RvPolyLine2D e;
    ExpectThrowWithMessage<std::out_of_range>([&e] { (void)e[0]; }, kInvalidSubscript);
    const RvPolyLine2D& c = e;
    ExpectThrowWithMessage<std::out_of_range>([&c] { (void)c[0]; }, kInvalidSubscript);
}
