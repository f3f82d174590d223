// CKelEnvApp: the application environment, one per process, made on first use.
#pragma once

#include <memory>

class CKelEnvApp {
public:
    // The environment, created on the first call.
    static CKelEnvApp* Instance();
    // Deletes the environment if there is one; the next Instance() makes a new one.
    static void DestroyInstance();

    ~CKelEnvApp() = default;
    CKelEnvApp(const CKelEnvApp&) = delete;
    CKelEnvApp& operator=(const CKelEnvApp&) = delete;

private:
    CKelEnvApp() = default;

    static std::unique_ptr<CKelEnvApp> m_pInstance;
};
