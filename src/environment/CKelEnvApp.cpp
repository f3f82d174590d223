#include "environment/CKelEnvApp.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "core/OrvHostCallbacks.h"
#include "diagnostics/Outcome.h"
#include "environment/CutbaseAccessSetup.h"
#include "environment/CutbaseConfigFile.h"
#include "environment/CutbaseDatabase.h"
#include "frame/DataFolders.h"
#include "frame/FeatureSwitches.h"
#include "frame/RegistryHelpers.h"
#include "port/ProcessQueries.h"
#include "port/SystemQueries.h"
#include "port/TextConversion.h"
#include "settings/OrvSettingsKey.h"
#include "win/files.h"

std::unique_ptr<CKelEnvApp> CKelEnvApp::m_envAppInstance;
int CKelEnvApp::m_IsEnvObjectCreated = 0;

namespace {

constexpr const wchar_t* kEnglishFolder = L"lang/English/";

CString& ModuleFilePathOverride() {
    static CString path;
    return path;
}

std::string Narrow(const CString& text) {
    return port::WideToNarrow(text.GetString());
}

bool FileExists(const CString& path) {
    std::error_code error;
    return !path.IsEmpty() && std::filesystem::is_regular_file(Narrow(path), error);
}

// A DWORD of one key, or `defaultValue` when the key does not restore.
int ReadKeyDword(const wchar_t* keyName, const CString& path, const wchar_t* name,
                 int defaultValue) {
    OrvSettingsKey key(keyName, path);
    key.AddValue(name, defaultValue);
    int value = defaultValue;
    if (key.RestoreValuesFromRegistry())
        key.GetValue(name, value);
    return value;
}

// An environment variable that exists and reads within `maxChars` characters.
bool ReadEnvironmentVariable(const char* name, int maxChars, CString& value) {
    const char* text = std::getenv(name);
    if (!text)
        return false;
    value = port::NarrowToWide(text).c_str();
    return value.GetLength() < maxChars;
}

} // namespace

CKelEnvApp* CKelEnvApp::Instance() {
    if (!m_envAppInstance) {
        m_IsEnvObjectCreated = 1;
        m_envAppInstance.reset(new CKelEnvApp);
        m_envAppInstance->Init();
    }
    return m_envAppInstance.get();
}

void CKelEnvApp::DestroyInstance() {
    m_envAppInstance.reset();
    m_IsEnvObjectCreated = 0;
}

void CKelEnvApp::SetModuleFilePathOverride(const CString& path) {
    ModuleFilePathOverride() = path;
}

CKelEnvApp::CKelEnvApp() {
    SetDefaultCutbaseForms();
    // Configuration-file mode is the only mode of this version; the single-file branches stay.
    m_ConfigDataUseStatus = 1;
}

CKelEnvApp::~CKelEnvApp() {
    // The string table dies with the environment: only the add-in's strings stay reachable.
    InstallStringResources(nullptr);
}

void CKelEnvApp::Init() {
    m_ModuleDllName = L"TARVEXu";
    m_ShareDllName = L"KELSHAREu";
    m_ResourceDllName = L"KELRESu.DLL";
    m_APIDllName = L"KELAPIu.DLL";
    m_5AxisDllName = L"KEL5AxisResu.dll";
    m_ImagesResourceDllName = L"KELImagesResu.dll";
    m_ResourceDllName = L"KELRESu.DLL";
    m_DebugResourceDllName = L"KELDEBUGRESu.DLL";

    if (m_ConfigDataUseStatus) {
        SetModuleFileParts();
        SetKelDefLangAndDataRelPath();
        ReadDBConfigData();
        SetKelCutbaseFormsName();
        SetKelCutbaseName();
        Set64BitDatabaseInUseStatus();
        SetSQLiteDatabaseInUseStatus();
        Set64BitAccessDatabaseInstallStatus();
        SetErrorIfCutbaseFileNotFound();
    } else {
        SetKelCutbaseFormsName();
        SetKelCutbaseName();
        Set64BitDatabaseInUseStatus();
        SetSQLiteDatabaseInUseStatus();
        Set64BitAccessDatabaseInstallStatus();
        SetModuleFileParts();
        SetKelDefLangAndDataRelPath();
    }

    SetDefaultKelDataPath();
    SetDefaultSetupSheetImagePath();
    SetDefaultSetupSheetTemplatePath();
    SetDefaultSubSpndleOperFolderPath();
    SetDefaultMachineSimulationApplicationPath();
    SetDefaultSimulationMachineFolderPath();
    SetDefaultSimulationControllerFolderPath();
    SetDefaultSimulationJobFolderPath();

    SetShowCustomChuckOptionsDisplayRegistry();
    SetDefaultCalMaxFitCirInThread();
    SetDefaultTurnVariableBAxisSupport();
    SetTurnBAxisConTlpKeepArcMove();
    SetTurnBAxisConLLForArcFacet();
    SetBAxisFaceFinishOperSupport();
    SetSpindleDirForTurnMillTurnSupport();

    SetCIMCOEditorPath();
    SetDefaultControllerPath();

    SetToolpathShowHideSupportKeyValue();
    SetTlpColorSupportKeyValue();
    SetTlpHiddenMoveColorSupportKeyValue();
    SetCRF1478StepThruSupportKeyValue();
    SetCRF1478TurnSupportKeyValue();
    SetCRF1478For2axSupportKeyValue();
    SetWIPArcRegistrySupportKeyValue();

    SetKelCutbasePathGuarded();
    SetUserName();
    SetFullPaths();
    SetHelpPath();
    SetViewerNames();
    SetSessionSwitches();
}

