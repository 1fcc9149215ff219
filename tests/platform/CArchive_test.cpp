#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/CArchive.h"
#include "ravelin/platform/CException.h"
#include "ravelin/platform/CFile.h"
#include "ravelin/platform/CObject.h"

#include "support/RavelinTesting.h"

namespace archive_test {

using ravelin::CArchive;
using ravelin::CObject;

// A serial class of schema 2 whose record is one 16-bit value.
class Counter : public CObject {
    RAVELIN_DECLARE_SERIAL(Counter)

public:
    std::uint16_t count = 0;

    void Serialize(CArchive& ar) override {
        if (ar.IsStoring()) {
            ar << count;
        } else {
            ar >> count;
        }
    }
};

RAVELIN_IMPLEMENT_SERIAL(Counter, CObject, 2)

// A class that has no run-time class of its own, so it cannot be made by name.
class Plain : public CObject {};

}  // namespace archive_test

using namespace ravelin;
using namespace ravelin::testing_support;
using archive_test::Counter;
using archive_test::Plain;

namespace {

// The 24-byte record of the points (1, 2, 3).
Bytes OneTwoThree() {
    return {0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0x3F, 0x00, 0x00, 0x00, 0x00,
            0x00, 0x00, 0x00, 0x40, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x08, 0x40};
}

}  // namespace

// --- Direction ----------------------------------------------------------------------------

TEST(CArchiveMode, StoringArchive) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    EXPECT_TRUE(ar.IsStoring());
    EXPECT_FALSE(ar.IsLoading());
    EXPECT_EQ(ar.GetFile(), &file);
}

TEST(CArchiveMode, LoadingArchive) {
    CMemFile file;
    CArchive ar(&file, CArchive::load);
    EXPECT_TRUE(ar.IsLoading());
    EXPECT_FALSE(ar.IsStoring());
    EXPECT_EQ(ar.GetFile(), &file);
}

TEST(CArchiveMode, WritingToLoadingArchiveIsReadOnly) {
    CMemFile file(Bytes(16, 0x00));
    CArchive ar(&file, CArchive::load);
    const std::uint8_t byte = 1;
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar << 1.0; }), CArchiveException::readOnly);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar << std::int32_t{1}; }),
              CArchiveException::readOnly);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar << std::uint32_t{1}; }),
              CArchiveException::readOnly);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar << std::uint16_t{1}; }),
              CArchiveException::readOnly);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar.Write(&byte, 1); }), CArchiveException::readOnly);
    const RvPoint3D point(1, 2, 3);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar.WriteObject(&point); }),
              CArchiveException::readOnly);
    EXPECT_EQ(file.GetData(), Bytes(16, 0x00));
}

TEST(CArchiveMode, ReadingFromStoringArchiveIsWriteOnly) {
    CMemFile file(Bytes(16, 0x00));
    CArchive ar(&file, CArchive::store);
    double d = 0;
    std::int32_t i32 = 0;
    std::uint32_t u32 = 0;
    std::uint16_t u16 = 0;
    std::uint8_t byte = 0;
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar >> d; }), CArchiveException::writeOnly);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar >> i32; }), CArchiveException::writeOnly);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar >> u32; }), CArchiveException::writeOnly);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar >> u16; }), CArchiveException::writeOnly);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar.Read(&byte, 1); }), CArchiveException::writeOnly);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar.ReadObject(nullptr); }),
              CArchiveException::writeOnly);
}

// --- Values -------------------------------------------------------------------------------

TEST(CArchiveValues, DoublesAreLittleEndianIeee) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    ar << 1.0 << -2.5;
    ar.Close();
    const Bytes expected = {0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0x3F,
                            0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x04, 0xC0};
    EXPECT_EQ(file.GetData(), expected);
}

TEST(CArchiveValues, IntegersAreLittleEndian) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    ar << std::int32_t{0x01020304} << std::int32_t{-2} << std::uint32_t{0xDEADBEEF}
       << std::uint16_t{0xABCD};
    const Bytes expected = {0x04, 0x03, 0x02, 0x01, 0xFE, 0xFF, 0xFF,
                            0xFF, 0xEF, 0xBE, 0xAD, 0xDE, 0xCD, 0xAB};
    EXPECT_EQ(file.GetData(), expected);
}

