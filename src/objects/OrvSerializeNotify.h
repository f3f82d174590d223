// OrvSerializeNotify: the objects that want to run code once a whole document has been read, when
// every reference in it resolves. The add-in's document drives it around its Serialize; objects
// register themselves and must remove themselves if they die before the notification.
#pragma once

#include "port/Export.h"

#include <memory>

#include "mfc/CObList.h"

class OrvBaseObject;

class ORV_API OrvSerializeNotify {
public:
    // The instance, made on first use.
    static OrvSerializeNotify* Instance();
    // Deletes the instance; the next use makes a new one.
    static void Clear();

    // Null: 0. Otherwise appends (an object may stand several times) and answers 1.
    static int RegisterForNotification(OrvBaseObject* object);
    // Null: 0. Otherwise removes the last entry equal to the object, if any, and answers 1.
    static int RemoveFromNotification(OrvBaseObject* object);
    // Calls each entry's OnPostLoadFromStorageNotify in list order, when an instance exists. The
    // list is kept.
    static void PostLoadFromStorageNotify();

    OrvSerializeNotify(const OrvSerializeNotify&) = delete;
    OrvSerializeNotify& operator=(const OrvSerializeNotify&) = delete;
    ~OrvSerializeNotify() = default;

protected:
    OrvSerializeNotify() = default;

    int iRegisterForNotification(OrvBaseObject* object);
    int iRemoveFromNotification(OrvBaseObject* object);
    void iPostLoadFromStorageNotify();

private:
    CObList m_Objects{10};
    static std::unique_ptr<OrvSerializeNotify> s_pInstance;
};
