#include <gtest/gtest.h>

#include <exception>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/platform/CArray.h"
#include "ravelin/platform/CException.h"
#include "support/RavelinTesting.h"

using namespace ravelin;
using ravelin::testing_support::ExpectThrowWithMessage;
using ravelin::testing_support::HasValues;

namespace {

using IntArray = CArray<int, int>;
using PointArray = CArray<RvPoint2D, const RvPoint2D&>;

const char kInvalidArgument[] = "invalid argument";

// An array of the given values, appended one at a time.
IntArray IntsOf(const std::vector<int>& values) {
    IntArray a;
    for (const int v : values) {
        a.Add(v);
    }
    return a;
}

// The elements of `a`, read through the checked access.
std::vector<int> ValuesOf(const IntArray& a) {
    std::vector<int> values;
    for (int i = 0; i < a.GetSize(); ++i) {
        values.push_back(a[i]);
    }
    return values;
}

// Three points whose five values all differ: (1, 2), (3, 4), (5, 6), with z = 7, 8, 9 and the
// planar pair ten times the space pair.
PointArray ThreePoints() {
    PointArray a;
    a.Add(RvPoint2D(10, 20, 1, 2, 7));
    a.Add(RvPoint2D(30, 40, 3, 4, 8));
    a.Add(RvPoint2D(50, 60, 5, 6, 9));
    return a;
}

}  // namespace

// --- Size --------------------------------------------------------------------------------

TEST(CArraySize, NewArrayIsEmpty) {
    const IntArray a;
    EXPECT_EQ(a.GetSize(), 0);
    EXPECT_EQ(a.GetCount(), 0);
    EXPECT_TRUE(a.IsEmpty());
    EXPECT_EQ(a.GetUpperBound(), -1);
}

TEST(CArraySize, CountsFollowTheElements) {
    const IntArray a = IntsOf({4, 5, 6});
    EXPECT_EQ(a.GetSize(), 3);
    EXPECT_EQ(a.GetCount(), 3);
    EXPECT_FALSE(a.IsEmpty());
    EXPECT_EQ(a.GetUpperBound(), 2);
}

TEST(CArraySize, OneElementHasUpperBoundZero) {
    const IntArray a = IntsOf({4});
    EXPECT_EQ(a.GetSize(), 1);
    EXPECT_EQ(a.GetUpperBound(), 0);
    EXPECT_FALSE(a.IsEmpty());
}

// --- Add ---------------------------------------------------------------------------------

TEST(CArrayAdd, ReturnsTheIndexOfTheNewElement) {
    IntArray a;
    EXPECT_EQ(a.Add(7), 0);
    EXPECT_EQ(a.Add(8), 1);
    EXPECT_EQ(a.Add(9), 2);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{7, 8, 9}));
}

TEST(CArrayAdd, KeepsAllFiveValuesOfAPoint) {
    PointArray a;
    EXPECT_EQ(a.Add(RvPoint2D(1.5, 2.5, 3, 4, 5)), 0);
    EXPECT_TRUE(HasValues(a[0], 3, 4, 5, 1.5, 2.5));
}

// The element passed in refers into the array, which may move when it grows.
TEST(CArrayAdd, ElementOfTheArrayItself) {
    PointArray a = ThreePoints();
    for (int k = 0; k < 20; ++k) {
        a.Add(a[1]);
    }
    ASSERT_EQ(a.GetSize(), 23);
    for (int i = 3; i < 23; ++i) {
        EXPECT_TRUE(HasValues(a[i], 3, 4, 8, 30, 40)) << "index " << i;
    }
}

// --- InsertAt ----------------------------------------------------------------------------

TEST(CArrayInsertAt, InTheMiddle) {
    IntArray a = IntsOf({1, 2, 3});
    a.InsertAt(1, 9);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 9, 2, 3}));
}

TEST(CArrayInsertAt, AtTheFront) {
    IntArray a = IntsOf({1, 2, 3});
    a.InsertAt(0, 9);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{9, 1, 2, 3}));
}

// Index equal to the size: the element goes after the last one.
TEST(CArrayInsertAt, AtTheEndAppends) {
    IntArray a = IntsOf({1, 2, 3});
    a.InsertAt(3, 9);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2, 3, 9}));
}

TEST(CArrayInsertAt, IntoAnEmptyArray) {
    IntArray a;
    a.InsertAt(0, 9);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{9}));
}

// Index 5 on three elements: indices 3 and 4 are filled with default elements first.
TEST(CArrayInsertAt, PastTheEndFillsTheGapWithDefaults) {
    IntArray a = IntsOf({1, 2, 3});
    a.InsertAt(5, 9);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2, 3, 0, 0, 9}));
}

