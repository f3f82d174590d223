// CKelEnvApp: the application environment, one per process, made on first use. It answers where
// the add-in is installed, which language it speaks, where its data lies and which technology
// database is active. Init never throws and shows nothing: what went wrong is left in
// GetEnvAPPInitResult.
#pragma once

#include "port/Export.h"

#include <memory>

#include "environment/OrvCutbaseConfigInfo.h"
#include "frame/KelStringTable.h"
#include "frame/LanguageTable.h"
#include "mfc/CString.h"

// 0 all is well; 1 the active database file is missing; 2 no active record, or setting the
// database path failed.
enum EnvAPP_Init_Result_e {
    ENV_APP_INIT_OK = 0,
    ENV_APP_INIT_DB_FILE_MISSING = 1,
    ENV_APP_INIT_NO_ACTIVE_DB = 2,
};

// How mill features are extracted; the add-in gives the values meaning.
using OrvFeatMillExtractionMethods = int;

class ORV_API CKelEnvApp {
public:
    // The environment, created and initialised on the first call.
    static CKelEnvApp* Instance();
    // Deletes the environment if there is one; the next Instance() makes a new one.
    static void DestroyInstance();
    // Where this library's file is taken to lie, instead of asking the system: a host whose
    // install tree is not beside the library sets it before the first Instance(). Empty: ask.
    static void SetModuleFilePathOverride(const CString& path);

    ~CKelEnvApp();
    CKelEnvApp(const CKelEnvApp&) = delete;
    CKelEnvApp& operator=(const CKelEnvApp&) = delete;

    void Init();
    EnvAPP_Init_Result_e GetEnvAPPInitResult() const { return m_EnvAPPInitResult; }

    const CString& GetKelModuleDllName() const { return m_ModuleDllName; }
    const CString& GetKelModuleName() const { return m_ModuleName; }
    const CString& GetKelModuleExt() const { return m_ModuleExt; }
    const CString& GetKelDrive() const { return m_Drive; }
    const CString& GetKelPath() const { return m_Path; }
    const CString& GetKelDefDataRelPath() const { return m_DefDataRelPath; }
    const CString& GetKelDebugResourceDllName() const { return m_DebugResourceDllName; }
    const CString& GetKelDebugResourceDllPath() const { return m_DebugResourceDllPath; }
    const CString& GetKelResourceDllName() const { return m_ResourceDllName; }
    const CString& GetKelResourceDllPath() const { return m_ResourceDllPath; }
    const CString& GetKelImagesResourceDllName() const { return m_ImagesResourceDllName; }
    const CString& GetKelImagesResourceDllPath() const { return m_ImagesResourceDllPath; }
    const CString& GetKelAPIDllName() const { return m_APIDllName; }
    const CString& GetKelAPIDllPath() const { return m_APIDllPath; }
    const CString& GetKelHelpPath() const { return m_HelpPath; }
    const CString& GetVisiDllName() const { return m_VisiDllName; }
    const CString& GetVisiDllPath() const { return m_VisiDllPath; }
    const CString& GetVistabridgeDllName() const { return m_VistabridgeDllName; }
    const CString& GetVistabridgeDllPath() const { return m_VistabridgeDllPath; }
    const CString& GetVistabridgeLibPNGDllName() const { return m_LibPNGDllName; }
    const CString& GetVistabridgeLibPNGDllPath() const { return m_LibPNGDllPath; }
    const CString& GetKelVistabridgeDllName() const { return m_KelVistabridgeDllName; }
    const CString& GetKelVistabridgeDllPath() const { return m_KelVistabridgeDllPath; }
    const CString& GetCIMCOEditorPath() const { return m_CIMCOEditorPath; }
    const CString& GetCIMCOEditorCmdArg() const { return m_CIMCOEditorCmdArg; }
    const CString& GetUserNameW() const { return m_UserName; }
    OrvDatabaseLang_e GetCutbaseLang() const { return m_CutbaseLang; }
    int GetDisplayPLYFileRegStatus() const { return m_DisplayPLYFile; }
    int GetMultiSurfaceByID() const { return m_MultiSurfaceByID; }
    int GetIsAvoidChuckClippingEnabled() const { return m_IsAvoidChuckClippingEnabled; }
    OrvFeatMillExtractionMethods GetFeatureCreationStyle() const { return m_FeatureCreationStyle; }
    int GetIsXMLSetUpSheet() const { return m_IsXMLSetUpSheet; }
    const CString& GetXMLSetUpSheetPath() const { return m_XMLSetUpSheetPath; }
    int GetConfigDataUseStatus() const { return m_ConfigDataUseStatus; }

