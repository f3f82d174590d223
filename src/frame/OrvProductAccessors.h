// The running product's identity, read from the add-in's ProductInfo record.
#pragma once

#include "core/ProductInfo.h"

// The add-in's record (callback 10), or null.
ProductInfo* GetProductInfo();

// One field of the record; the empty string when there is no record.
CString GetProductName();
CString GetProductVersion();
CString GetCADName();
CString GetCADVersion();
CString GetCADMinorVersion();

// Product name, one blank, product version.
CString GetProductAndVersionString();
// The product version read as a decimal number; 0 when it does not parse.
long GetKelVersionLong();

// A product-specific string by its resource id (callback 11).
CString GetProductSpecificString(unsigned int id);
// `text` with the add-in's and the host's names replaced by those of the record; unchanged when
// there is no record.
CString GetProductSpecificString2(CString text);

int IsAssemblyDocumentSupported();