void CKelEnvApp::SetModuleFileParts() {
    const CString file =
        ModuleFilePathOverride().IsEmpty() ? GetOwnModuleFilePath() : ModuleFilePathOverride();
    const std::filesystem::path path(Narrow(file));
    m_Drive.Empty();
    m_Path.Empty();
    m_ModuleExt = port::NarrowToWide(path.extension().string()).c_str();
    if (path.has_parent_path()) {
        m_Path = port::NarrowToWide(path.parent_path().string()).c_str();
        m_Path = EnsureTrailingSeparator(m_Path);
    }
    m_ModuleName = m_ModuleDllName;
}

CString CKelEnvApp::GetLangAlignedToHDLang(CString name) const {
    CString debugName = L"HDCAMLanguage";
    const CString forced = GetDebugRegistryVal(debugName, CString());
    if (!forced.IsEmpty())
        return forced;
    const CString host = GetHaldenLangName();
    if (!host.IsEmpty()) {
        const CString folder = GetFolderNameOfHostLanguage(host);
        if (!folder.IsEmpty())
            return folder;
    }
    return name;
}

void CKelEnvApp::SetKelDefLangAndDataRelPath() {
    m_DefDataRelPath = kEnglishFolder;
    m_CutbaseLang = ORV_LANG_ENGLISH;
    const CString name = GetLangAlignedToHDLang(L"Automatic");
    if (name == L"Automatic") {
        const int useEnglish =
            ReadKeyDword(L"HDGeneral", L"Software\\Halden\\General", L"Use English language", 0);
        if (useEnglish != 1) {
            m_CutbaseLang = GetLangCodeOfSystemLangId(GetUserDefaultLangID());
            m_DefDataRelPath = L"lang/" + GetDatabaseLangFolderName(m_CutbaseLang) + L"/";
        }
    } else {
        m_DefDataRelPath = L"lang/" + name + L"/";
        m_CutbaseLang = GetCorrespondingDBLangName(name);
    }
    if (!FileExists(GetInstallFolder() + m_DefDataRelPath + m_ResourceDllName)) {
        m_DefDataRelPath = kEnglishFolder;
        m_CutbaseLang = ORV_LANG_ENGLISH;
    }
}

int CKelEnvApp::IsKelRunningInTestMode() const {
    if (!m_ConfiguredForTesting)
        return 0;
    CString value;
    return ReadEnvironmentVariable("KEL_TESTING", 50, value) && value.CompareNoCase(L"YES") == 0
               ? 1
               : 0;
}

CString CKelEnvApp::GetCurrentDate() const {
    return FormatDateMMddyyyy(CurrentLocalTime());
}

CString CKelEnvApp::GetTickCount() const {
    return FormatTimeHHmm(CurrentLocalTime());
}

CString CKelEnvApp::GetXMLReportRelativePathInfo() const {
    return L"Setup_Sheet_Images/" + m_PartFileNameforRelativePathCreation;
}

void CKelEnvApp::SetCIMCOEditorPath() {
    const CString install = GetInstallFolder();
    CString editor = install + L"nceditor/HaldenCAMNCEditor.exe";
    if (!FileExists(editor)) {
        const CString trimmed = install.Left(install.GetLength() - 1);
        const int last = trimmed.ReverseFind(L'/');
        editor = trimmed.Left(last + 1) + L"nceditor/TarvexNCEditor.exe";
    }
    m_CIMCOEditorPath = editor;
    m_CIMCOEditorCmdArg = L"/lang=" + GetDatabaseLangTag(m_CutbaseLang);
}

