#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/numeric/RvPointMatrix.h"
#include "ravelin/platform/CArchive.h"
#include "ravelin/platform/CFile.h"
#include "ravelin/platform/CObject.h"

namespace object_test {

using ravelin::CObject;

// A serial class declared outside the library, registered when the program starts.
class Shape : public CObject {
    RAVELIN_DECLARE_SERIAL(Shape)

public:
    int sides = 4;
};

RAVELIN_IMPLEMENT_SERIAL(Shape, CObject, 3)

// A serial class derived from another one outside the library.
class Triangle : public Shape {
    RAVELIN_DECLARE_SERIAL(Triangle)

public:
    Triangle() { sides = 3; }
};

RAVELIN_IMPLEMENT_SERIAL(Triangle, Shape, 3)

// A class with no run-time class of its own: it answers with the root's.
class Plain : public CObject {};

}  // namespace object_test

using namespace ravelin;
using object_test::Plain;
using object_test::Shape;
using object_test::Triangle;

// --- Run-time classes ---------------------------------------------------------------------

TEST(CRuntimeClassFields, RootClass) {
    const CRuntimeClass& root = CObject::classCObject;
    EXPECT_STREQ(root.m_lpszClassName, "CObject");
    EXPECT_EQ(root.m_wSchema, CRuntimeClass::kNoSchema);
    EXPECT_EQ(root.m_pfnCreateObject, nullptr);
    EXPECT_EQ(root.m_pBaseClass, nullptr);
}

TEST(CRuntimeClassFields, PointClasses) {
    const CRuntimeClass* point3D = RUNTIME_CLASS(RvPoint3D);
    EXPECT_STREQ(point3D->m_lpszClassName, "RvPoint3D");
    EXPECT_EQ(point3D->m_wSchema, 1u);
    EXPECT_NE(point3D->m_pfnCreateObject, nullptr);
    EXPECT_EQ(point3D->m_pBaseClass, &CObject::classCObject);

    const CRuntimeClass* point2D = RUNTIME_CLASS(RvPoint2D);
    EXPECT_STREQ(point2D->m_lpszClassName, "RvPoint2D");
    EXPECT_EQ(point2D->m_wSchema, 1u);
    EXPECT_NE(point2D->m_pfnCreateObject, nullptr);
    EXPECT_EQ(point2D->m_pBaseClass, point3D);
}

TEST(CRuntimeClassFields, ClassDeclaredOutsideTheLibrary) {
    const CRuntimeClass* shape = RUNTIME_CLASS(Shape);
    EXPECT_STREQ(shape->m_lpszClassName, "Shape");
    EXPECT_EQ(shape->m_wSchema, 3u);
    EXPECT_EQ(shape->m_pBaseClass, &CObject::classCObject);
    EXPECT_EQ(RUNTIME_CLASS(Triangle)->m_pBaseClass, shape);
}

TEST(CRuntimeClassDerivation, FollowsTheBaseChain) {
    const CRuntimeClass* root = &CObject::classCObject;
    const CRuntimeClass* point3D = RUNTIME_CLASS(RvPoint3D);
    const CRuntimeClass* point2D = RUNTIME_CLASS(RvPoint2D);
    EXPECT_TRUE(point2D->IsDerivedFrom(point2D));
    EXPECT_TRUE(point2D->IsDerivedFrom(point3D));
    EXPECT_TRUE(point2D->IsDerivedFrom(root));
    EXPECT_TRUE(point3D->IsDerivedFrom(root));
    EXPECT_TRUE(root->IsDerivedFrom(root));
    EXPECT_FALSE(point3D->IsDerivedFrom(point2D));
    EXPECT_FALSE(root->IsDerivedFrom(point3D));
    EXPECT_FALSE(RUNTIME_CLASS(RvPointMatrix)->IsDerivedFrom(point3D));
    EXPECT_FALSE(point2D->IsDerivedFrom(RUNTIME_CLASS(RvPointMatrix)));
    EXPECT_TRUE(RUNTIME_CLASS(Triangle)->IsDerivedFrom(RUNTIME_CLASS(Shape)));
    EXPECT_FALSE(RUNTIME_CLASS(Triangle)->IsDerivedFrom(point3D));
    EXPECT_FALSE(point2D->IsDerivedFrom(nullptr));
}

TEST(CRuntimeClassByName, FindsTheLibrarysSerialClasses) {
    EXPECT_EQ(CRuntimeClass::FromName("RvPoint3D"), RUNTIME_CLASS(RvPoint3D));
    EXPECT_EQ(CRuntimeClass::FromName("RvPoint2D"), RUNTIME_CLASS(RvPoint2D));
    EXPECT_EQ(CRuntimeClass::FromName("RvPointMatrix"), RUNTIME_CLASS(RvPointMatrix));
}

TEST(CRuntimeClassByName, FindsClassesRegisteredByTheProgram) {
    EXPECT_EQ(CRuntimeClass::FromName("Shape"), RUNTIME_CLASS(Shape));
    EXPECT_EQ(CRuntimeClass::FromName("Triangle"), RUNTIME_CLASS(Triangle));
}