TEST(CArrayInsertAt, PastTheEndOfAnEmptyArray) {
    IntArray a;
    a.InsertAt(2, 9, 2);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{0, 0, 9, 9}));
}

TEST(CArrayInsertAt, PastTheEndFillsPointsWithTheDefaultPoint) {
    PointArray a;
    a.Add(RvPoint2D(1, 2));
    a.InsertAt(3, RvPoint2D(10, 20, 1, 2, 3));
    ASSERT_EQ(a.GetSize(), 4);
    EXPECT_TRUE(HasValues(a[0], 1, 2, 0, 1, 2));
    EXPECT_TRUE(HasValues(a[1], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(a[2], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(a[3], 1, 2, 3, 10, 20));
}

TEST(CArrayInsertAt, SeveralCopies) {
    IntArray a = IntsOf({1, 2, 3});
    a.InsertAt(1, 9, 3);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 9, 9, 9, 2, 3}));
}

TEST(CArrayInsertAt, ZeroCopiesChangeNothing) {
    IntArray a = IntsOf({1, 2, 3});
    a.InsertAt(1, 9, 0);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2, 3}));
}

// The element passed in is an element of the array, and the elements move as others go in
// before them: the copies are of the value it had when the call began.
TEST(CArrayInsertAt, ElementOfTheArrayItselfBeforeItsOwnPosition) {
    PointArray a = ThreePoints();
    a.InsertAt(0, a[2], 4);
    ASSERT_EQ(a.GetSize(), 7);
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(HasValues(a[i], 5, 6, 9, 50, 60)) << "index " << i;
    }
    EXPECT_TRUE(HasValues(a[4], 1, 2, 7, 10, 20));
    EXPECT_TRUE(HasValues(a[5], 3, 4, 8, 30, 40));
    EXPECT_TRUE(HasValues(a[6], 5, 6, 9, 50, 60));
}

TEST(CArrayInsertAt, ElementOfTheArrayItselfPastTheEnd) {
    PointArray a = ThreePoints();
    a.InsertAt(5, a[0], 2);
    ASSERT_EQ(a.GetSize(), 7);
    EXPECT_TRUE(HasValues(a[3], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(a[4], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(a[5], 1, 2, 7, 10, 20));
    EXPECT_TRUE(HasValues(a[6], 1, 2, 7, 10, 20));
}

TEST(CArrayInsertAt, ElementOfTheArrayItselfForInts) {
    IntArray a = IntsOf({1, 2, 3});
    a.InsertAt(1, a[2], 2);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 3, 3, 2, 3}));
}

TEST(CArrayInsertAt, NegativeIndexIsRefused) {
    IntArray a = IntsOf({1, 2, 3});
    ExpectThrowWithMessage<CInvalidArgException>([&] { a.InsertAt(-1, 9); }, kInvalidArgument);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2, 3}));
}

TEST(CArrayInsertAt, NegativeCountIsRefused) {
    IntArray a = IntsOf({1, 2, 3});
    ExpectThrowWithMessage<CInvalidArgException>([&] { a.InsertAt(1, 9, -1); }, kInvalidArgument);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2, 3}));
}

// A refused insertion past the end does not fill the gap either.
TEST(CArrayInsertAt, NegativeCountPastTheEndLeavesTheArrayAsItWas) {
    IntArray a = IntsOf({1, 2, 3});
    ExpectThrowWithMessage<CInvalidArgException>([&] { a.InsertAt(6, 9, -2); }, kInvalidArgument);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2, 3}));
}

// --- RemoveAt and RemoveAll --------------------------------------------------------------

TEST(CArrayRemoveAt, OneFromTheMiddle) {
    IntArray a = IntsOf({1, 2, 3, 4});
    a.RemoveAt(1);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 3, 4}));
}

TEST(CArrayRemoveAt, FirstAndLast) {
    IntArray a = IntsOf({1, 2, 3, 4});
    a.RemoveAt(0);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{2, 3, 4}));
    a.RemoveAt(2);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{2, 3}));
}

TEST(CArrayRemoveAt, SeveralElements) {
    IntArray a = IntsOf({1, 2, 3, 4, 5});
    a.RemoveAt(1, 3);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 5}));
}

TEST(CArrayRemoveAt, RunUpToTheEnd) {
    IntArray a = IntsOf({1, 2, 3, 4, 5});
    a.RemoveAt(2, 3);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2}));
}

TEST(CArrayRemoveAt, Everything) {
    IntArray a = IntsOf({1, 2, 3});
    a.RemoveAt(0, 3);
    EXPECT_TRUE(a.IsEmpty());
}

TEST(CArrayRemoveAt, ZeroElementsChangeNothing) {
    IntArray a = IntsOf({1, 2, 3});
    a.RemoveAt(1, 0);
    a.RemoveAt(3, 0);  // at the end: nothing to remove, nothing out of range
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2, 3}));
}

