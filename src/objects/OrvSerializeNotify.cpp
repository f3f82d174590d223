#include "objects/OrvSerializeNotify.h"

#include "core/OrvBaseObject.h"

std::unique_ptr<OrvSerializeNotify> OrvSerializeNotify::s_pInstance;

OrvSerializeNotify* OrvSerializeNotify::Instance() {
    if (!s_pInstance)
        s_pInstance.reset(new OrvSerializeNotify);
    return s_pInstance.get();
}

void OrvSerializeNotify::Clear() {
    s_pInstance.reset();
}

int OrvSerializeNotify::RegisterForNotification(OrvBaseObject* object) {
    return Instance()->iRegisterForNotification(object);
}

int OrvSerializeNotify::RemoveFromNotification(OrvBaseObject* object) {
    return Instance()->iRemoveFromNotification(object);
}

void OrvSerializeNotify::PostLoadFromStorageNotify() {
    if (s_pInstance)
        s_pInstance->iPostLoadFromStorageNotify();
}

int OrvSerializeNotify::iRegisterForNotification(OrvBaseObject* object) {
    if (!object)
        return 0;
    m_Objects.AddTail(object);
    return 1;
}

int OrvSerializeNotify::iRemoveFromNotification(OrvBaseObject* object) {
    if (!object)
        return 0;
    for (POSITION pos = m_Objects.GetTailPosition(); pos;) {
        const POSITION at = pos;
        if (m_Objects.GetPrev(pos) == object) {
            m_Objects.RemoveAt(at);
            break;
        }
    }
    return 1;
}

void OrvSerializeNotify::iPostLoadFromStorageNotify() {
    for (POSITION pos = m_Objects.GetHeadPosition(); pos;)
        static_cast<OrvBaseObject*>(m_Objects.GetNext(pos))->OnPostLoadFromStorageNotify();
}
