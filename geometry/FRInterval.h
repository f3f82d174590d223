// FRInterval: the closed range [start, end] of one coordinate.
#pragma once

#include "port/Export.h"

class ORV_API FRInterval {
public:
    constexpr FRInterval() = default;
    constexpr FRInterval(double start, double end) : m_start(start), m_end(end) {}

    constexpr double start_pt() const { return m_start; }
    constexpr double end_pt() const { return m_end; }
    void set_start_pt(double v) { m_start = v; }
    void set_end_pt(double v) { m_end = v; }

    constexpr double length() const { return m_end - m_start; }
    // Within the range, widened by RESABS at both ends.
    bool contains(double v) const;
    // Widens the range to hold v.
    void extend(double v);

private:
    double m_start = 0.0;
    double m_end = 0.0;
};
