// ProductInfo: the identity of the running product and of its host, owned by the add-in.
#pragma once

#include "port/Export.h"

#include "mfc/CString.h"

struct ORV_API ProductInfo {
    CString m_ProductName;
    CString m_ProductVersion;
    // Used only to put the host's name into product-specific texts (GetProductSpecificString2).
    CString m_HostShortName;
    CString m_CADName;
    CString m_CADVersion;
    CString m_CADMinorVersion;
};
