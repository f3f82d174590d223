#include "environment/OrvAppEnv.h"

#include "environment/CKelEnvApp.h"

CKelEnvApp* InitAppEnv() {
    return CKelEnvApp::Instance();
}

CKelEnvApp* AppEnv() {
    return CKelEnvApp::Instance();
}

void CloseAppEnv() {
    CKelEnvApp::DestroyInstance();
}

void KelGetInstallPath(CString& path) {
    const CKelEnvApp* env = AppEnv();
    path = env->GetKelDrive() + env->GetKelPath();
}
