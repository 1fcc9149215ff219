#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "ravelin/platform/CGdiObject.h"
#include "support/RavelinTesting.h"

using namespace ravelin;

namespace {

using ravelin::testing_support::FontOf;

}  // namespace

// --- Font description layout ----------------------------------------------------------------

TEST(tagLOGFONTA, IsSixtyBytes) {
    EXPECT_EQ(sizeof(tagLOGFONTA), 60u);
    EXPECT_EQ(sizeof(LOGFONTA), 60u);
}

TEST(tagLOGFONTA, HeightComesFirstAndTheFaceNameAtTwentyEight) {
    EXPECT_EQ(offsetof(tagLOGFONTA, lfHeight), 0u);
    EXPECT_EQ(offsetof(tagLOGFONTA, lfFaceName), 28u);
    EXPECT_EQ(sizeof(tagLOGFONTA::lfFaceName), 32u);
}

TEST(tagLOGFONTA, FiveIntegersThenEightBytes) {
    EXPECT_EQ(offsetof(tagLOGFONTA, lfWidth), 4u);
    EXPECT_EQ(offsetof(tagLOGFONTA, lfEscapement), 8u);
    EXPECT_EQ(offsetof(tagLOGFONTA, lfOrientation), 12u);
    EXPECT_EQ(offsetof(tagLOGFONTA, lfWeight), 16u);
    EXPECT_EQ(offsetof(tagLOGFONTA, lfItalic), 20u);
    EXPECT_EQ(offsetof(tagLOGFONTA, lfPitchAndFamily), 27u);
}

// --- CGdiObject -----------------------------------------------------------------------------

TEST(CGdiObject, StartsEmptyAndDeleteOfAnEmptyObjectGivesFalse) {
    CGdiObject o;
    EXPECT_FALSE(o.IsCreated());
    EXPECT_FALSE(o.DeleteObject());
    EXPECT_FALSE(o.IsCreated());
}

// --- CPen -----------------------------------------------------------------------------------

TEST(CPen, DefaultIsEmptySolidWidthZeroBlack) {
    const CPen pen;
    EXPECT_FALSE(pen.IsCreated());
    EXPECT_EQ(pen.GetStyle(), PS_SOLID);
    EXPECT_EQ(pen.GetWidth(), 0);
    EXPECT_EQ(pen.GetColor(), 0u);
}

TEST(CPen, CreatePenKeepsStyleWidthAndColour) {
    CPen pen;
    EXPECT_TRUE(pen.CreatePen(PS_NULL, 3, 0x00ff8040));
    EXPECT_TRUE(pen.IsCreated());
    EXPECT_EQ(pen.GetStyle(), PS_NULL);
    EXPECT_EQ(pen.GetWidth(), 3);
    EXPECT_EQ(pen.GetColor(), 0x00ff8040u);
}

TEST(CPen, ConstructorWithValuesCreatesThePen) {
    const CPen pen(PS_SOLID, 2, 0x0000ff);
    EXPECT_TRUE(pen.IsCreated());
    EXPECT_EQ(pen.GetStyle(), PS_SOLID);
    EXPECT_EQ(pen.GetWidth(), 2);
    EXPECT_EQ(pen.GetColor(), 0x0000ffu);
}

TEST(CPen, DeleteObjectEmptiesThePenOnce) {
    CPen pen(PS_SOLID, 2, 0x0000ff);
    EXPECT_TRUE(pen.DeleteObject());
    EXPECT_FALSE(pen.IsCreated());
    EXPECT_FALSE(pen.DeleteObject());
}

TEST(CPen, CanBeCreatedAgainAfterDelete) {
    CPen pen(PS_SOLID, 2, 0x0000ff);
    pen.DeleteObject();
    EXPECT_TRUE(pen.CreatePen(PS_SOLID, 5, 0x010203));
    EXPECT_TRUE(pen.IsCreated());
    EXPECT_EQ(pen.GetWidth(), 5);
    EXPECT_EQ(pen.GetColor(), 0x010203u);
}

TEST(CPen, DeletesThroughTheBase) {
    CPen pen(PS_SOLID, 1, 0);
    CGdiObject& base = pen;
    EXPECT_TRUE(base.IsCreated());
    EXPECT_TRUE(base.DeleteObject());
    EXPECT_FALSE(pen.IsCreated());
}

// --- CFont ----------------------------------------------------------------------------------

TEST(CFont, DefaultIsEmpty) {
    const CFont font;
    EXPECT_FALSE(font.IsCreated());
    tagLOGFONTA out = FontOf(99, "Untouched");
    EXPECT_FALSE(font.GetLogFont(&out));
    // Nothing was copied out of an empty font.
    EXPECT_EQ(out.lfHeight, 99);
    EXPECT_STREQ(out.lfFaceName, "Untouched");
}

TEST(CFont, CreateFontIndirectOfNullFailsAndStaysEmpty) {
    CFont font;
    EXPECT_FALSE(font.CreateFontIndirect(nullptr));
    EXPECT_FALSE(font.IsCreated());
}

TEST(CFont, CreateFontIndirectKeepsACopy) {
    CFont font;
    tagLOGFONTA desc = FontOf(-20, "Plain");
    desc.lfWeight = 700;
    desc.lfItalic = 1;
    EXPECT_TRUE(font.CreateFontIndirect(&desc));
    EXPECT_TRUE(font.IsCreated());
    // Changing the description afterwards does not reach the font.
    desc.lfHeight = 5;
    std::strncpy(desc.lfFaceName, "Other", sizeof(desc.lfFaceName) - 1);
    EXPECT_EQ(font.LogFont().lfHeight, -20);
    EXPECT_EQ(font.LogFont().lfWeight, 700);
    EXPECT_EQ(font.LogFont().lfItalic, 1);
    EXPECT_STREQ(font.LogFont().lfFaceName, "Plain");
}

TEST(CFont, GetLogFontCopiesTheDescription) {
    CFont font;
    const tagLOGFONTA desc = FontOf(14, "Plain");
    font.CreateFontIndirect(&desc);
    tagLOGFONTA out{};
    EXPECT_TRUE(font.GetLogFont(&out));
    EXPECT_EQ(std::memcmp(&out, &desc, sizeof(tagLOGFONTA)), 0);
}

TEST(CFont, GetLogFontToNullGivesFalse) {
    CFont font;
    const tagLOGFONTA desc = FontOf(14, "Plain");
    font.CreateFontIndirect(&desc);
    EXPECT_FALSE(font.GetLogFont(nullptr));
}

TEST(CFont, DeleteObjectEmptiesTheFont) {
    CFont font;
    const tagLOGFONTA desc = FontOf(14, "Plain");
    font.CreateFontIndirect(&desc);
    EXPECT_TRUE(font.DeleteObject());
    EXPECT_FALSE(font.IsCreated());
    tagLOGFONTA out{};
    EXPECT_FALSE(font.GetLogFont(&out));
    EXPECT_FALSE(font.DeleteObject());
}
