#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/entity/RvTextEntity.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/platform/CDC.h"
#include "ravelin/platform/CGdiObject.h"
#include "ravelin/platform/CRecordingDC.h"
#include "ravelin/platform/CRect.h"
#include "ravelin/platform/CString.h"
#include "support/RavelinTesting.h"

using namespace ravelin;
using ravelin::testing_support::ExpectThrowWithMessage;
using ravelin::testing_support::FontOf;
using ravelin::testing_support::HasValues;
using ravelin::testing_support::SameVertices;

namespace {

const std::string kSubscript = "invalid vector<T> subscript";

// A text of the given font height and characters, with the vertices appended one at a time.
RvTextEntity Text(std::initializer_list<RvPoint2D> vertices, std::int32_t height,
                  const char* text) {
    RvTextEntity t;
    for (const RvPoint2D& v : vertices) {
        t.push_backA(v);
    }
    const tagLOGFONTA font = FontOf(height, "Arial");
    t.CreateFontIndirectA(&font);
    t.SetText(text);
    return t;
}

// The frame (10, 40) (10, 28) (60, 28) (60, 40): the side from vertex 1 to vertex 2 is 50 long.
RvTextEntity Framed(std::int32_t height, const char* text) {
    return Text({{10, 40}, {10, 28}, {60, 28}, {60, 40}}, height, text);
}

// The square frame (0, 0) (10, 0) (10, 10) (0, 10).
RvTextEntity Square() {
    return Text({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, 12, "x");
}

// The recorded calls of one Draw on a fresh device whose raster mode was set to R2_MERGEPEN
// and whose alignment was set to 6 beforehand, so that restoring them is visible.
struct Drawn {
    std::vector<std::string> calls;
    CRect result;
    int rop;
    unsigned int align;
    bool fontRestored;
};

Drawn DrawOn(RvTextEntity& t) {
    CRecordingDC dc;
    dc.SetROP2(R2_MERGEPEN);
    dc.SetTextAlign(6);
    CFont* const stock = dc.GetCurrentFont();
    dc.ClearCalls();
    const CRect r = t.Draw(&dc);
    return {dc.Descriptions(), r, dc.GetROP2(), dc.GetTextAlign(), dc.GetCurrentFont() == stock};
}

// The advances recorded by the only ExtTextOut of `dc`.
std::vector<int> AdvancesOf(const CRecordingDC& dc) {
    for (const DCCall& call : dc.Calls()) {
        if (call.op == DCOp::ExtTextOut) {
            return call.counts;
        }
    }
    ADD_FAILURE() << "no ExtTextOut was recorded";
    return {};
}

// The advances a Draw hands to ExtTextOut for a side of `length` pixels.
std::vector<int> AdvancesFor(double length, std::int32_t height, const char* text) {
    RvTextEntity t = Text({{0, 10}, {0, 0}, {length, 0}, {length, 10}}, height, text);
    CRecordingDC dc;
    t.Draw(&dc);
    return AdvancesOf(dc);
}

struct Incidence {
    bool result;
    double d;
    enumSnapType snap;
};

Incidence Touch(const RvTextEntity& t, const RvPoint2D& p, RvDrawEntity& hit,
                enumSnapType snap = static_cast<enumSnapType>(0), double d = 0.5) {
    const bool result = t.IsIncident(p, d, snap, hit);
    return {result, d, snap};
}

}  // namespace

// --- Construction, copy and assignment ---------------------------------------------------------

TEST(RvTextEntity, DefaultIsTypeEightWithNoVerticesNoTextAZeroFontAndFactor) {
    const RvTextEntity t;
    EXPECT_EQ(t.GetType(), 8u);
    EXPECT_EQ(RvTextEntity::kType, 8u);
    EXPECT_TRUE(t.empty());
    EXPECT_TRUE(t.GetText().IsEmpty());
    EXPECT_EQ(t.GetFontFactor(), 0.0);
    tagLOGFONTA f = FontOf(33, "Courier");
    t.GetLogFont(&f);
    const tagLOGFONTA zero{};
    EXPECT_EQ(std::memcmp(&f, &zero, sizeof f), 0);
    EXPECT_EQ(t.GetNextItem(), nullptr);
    EXPECT_EQ(t.GetPrevItem(), nullptr);
}

TEST(RvTextEntity, TextAndFactorAreStoredAndGivenBack) {
    RvTextEntity t;
    t.SetText("Gate 7");
    t.SetFontFactor(1.25);
    EXPECT_EQ(t.GetText(), CString("Gate 7"));
    EXPECT_EQ(t.GetFontFactor(), 1.25);
    t.SetText("");
    EXPECT_TRUE(t.GetText().IsEmpty());
}

TEST(RvTextEntity, CreateFontIndirectCopiesTheDescriptionAndGetLogFontGivesItBack) {
    RvTextEntity t;
    tagLOGFONTA source = FontOf(-14, "Times");
    source.lfWeight = 700;
    source.lfItalic = 1;
    t.CreateFontIndirectA(&source);
    // A copy, not a reference: a later change of the source does not reach the entity.
    source.lfHeight = 99;
    tagLOGFONTA back{};
    t.GetLogFont(&back);
    EXPECT_EQ(back.lfHeight, -14);
    EXPECT_EQ(back.lfWeight, 700);
    EXPECT_EQ(back.lfItalic, 1);
    EXPECT_STREQ(back.lfFaceName, "Times");
    EXPECT_EQ(t.m_logFont.lfHeight, -14);
}

TEST(RvTextEntity, ACopyHasTheGeometryAndFontButNoTextAndAZeroFactor) {
    RvTextEntity source = Framed(12, "Hall");
    source.SetFontFactor(2.5);
    source.reservedWord1 = 11;
    source.reservedWord2 = 12;
    source.reservedWord3 = 13;
    source.reservedFlag = 1;
    RvTextEntity neighbour;
    source.SetNextItem(&neighbour);

    const RvTextEntity copy(source);
    EXPECT_TRUE(SameVertices(copy, source));
    EXPECT_EQ(copy.m_logFont.lfHeight, 12);
    EXPECT_STREQ(copy.m_logFont.lfFaceName, "Arial");
    EXPECT_TRUE(copy.GetText().IsEmpty());
    EXPECT_EQ(copy.GetFontFactor(), 0.0);
    EXPECT_EQ(copy.GetType(), 8u);
    // The entity part follows the base's copy rules: two reserved words, no links.
    EXPECT_EQ(copy.reservedWord1, 11u);
    EXPECT_EQ(copy.reservedWord2, 12u);
    EXPECT_EQ(copy.reservedWord3, 0u);
    EXPECT_EQ(copy.reservedFlag, 0u);
    EXPECT_EQ(copy.GetNextItem(), nullptr);
    source.ClearThisItem();
    neighbour.ClearThisItem();
}

TEST(RvTextEntity, AssignmentCopiesGeometryAndFontButKeepsTheTargetsTextAndFactor) {
    RvTextEntity source = Framed(12, "Hall");
    source.SetFontFactor(2.5);
    source.reservedWord3 = 13;
    RvTextEntity target = Text({{1, 1}}, 30, "Kitchen");
    target.SetFontFactor(0.75);
    target = source;
    EXPECT_TRUE(SameVertices(target, source));
    EXPECT_EQ(target.m_logFont.lfHeight, 12);
    EXPECT_EQ(target.GetText(), CString("Kitchen"));
    EXPECT_EQ(target.GetFontFactor(), 0.75);
    EXPECT_EQ(target.GetType(), 8u);
    EXPECT_EQ(target.reservedWord3, 13u);
    // The source is not touched either.
    EXPECT_EQ(source.GetText(), CString("Hall"));
}

TEST(RvTextEntity, ReInitClearsVerticesAndFontButKeepsTheText) {
    RvTextEntity t = Framed(12, "Hall");
    t.SetFontFactor(3.0);
    t.SetType(99);
    t.reservedWord1 = 5;
    RvTextEntity neighbour;
    t.SetNextItem(&neighbour);
    t.ReInit();
    EXPECT_TRUE(t.empty());
    EXPECT_EQ(t.GetType(), 8u);
    EXPECT_EQ(t.reservedWord1, 0u);
    EXPECT_EQ(t.GetNextItem(), nullptr);
    const tagLOGFONTA zero{};
    EXPECT_EQ(std::memcmp(&t.m_logFont, &zero, sizeof zero), 0);
    EXPECT_EQ(t.GetText(), CString("Hall"));
    // The factor is no field of the entity part and is left alone.
    EXPECT_EQ(t.GetFontFactor(), 3.0);
    // ReInit forgets the link without telling the neighbour.
    EXPECT_EQ(neighbour.GetPrevItem(), &t);
    neighbour.ClearThisItem();
}

TEST(RvTextEntity, IsOnVertexIsAlwaysFalseAndTouchesNothing) {
    RvTextEntity t = Framed(12, "Hall");
    RvPoint2D cursor(10, 40);  // exactly on vertex 0
    RvPoint2D found(1, 2);
    double tol = 5.0;
    EXPECT_FALSE(t.IsOnVertex(cursor, found, tol));
    EXPECT_TRUE(HasValues(found, 1, 2, 0, 1, 2));
    EXPECT_EQ(tol, 5.0);
}

// --- Draw: the frame of a small text ----------------------------------------------------------

TEST(RvTextEntityDraw, HeightFiveDrawsTheFrameInXorModeAndRestoresTheRasterMode) {
    RvTextEntity t = Framed(5, "Hall");
    const Drawn out = DrawOn(t);
    const std::vector<std::string> expected{
        "SetROP2(7)",
        "MoveTo(10, 40)",
        "LineTo(10, 28)",
        "LineTo(60, 28)",
        "LineTo(60, 40)",
        "LineTo(10, 40)",
        "Polygon((10, 40) (10, 28) (60, 28) (60, 40))",
        "SetROP2(15)",
    };
    EXPECT_EQ(out.calls, expected);
    EXPECT_EQ(out.rop, R2_MERGEPEN);
    EXPECT_TRUE(out.result.IsRectNull());
}

TEST(RvTextEntityDraw, HeightSixDrawsTheTextInsteadOfTheFrame) {
    // Height 6 advances 3 pixels a character: W = 6 for "ab", the side is 50 long, so
    // extra = 44, per = 22, rem = 0 and each advance is 3 + 22.
    RvTextEntity t = Framed(6, "ab");
    const Drawn out = DrawOn(t);
    const std::vector<std::string> expected{
        "SelectFont(6 \"Arial\")",
        "GetTextExtent(\"ab\")",
        "GetTextExtent(\"a\")",
        "GetTextExtent(\"b\")",
        "ExtTextOut(10, 40, 0; \"ab\"; 25 25)",
        "SelectFont(16 \"\")",
    };
    EXPECT_EQ(out.calls, expected);
    EXPECT_TRUE(out.fontRestored);
    EXPECT_EQ(out.rop, R2_MERGEPEN);
    EXPECT_EQ(out.align, 6u);
    EXPECT_TRUE(out.result.IsRectNull());
}

TEST(RvTextEntityDraw, ANegativeHeightDrawsTheFrame) {
    // -40 would be a large font by magnitude, but the test is on the signed value.
    RvTextEntity t = Framed(-40, "Hall");
    const Drawn out = DrawOn(t);
    ASSERT_EQ(out.calls.size(), 8u);
    EXPECT_EQ(out.calls.front(), "SetROP2(7)");
    EXPECT_EQ(out.calls[6], "Polygon((10, 40) (10, 28) (60, 28) (60, 40))");
    EXPECT_EQ(out.calls.back(), "SetROP2(15)");
}

TEST(RvTextEntityDraw, TheFrameUsesOnlyTheFirstFourVertices) {
    RvTextEntity t = Text({{0, 0}, {8, 0}, {8, 4}, {0, 4}, {100, 100}}, 0, "Hall");
    const Drawn out = DrawOn(t);
    const std::vector<std::string> expected{
        "SetROP2(7)",
        "MoveTo(0, 0)",
        "LineTo(8, 0)",
        "LineTo(8, 4)",
        "LineTo(0, 4)",
        "LineTo(0, 0)",
        "Polygon((0, 0) (8, 0) (8, 4) (0, 4))",
        "SetROP2(15)",
    };
    EXPECT_EQ(out.calls, expected);
}

TEST(RvTextEntityDraw, ASmallTextWithFewerThanFourVerticesDrawsNothing) {
    RvTextEntity t = Text({{0, 0}, {8, 0}, {8, 4}}, 5, "Hall");
    const Drawn out = DrawOn(t);
    EXPECT_TRUE(out.calls.empty());
    EXPECT_TRUE(out.result.IsRectNull());
}

TEST(RvTextEntityDraw, NoVerticesDrawNothingWhateverTheFont) {
    // With no vertices the frame branch is taken even for a legible font, and it stops at once.
    RvTextEntity t = Text({}, 20, "Hall");
    const Drawn out = DrawOn(t);
    EXPECT_TRUE(out.calls.empty());
    EXPECT_TRUE(out.result.IsRectNull());
}

TEST(RvTextEntityDraw, FramePixelsRoundThePlanarPair) {
    // The space values are far off, so only the planar pair can give these pixels.
    RvTextEntity t;
    t.push_backA(RvPoint2D(0.5, -0.5, 100, 100, 0));   // (1, -1)
    t.push_backA(RvPoint2D(7.4, 0.2, 100, 100, 0));    // (7, 0)
    t.push_backA(RvPoint2D(7.6, 4.5, 100, 100, 0));    // (8, 5)
    t.push_backA(RvPoint2D(-0.6, 3.49, 100, 100, 0));  // (-1, 3)
    const Drawn out = DrawOn(t);                       // the font description is zero: height 0
    ASSERT_EQ(out.calls.size(), 8u);
    EXPECT_EQ(out.calls[1], "MoveTo(1, -1)");
    EXPECT_EQ(out.calls[5], "LineTo(1, -1)");
    EXPECT_EQ(out.calls[6], "Polygon((1, -1) (7, 0) (8, 5) (-1, 3))");
}

// --- Draw: the text --------------------------------------------------------------------------

TEST(RvTextEntityDraw, TenSparePixelsOverFourCharactersGiveThreeTwoTwoTwo) {
    // Height 10 advances 5 a character, so W = 20 for "abcd" and the side is 30: extra = 10,
    // per = 2, rem = 2. The first character steps rem to 1 and gets 5 + 1 + 2; the second steps
    // it to 0 and gets 5 + 2; the last two get 5 + 2.
    const std::vector<int> expected{8, 7, 7, 7};
    EXPECT_EQ(AdvancesFor(30, 10, "abcd"), expected);
}

TEST(RvTextEntityDraw, AFractionalSpareWidthIsTruncated) {
    // The side is 30.9: L - W = 10.9 truncates to 10, as in the case above.
    const std::vector<int> expected{8, 7, 7, 7};
    EXPECT_EQ(AdvancesFor(30.9, 10, "abcd"), expected);
}

TEST(RvTextEntityDraw, ATextWiderThanItsSideKeepsItsOwnWidths) {
    // W = 20 against a side of 10: extra would be -10 and becomes 0, so per and rem are 0.
    const std::vector<int> expected{5, 5, 5, 5};
    EXPECT_EQ(AdvancesFor(10, 10, "abcd"), expected);
    // Less than one pixel short gives the same.
    EXPECT_EQ(AdvancesFor(19.5, 10, "abcd"), expected);
}

TEST(RvTextEntityDraw, TheRemainderIsHandedOutLessOne) {
    // Side 23, W = 20: extra 3, per 0, rem 3; the steps take rem to 2, 1, 0, 0, so the first two
    // characters get a pixel more and the third, at which rem reaches 0, none.
    const std::vector<int> three{6, 6, 5, 5};
    EXPECT_EQ(AdvancesFor(23, 10, "abcd"), three);
    // Side 27: extra 7, per 1, rem 3.
    const std::vector<int> seven{7, 7, 6, 6};
    EXPECT_EQ(AdvancesFor(27, 10, "abcd"), seven);
    // Side 21: extra 1, per 0, rem 1: it reaches 0 at the first character, so nobody gains.
    const std::vector<int> one{5, 5, 5, 5};
    EXPECT_EQ(AdvancesFor(21, 10, "abcd"), one);
}

TEST(RvTextEntityDraw, TheRemainderNeverGoesBelowZero) {
    // extra is clamped at 0 and n is positive, so rem = extra - per * n lies in 0 .. n - 1 and
    // no character is ever narrowed: each advance is cw + per, plus one for the first rem - 1.
    for (int extra = -3; extra <= 12; ++extra) {
        const std::vector<int> dx = AdvancesFor(20 + extra, 10, "abcd");
        ASSERT_EQ(dx.size(), 4u);
        const int clamped = extra < 0 ? 0 : extra;
        const int per = clamped / 4;
        const int rem = clamped % 4;
        for (int i = 0; i < 4; ++i) {
            const int bonus = i < rem - 1 ? 1 : 0;
            EXPECT_EQ(dx[static_cast<std::size_t>(i)], 5 + per + bonus)
                << "extra " << extra << ", character " << i;
            EXPECT_GE(dx[static_cast<std::size_t>(i)], 5);
        }
    }
}

TEST(RvTextEntityDraw, FourVerticesWriteAtVertexZeroWithoutTouchingTheAlignment) {
    // Height 12 advances 6: W = 18 for "abc", side 50, extra 32, per 10, rem 2 -> 6 + 1 + 10,
    // then 6 + 10 twice.
    RvTextEntity t = Framed(12, "abc");
    const Drawn out = DrawOn(t);
    const std::vector<std::string> expected{
        "SelectFont(12 \"Arial\")", "GetTextExtent(\"abc\")",
        "GetTextExtent(\"a\")",     "GetTextExtent(\"b\")",
        "GetTextExtent(\"c\")",     "ExtTextOut(10, 40, 0; \"abc\"; 17 16 16)",
        "SelectFont(16 \"\")",
    };
    EXPECT_EQ(out.calls, expected);
    EXPECT_EQ(out.align, 6u);
    EXPECT_TRUE(out.fontRestored);
}

TEST(RvTextEntityDraw, FiveVerticesWriteOnTheBaselineAtTheLastVertexAndRestoreTheAlignment) {
    RvTextEntity t = Text({{10, 40}, {10, 28}, {60, 28}, {60, 40}, {12.5, 37.4}}, 12, "abc");
    const Drawn out = DrawOn(t);
    const std::vector<std::string> expected{
        "SelectFont(12 \"Arial\")",
        "GetTextExtent(\"abc\")",
        "GetTextExtent(\"a\")",
        "GetTextExtent(\"b\")",
        "GetTextExtent(\"c\")",
        "SetTextAlign(24)",
        "ExtTextOut(13, 37, 0; \"abc\"; 17 16 16)",
        "SetTextAlign(6)",
        "SelectFont(16 \"\")",
    };
    EXPECT_EQ(out.calls, expected);
    EXPECT_EQ(out.align, 6u);
    EXPECT_TRUE(out.fontRestored);
}

TEST(RvTextEntityDraw, SixVerticesWriteAtVertexZeroLikeFour) {
    RvTextEntity t = Text({{10, 40}, {10, 28}, {60, 28}, {60, 40}, {12, 37}, {90, 90}}, 12, "abc");
    const Drawn out = DrawOn(t);
    ASSERT_EQ(out.calls.size(), 7u);
    EXPECT_EQ(out.calls[5], "ExtTextOut(10, 40, 0; \"abc\"; 17 16 16)");
}

TEST(RvTextEntityDraw, ThreeVerticesAreEnoughForTheText) {
    // Vertex 3 is not read: the side runs from vertex 1 to vertex 2 and the text sits at 0.
    RvTextEntity t = Text({{10, 40}, {10, 28}, {60, 28}}, 12, "abc");
    const Drawn out = DrawOn(t);
    ASSERT_EQ(out.calls.size(), 7u);
    EXPECT_EQ(out.calls[5], "ExtTextOut(10, 40, 0; \"abc\"; 17 16 16)");
}

TEST(RvTextEntityDraw, FewerThanThreeVerticesWithALegibleFontRaiseTheRangeError) {
    for (const int count : {1, 2}) {
        RvTextEntity t = Text({{10, 40}, {10, 28}}, 12, "abc");
        t.resize(static_cast<std::size_t>(count));
        CRecordingDC dc;
        ExpectThrowWithMessage<std::out_of_range>([&] { t.Draw(&dc); }, kSubscript);
        // The side is measured before the device is touched.
        EXPECT_TRUE(dc.Calls().empty()) << count << " vertices";
    }
}

TEST(RvTextEntityDraw, TheSideIsMeasuredOnThePlanarPair) {
    // Vertex 1 and 2 are 30 apart in the plane and 300 apart in space: with "abcd" at height 10
    // (W = 20) only the planar length gives extra = 10 and the advances 8 7 7 7.
    RvTextEntity t;
    t.push_backA(RvPoint2D(0, 10, 0, 10, 0));
    t.push_backA(RvPoint2D(0, 0, 0, 0, 0));
    t.push_backA(RvPoint2D(30, 0, 300, 0, 0));
    t.push_backA(RvPoint2D(30, 10, 300, 10, 0));
    const tagLOGFONTA font = FontOf(10, "Arial");
    t.CreateFontIndirectA(&font);
    t.SetText("abcd");
    CRecordingDC dc;
    t.Draw(&dc);
    const std::vector<int> expected{8, 7, 7, 7};
    EXPECT_EQ(AdvancesOf(dc), expected);
}

TEST(RvTextEntityDraw, TextIsMeasuredOnTheAttributeContext) {
    // The attribute device keeps its own 16-pixel font (advance 8), since the font is selected
    // into the drawing device only: W = 24 for "abc" on a side of 50, extra 26, per 8, rem 2,
    // so the advances are 8 + 1 + 8, 8 + 8, 8 + 8.
    RvTextEntity t = Framed(12, "abc");
    CRecordingDC dc;
    CRecordingDC attrib;
    dc.m_hAttribDC = &attrib;
    t.Draw(&dc);
    const std::vector<std::string> drawn{
        "SelectFont(12 \"Arial\")",
        "ExtTextOut(10, 40, 0; \"abc\"; 17 16 16)",
        "SelectFont(16 \"\")",
    };
    EXPECT_EQ(dc.Descriptions(), drawn);
    const std::vector<std::string> measured{
        "GetTextExtent(\"abc\")",
        "GetTextExtent(\"a\")",
        "GetTextExtent(\"b\")",
        "GetTextExtent(\"c\")",
    };
    EXPECT_EQ(attrib.Descriptions(), measured);
}

TEST(RvTextEntityDraw, AnEmptyTextWithALegibleFontMakesNoCallAtAll) {
    RvTextEntity t = Framed(12, "");
    const Drawn out = DrawOn(t);
    EXPECT_TRUE(out.calls.empty());
    EXPECT_TRUE(out.result.IsRectNull());
    EXPECT_TRUE(out.fontRestored);
}

TEST(RvTextEntityDraw, AnEmptyTextStillNeedsThreeVertices) {
    // The side is read before the text is looked at, so a short entity fails as with a text.
    RvTextEntity t = Text({{10, 40}, {10, 28}}, 12, "");
    CRecordingDC dc;
    ExpectThrowWithMessage<std::out_of_range>([&] { t.Draw(&dc); }, kSubscript);
    EXPECT_TRUE(dc.Calls().empty());
}

TEST(RvTextEntityDraw, AnEmptyTextWithASmallFontStillDrawsTheFrame) {
    RvTextEntity t = Framed(4, "");
    const Drawn out = DrawOn(t);
    ASSERT_EQ(out.calls.size(), 8u);
    EXPECT_EQ(out.calls.front(), "SetROP2(7)");
}

// --- IsIncident -------------------------------------------------------------------------------

TEST(RvTextEntityIncident, APixelInsideTheFrameIsAnInsideHit) {
    const RvTextEntity t = Square();
    RvPolyLine2D hit;
    const Incidence r = Touch(t, RvPoint2D(5, 5), hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapInside);
    EXPECT_EQ(r.d, 0.5);
    EXPECT_EQ(hit.GetType(), 8u);
    EXPECT_TRUE(hit.empty());
}

TEST(RvTextEntityIncident, LeftAndTopBorderPixelsAreInsideRightAndBottomOnesOutside) {
    // The square from (0, 0) to (10, 10) holds the pixels 0 to 9 in each direction: their
    // centres (x + 0.5, y + 0.5) lie inside it.
    const RvTextEntity t = Square();
    RvPolyLine2D hit;
    EXPECT_TRUE(Touch(t, RvPoint2D(0, 0), hit).result);
    EXPECT_TRUE(Touch(t, RvPoint2D(9, 9), hit).result);
    EXPECT_TRUE(Touch(t, RvPoint2D(0, 9), hit).result);
    EXPECT_FALSE(Touch(t, RvPoint2D(10, 5), hit).result);
    EXPECT_FALSE(Touch(t, RvPoint2D(5, 10), hit).result);
    EXPECT_FALSE(Touch(t, RvPoint2D(-1, 5), hit).result);
    EXPECT_FALSE(Touch(t, RvPoint2D(5, -1), hit).result);
}

TEST(RvTextEntityIncident, ThePointerIsRoundedToItsPixelFirst) {
    const RvTextEntity t = Square();
    RvPolyLine2D hit;
    // 9.49 rounds to pixel 9, inside; 9.5 rounds away from zero to 10, outside.
    EXPECT_TRUE(Touch(t, RvPoint2D(9.49, 5), hit).result);
    EXPECT_FALSE(Touch(t, RvPoint2D(9.5, 5), hit).result);
    // -0.5 rounds to -1, outside; -0.49 to 0, inside.
    EXPECT_FALSE(Touch(t, RvPoint2D(5, -0.5), hit).result);
    EXPECT_TRUE(Touch(t, RvPoint2D(5, -0.49), hit).result);
}

TEST(RvTextEntityIncident, AMissLeavesSnapAndDistanceAlone) {
    const RvTextEntity t = Square();
    RvPolyLine2D hit;
    // Within the search distance of the right side, but the distance plays no part.
    const Incidence r = Touch(t, RvPoint2D(10.6, 5), hit, SnapEdge, 100.0);
    EXPECT_FALSE(r.result);
    EXPECT_EQ(r.snap, SnapEdge);
    EXPECT_EQ(r.d, 100.0);
    EXPECT_EQ(hit.GetType(), 8u);
}

TEST(RvTextEntityIncident, TheEntrySnapIsNotLookedAt) {
    // Asking for edges only still gives an inside hit.
    const RvTextEntity t = Square();
    RvPolyLine2D hit;
    const Incidence r = Touch(t, RvPoint2D(3, 3), hit, SnapEdge);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapInside);
}

