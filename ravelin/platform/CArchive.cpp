#include "ravelin/platform/CArchive.h"

#include <bit>
#include <climits>
#include <string>

#include "ravelin/platform/CException.h"
#include "ravelin/platform/CFile.h"
#include "ravelin/platform/CObject.h"

namespace ravelin {

namespace {

constexpr std::uint16_t kNullTag = 0x0000;
constexpr std::uint16_t kNewClassTag = 0xFFFF;
constexpr std::uint16_t kClassTag = 0x8000;
constexpr std::size_t kMaxClassIndex = 0x7FFE;

}  // namespace

CArchive::CArchive(CFile* file, unsigned mode) : m_file(file), m_mode(mode) {}

bool CArchive::IsLoading() const {
    return (m_mode & load) != 0;
}

bool CArchive::IsStoring() const {
    return (m_mode & load) == 0;
}

CFile* CArchive::GetFile() const {
    return m_file;
}

void CArchive::RequireStoring() const {
    if (!IsStoring()) {
        AfxThrowArchiveException(CArchiveException::readOnly);
    }
}

void CArchive::RequireLoading() const {
    if (!IsLoading()) {
        AfxThrowArchiveException(CArchiveException::writeOnly);
    }
}

void CArchive::Write(const void* buffer, std::size_t count) {
    RequireStoring();
    const auto* bytes = static_cast<const unsigned char*>(buffer);
    while (count > 0) {
        const unsigned chunk = count > UINT_MAX ? UINT_MAX : static_cast<unsigned>(count);
        m_file->Write(bytes, chunk);
        bytes += chunk;
        count -= chunk;
    }
}

std::size_t CArchive::Read(void* buffer, std::size_t count) {
    RequireLoading();
    auto* bytes = static_cast<unsigned char*>(buffer);
    std::size_t total = 0;
    while (total < count) {
        const std::size_t left = count - total;
        const unsigned chunk = left > UINT_MAX ? UINT_MAX : static_cast<unsigned>(left);
        const unsigned got = m_file->Read(bytes + total, chunk);
        total += got;
        if (got < chunk) {
            break;
        }
    }
    return total;
}

void CArchive::ReadExactly(void* buffer, std::size_t count) {
    if (Read(buffer, count) != count) {
        AfxThrowArchiveException(CArchiveException::endOfFile);
    }
}

template <class Unsigned>
void CArchive::WriteUnsigned(Unsigned value) {
    unsigned char bytes[sizeof(Unsigned)];
    for (std::size_t i = 0; i < sizeof(Unsigned); ++i) {
        bytes[i] = static_cast<unsigned char>(value >> (8 * i));
    }
    Write(bytes, sizeof bytes);
}

template <class Unsigned>
Unsigned CArchive::ReadUnsigned() {
    unsigned char bytes[sizeof(Unsigned)];
    ReadExactly(bytes, sizeof bytes);
    Unsigned value = 0;
    for (std::size_t i = 0; i < sizeof(Unsigned); ++i) {
        value = static_cast<Unsigned>(value | static_cast<Unsigned>(Unsigned{bytes[i]} << (8 * i)));
    }
    return value;
}

CArchive& CArchive::operator<<(double value) {
    WriteUnsigned(std::bit_cast<std::uint64_t>(value));
    return *this;
}

CArchive& CArchive::operator<<(std::int32_t value) {
    WriteUnsigned(static_cast<std::uint32_t>(value));
    return *this;
}

CArchive& CArchive::operator<<(std::uint32_t value) {
    WriteUnsigned(value);
    return *this;
}

CArchive& CArchive::operator<<(std::uint16_t value) {
    WriteUnsigned(value);
    return *this;
}

CArchive& CArchive::operator>>(double& value) {
    value = std::bit_cast<double>(ReadUnsigned<std::uint64_t>());
    return *this;
}

CArchive& CArchive::operator>>(std::int32_t& value) {
    value = static_cast<std::int32_t>(ReadUnsigned<std::uint32_t>());
    return *this;
}

CArchive& CArchive::operator>>(std::uint32_t& value) {
    value = ReadUnsigned<std::uint32_t>();
    return *this;
}

CArchive& CArchive::operator>>(std::uint16_t& value) {
    value = ReadUnsigned<std::uint16_t>();
    return *this;
}

void CArchive::WriteClassTag(const CRuntimeClass* runtimeClass) {
    for (std::size_t i = 0; i < m_classes.size(); ++i) {
        if (m_classes[i] == runtimeClass) {
            *this << static_cast<std::uint16_t>(kClassTag + i + 1);
            return;
        }
    }
    if (m_classes.size() >= kMaxClassIndex) {
        AfxThrowArchiveException(CArchiveException::badIndex);
    }
    const std::string_view name = runtimeClass->m_lpszClassName;
    if (runtimeClass->m_wSchema > 0xFFFF || name.size() > 0xFFFF) {
        AfxThrowArchiveException(CArchiveException::badClass);
    }
    *this << kNewClassTag << static_cast<std::uint16_t>(runtimeClass->m_wSchema)
          << static_cast<std::uint16_t>(name.size());
    Write(name.data(), name.size());
    m_classes.push_back(runtimeClass);
}

const CRuntimeClass* CArchive::ReadClassTag() {
    std::uint16_t tag = 0;
    *this >> tag;
    if (tag == kNullTag) {
        return nullptr;
    }
    if (tag != kNewClassTag) {
        const std::size_t index = static_cast<std::size_t>(tag & ~kClassTag);
        if ((tag & kClassTag) == 0 || index == 0 || index > m_classes.size()) {
            AfxThrowArchiveException(CArchiveException::badIndex);
        }
        return m_classes[index - 1];
    }
    std::uint16_t schema = 0;
    std::uint16_t length = 0;
    *this >> schema >> length;
    std::string name(length, '\0');
    ReadExactly(name.data(), name.size());
    const CRuntimeClass* runtimeClass = CRuntimeClass::FromName(name);
    if (runtimeClass == nullptr) {
        AfxThrowArchiveException(CArchiveException::badClass);
    }
    if (runtimeClass->m_wSchema != schema) {
        AfxThrowArchiveException(CArchiveException::badSchema);
    }
    m_classes.push_back(runtimeClass);
    return runtimeClass;
}

void CArchive::WriteObject(const CObject* object) {
    RequireStoring();
    if (object == nullptr) {
        *this << kNullTag;
        return;
    }
    const CRuntimeClass* runtimeClass = object->GetRuntimeClass();
    if (runtimeClass->m_pfnCreateObject == nullptr) {
        AfxThrowArchiveException(CArchiveException::badClass);
    }
    WriteClassTag(runtimeClass);
    // Serialize is the one entry point for both directions, hence not const.
    const_cast<CObject*>(object)->Serialize(*this);
}

std::unique_ptr<CObject> CArchive::ReadObject(const CRuntimeClass* expected) {
    RequireLoading();
    const CRuntimeClass* runtimeClass = ReadClassTag();
    if (runtimeClass == nullptr) {
        return nullptr;
    }
    if (expected != nullptr && !runtimeClass->IsDerivedFrom(expected)) {
        AfxThrowArchiveException(CArchiveException::badClass);
    }
    std::unique_ptr<CObject> object = runtimeClass->CreateObject();
    object->Serialize(*this);
    return object;
}

void CArchive::Flush() {
    if (IsStoring()) {
        m_file->Flush();
    }
}

void CArchive::Close() {
    Flush();
}

}  // namespace ravelin
