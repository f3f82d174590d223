// CMapStringToPtr: a map from strings (compared with case) to untyped pointers, which it does not
// own.
#pragma once

#include "port/Export.h"

#include "mfc/CMap.h"
#include "mfc/CObject.h"
#include "mfc/CString.h"

namespace port {
struct ORV_API StringHash {
    static UINT Hash(LPCTSTR key) noexcept { return HashText(key); }
};
} // namespace port

class ORV_API CMapStringToPtr
    : public port::HashMap<CString, LPCTSTR, void*, void*, port::StringHash> {
    DECLARE_DYNAMIC(CMapStringToPtr)
public:
    explicit CMapStringToPtr(INT_PTR nBlockSize = 10) : HashMap(nBlockSize) {}

    UINT HashKey(LPCTSTR key) const noexcept { return port::StringHash::Hash(key); }
    // Addresses mean nothing in a file: CNotSupportedException.
    void Serialize(CArchive&) override { AfxThrowNotSupportedException(); }
};
