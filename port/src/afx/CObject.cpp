// CObject, CRuntimeClass and the process-wide class list.
#include "mfc/CObject.h"

#include <cstring>
#include <mutex>
#include <string>
#include <vector>

#include "mfc/CArchive.h"
#include "mfc/CDumpContext.h"
#include "port/TextConversion.h"

namespace {

// The class list; built on first use so that classes registering from other translation units'
// static constructors always find it.
struct ClassList {
    std::mutex lock;
    std::vector<CRuntimeClass*> classes;
};

ClassList& TheClassList() {
    static ClassList list;
    return list;
}

// The longest class name a description may carry, plus one.
constexpr WORD kMaxClassNameBuffer = 64;

} // namespace

const CRuntimeClass CObject::classCObject = {"CObject", static_cast<int>(sizeof(CObject)), 0xFFFF,
                                             nullptr, nullptr};
static const AFX_CLASSINIT _init_CObject(RUNTIME_CLASS(CObject));

CRuntimeClass* CObject::GetRuntimeClass() const {
    return RUNTIME_CLASS(CObject);
}

void CObject::Serialize(CArchive&) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext& dc) const {
    dc << "a " << GetRuntimeClass()->m_lpszClassName << " at " << static_cast<const void*>(this)
       << "\n";
}

BOOL CObject::IsSerializable() const {
    return GetRuntimeClass()->m_wSchema != 0xFFFF;
}

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const {
    return GetRuntimeClass()->IsDerivedFrom(pClass);
}

CObject* AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject) {
    return pObject != nullptr && pObject->IsKindOf(pClass) ? pObject : nullptr;
}

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* pNewClass) {
    ClassList& list = TheClassList();
    std::lock_guard guard(list.lock);
    list.classes.push_back(pNewClass);
}

void AfxDoForAllClasses(void (*pfn)(const CRuntimeClass* pClass, void* pContext), void* pContext) {
    std::vector<CRuntimeClass*> snapshot;
    {
        ClassList& list = TheClassList();
        std::lock_guard guard(list.lock);
        snapshot = list.classes;
    }
    // Called outside the lock so that the callback may search the list itself.
    for (const CRuntimeClass* pClass : snapshot)
        pfn(pClass, pContext);
}

CObject* CRuntimeClass::CreateObject() const {
    return m_pfnCreateObject != nullptr ? m_pfnCreateObject() : nullptr;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const {
    for (const CRuntimeClass* pClass = this; pClass != nullptr; pClass = pClass->m_pBaseClass) {
        if (pClass == pBaseClass)
            return TRUE;
    }
    return FALSE;
}

CRuntimeClass* CRuntimeClass::FromName(LPCSTR lpszClassName) {
    if (lpszClassName == nullptr)
        return nullptr;
    ClassList& list = TheClassList();
    std::lock_guard guard(list.lock);
    for (CRuntimeClass* pClass : list.classes) {
        if (std::strcmp(pClass->m_lpszClassName, lpszClassName) == 0)
            return pClass;
    }
    return nullptr;
}

CRuntimeClass* CRuntimeClass::FromName(LPCWSTR lpszClassName) {
    if (lpszClassName == nullptr)
        return nullptr;
    return FromName(port::WideToNarrow(lpszClassName).c_str());
}

CObject* CRuntimeClass::CreateObject(LPCSTR lpszClassName) {
    const CRuntimeClass* pClass = FromName(lpszClassName);
    return pClass != nullptr ? pClass->CreateObject() : nullptr;
}

CObject* CRuntimeClass::CreateObject(LPCWSTR lpszClassName) {
    const CRuntimeClass* pClass = FromName(lpszClassName);
    return pClass != nullptr ? pClass->CreateObject() : nullptr;
}

void CRuntimeClass::Store(CArchive& ar) const {
    const auto nLen = static_cast<WORD>(std::strlen(m_lpszClassName));
    ar << static_cast<WORD>(m_wSchema) << nLen;
    ar.Write(m_lpszClassName, nLen);
}

CRuntimeClass* CRuntimeClass::Load(CArchive& ar, UINT* pwSchemaNum) {
    WORD wSchema = 0;
    WORD nLen = 0;
    ar >> wSchema >> nLen;
    *pwSchemaNum = wSchema;
    if (nLen >= kMaxClassNameBuffer)
        return nullptr;
    char szClassName[kMaxClassNameBuffer];
    if (ar.Read(szClassName, nLen) != nLen)
        return nullptr;
    szClassName[nLen] = '\0';
    CRuntimeClass* pClass = FromName(szClassName);
    // Classes made without SERIAL are not serializable: a stream cannot name them.
    if (pClass != nullptr && pClass->m_wSchema == 0xFFFF)
        return nullptr;
    return pClass;
}
