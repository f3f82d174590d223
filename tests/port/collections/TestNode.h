// CNode, the serialisable test object: an int, a CString and a reference to another object.
// Every live node is counted so that a test can find and free what a failed load left behind.
#pragma once

#include <set>

#include <afx.h>

class CNode : public CObject {
    DECLARE_SERIAL(CNode)
public:
    CNode() { Live().insert(this); }
    CNode(int value, LPCTSTR name, CObject* next = nullptr)
        : m_value(value), m_name(name), m_next(next) {
        Live().insert(this);
    }
    ~CNode() override { Live().erase(this); }

    void Serialize(CArchive& ar) override;

    // Deletes every node still alive.
    static void DeleteAll() {
        while (!Live().empty())
            delete *Live().begin();
    }
    static std::set<CNode*>& Live() {
        static std::set<CNode*> live;
        return live;
    }

    int m_value = 0;
    CString m_name;
    CObject* m_next = nullptr;
};
