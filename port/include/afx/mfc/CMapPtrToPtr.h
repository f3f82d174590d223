// CMapPtrToPtr: a map from untyped pointers to untyped pointers, owning neither.
#pragma once

#include "port/Export.h"

#include <cstdint>

#include "mfc/CMap.h"
#include "mfc/CObject.h"

namespace port {
struct ORV_API PointerHash {
    // The address without its low four bits, which allocation alignment leaves mostly zero.
    static UINT Hash(void* key) noexcept {
        return static_cast<UINT>(reinterpret_cast<std::uintptr_t>(key) >> 4);
    }
};
} // namespace port

class ORV_API CMapPtrToPtr : public port::HashMap<void*, void*, void*, void*, port::PointerHash> {
    DECLARE_DYNAMIC(CMapPtrToPtr)
public:
    explicit CMapPtrToPtr(INT_PTR nBlockSize = 10) : HashMap(nBlockSize) {}

    UINT HashKey(void* key) const noexcept { return port::PointerHash::Hash(key); }
    // Addresses mean nothing in a file: CNotSupportedException.
    void Serialize(CArchive&) override { AfxThrowNotSupportedException(); }
};
