#include "ravelin/platform/CRecordingDC.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <string_view>

namespace ravelin {

namespace {

constexpr std::int32_t kStockFontHeight = 16;

const char* OpName(DCOp op) {
    switch (op) {
        case DCOp::SetROP2:
            return "SetROP2";
        case DCOp::SetBkMode:
            return "SetBkMode";
        case DCOp::MoveTo:
            return "MoveTo";
        case DCOp::LineTo:
            return "LineTo";
        case DCOp::Polygon:
            return "Polygon";
        case DCOp::Polyline:
            return "Polyline";
        case DCOp::PolyPolygon:
            return "PolyPolygon";
        case DCOp::Rectangle:
            return "Rectangle";
        case DCOp::FillSolidRect:
            return "FillSolidRect";
        case DCOp::TextOut:
            return "TextOut";
        case DCOp::SelectPen:
            return "SelectPen";
        case DCOp::SelectFont:
            return "SelectFont";
        case DCOp::GetTextExtent:
            return "GetTextExtent";
        case DCOp::ExtTextOut:
            return "ExtTextOut";
        case DCOp::SetTextAlign:
            return "SetTextAlign";
    }
    return "?";
}

// Appends `parts` to `out`, separated by `separator`.
template <class Range, class Format>
void Join(std::string& out, const Range& parts, std::string_view separator, Format format) {
    bool first = true;
    for (const auto& part : parts) {
        if (!first) {
            out += separator;
        }
        first = false;
        out += format(part);
    }
}

// Built by appending: GCC 12 warns falsely (-Wrestrict) on a literal plus a std::string.
std::string PointText(const tagPOINT& p) {
    std::string out;
    out.append("(").append(std::to_string(p.x)).append(", ").append(std::to_string(p.y));
    out.append(")");
    return out;
}

std::string Quoted(const std::string& text) {
    std::string out;
    out.append("\"").append(text).append("\"");
    return out;
}

// The characters a call names: `n` of them, none for a null text or a negative count.
std::string TextOf(const char* text, std::int64_t n) {
    if (text == nullptr || n <= 0) {
        return {};
    }
    return std::string(text, static_cast<std::size_t>(n));
}

}  // namespace

std::string DCCall::Describe() const {
    std::string out = OpName(op);
    out += "(";
    std::vector<std::string> fields;
    if (!args.empty()) {
        std::string a;
        Join(a, args, ", ", [](std::int64_t v) { return std::to_string(v); });
        fields.push_back(a);
    }
    if (!points.empty()) {
        std::string a;
        Join(a, points, " ", PointText);
        fields.push_back(a);
    }
    if (op == DCOp::SelectFont) {
        std::string a = std::to_string(font.lfHeight);
        a.append(" ").append(Quoted(std::string(font.lfFaceName, strnlen(font.lfFaceName, 32))));
        fields.push_back(a);
    }
    if (op == DCOp::TextOut || op == DCOp::GetTextExtent || op == DCOp::ExtTextOut) {
        fields.push_back(Quoted(text));
    }
    if (!counts.empty()) {
        std::string a;
        Join(a, counts, " ", [](int v) { return std::to_string(v); });
        fields.push_back(a);
    }
    Join(out, fields, "; ", [](const std::string& s) { return s; });
    out += ")";
    return out;
}

CRecordingDC::CRecordingDC() : m_pPen(&m_stockPen), m_pFont(&m_stockFont) {
    m_stockPen.CreatePen(PS_SOLID, 0, 0);
    tagLOGFONTA stock{};
    stock.lfHeight = kStockFontHeight;
    m_stockFont.CreateFontIndirect(&stock);
}

CRecordingDC::~CRecordingDC() = default;

DCCall& CRecordingDC::Record(DCOp op) {
    m_calls.push_back(DCCall{op, {}, {}, {}, {}, {}});
    return m_calls.back();
}

int CRecordingDC::SetROP2(int mode) {
    Record(DCOp::SetROP2).args = {mode};
    const int old = m_nROP2;
    m_nROP2 = mode;
    return old;
}

int CRecordingDC::SetBkMode(int mode) {
    Record(DCOp::SetBkMode).args = {mode};
    const int old = m_nBkMode;
    m_nBkMode = mode;
    return old;
}

CPoint CRecordingDC::MoveTo(int x, int y) {
    Record(DCOp::MoveTo).args = {x, y};
    const CPoint old = m_position;
    m_position = CPoint(x, y);
    return old;
}

bool CRecordingDC::LineTo(int x, int y) {
    Record(DCOp::LineTo).args = {x, y};
    m_position = CPoint(x, y);
    return true;
}

bool CRecordingDC::Polygon(const POINT* points, int n) {
    DCCall& call = Record(DCOp::Polygon);
    if (points == nullptr || n < 0) {
        return false;
    }
    call.points.assign(points, points + n);
    return n >= 2;
}

bool CRecordingDC::Polyline(const POINT* points, int n) {
    DCCall& call = Record(DCOp::Polyline);
    if (points == nullptr || n < 0) {
        return false;
    }
    call.points.assign(points, points + n);
    return n >= 2;
}

bool CRecordingDC::PolyPolygon(const POINT* points, const int* counts, int polyCount) {
    DCCall& call = Record(DCOp::PolyPolygon);
    if (points == nullptr || counts == nullptr || polyCount < 0) {
        return false;
    }
    call.counts.assign(counts, counts + polyCount);
    std::int64_t total = 0;
    for (const int c : call.counts) {
        if (c < 0) {
            return false;
        }
        total += c;
    }
    call.points.assign(points, points + total);
    return true;
}

bool CRecordingDC::Rectangle(int left, int top, int right, int bottom) {
    Record(DCOp::Rectangle).args = {left, top, right, bottom};
    return true;
}

void CRecordingDC::FillSolidRect(const RECT* r, COLORREF color) {
    DCCall& call = Record(DCOp::FillSolidRect);
    if (r != nullptr) {
        call.args = {r->left, r->top, r->right, r->bottom, color};
    }
}

bool CRecordingDC::TextOut(int x, int y, const char* text, int n) {
    DCCall& call = Record(DCOp::TextOut);
    call.args = {x, y};
    call.text = TextOf(text, n);
    return text != nullptr;
}

CPen* CRecordingDC::SelectObject(CPen* pen) {
    DCCall& call = Record(DCOp::SelectPen);
    if (pen == nullptr) {
        return nullptr;
    }
    call.args = {pen->GetStyle(), pen->GetWidth(), pen->GetColor()};
    CPen* old = m_pPen;
    m_pPen = pen;
    return old;
}

CFont* CRecordingDC::SelectObject(CFont* font) {
    DCCall& call = Record(DCOp::SelectFont);
    if (font == nullptr) {
        return nullptr;
    }
    call.font = font->LogFont();
    CFont* old = m_pFont;
    m_pFont = font;
    return old;
}

int CRecordingDC::CharAdvance() const {
    const std::int64_t height = std::llabs(m_pFont->LogFont().lfHeight);
    const std::int64_t advance = (height + 1) / 2;
    return advance < 1 ? 1 : static_cast<int>(advance);
}

CSize CRecordingDC::GetTextExtent(const char* text, int n) {
    DCCall& call = Record(DCOp::GetTextExtent);
    call.text = TextOf(text, n);
    const auto height = static_cast<std::int32_t>(std::llabs(m_pFont->LogFont().lfHeight));
    return CSize(static_cast<std::int32_t>(call.text.size()) * CharAdvance(), height);
}

bool CRecordingDC::ExtTextOut(int x, int y, unsigned int options, const RECT* clip,
                              const char* text, unsigned int n, const int* dx) {
    DCCall& call = Record(DCOp::ExtTextOut);
    call.args = {x, y, options};
    if (clip != nullptr) {
        call.args.insert(call.args.end(), {clip->left, clip->top, clip->right, clip->bottom});
    }
    call.text = TextOf(text, n);
    if (dx != nullptr && text != nullptr) {
        call.counts.assign(dx, dx + n);
    }
    return text != nullptr || n == 0;
}

unsigned int CRecordingDC::SetTextAlign(unsigned int flags) {
    Record(DCOp::SetTextAlign).args = {flags};
    const unsigned int old = m_nTextAlign;
    m_nTextAlign = flags;
    return old;
}

std::vector<std::string> CRecordingDC::Descriptions() const {
    std::vector<std::string> out;
    out.reserve(m_calls.size());
    for (const DCCall& call : m_calls) {
        out.push_back(call.Describe());
    }
    return out;
}

namespace {

// The ring counts of a recorded PolyPolygon or the advances of an ExtTextOut; null when none
// were recorded.
const int* CountsOrNull(const DCCall& call) {
    return call.counts.empty() ? nullptr : call.counts.data();
}

// Argument `i` of a recorded call, or 0 when the call recorded fewer.
int ArgAt(const DCCall& call, std::size_t i) {
    return i < call.args.size() ? static_cast<int>(call.args[i]) : 0;
}

}  // namespace

void CRecordingDC::Replay(CDC& target) const {
    std::deque<CPen> pens;
    std::deque<CFont> fonts;
    CPen* formerPen = nullptr;
    CFont* formerFont = nullptr;
    bool penChanged = false;
    bool fontChanged = false;
    for (const DCCall& call : m_calls) {
        const int n = static_cast<int>(call.points.size());
        switch (call.op) {
            case DCOp::SetROP2:
                target.SetROP2(ArgAt(call, 0));
                break;
            case DCOp::SetBkMode:
                target.SetBkMode(ArgAt(call, 0));
                break;
            case DCOp::MoveTo:
                target.MoveTo(ArgAt(call, 0), ArgAt(call, 1));
                break;
            case DCOp::LineTo:
                target.LineTo(ArgAt(call, 0), ArgAt(call, 1));
                break;
            case DCOp::Polygon:
                target.Polygon(call.points.data(), n);
                break;
            case DCOp::Polyline:
                target.Polyline(call.points.data(), n);
                break;
            case DCOp::PolyPolygon:
                target.PolyPolygon(call.points.data(), CountsOrNull(call),
                                   static_cast<int>(call.counts.size()));
                break;
            case DCOp::Rectangle:
                target.Rectangle(ArgAt(call, 0), ArgAt(call, 1), ArgAt(call, 2), ArgAt(call, 3));
                break;
            case DCOp::FillSolidRect: {
                const RECT r{ArgAt(call, 0), ArgAt(call, 1), ArgAt(call, 2), ArgAt(call, 3)};
                target.FillSolidRect(&r, static_cast<COLORREF>(ArgAt(call, 4)));
                break;
            }
            case DCOp::TextOut:
                target.TextOut(ArgAt(call, 0), ArgAt(call, 1), call.text.c_str(),
                               static_cast<int>(call.text.size()));
                break;
            case DCOp::SelectPen: {
                if (call.args.size() < 3) {
                    target.SelectObject(static_cast<CPen*>(nullptr));
                    break;
                }
                CPen& pen = pens.emplace_back(ArgAt(call, 0), ArgAt(call, 1),
                                              static_cast<COLORREF>(call.args[2]));
                CPen* old = target.SelectObject(&pen);
                if (!penChanged) {
                    formerPen = old;
                    penChanged = true;
                }
                break;
            }
            case DCOp::SelectFont: {
                CFont& font = fonts.emplace_back();
                font.CreateFontIndirect(&call.font);
                CFont* old = target.SelectObject(&font);
                if (!fontChanged) {
                    formerFont = old;
                    fontChanged = true;
                }
                break;
            }
            case DCOp::GetTextExtent:
                target.GetTextExtent(call.text.c_str(), static_cast<int>(call.text.size()));
                break;
            case DCOp::ExtTextOut: {
                RECT clip{};
                const bool hasClip = call.args.size() >= 7;
                if (hasClip) {
                    clip = RECT{ArgAt(call, 3), ArgAt(call, 4), ArgAt(call, 5), ArgAt(call, 6)};
                }
                target.ExtTextOut(ArgAt(call, 0), ArgAt(call, 1),
                                  static_cast<unsigned int>(ArgAt(call, 2)),
                                  hasClip ? &clip : nullptr, call.text.c_str(),
                                  static_cast<unsigned int>(call.text.size()), CountsOrNull(call));
                break;
            }
            case DCOp::SetTextAlign:
                target.SetTextAlign(static_cast<unsigned int>(ArgAt(call, 0)));
                break;
        }
    }
    if (penChanged && formerPen != nullptr) {
        target.SelectObject(formerPen);
    }
    if (fontChanged && formerFont != nullptr) {
        target.SelectObject(formerFont);
    }
}

}  // namespace ravelin