    void SetFeatureCreationStyle(OrvFeatMillExtractionMethods style) {
        m_FeatureCreationStyle = style;
    }
    void SetIsXMLSetUpSheet(int isXml) { m_IsXMLSetUpSheet = isXml; }
    void SetXMLSetUpSheetPath(const CString& path) { m_XMLSetUpSheetPath = path; }
    void SetPartFileNameforRelativePathCreation(const CString& name) {
        m_PartFileNameforRelativePathCreation = name;
    }
    void SetIs3dSetUpSheet(int is3d) { m_Is3dSetUpSheet = is3d; }

    int IsKelDebugEnabled() const { return m_DebugEnabled; }
    void ConfigureForTesting(int configured) { m_ConfiguredForTesting = configured; }
    // 1 only when configured for testing and "KEL_TESTING" is "YES" without regard to case.
    int IsKelRunningInTestMode() const;

    // Today as "MM/dd/yyyy" and the time as "HH:mm", local.
    CString GetCurrentDate() const;
    CString GetTickCount() const;
    CString GetTreeTabProgID() const { return L"ORVHDTREETAB.OrvHDTreeTabCtrlOEMVS2022.19"; }
    CString GetTaskPaneTabStringID() const { return L"KELTASKPANE.KelTaskPaneWebCtrlVS2022.8"; }
    CString GetXMLReportRelativePathInfo() const;
    int IsXMLReportwithRelativePathsNeeded() const { return m_Is3dSetUpSheet ? 0 : 1; }

    // Data folders and tool paths.
    int SetDefaultKelDataPath();
    int SetDefaultSetupSheetImagePath();
    int SetDefaultSetupSheetTemplatePath();
    int SetDefaultSubSpndleOperFolderPath();
    int SetDefaultMachineSimulationApplicationPath();
    int SetDefaultSimulationMachineFolderPath();
    int SetDefaultSimulationControllerFolderPath();
    int SetDefaultSimulationJobFolderPath();
    CString GetKelDataPath() const;
    CString GetKelCommonDataPath() const;
    CString GetSetupSheetImagePath() const;
    CString GetSetupSheetTemplatePath() const;
    CString GetSubSpindleOperFolderPath() const;
    CString GetDefaultSimulationMachineFolderPath() const;
    CString GetDefaultSimulationControllerFolderPath() const;
    CString GetDefaultSimulationJobFolderPath() const;
    CString GetVersionIndependentSetupSheetTemplatePath() const;
    CString GetVirtualMachinePath() const;
    CString GetIMSExePath() const;
    CString GetEDMCuttingConditionPath();
    CString GetEDMPostFilePath();
    void SetEDMCuttingConditionPath(CString const& path);
    void SetEDMPostFilePath(CString const& path);
    CString GetSimulationRecordingFolderPath() const;
    CString GetKel5AxisDllPath() const;
    CString GetKelAMHelpPath() const;
    CString GetWhatsNewPDFFilePath() const;
    CString GetManualPDFFilePath() const;
    CString GetKelTaskPaneINIFilePath() const;
    CString GetUtilitiesDllPath() const;
    CString GetUtilitiesDllName() const;
    CString GetEDMResourceDllPath() const;
    CString GetKelDefaultToolInsertPath();
    CString GetTutorialsPath() const;
    int GetProgramDataPathCommandTracking(CString& path) const;
    void GetCorrectToolFilePath(CString const& in, CString& out) const;

    // Technology database.
    int ReadDBConfigData();
    void ClearDBConfigData() { m_CutbaseConfigInfo.ClearCutbaseInfo(); }
    int WriteDBConfigData();
    void UpdateDBConfigData(OrvCutbaseConfigInfo* info) { m_CutbaseConfigInfo.CopyFrom(info); }
    int UpdateCutbaseConfigInfo();
    OrvCutbaseConfigData* GetActiveCutbaseConfigData() const;
    OrvCutbaseConfigInfo& GetCutbaseConfigInfo() { return m_CutbaseConfigInfo; }
    CString GetActiveDBname() const;
    CString GetKelExtOfCutbase() const;
    CString GetKelNameOnlyOfCutbase() const { return L"Cutbase"; }
    CString GetKelCutbaseName() const { return m_CutbaseName; }
    CString GetKelCutbasePath() const { return m_CutbasePath; }
    CString GetKelCutbaseFormsName() const { return m_CutbaseFormsName; }
    CString GetKelCutbaseFormsPath() const;
    CString GetKelNameOnlyOfCutbaseForms() const;
    CString GetKelDataFileExtOfCutbaseForms() const;
    CString GetCutbaseAppPath() const { return GetInstallFolder() + L"CutbaseApp/"; }
    CString GetCutbaseConfigFilePath() const { return GetKelDataPath() + L"Cutbase/"; }
    CString GetDefaultSQLiteDBPath() const {
        return GetKelDataPath() + L"Cutbase/" + L"Cutbase.keldb";
    }
    // In configuration-file mode takes the active database's path, and throws std::runtime_error
    // when none is active; Init catches it and records ENV_APP_INIT_NO_ACTIVE_DB.
    void SetKelCutbasePath(int write);
    void SetKelCutbasePath(CString const& path) { m_CutbasePath = path; }
    void SetKelDefaultCutbasePath();
    int IsConnectedToCutbaseSQL() const;
    int IsConnectedToCutbaseSQLServerDirectly() const;
    CString GetCutbaseSQLInfo() const;
    int Is64BitDatabaseInUse() const { return m_64BitDatabaseInUse; }
    int IsSQLiteDatabaseInUse() const { return m_SQLiteDatabaseInUse; }
    int Is64BitAccessInstalled() const { return m_64BitAccessInstalled; }
    void SetCutbaseProcessID(unsigned long id) { m_CutbaseProcessID = static_cast<DWORD>(id); }
    unsigned long GetCutbaseProcessID() const { return m_CutbaseProcessID; }
    int KillCutbaseProcess();

