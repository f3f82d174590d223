#include "objects/ObjectSequence.h"

#include <unordered_set>

#include "objects/OrvObject.h"

void SortList(CObList& list, const CObList& order) {
    if (list.IsEmpty() || order.IsEmpty())
        return;
    std::unordered_set<const CObject*> members;
    for (POSITION pos = list.GetHeadPosition(); pos;)
        members.insert(list.GetNext(pos));
    list.RemoveAll();
    for (POSITION pos = order.GetHeadPosition(); pos;) {
        CObject* entry = order.GetNext(pos);
        if (DYNAMIC_DOWNCAST(OrvObject, entry) && members.count(entry))
            list.AddTail(entry);
    }
}

int AreObjectsInSequence(CObList& list, const CObList& order) {
    SortList(list, order);
    POSITION inList = list.GetHeadPosition();
    POSITION inOrder = inList ? order.Find(list.GetHead()) : nullptr;
    while (inList && inOrder)
        if (list.GetNext(inList) != order.GetNext(inOrder))
            return 0;
    return 1;
}