void CKelEnvApp::SetDefaultControllerPath() {
    OrvSettingsKey* settings = GetAppSettingsCB();
    CString path;
    if (settings)
        settings->GetValue(L"ControllerPath", path);
    if (!path.IsEmpty())
        return;
    OrvSettingsKey user(L"PostData", GetPostDataKeyPath());
    user.AddValue(L"ControllerPath", CString());
    if (user.RestoreValuesFromRegistry())
        user.GetValue(L"ControllerPath", path);
    if (!path.IsEmpty())
        return;
    OrvSettingsKey machine(L"PostData", GetPostDataKeyPath());
    machine.SetKey(HKEY_LOCAL_MACHINE);
    machine.AddValue(L"ControllerPath", CString());
    if (machine.RestoreValuesFromRegistry())
        machine.GetValue(L"ControllerPath", path);
    if (path.IsEmpty())
        return;
    if (settings)
        settings->SetValue(L"ControllerPath", path);
    user.SetValue(L"ControllerPath", path);
    user.SaveValuesToRegistry();
}

void CKelEnvApp::SetUserName() {
    m_UserName = GetLogonUserName(100);
}

void CKelEnvApp::SetFullPaths() {
    const CString install = GetInstallFolder();
    m_ResourceDllPath = install + m_DefDataRelPath + m_ResourceDllName;
    m_APIDllPath = install + m_APIDllName;
    m_ImagesResourceDllPath = install + m_ImagesResourceDllName;
    m_DebugResourceDllPath = install + m_DefDataRelPath + m_DebugResourceDllName;
    m_StringTable.Load(m_ResourceDllPath);
    InstallStringResources(&m_StringTable);
}

void CKelEnvApp::SetHelpPath() {
    m_HelpPath = GetInstallFolder() + m_DefDataRelPath;
    if (!FileExists(m_HelpPath + L"CAM_Help.chm"))
        m_HelpPath = GetInstallFolder() + kEnglishFolder;
}

void CKelEnvApp::SetViewerNames() {
    const CString install = GetInstallFolder();
    m_VisiDllName = L"MS.DLL";
    m_VisiDllPath = install + L"MS/";
    m_VistabridgeDllName = L"vistabridge.DLL";
    m_LibPNGDllName = L"libpng13.dll";
    m_VistabridgeDllPath = install + m_VistabridgeDllName;
    m_LibPNGDllPath = install + m_LibPNGDllName;
    m_KelVistabridgeDllName = L"KELVistabridgeu.DLL";
    m_KelVistabridgeDllPath = install + m_KelVistabridgeDllName;
}

void CKelEnvApp::SetSessionSwitches() {
    CString debug;
    m_DebugEnabled =
        ReadEnvironmentVariable("_KELDEBUG", 50, debug) && debug.CompareNoCase(L"YES") == 0 ? 1 : 0;
    SetPostPerformanceImprovements();
    OrvSettingsKey key(L"Tarvex", GetVersionKeyPath());
    key.AddValue(L"MultiSurfaceByID", 0);
    if (key.RestoreValuesFromRegistry())
        key.GetValue(L"MultiSurfaceByID", m_MultiSurfaceByID);
    SetDisplayPLYFileRegStatus();
    m_IsAvoidChuckClippingEnabled = orv_getIsAvoidChuckClippingEnabled();
}

void CKelEnvApp::SetDisplayPLYFileRegStatus() {
    OrvSettingsKey key(L"Debug", GetDebugKeyPath());
    key.AddValue(L"DisplayPLYFile", 1);
    if (key.RestoreValuesFromRegistry())
        key.GetValue(L"DisplayPLYFile", m_DisplayPLYFile);
}

