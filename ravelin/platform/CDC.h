#pragma once

#include <cstdint>

#include "ravelin/RvExport.h"
#include "ravelin/platform/CGdiObject.h"
#include "ravelin/platform/CPoint.h"
#include "ravelin/platform/CRect.h"
#include "ravelin/platform/CSize.h"

namespace ravelin {

class CDC;

/// The handle of a device, as the free drawing functions below take it.
using HDC = CDC*;

/// Raster operations: how a pen or fill combines with what is on the device.
inline constexpr int R2_XORPEN = 7;
inline constexpr int R2_COPYPEN = 13;
inline constexpr int R2_MERGEPEN = 15;

/// Background modes.
inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;

/// Text alignment flags.
inline constexpr unsigned int TA_TOP = 0;
inline constexpr unsigned int TA_BASELINE = 24;

/// A device context: the surface every entity draws on. Each operation is virtual, so that a
/// client renders on a device of its own by deriving from this class; CRecordingDC keeps the
/// calls. A device answers its handle through `m_hDC`, and measures text on `m_hAttribDC`,
/// which is the device itself unless the client sets another.
class RAVELIN_API CDC {
public:
    HDC m_hDC;
    HDC m_hAttribDC;

    CDC();
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;
    virtual ~CDC();

    HDC GetSafeHdc() const { return m_hDC; }

    /// Sets the raster operation and returns the former one.
    virtual int SetROP2(int mode) = 0;
    /// Sets the background mode and returns the former one.
    virtual int SetBkMode(int mode) = 0;
    /// Moves the pen without drawing and returns its former position.
    virtual CPoint MoveTo(int x, int y) = 0;
    /// A line from the pen position to (x, y), which becomes the pen position.
    virtual bool LineTo(int x, int y) = 0;
    /// A closed outline of `n` points, filled.
    virtual bool Polygon(const POINT* points, int n) = 0;
    /// An open outline of `n` points.
    virtual bool Polyline(const POINT* points, int n) = 0;
    /// `polyCount` closed outlines, the i-th of `counts[i]` consecutive points, filled together.
    virtual bool PolyPolygon(const POINT* points, const int* counts, int polyCount) = 0;
    /// A rectangle outline, filled.
    virtual bool Rectangle(int left, int top, int right, int bottom) = 0;
    /// Fills `r` with one colour, regardless of the pen and the raster operation.
    virtual void FillSolidRect(const RECT* r, COLORREF color) = 0;
    /// `n` characters of `text` at (x, y).
    virtual bool TextOut(int x, int y, const char* text, int n) = 0;
    /// Selects `pen` and returns the former one.
    virtual CPen* SelectObject(CPen* pen) = 0;
    /// Selects `font` and returns the former one.
    virtual CFont* SelectObject(CFont* font) = 0;
    /// The extent of `n` characters of `text` in the selected font.
    virtual CSize GetTextExtent(const char* text, int n) = 0;
    /// `n` characters of `text` at (x, y), the i-th followed by an advance of `dx[i]` pixels, or
    /// by its own width when `dx` is null.
    virtual bool ExtTextOut(int x, int y, unsigned int options, const RECT* clip, const char* text,
                            unsigned int n, const int* dx) = 0;
    /// Sets the text alignment flags and returns the former ones.
    virtual unsigned int SetTextAlign(unsigned int flags) = 0;
};

// Drawing functions on a device handle. Each forwards to the device; a null handle draws
// nothing and answers false (or an empty extent).

RAVELIN_API bool Polygon(HDC dc, const POINT* points, int n);
RAVELIN_API bool Polyline(HDC dc, const POINT* points, int n);
RAVELIN_API bool PolyPolygon(HDC dc, const POINT* points, const int* counts, int polyCount);
RAVELIN_API bool Rectangle(HDC dc, int left, int top, int right, int bottom);
RAVELIN_API bool GetTextExtentPoint32A(HDC dc, const char* text, int n, SIZE* size);
RAVELIN_API bool ExtTextOutA(HDC dc, int x, int y, unsigned int options, const RECT* clip,
                             const char* text, unsigned int n, const int* dx);

}  // namespace ravelin