TEST(RvTextEntityIncident, TheHitKeepsItsVerticesAndTakesOnlyTheType) {
    const RvTextEntity t = Square();
    RvPolyLine2D hit;
    hit.push_backA(RvPoint2D(7, 8));
    EXPECT_TRUE(Touch(t, RvPoint2D(3, 3), hit).result);
    ASSERT_EQ(hit.size(), 1u);
    EXPECT_TRUE(HasValues(hit[0], 7, 8, 0, 7, 8));
    EXPECT_EQ(hit.GetType(), 8u);
}

TEST(RvTextEntityIncident, AFifthVertexIsNotPartOfTheFrame) {
    RvTextEntity t = Square();
    t.push_backA(RvPoint2D(50, 50));
    RvPolyLine2D hit;
    EXPECT_FALSE(Touch(t, RvPoint2D(30, 30), hit).result);
    EXPECT_TRUE(Touch(t, RvPoint2D(2, 2), hit).result);
}

TEST(RvTextEntityIncident, TheFrameIsFilledEvenOdd) {
    // A bow tie (0, 0) (10, 10) (10, 0) (0, 10): its two triangles meet at (5, 5). The pixel
    // (1, 4) has its centre (1.5, 4.5) in the left triangle; (4, 1) has (4.5, 1.5) in neither.
    const RvTextEntity t = Text({{0, 0}, {10, 10}, {10, 0}, {0, 10}}, 12, "x");
    RvPolyLine2D hit;
    EXPECT_TRUE(Touch(t, RvPoint2D(1, 4), hit).result);
    EXPECT_FALSE(Touch(t, RvPoint2D(4, 1), hit).result);
}