// Data folders.
int CKelEnvApp::SetDefaultKelDataPath() {
    return ::SetDefaultKelDataPath(GetInstallFolder());
}
int CKelEnvApp::SetDefaultSetupSheetImagePath() {
    return ::SetDefaultSetupSheetImagePath(GetInstallFolder(), m_DefDataRelPath);
}
int CKelEnvApp::SetDefaultSetupSheetTemplatePath() {
    return ::SetDefaultSetupSheetTemplatePath(GetInstallFolder(), m_DefDataRelPath);
}
int CKelEnvApp::SetDefaultSubSpndleOperFolderPath() {
    return ::SetDefaultSubSpndleOperFolderPath(GetInstallFolder());
}
int CKelEnvApp::SetDefaultMachineSimulationApplicationPath() {
    return ::SetDefaultMachineSimulationApplicationPath(GetInstallFolder());
}
int CKelEnvApp::SetDefaultSimulationMachineFolderPath() {
    return ::SetDefaultSimulationMachineFolderPath(GetInstallFolder());
}
int CKelEnvApp::SetDefaultSimulationControllerFolderPath() {
    return ::SetDefaultSimulationControllerFolderPath(GetInstallFolder());
}
int CKelEnvApp::SetDefaultSimulationJobFolderPath() {
    return ::SetDefaultSimulationJobFolderPath(GetInstallFolder());
}
CString CKelEnvApp::GetKelDataPath() const {
    return ::GetKelDataPath(GetInstallFolder());
}
CString CKelEnvApp::GetKelCommonDataPath() const {
    return ::GetKelCommonDataPath();
}
CString CKelEnvApp::GetSetupSheetImagePath() const {
    return ::GetSetupSheetImagePath();
}
CString CKelEnvApp::GetSetupSheetTemplatePath() const {
    return ::GetSetupSheetTemplatePath();
}
CString CKelEnvApp::GetSubSpindleOperFolderPath() const {
    return ::GetSubSpindleOperFolderPath();
}
CString CKelEnvApp::GetDefaultSimulationMachineFolderPath() const {
    return ::GetDefaultSimulationMachineFolderPath();
}
CString CKelEnvApp::GetDefaultSimulationControllerFolderPath() const {
    return ::GetDefaultSimulationControllerFolderPath();
}
CString CKelEnvApp::GetDefaultSimulationJobFolderPath() const {
    return ::GetDefaultSimulationJobFolderPath();
}
CString CKelEnvApp::GetVersionIndependentSetupSheetTemplatePath() const {
    return ::GetVersionIndependentSetupSheetTemplatePath();
}
CString CKelEnvApp::GetVirtualMachinePath() const {
    return ::GetVirtualMachinePath();
}
CString CKelEnvApp::GetIMSExePath() const {
    return ::GetIMSExePath();
}

CString CKelEnvApp::GetEDMCuttingConditionPath() {
    if (m_EDMCuttingConditionPath.IsEmpty())
        m_EDMCuttingConditionPath = ExtractEDMCuttingConditionPath(GetInstallFolder());
    m_EDMCuttingConditionPath = EnsureTrailingSeparator(m_EDMCuttingConditionPath);
    return m_EDMCuttingConditionPath;
}

CString CKelEnvApp::GetEDMPostFilePath() {
    if (m_EDMPostFilePath.IsEmpty())
        m_EDMPostFilePath = ExtractEDMPostFilePath(GetInstallFolder());
    m_EDMPostFilePath = EnsureTrailingSeparator(m_EDMPostFilePath);
    return m_EDMPostFilePath;
}

void CKelEnvApp::SetEDMCuttingConditionPath(CString const& path) {
    m_EDMCuttingConditionPath = path;
    StoreEDMPathInSettings(L"EdmCutCondPath", path);
}

void CKelEnvApp::SetEDMPostFilePath(CString const& path) {
    m_EDMPostFilePath = path;
    StoreEDMPathInSettings(L"EdmPostFilePath", path);
}

CString CKelEnvApp::GetSimulationRecordingFolderPath() const {
    return ::GetSimulationRecordingFolderPath(GetInstallFolder());
}
CString CKelEnvApp::GetKel5AxisDllPath() const {
    return GetInstallFolder() + m_DefDataRelPath + m_5AxisDllName;
}
CString CKelEnvApp::GetKelAMHelpPath() const {
    return ::GetKelAMHelpPath(GetInstallFolder());
}
CString CKelEnvApp::GetWhatsNewPDFFilePath() const {
    return ::GetWhatsNewPDFFilePath(GetInstallFolder());
}
CString CKelEnvApp::GetManualPDFFilePath() const {
    return ::GetManualPDFFilePath(GetInstallFolder());
}
CString CKelEnvApp::GetKelTaskPaneINIFilePath() const {
    return ::GetKelTaskPaneINIFilePath(GetInstallFolder());
}
CString CKelEnvApp::GetUtilitiesDllPath() const {
    return ::GetUtilitiesDllPath(GetInstallFolder());
}
CString CKelEnvApp::GetUtilitiesDllName() const {
    return ::GetUtilitiesDllName();
}
CString CKelEnvApp::GetEDMResourceDllPath() const {
    return ::GetEDMResourceDllPath(GetInstallFolder(), m_DefDataRelPath);
}
CString CKelEnvApp::GetKelDefaultToolInsertPath() {
    m_ToolInsertPath = GetKelDataPath() + m_DefDataRelPath;
    return m_ToolInsertPath;
}
CString CKelEnvApp::GetTutorialsPath() const {
    return ::GetTutorialsPath(GetInstallFolder(), m_CutbaseLang);
}
int CKelEnvApp::GetProgramDataPathCommandTracking(CString& path) const {
    return ::GetProgramDataPathCommandTracking(path) ? 1 : 0;
}
void CKelEnvApp::GetCorrectToolFilePath(CString const& in, CString& out) const {
    ::GetCorrectToolFilePath(GetInstallFolder(), in, out);
}

