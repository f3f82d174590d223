#include "frame/CKelVersionInfo.h"

#include <tchar.h>

#include "frame/RegistryHelpers.h"

namespace {

struct VersionCode {
    int year;
    int monthDay;
};

// "yyyy/mmdd": the left four characters are the year, the right four the month and day.
VersionCode ParseVersionCode(CString code) {
    code.MakeLower();
    return {_wtoi(code.Left(4)), _wtoi(code.Right(4))};
}

} // namespace

int CKelVersionInfo::IsGreater(CString const& code) {
    const VersionCode own = ParseVersionCode(ORV_VERSION_FOR_HELP_ABOUT);
    const VersionCode other = ParseVersionCode(code);
    if (own.year < other.year)
        return 1;
    return own.year == other.year && own.monthDay < other.monthDay ? 1 : 0;
}

int CKelVersionInfo::IsGreater(float storageVersion) {
    return storageVersion > ORV_STORAGE_VERSION ? 1 : 0;
}

CString GetKelVersion() {
    return CKelVersionInfo::ORV_VERSION_MAJOR_FOR_SERVICE_PACK;
}
CString GetRequiredHDVersion() {
    return CKelVersionInfo::ORV_REQUIRED_HALDEN_VERSION_CODE;
}
CString GetKelServicePack() {
    return CKelVersionInfo::ORV_SERVICE_PACK;
}
CString GetKelBuildDate() {
    return CKelVersionInfo::ORV_BUILD_DATE_FOR_HELP_ABOUT;
}

KelKernelType GetKernelType() {
    return KelKernelStandard;
}

KelProductType GetProductType() {
    CString name = L"EnableKelBrisk";
    // Both answers are the same edition: only one is built.
    return GetDebugRegistryVal(name, 0) == 1 ? KelProductStandard : KelProductStandard;
}

void UpdateStringForEdition(CString& text, int editionCode) {
    if (editionCode == 5) {
        if (text.Find(L"Halden CAM") < 0)
            text.Replace(L"Tarvex", L"Halden CAM");
    } else if (text.Find(L"Halden CAM") >= 0) {
        text.Replace(L"Halden CAM", L"Tarvex");
    }
}

void UpdateStringForBrisk(CString& text) {
    UpdateStringForEdition(text, ORV_EDITION_CODE);
}
