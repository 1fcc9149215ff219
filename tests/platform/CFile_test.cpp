#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/CArchive.h"
#include "ravelin/platform/CException.h"
#include "ravelin/platform/CFile.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

// Each test works in a directory of its own under the test temporary directory, removed
// afterwards.
class CFileOnDisk : public testing::Test {
protected:
    void SetUp() override {
        const testing::TestInfo* info = testing::UnitTest::GetInstance()->current_test_info();
        std::random_device random;
        m_directory =
            std::filesystem::path(testing::TempDir()) /
            ("ravelin_CFile_" + std::string(info->name()) + "_" + std::to_string(random()));
        std::filesystem::create_directories(m_directory);
    }

    void TearDown() override {
        std::error_code ignored;
        std::filesystem::remove_all(m_directory, ignored);
    }

    std::string PathOf(const std::string& name) const { return (m_directory / name).string(); }

    static void WriteFile(const std::string& path, const Bytes& bytes) {
        std::ofstream out(path, std::ios::binary);
        out.write(reinterpret_cast<const char*>(bytes.data()),
                  static_cast<std::streamsize>(bytes.size()));
    }

    static Bytes ReadFile(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

private:
    std::filesystem::path m_directory;
};

const Bytes kTen = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};

}  // namespace

// --- CFile --------------------------------------------------------------------------------

TEST_F(CFileOnDisk, WrittenBytesAreReadBack) {
    const std::string path = PathOf("data.bin");
    const Bytes written = {'r', 'a', 'v', 0x00, 0x01, 0xFF, 0x80, '\n', '\r', 0x7F};
    {
        CFile out(path.c_str(), CFile::modeCreate | CFile::modeWrite);
        out.Write(written.data(), static_cast<unsigned>(written.size()));
        out.Close();
    }
    EXPECT_EQ(ReadFile(path), written);

    CFile in(path.c_str(), CFile::modeRead);
    Bytes buffer(16, 0xAA);
    EXPECT_EQ(in.Read(buffer.data(), 16), 10u);
    EXPECT_EQ(Bytes(buffer.begin(), buffer.begin() + 10), written);
    EXPECT_EQ(in.Read(buffer.data(), 16), 0u);
}

TEST_F(CFileOnDisk, LengthAndPositionFollowTheWrites) {
    const std::string path = PathOf("data.bin");
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeReadWrite);
    EXPECT_EQ(file.GetLength(), 0u);
    EXPECT_EQ(file.GetPosition(), 0u);
    file.Write(kTen.data(), 4);
    EXPECT_EQ(file.GetPosition(), 4u);
    file.Write(kTen.data() + 4, 6);
    EXPECT_EQ(file.GetPosition(), 10u);
    EXPECT_EQ(file.GetLength(), 10u);
}

TEST_F(CFileOnDisk, GetLengthKeepsThePosition) {
    const std::string path = PathOf("data.bin");
    WriteFile(path, kTen);
    CFile file(path.c_str(), CFile::modeRead);
    file.Seek(3, CFile::begin);
    EXPECT_EQ(file.GetLength(), 10u);
    EXPECT_EQ(file.GetPosition(), 3u);
    std::uint8_t byte = 0;
    EXPECT_EQ(file.Read(&byte, 1), 1u);
    EXPECT_EQ(byte, 3);
}

TEST_F(CFileOnDisk, SeekReturnsTheNewPosition) {
    const std::string path = PathOf("data.bin");
    WriteFile(path, kTen);
    CFile file(path.c_str(), CFile::modeRead);
    std::uint8_t byte = 0;

    EXPECT_EQ(file.Seek(4, CFile::begin), 4u);
    EXPECT_EQ(file.Read(&byte, 1), 1u);
    EXPECT_EQ(byte, 4);

    EXPECT_EQ(file.Seek(2, CFile::current), 7u);
    EXPECT_EQ(file.GetPosition(), 7u);
    EXPECT_EQ(file.Read(&byte, 1), 1u);
    EXPECT_EQ(byte, 7);

    EXPECT_EQ(file.Seek(-1, CFile::end), 9u);
    EXPECT_EQ(file.Read(&byte, 1), 1u);
    EXPECT_EQ(byte, 9);

    EXPECT_EQ(file.Seek(-3, CFile::current), 7u);
    EXPECT_EQ(file.Seek(0, CFile::end), 10u);
    EXPECT_EQ(file.Read(&byte, 1), 0u);
}

