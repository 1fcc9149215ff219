#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <string>
#include <vector>

#include "ravelin/platform/CDC.h"
#include "ravelin/platform/CGdiObject.h"
#include "ravelin/platform/CRecordingDC.h"
#include "support/RavelinTesting.h"

using namespace ravelin;

namespace {

using ravelin::testing_support::FontOf;

// Whether `text` contains `part`.
bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// The integer arguments as a vector, for comparisons with DCCall::args.
std::vector<std::int64_t> Args(std::initializer_list<std::int64_t> values) {
    return std::vector<std::int64_t>(values);
}

}  // namespace

// --- Initial state ---------------------------------------------------------------------------

TEST(CRecordingDCState, FreshDeviceHasCopyPenOpaqueAlignmentZeroAndPenAtOrigin) {
    CRecordingDC dc;
    EXPECT_EQ(dc.GetROP2(), R2_COPYPEN);
    EXPECT_EQ(dc.GetBkMode(), OPAQUE);
    EXPECT_EQ(dc.GetTextAlign(), 0u);
    EXPECT_TRUE(dc.GetCurrentPosition() == CPoint(0, 0));
    EXPECT_TRUE(dc.Calls().empty());
    EXPECT_TRUE(dc.Descriptions().empty());
}

TEST(CRecordingDCState, FreshDeviceHasASolidBlackPenOfWidthZero) {
    CRecordingDC dc;
    const CPen* pen = dc.GetCurrentPen();
    ASSERT_NE(pen, nullptr);
    EXPECT_TRUE(pen->IsCreated());
    EXPECT_EQ(pen->GetStyle(), PS_SOLID);
    EXPECT_EQ(pen->GetWidth(), 0);
    EXPECT_EQ(pen->GetColor(), 0u);
}

TEST(CRecordingDCState, FreshDeviceHasAFontSixteenPixelsHigh) {
    CRecordingDC dc;
    const CFont* font = dc.GetCurrentFont();
    ASSERT_NE(font, nullptr);
    EXPECT_TRUE(font->IsCreated());
    EXPECT_EQ(std::abs(font->LogFont().lfHeight), 16);
    // Half of 16 per character.
    EXPECT_EQ(dc.CharAdvance(), 8);
}

TEST(CRecordingDCState, HandlesAreTheDeviceItself) {
    CRecordingDC dc;
    EXPECT_EQ(dc.m_hDC, &dc);
    EXPECT_EQ(dc.m_hAttribDC, &dc);
    EXPECT_EQ(dc.GetSafeHdc(), &dc);
}

// --- Recording of each operation ----------------------------------------------------------------

TEST(CRecordingDCRecord, SetROP2IsRecordedAndReturnsTheFormerMode) {
    CRecordingDC dc;
    EXPECT_EQ(dc.SetROP2(R2_XORPEN), R2_COPYPEN);
    EXPECT_EQ(dc.GetROP2(), R2_XORPEN);
    EXPECT_EQ(dc.SetROP2(R2_MERGEPEN), R2_XORPEN);
    EXPECT_EQ(dc.GetROP2(), R2_MERGEPEN);
    ASSERT_EQ(dc.Calls().size(), 2u);
    EXPECT_EQ(dc.Calls()[0].op, DCOp::SetROP2);
    EXPECT_EQ(dc.Calls()[0].args, Args({7}));
    EXPECT_EQ(dc.Calls()[1].args, Args({15}));
    EXPECT_EQ(dc.Calls()[0].Describe(), "SetROP2(7)");
    EXPECT_EQ(dc.Calls()[1].Describe(), "SetROP2(15)");
}

TEST(CRecordingDCRecord, SetBkModeIsRecordedAndReturnsTheFormerMode) {
    CRecordingDC dc;
    EXPECT_EQ(dc.SetBkMode(TRANSPARENT), OPAQUE);
    EXPECT_EQ(dc.GetBkMode(), TRANSPARENT);
    EXPECT_EQ(dc.SetBkMode(OPAQUE), TRANSPARENT);
    ASSERT_EQ(dc.Calls().size(), 2u);
    EXPECT_EQ(dc.Calls()[0].op, DCOp::SetBkMode);
    EXPECT_EQ(dc.Calls()[0].args, Args({1}));
    EXPECT_EQ(dc.Calls()[0].Describe(), "SetBkMode(1)");
    EXPECT_EQ(dc.Calls()[1].Describe(), "SetBkMode(2)");
}

