#include "geometry/FRInterval.h"

#include <algorithm>

#include "geometry/FRConstants.h"

bool FRInterval::contains(double v) const {
    return v > m_start - RESABS && v < m_end + RESABS;
}

void FRInterval::extend(double v) {
    m_start = std::min(m_start, v);
    m_end = std::max(m_end, v);
}
