// CKelVersionInfo: what version this library is. The storage numbers gate every archive read and
// write, so they are a file-format matter.
#pragma once

#include "port/Export.h"

#include "mfc/CString.h"

// The geometry kernel the library runs on; this build has only kernel 0.
enum KelKernelType { KelKernelStandard = 0, KelKernelAlternate = 1 };
// The edition; this build has only edition 2.
enum KelProductType { KelProductStandard = 2 };

class ORV_API CKelVersionInfo {
public:
    static constexpr const wchar_t* ORV_VERSION_MAJOR_FOR_SERVICE_PACK = L"2026";
    static constexpr const wchar_t* ORV_VERSION_MAJOR_STRING = L"Halden CAM 2026";
    static constexpr const wchar_t* ORV_SERVICE_PACK = L"SP0";
    static constexpr const wchar_t* ORV_VERSION_FOR_HELP_ABOUT = L"2017/0115";
    static constexpr const wchar_t* ORV_BUILD_DATE_FOR_HELP_ABOUT = L"2025/0729";
    static constexpr const wchar_t* ORV_VERSION_FOR_CUTBASE = L"2025/0701";
    static constexpr float ORV_STORAGE_VERSION = 40.0f;
    static constexpr float ORV_STORAGE_VERSION_EX = 31.6f;
    static constexpr float ORV_STORAGE_VERSION_2020_EX = 31.0f;
    static constexpr int HD_BUILD_VERSION = 1999313;
    static constexpr const wchar_t* ORV_REQUIRED_HALDEN_VERSION_CODE = L"2026";
    static constexpr int HD_VERSION_NOT_SUPPORTED_AFTER = 34;
    static constexpr const wchar_t* HD_VERSION_NOT_SUPPORTED_AFTER_STR = L"Halden 2026";
    static constexpr const wchar_t* ORV_BS_VERSION_STRING = L"2026 ";

    // 1 when `code` ("yyyy/mmdd") is later than ORV_VERSION_FOR_HELP_ABOUT.
    int IsGreater(CString const& code);
    // 1 when a document's storage version is newer than ORV_STORAGE_VERSION.
    int IsGreater(float storageVersion);

    // Paths and names from the environment; empty without one.
    CString OnTarvexAllPDFFilePath();
    CString OnTarvexTaskPaneINIFFilePath();
    CString GetTaskPaneTabStringName();
};

ORV_API CString GetKelVersion();
ORV_API CString GetRequiredHDVersion();
ORV_API CString GetKelServicePack();
ORV_API CString GetKelBuildDate();

// Always KelKernelStandard in this build.
ORV_API KelKernelType GetKernelType();
// Reads "EnableKelBrisk" and answers the one edition built, whatever it holds.
ORV_API KelProductType GetProductType();

// The edition code this build swaps product names for.
constexpr int ORV_EDITION_CODE = KelProductStandard;
// Swaps the two public product names in `text` by edition: for edition 5 "Tarvex" becomes
// "Halden CAM" unless the text already holds "Halden CAM"; for any other edition "Halden CAM"
// becomes "Tarvex".
ORV_API void UpdateStringForEdition(CString& text, int editionCode);
// The same for this build's edition.
ORV_API void UpdateStringForBrisk(CString& text);
