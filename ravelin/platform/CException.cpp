#include "ravelin/platform/CException.h"

#include <utility>

namespace ravelin {

namespace {

const char* ArchiveCauseText(int cause) {
    switch (cause) {
        case CArchiveException::readOnly:
            return "archive opened for loading was written to";
        case CArchiveException::endOfFile:
            return "read past the end of the archive";
        case CArchiveException::writeOnly:
            return "archive opened for storing was read from";
        case CArchiveException::badIndex:
            return "archive refers to an object or class that it does not hold";
        case CArchiveException::badClass:
            return "archive holds an object of an unknown or unexpected class";
        case CArchiveException::badSchema:
            return "archive holds an object of another schema";
        case CArchiveException::none:
            return "no archive error";
        default:
            return "archive error";
    }
}

const char* FileCauseText(int cause) {
    switch (cause) {
        case CFileException::fileNotFound:
            return "file not found";
        case CFileException::accessDenied:
            return "access to the file denied";
        case CFileException::diskFull:
            return "file could not be written";
        case CFileException::badSeek:
            return "file could not be positioned";
        case CFileException::none:
            return "no file error";
        default:
            return "file error";
    }
}

std::string WithFileName(const char* text, const std::string& fileName) {
    return fileName.empty() ? std::string(text) : std::string(text) + ": " + fileName;
}

}  // namespace

CException::CException(std::string message) : m_message(std::move(message)) {}

const char* CException::what() const noexcept {
    return m_message.c_str();
}

CArchiveException::CArchiveException(int cause, std::string fileName)
    : CException(WithFileName(ArchiveCauseText(cause), fileName)),
      m_cause(cause),
      m_strFileName(std::move(fileName)) {}

CFileException::CFileException(int cause, std::string fileName)
    : CException(WithFileName(FileCauseText(cause), fileName)),
      m_cause(cause),
      m_strFileName(std::move(fileName)) {}

void AfxThrowArchiveException(int cause, const char* fileName) {
    throw CArchiveException(cause, fileName != nullptr ? fileName : "");
}

void AfxThrowFileException(int cause, const char* fileName) {
    throw CFileException(cause, fileName != nullptr ? fileName : "");
}

CInvalidArgException::CInvalidArgException() : CException("invalid argument") {}

void AfxThrowInvalidArgException() {
    throw CInvalidArgException();
}

}  // namespace ravelin