TEST(CArchiveValues, ValuesAreReadFromLittleEndianBytes) {
    CMemFile file(Bytes{0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x04, 0xC0,  // -2.5
                        0xFE, 0xFF, 0xFF, 0xFF,                          // -2
                        0xEF, 0xBE, 0xAD, 0xDE,                          // 0xDEADBEEF
                        0xCD, 0xAB});                                    // 0xABCD
    CArchive ar(&file, CArchive::load);
    double d = 0;
    std::int32_t i32 = 0;
    std::uint32_t u32 = 0;
    std::uint16_t u16 = 0;
    ar >> d >> i32 >> u32 >> u16;
    EXPECT_EQ(d, -2.5);
    EXPECT_EQ(i32, -2);
    EXPECT_EQ(u32, 0xDEADBEEFu);
    EXPECT_EQ(u16, 0xABCD);
}

TEST(CArchiveValues, RawBytesPassAsTheyAre) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    const std::uint8_t raw[] = {0x10, 0x00, 0xFF, 0x7F};
    ar.Write(raw, sizeof raw);
    EXPECT_EQ(file.GetData(), (Bytes{0x10, 0x00, 0xFF, 0x7F}));
}

TEST(CArchiveValues, RawReadReturnsWhatThereIs) {
    CMemFile file(Bytes{1, 2, 3});
    CArchive ar(&file, CArchive::load);
    std::uint8_t buffer[8] = {};
    EXPECT_EQ(ar.Read(buffer, 2), 2u);
    EXPECT_EQ(buffer[0], 1);
    EXPECT_EQ(buffer[1], 2);
    EXPECT_EQ(ar.Read(buffer, 8), 1u);
    EXPECT_EQ(buffer[0], 3);
    EXPECT_EQ(ar.Read(buffer, 8), 0u);
}

TEST(CArchiveValues, ReadingPastTheEndIsEndOfFile) {
    {
        CMemFile file(Bytes{1, 2, 3});
        CArchive ar(&file, CArchive::load);
        std::int32_t value = 0;
        EXPECT_EQ(CauseOf<CArchiveException>([&] { ar >> value; }), CArchiveException::endOfFile);
    }
    {
        CMemFile file(Bytes(7, 0x00));
        CArchive ar(&file, CArchive::load);
        double value = 0;
        EXPECT_EQ(CauseOf<CArchiveException>([&] { ar >> value; }), CArchiveException::endOfFile);
    }
    {
        CMemFile file;
        CArchive ar(&file, CArchive::load);
        std::uint16_t value = 0;
        EXPECT_EQ(CauseOf<CArchiveException>([&] { ar >> value; }), CArchiveException::endOfFile);
    }
    {
        CMemFile file(Bytes(4, 0x00));
        CArchive ar(&file, CArchive::load);
        std::uint32_t value = 0;
        ar >> value;
        EXPECT_EQ(value, 0u);
        EXPECT_EQ(CauseOf<CArchiveException>([&] { ar >> value; }), CArchiveException::endOfFile);
    }
}

TEST(CArchiveValues, PointRecordIsThreeDoubles) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    RvPoint3D(1, 2, 3).Serialize(ar);
    EXPECT_EQ(file.GetData(), OneTwoThree());
}

// --- Objects ------------------------------------------------------------------------------

TEST(CArchiveObjects, FirstObjectOfAClassCarriesTheClassName) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    const RvPoint3D point(1, 2, 3);
    ar.WriteObject(&point);
    // New-class tag, schema 1, name of 9 characters, the name, then the point's record.
    Bytes expected = {0xFF, 0xFF, 0x01, 0x00, 0x09, 0x00};
    AppendText(expected, "RvPoint3D");
    const Bytes record = OneTwoThree();
    expected.insert(expected.end(), record.begin(), record.end());
    EXPECT_EQ(file.GetData(), expected);
}

TEST(CArchiveObjects, SchemaOfTheClassIsWritten) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    Counter counter;
    counter.count = 0x0102;
    ar.WriteObject(&counter);
    Bytes expected = {0xFF, 0xFF, 0x02, 0x00, 0x07, 0x00};
    AppendText(expected, "Counter");
    expected.push_back(0x02);
    expected.push_back(0x01);
    EXPECT_EQ(file.GetData(), expected);
}

