#include "core/OrvHostCallbacks.h"

namespace {

// The add-in's tables: written once at start-up, never cleared.
struct DocCallbacks {
    PFN_IsMetricUnit isMetricUnit = nullptr;
    PFN_GetNewObjectId getNewObjectId = nullptr;
    PFN_GetActiveDocument getActiveDocument = nullptr;
    PFN_OrvMessage message = nullptr;
    PFN_OrvProgress progress = nullptr;
    PFN_IsUserJobCancelled isUserJobCancelled = nullptr;
    PFN_GetActiveDocSettings getActiveDocSettings = nullptr;
    PFN_GetAppSettings getAppSettings = nullptr;
    PFN_GetAppFeedColorSettings getAppFeedColorSettings = nullptr;
    PFN_GetProductInfo getProductInfo = nullptr;
    PFN_GetProductSpecificString getProductSpecificString = nullptr;
    PFN_GetAppDisplayAlerts getAppDisplayAlerts = nullptr;
    PFN_GetExceptionReportAllowed getExceptionReportAllowed = nullptr;
    PFN_GetStockGroupName getStockGroupName = nullptr;
    PFN_GetCorrespondingDoc getCorrespondingDoc = nullptr;
    PFN_GetHaldenLangName getHaldenLangName = nullptr;
    PFN_GetAppSilentModeFlag getAppSilentModeFlag = nullptr;
    PFN_GetIsDocFullyLoaded getIsDocFullyLoaded = nullptr;
    PFN_GetIsWorkpieceSTLStock getIsWorkpieceSTLStock = nullptr;
    PFN_GetIsTurnYZAxisRev getIsTurnYZAxisRev = nullptr;
};

struct DocProviders {
    PFN_GetActiveAutoIdHelper getActiveAutoIdHelper = nullptr;
    PFN_GetActivePPMHelper getActivePPMHelper = nullptr;
    PFN_GetActivePPMHelper getActiveBasePPMHelper = nullptr;
    PFN_GetActivePPMHelper getActiveCorePPMHelper = nullptr;
};

DocCallbacks g_callbacks;
DocProviders g_providers;

CString& LangName() {
    static CString name(L"english");
    return name;
}

} // namespace

void OrvShareRegisterDocCBK(
    PFN_IsMetricUnit isMetricUnit, PFN_GetNewObjectId getNewObjectId,
    PFN_GetActiveDocument getActiveDocument, PFN_OrvMessage message, PFN_OrvProgress progress,
    PFN_IsUserJobCancelled isUserJobCancelled, PFN_GetActiveDocSettings getActiveDocSettings,
    PFN_GetAppSettings getAppSettings, PFN_GetAppFeedColorSettings getAppFeedColorSettings,
    PFN_GetProductInfo getProductInfo, PFN_GetProductSpecificString getProductSpecificString,
    PFN_GetAppDisplayAlerts getAppDisplayAlerts,
    PFN_GetExceptionReportAllowed getExceptionReportAllowed,
    PFN_GetStockGroupName getStockGroupName, PFN_GetCorrespondingDoc getCorrespondingDoc,
    PFN_GetHaldenLangName getHaldenLangName, PFN_GetAppSilentModeFlag getAppSilentModeFlag,
    PFN_GetIsDocFullyLoaded getIsDocFullyLoaded, PFN_GetIsWorkpieceSTLStock getIsWorkpieceSTLStock,
    PFN_GetIsTurnYZAxisRev getIsTurnYZAxisRev) {
    g_callbacks = {isMetricUnit,
                   getNewObjectId,
                   getActiveDocument,
                   message,
                   progress,
                   isUserJobCancelled,
                   getActiveDocSettings,
                   getAppSettings,
                   getAppFeedColorSettings,
                   getProductInfo,
                   getProductSpecificString,
                   getAppDisplayAlerts,
                   getExceptionReportAllowed,
                   getStockGroupName,
                   getCorrespondingDoc,
                   getHaldenLangName,
                   getAppSilentModeFlag,
                   getIsDocFullyLoaded,
                   getIsWorkpieceSTLStock,
                   getIsTurnYZAxisRev};
}

