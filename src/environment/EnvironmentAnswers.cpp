// The version record's and the feature switches' questions that the environment answers. They are
// declared beside their families in frame/ and defined here, above the environment they read.
#include "environment/CKelEnvApp.h"
#include "environment/OrvAppEnv.h"
#include "frame/CKelVersionInfo.h"
#include "frame/FeatureSwitches.h"

CString CKelVersionInfo::OnTarvexAllPDFFilePath() {
    const CKelEnvApp* env = AppEnv();
    return env ? env->GetManualPDFFilePath() : CString();
}

CString CKelVersionInfo::OnTarvexTaskPaneINIFFilePath() {
    const CKelEnvApp* env = AppEnv();
    return env ? env->GetKelTaskPaneINIFilePath() : CString();
}

CString CKelVersionInfo::GetTaskPaneTabStringName() {
    const CKelEnvApp* env = AppEnv();
    return env ? env->GetTaskPaneTabStringID() : CString();
}

int GetMultiSurfaceByID() {
    const CKelEnvApp* env = AppEnv();
    return env ? env->GetMultiSurfaceByID() : 0;
}

int GetDisplayPLYFileRegStatus() {
    const CKelEnvApp* env = AppEnv();
    return env ? env->GetDisplayPLYFileRegStatus() : 0;
}

int GetIsAvoidChuckClippingEnabled() {
    const CKelEnvApp* env = AppEnv();
    return env ? env->GetIsAvoidChuckClippingEnabled() : 0;
}
