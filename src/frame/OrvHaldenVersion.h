// The host's revision: a date code and a revision text such as "33.2", set by the add-in.
#pragma once

#include "port/Export.h"

#include "mfc/CString.h"

// The date code starts at -1 and the revision text empty.
ORV_API void SetHaldenDateCode(long dateCode, CString revision);
ORV_API long GetHaldenDateCode();
ORV_API CString GetHaldenRevisionNumber();

// `major` becomes the number before the first "."; answers 0 (and `major` 0) when the revision is
// empty or has no ".".
ORV_API int GetHaldenRevisionNumber(long& major);
// `minor` becomes the rightmost i + 1 characters of the revision, i being the index of the first
// "." (so "33.2" gives "3.2"). Answers 0 and leaves `minor` alone when there is no ".".
ORV_API int GetHaldenMinorRevisionNumber(CString& minor);
// 0 only for a known revision whose major number is above 34.
ORV_API int IsValidHDVersion();
