// "database.config": the list of technology databases. Reading repairs an older one-database file
// (it gains its "Default" mark); writing only updates the "Default" marks of a file that matches
// the list, and never creates or rebuilds the file.
#pragma once

#include "port/Export.h"

#include "environment/OrvCutbaseConfigInfo.h"
#include "mfc/CString.h"

// The kind word of a "setting" element for a database type; empty for an unknown type.
ORV_API CString GetCutbaseKindWord(int databaseType);

// A "filePath" value with no folder separator is a bare file name in the config folder.
ORV_API CString NormaliseCutbaseFilePath(const CString& filePath, const CString& configFolder);

// Reads `configFolder` + "database.config" into `info` (appending). Without that file, a single
// active SQLite record for `defaultSQLitePath` when that file exists. 1 on success, 0 when
// neither file exists or the file can't be loaded.
ORV_API int ReadCutbaseConfigFile(const CString& configFolder, const CString& defaultSQLitePath,
                                  OrvCutbaseConfigInfo& info);

// Sets "Default" of each "setting" element to the active flag of the record at its position.
// Gives up without saving (0) when the file can't be loaded, its "applicationSettings" does not
// hold exactly count + 1 children, or a kind differs. 1 when the save succeeds.
ORV_API int WriteCutbaseConfigFile(const CString& configFilePath, const OrvCutbaseConfigInfo& info);