TEST(CArchiveObjects, RepeatedClassesAreReferencedByIndex) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    const RvPoint3D a(1, 2, 3);
    const RvPoint2D b(1, 2, 3);
    Counter c;
    ar.WriteObject(&a);  // class 1
    ar.WriteObject(&b);  // class 2
    ar.WriteObject(&c);  // class 3
    const std::size_t before = file.GetData().size();
    ar.WriteObject(&c);
    ar.WriteObject(&a);
    ar.WriteObject(&b);
    ar.WriteObject(nullptr);
    const Bytes& data = file.GetData();
    const Bytes tail(data.begin() + static_cast<std::ptrdiff_t>(before), data.end());
    Bytes expected = {0x03, 0x80, 0x00, 0x00};  // Counter, with its record 0
    expected.push_back(0x01);
    expected.push_back(0x80);
    const Bytes point = OneTwoThree();
    expected.insert(expected.end(), point.begin(), point.end());
    expected.push_back(0x02);
    expected.push_back(0x80);
    expected.insert(expected.end(), point.begin(), point.end());
    // RvPoint2D adds x2D = 1.0 and y2D = 2.0.
    const Bytes planar = {0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0x3F,
                          0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x40};
    expected.insert(expected.end(), planar.begin(), planar.end());
    expected.push_back(0x00);  // null
    expected.push_back(0x00);
    EXPECT_EQ(tail, expected);
}

TEST(CArchiveObjects, NullObjectIsTheNullTag) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    ar.WriteObject(nullptr);
    EXPECT_EQ(file.GetData(), (Bytes{0x00, 0x00}));
}

TEST(CArchiveObjects, ClassTableBelongsToOneArchive) {
    CMemFile file;
    const RvPoint3D point(1, 2, 3);
    {
        CArchive first(&file, CArchive::store);
        first.WriteObject(&point);
    }
    const std::size_t firstSize = file.GetData().size();
    {
        CArchive second(&file, CArchive::store);
        second.WriteObject(&point);
    }
    const Bytes& data = file.GetData();
    ASSERT_EQ(data.size(), 2 * firstSize);
    EXPECT_EQ(data[firstSize], 0xFF);
    EXPECT_EQ(data[firstSize + 1], 0xFF);
}

TEST(CArchiveObjects, ObjectWithoutFactoryIsBadClass) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    const Plain plain;
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar.WriteObject(&plain); }),
              CArchiveException::badClass);
}

TEST(CArchiveObjects, ObjectsReadBackWithTheirClassesAndValues) {
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        const RvPoint3D a(1, 2, 3);
        const RvPoint2D b(7, 8, 4, 5, 6);
        Counter c;
        c.count = 42;
        ar.WriteObject(&a);
        ar.WriteObject(&b);
        ar.WriteObject(nullptr);
        ar.WriteObject(&c);
        ar.WriteObject(&a);
        ar.Close();
    }
    CMemFile input(file.GetData());
    CArchive ar(&input, CArchive::load);

    const std::unique_ptr<CObject> first = ar.ReadObject(nullptr);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->GetRuntimeClass(), RUNTIME_CLASS(RvPoint3D));
    const auto& a = static_cast<const RvPoint3D&>(*first);
    EXPECT_EQ(a.x, 1);
    EXPECT_EQ(a.y, 2);
    EXPECT_EQ(a.z, 3);

    const std::unique_ptr<CObject> second = ar.ReadObject(RUNTIME_CLASS(RvPoint3D));
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->GetRuntimeClass(), RUNTIME_CLASS(RvPoint2D));
    const auto& b = static_cast<const RvPoint2D&>(*second);
    EXPECT_EQ(b.x, 4);
    EXPECT_EQ(b.y, 5);
    EXPECT_EQ(b.z, 6);
    EXPECT_EQ(b.x2D, 7);
    EXPECT_EQ(b.y2D, 8);

    EXPECT_EQ(ar.ReadObject(nullptr), nullptr);

    const std::unique_ptr<CObject> third = ar.ReadObject(RUNTIME_CLASS(Counter));
    ASSERT_NE(third, nullptr);
    EXPECT_EQ(static_cast<const Counter&>(*third).count, 42);

    const std::unique_ptr<CObject> fourth = ar.ReadObject(RUNTIME_CLASS(RvPoint3D));
    ASSERT_NE(fourth, nullptr);
    EXPECT_EQ(fourth->GetRuntimeClass(), RUNTIME_CLASS(RvPoint3D));
    EXPECT_EQ(static_cast<const RvPoint3D&>(*fourth).z, 3);
    EXPECT_EQ(input.GetPosition(), input.GetLength());
}

