#include "util/GeometryHelpers.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "geometry/FRConstants.h"

FRBox CreateBoundingBox(double size[3], FRPosition centre, double margin) {
    const FRVector half(size[0] / 2.0 + margin, size[1] / 2.0 + margin, size[2] / 2.0 + margin);
    return FRBox(centre - half, centre + half);
}

void TransformBox(FRBox box, FRTransf transf, FRBox& result) {
    std::vector<FRPosition> corners;
    corners.reserve(8);
    for (const double x : {box.x_range().start_pt(), box.x_range().end_pt()}) {
        for (const double y : {box.y_range().start_pt(), box.y_range().end_pt()}) {
            for (const double z : {box.z_range().start_pt(), box.z_range().end_pt()}) {
                corners.push_back(FRPosition(x, y, z) * transf);
            }
        }
    }
    result = CreateBoxFromPoints(corners);
}

FRUnitVector project_uv_on_plane(FRUnitVector& v, FRUnitVector& normal) {
    if (FRVector(v).length() < RESABS) {
        return {};
    }
    const FRPosition origin;
    return normalize(project_on_plane(origin + v, origin, normal) - origin);
}

double CalculateAngle(FRUnitVector& a, FRUnitVector& b, FRUnitVector normal) {
    if (FRVector(normal).length() > RESABS) {
        a = project_uv_on_plane(a, normal);
        b = project_uv_on_plane(b, normal);
    }
    const double angle = std::acos(std::clamp(FRVector(a) % FRVector(b), -1.0, 1.0));
    if (angle > PI - RESABS) {
        return angle;
    }
    const FRUnitVector cross = a * b;
    return parallel(cross, normal) == -1 ? PI_2 - angle : angle;
}

int GetPerpendicularVector(FRUnitVector& v, FRUnitVector* first, FRUnitVector* second) {
    if (first == nullptr || second == nullptr) {
        return 0;
    }
    const auto negligible = [](double c) { return std::fabs(c) < RESABS; };
    if (negligible(v.x()) && negligible(v.y()) && negligible(v.z())) {
        return 0;
    }
    FRVector w(1.0, 1.0, 1.0);
    if (!negligible(v.x())) {
        w.set_x((-v.y() - v.z()) / v.x());
    } else if (!negligible(v.y())) {
        w.set_y((-v.x() - v.z()) / v.y());
    } else {
        w.set_z((-v.x() - v.y()) / v.z());
    }
    *first = normalize(w);
    *second = normalize(v * w);
    return 1;
}