int orvshare_init(PFN_GetActiveAutoIdHelper getActiveAutoIdHelper,
                  PFN_GetActivePPMHelper getActivePPMHelper,
                  PFN_GetActivePPMHelper getActiveBasePPMHelper,
                  PFN_GetActivePPMHelper getActiveCorePPMHelper) {
    g_providers = {getActiveAutoIdHelper, getActivePPMHelper, getActiveBasePPMHelper,
                   getActiveCorePPMHelper};
    return 1;
}

int IsMetricUnit() {
    return g_callbacks.isMetricUnit ? g_callbacks.isMetricUnit() : 1;
}

unsigned long GetNewObjectIdCB() {
    return g_callbacks.getNewObjectId ? g_callbacks.getNewObjectId() : 0;
}

OrvObject* GetActiveDocument() {
    return g_callbacks.getActiveDocument();
}

int OrvMessageCallback(unsigned int id, ...) {
    if (!g_callbacks.message)
        return 0;
    va_list args;
    va_start(args, id);
    const int result = g_callbacks.message(id, args);
    va_end(args);
    return result;
}

int OrvProgressCallback(long long progress) {
    return g_callbacks.progress ? g_callbacks.progress(progress) : 0;
}

int IsUserJobCancelled() {
    return g_callbacks.isUserJobCancelled ? g_callbacks.isUserJobCancelled() : 0;
}

OrvSettingsKey* GetActiveDocSettingsCB() {
    return g_callbacks.getActiveDocSettings ? g_callbacks.getActiveDocSettings() : nullptr;
}

OrvSettingsKey* GetAppSettingsCB() {
    return g_callbacks.getAppSettings ? g_callbacks.getAppSettings() : nullptr;
}

OrvFeedColorsSettings* GetAppFeedColorSettingsCB() {
    return g_callbacks.getAppFeedColorSettings ? g_callbacks.getAppFeedColorSettings() : nullptr;
}

ProductInfo* GetProductInfoCB() {
    return g_callbacks.getProductInfo ? g_callbacks.getProductInfo() : nullptr;
}

CString GetProductSpecificStringCB(unsigned int id) {
    return g_callbacks.getProductSpecificString ? g_callbacks.getProductSpecificString(id)
                                                : CString();
}

void GetAppDisplayAlerts(short* alerts) {
    if (!alerts)
        return;
    *alerts = -1;
    g_callbacks.getAppDisplayAlerts(alerts);
}

int GetExceptionReportAllowedCB() {
    return g_callbacks.getExceptionReportAllowed ? g_callbacks.getExceptionReportAllowed() : 0;
}

CString GetStockGroupName() {
    return g_callbacks.getStockGroupName();
}

OrvObject* GetCorrespondingDoc(OrvObject* doc) {
    return g_callbacks.getCorrespondingDoc(doc);
}

int gGetAppSilentModeFlag() {
    return g_callbacks.getAppSilentModeFlag ? g_callbacks.getAppSilentModeFlag() : 0;
}

int GetIsDocFullyLoaded() {
    return g_callbacks.getIsDocFullyLoaded ? g_callbacks.getIsDocFullyLoaded() : 0;
}

int orv_getIsWorkpieceSTLStock() {
    return g_callbacks.getIsWorkpieceSTLStock();
}

int orv_GetIsTurnYZAxisRev(OrvObject* object) {
    return g_callbacks.getIsTurnYZAxisRev ? g_callbacks.getIsTurnYZAxisRev(object) : 0;
}

void SetHaldenLangName(CString name) {
    LangName() = name;
}

CString GetHaldenLangName() {
    CString& name = LangName();
    if (name.IsEmpty())
        name =
            g_callbacks.getHaldenLangName ? g_callbacks.getHaldenLangName() : CString(L"english");
    return name;
}

OrvObjectIndexerHelper* orv_getActiveAutoIdHelper() {
    return g_providers.getActiveAutoIdHelper ? g_providers.getActiveAutoIdHelper() : nullptr;
}

OrvObject* orv_getActivePPMHelper() {
    return g_providers.getActivePPMHelper();
}

OrvObject* orv_getActiveBasePPMHelper() {
    return g_providers.getActiveBasePPMHelper();
}

OrvObject* orv_getActiveCorePPMHelper() {
    return g_providers.getActiveCorePPMHelper();
}