TEST(CArrayRemoveAt, PointsAfterTheRemovedOnesMoveDown) {
    PointArray a = ThreePoints();
    a.RemoveAt(0);
    ASSERT_EQ(a.GetSize(), 2);
    EXPECT_TRUE(HasValues(a[0], 3, 4, 8, 30, 40));
    EXPECT_TRUE(HasValues(a[1], 5, 6, 9, 50, 60));
}

TEST(CArrayRemoveAt, IndexAtTheEndIsRefused) {
    IntArray a = IntsOf({1, 2, 3});
    ExpectThrowWithMessage<CInvalidArgException>([&] { a.RemoveAt(3); }, kInvalidArgument);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2, 3}));
}

// Two elements from index 2 of three run one past the end.
TEST(CArrayRemoveAt, RunPastTheEndIsRefused) {
    IntArray a = IntsOf({1, 2, 3});
    ExpectThrowWithMessage<CInvalidArgException>([&] { a.RemoveAt(2, 2); }, kInvalidArgument);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2, 3}));
}

TEST(CArrayRemoveAt, NegativeIndexOrCountIsRefused) {
    IntArray a = IntsOf({1, 2, 3});
    ExpectThrowWithMessage<CInvalidArgException>([&] { a.RemoveAt(-1); }, kInvalidArgument);
    ExpectThrowWithMessage<CInvalidArgException>([&] { a.RemoveAt(1, -1); }, kInvalidArgument);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2, 3}));
}

TEST(CArrayRemoveAt, FromAnEmptyArrayIsRefused) {
    IntArray a;
    ExpectThrowWithMessage<CInvalidArgException>([&] { a.RemoveAt(0); }, kInvalidArgument);
    EXPECT_TRUE(a.IsEmpty());
}

TEST(CArrayRemoveAll, EmptiesTheArray) {
    IntArray a = IntsOf({1, 2, 3});
    a.RemoveAll();
    EXPECT_TRUE(a.IsEmpty());
    EXPECT_EQ(a.GetSize(), 0);
    EXPECT_EQ(a.GetUpperBound(), -1);
    EXPECT_EQ(a.Add(4), 0);
}

TEST(CArrayRemoveAll, OnAnEmptyArrayIsHarmless) {
    PointArray a;
    a.RemoveAll();
    EXPECT_TRUE(a.IsEmpty());
}

// --- SetSize -----------------------------------------------------------------------------

TEST(CArraySetSize, GrowsWithDefaultElements) {
    IntArray a = IntsOf({1, 2});
    a.SetSize(5);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2, 0, 0, 0}));
}

TEST(CArraySetSize, GrowsPointsWithTheDefaultPoint) {
    PointArray a = ThreePoints();
    a.SetSize(4);
    ASSERT_EQ(a.GetSize(), 4);
    EXPECT_TRUE(HasValues(a[2], 5, 6, 9, 50, 60));
    EXPECT_TRUE(HasValues(a[3], 0, 0, 0, 0, 0));
}

TEST(CArraySetSize, ShrinksKeepingTheFirstElements) {
    IntArray a = IntsOf({1, 2, 3, 4});
    a.SetSize(2);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2}));
}

TEST(CArraySetSize, SameSizeChangesNothing) {
    IntArray a = IntsOf({1, 2, 3});
    a.SetSize(3);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2, 3}));
}

TEST(CArraySetSize, ZeroEmptiesTheArray) {
    IntArray a = IntsOf({1, 2, 3});
    a.SetSize(0);
    EXPECT_TRUE(a.IsEmpty());
}

TEST(CArraySetSize, NegativeSizeIsRefused) {
    IntArray a = IntsOf({1, 2, 3});
    ExpectThrowWithMessage<CInvalidArgException>([&] { a.SetSize(-1); }, kInvalidArgument);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{1, 2, 3}));
}

// --- Element access ----------------------------------------------------------------------

TEST(CArrayAccess, GetAtReadsEveryIndex) {
    const IntArray a = IntsOf({4, 5, 6});
    EXPECT_EQ(a.GetAt(0), 4);
    EXPECT_EQ(a.GetAt(1), 5);
    EXPECT_EQ(a.GetAt(2), 6);
}

TEST(CArrayAccess, GetAtOnAMutableArrayGivesAWritableElement) {
    IntArray a = IntsOf({4, 5, 6});
    a.GetAt(1) = 50;
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{4, 50, 6}));
}

TEST(CArrayAccess, ElementAtGivesAWritableElement) {
    PointArray a = ThreePoints();
    RvPoint2D& p = a.ElementAt(2);
    p.x = -1;
    p.y2D = -2;
    EXPECT_TRUE(HasValues(a[2], -1, 6, 9, 50, -2));
}