TEST(CRecordingDCRecord, SetTextAlignIsRecordedAndReturnsTheFormerFlags) {
    CRecordingDC dc;
    EXPECT_EQ(dc.SetTextAlign(TA_BASELINE), 0u);
    EXPECT_EQ(dc.GetTextAlign(), TA_BASELINE);
    EXPECT_EQ(dc.SetTextAlign(TA_TOP), TA_BASELINE);
    EXPECT_EQ(dc.GetTextAlign(), TA_TOP);
    ASSERT_EQ(dc.Calls().size(), 2u);
    EXPECT_EQ(dc.Calls()[0].op, DCOp::SetTextAlign);
    EXPECT_EQ(dc.Calls()[0].args, Args({24}));
    EXPECT_EQ(dc.Calls()[0].Describe(), "SetTextAlign(24)");
    EXPECT_EQ(dc.Calls()[1].Describe(), "SetTextAlign(0)");
}

TEST(CRecordingDCRecord, MoveToReturnsTheFormerPositionAndLineToMovesThePen) {
    CRecordingDC dc;
    const CPoint first = dc.MoveTo(3, 4);
    EXPECT_TRUE(first == CPoint(0, 0));
    EXPECT_TRUE(dc.GetCurrentPosition() == CPoint(3, 4));
    EXPECT_TRUE(dc.LineTo(-5, 6));
    EXPECT_TRUE(dc.GetCurrentPosition() == CPoint(-5, 6));
    // The line moved the pen, so the next MoveTo reports the line's end.
    const CPoint second = dc.MoveTo(7, 8);
    EXPECT_TRUE(second == CPoint(-5, 6));
    ASSERT_EQ(dc.Calls().size(), 3u);
    EXPECT_EQ(dc.Calls()[0].op, DCOp::MoveTo);
    EXPECT_EQ(dc.Calls()[0].args, Args({3, 4}));
    EXPECT_EQ(dc.Calls()[1].op, DCOp::LineTo);
    EXPECT_EQ(dc.Calls()[1].args, Args({-5, 6}));
    const std::vector<std::string> expected{"MoveTo(3, 4)", "LineTo(-5, 6)", "MoveTo(7, 8)"};
    EXPECT_EQ(dc.Descriptions(), expected);
}

TEST(CRecordingDCRecord, PolygonAndPolylineKeepTheirPoints) {
    CRecordingDC dc;
    const POINT pts[3] = {{0, 0}, {10, 0}, {10, 10}};
    EXPECT_TRUE(dc.Polygon(pts, 3));
    EXPECT_TRUE(dc.Polyline(pts, 2));
    ASSERT_EQ(dc.Calls().size(), 2u);
    const DCCall& polygon = dc.Calls()[0];
    EXPECT_EQ(polygon.op, DCOp::Polygon);
    ASSERT_EQ(polygon.points.size(), 3u);
    EXPECT_EQ(polygon.points[2].x, 10);
    EXPECT_EQ(polygon.points[2].y, 10);
    EXPECT_TRUE(polygon.args.empty());
    EXPECT_EQ(polygon.Describe(), "Polygon((0, 0) (10, 0) (10, 10))");
    const DCCall& polyline = dc.Calls()[1];
    EXPECT_EQ(polyline.op, DCOp::Polyline);
    ASSERT_EQ(polyline.points.size(), 2u);
    EXPECT_EQ(polyline.Describe(), "Polyline((0, 0) (10, 0))");
}

