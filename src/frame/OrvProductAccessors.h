// The running product's identity, read from the add-in's ProductInfo record.
#pragma once

#include "port/Export.h"

#include "core/ProductInfo.h"

// The add-in's record (callback 10), or null.
ORV_API ProductInfo* GetProductInfo();

// One field of the record; the empty string when there is no record.
ORV_API CString GetProductName();
ORV_API CString GetProductVersion();
ORV_API CString GetCADName();
ORV_API CString GetCADVersion();
ORV_API CString GetCADMinorVersion();

// Product name, one blank, product version.
ORV_API CString GetProductAndVersionString();
// The product version read as a decimal number; 0 when it does not parse.
ORV_API long GetKelVersionLong();

// A product-specific string by its resource id (callback 11).
ORV_API CString GetProductSpecificString(unsigned int id);
// `text` with the add-in's and the host's names replaced by those of the record; unchanged when
// there is no record.
ORV_API CString GetProductSpecificString2(CString text);

ORV_API int IsAssemblyDocumentSupported();
