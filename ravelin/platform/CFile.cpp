#include "ravelin/platform/CFile.h"

#include <algorithm>
#include <cstring>

#include "ravelin/platform/CException.h"

namespace ravelin {

namespace {

const char* FopenMode(unsigned flags) {
    const bool create = (flags & CFile::modeCreate) != 0;
    if ((flags & CFile::modeReadWrite) != 0) {
        return create ? "w+b" : "r+b";
    }
    if ((flags & CFile::modeWrite) != 0) {
        return create ? "wb" : "r+b";
    }
    return "rb";
}

std::uint64_t NewPosition(std::uint64_t position, std::uint64_t length, std::int64_t offset,
                          unsigned from) {
    const std::int64_t base = from == CFile::begin     ? 0
                              : from == CFile::current ? static_cast<std::int64_t>(position)
                                                       : static_cast<std::int64_t>(length);
    const std::int64_t target = base + offset;
    if (target < 0) {
        AfxThrowFileException(CFileException::badSeek);
    }
    return static_cast<std::uint64_t>(target);
}

}  // namespace

CFile::CFile(const char* fileName, unsigned openFlags) {
    if (!Open(fileName, openFlags)) {
        AfxThrowFileException(CFileException::fileNotFound, fileName);
    }
}

CFile::~CFile() {
    if (m_file != nullptr) {
        std::fclose(m_file);
    }
}

bool CFile::Open(const char* fileName, unsigned openFlags) {
    Close();
    m_file = std::fopen(fileName, FopenMode(openFlags));
    m_fileName = m_file != nullptr ? fileName : "";
    return m_file != nullptr;
}

std::FILE* CFile::OpenFile() const {
    if (m_file == nullptr) {
        AfxThrowFileException(CFileException::genericException, m_fileName.c_str());
    }
    return m_file;
}

unsigned CFile::Read(void* buffer, unsigned count) {
    std::FILE* file = OpenFile();
    const std::size_t got = std::fread(buffer, 1, count, file);
    if (got < count && std::ferror(file) != 0) {
        AfxThrowFileException(CFileException::genericException, m_fileName.c_str());
    }
    return static_cast<unsigned>(got);
}

void CFile::Write(const void* buffer, unsigned count) {
    if (std::fwrite(buffer, 1, count, OpenFile()) != count) {
        AfxThrowFileException(CFileException::diskFull, m_fileName.c_str());
    }
}

std::uint64_t CFile::Seek(std::int64_t offset, unsigned from) {
    const std::uint64_t target = NewPosition(GetPosition(), GetLength(), offset, from);
    if (std::fseek(OpenFile(), static_cast<long>(target), SEEK_SET) != 0) {
        AfxThrowFileException(CFileException::badSeek, m_fileName.c_str());
    }
    return target;
}

std::uint64_t CFile::GetPosition() const {
    const long position = std::ftell(OpenFile());
    if (position < 0) {
        AfxThrowFileException(CFileException::badSeek, m_fileName.c_str());
    }
    return static_cast<std::uint64_t>(position);
}

std::uint64_t CFile::GetLength() const {
    std::FILE* file = OpenFile();
    const long position = std::ftell(file);
    const bool measured = position >= 0 && std::fseek(file, 0, SEEK_END) == 0;
    const long length = measured ? std::ftell(file) : -1;
    if (!measured || length < 0 || std::fseek(file, position, SEEK_SET) != 0) {
        AfxThrowFileException(CFileException::badSeek, m_fileName.c_str());
    }
    return static_cast<std::uint64_t>(length);
}

void CFile::Flush() {
    if (m_file != nullptr && std::fflush(m_file) != 0) {
        AfxThrowFileException(CFileException::diskFull, m_fileName.c_str());
    }
}

void CFile::Close() {
    if (m_file == nullptr) {
        return;
    }
    const bool closed = std::fclose(m_file) == 0;
    m_file = nullptr;
    if (!closed) {
        AfxThrowFileException(CFileException::diskFull, m_fileName.c_str());
    }
}

CMemFile::CMemFile(std::vector<std::uint8_t> data) : m_data(std::move(data)) {}

bool CMemFile::Open(const char*, unsigned) {
    return false;
}

unsigned CMemFile::Read(void* buffer, unsigned count) {
    const std::size_t left = m_position < m_data.size() ? m_data.size() - m_position : 0;
    const std::size_t got = std::min<std::size_t>(count, left);
    if (got > 0) {
        std::memcpy(buffer, m_data.data() + m_position, got);
    }
    m_position += got;
    return static_cast<unsigned>(got);
}

void CMemFile::Write(const void* buffer, unsigned count) {
    if (count == 0) {
        return;
    }
    if (m_data.size() < m_position + count) {
        m_data.resize(m_position + count);
    }
    std::memcpy(m_data.data() + m_position, buffer, count);
    m_position += count;
}

std::uint64_t CMemFile::Seek(std::int64_t offset, unsigned from) {
    m_position = static_cast<std::size_t>(NewPosition(m_position, m_data.size(), offset, from));
    return m_position;
}

std::uint64_t CMemFile::GetPosition() const {
    return m_position;
}

std::uint64_t CMemFile::GetLength() const {
    return m_data.size();
}

void CMemFile::Flush() {}

void CMemFile::Close() {}

const std::vector<std::uint8_t>& CMemFile::GetData() const {
    return m_data;
}

}  // namespace ravelin
