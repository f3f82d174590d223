#include "objects/OrvObject.h"

IMPLEMENT_SERIAL(OrvObject, OrvBaseObject, VERSIONABLE_SCHEMA | 8)

CString OrvObject::GetClassNameW() {
    return L"OrvObject";
}

int OrvObject::SendOrvCoreMessage(ORV_CORE_MESSAGE_ID, unsigned long long, long long) {
    return 0;
}