TEST(CArchiveObjects, UnexpectedClassIsBadClass) {
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        const RvPoint3D point(1, 2, 3);
        ar.WriteObject(&point);
    }
    {
        CMemFile input(file.GetData());
        CArchive ar(&input, CArchive::load);
        EXPECT_EQ(CauseOf<CArchiveException>([&] { ar.ReadObject(RUNTIME_CLASS(RvPoint2D)); }),
                  CArchiveException::badClass);
    }
    {
        CMemFile input(file.GetData());
        CArchive ar(&input, CArchive::load);
        EXPECT_EQ(CauseOf<CArchiveException>([&] { ar.ReadObject(RUNTIME_CLASS(Counter)); }),
                  CArchiveException::badClass);
    }
}

TEST(CArchiveObjects, UnknownClassNameIsBadClass) {
    Bytes bytes = {0xFF, 0xFF, 0x01, 0x00, 0x05, 0x00};
    AppendText(bytes, "Bogus");
    CMemFile file(bytes);
    CArchive ar(&file, CArchive::load);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar.ReadObject(nullptr); }),
              CArchiveException::badClass);
}

TEST(CArchiveObjects, OtherSchemaIsBadSchema) {
    Bytes bytes = {0xFF, 0xFF, 0x02, 0x00, 0x09, 0x00};
    AppendText(bytes, "RvPoint3D");
    const Bytes record = OneTwoThree();
    bytes.insert(bytes.end(), record.begin(), record.end());
    CMemFile file(bytes);
    CArchive ar(&file, CArchive::load);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar.ReadObject(nullptr); }),
              CArchiveException::badSchema);
}

TEST(CArchiveObjects, ClassIndexThatPointsNowhereIsBadIndex) {
    const Bytes tags[] = {{0x01, 0x80}, {0x00, 0x80}, {0x05, 0x00}, {0xFE, 0xFF}};
    for (const Bytes& tag : tags) {
        SCOPED_TRACE(testing::Message() << "tag " << std::hex << (tag[1] * 256 + tag[0]));
        CMemFile file(tag);
        CArchive ar(&file, CArchive::load);
        EXPECT_EQ(CauseOf<CArchiveException>([&] { ar.ReadObject(nullptr); }),
                  CArchiveException::badIndex);
    }
}

TEST(CArchiveObjects, IndexBeyondTheClassesReadSoFarIsBadIndex) {
    Bytes bytes = {0xFF, 0xFF, 0x01, 0x00, 0x09, 0x00};
    AppendText(bytes, "RvPoint3D");
    const Bytes record = OneTwoThree();
    bytes.insert(bytes.end(), record.begin(), record.end());
    bytes.push_back(0x02);
    bytes.push_back(0x80);
    bytes.insert(bytes.end(), record.begin(), record.end());
    CMemFile file(bytes);
    CArchive ar(&file, CArchive::load);
    EXPECT_NE(ar.ReadObject(nullptr), nullptr);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar.ReadObject(nullptr); }),
              CArchiveException::badIndex);
}

TEST(CArchiveObjects, TruncatedClassNameIsEndOfFile) {
    Bytes bytes = {0xFF, 0xFF, 0x01, 0x00, 0x09, 0x00};
    AppendText(bytes, "RvPoi");
    CMemFile file(bytes);
    CArchive ar(&file, CArchive::load);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar.ReadObject(nullptr); }),
              CArchiveException::endOfFile);
}

TEST(CArchiveObjects, TruncatedObjectRecordIsEndOfFile) {
    Bytes bytes = {0xFF, 0xFF, 0x01, 0x00, 0x09, 0x00};
    AppendText(bytes, "RvPoint3D");
    bytes.insert(bytes.end(), 20, 0x00);
    CMemFile file(bytes);
    CArchive ar(&file, CArchive::load);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { ar.ReadObject(nullptr); }),
              CArchiveException::endOfFile);
}