TEST(CRecordingDCRecord, PolyPolygonKeepsTheRingCountsAndAllTheirPoints) {
    CRecordingDC dc;
    // A triangle of 3 points followed by a quadrilateral of 4: 7 points in all.
    const POINT pts[7] = {{0, 0}, {4, 0}, {0, 4}, {10, 10}, {12, 10}, {12, 12}, {10, 12}};
    const int counts[2] = {3, 4};
    EXPECT_TRUE(dc.PolyPolygon(pts, counts, 2));
    ASSERT_EQ(dc.Calls().size(), 1u);
    const DCCall& call = dc.Calls()[0];
    EXPECT_EQ(call.op, DCOp::PolyPolygon);
    EXPECT_EQ(call.counts, (std::vector<int>{3, 4}));
    ASSERT_EQ(call.points.size(), 7u);
    EXPECT_EQ(call.points[3].x, 10);
    EXPECT_EQ(call.points[6].y, 12);
    EXPECT_TRUE(
        Contains(call.Describe(), "(0, 0) (4, 0) (0, 4) (10, 10) (12, 10) (12, 12) (10, 12)"));
    EXPECT_TRUE(Contains(call.Describe(), "3 4"));
}

TEST(CRecordingDCRecord, RectangleKeepsItsFourSides) {
    CRecordingDC dc;
    EXPECT_TRUE(dc.Rectangle(1, 2, 30, 40));
    ASSERT_EQ(dc.Calls().size(), 1u);
    EXPECT_EQ(dc.Calls()[0].op, DCOp::Rectangle);
    EXPECT_EQ(dc.Calls()[0].args, Args({1, 2, 30, 40}));
    EXPECT_EQ(dc.Calls()[0].Describe(), "Rectangle(1, 2, 30, 40)");
}

TEST(CRecordingDCRecord, FillSolidRectKeepsTheSidesAndTheColour) {
    CRecordingDC dc;
    const RECT r{0, 0, 500, 500};
    dc.FillSolidRect(&r, 0xffffff);
    ASSERT_EQ(dc.Calls().size(), 1u);
    EXPECT_EQ(dc.Calls()[0].op, DCOp::FillSolidRect);
    EXPECT_EQ(dc.Calls()[0].args, Args({0, 0, 500, 500, 0xffffff}));
    EXPECT_EQ(dc.Calls()[0].Describe(), "FillSolidRect(0, 0, 500, 500, 16777215)");
}

TEST(CRecordingDCRecord, TextOutKeepsThePositionAndTheCountedCharacters) {
    CRecordingDC dc;
    EXPECT_TRUE(dc.TextOut(5, 6, "edges", 4));
    ASSERT_EQ(dc.Calls().size(), 1u);
    const DCCall& call = dc.Calls()[0];
    EXPECT_EQ(call.op, DCOp::TextOut);
    EXPECT_EQ(call.args, Args({5, 6}));
    // Only the four counted characters.
    EXPECT_EQ(call.text, "edge");
    EXPECT_TRUE(Contains(call.Describe(), "TextOut(5, 6"));
    EXPECT_TRUE(Contains(call.Describe(), "\"edge\""));
}

TEST(CRecordingDCRecord, SelectPenRecordsStyleWidthAndColourAndReturnsTheFormerPen) {
    CRecordingDC dc;
    CPen* stock = dc.GetCurrentPen();
    CPen red(PS_SOLID, 2, 0x0000ff);
    CPen none(PS_NULL, 0, 0);
    EXPECT_EQ(dc.SelectObject(&red), stock);
    EXPECT_EQ(dc.GetCurrentPen(), &red);
    EXPECT_EQ(dc.SelectObject(&none), &red);
    EXPECT_EQ(dc.GetCurrentPen(), &none);
    EXPECT_EQ(dc.SelectObject(stock), &none);
    EXPECT_EQ(dc.GetCurrentPen(), stock);
    ASSERT_EQ(dc.Calls().size(), 3u);
    EXPECT_EQ(dc.Calls()[0].op, DCOp::SelectPen);
    EXPECT_EQ(dc.Calls()[0].args, Args({0, 2, 255}));
    EXPECT_EQ(dc.Calls()[1].args, Args({5, 0, 0}));
    EXPECT_EQ(dc.Calls()[2].args, Args({0, 0, 0}));
    EXPECT_EQ(dc.Calls()[0].Describe(), "SelectPen(0, 2, 255)");
}

