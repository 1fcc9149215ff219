#pragma once

// Helpers shared by the test programs: raw bytes of archives, exceptions and their causes, and
// message boxes recorded instead of shown.

#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/AfxMessageBox.h"
#include "ravelin/platform/CGdiObject.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin::testing_support {

// ---------------------------------------------------------------------------------------------
// Bytes

using Bytes = std::vector<std::uint8_t>;

// Appends the four little-endian bytes of `value`.
inline void AppendInt32(Bytes& bytes, std::int32_t value) {
    const auto bits = static_cast<std::uint32_t>(value);
    for (int i = 0; i < 4; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(bits >> (8 * i)));
    }
}

// Appends the eight little-endian bytes of `value`.
inline void AppendDouble(Bytes& bytes, double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    for (int i = 0; i < 8; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(bits >> (8 * i)));
    }
}

// Appends the characters of `text`, one byte each and without a terminator.
inline void AppendText(Bytes& bytes, std::string_view text) {
    for (const char ch : text) {
        bytes.push_back(static_cast<std::uint8_t>(ch));
    }
}

// The little-endian double stored at `offset`.
inline double DoubleAt(const Bytes& bytes, std::size_t offset) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < 8; ++i) {
        bits |= static_cast<std::uint64_t>(bytes.at(offset + i)) << (8 * i);
    }
    return std::bit_cast<double>(bits);
}

// The `count` bytes from `offset` on.
inline Bytes Slice(const Bytes& bytes, std::size_t offset, std::size_t count) {
    return {bytes.begin() + static_cast<std::ptrdiff_t>(offset),
            bytes.begin() + static_cast<std::ptrdiff_t>(offset + count)};
}

// ---------------------------------------------------------------------------------------------
// Exceptions

// Fails the test unless `action` throws an `Exception` whose what() is `message`.
template <class Exception, class Action>
void ExpectThrowWithMessage(Action action, const std::string& message) {
    try {
        action();
        ADD_FAILURE() << "nothing was thrown";
    } catch (const Exception& e) {
        EXPECT_EQ(std::string(e.what()), message);
    }
}

// The m_cause of the `Exception` that `action` throws, or -1 when it throws nothing.
template <class Exception, class Action>
int CauseOf(Action action) {
    try {
        action();
    } catch (const Exception& e) {
        return e.m_cause;
    }
    return -1;
}

// ---------------------------------------------------------------------------------------------
// Message boxes

// The one-shot warning of a vector that cannot be normalised, in UTF-8: "There was a problem
// normalising a vector during the calculation! If the function does not work properly, close it
// and try to use it again."
inline const std::string kNormalizeWarning = [] {
    constexpr std::u8string_view text =
        u8"Nastal problém s normalizáciou vektora pri výpočte!\n\n"
        u8"Pokiaľ funkcia nebude pracovať správne,\n"
        u8"ukončite ju a pokúste sa ju použiť znova.";
    return std::string(text.begin(), text.end());
}();

// One message box as the handler received it.
struct MessageBoxCall {
    std::string text;
    unsigned type;
    unsigned helpId;
};

// A handler that appends every message box to `calls` and answers `answer`.
inline AfxMessageBoxHandler RecordingHandler(std::vector<MessageBoxCall>& calls,
                                             int answer = IDOK) {
    return [&calls, answer](const char* text, unsigned type, unsigned helpId) {
        calls.push_back({text, type, helpId});
        return answer;
    };
}

// Installs `handler` while it lives and puts back the handler it replaced.
class ScopedMessageBoxHandler {
public:
    explicit ScopedMessageBoxHandler(AfxMessageBoxHandler handler)
        : m_previous(AfxSetMessageBoxHandler(std::move(handler))) {}
    ~ScopedMessageBoxHandler() { AfxSetMessageBoxHandler(std::move(m_previous)); }
    ScopedMessageBoxHandler(const ScopedMessageBoxHandler&) = delete;
    ScopedMessageBoxHandler& operator=(const ScopedMessageBoxHandler&) = delete;

private:
    AfxMessageBoxHandler m_previous;
};

// Records every message box instead of showing it, and arms the process-wide warning of
// Normalize; the previous handler is put back and the warning armed again when it goes.
class MessageBoxRecorder {
public:
    MessageBoxRecorder() { RvPoint3D::Activate_Normalize_Warning_ERR(); }
    ~MessageBoxRecorder() { RvPoint3D::Activate_Normalize_Warning_ERR(); }
    MessageBoxRecorder(const MessageBoxRecorder&) = delete;
    MessageBoxRecorder& operator=(const MessageBoxRecorder&) = delete;

    // The message boxes shown so far, oldest first.
    const std::vector<MessageBoxCall>& calls() const { return m_calls; }

private:
    std::vector<MessageBoxCall> m_calls;
    ScopedMessageBoxHandler m_handler{RecordingHandler(m_calls)};
};

