// OrvCorrectionForRESNOR: sets the global normal tolerance RESNOR for a scope.
//
// The constructor saves RESNOR and sets it to the given value whatever apply says; the destructor
// restores the saved value only when apply is non-zero. With apply 0 the new value outlives the
// guard.
#pragma once

#include "port/Export.h"

#include "util/OrvCorrectionForGlobalData.h"

class ORV_API OrvCorrectionForRESNOR : public OrvCorrectionForGlobalData {
public:
    OrvCorrectionForRESNOR(double value, int apply);
    ~OrvCorrectionForRESNOR() override;
    OrvCorrectionForRESNOR(const OrvCorrectionForRESNOR&) = default;
    OrvCorrectionForRESNOR& operator=(const OrvCorrectionForRESNOR&) = default;

    double GetSavedValue() const { return m_SavedValue; }

private:
    double m_SavedValue;
};