TEST(CRecordingDCRecord, NullPenIsRecordedWithoutArgumentsChangesNothingAndGivesNull) {
    CRecordingDC dc;
    CPen red(PS_SOLID, 2, 0x0000ff);
    dc.SelectObject(&red);
    dc.ClearCalls();
    EXPECT_EQ(dc.SelectObject(static_cast<CPen*>(nullptr)), nullptr);
    EXPECT_EQ(dc.GetCurrentPen(), &red);
    ASSERT_EQ(dc.Calls().size(), 1u);
    EXPECT_EQ(dc.Calls()[0].op, DCOp::SelectPen);
    EXPECT_TRUE(dc.Calls()[0].args.empty());
    EXPECT_EQ(dc.Calls()[0].Describe(), "SelectPen()");
}

TEST(CRecordingDCRecord, SelectFontRecordsTheDescriptionAndReturnsTheFormerFont) {
    CRecordingDC dc;
    CFont* stock = dc.GetCurrentFont();
    CFont big;
    const tagLOGFONTA desc = FontOf(-20, "Plain");
    ASSERT_TRUE(big.CreateFontIndirect(&desc));
    EXPECT_EQ(dc.SelectObject(&big), stock);
    EXPECT_EQ(dc.GetCurrentFont(), &big);
    EXPECT_EQ(dc.SelectObject(stock), &big);
    EXPECT_EQ(dc.GetCurrentFont(), stock);
    ASSERT_EQ(dc.Calls().size(), 2u);
    const DCCall& call = dc.Calls()[0];
    EXPECT_EQ(call.op, DCOp::SelectFont);
    EXPECT_EQ(call.font.lfHeight, -20);
    EXPECT_STREQ(call.font.lfFaceName, "Plain");
    EXPECT_TRUE(call.args.empty());
    EXPECT_TRUE(Contains(call.Describe(), "-20"));
    EXPECT_TRUE(Contains(call.Describe(), "Plain"));
}

TEST(CRecordingDCRecord, NullFontIsRecordedChangesNothingAndGivesNull) {
    CRecordingDC dc;
    CFont* stock = dc.GetCurrentFont();
    EXPECT_EQ(dc.SelectObject(static_cast<CFont*>(nullptr)), nullptr);
    EXPECT_EQ(dc.GetCurrentFont(), stock);
    ASSERT_EQ(dc.Calls().size(), 1u);
    EXPECT_EQ(dc.Calls()[0].op, DCOp::SelectFont);
    // Nothing was selected, so the text is still measured in the stock font.
    EXPECT_EQ(dc.CharAdvance(), 8);
}

TEST(CRecordingDCRecord, ClearCallsForgetsTheCallsButKeepsTheState) {
    CRecordingDC dc;
    dc.SetROP2(R2_XORPEN);
    dc.MoveTo(1, 2);
    dc.ClearCalls();
    EXPECT_TRUE(dc.Calls().empty());
    EXPECT_EQ(dc.GetROP2(), R2_XORPEN);
    EXPECT_TRUE(dc.GetCurrentPosition() == CPoint(1, 2));
}

// --- Text extent ----------------------------------------------------------------------------

TEST(CRecordingDCText, StockFontMeasuresEightPerCharacterAndSixteenHigh) {
    CRecordingDC dc;
    const CSize s = dc.GetTextExtent("abc", 3);
    EXPECT_EQ(s.cx, 24);
    EXPECT_EQ(s.cy, 16);
    ASSERT_EQ(dc.Calls().size(), 1u);
    EXPECT_EQ(dc.Calls()[0].op, DCOp::GetTextExtent);
    EXPECT_EQ(dc.Calls()[0].text, "abc");
    EXPECT_TRUE(Contains(dc.Calls()[0].Describe(), "GetTextExtent("));
    EXPECT_TRUE(Contains(dc.Calls()[0].Describe(), "\"abc\""));
}

TEST(CRecordingDCText, OnlyTheCountedCharactersAreMeasured) {
    CRecordingDC dc;
    const CSize s = dc.GetTextExtent("abcdef", 2);
    EXPECT_EQ(s.cx, 16);
    EXPECT_EQ(s.cy, 16);
    EXPECT_EQ(dc.Calls()[0].text, "ab");
}

TEST(CRecordingDCText, EmptyTextHasNoWidthButTheFontHeight) {
    CRecordingDC dc;
    const CSize s = dc.GetTextExtent("abc", 0);
    EXPECT_EQ(s.cx, 0);
    EXPECT_EQ(s.cy, 16);
}

