#include "environment/CutbaseAccessSetup.h"

#include "environment/CKelEnvApp.h"
#include "environment/OrvAppEnv.h"
#include "frame/RegistryHelpers.h"
#include "settings/OrvSettingsKey.h"

namespace {

constexpr const wchar_t* kForms32 = L"CutbaseForms.mde (32bit)";
constexpr const wchar_t* kFormsBasic32 = L"CutbaseForms_basic.mde (32bit)";
constexpr const wchar_t* kForms64 = L"CutbaseFormsx64.mde (64bit)";

// The front end's name fitted to the Access that is present.
CString FitFormsName(const CString& name, int has64, int has32) {
    if (has64 && !has32) {
        if (name.IsEmpty() || name == kForms32 || name == kFormsBasic32)
            return kForms64;
    } else if (has32 && !has64) {
        if (name.IsEmpty() || name == kForms64)
            return kForms32;
    } else if (has32 && has64) {
        if (name.IsEmpty())
            return kForms32;
    }
    return name;
}

// Records the detected bitnesses in `changes` where they differ from `stored`.
bool NoteAccessChanges(const CutbaseAccessValues& stored, int has64, int has32,
                       OrvSettingsKey& changes) {
    bool marked = false;
    if (has32 != stored.access32) {
        changes.AddValue(L"Access32bit", has32);
        marked = true;
    }
    if (has64 != stored.access64) {
        changes.AddValue(L"Access64bit", has64);
        marked = true;
    }
    return marked;
}

} // namespace

int CheckAccessVersionInstalled(int version, int wow) {
    CString path;
    path.Format(wow ? L"Software\\Wow6432Node\\Microsoft\\Office\\%d.0\\Access\\InstallRoot"
                    : L"Software\\Microsoft\\Office\\%d.0\\Access\\InstallRoot",
                version);
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS,
                      &key) != ERROR_SUCCESS)
        return 0;
    RegCloseKey(key);
    return 1;
}

void DetectAccessInstallations(int& has64, int& has32) {
    has64 = 0;
    has32 = 0;
    for (int version : {16, 15, 14, 12, 11})
        if (CheckAccessVersionInstalled(version, 0)) {
            has64 = 1;
            break;
        }
    for (int version : {16, 15, 14, 12, 11})
        if (CheckAccessVersionInstalled(version, 1)) {
            has32 = 1;
            break;
        }
}

CutbaseAccessValues ReadCutbaseAccessValues() {
    OrvSettingsKey key(L"Tarvex", GetVersionKeyPath());
    key.AddValue(L"CutbaseForms", CString());
    key.AddValue(L"Access32bit", 0);
    key.AddValue(L"Access64bit", 0);
    key.RestoreValuesFromRegistry();
    CutbaseAccessValues values;
    key.GetValue(L"CutbaseForms", values.cutbaseForms);
    key.GetValue(L"Access32bit", values.access32);
    key.GetValue(L"Access64bit", values.access64);
    return values;
}

void SetDefaultCutbaseForms() {
    int has64 = 0, has32 = 0;
    DetectAccessInstallations(has64, has32);
    const CutbaseAccessValues stored = ReadCutbaseAccessValues();

    OrvSettingsKey changes(L"Tarvex", GetVersionKeyPath());
    bool marked = NoteAccessChanges(stored, has64, has32, changes);
    CString forms = stored.cutbaseForms;
    if (forms.IsEmpty()) {
        forms = L"Cutbase App";
        marked = true;
        wchar_t useConfigData[] = L"UseConfigData";
        SetRegSettingDwordValue(HKEY_CURRENT_USER, GetProductRegistryRoot() + L"EDMApp 2026\\Debug",
                                useConfigData, 1);
    }
    const CString fitted = FitFormsName(forms, has64, has32);
    if (fitted != forms)
        marked = true;
    if (marked) {
        changes.AddValue(L"CutbaseForms", fitted);
        changes.SaveValuesToRegistry();
    }
}

int SetDatabaseInstallationDataForAccess() {
    int has64 = 0, has32 = 0;
    DetectAccessInstallations(has64, has32);
    OrvSettingsKey changes(L"Tarvex", GetVersionKeyPath());
    if (!NoteAccessChanges(ReadCutbaseAccessValues(), has64, has32, changes))
        return 0;
    changes.SaveValuesToRegistry();
    return 1;
}

int SetDatabaseInstallationData() {
    const OrvCutbaseConfigData* active = AppEnv()->GetActiveCutbaseConfigData();
    if (!active || active->m_DatabaseType != ORV_CUTBASE_ACCESS)
        return 0;
    return SetDatabaseInstallationDataForAccess();
}