TEST_F(CFileOnDisk, SeekBeforeTheStartIsBadSeek) {
    const std::string path = PathOf("data.bin");
    WriteFile(path, kTen);
    CFile file(path.c_str(), CFile::modeRead);
    EXPECT_EQ(CauseOf<CFileException>([&] { file.Seek(-1, CFile::begin); }),
              CFileException::badSeek);
    EXPECT_EQ(CauseOf<CFileException>([&] { file.Seek(-11, CFile::end); }),
              CFileException::badSeek);
    file.Seek(2, CFile::begin);
    EXPECT_EQ(CauseOf<CFileException>([&] { file.Seek(-3, CFile::current); }),
              CFileException::badSeek);
}

TEST_F(CFileOnDisk, ConstructorRaisesWhenTheFileCannotBeOpened) {
    const std::string path = PathOf("missing.bin");
    try {
        CFile file(path.c_str(), CFile::modeRead);
        ADD_FAILURE() << "the constructor did not raise";
    } catch (const CFileException& e) {
        EXPECT_EQ(e.m_cause, CFileException::fileNotFound);
        EXPECT_EQ(e.m_strFileName, path);
        EXPECT_NE(std::string(e.what()).find(path), std::string::npos);
    }
}

TEST_F(CFileOnDisk, ConstructorRaisesForAMissingDirectory) {
    const std::string path = PathOf("no/such/directory/out.bin");
    EXPECT_THROW(CFile(path.c_str(), CFile::modeCreate | CFile::modeWrite), CFileException);
}

TEST_F(CFileOnDisk, OpenReturnsFalseWhenTheFileCannotBeOpened) {
    CFile file;
    EXPECT_FALSE(file.Open(PathOf("missing.bin").c_str(), CFile::modeRead));
    const std::string path = PathOf("data.bin");
    WriteFile(path, kTen);
    EXPECT_TRUE(file.Open(path.c_str(), CFile::modeRead));
    EXPECT_EQ(file.GetLength(), 10u);
}

TEST_F(CFileOnDisk, FileThatIsNotOpenRaises) {
    CFile file;
    std::uint8_t byte = 0;
    EXPECT_THROW(file.Read(&byte, 1), CFileException);
    EXPECT_THROW(file.Write(&byte, 1), CFileException);
    EXPECT_THROW(file.GetLength(), CFileException);
    EXPECT_THROW(file.GetPosition(), CFileException);
}

TEST_F(CFileOnDisk, ClosedFileRaisesAndClosingAgainIsHarmless) {
    const std::string path = PathOf("data.bin");
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
    file.Close();
    EXPECT_NO_THROW(file.Close());
    EXPECT_THROW(file.Write(kTen.data(), 1), CFileException);
}

TEST_F(CFileOnDisk, CreateEmptiesAnExistingFile) {
    const std::string path = PathOf("data.bin");
    WriteFile(path, kTen);
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
    EXPECT_EQ(file.GetLength(), 0u);
}

TEST_F(CFileOnDisk, ReadWriteWithoutCreateOverwritesInPlace) {
    const std::string path = PathOf("data.bin");
    WriteFile(path, Bytes{'a', 'b', 'c', 'd', 'e', 'f'});
    {
        CFile file(path.c_str(), CFile::modeReadWrite);
        EXPECT_EQ(file.GetLength(), 6u);
        file.Write("XY", 2);
        file.Close();
    }
    EXPECT_EQ(ReadFile(path), (Bytes{'X', 'Y', 'c', 'd', 'e', 'f'}));
}

