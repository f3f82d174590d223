// The sequence test of a selection against a list's order.
#pragma once

#include "mfc/CObList.h"

// Rebuilds `list` in the order of `order` from the objects of `order` that stand in `list`:
// entries that `order` lacks are dropped and duplicates fold to one. Nothing when either is empty.
void SortList(CObList& list, const CObList& order);
// Sorts `list`, then whether its entries follow each other in `order` from the place of its head
// on, for as long as both last.
int AreObjectsInSequence(CObList& list, const CObList& order);