// --- Points ------------------------------------------------------------------------------

/// `x`, `y`, `z` of `p` exactly; for results whose arithmetic is exact in doubles.
inline testing::AssertionResult PointIs(const RvPoint3D& p, double x, double y, double z) {
    if (p.x == x && p.y == y && p.z == z) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "(" << p.x << ", " << p.y << ", " << p.z << ") is not ("
                                       << x << ", " << y << ", " << z << ")";
}

/// All five values of `p` exactly; for results whose arithmetic is exact in doubles.
inline testing::AssertionResult HasValues(const RvPoint2D& p, double x, double y, double z,
                                          double x2D, double y2D) {
    if (p.x == x && p.y == y && p.z == z && p.x2D == x2D && p.y2D == y2D) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "got x=" << p.x << " y=" << p.y << " z=" << p.z << " x2D=" << p.x2D
           << " y2D=" << p.y2D << ", expected x=" << x << " y=" << y << " z=" << z << " x2D=" << x2D
           << " y2D=" << y2D;
}

/// `x`, `y`, `z` of `p` each within `tol`.
inline void ExpectXyzNear(const RvPoint3D& p, double x, double y, double z, double tol) {
    EXPECT_NEAR(p.x, x, tol);
    EXPECT_NEAR(p.y, y, tol);
    EXPECT_NEAR(p.z, z, tol);
}

// Whether two entities hold the same vertices in the same order, all five values exactly: a
// copy, not a recomputed ring.
inline testing::AssertionResult SameVertices(const RvDrawEntity& a, const RvDrawEntity& b) {
    if (a.size() != b.size()) {
        return testing::AssertionFailure() << a.size() << " vertices against " << b.size();
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        const RvPoint2D& p = a[i];
        const RvPoint2D& q = b[i];
        if (p.x != q.x || p.y != q.y || p.z != q.z || p.x2D != q.x2D || p.y2D != q.y2D) {
            return testing::AssertionFailure() << "vertex " << i << " differs";
        }
    }
    return testing::AssertionSuccess();
}

/// The planar pair of `p` exactly.
inline testing::AssertionResult PlanarIs(const RvPoint2D& p, double x2D, double y2D) {
    if (p.x2D == x2D && p.y2D == y2D) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "(" << p.x2D << ", " << p.y2D << ") is not (" << x2D << ", " << y2D << ")";
}

/// The planar pair of `p` each within `tol`.
inline void ExpectPlanarNear(const RvPoint2D& p, double x2D, double y2D, double tol) {
    EXPECT_NEAR(p.x2D, x2D, tol);
    EXPECT_NEAR(p.y2D, y2D, tol);
}

/// An expected vertex: a point in space whose planar pair follows its `x`, `y`.
struct VertexAt {
    double x;
    double y;
    double z = 0.0;
};

/// The vertices of `e`, in order, each within `tol` of the point expected, in space and on the
/// planar pair.
inline void ExpectVerticesNear(const RvDrawEntity& e, std::initializer_list<VertexAt> expected,
                               double tol = 1e-9) {
    ASSERT_EQ(e.size(), expected.size());
    std::size_t k = 0;
    for (const VertexAt& v : expected) {
        SCOPED_TRACE("vertex " + std::to_string(k));
        ExpectXyzNear(e[k], v.x, v.y, v.z, tol);
        ExpectPlanarNear(e[k], v.x, v.y, tol);
        ++k;
    }
}

// --- Entities ----------------------------------------------------------------------------

/// A path of the given vertices, appended one at a time: Path({{0, 0}, {10, 0}}) or
/// Path({a, b}). (A vector initialised from a brace list, read through the checked subscript,
/// draws a false -Warray-bounds from GCC 12 at -O3.)
inline RvPolyLine2D Path(std::initializer_list<RvPoint2D> points) {
    RvPolyLine2D path;
    for (const RvPoint2D& p : points) {
        path.push_backA(p);
    }
    return path;
}

/// The same, with the vertices as arguments: Path(a, b, c).
template <class... Points>
RvPolyLine2D Path(const Points&... points) {
    RvPolyLine2D path;
    (path.push_backA(RvPoint2D(points)), ...);
    return path;
}

/// A polygon of the given vertices, appended one at a time, stored as given.
inline RvPolygon2D Ring(std::initializer_list<RvPoint2D> points) {
    RvPolygon2D ring;
    for (const RvPoint2D& p : points) {
        ring.push_backA(p);
    }
    return ring;
}

// --- Drawing -----------------------------------------------------------------------------

/// A font description of height `height` and face `face`, the rest zero.
inline tagLOGFONTA FontOf(std::int32_t height, const char* face) {
    tagLOGFONTA f{};
    f.lfHeight = height;
    std::strncpy(f.lfFaceName, face, sizeof(f.lfFaceName) - 1);
    return f;
}

}  // namespace ravelin::testing_support
