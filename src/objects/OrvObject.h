// OrvObject: the node of the document tree. The add-in's document object is one; the library's
// accessors talk to it through SendOrvCoreMessage.
#pragma once

#include "frame/OrvCoreMessage.h"
#include "objects/OrvBaseObject.h"

class OrvObject : public OrvBaseObject {
    DECLARE_SERIAL(OrvObject)
public:
    OrvObject() = default;

    CString GetClassNameW() override;

    // Answers a message of the library (`param` is the address of the answer or argument). A node
    // that is not a document answers 0 and leaves the variable alone.
    virtual int SendOrvCoreMessage(ORV_CORE_MESSAGE_ID id, unsigned long long param,
                                   long long extra);
};
