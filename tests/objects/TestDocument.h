// A document object for tests: answers the core messages from its own fields and records what it
// was sent. Register() makes it the active document through the callback table.
#pragma once

#include <cstdint>
#include <vector>

#include "core/OrvHostCallbacks.h"
#include "objects/OrvObject.h"

class TestDocument : public OrvObject {
public:
    struct Message {
        ORV_CORE_MESSAGE_ID id;
        unsigned long long param;
        long long extra;
    };

    float m_StorageUnits = 0.0f;
    int m_Modified = 0;
    int m_Units = 0;
    CString m_Title;
    std::vector<Message> m_Messages;

    int SendOrvCoreMessage(ORV_CORE_MESSAGE_ID id, unsigned long long param,
                           long long extra) override {
        m_Messages.push_back({id, param, extra});
        void* variable = reinterpret_cast<void*>(static_cast<std::uintptr_t>(param));
        switch (id) {
        case ORV_MSG_GET_DOC_READ_STORAGE_UNITS:
            *static_cast<float*>(variable) = m_StorageUnits;
            return 1;
        case ORV_MSG_SET_DOC_READ_STORAGE_UNITS:
            m_StorageUnits = *static_cast<float*>(variable);
            return 1;
        case ORV_MSG_SET_DOC_MODIFIED_FLAG:
            m_Modified = *static_cast<int*>(variable);
            return 1;
        case ORV_MSG_IS_DOC_MODIFIED:
            *static_cast<int*>(variable) = m_Modified;
            return 1;
        case ORV_MSG_GET_DOC_UNITS:
            *static_cast<int*>(variable) = m_Units;
            return 1;
        case ORV_MSG_GET_DOC_TITLE:
            *static_cast<CString*>(variable) = m_Title;
            return 1;
        default:
            return 0;
        }
    }

    // The active document of the callback table; the table keeps only a function, so the
    // document is a single one per test program.
    static TestDocument& Active() {
        static TestDocument document;
        return document;
    }

    // Registers a table whose only slot is the active document (or an empty document slot when
    // `withDocument` is false: then document accessors fault).
    static void Register(bool withDocument = true) {
        OrvShareRegisterDocCBK(nullptr, nullptr, withDocument ? &ActiveDocument : nullptr, nullptr,
                               nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                               nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                               nullptr, nullptr);
    }

private:
    static OrvObject* ActiveDocument() { return &Active(); }
};
