#include "objects/OrvDocParamHelper.h"

OrvDocParamHelper::OrvDocParamHelper(int units) : m_Units(units) {}

void OrvDocParamHelper::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        ar << m_Units;
        return;
    }
    int units = 0;
    ar >> units;
    m_Units = units;
}
