// OrvSetupParamHelper: what describes a machining setup: its direction, reference position,
// rotation angle, from point and clearance.
#pragma once

#include "port/Export.h"

#include "geometry/FRPosition.h"
#include "geometry/FRTransf.h"
#include "geometry/FRUnitVector.h"
#include "mfc/CArchive.h"
#include "objects/OrvParamHelper.h"

class ORV_API OrvSetupParamHelper : public OrvParamHelper {
    DECLARE_SERIAL(OrvSetupParamHelper)
public:
    OrvSetupParamHelper() = default;

    // No class tag: direction, reference position, from point, clearance, angle.
    void Serialize(CArchive& ar) override;

    // The transform of the setup into the XY plane: the plane of the negated direction, turned by
    // the angle about -Z, after moving the reference position to the origin.
    FRTransf Transform() const;

    FRUnitVector& Direction() { return m_Direction; }
    const FRUnitVector& Direction() const { return m_Direction; }
    FRPosition& GetReferencePosition() { return m_ReferencePosition; }
    const FRPosition& GetReferencePosition() const { return m_ReferencePosition; }
    double GetAngle() const { return m_Angle; }
    void SetAngle(double angle) { m_Angle = angle; }
    FRPosition& FromPoint() { return m_FromPoint; }
    const FRPosition& FromPoint() const { return m_FromPoint; }
    double& Clearance() { return m_Clearance; }
    double Clearance() const { return m_Clearance; }

private:
    FRUnitVector m_Direction = FRUnitVector::Axis(2);
    FRPosition m_ReferencePosition;
    double m_Angle = 0.0;
    FRPosition m_FromPoint;
    double m_Clearance = 0.0;
};
