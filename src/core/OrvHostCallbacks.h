// The add-in's callback tables and the accessors built on them. The library cannot see the add-in's
// document, settings, product identity or progress bar: it asks through these slots.
//
// Each accessor either answers a fixed value while its slot is empty, or calls through the slot
// without a test, so that calling it before registration is a fatal fault. Which one an accessor
// does is part of its contract.
#pragma once

#include "port/Export.h"

#include <cstdarg>

#include "mfc/CString.h"

class OrvObject;
class OrvSettingsKey;
class OrvFeedColorsSettings;
class OrvObjectIndexerHelper;
struct ProductInfo;

// The slots of OrvShareRegisterDocCBK, in the order of its parameters.
using PFN_IsMetricUnit = int (*)();
using PFN_GetNewObjectId = unsigned long (*)();
using PFN_GetActiveDocument = OrvObject* (*)();
// The message sink receives the id and the caller's argument list by reference.
using PFN_OrvMessage = int (*)(unsigned int id, va_list& args);
using PFN_OrvProgress = int (*)(long long progress);
using PFN_IsUserJobCancelled = int (*)();
using PFN_GetActiveDocSettings = OrvSettingsKey* (*)();
using PFN_GetAppSettings = OrvSettingsKey* (*)();
using PFN_GetAppFeedColorSettings = OrvFeedColorsSettings* (*)();
using PFN_GetProductInfo = ProductInfo* (*)();
using PFN_GetProductSpecificString = CString (*)(unsigned int id);
using PFN_GetAppDisplayAlerts = void (*)(short* alerts);
using PFN_GetExceptionReportAllowed = int (*)();
using PFN_GetStockGroupName = CString (*)();
using PFN_GetCorrespondingDoc = OrvObject* (*)(OrvObject* object);
using PFN_GetHaldenLangName = CString (*)();
using PFN_GetAppSilentModeFlag = int (*)();
using PFN_GetIsDocFullyLoaded = int (*)();
using PFN_GetIsWorkpieceSTLStock = int (*)();
using PFN_GetIsTurnYZAxisRev = int (*)(OrvObject* object);

// The slots of orvshare_init.
using PFN_GetActiveAutoIdHelper = OrvObjectIndexerHelper* (*)();
using PFN_GetActivePPMHelper = OrvObject* (*)();

// Stores all twenty pointers, empty ones included; a second call replaces them.
ORV_API void OrvShareRegisterDocCBK(
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
    PFN_GetIsTurnYZAxisRev getIsTurnYZAxisRev);

// Stores the four document-side providers, empty ones included. Always answers 1.
ORV_API int orvshare_init(PFN_GetActiveAutoIdHelper getActiveAutoIdHelper,
                          PFN_GetActivePPMHelper getActivePPMHelper,
                          PFN_GetActivePPMHelper getActiveBasePPMHelper,
                          PFN_GetActivePPMHelper getActiveCorePPMHelper);

// Accessors of the first table; the comment gives the answer while the slot is empty.
ORV_API int IsMetricUnit();                                  // 1
ORV_API unsigned long GetNewObjectIdCB();                    // 0
ORV_API OrvObject* GetActiveDocument();                      // faults
ORV_API int OrvMessageCallback(unsigned int id, ...);        // 0
ORV_API int OrvProgressCallback(long long progress);         // 0
ORV_API int IsUserJobCancelled();                            // 0
ORV_API OrvSettingsKey* GetActiveDocSettingsCB();            // null
ORV_API OrvSettingsKey* GetAppSettingsCB();                  // null
ORV_API OrvFeedColorsSettings* GetAppFeedColorSettingsCB();  // null
ORV_API ProductInfo* GetProductInfoCB();                     // null
ORV_API CString GetProductSpecificStringCB(unsigned int id); // empty string
// Writes -1 (alerts on) into *alerts, then lets the add-in change it; faults while the slot is
// empty. A null `alerts` does nothing.
ORV_API void GetAppDisplayAlerts(short* alerts);
ORV_API int GetExceptionReportAllowedCB();              // 0
ORV_API CString GetStockGroupName();                    // faults
ORV_API OrvObject* GetCorrespondingDoc(OrvObject* doc); // faults
ORV_API int gGetAppSilentModeFlag();                    // 0
ORV_API int GetIsDocFullyLoaded();                      // 0
ORV_API int orv_getIsWorkpieceSTLStock();               // faults
ORV_API int orv_GetIsTurnYZAxisRev(OrvObject* object);  // 0

// The host's language name. It starts as "english"; only when it has been set empty is the
// add-in asked (slot 16, else "english"), and the answer is kept.
ORV_API void SetHaldenLangName(CString name);
ORV_API CString GetHaldenLangName();

// Accessors of the second table.
ORV_API OrvObjectIndexerHelper* orv_getActiveAutoIdHelper(); // null
ORV_API OrvObject* orv_getActivePPMHelper();                 // faults
ORV_API OrvObject* orv_getActiveBasePPMHelper();             // faults
ORV_API OrvObject* orv_getActiveCorePPMHelper();             // faults
