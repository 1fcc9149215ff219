#include "ravelin/platform/CDC.h"

namespace ravelin {

CDC::CDC() : m_hDC(this), m_hAttribDC(this) {}

CDC::~CDC() = default;

bool Polygon(HDC dc, const POINT* points, int n) {
    return dc != nullptr && dc->Polygon(points, n);
}

bool Polyline(HDC dc, const POINT* points, int n) {
    return dc != nullptr && dc->Polyline(points, n);
}

bool PolyPolygon(HDC dc, const POINT* points, const int* counts, int polyCount) {
    return dc != nullptr && dc->PolyPolygon(points, counts, polyCount);
}

bool Rectangle(HDC dc, int left, int top, int right, int bottom) {
    return dc != nullptr && dc->Rectangle(left, top, right, bottom);
}

bool GetTextExtentPoint32A(HDC dc, const char* text, int n, SIZE* size) {
    if (dc == nullptr || size == nullptr) {
        return false;
    }
    *size = dc->GetTextExtent(text, n);
    return true;
}

bool ExtTextOutA(HDC dc, int x, int y, unsigned int options, const RECT* clip, const char* text,
                 unsigned int n, const int* dx) {
    return dc != nullptr && dc->ExtTextOut(x, y, options, clip, text, n, dx);
}

}  // namespace ravelin
