#include "ravelin/platform/CGdiObject.h"

namespace ravelin {

CGdiObject::~CGdiObject() = default;

bool CGdiObject::DeleteObject() {
    const bool was = m_bCreated;
    m_bCreated = false;
    return was;
}

bool CPen::CreatePen(int style, int width, COLORREF color) {
    m_nStyle = style;
    m_nWidth = width;
    m_color = color;
    m_bCreated = true;
    return true;
}

bool CFont::CreateFontIndirect(const tagLOGFONTA* f) {
    if (f == nullptr) {
        return false;
    }
    m_logFont = *f;
    m_bCreated = true;
    return true;
}

bool CFont::GetLogFont(tagLOGFONTA* f) const {
    if (f == nullptr || !m_bCreated) {
        return false;
    }
    *f = m_logFont;
    return true;
}

}  // namespace ravelin
