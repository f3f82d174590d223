#include "HostCallbacks.h"

#include <cstdint>
#include <cstdio>

#include "core/OrvHostCallbacks.h"
#include "core/ProductInfo.h"
#include "environment/OrvAppEnv.h"
#include "frame/OrvHaldenVersion.h"
#include "frame/OrvShareDll.h"

namespace orvhost {

namespace {

template <class T> T& At(unsigned long long param) {
    return *reinterpret_cast<T*>(static_cast<std::uintptr_t>(param));
}

ProductInfo g_product{L"orvhost", L"2026", L"HD", L"Halden", L"2026", L"0"};
unsigned long g_nextObjectId = 0;

int HostIsMetric() {
    return 1;
}
unsigned long HostNewObjectId() {
    return ++g_nextObjectId;
}
OrvObject* HostActiveDocument() {
    return &ActiveDocument();
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
    return &ActiveDocument();
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

} // namespace

int HostDocument::SendOrvCoreMessage(ORV_CORE_MESSAGE_ID id, unsigned long long param, long long) {
    switch (id) {
    case ORV_MSG_GET_DOC_READ_STORAGE_UNITS:
        At<float>(param) = m_StorageUnits;
        return 1;
    case ORV_MSG_SET_DOC_READ_STORAGE_UNITS:
        m_StorageUnits = At<float>(param);
        return 1;
    case ORV_MSG_SET_DOC_MODIFIED_FLAG:
        m_Modified = At<int>(param);
        return 1;
    case ORV_MSG_IS_DOC_MODIFIED:
        At<int>(param) = m_Modified;
        return 1;
    case ORV_MSG_IS_DOC_UNITS_MM:
        At<int>(param) = m_Units == 0;
        return 1;
    case ORV_MSG_GET_DOC_UNITS:
        At<int>(param) = m_Units;
        return 1;
    case ORV_MSG_GET_DOC_TITLE:
        At<CString>(param) = m_Title;
        return 1;
    default:
        return 0;
    }
}

IMPLEMENT_SERIAL(HostDisplaySettings, OrvSettingsKey, VERSIONABLE_SCHEMA | 1)

HostDisplaySettings::HostDisplaySettings()
    : OrvSettingsKey(L"Display", L"Software\\Halden\\Halden CAM\\orvhost\\Display") {
    AddValue(L"OpenOperationDialogToLastPage", 0);
    AddValue(L"CollapseOperationOnPreview", 1);
}

std::unique_ptr<OrvSettingsKey> MakeAppSettings() {
    const CString base = L"Software\\Halden\\Halden CAM\\orvhost\\";
    auto app = std::make_unique<OrvSettingsKey>(L"Application", base + L"Application");
    app->AddValue(L"Units", 1);
    app->AddValue(L"GridColor", static_cast<unsigned long>(RGB(0, 128, 255)));
    app->AddValue(L"Tolerance", 0.01);
    app->AddValue(L"Stepover", 0.125L);
    app->AddValue(L"PostName", CString(L"Fanuc"));
    app->AddValue(L"WindowPos", CPoint(100, 100));
    app->AddValue(L"WindowRect", CRect(0, 0, 800, 600));
    app->AddValue(L"LastRun", CTime(1767225600)); // 2026-01-01 00:00 UTC
    CArray<int, int> tools;
    tools.Add(1);
    tools.Add(2);
    tools.Add(3);
    app->AddValue(L"RecentTools", tools);
    app->AddKey(new HostDisplaySettings);
    return app;
}

HostDocument& ActiveDocument() {
    static HostDocument document;
    return document;
}

OrvSettingsKey& AppSettings() {
    static const std::unique_ptr<OrvSettingsKey> settings = MakeAppSettings();
    return *settings;
}

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
    // The indexer and pattern helpers belong to documents that this host does not make yet.
    orvshare_init(nullptr, nullptr, nullptr, nullptr);
}

void StopLibrary() {
    CloseAppEnv();
}

} // namespace orvhost
