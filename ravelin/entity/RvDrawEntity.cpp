#include "ravelin/entity/RvDrawEntity.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "ravelin/platform/CheckedVector.h"

namespace ravelin {

RvDrawEntity::RvDrawEntity()
    : reservedWord1(0),
      reservedWord2(0),
      reservedWord3(0),
      reservedFlag(0),
      intersectStatus(0),
      type(0),
      next(nullptr),
      prev(nullptr) {}

RvDrawEntity::RvDrawEntity(const RvDrawEntity& e)
    : Base(e),
      reservedWord1(e.reservedWord1),
      reservedWord2(e.reservedWord2),
      reservedWord3(0),
      reservedFlag(0),
      intersectStatus(0),
      type(0),
      next(nullptr),
      prev(nullptr) {}

RvDrawEntity& RvDrawEntity::operator=(const RvDrawEntity& e) {
    if (this != &e) {
        Base::operator=(e);
    }
    reservedWord1 = e.reservedWord1;
    reservedWord2 = e.reservedWord2;
    reservedFlag = e.reservedFlag;
    reservedWord3 = e.reservedWord3;
    type = e.type;
    next = nullptr;
    prev = nullptr;
    return *this;
}

RvDrawEntity::~RvDrawEntity() {
    clear();
    if (next != nullptr) {
        next->prev = prev;
    }
    if (prev != nullptr) {
        prev->next = next;
    }
}

bool RvDrawEntity::IsOnVertex(RvPoint2D& cursor, RvPoint2D& found, double& tol) {
    // The cursor square in whole pixels, truncated toward zero and put in order.
    const auto square = [&cursor](double t) {
        CRect r(TruncateToPixel(cursor.x2D - t), TruncateToPixel(cursor.y2D - t),
                TruncateToPixel(cursor.x2D + t), TruncateToPixel(cursor.y2D + t));
        r.NormalizeRect();
        return r;
    };
    CRect r = square(tol);
    bool hit = false;
    for (const RvPoint2D& v : static_cast<Base&>(*this)) {
        if (!PtInRect(&r, v.GetPOINT())) {
            continue;
        }
        found = v;
        const double m =
            std::max(std::fabs(found.x2D - cursor.x2D), std::fabs(found.y2D - cursor.y2D));
        tol = m + 1.0;
        r = square(tol);
        hit = true;
    }
    return hit;
}

// ---- List ------------------------------------------------------------------------------------

void RvDrawEntity::SetNextItem(RvDrawEntity* e) {
    next = e;
    e->prev = this;
}

void RvDrawEntity::ClearThisItem() {
    next = nullptr;
    prev = nullptr;
}

void RvDrawEntity::DeleteWholeList(RvDrawEntity** head) {
    while (*head != nullptr) {
        RvDrawEntity* following = (*head)->next;
        delete *head;
        *head = following;
    }
}

// ---- Vertices --------------------------------------------------------------------------------

RvPoint2D& RvDrawEntity::operator[](size_type i) {
    return CheckedAt(static_cast<Base&>(*this), i);
}

const RvPoint2D& RvDrawEntity::operator[](size_type i) const {
    return CheckedAt(static_cast<const Base&>(*this), i);
}

void RvDrawEntity::clearA() {
    clear();
}

void RvDrawEntity::push_backA(const RvPoint2D& p) {
    push_back(p);
}

void RvDrawEntity::insertA(const_iterator pos, const RvPoint2D& p) {
    insert(pos, p);
}

void RvDrawEntity::insertA(const_iterator pos, const RvPoint2D* first, const RvPoint2D* last) {
    insert(pos, first, last);
}

void RvDrawEntity::assignA(const_iterator first, const_iterator last) {
    // The range may lie in this very entity, so it is copied before the vertices go.
    Base range(first, last);
    clear();
    insert(begin(), range.begin(), range.end());
}

void RvDrawEntity::ReInit() {
    clear();
    reservedWord1 = 0;
    reservedWord2 = 0;
    reservedWord3 = 0;
    reservedFlag = 0;
    intersectStatus = 0;
    type = 0;
    next = nullptr;
    prev = nullptr;
}

// ---- Index arithmetic --------------------------------------------------------------------------

void RvDrawEntity::ValidateIndex(int& i) const {
    const int n = static_cast<int>(size());
    if (n == 0) {
        return;  // no count to wrap by; the loops below would never end
    }
    // One remainder step does what the repeated additions do, without their running time.
    i %= n;
    if (i < 0) {
        i += n;
    }
}

RvDrawEntity::iterator RvDrawEntity::GetNextPoint(int i) {
    if (empty() || static_cast<std::size_t>(static_cast<unsigned int>(i)) >= size() - 1) {
        return begin();
    }
    return begin() + (i + 1);
}

RvDrawEntity::const_iterator RvDrawEntity::GetNextPoint(int i) const {
    return const_cast<RvDrawEntity*>(this)->GetNextPoint(i);
}

RvDrawEntity::iterator RvDrawEntity::GetNextPoint(iterator it) {
    return GetNextPoint(static_cast<int>(it - begin()));
}

RvDrawEntity::const_iterator RvDrawEntity::GetNextPoint(const_iterator it) const {
    return GetNextPoint(static_cast<int>(it - cbegin()));
}

RvDrawEntity::iterator RvDrawEntity::GetPrevPoint(int i) {
    if (empty()) {
        return end();
    }
    if (i <= 0) {
        return end() - 1;
    }
    if (static_cast<std::size_t>(i) > size()) {
        ThrowInvalidSubscript();
    }
    return begin() + (i - 1);
}

RvDrawEntity::const_iterator RvDrawEntity::GetPrevPoint(int i) const {
    return const_cast<RvDrawEntity*>(this)->GetPrevPoint(i);
}

RvDrawEntity::iterator RvDrawEntity::GetPrevPoint(iterator it) {
    return GetPrevPoint(static_cast<int>(it - begin()));
}

RvDrawEntity::const_iterator RvDrawEntity::GetPrevPoint(const_iterator it) const {
    return GetPrevPoint(static_cast<int>(it - cbegin()));
}

// ---- Transformations ---------------------------------------------------------------------------

void RvDrawEntity::Move(RvPoint2D d) {
    for (RvPoint2D& v : static_cast<Base&>(*this)) {
        v = v + d;
    }
}

void RvDrawEntity::Mirror(double a, double b, double c, double d) {
    for (RvPoint2D& v : static_cast<Base&>(*this)) {
        const RvPoint3D m = v.GetSumernyBod(a, b, c, d);
        v.x = m.x;
        v.y = m.y;
        v.z = m.z;
        v.x2D = v.x;
        v.y2D = v.y;
    }
}

void RvDrawEntity::Locate(double z) {
    for (RvPoint2D& v : static_cast<Base&>(*this)) {
        v.z = z;
    }
}

void RvDrawEntity::Reverse() {
    const Base copy(rbegin(), rend());
    Base::operator=(copy);
}

// ---- Queries -----------------------------------------------------------------------------------

double RvDrawEntity::GetLength() const {
    double len = 0.0;
    for (std::size_t k = 1; k < size(); ++k) {
        len += (*this)[k].Distance((*this)[k - 1]);
    }
    return len;
}

RvPoint3D RvDrawEntity::GetSegmentVector(int i) const {
    const RvPoint3D& end = (*this)[static_cast<size_type>(i)];
    const RvPoint3D& start = *GetPrevPoint(i);
    return end - start;
}

RvPoint3D RvDrawEntity::GetSegmentNormalVector(int i, bool up) const {
    RvPoint3D n = GetSegmentVector(i).GetVektorovySucin(RvPoint3D(0, 0, up ? 1 : -1));
    if (n.IsNotNull()) {
        n.Normalize();
    }
    return n;
}

bool RvDrawEntity::IsInHalfSpace(double a, double b, double c, double d, int sign) const {
    return std::all_of(begin(), end(), [&](const RvPoint2D& v) {
        return !(sign * (a * v.x + b * v.y + c * v.z + d) > 1e-07);
    });
}

tagPOINT* RvDrawEntity::GetPOINTArray() const {
    auto* points = new tagPOINT[size()];
    for (std::size_t k = 0; k < size(); ++k) {
        points[k] = (*this)[k].GetPOINT();
    }
    return points;
}

// ---- Bounding queries --------------------------------------------------------------------------

bool RvDrawEntity::GetExtens2D(CTtagRECT& r) const {
    r = CTtagRECT{0, 0, 0, 0};
    if (size() < 2) {
        return false;
    }
    r = CTtagRECT{(*this)[0].x2D, (*this)[0].y2D, (*this)[0].x2D, (*this)[0].y2D};
    for (const RvPoint2D& v : static_cast<const Base&>(*this)) {
        r.left = std::min(r.left, v.x2D);
        r.right = std::max(r.right, v.x2D);
        r.top = std::min(r.top, v.y2D);
        r.bottom = std::max(r.bottom, v.y2D);
    }
    return true;
}

CRect RvDrawEntity::GetBoundingRect() const {
    const tagPOINT first = (*this)[0].GetPOINT();
    CRect r(first.x, first.y, first.x, first.y);
    for (const RvPoint2D& v : static_cast<const Base&>(*this)) {
        const tagPOINT p = v.GetPOINT();
        r.left = std::min(r.left, p.x);
        r.right = std::max(r.right, p.x);
        r.top = std::min(r.top, p.y);
        r.bottom = std::max(r.bottom, p.y);
    }
    return r;
}

void RvDrawEntity::GetBoundingCube(RvPoint3D& lo, RvPoint3D& hi) const {
    if (size() < 2) {
        lo.Set(0, 0, 0);
        hi.Set(0, 0, 0);
        return;
    }
    lo.Set((*this)[0].x, (*this)[0].y, (*this)[0].z);
    hi = lo;
    for (const RvPoint2D& v : static_cast<const Base&>(*this)) {
        lo.Set(std::min(lo.x, v.x), std::min(lo.y, v.y), std::min(lo.z, v.z));
        hi.Set(std::max(hi.x, v.x), std::max(hi.y, v.y), std::max(hi.z, v.z));
    }
}

void RvDrawEntity::GetBoundingRectangle(RvDrawEntity& out, double margin) const {
    double minX = (*this)[0].x;
    double minY = (*this)[0].y;
    double maxX = minX;
    double maxY = minY;
    for (const RvPoint2D& v : static_cast<const Base&>(*this)) {
        minX = std::min(minX, v.x);
        minY = std::min(minY, v.y);
        maxX = std::max(maxX, v.x);
        maxY = std::max(maxY, v.y);
    }
    out.clearA();
    out.push_backA(RvPoint2D(minX - margin, minY - margin));
    out.push_backA(RvPoint2D(maxX + margin, minY - margin));
    out.push_backA(RvPoint2D(maxX + margin, maxY + margin));
    out.push_backA(RvPoint2D(minX - margin, maxY + margin));
}

}  // namespace ravelin
