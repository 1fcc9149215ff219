#include "ravelin/platform/CObject.h"

#include <algorithm>
#include <vector>

namespace ravelin {

namespace {

std::vector<const CRuntimeClass*>& RegisteredClasses() {
    static std::vector<const CRuntimeClass*> classes;
    return classes;
}

}  // namespace

const CRuntimeClass CObject::classCObject = {"CObject", CRuntimeClass::kNoSchema, nullptr, nullptr};

std::unique_ptr<CObject> CRuntimeClass::CreateObject() const {
    return std::unique_ptr<CObject>(m_pfnCreateObject != nullptr ? m_pfnCreateObject() : nullptr);
}

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
    for (const CRuntimeClass* c = this; c != nullptr; c = c->m_pBaseClass) {
        if (c == base) {
            return true;
        }
    }
    return false;
}

bool CRuntimeClass::Register(const CRuntimeClass* runtimeClass) {
    auto& classes = RegisteredClasses();
    if (std::find(classes.begin(), classes.end(), runtimeClass) == classes.end()) {
        classes.push_back(runtimeClass);
    }
    return true;
}

const CRuntimeClass* CRuntimeClass::FromName(std::string_view className) {
    const auto& classes = RegisteredClasses();
    const auto found = std::find_if(classes.begin(), classes.end(), [&](const CRuntimeClass* c) {
        return className == c->m_lpszClassName;
    });
    return found != classes.end() ? *found : nullptr;
}

std::unique_ptr<CObject> CRuntimeClass::CreateObject(std::string_view className) {
    const CRuntimeClass* runtimeClass = FromName(className);
    return runtimeClass != nullptr ? runtimeClass->CreateObject() : nullptr;
}

const CRuntimeClass* CObject::GetRuntimeClass() const {
    return &classCObject;
}

CObject::~CObject() = default;

void CObject::Serialize(CArchive&) {}

void CObject::AssertValid() const {}

void CObject::Dump(std::ostream& out) const {
    out << "a " << GetRuntimeClass()->m_lpszClassName << " at " << static_cast<const void*>(this)
        << '\n';
}

bool CObject::IsKindOf(const CRuntimeClass* runtimeClass) const {
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}

bool CObject::IsSerializable() const {
    return GetRuntimeClass()->m_wSchema != CRuntimeClass::kNoSchema;
}

}  // namespace ravelin
