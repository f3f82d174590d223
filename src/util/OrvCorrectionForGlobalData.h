// OrvCorrectionForGlobalData: base of the scope guards that change a global value for a while.
#pragma once

#include "port/Export.h"

class ORV_API OrvCorrectionForGlobalData {
public:
    virtual ~OrvCorrectionForGlobalData() = default;
    OrvCorrectionForGlobalData(const OrvCorrectionForGlobalData&) = default;
    OrvCorrectionForGlobalData& operator=(const OrvCorrectionForGlobalData&) = default;

    // Whether the guard puts the saved value back when it ends.
    int GetApply() const { return m_bApply; }

protected:
    explicit OrvCorrectionForGlobalData(int apply) : m_bApply(apply) {}

    int m_bApply;
};
