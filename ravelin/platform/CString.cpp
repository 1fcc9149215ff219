#include "ravelin/platform/CString.h"

#include "ravelin/platform/CheckedVector.h"

namespace ravelin {

char CString::GetAt(int i) const {
    return CheckedAt(m_text, i);
}

}  // namespace ravelin
