#include "geometry/FRBox.h"

bool FRBox::contains(const FRPosition& p) const {
    return m_x.contains(p.x()) && m_y.contains(p.y()) && m_z.contains(p.z());
}

void FRBox::extend(const FRPosition& p) {
    m_x.extend(p.x());
    m_y.extend(p.y());
    m_z.extend(p.z());
}

FRBox CreateBoxFromPoints(const std::vector<FRPosition>& points) {
    if (points.empty()) {
        return {};
    }
    FRBox box(points.front(), points.front());
    for (const FRPosition& p : points) {
        box.extend(p);
    }
    return box;
}