TEST(CArrayAccess, SetAtReplacesOneElement) {
    IntArray a = IntsOf({4, 5, 6});
    a.SetAt(0, 40);
    a.SetAt(2, 60);
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{40, 5, 60}));
}

TEST(CArrayAccess, SetAtWithAnElementOfTheArrayItself) {
    PointArray a = ThreePoints();
    a.SetAt(0, a[2]);
    EXPECT_TRUE(HasValues(a[0], 5, 6, 9, 50, 60));
    EXPECT_TRUE(HasValues(a[2], 5, 6, 9, 50, 60));
}

TEST(CArrayAccess, SubscriptReadsAndWrites) {
    PointArray a = ThreePoints();
    a[1] = RvPoint2D(-3, -4);
    EXPECT_TRUE(HasValues(a[1], -3, -4, 0, -3, -4));
    const PointArray& view = a;
    EXPECT_TRUE(HasValues(view[0], 1, 2, 7, 10, 20));
    EXPECT_TRUE(HasValues(view[2], 5, 6, 9, 50, 60));
}

// Every way in refuses -1 and the size, the first indices outside on either side.
TEST(CArrayAccess, IndexOutsideIsRefusedByEveryAccessor) {
    IntArray a = IntsOf({4, 5, 6});
    const IntArray& view = a;
    for (const int i : {-1, 3, 100}) {
        SCOPED_TRACE(testing::Message() << "index " << i);
        ExpectThrowWithMessage<CInvalidArgException>([&] { a.GetAt(i); }, kInvalidArgument);
        ExpectThrowWithMessage<CInvalidArgException>([&] { view.GetAt(i); }, kInvalidArgument);
        ExpectThrowWithMessage<CInvalidArgException>([&] { a.ElementAt(i); }, kInvalidArgument);
        ExpectThrowWithMessage<CInvalidArgException>([&] { a.SetAt(i, 9); }, kInvalidArgument);
        ExpectThrowWithMessage<CInvalidArgException>([&] { a[i]; }, kInvalidArgument);
        ExpectThrowWithMessage<CInvalidArgException>([&] { view[i]; }, kInvalidArgument);
    }
    EXPECT_EQ(ValuesOf(a), (std::vector<int>{4, 5, 6}));
}

TEST(CArrayAccess, AnyIndexOfAnEmptyArrayIsRefused) {
    PointArray a;
    ExpectThrowWithMessage<CInvalidArgException>([&] { a[0]; }, kInvalidArgument);
    ExpectThrowWithMessage<CInvalidArgException>([&] { a.GetAt(0); }, kInvalidArgument);
    ExpectThrowWithMessage<CInvalidArgException>([&] { a.SetAt(0, RvPoint2D(1, 1)); },
                                                 kInvalidArgument);
    EXPECT_TRUE(a.IsEmpty());
}

// The refusal is a platform exception and so also a standard one.
TEST(CArrayAccess, RefusalIsCaughtAsPlatformAndStandardException) {
    IntArray a = IntsOf({1});
    EXPECT_THROW(a.GetAt(1), CException);
    EXPECT_THROW(a.GetAt(1), std::exception);
    ExpectThrowWithMessage<CException>([&] { a.RemoveAt(5); }, kInvalidArgument);
    ExpectThrowWithMessage<std::exception>([&] { a.SetSize(-2); }, kInvalidArgument);
}

// An index that was valid stops being so when the array shrinks.
TEST(CArrayAccess, IndexPastANewEndIsRefused) {
    IntArray a = IntsOf({1, 2, 3});
    a.RemoveAt(2);
    ExpectThrowWithMessage<CInvalidArgException>([&] { a[2]; }, kInvalidArgument);
    EXPECT_EQ(a[1], 2);
}

// --- GetData -----------------------------------------------------------------------------

TEST(CArrayData, HoldsTheElementsInOrder) {
    const IntArray a = IntsOf({4, 5, 6});
    const int* data = a.GetData();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data[0], 4);
    EXPECT_EQ(data[1], 5);
    EXPECT_EQ(data[2], 6);
    EXPECT_EQ(&a[0], data);
    EXPECT_EQ(&a[2], data + 2);
}

TEST(CArrayData, WritesThroughTheDataReachTheArray) {
    PointArray a = ThreePoints();
    RvPoint2D* data = a.GetData();
    ASSERT_NE(data, nullptr);
    data[1] = RvPoint2D(7, 8);
    EXPECT_TRUE(HasValues(a[1], 7, 8, 0, 7, 8));
    EXPECT_TRUE(HasValues(data[2], 5, 6, 9, 50, 60));
}
