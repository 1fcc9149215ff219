#pragma once

#include <exception>
#include <string>

#include "ravelin/RvExport.h"

namespace ravelin {

/// Root of the platform's exceptions. Thrown by value and caught by reference.
class RAVELIN_API CException : public std::exception {
public:
    const char* what() const noexcept override;

protected:
    explicit CException(std::string message);

private:
    std::string m_message;
};

/// Misuse of an archive or a read that runs past its end.
class RAVELIN_API CArchiveException : public CException {
public:
    /// Causes, numbered as on the original platform.
    enum {
        none,
        genericException,
        readOnly,   // an archive opened for loading was written to
        endOfFile,  // a read ran past the end of the data
        writeOnly,  // an archive opened for storing was read from
        badIndex,   // an object or class reference points nowhere
        badClass,   // an object of an unknown or unexpected class
        badSchema   // an object stored with another schema than the class has
    };

    explicit CArchiveException(int cause = none, std::string fileName = {});

    int m_cause;
    std::string m_strFileName;
};

/// Failure to open, read, write or position a file.
class RAVELIN_API CFileException : public CException {
public:
    enum { none, genericException, fileNotFound, accessDenied, diskFull, badSeek };

    explicit CFileException(int cause = none, std::string fileName = {});

    int m_cause;
    std::string m_strFileName;
};

/// An argument outside what an operation accepts, such as an array index out of range.
class RAVELIN_API CInvalidArgException : public CException {
public:
    CInvalidArgException();
};

/// Throws a CArchiveException with the given cause.
[[noreturn]] RAVELIN_API void AfxThrowArchiveException(int cause, const char* fileName = nullptr);

/// Throws a CFileException with the given cause.
[[noreturn]] RAVELIN_API void AfxThrowFileException(int cause, const char* fileName = nullptr);

/// Throws a CInvalidArgException.
[[noreturn]] RAVELIN_API void AfxThrowInvalidArgException();

}  // namespace ravelin
