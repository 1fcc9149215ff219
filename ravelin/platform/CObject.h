#pragma once

#include <memory>
#include <ostream>
#include <string_view>

#include "ravelin/RvExport.h"

namespace ravelin {

class CArchive;
class CObject;

/// What a class derived from CObject knows of itself at run time: its name, its archive schema,
/// its base class and, for a serial class, how to make a default object of it.
struct RAVELIN_API CRuntimeClass {
    /// Schema of a class that cannot be written to an archive as an object.
    static constexpr unsigned kNoSchema = 0xFFFF;

    const char* m_lpszClassName;
    unsigned m_wSchema;
    CObject* (*m_pfnCreateObject)();  // null for a class that cannot be made by name
    const CRuntimeClass* m_pBaseClass;

    /// A default-constructed object of the class; null if it cannot be made by name.
    std::unique_ptr<CObject> CreateObject() const;
    /// True if this class is `base` or derives from it.
    bool IsDerivedFrom(const CRuntimeClass* base) const;

    /// Adds a serial class to the process-wide table consulted by FromName. Returns true.
    static bool Register(const CRuntimeClass* runtimeClass);
    /// The registered class of that name, or null.
    static const CRuntimeClass* FromName(std::string_view className);
    /// A default-constructed object of the registered class of that name, or null.
    static std::unique_ptr<CObject> CreateObject(std::string_view className);
};

/// Root of the classes that know their run-time class and can write themselves to an archive.
class RAVELIN_API CObject {
public:
    static const CRuntimeClass classCObject;

    virtual const CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    /// Writes the object to, or reads it from, the archive. The root has nothing to write.
    virtual void Serialize(CArchive& ar);
    /// Diagnostic check of the object's state; the root has nothing to check.
    virtual void AssertValid() const;
    /// Diagnostic description of the object: its class name and address.
    virtual void Dump(std::ostream& out) const;

    bool IsKindOf(const CRuntimeClass* runtimeClass) const;
    bool IsSerializable() const;

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

}  // namespace ravelin

/// The run-time class of a class declared with RAVELIN_DECLARE_SERIAL.
#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

/// Declares, inside a class derived from CObject, its run-time class and its factory.
#define RAVELIN_DECLARE_SERIAL(class_name)                            \
public:                                                               \
    static const ::ravelin::CRuntimeClass class##class_name;          \
    const ::ravelin::CRuntimeClass* GetRuntimeClass() const override; \
    static ::ravelin::CObject* CreateObject();

/// Defines, at namespace scope in one source file, what RAVELIN_DECLARE_SERIAL declared, and
/// registers the class under its name when the library is loaded.
#define RAVELIN_IMPLEMENT_SERIAL(class_name, base_class_name, schema)                    \
    const ::ravelin::CRuntimeClass class_name::class##class_name = {                     \
        #class_name, schema, &class_name::CreateObject, RUNTIME_CLASS(base_class_name)}; \
    const ::ravelin::CRuntimeClass* class_name::GetRuntimeClass() const {                \
        return RUNTIME_CLASS(class_name);                                                \
    }                                                                                    \
    ::ravelin::CObject* class_name::CreateObject() {                                     \
        return new class_name;                                                           \
    }                                                                                    \
    [[maybe_unused]] static const bool s_registered##class_name =                        \
        ::ravelin::CRuntimeClass::Register(RUNTIME_CLASS(class_name));
