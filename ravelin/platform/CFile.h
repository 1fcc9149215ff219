#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "ravelin/RvExport.h"

namespace ravelin {

/// A binary file on disk, the byte stream under an archive. Opening, reading, writing and
/// positioning failures raise CFileException.
class RAVELIN_API CFile {
public:
    enum OpenFlags : unsigned {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        modeCreate = 0x1000,  // create the file, or empty it if it exists
    };
    enum SeekPosition : unsigned { begin = 0, current = 1, end = 2 };

    CFile() = default;
    /// Opens `fileName`; failure raises CFileException.
    CFile(const char* fileName, unsigned openFlags);
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;
    virtual ~CFile();

    /// Opens `fileName`; false if it cannot be opened.
    virtual bool Open(const char* fileName, unsigned openFlags);
    /// Reads up to `count` bytes; returns how many were read, fewer only at the end.
    virtual unsigned Read(void* buffer, unsigned count);
    virtual void Write(const void* buffer, unsigned count);
    /// Moves the position by `offset` from `from`; returns the new position.
    virtual std::uint64_t Seek(std::int64_t offset, unsigned from);
    virtual std::uint64_t GetPosition() const;
    virtual std::uint64_t GetLength() const;
    virtual void Flush();
    virtual void Close();

private:
    std::FILE* OpenFile() const;

    std::FILE* m_file = nullptr;
    std::string m_fileName;
};

/// A file held in memory: it grows as it is written, and can start from given bytes.
class RAVELIN_API CMemFile : public CFile {
public:
    CMemFile() = default;
    explicit CMemFile(std::vector<std::uint8_t> data);

    /// A file in memory has no name to open: always false, and the contents stay.
    bool Open(const char* fileName, unsigned openFlags) override;
    unsigned Read(void* buffer, unsigned count) override;
    void Write(const void* buffer, unsigned count) override;
    std::uint64_t Seek(std::int64_t offset, unsigned from) override;
    std::uint64_t GetPosition() const override;
    std::uint64_t GetLength() const override;
    void Flush() override;
    void Close() override;

    /// Everything written so far, or the bytes the file was made from.
    const std::vector<std::uint8_t>& GetData() const;

private:
    std::vector<std::uint8_t> m_data;
    std::size_t m_position = 0;
};

}  // namespace ravelin
