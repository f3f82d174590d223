// What the environment asks of the operating system: this library's own file, the logged-on user,
// the user's language as a Windows language id, and the local date and time.
#pragma once

#include <ctime>

#include "mfc/CString.h"
#include "win/types.h"

// The full path of the shared object that holds this library; empty when it can't be found.
CString GetOwnModuleFilePath();
// The logged-on user's name, empty when it can't be read or needs `maxChars` characters or more.
CString GetLogonUserName(int maxChars);

// The user's language from LANGUAGE (its first entry), LC_ALL, LC_MESSAGES or LANG, whichever is
// set first, as a Windows language id: "ll_CC" maps its language to the primary id and, for
// Chinese and Portuguese, its country to the sub-language (zh_TW 1, zh_CN 2, zh_HK 3, zh_SG 4,
// zh_MO 5; pt_BR 1, pt_PT 2); other languages take sub-language 1 (the default). "C", "POSIX",
// nothing set, or a language without an id here give 0x0409, English (United States).
WORD GetUserDefaultLangID();
// The same mapping of one locale name.
WORD LangIdOfLocaleName(const char* localeName);

// Local date and time by the pictures "MM'/'dd'/'yyyy" and "HH':'mm".
CString FormatDateMMddyyyy(const std::tm& local);
CString FormatTimeHHmm(const std::tm& local);
std::tm CurrentLocalTime();
