// AFR_Lin_List: an ordered list of points, read with forward iterators. Drawing code keeps the
// points scaled and divides each by the scale on reading.
#pragma once

#include "port/Export.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "geometry/FRPosition.h"

class ORV_API AFR_Lin_List {
public:
    using iterator = std::vector<FRPosition>::iterator;
    using const_iterator = std::vector<FRPosition>::const_iterator;

    AFR_Lin_List() = default;
    explicit AFR_Lin_List(std::vector<FRPosition> points) : m_points(std::move(points)) {}

    void AddPoint(const FRPosition& p) { m_points.push_back(p); }
    void RemoveAll() { m_points.clear(); }
    std::size_t GetSize() const { return m_points.size(); }
    bool IsEmpty() const { return m_points.empty(); }

    iterator begin() { return m_points.begin(); }
    iterator end() { return m_points.end(); }
    const_iterator begin() const { return m_points.begin(); }
    const_iterator end() const { return m_points.end(); }

private:
    std::vector<FRPosition> m_points;
};