TEST(CRecordingDCText, NegativeHeightMeasuresWithItsMagnitudeRoundedUp) {
    CRecordingDC dc;
    CFont font;
    const tagLOGFONTA desc = FontOf(-15, "Plain");
    font.CreateFontIndirect(&desc);
    dc.SelectObject(&font);
    // ceil(15 / 2) = 8 per character; the height is |-15|.
    EXPECT_EQ(dc.CharAdvance(), 8);
    const CSize s = dc.GetTextExtent("abcd", 4);
    EXPECT_EQ(s.cx, 32);
    EXPECT_EQ(s.cy, 15);
}

TEST(CRecordingDCText, EvenHeightGivesExactlyHalf) {
    CRecordingDC dc;
    CFont font;
    const tagLOGFONTA desc = FontOf(20, "Plain");
    font.CreateFontIndirect(&desc);
    dc.SelectObject(&font);
    EXPECT_EQ(dc.CharAdvance(), 10);
    const CSize s = dc.GetTextExtent("xy", 2);
    EXPECT_EQ(s.cx, 20);
    EXPECT_EQ(s.cy, 20);
}

TEST(CRecordingDCText, HeightOneAdvancesByOne) {
    CRecordingDC dc;
    CFont font;
    const tagLOGFONTA desc = FontOf(1, "Plain");
    font.CreateFontIndirect(&desc);
    dc.SelectObject(&font);
    // ceil(1 / 2) = 1.
    EXPECT_EQ(dc.CharAdvance(), 1);
    const CSize s = dc.GetTextExtent("abc", 3);
    EXPECT_EQ(s.cx, 3);
    EXPECT_EQ(s.cy, 1);
}

TEST(CRecordingDCText, HeightZeroStillAdvancesByOnePixel) {
    CRecordingDC dc;
    CFont font;
    const tagLOGFONTA desc = FontOf(0, "Plain");
    font.CreateFontIndirect(&desc);
    dc.SelectObject(&font);
    EXPECT_EQ(dc.CharAdvance(), 1);
    const CSize s = dc.GetTextExtent("abc", 3);
    EXPECT_EQ(s.cx, 3);
    EXPECT_EQ(s.cy, 0);
}

// --- ExtTextOut -----------------------------------------------------------------------------

TEST(CRecordingDCText, ExtTextOutWithoutAdvancesOrClipKeepsPositionOptionsAndText) {
    CRecordingDC dc;
    EXPECT_TRUE(dc.ExtTextOut(10, 20, 0, nullptr, "abc", 3, nullptr));
    ASSERT_EQ(dc.Calls().size(), 1u);
    const DCCall& call = dc.Calls()[0];
    EXPECT_EQ(call.op, DCOp::ExtTextOut);
    EXPECT_EQ(call.args, Args({10, 20, 0}));
    EXPECT_EQ(call.text, "abc");
    EXPECT_TRUE(call.counts.empty());
    EXPECT_TRUE(Contains(call.Describe(), "ExtTextOut(10, 20, 0"));
}

TEST(CRecordingDCText, ExtTextOutWithAdvancesAndClipKeepsTheClipSidesAndTheAdvances) {
    CRecordingDC dc;
    const RECT clip{1, 2, 3, 4};
    const int dx[3] = {5, 6, 7};
    EXPECT_TRUE(dc.ExtTextOut(10, 20, 4, &clip, "abc", 3, dx));
    ASSERT_EQ(dc.Calls().size(), 1u);
    const DCCall& call = dc.Calls()[0];
    EXPECT_EQ(call.args, Args({10, 20, 4, 1, 2, 3, 4}));
    EXPECT_EQ(call.counts, (std::vector<int>{5, 6, 7}));
    EXPECT_EQ(call.text, "abc");
    EXPECT_TRUE(Contains(call.Describe(), "ExtTextOut(10, 20, 4, 1, 2, 3, 4"));
    EXPECT_TRUE(Contains(call.Describe(), "5 6 7"));
}

TEST(CRecordingDCText, ExtTextOutWithAdvancesButNoClip) {
    CRecordingDC dc;
    const int dx[2] = {9, 11};
    dc.ExtTextOut(0, 0, 0, nullptr, "ab", 2, dx);
    const DCCall& call = dc.Calls()[0];
    EXPECT_EQ(call.args.size(), 3u);
    EXPECT_EQ(call.counts, (std::vector<int>{9, 11}));
}