// Technology database.
int CKelEnvApp::ReadDBConfigData() {
    try {
        return ReadCutbaseConfigFile(GetCutbaseConfigFilePath(), GetDefaultSQLiteDBPath(),
                                     m_CutbaseConfigInfo);
    } catch (...) { // start-up swallows a damaged configuration file: no database
        return 0;
    }
}

int CKelEnvApp::WriteDBConfigData() {
    return WriteCutbaseConfigFile(GetCutbaseConfigFilePath() + L"database.config",
                                  m_CutbaseConfigInfo);
}

int CKelEnvApp::UpdateCutbaseConfigInfo() {
    ClearDBConfigData();
    return ReadDBConfigData();
}

OrvCutbaseConfigData* CKelEnvApp::GetActiveCutbaseConfigData() const {
    return m_CutbaseConfigInfo.GetActiveConfigData();
}

CString CKelEnvApp::GetActiveDBname() const {
    const OrvCutbaseConfigData* active = GetActiveCutbaseConfigData();
    if (!active)
        return CString();
    if (active->m_DatabaseType == ORV_CUTBASE_SQL)
        return GetCutbaseSQLInfo();
    return active->m_FilePath;
}

CString CKelEnvApp::GetKelExtOfCutbase() const {
    if (!m_ConfigDataUseStatus)
        return L".mdb";
    const OrvCutbaseConfigData* active = GetActiveCutbaseConfigData();
    if (!active)
        return CString();
    switch (active->m_DatabaseType) {
    case ORV_CUTBASE_SQLITE:
        return L".keldb";
    case ORV_CUTBASE_ACCESS:
        return L".mdb";
    default:
        return CString();
    }
}

void CKelEnvApp::SetKelCutbaseName() {
    m_CutbaseName = GetKelNameOnlyOfCutbase() + GetKelExtOfCutbase();
}

CString CKelEnvApp::GetKelNameOnlyOfCutbaseForms() const {
    if (m_ConfigDataUseStatus)
        return L"Cutbase-App";
    const CString forms = ReadCutbaseAccessValues().cutbaseForms;
    const int dot = forms.Find(L'.');
    return dot < 0 ? forms : forms.Left(dot);
}

CString CKelEnvApp::GetKelDataFileExtOfCutbaseForms() const {
    return m_ConfigDataUseStatus ? CString(L".exe") : CString(L".mde");
}

void CKelEnvApp::SetKelCutbaseFormsName() {
    m_CutbaseFormsName = GetKelNameOnlyOfCutbaseForms() + GetKelDataFileExtOfCutbaseForms();
}

CString CKelEnvApp::GetKelCutbaseFormsPath() const {
    if (m_ConfigDataUseStatus)
        return GetCutbaseAppPath() + m_CutbaseFormsName;
    return GetKelDataPath() + m_DefDataRelPath + m_CutbaseFormsName;
}

void CKelEnvApp::SetKelDefaultCutbasePath() {
    m_CutbasePath = GetKelDataPath() + m_DefDataRelPath + m_CutbaseName;
}

void CKelEnvApp::Set64BitDatabaseInUseStatus() {
    if (!m_ConfigDataUseStatus) {
        m_64BitDatabaseInUse = m_CutbaseFormsName.Find(L"x64") >= 0 ? 1 : 0;
        return;
    }
    m_64BitDatabaseInUse = 1;
    const OrvCutbaseConfigData* active = GetActiveCutbaseConfigData();
    if (active && active->m_DatabaseType == ORV_CUTBASE_ACCESS) {
        const CutbaseAccessValues values = ReadCutbaseAccessValues();
        if (values.access32 == 1)
            m_64BitDatabaseInUse = 0;
        else if (values.access64 == 1)
            m_64BitDatabaseInUse = 1;
    }
}

