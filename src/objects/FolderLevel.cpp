#include "objects/FolderLevel.h"

#include <memory>

#include "core/OrvLoadTracker.h"
#include "mfc/CException.h"
#include "objects/OrvBaseFolder.h"
#include "objects/OrvObject.h"

namespace folder_level {

OrvBaseFolder* AsFolder(CObject* entry) {
    return DYNAMIC_DOWNCAST(OrvBaseFolder, entry);
}

bool Locate(CObList& level, OrvBaseFolder* holder, const CObject* target, Place& place) {
    if (const POSITION position = level.Find(const_cast<CObject*>(target))) {
        place = {&level, position, holder};
        return true;
    }
    for (POSITION pos = level.GetHeadPosition(); pos;)
        if (OrvBaseFolder* folder = AsFolder(level.GetNext(pos)))
            if (Locate(folder->Children(), folder, target, place))
                return true;
    return false;
}

void CollectObjects(const CObList& level, CObList& objects) {
    for (POSITION pos = level.GetHeadPosition(); pos;) {
        CObject* entry = level.GetNext(pos);
        if (const OrvBaseFolder* folder = AsFolder(entry))
            CollectObjects(folder->Children(), objects);
        else
            objects.AddTail(entry);
    }
}

void DeleteFolders(CObList& level) {
    for (POSITION pos = level.GetHeadPosition(); pos;)
        delete AsFolder(level.GetNext(pos));
    level.RemoveAll();
}

int PlaceBy(CObList& level, OrvObject* object, OrvObject* reference, Where where) {
    Place place;
    if (!Locate(level, nullptr, reference, place))
        return 0;
    switch (where) {
    case Where::Before:
        place.level->InsertBefore(place.position, object);
        break;
    case Where::After:
        place.level->InsertAfter(place.position, object);
        break;
    case Where::Replace:
        place.level->SetAt(place.position, object);
        break;
    }
    return 1;
}

int Unlink(CObList& level, const CObject* target) {
    Place place;
    if (!Locate(level, nullptr, target, place))
        return 0;
    place.level->RemoveAt(place.position);
    return 1;
}

namespace {

// A folder that already stands in the tree, or in whose subtree the tree would be hung, must not
// be placed again: it would have two owners or contain itself.
bool CanPlace(CObList& level, OrvBaseFolder* folder, const CObject* destination) {
    Place place;
    if (Locate(level, nullptr, folder, place))
        return false;
    return !destination ||
           (destination != folder && !Locate(folder->Children(), folder, destination, place));
}

} // namespace

int PlaceNewFolder(CObList& level, OrvObject* anchor, const CObList* moved, OrvBaseFolder* folder,
                   OrvObject* owner, bool appendWhenAbsent) {
    if (folder && !CanPlace(level, folder, anchor))
        return 0;
    Place place;
    const bool found = anchor && Locate(level, nullptr, anchor, place);
    if (!found && !appendWhenAbsent)
        return 0;
    std::unique_ptr<OrvBaseFolder> made(folder ? nullptr : new OrvBaseFolder);
    OrvBaseFolder* placed = folder ? folder : made.get();
    placed->SetOwner(owner);
    if (!found) {
        level.AddTail(placed);
        made.release();
        return 1;
    }
    place.level->InsertBefore(place.position, placed);
    made.release();
    if (!moved)
        return 1;
    for (POSITION pos = moved->GetHeadPosition(); pos;) {
        CObject* entry = moved->GetNext(pos);
        if (entry == placed || !DYNAMIC_DOWNCAST(OrvObject, entry))
            continue;
        if (const POSITION at = place.level->Find(entry)) {
            place.level->RemoveAt(at);
            placed->AddChild(static_cast<OrvObject*>(entry), 0);
        }
    }
    return 1;
}

int PlaceFolderNextTo(CObList& level, OrvBaseFolder* folder, OrvObject* object, bool after) {
    if (!folder || !CanPlace(level, folder, object))
        return 0;
    if (!object) {
        level.AddHead(folder);
        return 1;
    }
    Place place;
    if (!Locate(level, nullptr, object, place))
        return 0;
    if (after)
        place.level->InsertAfter(place.position, folder);
    else
        place.level->InsertBefore(place.position, folder);
    return 1;
}

int PlaceInFolder(CObList& level, OrvObject* child, OrvBaseFolder* folder, int atHead) {
    OrvBaseFolder* childFolder = AsFolder(child);
    if (!folder || (childFolder && !CanPlace(level, childFolder, folder)))
        return 0;
    Place place;
    if (!Locate(level, nullptr, folder, place))
        return 0;
    return folder->AddChild(child, atHead);
}

int PlaceAfterFolder(CObList& level, OrvObject* object, OrvBaseFolder* folder) {
    if (!object || !folder)
        return 0;
    if (OrvBaseFolder* objectFolder = AsFolder(object);
        objectFolder && !CanPlace(level, objectFolder, folder))
        return 0;
    Place place;
    if (!Locate(level, nullptr, folder, place))
        return 0;
    place.level->InsertAfter(place.position, object);
    return 1;
}

int RemoveEmptyFolders(CObList& level) {
    for (POSITION pos = level.GetHeadPosition(); pos;) {
        const POSITION at = pos;
        OrvBaseFolder* folder = AsFolder(level.GetNext(pos));
        if (!folder)
            continue;
        folder->RemoveEmptyFolders();
        if (folder->IsEmpty()) {
            level.RemoveAt(at);
            delete folder;
        }
    }
    return 1;
}

int DeleteFolder(CObList& level, OrvBaseFolder* folder) {
    if (!folder)
        return 0;
    POSITION previous = nullptr;
    for (POSITION pos = level.GetHeadPosition(); pos;) {
        const POSITION at = pos;
        OrvBaseFolder* entry = AsFolder(level.GetNext(pos));
        if (entry == folder) {
            CObList children;
            folder->GetChilds(children);
            POSITION position = previous;
            for (POSITION child = children.GetHeadPosition(); child;) {
                CObject* moved = children.GetNext(child);
                position = position ? level.InsertAfter(position, moved) : level.AddHead(moved);
            }
            level.RemoveAt(at);
            folder->RemoveAll();
            delete folder;
            return 1;
        }
        if (entry && entry->DeleteFolder(folder))
            return 1;
        previous = at;
    }
    return 0;
}

void GenerateFolderIds(CObList& level, int& counter) {
    for (POSITION pos = level.GetHeadPosition(); pos;)
        if (OrvBaseFolder* folder = AsFolder(level.GetNext(pos)))
            folder->GenerateFolderIds(counter);
}

OrvBaseFolder* FindFolderById(const CObList& level, int id) {
    for (POSITION pos = level.GetHeadPosition(); pos;) {
        OrvBaseFolder* folder = AsFolder(level.GetNext(pos));
        if (!folder)
            continue;
        if (folder->GetFolderId() == id)
            return folder;
        if (OrvBaseFolder* below = folder->GetSubFolder(id))
            return below;
    }
    return nullptr;
}

void CopyLevel(const CObList& source, CObList& level) {
    DeleteFolders(level);
    for (POSITION pos = source.GetHeadPosition(); pos;) {
        CObject* entry = source.GetNext(pos);
        if (OrvBaseFolder* folder = AsFolder(entry)) {
            auto copy = std::make_unique<OrvBaseFolder>();
            copy->CopyParameters(folder);
            copy->Copy(folder);
            level.AddTail(copy.release());
        } else {
            level.AddTail(entry);
        }
    }
}

void SetOwner(CObList& level, OrvObject* owner) {
    for (POSITION pos = level.GetHeadPosition(); pos;) {
        CObject* entry = level.GetNext(pos);
        if (OrvBaseFolder* folder = AsFolder(entry))
            folder->SetOwner(owner);
        else if (OrvObject* object = DYNAMIC_DOWNCAST(OrvObject, entry))
            object->OrvObject::SetOwner(owner);
    }
}

int AnyObjectBetween(const CObList& level, const OrvBaseFolder* folder, const OrvObject* object,
                     int& folderPassed, int& objectPassed) {
    for (POSITION pos = level.GetHeadPosition(); pos;) {
        CObject* entry = level.GetNext(pos);
        const OrvBaseFolder* entryFolder = AsFolder(entry);
        if (!entryFolder && entry != object && folderPassed + objectPassed == 1)
            return 1;
        if (folderPassed && objectPassed)
            return 0;
        if (entryFolder) {
            if (entryFolder == folder)
                folderPassed = 1;
            if (AnyObjectBetween(entryFolder->Children(), folder, object, folderPassed,
                                 objectPassed))
                return 1;
        }
        if (entry == object)
            objectPassed = 1;
    }
    return 0;
}

int AnyObjectBetween(const CObList& level, const OrvBaseFolder* first, OrvBaseFolder* second,
                     int& firstPassed, int& secondPassed) {
    for (POSITION pos = level.GetHeadPosition(); pos;) {
        CObject* entry = level.GetNext(pos);
        if (firstPassed && secondPassed)
            return 0;
        if (const OrvBaseFolder* entryFolder = AsFolder(entry)) {
            if (entryFolder == first)
                firstPassed = 1;
            if (entryFolder == second)
                secondPassed = 1;
            if (AnyObjectBetween(entryFolder->Children(), first, second, firstPassed, secondPassed))
                return 1;
        } else if (firstPassed + secondPassed == 1 &&
                   !second->Contains(static_cast<OrvObject*>(entry))) {
            return 1;
        }
    }
    return 0;
}

void SerializeLevel(CArchive& ar, CObList& level, OrvLoadTracker* tracker) {
    if (ar.IsStoring()) {
        level.Serialize(ar);
        return;
    }
    DeleteFolders(level);
    for (DWORD_PTR left = ar.ReadCount(); left > 0; --left) {
        CObject* entry = ar.ReadObject(RUNTIME_CLASS(OrvObject));
        if (AsFolder(entry) && !tracker->Claim(entry))
            AfxThrowArchiveException(CArchiveException::badIndex);
        level.AddTail(entry);
    }
}

} // namespace folder_level
