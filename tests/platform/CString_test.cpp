#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

#include "ravelin/platform/CString.h"
#include "support/RavelinTesting.h"

using namespace ravelin;
using ravelin::testing_support::ExpectThrowWithMessage;

// --- Construction ---------------------------------------------------------------------------

TEST(CString, DefaultIsEmpty) {
    const CString s;
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_EQ(s.GetLength(), 0);
    EXPECT_STREQ(s.GetString(), "");
}

TEST(CString, NullPointerGivesAnEmptyString) {
    const char* none = nullptr;
    const CString s(none);
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_EQ(s.GetLength(), 0);
    ASSERT_NE(s.GetString(), nullptr);
    EXPECT_STREQ(s.GetString(), "");
}

TEST(CString, FromTerminatedCharacters) {
    const CString s("edge");
    EXPECT_FALSE(s.IsEmpty());
    EXPECT_EQ(s.GetLength(), 4);
    EXPECT_STREQ(s.GetString(), "edge");
    EXPECT_EQ(s.str(), "edge");
}

TEST(CString, FromCountedCharactersTakesOnlyTheCount) {
    const CString s("edges", 3);
    EXPECT_EQ(s.GetLength(), 3);
    EXPECT_STREQ(s.GetString(), "edg");
}

TEST(CString, NegativeCountGivesAnEmptyString) {
    const CString s("edges", -1);
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_EQ(s.GetLength(), 0);
}

TEST(CString, FromStdStringAndStringView) {
    const CString a(std::string("abc"));
    const CString b(std::string_view("abcdef").substr(1, 2));
    EXPECT_EQ(a.GetLength(), 3);
    EXPECT_STREQ(a.GetString(), "abc");
    EXPECT_EQ(b.GetLength(), 2);
    EXPECT_STREQ(b.GetString(), "bc");
}

TEST(CString, ConvertsToTerminatedCharacters) {
    const CString s("nie");
    const char* p = s;
    EXPECT_EQ(std::strlen(p), 3u);
    EXPECT_STREQ(p, "nie");
}

TEST(CString, EmptyClearsTheText) {
    CString s("abc");
    s.Empty();
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_EQ(s.GetLength(), 0);
}

// --- Character access -----------------------------------------------------------------------

TEST(CString, GetAtReturnsEachCharacter) {
    const CString s("abc");
    EXPECT_EQ(s.GetAt(0), 'a');
    EXPECT_EQ(s.GetAt(1), 'b');
    EXPECT_EQ(s.GetAt(2), 'c');
}

TEST(CString, GetAtJustPastTheEndRaisesInvalidSubscript) {
    const CString s("abc");
    // The terminator is not a character of the string.
    ExpectThrowWithMessage<std::out_of_range>([&] { s.GetAt(3); }, "invalid vector<T> subscript");
}

TEST(CString, GetAtOfANegativeIndexRaisesInvalidSubscript) {
    const CString s("abc");
    ExpectThrowWithMessage<std::out_of_range>([&] { s.GetAt(-1); }, "invalid vector<T> subscript");
}

TEST(CString, GetAtOnAnEmptyStringRaisesInvalidSubscript) {
    const CString s;
    ExpectThrowWithMessage<std::out_of_range>([&] { s.GetAt(0); }, "invalid vector<T> subscript");
}

// --- Concatenation and comparison ----------------------------------------------------------

TEST(CString, PlusJoinsAndLeavesTheOperandsAlone) {
    const CString a("ab");
    const CString b("cd");
    const CString c = a + b;
    EXPECT_STREQ(c.GetString(), "abcd");
    EXPECT_EQ(c.GetLength(), 4);
    EXPECT_STREQ(a.GetString(), "ab");
    EXPECT_STREQ(b.GetString(), "cd");
}

TEST(CString, PlusEqualsAppendsAndReturnsItself) {
    CString a("ab");
    CString& r = (a += CString("cd"));
    EXPECT_EQ(&r, &a);
    EXPECT_STREQ(a.GetString(), "abcd");
    a += CString();
    EXPECT_STREQ(a.GetString(), "abcd");
}

TEST(CString, PlusWithCharacters) {
    const CString a("ed");
    const CString c = a + "ge";
    EXPECT_STREQ(c.GetString(), "edge");
}

TEST(CString, EqualityComparesTheCharacters) {
    EXPECT_TRUE(CString("abc") == CString("abc"));
    EXPECT_FALSE(CString("abc") == CString("abd"));
    EXPECT_FALSE(CString("abc") == CString("ab"));
    EXPECT_TRUE(CString("abc") != CString("ABC"));
    const char* none = nullptr;
    EXPECT_TRUE(CString(none) == CString());
}

TEST(CString, OrderingIsByCharacters) {
    EXPECT_TRUE(CString("abc") < CString("abd"));
    EXPECT_TRUE(CString("ab") < CString("abc"));
    EXPECT_TRUE(CString("b") > CString("abc"));
    EXPECT_TRUE(CString("") < CString("a"));
    EXPECT_TRUE(CString("abc") <= CString("abc"));
    EXPECT_TRUE(CString("abc") >= CString("abc"));
    EXPECT_FALSE(CString("abc") < CString("abc"));
}
