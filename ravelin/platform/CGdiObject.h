#pragma once

#include <cstdint>

#include "ravelin/RvExport.h"

namespace ravelin {

/// A colour as 0x00bbggrr.
using COLORREF = std::uint32_t;

/// Pen styles of the platform that the library uses.
inline constexpr int PS_SOLID = 0;
inline constexpr int PS_NULL = 5;

/// The size and face of a font, 60 bytes laid out as the platform lays them out.
struct tagLOGFONTA {
    std::int32_t lfHeight;
    std::int32_t lfWidth;
    std::int32_t lfEscapement;
    std::int32_t lfOrientation;
    std::int32_t lfWeight;
    std::uint8_t lfItalic;
    std::uint8_t lfUnderline;
    std::uint8_t lfStrikeOut;
    std::uint8_t lfCharSet;
    std::uint8_t lfOutPrecision;
    std::uint8_t lfClipPrecision;
    std::uint8_t lfQuality;
    std::uint8_t lfPitchAndFamily;
    char lfFaceName[32];
};
using LOGFONTA = tagLOGFONTA;
static_assert(sizeof(tagLOGFONTA) == 60);

/// Root of the drawing objects a device can select. An object is created empty and becomes
/// usable through its Create member; DeleteObject makes it empty again.
class RAVELIN_API CGdiObject {
public:
    CGdiObject() = default;
    CGdiObject(const CGdiObject&) = delete;
    CGdiObject& operator=(const CGdiObject&) = delete;
    virtual ~CGdiObject();

    /// Whether a Create member has succeeded since construction or the last DeleteObject.
    bool IsCreated() const { return m_bCreated; }
    /// Makes the object empty; false if it was empty already.
    bool DeleteObject();

protected:
    bool m_bCreated = false;
};

/// A pen: style, width in pixels, colour.
class RAVELIN_API CPen : public CGdiObject {
public:
    CPen() = default;
    CPen(int style, int width, COLORREF color) { CreatePen(style, width, color); }

    bool CreatePen(int style, int width, COLORREF color);
    int GetStyle() const { return m_nStyle; }
    int GetWidth() const { return m_nWidth; }
    COLORREF GetColor() const { return m_color; }

private:
    int m_nStyle = PS_SOLID;
    int m_nWidth = 0;
    COLORREF m_color = 0;
};

/// A font, made from a tagLOGFONTA description.
class RAVELIN_API CFont : public CGdiObject {
public:
    /// Keeps a copy of `*f`; false for a null pointer.
    bool CreateFontIndirect(const tagLOGFONTA* f);
    /// Copies the description to `*f`; false if the font is empty or `f` is null.
    bool GetLogFont(tagLOGFONTA* f) const;
    const tagLOGFONTA& LogFont() const { return m_logFont; }

private:
    tagLOGFONTA m_logFont{};
};

}  // namespace ravelin
