#include "frame/DataFolders.h"

#include <filesystem>

#include "core/OrvHostCallbacks.h"
#include "frame/LanguageTable.h"
#include "frame/RegistryHelpers.h"
#include "port/TextConversion.h"
#include "settings/OrvSettingsKey.h"

namespace {

constexpr const wchar_t* kEnglishFolder = L"lang/English/";
// File names the installer fixes.
constexpr const wchar_t* kManualFileName = L"kel_user_manual.pdf";
constexpr const wchar_t* kEDMResourceFileName = L"KELEDMResu.dll";

std::filesystem::path NativePath(const CString& path) {
    return std::filesystem::path(port::WideToNarrow(path.GetString()));
}

bool FolderExists(const CString& path) {
    std::error_code error;
    return std::filesystem::is_directory(NativePath(path), error);
}

// One string value of the "Application" key under the version key.
CString ReadApplicationValue(HKEY root, const wchar_t* name) {
    OrvSettingsKey key(L"Application", GetVersionKeyPath());
    key.SetKey(root);
    key.AddValue(name, CString());
    CString value;
    if (key.RestoreValuesFromRegistry())
        key.GetValue(name, value);
    return value;
}

void WriteApplicationValue(HKEY root, const wchar_t* name, const CString& value) {
    OrvSettingsKey key(L"Application", GetVersionKeyPath());
    key.SetKey(root);
    key.AddValue(name, value);
    key.SaveValuesToRegistry();
}

// The tree's value when there is a tree, else the user's.
CString ReadCurrentValue(const wchar_t* name) {
    if (OrvSettingsKey* settings = GetAppSettingsCB()) {
        CString value;
        settings->GetValue(name, value);
        return value;
    }
    return ReadApplicationValue(HKEY_CURRENT_USER, name);
}

// The second seeding form: a missing user value gets `value`, and so does an empty value of the
// running session's tree.
int SeedValue(const wchar_t* name, const CString& value) {
    if (!ReadApplicationValue(HKEY_CURRENT_USER, name).IsEmpty())
        return 0;
    WriteApplicationValue(HKEY_CURRENT_USER, name, value);
    if (OrvSettingsKey* settings = GetAppSettingsCB()) {
        CString current;
        settings->GetValue(name, current);
        if (current.IsEmpty())
            settings->SetValue(name, value);
    }
    return 1;
}

CString ReadFolder(const wchar_t* name) {
    return EnsureTrailingSeparator(ReadCurrentValue(name));
}

CString ReadSimulationFolder(const wchar_t* name) {
    CString value = ReadCurrentValue(name);
    if (value.IsEmpty())
        value = ReadApplicationValue(HKEY_LOCAL_MACHINE, name);
    return EnsureTrailingSeparator(value);
}

CString ReadEDMValue(const wchar_t* name) {
    CString value;
    if (OrvSettingsKey* settings = GetAppSettingsCB())
        if (OrvSettingsKey* edm = settings->GetKey(L"EDMApp"))
            edm->GetValue(name, value);
    return value;
}

} // namespace

CString EnsureTrailingSeparator(CString path) {
    if (path.IsEmpty())
        return path;
    const wchar_t last = path[path.GetLength() - 1];
    if (last != L'/' && last != L'\\')
        path += L'/';
    return path;
}

int SetDefaultKelDataPath(const CString& install) {
    if (!ReadApplicationValue(HKEY_CURRENT_USER, L"KelDataPath").IsEmpty())
        return 0;
    CString value = ReadApplicationValue(HKEY_LOCAL_MACHINE, L"KelDataPath");
    if (value.IsEmpty()) {
        value = install;
        WriteApplicationValue(HKEY_LOCAL_MACHINE, L"KelDataPath", value);
    }
    WriteApplicationValue(HKEY_CURRENT_USER, L"KelDataPath", value);
    return 1;
}

int SetDefaultSetupSheetImagePath(const CString& install, const CString& lang) {
    return SeedValue(L"SSImgPath", install + lang + L"Setup_Sheet_Images/");
}

int SetDefaultSetupSheetTemplatePath(const CString& install, const CString& lang) {
    return SeedValue(L"SSTemplatePath", install + lang + L"Setup_Sheet_Templates/");
}

int SetDefaultSubSpndleOperFolderPath(const CString& install) {
    return SeedValue(L"SSOperationPath", GetKelDataPath(install) + L"SubSpindleOps");
}

int SetDefaultMachineSimulationApplicationPath(const CString& install) {
    CString path = GetVirtualMachinePath();
    if (path.IsEmpty())
        path = install + L"KelVirtualMachine/KelVirtualMachine.exe";
    return SeedValue(L"MachineSimulationApplicationPath", path);
}

int SetDefaultSimulationMachineFolderPath(const CString& install) {
    return SeedValue(L"SimulationMachinePath", GetKelDataPath(install) + L"MachSim/Machines");
}

int SetDefaultSimulationControllerFolderPath(const CString& install) {
    // The controllers share the machines' folder.
    return SeedValue(L"SimulationControllerPath", GetKelDataPath(install) + L"MachSim/Machines");
}

int SetDefaultSimulationJobFolderPath(const CString& install) {
    return SeedValue(L"SimulationJobPath", GetKelDataPath(install) + L"MachSim/Jobs");
}

CString GetKelDataPath(const CString& install) {
    CString value = ReadApplicationValue(HKEY_CURRENT_USER, L"KelDataPath");
    if (value.IsEmpty())
        value = ReadApplicationValue(HKEY_LOCAL_MACHINE, L"KelDataPath");
    if (value.IsEmpty()) {
        value = install;
        WriteApplicationValue(HKEY_LOCAL_MACHINE, L"KelDataPath", value);
    }
    return EnsureTrailingSeparator(value);
}

