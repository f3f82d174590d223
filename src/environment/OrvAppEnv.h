// Entry points to the application environment.
#pragma once

#include "port/Export.h"

#include "mfc/CString.h"

class CKelEnvApp;

// Both answer the environment, creating it on the first call of either.
ORV_API CKelEnvApp* InitAppEnv();
ORV_API CKelEnvApp* AppEnv();
// Ends the environment; a later AppEnv() creates it afresh. The callback tables stay set.
ORV_API void CloseAppEnv();
// The install folder of the environment (drive and path), creating the environment if needed.
ORV_API void KelGetInstallPath(CString& path);