TEST_F(CFileOnDisk, WriteWithoutCreateNeedsAnExistingFile) {
    CFile file;
    EXPECT_FALSE(file.Open(PathOf("missing.bin").c_str(), CFile::modeWrite));
}

TEST_F(CFileOnDisk, ReadWriteWithCreateReadsBackAfterSeek) {
    const std::string path = PathOf("data.bin");
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeReadWrite);
    file.Write(kTen.data(), 10);
    file.Seek(0, CFile::begin);
    Bytes buffer(10, 0xAA);
    EXPECT_EQ(file.Read(buffer.data(), 10), 10u);
    EXPECT_EQ(buffer, kTen);
}

TEST_F(CFileOnDisk, FlushMakesTheBytesVisible) {
    const std::string path = PathOf("data.bin");
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
    file.Write(kTen.data(), 5);
    file.Flush();
    EXPECT_EQ(std::filesystem::file_size(path), 5u);
    EXPECT_EQ(ReadFile(path), Bytes(kTen.begin(), kTen.begin() + 5));
}

TEST_F(CFileOnDisk, DestructorClosesTheFile) {
    const std::string path = PathOf("data.bin");
    {
        CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
        file.Write(kTen.data(), 10);
    }
    EXPECT_EQ(ReadFile(path), kTen);
}

TEST_F(CFileOnDisk, ArchiveRoundTripThroughAFile) {
    const std::string path = PathOf("points.bin");
    {
        CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
        CArchive ar(&file, CArchive::store);
        RvPoint3D(1.5, -2, 1e10).Serialize(ar);
        ar << std::int32_t{-7} << 0.125;
        ar.Close();
        file.Close();
    }
    EXPECT_EQ(std::filesystem::file_size(path), 24u + 4u + 8u);

    CFile file(path.c_str(), CFile::modeRead);
    CArchive ar(&file, CArchive::load);
    RvPoint3D point;
    point.Serialize(ar);
    std::int32_t count = 0;
    double value = 0;
    ar >> count >> value;
    EXPECT_EQ(point.x, 1.5);
    EXPECT_EQ(point.y, -2);
    EXPECT_EQ(point.z, 1e10);
    EXPECT_EQ(count, -7);
    EXPECT_EQ(value, 0.125);
    EXPECT_THROW(ar >> value, CArchiveException);
}

// --- CMemFile -----------------------------------------------------------------------------

TEST(CMemFile, StartsEmpty) {
    CMemFile file;
    EXPECT_EQ(file.GetLength(), 0u);
    EXPECT_EQ(file.GetPosition(), 0u);
    EXPECT_TRUE(file.GetData().empty());
    std::uint8_t byte = 0;
    EXPECT_EQ(file.Read(&byte, 1), 0u);
}

TEST(CMemFile, StartsFromGivenBytesAtPositionZero) {
    CMemFile file(kTen);
    EXPECT_EQ(file.GetLength(), 10u);
    EXPECT_EQ(file.GetPosition(), 0u);
    EXPECT_EQ(file.GetData(), kTen);
    Bytes buffer(3);
    EXPECT_EQ(file.Read(buffer.data(), 3), 3u);
    EXPECT_EQ(buffer, (Bytes{0, 1, 2}));
    EXPECT_EQ(file.GetPosition(), 3u);
}

TEST(CMemFile, GrowsAsItIsWritten) {
    CMemFile file;
    file.Write(kTen.data(), 3);
    EXPECT_EQ(file.GetLength(), 3u);
    EXPECT_EQ(file.GetPosition(), 3u);
    file.Write(kTen.data() + 3, 7);
    EXPECT_EQ(file.GetLength(), 10u);
    EXPECT_EQ(file.GetData(), kTen);
}

TEST(CMemFile, WritingInsideDoesNotGrow) {
    CMemFile file(kTen);
    file.Seek(4, CFile::begin);
    const std::uint8_t bytes[] = {0xAA, 0xBB};
    file.Write(bytes, 2);
    EXPECT_EQ(file.GetLength(), 10u);
    EXPECT_EQ(file.GetPosition(), 6u);
    EXPECT_EQ(file.GetData(), (Bytes{0, 1, 2, 3, 0xAA, 0xBB, 6, 7, 8, 9}));
}

