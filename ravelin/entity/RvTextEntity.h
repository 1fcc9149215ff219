#pragma once

#include <utility>

#include "ravelin/RvExport.h"
#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/platform/CGdiObject.h"
#include "ravelin/platform/CString.h"

namespace ravelin {

/// A text placed by its vertices: the first four are the corners of its frame, in order, and the
/// text is spread along the side from vertex 1 to vertex 2 so as to fill it. A fifth vertex, if
/// present, anchors the text on its baseline. Too small to read, it draws as its frame only. Its
/// type word is 8.
class RAVELIN_API RvTextEntity : public RvDrawEntity {
public:
    static constexpr unsigned int kType = 8;

    /// No vertices, an empty text, a zero font description and a factor of 0.
    RvTextEntity();
    /// Copies the vertices, the reserved words and the font description; the copy has no text
    /// and a factor of 0.
    RvTextEntity(const RvTextEntity& t);
    /// Copies the entity part and the font description; the text and the factor stay this
    /// entity's own.
    RvTextEntity& operator=(const RvTextEntity& t);
    ~RvTextEntity() override;

    /// The text, by value.
    CString GetText() const { return m_text; }
    /// Replaces the text.
    void SetText(CString text) { m_text = std::move(text); }
    /// Stores the factor kept for the client; nothing in the library reads it.
    void SetFontFactor(double f) { m_dFontFactor = f; }
    /// The factor kept for the client.
    double GetFontFactor() const { return m_dFontFactor; }
    /// Copies `*f` as the font description; no font object is made.
    void CreateFontIndirectA(const tagLOGFONTA* f);
    /// Copies the font description to `*f`.
    void GetLogFont(tagLOGFONTA* f) const;
    /// As RvDrawEntity::ReInit, then the type word 8 and a zero font description; the text
    /// stays.
    void ReInit();

    /// Draws the text stretched along the side from vertex 1 to vertex 2, at vertex 0, or on its
    /// baseline at vertex 4 when there are exactly five vertices. With no vertices or a font
    /// height of 5 or less (negative heights included) only the frame of the first four vertices
    /// is drawn, in XOR mode, and nothing with fewer than four. Fewer than three vertices with a
    /// larger font raise "invalid vector<T> subscript". An empty text draws nothing. Always
    /// returns an empty rectangle.
    CRect Draw(CDC* dc) override;
    /// Whether the pixel of `p` lies inside the frame of vertices 0 to 3, as the platform
    /// rasterises it; `snap` then becomes SnapInside. `d` is not used and `hit` only takes the
    /// type word. Fewer than four vertices raise "invalid vector<T> subscript".
    bool IsIncident(const RvPoint2D& p, double& d, enumSnapType& snap,
                    RvDrawEntity& hit) const override;
    /// `mode` 1: every vertex's pixel in `r`. `mode` 2: some vertex's pixel in `r`, or a side of
    /// `r` crossing the path of the vertices. An empty `r` or another mode gives false.
    bool InvSelectArea(const CRect& r, int mode) const override;
    /// A text has no vertex hits: always false, with the arguments untouched.
    bool IsOnVertex(RvPoint2D& cursor, RvPoint2D& found, double& tol) override;

    CString m_text;         ///< The text.
    double m_dFontFactor;   ///< A factor kept for the client; nothing in the library reads it.
    tagLOGFONTA m_logFont;  ///< The description of the font the text is drawn with.
};

}  // namespace ravelin
