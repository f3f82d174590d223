// CArchive: the object protocol. Classes and objects share one numbering, in order of first
// appearance; index 0 is the null pointer.
#include "mfc/CArchive.h"

namespace {

constexpr WORD wNullTag = 0x0000;
constexpr WORD wNewClassTag = 0xFFFF;
constexpr WORD wClassTag = 0x8000;
constexpr WORD wBigObjectTag = 0x7FFF;
constexpr DWORD dwBigClassTag = 0x80000000;
constexpr DWORD nMaxMapCount = 0x3FFFFFFE;

// The schema a class writes: its own without the versionable bit.
UINT OwnSchema(const CRuntimeClass* pClass) {
    return pClass->m_wSchema & ~VERSIONABLE_SCHEMA;
}

bool IsSerial(const CRuntimeClass* pClass) {
    return OwnSchema(pClass) != 0xFFFF;
}

} // namespace

void CArchive::CheckMapCount() const {
    if (m_nMapCount >= nMaxMapCount)
        Throw(CArchiveException::badIndex);
}

void CArchive::WriteObject(const CObject* pOb) {
    CheckStoring();
    if (pOb == nullptr) {
        *this << wNullTag;
        return;
    }
    if (const auto it = m_storeMap.find(pOb); it != m_storeMap.end()) {
        const DWORD nObIndex = it->second;
        if (nObIndex < wBigObjectTag)
            *this << static_cast<WORD>(nObIndex);
        else
            *this << wBigObjectTag << nObIndex;
        return;
    }
    WriteClass(pOb->GetRuntimeClass());
    CheckMapCount();
    m_storeMap.emplace(pOb, m_nMapCount++);
    // Serialize is not const, but storing does not change the object.
    const_cast<CObject*>(pOb)->Serialize(*this);
}

void CArchive::WriteClass(const CRuntimeClass* pClassRef) {
    CheckStoring();
    if (pClassRef == nullptr)
        AfxThrowInvalidArgException();
    if (!IsSerial(pClassRef))
        AfxThrowNotSupportedException();
    if (const auto it = m_storeMap.find(pClassRef); it != m_storeMap.end()) {
        const DWORD nClassIndex = it->second;
        if (nClassIndex < wBigObjectTag)
            *this << static_cast<WORD>(wClassTag | nClassIndex);
        else
            *this << wBigObjectTag << (dwBigClassTag | nClassIndex);
        return;
    }
    CheckMapCount();
    *this << wNewClassTag;
    pClassRef->Store(*this);
    m_storeMap.emplace(pClassRef, m_nMapCount++);
}

CRuntimeClass* CArchive::ReadClass(const CRuntimeClass* pClassRefRequested, UINT* pSchema,
                                   DWORD* pObTag) {
    CheckLoading();
    if (pClassRefRequested != nullptr && !IsSerial(pClassRefRequested))
        AfxThrowNotSupportedException();

    WORD wTag = 0;
    *this >> wTag;
    DWORD obTag = 0;
    if (wTag == wBigObjectTag)
        *this >> obTag;
    else
        obTag = (static_cast<DWORD>(wTag & wClassTag) << 16) | (wTag & ~wClassTag);

    if (!(obTag & dwBigClassTag)) {
        if (pObTag == nullptr)
            Throw(CArchiveException::badIndex);
        *pObTag = obTag;
        return nullptr;
    }

    CRuntimeClass* pClassRef = nullptr;
    UINT nSchema = 0;
    if (wTag == wNewClassTag) {
        CheckMapCount();
        pClassRef = CRuntimeClass::Load(*this, &nSchema);
        if (pClassRef == nullptr)
            Throw(CArchiveException::badClass);
        if (nSchema != OwnSchema(pClassRef)) {
            if (!(pClassRef->m_wSchema & VERSIONABLE_SCHEMA))
                Throw(CArchiveException::badSchema);
            m_schemaMap[pClassRef] = nSchema;
        }
        m_loadArray.push_back({pClassRef, SlotKind::Class});
        ++m_nMapCount;
    } else {
        const DWORD nClassIndex = obTag & ~dwBigClassTag;
        if (nClassIndex == 0 || nClassIndex >= m_loadArray.size() ||
            m_loadArray[nClassIndex].kind != SlotKind::Class)
            Throw(CArchiveException::badIndex);
        pClassRef = static_cast<CRuntimeClass*>(m_loadArray[nClassIndex].p);
        const auto it = m_schemaMap.find(pClassRef);
        nSchema = it != m_schemaMap.end() ? it->second : OwnSchema(pClassRef);
    }

    if (pClassRefRequested != nullptr && !pClassRef->IsDerivedFrom(pClassRefRequested))
        Throw(CArchiveException::badClass);
    if (pSchema != nullptr)
        *pSchema = nSchema;
    else
        m_nObjectSchema = nSchema;
    return pClassRef;
}

CObject* CArchive::ReadObject(const CRuntimeClass* pClassRefRequested) {
    CheckLoading();
    UINT nSchema = 0;
    DWORD obTag = 0;
    const CRuntimeClass* pClassRef = ReadClass(pClassRefRequested, &nSchema, &obTag);

    if (pClassRef == nullptr) {
        if (obTag >= m_loadArray.size() || m_loadArray[obTag].kind != SlotKind::Object)
            Throw(CArchiveException::badIndex);
        auto* pOb = static_cast<CObject*>(m_loadArray[obTag].p);
        if (pOb != nullptr && pClassRefRequested != nullptr && !pOb->IsKindOf(pClassRefRequested))
            Throw(CArchiveException::badClass);
        return pOb;
    }

    CheckMapCount();
    CObject* pOb = pClassRef->CreateObject();
    if (pOb == nullptr)
        AfxThrowMemoryException();
    // The object is numbered before its Serialize, so references back to it resolve.
    const size_t nSlot = m_loadArray.size();
    try {
        m_loadArray.push_back({pOb, SlotKind::Object});
    } catch (...) { // not in the load table yet: this is the object's only owner
        delete pOb;
        throw;
    }
    ++m_nMapCount;
    const UINT nSchemaSave = m_nObjectSchema;
    m_nObjectSchema = nSchema;
    try {
        pOb->Serialize(*this);
    } catch (...) { // whatever Serialize threw, the half-loaded object leaves the table first
        m_loadArray[nSlot].p = nullptr;
        m_nObjectSchema = nSchemaSave;
        delete pOb;
        throw;
    }
    m_nObjectSchema = nSchemaSave;
    return pOb;
}

void CArchive::SerializeClass(const CRuntimeClass* pClassRef) {
    if (IsStoring())
        WriteClass(pClassRef);
    else
        ReadClass(pClassRef, nullptr, nullptr);
}

void CArchive::MapObject(const CObject* pOb) {
    CheckMapCount();
    if (IsStoring()) {
        m_storeMap.insert_or_assign(pOb, m_nMapCount++);
        return;
    }
    m_loadArray.push_back({const_cast<CObject*>(pOb), SlotKind::Object});
    ++m_nMapCount;
}

CArchive& operator<<(CArchive& ar, const CObject* pOb) {
    ar.WriteObject(pOb);
    return ar;
}

CArchive& operator>>(CArchive& ar, CObject*& pOb) {
    pOb = ar.ReadObject(nullptr);
    return ar;
}

CArchive& operator>>(CArchive& ar, const CObject*& pOb) {
    pOb = ar.ReadObject(nullptr);
    return ar;
}
