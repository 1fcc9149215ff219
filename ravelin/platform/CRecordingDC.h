#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ravelin/RvExport.h"
#include "ravelin/platform/CDC.h"

namespace ravelin {

/// The operations a CRecordingDC records, one per virtual operation of CDC.
enum class DCOp {
    SetROP2,
    SetBkMode,
    MoveTo,
    LineTo,
    Polygon,
    Polyline,
    PolyPolygon,
    Rectangle,
    FillSolidRect,
    TextOut,
    SelectPen,
    SelectFont,
    GetTextExtent,
    ExtTextOut,
    SetTextAlign,
};

/// One recorded call with its arguments.
///
/// `args` holds the integer arguments in the order of the call: the mode of SetROP2, SetBkMode
/// and SetTextAlign; x, y of MoveTo, LineTo and TextOut; the four sides of Rectangle; the sides
/// and the colour of FillSolidRect; style, width and colour of a selected pen (nothing for a
/// null pen); x, y, options and, when a clip rectangle is given, its four sides for ExtTextOut.
/// `points` holds the point array of Polygon, Polyline and PolyPolygon; `counts` the ring counts
/// of PolyPolygon and the advances of ExtTextOut; `text` the characters of TextOut,
/// GetTextExtent and ExtTextOut; `font` the description of a selected font.
struct RAVELIN_API DCCall {
    DCOp op;
    std::vector<std::int64_t> args;
    std::vector<tagPOINT> points;
    std::vector<int> counts;
    std::string text;
    tagLOGFONTA font{};

    /// The call in one line, e.g. "MoveTo(3, 4)" or "Polygon((0, 0) (10, 0) (10, 10))".
    std::string Describe() const;
};

/// A device context that draws nothing and records every call, queries included, with its
/// arguments. It keeps the state the calls change (raster operation, background mode, text
/// alignment, pen position, selected pen and font), so it answers as a device would. Text is
/// measured deterministically: every character advances by half the magnitude of the selected
/// font's `lfHeight`, rounded up, and at least 1 pixel, and the extent's height is that
/// magnitude. A fresh device has the raster operation R2_COPYPEN, the background mode OPAQUE,
/// the alignment 0, the pen at (0, 0), a solid black pen of width 0 and a font 16 pixels high.
class RAVELIN_API CRecordingDC : public CDC {
public:
    CRecordingDC();
    ~CRecordingDC() override;

    int SetROP2(int mode) override;
    int SetBkMode(int mode) override;
    CPoint MoveTo(int x, int y) override;
    bool LineTo(int x, int y) override;
    bool Polygon(const POINT* points, int n) override;
    bool Polyline(const POINT* points, int n) override;
    bool PolyPolygon(const POINT* points, const int* counts, int polyCount) override;
    bool Rectangle(int left, int top, int right, int bottom) override;
    void FillSolidRect(const RECT* r, COLORREF color) override;
    bool TextOut(int x, int y, const char* text, int n) override;
    /// A null pen is recorded, changes nothing and gives null.
    CPen* SelectObject(CPen* pen) override;
    /// A null font is recorded, changes nothing and gives null.
    CFont* SelectObject(CFont* font) override;
    CSize GetTextExtent(const char* text, int n) override;
    bool ExtTextOut(int x, int y, unsigned int options, const RECT* clip, const char* text,
                    unsigned int n, const int* dx) override;
    unsigned int SetTextAlign(unsigned int flags) override;

    int GetROP2() const { return m_nROP2; }
    int GetBkMode() const { return m_nBkMode; }
    unsigned int GetTextAlign() const { return m_nTextAlign; }
    CPoint GetCurrentPosition() const { return m_position; }
    CPen* GetCurrentPen() const { return m_pPen; }
    CFont* GetCurrentFont() const { return m_pFont; }
    /// The advance of one character in the selected font.
    int CharAdvance() const;

    const std::vector<DCCall>& Calls() const { return m_calls; }
    /// Describe() of every call, in order.
    std::vector<std::string> Descriptions() const;
    void ClearCalls() { m_calls.clear(); }

    /// Issues the recorded calls again, in order, on `target`. Pens and fonts are made afresh
    /// from the recorded descriptions and live for the replay; the pen and font that `target`
    /// had selected before are selected again at the end.
    void Replay(CDC& target) const;

private:
    DCCall& Record(DCOp op);

    int m_nROP2 = R2_COPYPEN;
    int m_nBkMode = OPAQUE;
    unsigned int m_nTextAlign = 0;
    CPoint m_position;
    CPen m_stockPen;
    CFont m_stockFont;
    CPen* m_pPen;
    CFont* m_pFont;
    std::vector<DCCall> m_calls;
};

}  // namespace ravelin