    // "DisplayPLYFile" into m_DisplayPLYFile when the Debug key restores it.
    void SetDisplayPLYFileRegStatus();

private:
    CKelEnvApp();

    CString GetInstallFolder() const { return m_Drive + m_Path; }
    void SetModuleFileParts();
    void SetKelDefLangAndDataRelPath();
    CString GetLangAlignedToHDLang(CString name) const;
    void SetKelCutbaseFormsName();
    void SetKelCutbaseName();
    void Set64BitDatabaseInUseStatus();
    void SetSQLiteDatabaseInUseStatus();
    void Set64BitAccessDatabaseInstallStatus();
    void SetErrorIfCutbaseFileNotFound();
    void SetCIMCOEditorPath();
    void SetDefaultControllerPath();
    void SetUserName();
    void SetFullPaths();
    void SetHelpPath();
    void SetViewerNames();
    void SetSessionSwitches();
    // The older single-file mode: the front end's file holds the database path.
    void ExchangeCutbasePathWithFrontEnd(int write);
    void SetKelCutbasePathGuarded();

    CString m_ModuleDllName;
    CString m_ShareDllName;
    CString m_ModuleName;
    CString m_ModuleExt;
    CString m_Drive;
    CString m_Path;
    CString m_DefDataRelPath;
    CString m_CutbaseName;
    CString m_CutbasePath;
    CString m_ToolInsertPath;
    CString m_Reserved1;
    CString m_DebugResourceDllName;
    CString m_DebugResourceDllPath;
    CString m_ResourceDllName;
    CString m_ResourceDllPath;
    CString m_ImagesResourceDllName;
    CString m_ImagesResourceDllPath;
    CString m_APIDllName;
    CString m_APIDllPath;
    CString m_5AxisDllName;
    CString m_HelpPath;
    CString m_Reserved2;
    CString m_CutbaseFormsName;
    CString m_UserName;
    int m_DebugEnabled = 0;
    int m_ConfiguredForTesting = 0;
    DWORD m_CutbaseProcessID = 0xFFFFFFFF;
    CString m_EDMCuttingConditionPath;
    CString m_EDMPostFilePath;
    CString m_VisiDllName;
    CString m_VisiDllPath;
    CString m_VistabridgeDllName;
    CString m_LibPNGDllName;
    CString m_VistabridgeDllPath;
    CString m_LibPNGDllPath;
    CString m_KelVistabridgeDllName;
    CString m_KelVistabridgeDllPath;
    CString m_PartFileNameforRelativePathCreation;
    int m_Is3dSetUpSheet = 0;
    OrvFeatMillExtractionMethods m_FeatureCreationStyle = 0;
    int m_64BitDatabaseInUse = 0;
    int m_SQLiteDatabaseInUse = 0;
    int m_64BitAccessInstalled = 0;
    int m_IsXMLSetUpSheet = 0;
    CString m_XMLSetUpSheetPath;
    int m_ConfigDataUseStatus = 0;
    EnvAPP_Init_Result_e m_EnvAPPInitResult = ENV_APP_INIT_OK;
    OrvDatabaseLang_e m_CutbaseLang = ORV_LANG_ENGLISH;
    CString m_CIMCOEditorPath;
    CString m_CIMCOEditorCmdArg;
    OrvCutbaseConfigInfo m_CutbaseConfigInfo;
    int m_MultiSurfaceByID = 0;
    int m_DisplayPLYFile = 0;
    int m_IsAvoidChuckClippingEnabled = 0;
    // The language folder's string resources, installed behind the add-in's own strings.
    KelStringTable m_StringTable;

    static std::unique_ptr<CKelEnvApp> m_envAppInstance;
    static int m_IsEnvObjectCreated;
};
