// KelStringTable: the string resources of a language folder, read from its resource file (UTF-8
// lines "id=text"). Blank lines and lines starting with '#' or ';' are skipped; "\n" and "\t" in a
// text stand for a line end and a tab, "\\" for a backslash.
#pragma once

#include "port/Export.h"

#include <map>
#include <string>

#include "mfc/CString.h"
#include "win/types.h"

class ORV_API KelStringTable {
public:
    // Replaces the table by the file's strings; false when the file can't be read (the table is
    // then empty). A malformed line is skipped.
    bool Load(const CString& path);
    bool Find(UINT id, std::wstring& text) const;
    int GetCount() const { return static_cast<int>(m_strings.size()); }

private:
    std::map<UINT, std::wstring> m_strings;
};

// Makes string ids resolve through the add-in's product strings first, then through `table`
// (which the caller keeps alive while it is installed).
ORV_API void InstallStringResources(const KelStringTable* table);
