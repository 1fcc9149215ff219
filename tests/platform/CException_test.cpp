#include <gtest/gtest.h>

#include <exception>
#include <set>
#include <string>
#include <type_traits>

#include "ravelin/platform/CException.h"

using namespace ravelin;

namespace {

bool Contains(const char* text, const std::string& part) {
    return std::string(text).find(part) != std::string::npos;
}

const int kArchiveCauses[] = {
    CArchiveException::none,      CArchiveException::genericException, CArchiveException::readOnly,
    CArchiveException::endOfFile, CArchiveException::writeOnly,        CArchiveException::badIndex,
    CArchiveException::badClass,  CArchiveException::badSchema,
};

const int kFileCauses[] = {
    CFileException::none,         CFileException::genericException, CFileException::fileNotFound,
    CFileException::accessDenied, CFileException::diskFull,         CFileException::badSeek,
};

}  // namespace

TEST(CExceptionHierarchy, PlatformExceptionsAreStandardExceptions) {
    EXPECT_TRUE((std::is_base_of_v<std::exception, CException>));
    EXPECT_TRUE((std::is_base_of_v<CException, CArchiveException>));
    EXPECT_TRUE((std::is_base_of_v<CException, CFileException>));
}

// The cause numbers are part of the interface: callers compare m_cause with them.
TEST(CExceptionHierarchy, ArchiveCausesKeepTheirNumbers) {
    EXPECT_EQ(CArchiveException::none, 0);
    EXPECT_EQ(CArchiveException::genericException, 1);
    EXPECT_EQ(CArchiveException::readOnly, 2);
    EXPECT_EQ(CArchiveException::endOfFile, 3);
    EXPECT_EQ(CArchiveException::writeOnly, 4);
    EXPECT_EQ(CArchiveException::badIndex, 5);
    EXPECT_EQ(CArchiveException::badClass, 6);
    EXPECT_EQ(CArchiveException::badSchema, 7);
}

TEST(CArchiveExceptionFields, DefaultHasNoCauseAndNoFile) {
    const CArchiveException e;
    EXPECT_EQ(e.m_cause, CArchiveException::none);
    EXPECT_TRUE(e.m_strFileName.empty());
    EXPECT_STRNE(e.what(), "");
}

TEST(CArchiveExceptionFields, KeepsCauseAndFileName) {
    const CArchiveException e(CArchiveException::badSchema, "plan.rvl");
    EXPECT_EQ(e.m_cause, CArchiveException::badSchema);
    EXPECT_EQ(e.m_strFileName, "plan.rvl");
}

TEST(CArchiveExceptionText, EveryCauseHasItsOwnText) {
    std::set<std::string> texts;
    for (const int cause : kArchiveCauses) {
        SCOPED_TRACE(testing::Message() << "cause " << cause);
        const CArchiveException e(cause);
        EXPECT_STRNE(e.what(), "");
        EXPECT_TRUE(texts.insert(e.what()).second) << "repeated text: " << e.what();
    }
}

TEST(CArchiveExceptionText, MentionsTheFileNameWhenGiven) {
    for (const int cause : kArchiveCauses) {
        SCOPED_TRACE(testing::Message() << "cause " << cause);
        const CArchiveException plain(cause);
        const CArchiveException named(cause, "drawings/plan.rvl");
        EXPECT_TRUE(Contains(named.what(), "drawings/plan.rvl"));
        EXPECT_TRUE(Contains(named.what(), plain.what()));
        EXPECT_FALSE(Contains(plain.what(), "plan.rvl"));
    }
}

TEST(CArchiveExceptionText, CopyKeepsTheText) {
    const CArchiveException original(CArchiveException::endOfFile, "a.rvl");
    const CArchiveException copy = original;
    EXPECT_STREQ(copy.what(), original.what());
    EXPECT_EQ(copy.m_cause, CArchiveException::endOfFile);
    EXPECT_EQ(copy.m_strFileName, "a.rvl");
}

TEST(AfxThrowArchiveException, ThrowsCauseAndFileName) {
    try {
        AfxThrowArchiveException(CArchiveException::badClass, "model.rvl");
    } catch (const CArchiveException& e) {
        EXPECT_EQ(e.m_cause, CArchiveException::badClass);
        EXPECT_EQ(e.m_strFileName, "model.rvl");
        EXPECT_TRUE(Contains(e.what(), "model.rvl"));
        EXPECT_STREQ(e.what(), CArchiveException(CArchiveException::badClass, "model.rvl").what());
    }
}

TEST(AfxThrowArchiveException, WithoutFileNameLeavesItEmpty) {
    try {
        AfxThrowArchiveException(CArchiveException::endOfFile);
    } catch (const CArchiveException& e) {
        EXPECT_EQ(e.m_cause, CArchiveException::endOfFile);
        EXPECT_TRUE(e.m_strFileName.empty());
        EXPECT_STREQ(e.what(), CArchiveException(CArchiveException::endOfFile).what());
    }
}

