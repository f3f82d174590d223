// Entry points to the application environment.
#pragma once

class CKelEnvApp;

// Both answer the environment, creating it on the first call of either.
CKelEnvApp* InitAppEnv();
CKelEnvApp* AppEnv();
// Ends the environment; a later AppEnv() creates it afresh. The callback tables stay set.
void CloseAppEnv();
