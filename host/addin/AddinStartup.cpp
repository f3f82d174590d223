#include "addin/AddinStartup.h"

#include <cstdio>

#include "addin/AppSettings.h"
#include "addin/NodeDocument.h"
#include "environment/OrvAppEnv.h"
#include "frame/OrvHaldenVersion.h"
#include "core/OrvHostCallbacks.h"
#include "frame/OrvShareDll.h"
#include "core/ProductInfo.h"

namespace addin {

namespace {

ProductInfo g_product{L"orvhost", L"2026", L"HD", L"Halden", L"2026", L"0"};
unsigned long g_nextObjectId = 0;
NodeDocument* g_open = nullptr;

NodeDocument& StandingDocument() {
    static NodeDocument document;
    static const bool titled = (document.m_Title = L"orvhost document", true);
    (void)titled;
    return document;
}

int HostIsMetric() {
    return 1;
}
unsigned long HostNewObjectId() {
    return ++g_nextObjectId;
}
OrvObject* HostActiveDocument() {
    return &StandingDocument();
}
int HostMessage(unsigned int id, va_list&) {
    std::fprintf(stderr, "orvhost: library message %u\n", id);
    return 0;
}
int HostProgress(long long progress) {
    std::fprintf(stderr, "orvhost: progress %lld\n", progress);
    return 1;
}
int HostCancelled() {
    return 0;
}
OrvSettingsKey* HostAppSettings() {
    return &AppSettings();
}
ProductInfo* HostProductInfo() {
    return &g_product;
}
CString HostProductString(unsigned int id) {
    switch (id) {
    case 2553:
        return L"Tarvex";
    case 2554:
        return L"Tarvex warning";
    case 2555:
        return L"Tarvex error";
    default:
        return CString();
    }
}
void HostDisplayAlerts(short*) {} // alerts stay on
int HostReportAllowed() {
    return 0;
}
CString HostStockGroupName() {
    return L"Stock";
}
OrvObject* HostCorrespondingDoc(OrvObject*) {
    return &StandingDocument();
}
CString HostLangName() {
    return L"english";
}
int HostSilent() {
    return 1;
} // a command-line host answers every question silently
int HostFullyLoaded() {
    return 1;
}
int HostStlStock() {
    return 0;
}
int HostTurnYZ(OrvObject*) {
    return 0;
}
OrvObjectIndexerHelper* HostIndexerHelper() {
    return g_open ? g_open->m_pIndexer : nullptr;
}

} // namespace

void StartLibrary() {
    InitShareDll();
    OrvShareRegisterDocCBK(HostIsMetric, HostNewObjectId, HostActiveDocument, HostMessage,
                           HostProgress, HostCancelled, nullptr, HostAppSettings, nullptr,
                           HostProductInfo, HostProductString, HostDisplayAlerts, HostReportAllowed,
                           HostStockGroupName, HostCorrespondingDoc, HostLangName, HostSilent,
                           HostFullyLoaded, HostStlStock, HostTurnYZ);
    SetHaldenLangName(L"english");
    SetHaldenDateCode(2026001, L"33.2");
    InitAppEnv();
    orvshare_init(HostIndexerHelper, nullptr, nullptr, nullptr);
}

void StopLibrary() {
    g_open = nullptr;
    CloseAppEnv();
}

void OpenDocument(NodeDocument* document) {
    g_open = document;
}

} // namespace addin
