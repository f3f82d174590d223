// CObject and CRuntimeClass: MFC's root class, its run-time type information and the process-wide
// class list that lets an archive create objects by class name.
#pragma once

#include "port/Export.h"

#include "win/types.h"

class CObject;
class CArchive;
class CDumpContext;

// Set in a schema to let one class read the versions written by its older layouts.
#define VERSIONABLE_SCHEMA (0x80000000)

struct ORV_API CRuntimeClass {
    LPCSTR m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema; // 0xFFFF for classes that are not serializable
    CObject* (*m_pfnCreateObject)();
    CRuntimeClass* m_pBaseClass;

    CObject* CreateObject() const;
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;

    // Search the class list by the exact (case-sensitive) class name.
    static CRuntimeClass* FromName(LPCSTR lpszClassName);
    static CRuntimeClass* FromName(LPCWSTR lpszClassName);
    static CObject* CreateObject(LPCSTR lpszClassName);
    static CObject* CreateObject(LPCWSTR lpszClassName);

    // The class description of an archive: schema, name length, name.
    void Store(CArchive& ar) const;
    // Reads a description; answers the class, or null when the name is too long, cut short or
    // not in the class list. The stored schema goes to *pwSchemaNum.
    static CRuntimeClass* Load(CArchive& ar, UINT* pwSchemaNum);
};

// Adds a class to the process-wide list; the IMPLEMENT_ macros make one per class at static
// construction.
struct ORV_API AFX_CLASSINIT {
    explicit AFX_CLASSINIT(CRuntimeClass* pNewClass);
};

// Calls pfn for every class in the list, in the order the classes were added.
ORV_API void AfxDoForAllClasses(void (*pfn)(const CRuntimeClass* pClass, void* pContext),
                                void* pContext);

class ORV_API CObject {
public:
    static const CRuntimeClass classCObject;
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = default;

    virtual void Serialize(CArchive& ar);
    // Checks the object's invariants. At this level there is nothing to check beyond the object
    // existing; a class overrides it to check its own members and calls its base first.
    virtual void AssertValid() const;
    // Writes the object for diagnostics; at this level "a <class> at $<address>" and a new line.
    // A class overrides it to add its members and calls its base first.
    virtual void Dump(CDumpContext& dc) const;
    BOOL IsSerializable() const;
    BOOL IsKindOf(const CRuntimeClass* pClass) const;

protected:
    CObject() = default;

public:
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
};

// Answers pObject when it is of kind pClass, else null.
ORV_API CObject* AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject);

#define RUNTIME_CLASS(class_name) (const_cast<CRuntimeClass*>(&class_name::class##class_name))

#define DYNAMIC_DOWNCAST(class_name, object)                                                       \
    (static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), object)))
#define STATIC_DOWNCAST(class_name, object) (static_cast<class_name*>(object))

#define DECLARE_DYNAMIC(class_name)                                                                \
public:                                                                                            \
    static const CRuntimeClass class##class_name;                                                  \
    CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name)                                                              \
    DECLARE_DYNAMIC(class_name)                                                                    \
    static CObject* CreateObject();

#define DECLARE_SERIAL(class_name)                                                                 \
    DECLARE_DYNCREATE(class_name)                                                                  \
    friend ORV_API CArchive& operator>>(CArchive& ar, class_name*& pOb);

#define IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, pfnNew)                       \
    const CRuntimeClass class_name::class##class_name = {                                          \
        #class_name, static_cast<int>(sizeof(class_name)), wSchema, pfnNew,                        \
        RUNTIME_CLASS(base_class_name)};                                                           \
    CRuntimeClass* class_name::GetRuntimeClass() const {                                           \
        return RUNTIME_CLASS(class_name);                                                          \
    }                                                                                              \
    static const AFX_CLASSINIT _init_##class_name(RUNTIME_CLASS(class_name));

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                             \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                           \
    CObject* class_name::CreateObject() {                                                          \
        return new class_name;                                                                     \
    }                                                                                              \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, class_name::CreateObject)

#define IMPLEMENT_SERIAL(class_name, base_class_name, wSchema)                                     \
    CObject* class_name::CreateObject() {                                                          \
        return new class_name;                                                                     \
    }                                                                                              \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, class_name::CreateObject)         \
    CArchive& operator>>(CArchive& ar, class_name*& pOb) {                                         \
        pOb = static_cast<class_name*>(ar.ReadObject(RUNTIME_CLASS(class_name)));                  \
        return ar;                                                                                 \
    }
