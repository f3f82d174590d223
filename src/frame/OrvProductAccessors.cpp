#include "frame/OrvProductAccessors.h"

#include <cwchar>

#include "core/OrvHostCallbacks.h"

namespace {

CString Field(CString ProductInfo::*field) {
    const ProductInfo* info = GetProductInfo();
    return info ? info->*field : CString();
}

} // namespace

ProductInfo* GetProductInfo() {
    return GetProductInfoCB();
}

CString GetProductName() {
    return Field(&ProductInfo::m_ProductName);
}
CString GetProductVersion() {
    return Field(&ProductInfo::m_ProductVersion);
}
CString GetCADName() {
    return Field(&ProductInfo::m_CADName);
}
CString GetCADVersion() {
    return Field(&ProductInfo::m_CADVersion);
}
CString GetCADMinorVersion() {
    return Field(&ProductInfo::m_CADMinorVersion);
}

CString GetProductAndVersionString() {
    return GetProductName() + L" " + GetProductVersion();
}

long GetKelVersionLong() {
    long version = 0;
    if (std::swscanf(GetProductVersion().GetString(), L"%ld", &version) != 1)
        return 0;
    return version;
}

CString GetProductSpecificString(unsigned int id) {
    return GetProductSpecificStringCB(id);
}

CString GetProductSpecificString2(CString text) {
    const ProductInfo* info = GetProductInfo();
    if (!info)
        return text;
    text.Replace(L"Tarvex", info->m_ProductName);
    text.Replace(L"Halden", info->m_HostShortName);
    text.Replace(L"HALDEN", info->m_HostShortName);
    return text;
}

int IsAssemblyDocumentSupported() {
    return 1;
}
