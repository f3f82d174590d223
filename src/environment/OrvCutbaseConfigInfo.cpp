#include "environment/OrvCutbaseConfigInfo.h"

OrvCutbaseConfigInfo::OrvCutbaseConfigInfo(const OrvCutbaseConfigInfo& other) {
    *this = other;
}

OrvCutbaseConfigInfo& OrvCutbaseConfigInfo::operator=(const OrvCutbaseConfigInfo& other) {
    if (this == &other)
        return *this;
    m_List.clear();
    for (const auto& data : other.m_List)
        m_List.emplace_back(data->Clone());
    return *this;
}

OrvCutbaseConfigData* OrvCutbaseConfigInfo::GetCutbaseConfigData(int index) const {
    if (index < 0 || index >= GetCount())
        return nullptr;
    return m_List[static_cast<std::size_t>(index)].get();
}

void OrvCutbaseConfigInfo::AddCutbaseConfigData(OrvCutbaseConfigData* data) {
    if (data)
        m_List.emplace_back(data);
}

OrvCutbaseConfigData* OrvCutbaseConfigInfo::GetActiveConfigData() const {
    for (const auto& data : m_List)
        if (data->m_ActiveFlag == 1)
            return data.get();
    return m_List.empty() ? nullptr : m_List.back().get();
}

int OrvCutbaseConfigInfo::CopyFrom(OrvCutbaseConfigInfo* src) {
    if (!src || src->GetCount() != GetCount())
        return 0;
    for (std::size_t i = 0; i < m_List.size(); ++i)
        *m_List[i] = *src->m_List[i];
    return 1;
}

int OrvCutbaseConfigInfo::IsActiveCutbaseChange(OrvCutbaseConfigInfo* other) const {
    if (!other || other->GetCount() != GetCount())
        return 0;
    for (std::size_t i = 0; i < m_List.size(); ++i) {
        const OrvCutbaseConfigData& mine = *m_List[i];
        const OrvCutbaseConfigData& theirs = *other->m_List[i];
        if (mine.IsSameDatabase(theirs) && mine.m_ActiveFlag != theirs.m_ActiveFlag)
            return 1;
    }
    return 0;
}