TEST(CRecordingDCText, ExtTextOutWithClipButNoAdvances) {
    CRecordingDC dc;
    const RECT clip{-1, -2, 30, 40};
    dc.ExtTextOut(0, 0, 0, &clip, "ab", 2, nullptr);
    const DCCall& call = dc.Calls()[0];
    EXPECT_EQ(call.args, Args({0, 0, 0, -1, -2, 30, 40}));
    EXPECT_TRUE(call.counts.empty());
}

// --- Free functions on a handle ----------------------------------------------------------------

TEST(CDCFreeFunctions, ForwardToTheDeviceOfTheHandle) {
    CRecordingDC dc;
    const POINT pts[3] = {{0, 0}, {10, 0}, {10, 10}};
    const int counts[1] = {3};
    const RECT clip{0, 0, 5, 5};
    EXPECT_TRUE(Polygon(dc.m_hDC, pts, 3));
    EXPECT_TRUE(Polyline(dc.m_hDC, pts, 3));
    EXPECT_TRUE(PolyPolygon(dc.m_hDC, pts, counts, 1));
    EXPECT_TRUE(Rectangle(dc.m_hDC, 1, 2, 3, 4));
    EXPECT_TRUE(ExtTextOutA(dc.m_hDC, 7, 8, 0, &clip, "ab", 2, nullptr));
    ASSERT_EQ(dc.Calls().size(), 5u);
    EXPECT_EQ(dc.Calls()[0].op, DCOp::Polygon);
    EXPECT_EQ(dc.Calls()[0].points.size(), 3u);
    EXPECT_EQ(dc.Calls()[1].op, DCOp::Polyline);
    EXPECT_EQ(dc.Calls()[2].op, DCOp::PolyPolygon);
    EXPECT_EQ(dc.Calls()[2].counts, (std::vector<int>{3}));
    EXPECT_EQ(dc.Calls()[3].Describe(), "Rectangle(1, 2, 3, 4)");
    EXPECT_EQ(dc.Calls()[4].op, DCOp::ExtTextOut);
    EXPECT_EQ(dc.Calls()[4].args, Args({7, 8, 0, 0, 0, 5, 5}));
    EXPECT_EQ(dc.Calls()[4].text, "ab");
}

TEST(CDCFreeFunctions, GetTextExtentPoint32AMeasuresOnTheDevice) {
    CRecordingDC dc;
    SIZE size{-1, -1};
    EXPECT_TRUE(GetTextExtentPoint32A(dc.m_hDC, "abcd", 4, &size));
    EXPECT_EQ(size.cx, 32);
    EXPECT_EQ(size.cy, 16);
    ASSERT_EQ(dc.Calls().size(), 1u);
    EXPECT_EQ(dc.Calls()[0].op, DCOp::GetTextExtent);
    EXPECT_EQ(dc.Calls()[0].text, "abcd");
}

TEST(CDCFreeFunctions, NullHandleDrawsNothingAndAnswersFalse) {
    const POINT pts[3] = {{0, 0}, {10, 0}, {10, 10}};
    const int counts[1] = {3};
    EXPECT_FALSE(Polygon(nullptr, pts, 3));
    EXPECT_FALSE(Polyline(nullptr, pts, 3));
    EXPECT_FALSE(PolyPolygon(nullptr, pts, counts, 1));
    EXPECT_FALSE(Rectangle(nullptr, 1, 2, 3, 4));
    EXPECT_FALSE(ExtTextOutA(nullptr, 0, 0, 0, nullptr, "ab", 2, nullptr));
    SIZE size{0, 0};
    EXPECT_FALSE(GetTextExtentPoint32A(nullptr, "ab", 2, &size));
    EXPECT_EQ(size.cx, 0);
    EXPECT_EQ(size.cy, 0);
}

