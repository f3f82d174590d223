// The languages the add-in ships (OrvDatabaseLang_e): their folders under "lang/", the tags given
// to the NC editor, the host's language words and the mapping of a system language id.
#pragma once

#include "port/Export.h"

#include "mfc/CString.h"
#include "win/types.h"

enum OrvDatabaseLang_e {
    ORV_LANG_ENGLISH = 0,
    ORV_LANG_GERMAN = 1,
    ORV_LANG_FRENCH = 2,
    ORV_LANG_SPANISH = 3,
    ORV_LANG_JAPANESE = 4,
    ORV_LANG_CHINESE = 5,
    ORV_LANG_CHINESE_TRADITIONAL = 6,
    ORV_LANG_ITALIAN = 7,
    ORV_LANG_KOREAN = 8,
    ORV_LANG_RUSSIAN = 9,
    ORV_LANG_POLISH = 10,
    ORV_LANG_TURKISH = 11,
    ORV_LANG_PORTUGUESE_BRAZILIAN = 12,
    ORV_LANG_CZECH = 13,
    ORV_LANG_GREEK = 14,
};

// The folder name of a code ("English" ... "Greek"); "English" outside the table.
ORV_API CString GetDatabaseLangFolderName(int code);
// The NC editor's tag of a code; "en-US" outside the table.
ORV_API CString GetDatabaseLangTag(int code);
// The code of a folder name, compared with case, among codes 0 to 13; 0 for anything else.
ORV_API OrvDatabaseLang_e GetCorrespondingDBLangName(const CString& name);
// The folder name for a host language word, compared without case; empty when there is no row.
ORV_API CString GetFolderNameOfHostLanguage(const CString& hostWord);
// The code of a Windows language id (primary language in the low 10 bits, sub-language in the
// high 6); English for a combination without a row.
ORV_API OrvDatabaseLang_e GetLangCodeOfSystemLangId(WORD langId);
