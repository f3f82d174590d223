// The operations that a folder and the folder manager share. Each works on one level of the
// folder tree (a list of plain objects and folders, in order) and on the folders below it. A level
// owns its folders and not its plain objects. `holder` is the folder whose level it is, or null for
// the manager's top level.
#pragma once

#include "mfc/CArchive.h"
#include "mfc/CObList.h"

class OrvObject;
class OrvBaseFolder;
class OrvLoadTracker;

namespace folder_level {

// The entry as a folder, or null for a plain object.
OrvBaseFolder* AsFolder(CObject* entry);

// Where an entry stands: its level, its position there and the folder holding the level.
struct Place {
    CObList* level = nullptr;
    POSITION position = nullptr;
    OrvBaseFolder* holder = nullptr;
};

// The search of the whole tree: this level first, then each folder in order, depth-first.
bool Locate(CObList& level, OrvBaseFolder* holder, const CObject* target, Place& place);

// Appends every plain object below, depth-first, left to right.
void CollectObjects(const CObList& level, CObList& objects);
// Deletes every folder of the level (each takes its own sub-folders along) and empties it.
void DeleteFolders(CObList& level);

// Puts `object` before or after `reference`, or in its place, wherever it stands.
enum class Where { Before, After, Replace };
int PlaceBy(CObList& level, OrvObject* object, OrvObject* reference, Where where);
// Takes `target` out of the level that holds it.
int Unlink(CObList& level, const CObject* target);

// Puts `folder` (a new OrvBaseFolder when null) in front of `anchor` in the level holding it, and
// moves into it the entries of `moved` that stand in that level. With `appendWhenAbsent`, an
// anchor found nowhere gets the folder appended to `level`.
int PlaceNewFolder(CObList& level, OrvObject* anchor, const CObList* moved, OrvBaseFolder* folder,
                   OrvObject* owner, bool appendWhenAbsent);
// The folder goes next to `object`, or at the head of `level` when `object` is null.
int PlaceFolderNextTo(CObList& level, OrvBaseFolder* folder, OrvObject* object, bool after);
// `child` goes into `folder` at its head or tail.
int PlaceInFolder(CObList& level, OrvObject* child, OrvBaseFolder* folder, int atHead);
// `object` goes right behind `folder`.
int PlaceAfterFolder(CObList& level, OrvObject* object, OrvBaseFolder* folder);

int RemoveEmptyFolders(CObList& level);
int DeleteFolder(CObList& level, OrvBaseFolder* folder);
void GenerateFolderIds(CObList& level, int& counter);
OrvBaseFolder* FindFolderById(const CObList& level, int id);
// Replaces the level's content by a shallow copy of `source`'s.
void CopyLevel(const CObList& source, CObList& level);
void SetOwner(CObList& level, OrvObject* owner);

// The walks of IsAnyObjectPresnentInBetween; the flags go down the levels by reference.
int AnyObjectBetween(const CObList& level, const OrvBaseFolder* folder, const OrvObject* object,
                     int& folderPassed, int& objectPassed);
int AnyObjectBetween(const CObList& level, const OrvBaseFolder* first, OrvBaseFolder* second,
                     int& firstPassed, int& secondPassed);

// Storing: the list by CObList::Serialize. Loading: the same layout into an emptied level; every
// entry must be an OrvObject, and a folder must be one that this load created and nobody owns
// yet, or the archive is refused (badClass, badIndex).
void SerializeLevel(CArchive& ar, CObList& level, OrvLoadTracker* tracker);

} // namespace folder_level