TEST(AfxThrowArchiveException, IsCaughtAsPlatformAndStandardException) {
    EXPECT_THROW(AfxThrowArchiveException(CArchiveException::readOnly), CException);
    EXPECT_THROW(AfxThrowArchiveException(CArchiveException::readOnly), std::exception);
}

TEST(CFileExceptionFields, DefaultHasNoCauseAndNoFile) {
    const CFileException e;
    EXPECT_EQ(e.m_cause, CFileException::none);
    EXPECT_TRUE(e.m_strFileName.empty());
    EXPECT_STRNE(e.what(), "");
}

TEST(CFileExceptionText, EveryCauseHasItsOwnText) {
    std::set<std::string> texts;
    for (const int cause : kFileCauses) {
        SCOPED_TRACE(testing::Message() << "cause " << cause);
        const CFileException e(cause);
        EXPECT_STRNE(e.what(), "");
        EXPECT_TRUE(texts.insert(e.what()).second) << "repeated text: " << e.what();
    }
}

TEST(CFileExceptionText, MentionsTheFileNameWhenGiven) {
    for (const int cause : kFileCauses) {
        SCOPED_TRACE(testing::Message() << "cause " << cause);
        const CFileException plain(cause);
        const CFileException named(cause, "/tmp/missing.rvl");
        EXPECT_TRUE(Contains(named.what(), "/tmp/missing.rvl"));
        EXPECT_TRUE(Contains(named.what(), plain.what()));
        EXPECT_FALSE(Contains(plain.what(), "missing.rvl"));
    }
}

TEST(AfxThrowFileException, ThrowsCauseAndFileName) {
    try {
        AfxThrowFileException(CFileException::accessDenied, "locked.rvl");
    } catch (const CFileException& e) {
        EXPECT_EQ(e.m_cause, CFileException::accessDenied);
        EXPECT_EQ(e.m_strFileName, "locked.rvl");
        EXPECT_TRUE(Contains(e.what(), "locked.rvl"));
    }
}

TEST(AfxThrowFileException, WithoutFileNameLeavesItEmpty) {
    try {
        AfxThrowFileException(CFileException::badSeek, nullptr);
    } catch (const CFileException& e) {
        EXPECT_EQ(e.m_cause, CFileException::badSeek);
        EXPECT_TRUE(e.m_strFileName.empty());
    }
}

TEST(AfxThrowFileException, IsCaughtAsPlatformAndStandardException) {
    EXPECT_THROW(AfxThrowFileException(CFileException::diskFull), CException);
    EXPECT_THROW(AfxThrowFileException(CFileException::diskFull), std::exception);
}

TEST(CExceptionHierarchy, InvalidArgumentIsAPlatformException) {
    EXPECT_TRUE((std::is_base_of_v<CException, CInvalidArgException>));
    EXPECT_TRUE((std::is_base_of_v<std::exception, CInvalidArgException>));
}

TEST(CInvalidArgExceptionText, SaysInvalidArgument) {
    const CInvalidArgException e;
    EXPECT_STREQ(e.what(), "invalid argument");
}

TEST(CInvalidArgExceptionText, CopyKeepsTheText) {
    const CInvalidArgException original;
    const CInvalidArgException copy = original;
    EXPECT_STREQ(copy.what(), "invalid argument");
}

TEST(AfxThrowInvalidArgException, ThrowsAnInvalidArgument) {
    EXPECT_THROW(AfxThrowInvalidArgException(), CInvalidArgException);
}

TEST(AfxThrowInvalidArgException, IsCaughtAsPlatformAndStandardException) {
    EXPECT_THROW(AfxThrowInvalidArgException(), CException);
    EXPECT_THROW(AfxThrowInvalidArgException(), std::exception);
}

// The text survives catching through either base.
TEST(AfxThrowInvalidArgException, TextIsKeptThroughEveryBase) {
    try {
        AfxThrowInvalidArgException();
    } catch (const CException& e) {
        EXPECT_STREQ(e.what(), "invalid argument");
    }
    try {
        AfxThrowInvalidArgException();
    } catch (const std::exception& e) {
        EXPECT_STREQ(e.what(), "invalid argument");
    }
}

// It is not mistaken for the archive or file exceptions.
TEST(AfxThrowInvalidArgException, IsNeitherAnArchiveNorAFileException) {
    bool caughtAsOther = false;
    bool caughtAsInvalidArg = false;
    try {
        AfxThrowInvalidArgException();
    } catch (const CArchiveException&) {
        caughtAsOther = true;
    } catch (const CFileException&) {
        caughtAsOther = true;
    } catch (const CInvalidArgException&) {
        caughtAsInvalidArg = true;
    }
    EXPECT_FALSE(caughtAsOther);
    EXPECT_TRUE(caughtAsInvalidArg);
}
