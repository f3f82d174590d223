#include "util/OrvCorrectionForRESNOR.h"

#include "geometry/FRConstants.h"

OrvCorrectionForRESNOR::OrvCorrectionForRESNOR(double value, int apply)
    : OrvCorrectionForGlobalData(apply), m_SavedValue(RESNOR) {
    RESNOR = value;
}

OrvCorrectionForRESNOR::~OrvCorrectionForRESNOR() {
    if (m_bApply != 0) {
        RESNOR = m_SavedValue;
    }
}
