#include "objects/OrvSetupParamHelper.h"

#include "util/GeometryArchive.h"

// OrvParamHelper has no run-time class of its own, so the class chain goes straight to CObject.
IMPLEMENT_SERIAL(OrvSetupParamHelper, CObject, 1)

void OrvSetupParamHelper::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        ar << m_Direction << m_ReferencePosition << m_FromPoint << m_Clearance << m_Angle;
        return;
    }
    // Read into locals so that a damaged archive leaves the helper as it was.
    FRUnitVector direction;
    FRPosition reference;
    FRPosition from;
    double clearance = 0.0;
    double angle = 0.0;
    ar >> direction >> reference >> from >> clearance >> angle;
    m_Direction = direction;
    m_ReferencePosition = reference;
    m_FromPoint = from;
    m_Clearance = clearance;
    m_Angle = angle;
}

FRTransf OrvSetupParamHelper::Transform() const {
    const FRUnitVector normal = -m_Direction;
    FRTransf toPlane = get_transform_to_xy_plane(normal, FRPosition(0.0, 0.0, 0.0));
    toPlane *= GetRotateTransf(m_Angle, FRUnitVector(0.0, 0.0, -1.0));
    const FRTransf move = GetTranslateTransf(FRPosition(0.0, 0.0, 0.0) - m_ReferencePosition);
    return move * toPlane;
}