TEST(CMemFile, WritingAcrossTheEndGrowsByTheOverhang) {
    CMemFile file(Bytes{1, 2, 3});
    file.Seek(2, CFile::begin);
    const std::uint8_t bytes[] = {7, 8, 9, 10};
    file.Write(bytes, 4);
    EXPECT_EQ(file.GetData(), (Bytes{1, 2, 7, 8, 9, 10}));
}

TEST(CMemFile, SeekPastTheEndThenWriteFillsTheGapWithZeros) {
    CMemFile file(Bytes{1, 2});
    EXPECT_EQ(file.Seek(5, CFile::begin), 5u);
    EXPECT_EQ(file.GetLength(), 2u);
    const std::uint8_t bytes[] = {7, 8};
    file.Write(bytes, 2);
    EXPECT_EQ(file.GetLength(), 7u);
    EXPECT_EQ(file.GetPosition(), 7u);
    EXPECT_EQ(file.GetData(), (Bytes{1, 2, 0, 0, 0, 7, 8}));
}

TEST(CMemFile, ReadPastTheEndReturnsNothing) {
    CMemFile file(Bytes{1, 2});
    file.Seek(5, CFile::begin);
    std::uint8_t byte = 0xAA;
    EXPECT_EQ(file.Read(&byte, 1), 0u);
    EXPECT_EQ(byte, 0xAA);
}

TEST(CMemFile, ReadAtTheEndReturnsZeroAndShortReadsReturnWhatThereIs) {
    CMemFile file(Bytes{1, 2, 3});
    Bytes buffer(8, 0);
    EXPECT_EQ(file.Read(buffer.data(), 8), 3u);
    EXPECT_EQ(Bytes(buffer.begin(), buffer.begin() + 3), (Bytes{1, 2, 3}));
    EXPECT_EQ(file.GetPosition(), 3u);
    EXPECT_EQ(file.Read(buffer.data(), 8), 0u);
    EXPECT_EQ(file.GetPosition(), 3u);
}

TEST(CMemFile, SeekFromEachOrigin) {
    CMemFile file(kTen);
    EXPECT_EQ(file.Seek(6, CFile::begin), 6u);
    EXPECT_EQ(file.Seek(-2, CFile::current), 4u);
    EXPECT_EQ(file.Seek(-3, CFile::end), 7u);
    std::uint8_t byte = 0;
    EXPECT_EQ(file.Read(&byte, 1), 1u);
    EXPECT_EQ(byte, 7);
}

TEST(CMemFile, SeekBeforeTheStartIsBadSeek) {
    CMemFile file(kTen);
    file.Seek(3, CFile::begin);
    EXPECT_EQ(CauseOf<CFileException>([&] { file.Seek(-1, CFile::begin); }),
              CFileException::badSeek);
    EXPECT_EQ(CauseOf<CFileException>([&] { file.Seek(-4, CFile::current); }),
              CFileException::badSeek);
    EXPECT_EQ(CauseOf<CFileException>([&] { file.Seek(-11, CFile::end); }),
              CFileException::badSeek);
    EXPECT_EQ(file.GetPosition(), 3u);
}

TEST(CMemFile, WritingNothingChangesNothing) {
    CMemFile file;
    file.Seek(4, CFile::begin);
    file.Write(kTen.data(), 0);
    EXPECT_EQ(file.GetLength(), 0u);
    EXPECT_EQ(file.GetPosition(), 4u);
}

TEST(CMemFile, CannotOpenANamedFile) {
    CMemFile file(kTen);
    EXPECT_FALSE(file.Open("anything.bin", CFile::modeRead));
    EXPECT_EQ(file.GetData(), kTen);
}

TEST(CMemFile, FlushAndCloseKeepTheData) {
    CMemFile file(kTen);
    file.Flush();
    file.Close();
    EXPECT_EQ(file.GetData(), kTen);
}