TEST(CDCFreeFunctions, NullHandleOfADeviceLeavesTheDeviceUntouched) {
    CRecordingDC dc;
    dc.m_hDC = nullptr;
    const POINT pts[2] = {{0, 0}, {1, 1}};
    EXPECT_FALSE(Polyline(dc.m_hDC, pts, 2));
    EXPECT_FALSE(Rectangle(dc.GetSafeHdc(), 0, 0, 1, 1));
    EXPECT_TRUE(dc.Calls().empty());
}

TEST(CDCFreeFunctions, TextIsMeasuredOnTheAttributeDevice) {
    // The screen device measures through another device that has a larger font selected.
    CRecordingDC screen;
    CRecordingDC attrib;
    CFont font;
    const tagLOGFONTA desc = FontOf(-30, "Plain");
    font.CreateFontIndirect(&desc);
    attrib.SelectObject(&font);
    attrib.ClearCalls();
    screen.m_hAttribDC = &attrib;

    SIZE size{0, 0};
    EXPECT_TRUE(GetTextExtentPoint32A(screen.m_hAttribDC, "ab", 2, &size));
    // ceil(30 / 2) = 15 per character, 30 high.
    EXPECT_EQ(size.cx, 30);
    EXPECT_EQ(size.cy, 30);
    EXPECT_TRUE(screen.Calls().empty());
    ASSERT_EQ(attrib.Calls().size(), 1u);
    EXPECT_EQ(attrib.Calls()[0].op, DCOp::GetTextExtent);
    EXPECT_EQ(attrib.Calls()[0].text, "ab");
}

// --- Replay ---------------------------------------------------------------------------------

namespace {

// Issues one call of every kind on `dc`, with pens and fonts that live in `pen` and `font`.
void DrawEverything(CDC& dc, CPen& pen, CFont& font) {
    const POINT pts[4] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    const int counts[2] = {2, 2};
    const RECT r{1, 2, 3, 4};
    const int dx[2] = {4, 5};
    dc.SetROP2(R2_XORPEN);
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextAlign(TA_BASELINE);
    dc.SelectObject(&pen);
    dc.SelectObject(&font);
    dc.MoveTo(1, 1);
    dc.LineTo(5, 6);
    dc.Polygon(pts, 4);
    dc.Polyline(pts, 3);
    dc.PolyPolygon(pts, counts, 2);
    dc.Rectangle(-1, -2, 3, 4);
    dc.FillSolidRect(&r, 0x123456);
    dc.TextOut(7, 8, "text", 4);
    dc.GetTextExtent("ab", 2);
    dc.ExtTextOut(9, 10, 0, nullptr, "ab", 2, nullptr);
    dc.ExtTextOut(11, 12, 4, &r, "ab", 2, dx);
}

}  // namespace

TEST(CRecordingDCReplay, TargetRecordsTheSameCallsThenSelectsItsFormerPenAndFont) {
    CRecordingDC source;
    CPen pen(PS_SOLID, 3, 0x00ff00);
    CFont font;
    const tagLOGFONTA desc = FontOf(-12, "Plain");
    font.CreateFontIndirect(&desc);
    DrawEverything(source, pen, font);

    CRecordingDC target;
    CPen formerPen(PS_SOLID, 1, 0xff0000);
    CFont formerFont;
    const tagLOGFONTA formerDesc = FontOf(22, "Former");
    formerFont.CreateFontIndirect(&formerDesc);
    target.SelectObject(&formerPen);
    target.SelectObject(&formerFont);
    target.ClearCalls();

    source.Replay(target);

    // The restoring selections are described as the same selections made directly.
    CRecordingDC reference;
    reference.SelectObject(&formerPen);
    reference.SelectObject(&formerFont);
    std::vector<std::string> expected = source.Descriptions();
    for (const std::string& d : reference.Descriptions()) {
        expected.push_back(d);
    }
    EXPECT_EQ(target.Descriptions(), expected);

    EXPECT_EQ(target.GetCurrentPen(), &formerPen);
    EXPECT_EQ(target.GetCurrentFont(), &formerFont);
    // The rest of the state follows the replayed calls.
    EXPECT_EQ(target.GetROP2(), R2_XORPEN);
    EXPECT_EQ(target.GetBkMode(), TRANSPARENT);
    EXPECT_EQ(target.GetTextAlign(), TA_BASELINE);
    EXPECT_TRUE(target.GetCurrentPosition() == CPoint(5, 6));
}