TEST(CRuntimeClassByName, UnknownNamesGiveNull) {
    EXPECT_EQ(CRuntimeClass::FromName("RvPoint4D"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName(""), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("rvpoint3d"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("RvPoint3"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("RvPoint3D "), nullptr);
    // The root is not a serial class and is not registered.
    EXPECT_EQ(CRuntimeClass::FromName("CObject"), nullptr);
    EXPECT_EQ(CRuntimeClass::CreateObject("Nothing"), nullptr);
}

TEST(CRuntimeClassByName, RegisteringAgainKeepsOneEntry) {
    EXPECT_TRUE(CRuntimeClass::Register(RUNTIME_CLASS(Shape)));
    EXPECT_EQ(CRuntimeClass::FromName("Shape"), RUNTIME_CLASS(Shape));
}

TEST(CRuntimeClassCreation, CreatesDefaultObjectsByName) {
    const std::unique_ptr<CObject> point3D = CRuntimeClass::CreateObject("RvPoint3D");
    ASSERT_NE(point3D, nullptr);
    EXPECT_EQ(point3D->GetRuntimeClass(), RUNTIME_CLASS(RvPoint3D));
    const auto& p = dynamic_cast<const RvPoint3D&>(*point3D);
    EXPECT_EQ(p.x, 0);
    EXPECT_EQ(p.y, 0);
    EXPECT_EQ(p.z, 0);

    const std::unique_ptr<CObject> point2D = CRuntimeClass::CreateObject("RvPoint2D");
    ASSERT_NE(point2D, nullptr);
    const auto* q = dynamic_cast<const RvPoint2D*>(point2D.get());
    ASSERT_NE(q, nullptr);
    EXPECT_EQ(q->x2D, 0);
    EXPECT_EQ(q->y2D, 0);

    const std::unique_ptr<CObject> matrix = CRuntimeClass::CreateObject("RvPointMatrix");
    ASSERT_NE(matrix, nullptr);
    EXPECT_NE(dynamic_cast<const RvPointMatrix*>(matrix.get()), nullptr);

    const std::unique_ptr<CObject> triangle = CRuntimeClass::CreateObject("Triangle");
    ASSERT_NE(triangle, nullptr);
    EXPECT_EQ(dynamic_cast<const Triangle&>(*triangle).sides, 3);
}

TEST(CRuntimeClassCreation, MemberCreateObjectMakesTheClass) {
    const std::unique_ptr<CObject> shape = RUNTIME_CLASS(Shape)->CreateObject();
    ASSERT_NE(shape, nullptr);
    EXPECT_EQ(shape->GetRuntimeClass(), RUNTIME_CLASS(Shape));
    EXPECT_EQ(dynamic_cast<const Shape&>(*shape).sides, 4);
}

TEST(CRuntimeClassCreation, RootCannotBeMade) {
    EXPECT_EQ(CObject::classCObject.CreateObject(), nullptr);
}

// --- Objects ------------------------------------------------------------------------------

TEST(CObjectRuntimeClass, IsTheDynamicClassThroughABaseReference) {
    const RvPoint2D point(1, 2);
    const CObject& object = point;
    EXPECT_EQ(object.GetRuntimeClass(), RUNTIME_CLASS(RvPoint2D));
    const RvPoint3D& asPoint3D = point;
    EXPECT_EQ(asPoint3D.GetRuntimeClass(), RUNTIME_CLASS(RvPoint2D));
    const Plain plain;
    EXPECT_EQ(plain.GetRuntimeClass(), &CObject::classCObject);
}

TEST(CObjectRuntimeClass, IsKindOfFollowsTheBaseChain) {
    const RvPoint2D point2D;
    const RvPoint3D point3D;
    const RvPointMatrix matrix;
    EXPECT_TRUE(point2D.IsKindOf(RUNTIME_CLASS(RvPoint2D)));
    EXPECT_TRUE(point2D.IsKindOf(RUNTIME_CLASS(RvPoint3D)));
    EXPECT_TRUE(point2D.IsKindOf(&CObject::classCObject));
    EXPECT_TRUE(point3D.IsKindOf(&CObject::classCObject));
    EXPECT_FALSE(point3D.IsKindOf(RUNTIME_CLASS(RvPoint2D)));
    EXPECT_FALSE(matrix.IsKindOf(RUNTIME_CLASS(RvPoint3D)));
    EXPECT_TRUE(Triangle().IsKindOf(RUNTIME_CLASS(Shape)));
    EXPECT_FALSE(Shape().IsKindOf(RUNTIME_CLASS(Triangle)));
}

TEST(CObjectRuntimeClass, SerialClassesAreSerializable) {
    EXPECT_TRUE(RvPoint3D().IsSerializable());
    EXPECT_TRUE(RvPoint2D().IsSerializable());
    EXPECT_TRUE(RvPointMatrix().IsSerializable());
    EXPECT_TRUE(Shape().IsSerializable());
    EXPECT_FALSE(Plain().IsSerializable());
}

TEST(CObjectDiagnostics, DumpNamesTheClassAndTheAddress) {
    const RvPoint2D point(1, 2);
    std::ostringstream dump;
    point.Dump(dump);
    std::ostringstream address;
    address << static_cast<const void*>(&point);
    EXPECT_NE(dump.str().find("RvPoint2D"), std::string::npos);
    EXPECT_NE(dump.str().find(address.str()), std::string::npos);
}

TEST(CObjectDiagnostics, DumpOfTheRootNamesTheRoot) {
    const Plain plain;
    std::ostringstream dump;
    plain.Dump(dump);
    EXPECT_NE(dump.str().find("CObject"), std::string::npos);
}

TEST(CObjectDiagnostics, AssertValidAcceptsAnObject) {
    const RvPoint3D point(1, 2, 3);
    EXPECT_NO_THROW(point.AssertValid());
    EXPECT_NO_THROW(Plain().AssertValid());
}

TEST(CObjectSerialize, RootWritesNothing) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    Plain plain;
    plain.Serialize(ar);
    EXPECT_EQ(file.GetLength(), 0u);
}

TEST(CObjectSerialize, RootReadsNothing) {
    CMemFile file(std::vector<std::uint8_t>{1, 2, 3});
    CArchive ar(&file, CArchive::load);
    Plain plain;
    plain.Serialize(ar);
    EXPECT_EQ(file.GetPosition(), 0u);
}
