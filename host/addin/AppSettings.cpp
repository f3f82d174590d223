#include "addin/AppSettings.h"

#include "mfc/CArray.h"
#include "mfc/CPoint.h"
#include "mfc/CRect.h"
#include "mfc/CTime.h"

namespace addin {

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

OrvSettingsKey& AppSettings() {
    static const std::unique_ptr<OrvSettingsKey> settings = MakeAppSettings();
    return *settings;
}

} // namespace addin
