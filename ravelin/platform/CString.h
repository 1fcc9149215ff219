#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "ravelin/RvExport.h"

namespace ravelin {

/// A string of single-byte characters, held in a std::string. It offers the members a drawing
/// client expects of a platform string: length, emptiness, character access, concatenation,
/// comparison, and a pointer to the terminated characters.
class RAVELIN_API CString {
public:
    CString() = default;
    CString(const char* s)
        : m_text(s == nullptr ? "" : s) {}  // NOLINT(google-explicit-constructor)
    CString(const char* s, int n) : m_text(s, n < 0 ? 0 : static_cast<std::size_t>(n)) {}
    CString(std::string s) : m_text(std::move(s)) {}  // NOLINT(google-explicit-constructor)
    CString(std::string_view s) : m_text(s) {}        // NOLINT(google-explicit-constructor)

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }
    /// Character `i`; an index outside the string raises "invalid vector<T> subscript".
    char GetAt(int i) const;
    const char* GetString() const { return m_text.c_str(); }
    operator const char*() const { return m_text.c_str(); }  // NOLINT(google-explicit-constructor)
    const std::string& str() const { return m_text; }

    CString& operator+=(const CString& s) {
        m_text += s.m_text;
        return *this;
    }
    friend CString operator+(CString a, const CString& b) { return a += b; }
    friend bool operator==(const CString& a, const CString& b) { return a.m_text == b.m_text; }
    friend auto operator<=>(const CString& a, const CString& b) { return a.m_text <=> b.m_text; }

private:
    std::string m_text;
};

}  // namespace ravelin
