#include "ravelin/entity/RvTextEntity.h"

#include <cstddef>
#include <memory>

#include "ravelin/platform/CDC.h"
#include "ravelin/platform/CRgn.h"
#include "ravelin/platform/CSize.h"

namespace ravelin {

namespace {

// Font heights up to this many pixels are too small to read: the frame is drawn instead.
constexpr int kSmallestLegibleHeight = 5;

}  // namespace

RvTextEntity::RvTextEntity() : m_dFontFactor(0.0), m_logFont{} {
    type = kType;
}

// The copy has no text: only the geometry and the font description are carried over.
RvTextEntity::RvTextEntity(const RvTextEntity& t)
    : RvDrawEntity(t), m_dFontFactor(0.0), m_logFont(t.m_logFont) {
    type = kType;
}

RvTextEntity& RvTextEntity::operator=(const RvTextEntity& t) {
    RvDrawEntity::operator=(t);
    m_logFont = t.m_logFont;
    return *this;
}

RvTextEntity::~RvTextEntity() = default;

void RvTextEntity::CreateFontIndirectA(const tagLOGFONTA* f) {
    m_logFont = *f;
}

void RvTextEntity::GetLogFont(tagLOGFONTA* f) const {
    *f = m_logFont;
}

void RvTextEntity::ReInit() {
    RvDrawEntity::ReInit();
    type = kType;
    m_logFont = tagLOGFONTA{};
}

CRect RvTextEntity::Draw(CDC* dc) {
    if (empty() || m_logFont.lfHeight <= kSmallestLegibleHeight) {
        if (size() < 4) {
            return CRect();
        }
        // Too small to read: the frame alone, in XOR mode so that drawing it again erases it.
        const int former = dc->SetROP2(R2_XORPEN);
        tagPOINT corners[4];
        for (std::size_t k = 0; k < 4; ++k) {
            corners[k] = (*this)[k].GetPOINT();
        }
        dc->MoveTo(corners[0].x, corners[0].y);
        dc->LineTo(corners[1].x, corners[1].y);
        dc->LineTo(corners[2].x, corners[2].y);
        dc->LineTo(corners[3].x, corners[3].y);
        dc->LineTo(corners[0].x, corners[0].y);
        Polygon(dc->m_hDC, corners, 4);
        dc->SetROP2(former);
        return CRect();
    }

    // The side from vertex 1 to vertex 2 is the length to fill; reading it raises the range
    // error for fewer than three vertices.
    const double length = (*this)[1].GetDistance2D((*this)[2]);

    // An empty text has nothing to spread and would divide by zero below: nothing is drawn, and
    // no call at all reaches the device, not even the font selection.
    const int n = m_text.GetLength();
    if (n == 0) {
        return CRect();
    }

    CFont font;
    font.CreateFontIndirect(&m_logFont);
    CFont* formerFont = dc->SelectObject(&font);

    const char* text = m_text.GetString();
    SIZE whole{};
    GetTextExtentPoint32A(dc->m_hAttribDC, text, n, &whole);

    // The free width, shared out evenly; what the division leaves over goes one pixel at a time
    // to the first characters.
    int extra = static_cast<int>(length - whole.cx);
    if (extra < 0) {
        extra = 0;
    }
    const int per = extra / n;
    int rem = extra - per * n;

    std::unique_ptr<int[]> dx(new int[static_cast<std::size_t>(n)]);
    for (int i = 0; i < n; ++i) {
        // The step comes before the test, so the character at which the remainder runs out
        // gets no extra pixel: of a remainder r, only r - 1 pixels are handed out.
        if (rem > 0) {
            --rem;
        } else if (rem < 0) {
            ++rem;
        }
        SIZE single{};
        GetTextExtentPoint32A(dc->m_hAttribDC, text + i, 1, &single);
        int advance = single.cx;
        if (rem < 0) {
            advance -= 1;
        } else if (rem > 0) {
            advance += 1;
        }
        dx[static_cast<std::size_t>(i)] = advance + per;
    }

    if (size() != 5) {
        const tagPOINT at = (*this)[0].GetPOINT();
        ExtTextOutA(dc->m_hDC, at.x, at.y, 0, nullptr, text, static_cast<unsigned int>(n),
                    dx.get());
    } else {
        // A fifth vertex anchors the text on its baseline.
        const unsigned int formerAlign = dc->SetTextAlign(TA_BASELINE);
        const tagPOINT at = (*this)[size() - 1].GetPOINT();
        ExtTextOutA(dc->m_hDC, at.x, at.y, 0, nullptr, text, static_cast<unsigned int>(n),
                    dx.get());
        dc->SetTextAlign(formerAlign);
    }

    dx.reset();
    dc->SelectObject(formerFont);
    font.DeleteObject();
    return CRect();
}

bool RvTextEntity::IsIncident(const RvPoint2D& p, double& /*d*/, enumSnapType& snap,
                              RvDrawEntity& hit) const {
    hit.SetType(type);
    tagPOINT corners[4];
    for (std::size_t k = 0; k < 4; ++k) {
        corners[k] = (*this)[k].GetPOINT();
    }
    // The inside of the frame is tested in pixels, as the platform fills it: a pixel on the
    // right or lower border lies outside.
    CRgn region;
    if (!region.CreatePolygonRgn(corners, 4, ALTERNATE)) {
        return false;
    }
    if (region.PtInRegion(p.GetPOINT())) {
        snap = SnapInside;
        return true;
    }
    return false;
}

bool RvTextEntity::InvSelectArea(const CRect& r, int mode) const {
    return InvSelectVertices(r, mode);
}

bool RvTextEntity::IsOnVertex(RvPoint2D& /*cursor*/, RvPoint2D& /*found*/, double& /*tol*/) {
    return false;
}

}  // namespace ravelin
