// OrvCutbaseConfigInfo: the list of configured technology databases, in file order. The list owns
// its records.
#pragma once

#include "port/Export.h"

#include <memory>
#include <vector>

#include "environment/OrvCutbaseConfigData.h"

class ORV_API OrvCutbaseConfigInfo {
public:
    OrvCutbaseConfigInfo() = default;
    OrvCutbaseConfigInfo(const OrvCutbaseConfigInfo& other);
    OrvCutbaseConfigInfo& operator=(const OrvCutbaseConfigInfo& other);
    ~OrvCutbaseConfigInfo() = default;

    int GetCount() const { return static_cast<int>(m_List.size()); }
    // Null when the index is outside the list.
    OrvCutbaseConfigData* GetCutbaseConfigData(int index) const;
    // Appends; the list takes ownership.
    void AddCutbaseConfigData(OrvCutbaseConfigData* data);
    void ClearCutbaseInfo() { m_List.clear(); }
    // A deep copy, owned by the caller.
    OrvCutbaseConfigInfo* Clone() const { return new OrvCutbaseConfigInfo(*this); }

    // The first record with the active flag, else the last record; null for an empty list.
    OrvCutbaseConfigData* GetActiveConfigData() const;
    // Copies `src` record by record; 0 (and nothing copied) for a null source or another count.
    int CopyFrom(OrvCutbaseConfigInfo* src);
    // 1 when, position by position, a pair of records describes the same database but differs in
    // the active flag.
    int IsActiveCutbaseChange(OrvCutbaseConfigInfo* other) const;

private:
    std::vector<std::unique_ptr<OrvCutbaseConfigData>> m_List;
};
