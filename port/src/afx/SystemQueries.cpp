#include "port/SystemQueries.h"

#include <dlfcn.h>
#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "port/TextConversion.h"

namespace {

constexpr WORD kEnglishUnitedStates = 0x0409;

struct PrimaryLanguage {
    const char* code;
    WORD primary;
};

// ISO 639-1 codes and the primary language ids of Windows.
constexpr std::array<PrimaryLanguage, 20> kPrimaryLanguages = {{
    {"cs", 0x05}, {"de", 0x07}, {"el", 0x08}, {"en", 0x09}, {"es", 0x0A},
    {"fr", 0x0C}, {"it", 0x10}, {"ja", 0x11}, {"ko", 0x12}, {"nl", 0x13},
    {"pl", 0x15}, {"pt", 0x16}, {"ru", 0x19}, {"sv", 0x1D}, {"tr", 0x1F},
    {"zh", 0x04}, {"hu", 0x0E}, {"da", 0x06}, {"fi", 0x0B}, {"nb", 0x14},
}};

WORD SubLanguageOf(const std::string& language, const std::string& country) {
    if (language == "zh") {
        if (country == "TW")
            return 1;
        if (country == "CN")
            return 2;
        if (country == "HK")
            return 3;
        if (country == "SG")
            return 4;
        if (country == "MO")
            return 5;
        return 2;
    }
    if (language == "pt")
        return country == "PT" ? 2 : 1;
    return 1;
}

const char* FirstSetLocale() {
    for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value && *value)
            return value;
    }
    return nullptr;
}

} // namespace

CString GetOwnModuleFilePath() {
    Dl_info info{};
    if (!dladdr(reinterpret_cast<void*>(&GetOwnModuleFilePath), &info) || !info.dli_fname)
        return CString();
    std::array<char, 4096> resolved{};
    const char* path = realpath(info.dli_fname, resolved.data()) ? resolved.data() : info.dli_fname;
    return CString(port::NarrowToWide(path).c_str());
}

CString GetLogonUserName(int maxChars) {
    long size = sysconf(_SC_GETPW_R_SIZE_MAX);
    std::vector<char> buffer(size > 0 ? static_cast<std::size_t>(size) : 16384);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found)
        return CString();
    const CString name = port::NarrowToWide(found->pw_name).c_str();
    return name.GetLength() < maxChars ? name : CString();
}

WORD LangIdOfLocaleName(const char* localeName) {
    if (!localeName)
        return kEnglishUnitedStates;
    std::string name = localeName;
    name = name.substr(0, name.find(':')); // LANGUAGE is a list
    name = name.substr(0, name.find_first_of(".@"));
    const std::size_t underscore = name.find('_');
    const std::string language = name.substr(0, underscore);
    const std::string country = underscore == std::string::npos ? "" : name.substr(underscore + 1);
    for (const PrimaryLanguage& row : kPrimaryLanguages)
        if (language == row.code)
            return static_cast<WORD>(SubLanguageOf(language, country) << 10 | row.primary);
    return kEnglishUnitedStates;
}

WORD GetUserDefaultLangID() {
    return LangIdOfLocaleName(FirstSetLocale());
}

CString FormatDateMMddyyyy(const std::tm& local) {
    CString text;
    text.Format(L"%02d/%02d/%04d", local.tm_mon + 1, local.tm_mday, local.tm_year + 1900);
    return text;
}

CString FormatTimeHHmm(const std::tm& local) {
    CString text;
    text.Format(L"%02d:%02d", local.tm_hour, local.tm_min);
    return text;
}

std::tm CurrentLocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}