void CKelEnvApp::SetSQLiteDatabaseInUseStatus() {
    const OrvCutbaseConfigData* active = GetActiveCutbaseConfigData();
    m_SQLiteDatabaseInUse =
        m_ConfigDataUseStatus && active && active->m_DatabaseType == ORV_CUTBASE_SQLITE ? 1 : 0;
}

void CKelEnvApp::Set64BitAccessDatabaseInstallStatus() {
    if (!m_ConfigDataUseStatus) {
        m_64BitAccessInstalled = m_CutbaseFormsName.Find(L"x64") >= 0 ? 1 : 0;
        return;
    }
    m_64BitAccessInstalled = 1;
    const CutbaseAccessValues values = ReadCutbaseAccessValues();
    if (values.access32 == 1)
        m_64BitAccessInstalled = 0;
    else if (values.access64 == 1)
        m_64BitAccessInstalled = 1;
}

void CKelEnvApp::SetErrorIfCutbaseFileNotFound() {
    const OrvCutbaseConfigData* active = GetActiveCutbaseConfigData();
    if (!active) {
        m_EnvAPPInitResult = ENV_APP_INIT_NO_ACTIVE_DB;
        return;
    }
    if (active->m_DatabaseType != ORV_CUTBASE_SQL && !FileExists(active->m_FilePath))
        m_EnvAPPInitResult = ENV_APP_INIT_DB_FILE_MISSING;
}

void CKelEnvApp::SetKelCutbasePath(int write) {
    if (m_ConfigDataUseStatus) {
        const OrvCutbaseConfigData* active = GetActiveCutbaseConfigData();
        if (!active)
            throw std::runtime_error("no active technology database");
        m_CutbasePath = active->m_FilePath;
        return;
    }
    ExchangeCutbasePathWithFrontEnd(write);
}

void CKelEnvApp::SetKelCutbasePathGuarded() {
    try {
        SetKelCutbasePath(0);
    } catch (...) { // Init never throws: any failure here means no usable database
        m_EnvAPPInitResult = ENV_APP_INIT_NO_ACTIVE_DB;
    }
}

void CKelEnvApp::ExchangeCutbasePathWithFrontEnd(int write) {
    const CString forms = GetKelCutbaseFormsPath();
    for (;;) {
        if (FileExists(forms)) {
            const DWORD attributes = GetFileAttributesW(forms);
            if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY)) {
                Outcome(1, SEVERITY_NOTE)
                    .Display(CString(L"Changing File Attributes to Read/Write for the file :"
                                     L"CutbaseForms.mde"));
                SetFileAttributesW(forms, attributes & ~FILE_ATTRIBUTE_READONLY);
            }
            break;
        }
        Outcome(1, SEVERITY_ERROR)
            .Display(m_CutbaseFormsName + L" could not be found at " + GetKelDataPath() +
                     L"\n\nCopy the file at the location and click OK to resume");
    }
    const std::unique_ptr<CutbaseDatabase> database = CreateSQLiteCutbaseDatabase();
    CString error;
    CString path = m_CutbasePath;
    if (database->Open(forms, error) && database->ExchangeFormsPath(path, write != 0, error)) {
        m_CutbasePath = path;
        return;
    }
    Outcome(1, SEVERITY_ERROR).Display(error);
}

int CKelEnvApp::IsConnectedToCutbaseSQL() const {
    if (m_ConfigDataUseStatus) {
        const OrvCutbaseConfigData* active = GetActiveCutbaseConfigData();
        return active && active->m_DatabaseType == ORV_CUTBASE_SQL ? 1 : 0;
    }
    return m_CutbasePath.Left(6) == L"DRIVER" ? 1 : 0;
}

int CKelEnvApp::IsConnectedToCutbaseSQLServerDirectly() const {
    return m_ConfigDataUseStatus && IsConnectedToCutbaseSQL() ? 1 : 0;
}

CString CKelEnvApp::GetCutbaseSQLInfo() const {
    if (!IsConnectedToCutbaseSQL())
        return CString();
    const OrvCutbaseConfigData* active = GetActiveCutbaseConfigData();
    return GetSQLServerDisplayText(m_ConfigDataUseStatus && active ? active->m_ConnectionString
                                                                   : m_CutbasePath);
}

int CKelEnvApp::KillCutbaseProcess() {
    return TerminateProcessById(m_CutbaseProcessID);
}
