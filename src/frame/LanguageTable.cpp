#include "frame/LanguageTable.h"

#include <array>

namespace {

struct Language {
    const wchar_t* folder;
    const wchar_t* tag;
};

// Turkish and Greek take the English tag: the editor has no such language.
constexpr std::array<Language, 15> kLanguages = {{
    {L"English", L"en-US"},
    {L"German", L"de-DE"},
    {L"French", L"fr-FR"},
    {L"Spanish", L"es-ES"},
    {L"Japanese", L"ja-JP"},
    {L"Chinese", L"zh-CN"},
    {L"Chinese-Traditional", L"zh-CHT"},
    {L"Italian", L"it-IT"},
    {L"Korean", L"ko-KR"},
    {L"Russian", L"ru-RU"},
    {L"Polish", L"pl-PL"},
    {L"Turkish", L"en-US"},
    {L"Portuguese-Brazilian", L"pt-BR"},
    {L"Czech", L"cs-CZ"},
    {L"Greek", L"en-US"},
}};

struct HostWord {
    const wchar_t* word;
    const wchar_t* folder;
};

// The host's own words: plain "chinese" is traditional Chinese, and Portuguese is misspelt.
constexpr std::array<HostWord, 14> kHostWords = {{
    {L"english", L"English"},
    {L"german", L"German"},
    {L"french", L"French"},
    {L"japanese", L"Japanese"},
    {L"italian", L"Italian"},
    {L"polish", L"Polish"},
    {L"portugese-brazilian", L"Portuguese-Brazilian"},
    {L"russian", L"Russian"},
    {L"spanish", L"Spanish"},
    {L"turkish", L"Turkish"},
    {L"chinese", L"Chinese-Traditional"},
    {L"chinese-simplified", L"Chinese"},
    {L"czech", L"Czech"},
    {L"korean", L"Korean"},
}};

} // namespace

CString GetDatabaseLangFolderName(int code) {
    if (code < 0 || code >= static_cast<int>(kLanguages.size()))
        return L"English";
    return kLanguages[static_cast<std::size_t>(code)].folder;
}

CString GetDatabaseLangTag(int code) {
    if (code < 0 || code >= static_cast<int>(kLanguages.size()))
        return L"en-US";
    return kLanguages[static_cast<std::size_t>(code)].tag;
}

OrvDatabaseLang_e GetCorrespondingDBLangName(const CString& name) {
    if (name.IsEmpty())
        return ORV_LANG_ENGLISH;
    for (int code = ORV_LANG_ENGLISH; code <= ORV_LANG_CZECH; ++code)
        if (name == kLanguages[static_cast<std::size_t>(code)].folder)
            return static_cast<OrvDatabaseLang_e>(code);
    return ORV_LANG_ENGLISH;
}

CString GetFolderNameOfHostLanguage(const CString& hostWord) {
    for (const HostWord& row : kHostWords)
        if (hostWord.CompareNoCase(row.word) == 0)
            return row.folder;
    return CString();
}

OrvDatabaseLang_e GetLangCodeOfSystemLangId(WORD langId) {
    const int primary = langId & 0x3FF;
    const int sub = langId >> 10;
    switch (primary) {
    case 0x04:
        if (sub == 1 || sub == 3 || sub == 5)
            return ORV_LANG_CHINESE_TRADITIONAL;
        if (sub == 2 || sub == 4)
            return ORV_LANG_CHINESE;
        return ORV_LANG_ENGLISH;
    case 0x05:
        return ORV_LANG_CZECH;
    case 0x07:
        return ORV_LANG_GERMAN;
    case 0x08:
        return ORV_LANG_GREEK;
    case 0x0A:
        return ORV_LANG_SPANISH;
    case 0x0C:
        return ORV_LANG_FRENCH;
    case 0x10:
        return ORV_LANG_ITALIAN;
    case 0x11:
        return ORV_LANG_JAPANESE;
    case 0x12:
        return ORV_LANG_KOREAN;
    case 0x15:
        return ORV_LANG_POLISH;
    case 0x16:
        return sub == 1 ? ORV_LANG_PORTUGUESE_BRAZILIAN : ORV_LANG_ENGLISH;
    case 0x19:
        return ORV_LANG_RUSSIAN;
    case 0x1F:
        return ORV_LANG_TURKISH;
    default:
        return ORV_LANG_ENGLISH;
    }
}