TEST(CRecordingDCReplay, ReplayedCallsCarryTheSameTypedFields) {
    CRecordingDC source;
    CPen pen(PS_SOLID, 3, 0x00ff00);
    CFont font;
    const tagLOGFONTA desc = FontOf(-12, "Plain");
    font.CreateFontIndirect(&desc);
    DrawEverything(source, pen, font);

    CRecordingDC target;
    source.Replay(target);
    ASSERT_GE(target.Calls().size(), source.Calls().size());
    for (std::size_t i = 0; i < source.Calls().size(); ++i) {
        const DCCall& a = source.Calls()[i];
        const DCCall& b = target.Calls()[i];
        EXPECT_EQ(a.op, b.op) << "call " << i;
        EXPECT_EQ(a.args, b.args) << "call " << i;
        EXPECT_EQ(a.counts, b.counts) << "call " << i;
        EXPECT_EQ(a.text, b.text) << "call " << i;
        ASSERT_EQ(a.points.size(), b.points.size()) << "call " << i;
        for (std::size_t k = 0; k < a.points.size(); ++k) {
            EXPECT_EQ(a.points[k].x, b.points[k].x);
            EXPECT_EQ(a.points[k].y, b.points[k].y);
        }
        EXPECT_EQ(a.font.lfHeight, b.font.lfHeight) << "call " << i;
        EXPECT_STREQ(a.font.lfFaceName, b.font.lfFaceName) << "call " << i;
    }
}

TEST(CRecordingDCReplay, FreshTargetGetsItsStockPenAndFontBack) {
    CRecordingDC source;
    CPen pen(PS_NULL, 0, 0);
    CFont font;
    const tagLOGFONTA desc = FontOf(40, "Plain");
    font.CreateFontIndirect(&desc);
    source.SelectObject(&pen);
    source.SelectObject(&font);
    source.TextOut(0, 0, "a", 1);

    CRecordingDC target;
    CPen* stockPen = target.GetCurrentPen();
    CFont* stockFont = target.GetCurrentFont();
    source.Replay(target);

    EXPECT_EQ(target.GetCurrentPen(), stockPen);
    EXPECT_EQ(target.GetCurrentFont(), stockFont);
    EXPECT_EQ(target.CharAdvance(), 8);
    // Three replayed calls and the two restoring selections.
    ASSERT_EQ(target.Calls().size(), 5u);
    EXPECT_EQ(target.Calls()[3].op, DCOp::SelectPen);
    EXPECT_EQ(target.Calls()[3].args, Args({0, 0, 0}));
    EXPECT_EQ(target.Calls()[4].op, DCOp::SelectFont);
    EXPECT_EQ(std::abs(target.Calls()[4].font.lfHeight), 16);
}

TEST(CRecordingDCReplay, PensAndFontsAreMadeAfreshFromTheDescriptions) {
    CRecordingDC source;
    CPen pen(PS_SOLID, 4, 0x0000ff);
    source.SelectObject(&pen);
    source.LineTo(3, 3);

    // The target sees a pen of the recorded style, width and colour; after the replay its own
    // stock pen is selected again, with its own values.
    CRecordingDC target;
    CPen* stockPen = target.GetCurrentPen();
    source.Replay(target);
    ASSERT_GE(target.Calls().size(), 3u);
    EXPECT_EQ(target.Calls()[0].op, DCOp::SelectPen);
    EXPECT_EQ(target.Calls()[0].args, Args({0, 4, 255}));
    EXPECT_EQ(target.Calls()[1].Describe(), "LineTo(3, 3)");
    EXPECT_EQ(target.Calls()[2].op, DCOp::SelectPen);
    EXPECT_EQ(target.Calls()[2].args, Args({0, 0, 0}));
    EXPECT_EQ(target.GetCurrentPen(), stockPen);
}

TEST(CRecordingDCReplay, EmptyRecordingReplaysNothing) {
    CRecordingDC source;
    CRecordingDC target;
    target.SetROP2(R2_XORPEN);
    target.ClearCalls();
    source.Replay(target);
    EXPECT_TRUE(target.Calls().empty());
    EXPECT_EQ(target.GetROP2(), R2_XORPEN);
}