TEST(RvTextEntityIncident, FewerThanFourVerticesRaiseTheRangeErrorAfterSettingTheType) {
    for (int count = 0; count <= 3; ++count) {
        RvTextEntity t = Square();
        t.resize(static_cast<std::size_t>(count));
        RvPolyLine2D hit;
        double d = 1.0;
        enumSnapType snap = SnapEdge;
        ExpectThrowWithMessage<std::out_of_range>(
            [&] { t.IsIncident(RvPoint2D(1, 1), d, snap, hit); }, kSubscript);
        EXPECT_EQ(hit.GetType(), 8u) << count << " vertices";
        EXPECT_EQ(snap, SnapEdge);
    }
}

// --- InvSelectArea ----------------------------------------------------------------------------

TEST(RvTextEntitySelect, FullInclusionAsksForEveryVertexPixel) {
    const RvTextEntity t = Square();
    EXPECT_TRUE(t.InvSelectArea(CRect(0, 0, 11, 11), 1));
    // The right and bottom sides of the rectangle are outside it.
    EXPECT_FALSE(t.InvSelectArea(CRect(0, 0, 10, 11), 1));
}

TEST(RvTextEntitySelect, TouchingAsksForOneVertexOrACrossingSide) {
    const RvTextEntity t = Square();
    EXPECT_TRUE(t.InvSelectArea(CRect(8, 8, 12, 12), 2));  // holds vertex (10, 10)
    EXPECT_TRUE(t.InvSelectArea(CRect(4, -2, 6, 2), 2));   // crosses the side along y = 0
    EXPECT_FALSE(t.InvSelectArea(CRect(3, 3, 6, 6), 2));   // wholly inside the frame
    EXPECT_FALSE(t.InvSelectArea(CRect(20, 20, 30, 30), 2));
}

TEST(RvTextEntitySelect, AnEmptyRectangleOrAnotherModeGivesFalse) {
    const RvTextEntity t = Square();
    EXPECT_FALSE(t.InvSelectArea(CRect(0, 0, 0, 20), 1));
    EXPECT_FALSE(t.InvSelectArea(CRect(0, 0, 0, 20), 2));
    EXPECT_FALSE(t.InvSelectArea(CRect(-5, -5, 50, 50), 3));
}
