#include "frame/CKelEnvApp.h"

std::unique_ptr<CKelEnvApp> CKelEnvApp::m_pInstance;

CKelEnvApp* CKelEnvApp::Instance() {
    if (!m_pInstance)
        m_pInstance.reset(new CKelEnvApp);
    return m_pInstance.get();
}

void CKelEnvApp::DestroyInstance() {
    m_pInstance.reset();
}