CString GetKelCommonDataPath() {
    return ReadFolder(L"KelCommonDataPath");
}
CString GetSetupSheetImagePath() {
    return ReadFolder(L"SSImgPath");
}
CString GetSetupSheetTemplatePath() {
    return ReadFolder(L"SSTemplatePath");
}
CString GetSubSpindleOperFolderPath() {
    return ReadFolder(L"SSOperationPath");
}
CString GetDefaultSimulationMachineFolderPath() {
    return ReadSimulationFolder(L"SimulationMachinePath");
}
CString GetDefaultSimulationControllerFolderPath() {
    return ReadSimulationFolder(L"SimulationControllerPath");
}
CString GetDefaultSimulationJobFolderPath() {
    return ReadSimulationFolder(L"SimulationJobPath");
}

CString GetVersionIndependentSetupSheetTemplatePath() {
    CString value;
    if (OrvSettingsKey* settings = GetAppSettingsCB())
        settings->GetValue(L"SaveStyleSheetTo", value);
    if (value.IsEmpty()) {
        OrvSettingsKey key(L"Application", GetSetupSheetKeyPath());
        key.AddValue(L"SaveStyleSheetTo", CString());
        if (key.RestoreValuesFromRegistry())
            key.GetValue(L"SaveStyleSheetTo", value);
    }
    return value;
}

CString GetVirtualMachinePath() {
    wchar_t name[] = L"EurekaExePath";
    return GetRegSettingStringValue(HKEY_LOCAL_MACHINE, GetVersionKeyPath(), name);
}

CString GetIMSExePath() {
    CString path = ReadCurrentValue(L"EurekaExePath");
    if (path.IsEmpty())
        path = ReadApplicationValue(HKEY_LOCAL_MACHINE, L"EurekaExePath");
    if (path.IsEmpty())
        if (OrvSettingsKey* settings = GetAppSettingsCB()) {
            CString application;
            settings->GetValue(L"MachineSimulationApplicationPath", application);
            if (application.Find(L"Eureka.exe") >= 0)
                path = application;
        }
    // A file name gets the final separator too, as it always has.
    return EnsureTrailingSeparator(path);
}

CString ExtractEDMCuttingConditionPath(const CString& install) {
    const CString value = ReadEDMValue(L"EdmCutCondPath");
    return value.IsEmpty() ? GetKelDataPath(install) + L"Edm/EDMCuttingConditions/" : value;
}

CString ExtractEDMPostFilePath(const CString& install) {
    const CString value = ReadEDMValue(L"EdmPostFilePath");
    return value.IsEmpty() ? GetKelDataPath(install) + L"Edm/Posts/" : value;
}

void StoreEDMPathInSettings(const wchar_t* valueName, const CString& value) {
    if (OrvSettingsKey* settings = GetAppSettingsCB())
        if (OrvSettingsKey* edm = settings->GetKey(L"EDMApp"))
            edm->SetValue(valueName, value);
}

CString GetSimulationRecordingFolderPath(const CString& install) {
    const CString path = GetKelDataPath(install) + L"SimulationRecordings";
    std::error_code error;
    std::filesystem::create_directories(NativePath(path), error);
    return EnsureTrailingSeparator(path);
}

CString GetKelAMHelpPath(const CString& install) {
    return install + kEnglishFolder + L"AM.chm";
}

CString GetWhatsNewPDFFilePath(const CString& install) {
    return install + kEnglishFolder + L"Manuals" + L"/" + L"kel_whats_new.pdf";
}

CString GetManualPDFFilePath(const CString& install) {
    return install + kEnglishFolder + L"Manuals" + L"/" + kManualFileName;
}

CString GetKelTaskPaneINIFilePath(const CString& install) {
    return GetKelDataPath(install) + L"KelTaskPaneWebCtrl.ini";
}

CString GetUtilitiesDllPath(const CString& install) {
    return install + L"KelUtilities/";
}
CString GetUtilitiesDllName() {
    return L"KelUtilitiesu.dll";
}

CString GetEDMResourceDllPath(const CString& install, const CString& lang) {
    return install + lang + kEDMResourceFileName;
}

CString GetTutorialsPath(const CString& install, int cutbaseLang) {
    CString folder = kEnglishFolder;
    switch (cutbaseLang) {
    case ORV_LANG_GERMAN:
    case ORV_LANG_FRENCH:
    case ORV_LANG_JAPANESE:
    case ORV_LANG_CHINESE:
    case ORV_LANG_CHINESE_TRADITIONAL:
    case ORV_LANG_PORTUGUESE_BRAZILIAN:
        folder = L"lang/" + GetDatabaseLangFolderName(cutbaseLang) + L"/";
        break;
    default:
        break;
    }
    const CString path = install + folder + L"Manuals";
    if (FolderExists(path))
        return path;
    return install + kEnglishFolder + L"Manuals";
}

bool GetCommandTrackingFolderBelow(const CString& commonData, CString& path) {
    CString folder = EnsureTrailingSeparator(commonData);
    std::error_code error;
    for (const wchar_t* level : {L"Tarvex", L"LOGS", L"CommandTracking"}) {
        folder += level;
        std::filesystem::create_directory(NativePath(folder), error);
        folder += L'/';
    }
    path = folder;
    return FolderExists(folder);
}

bool GetProgramDataPathCommandTracking(CString& path) {
    return GetCommandTrackingFolderBelow(L"/var/lib/", path);
}

void GetCorrectToolFilePath(const CString& install, CString const& in, CString& out) {
    const int at = in.Find(L"Tooling");
    if (at < 0) {
        out = in;
        return;
    }
    CString tail = in.Mid(at);
    tail.Replace(L'\\', L'/');
    out = GetKelDataPath(install) + tail;
}
