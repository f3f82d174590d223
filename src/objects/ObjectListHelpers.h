// Free functions over CObList and CObArray, the form in which the document tree passes groups of
// objects around. The containers hold pointers; only the two DeleteAllElements functions touch
// the objects themselves. Counts are 64-bit signed.
#pragma once

#include "port/Export.h"

#include "mfc/CObArray.h"
#include "mfc/CObList.h"
#include "mfc/CString.h"

// Deletes each non-null element, empties the container and answers the count it had.
ORV_API __int64 DeleteAllElements_CObList(CObList& list);
ORV_API __int64 DeleteAllElements_CObArray(CObArray& array);
// The 0-based index of the first element equal to `object` (null finds the first null), or -1.
ORV_API __int64 GetIndexOfObject(CObList& list, CObject* object);
// Removes the null entries; answers how many went.
ORV_API __int64 PurgeNullNodesFromList(CObList& list);
// Append every element; answer the count appended.
ORV_API __int64 CObArray_To_CObList(CObArray& array, CObList& list);
ORV_API __int64 CObList_To_CObArray(CObList& list, CObArray& array);
// The union into `result` (which first receives all of a), or into a itself when `result` is
// null: each element of b not yet in the result is appended. Answers the result's size.
ORV_API __int64 CObList_Union(CObList& a, CObList& b, CObList* result);
// The intersection into `result` (first a copy of a), or into a itself: every element not found
// in b is removed. Duplicates found in b stay. Answers the result's size.
ORV_API __int64 CObList_Xtion(CObList& a, CObList& b, CObList* result);
// Sorts with qsort over the element pointers; the comparator receives pointers to them. A null or
// empty list: 0; otherwise 1.
ORV_API int CObList_Sort(CObList* list, int (*compare)(const void*, const void*));
// Appends each node of source that target lacks (all of source when target is empty); elements
// that are not nodes are skipped.
ORV_API void FindAndAdd(CObList& target, CObList& source);
// A name for a copied feature or operation that no node of the list bears: base + " - " + prefix
// + " ", and from the second try on the try's number and a blank behind.
ORV_API void ChangeNameForCopiedFeatAndOper(CObList& objects, CString prefix, CString base,
                                            CString& out);
