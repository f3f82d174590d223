// The classes of the archive tests.
#pragma once

#include <afxcore.h>

#include <set>

// The node of the worked example: an int, a string and a reference to another object, which
// it does not own. Every node alive is tracked, so that tests can see which ones a failed load
// deleted and free the rest.
class CNode : public CObject {
    DECLARE_SERIAL(CNode)
public:
    CNode() { Live().insert(this); }
    CNode(int n, const wchar_t* text) : m_n(n), m_str(text) { Live().insert(this); }
    ~CNode() override { Live().erase(this); }
    void Serialize(CArchive& ar) override;

    static std::set<CNode*>& Live();
    static void DeleteAll();

    int m_n = 0;
    CString m_str;
    CObject* m_pNext = nullptr;
};

// A derived node, to test kinds.
class CLeaf : public CNode {
    DECLARE_SERIAL(CLeaf)
};

// A class of its own, not derived from CNode.
class COther : public CObject {
    DECLARE_SERIAL(COther)
public:
    void Serialize(CArchive& ar) override { ar.SerializeClass(RUNTIME_CLASS(COther)); }
};

// Versionable, at version 3; records the schema GetObjectSchema answered, twice.
class CVersioned : public CObject {
    DECLARE_SERIAL(CVersioned)
public:
    void Serialize(CArchive& ar) override;
    UINT m_firstSchema = 0;
    UINT m_secondSchema = 0;
};

// Runtime type only, no serialization.
class CDynamicOnly : public CObject {
    DECLARE_DYNAMIC(CDynamicOnly)
};
