// Entry points to the application environment.
#pragma once

#include "mfc/CString.h"

class CKelEnvApp;

// Both answer the environment, creating it on the first call of either.
CKelEnvApp* InitAppEnv();
CKelEnvApp* AppEnv();
// Ends the environment; a later AppEnv() creates it afresh. The callback tables stay set.
void CloseAppEnv();
// The install folder of the environment (drive and path), creating the environment if needed.
void KelGetInstallPath(CString& path);
