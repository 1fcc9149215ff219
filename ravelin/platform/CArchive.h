#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "ravelin/RvExport.h"

namespace ravelin {

class CFile;
class CObject;
struct CRuntimeClass;

/// A one-way binary channel over a file: either it stores, writing values into the file, or it
/// loads, reading them back. Values are raw little-endian bytes with no framing. Using the
/// archive in the other direction, or reading past the end of the file, raises
/// CArchiveException.
///
/// Objects written with WriteObject are preceded by a 16-bit tag: 0 for a null object; 0xFFFF
/// for a class met for the first time, followed by the class's 16-bit schema, the 16-bit length
/// of its name and the name's bytes; otherwise 0x8000 plus the class's 1-based index in the
/// order of first appearance. The object's own Serialize record follows the tag.
class RAVELIN_API CArchive {
public:
    enum Mode : unsigned { store = 0, load = 1 };

    /// The archive does not own `file`, which must outlive it.
    CArchive(CFile* file, unsigned mode);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    bool IsLoading() const;
    bool IsStoring() const;
    CFile* GetFile() const;

    /// Raw bytes, as they are.
    void Write(const void* buffer, std::size_t count);
    /// Reads up to `count` raw bytes and returns how many there were.
    std::size_t Read(void* buffer, std::size_t count);

    CArchive& operator<<(double value);
    CArchive& operator<<(std::int32_t value);
    CArchive& operator<<(std::uint32_t value);
    CArchive& operator<<(std::uint16_t value);
    CArchive& operator>>(double& value);
    CArchive& operator>>(std::int32_t& value);
    CArchive& operator>>(std::uint32_t& value);
    CArchive& operator>>(std::uint16_t& value);

    /// Writes the object's class tag and its Serialize record; null writes the null tag.
    void WriteObject(const CObject* object);
    /// Reads what WriteObject wrote and makes the object by its class name. With `expected`
    /// not null, an object of a class not derived from it raises CArchiveException::badClass.
    std::unique_ptr<CObject> ReadObject(const CRuntimeClass* expected);

    void Flush();
    /// Flushes the file; the archive is not to be used afterwards.
    void Close();

private:
    void RequireStoring() const;
    void RequireLoading() const;
    void ReadExactly(void* buffer, std::size_t count);
    template <class Unsigned>
    void WriteUnsigned(Unsigned value);
    template <class Unsigned>
    Unsigned ReadUnsigned();
    void WriteClassTag(const CRuntimeClass* runtimeClass);
    const CRuntimeClass* ReadClassTag();

    CFile* m_file;
    unsigned m_mode;
    std::vector<const CRuntimeClass*> m_classes;  // classes in order of first appearance
};

}  // namespace ravelin
