#include "objects/ObjectListHelpers.h"

#include <cstdlib>
#include <cstring>
#include <vector>

#include "objects/OrvObject.h"

namespace {

// Whether the object is a node. The class is found by name along the run-time class chain, so
// that these helpers do not tie the utilities to the objects component.
OrvObject* AsNode(CObject* object) {
    if (!object)
        return nullptr;
    for (const CRuntimeClass* c = object->GetRuntimeClass(); c; c = c->m_pBaseClass)
        if (std::strcmp(c->m_lpszClassName, "OrvObject") == 0)
            return static_cast<OrvObject*>(object);
    return nullptr;
}

} // namespace

__int64 DeleteAllElements_CObList(CObList& list) {
    const __int64 count = list.GetCount();
    for (POSITION pos = list.GetHeadPosition(); pos;)
        delete list.GetNext(pos);
    list.RemoveAll();
    return count;
}

__int64 DeleteAllElements_CObArray(CObArray& array) {
    const __int64 count = array.GetSize();
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        delete array[i];
    array.RemoveAll();
    return count;
}

__int64 GetIndexOfObject(CObList& list, CObject* object) {
    __int64 index = 0;
    for (POSITION pos = list.GetHeadPosition(); pos; ++index)
        if (list.GetNext(pos) == object)
            return index;
    return -1;
}

__int64 PurgeNullNodesFromList(CObList& list) {
    __int64 removed = 0;
    for (POSITION pos = list.GetHeadPosition(); pos;) {
        const POSITION at = pos;
        if (!list.GetNext(pos)) {
            list.RemoveAt(at);
            ++removed;
        }
    }
    return removed;
}

__int64 CObArray_To_CObList(CObArray& array, CObList& list) {
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        list.AddTail(array[i]);
    return array.GetSize();
}

__int64 CObList_To_CObArray(CObList& list, CObArray& array) {
    for (POSITION pos = list.GetHeadPosition(); pos;)
        array.Add(list.GetNext(pos));
    return list.GetCount();
}

__int64 CObList_Union(CObList& a, CObList& b, CObList* result) {
    CObList& target = result ? *result : a;
    if (result)
        result->AddTail(&a);
    for (POSITION pos = b.GetHeadPosition(); pos;) {
        CObject* element = b.GetNext(pos);
        if (!target.Find(element))
            target.AddTail(element);
    }
    return target.GetCount();
}

__int64 CObList_Xtion(CObList& a, CObList& b, CObList* result) {
    CObList& target = result ? *result : a;
    if (result)
        result->AddTail(&a);
    for (POSITION pos = target.GetHeadPosition(); pos;) {
        const POSITION at = pos;
        if (!b.Find(target.GetNext(pos)))
            target.RemoveAt(at);
    }
    return target.GetCount();
}

int CObList_Sort(CObList* list, int (*compare)(const void*, const void*)) {
    if (!list || list->IsEmpty())
        return 0;
    std::vector<CObject*> elements;
    elements.reserve(static_cast<std::size_t>(list->GetCount()));
    for (POSITION pos = list->GetHeadPosition(); pos;)
        elements.push_back(list->GetNext(pos));
    list->RemoveAll();
    std::qsort(elements.data(), elements.size(), sizeof(CObject*), compare);
    for (CObject* element : elements)
        list->AddTail(element);
    return 1;
}

void FindAndAdd(CObList& target, CObList& source) {
    if (source.IsEmpty())
        return;
    if (target.IsEmpty()) {
        target.AddTail(&source);
        return;
    }
    for (POSITION pos = source.GetHeadPosition(); pos;) {
        CObject* element = source.GetNext(pos);
        if (AsNode(element) && !target.Find(element))
            target.AddTail(element);
    }
}

void ChangeNameForCopiedFeatAndOper(CObList& objects, CString prefix, CString base, CString& out) {
    for (int n = 1;; ++n) {
        CString candidate = base + L" - " + prefix + L" ";
        if (n >= 2) {
            CString number;
            number.Format(L"%d ", n);
            candidate += number;
        }
        bool taken = false;
        for (POSITION pos = objects.GetHeadPosition(); pos && !taken;) {
            OrvObject* node = AsNode(objects.GetNext(pos));
            taken = node && node->Name().Compare(candidate.GetString()) == 0;
        }
        if (!taken) {
            out = candidate;
            return;
        }
    }
}
