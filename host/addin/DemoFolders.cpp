#include "addin/DemoFolders.h"

#include <memory>
#include <vector>

#include "addin/AddinText.h"
#include "objects/OrvFeaturesFolder.h"
#include "objects/OrvFolderObList.h"

namespace {

// Moves the features [first, last) of `features` into a new features folder named `name`.
OrvBaseFolder* Group(OrvFolderObList& list, const std::vector<CObject*>& features,
                     std::size_t first, std::size_t last, const wchar_t* name) {
    if (first >= last)
        return nullptr;
    CObList run;
    for (std::size_t index = first; index < last; ++index)
        run.AddTail(features[index]);
    auto folder = std::make_unique<OrvFeaturesFolder>();
    folder->SetName(name);
    if (!list.AddToNewFolder(run, folder.get(), nullptr))
        return nullptr;
    return folder.release();
}

void DumpLevel(const CObList& level, int depth, FILE* file) {
    for (POSITION pos = level.GetHeadPosition(); pos;) {
        CObject* entry = level.GetNext(pos);
        for (int indent = 0; indent < depth; ++indent)
            AddinPrint(file, L"  ");
        if (auto* folder = DYNAMIC_DOWNCAST(OrvBaseFolder, entry)) {
            AddinPrint(file, L"[%s] (id %d)\n", folder->GetName().GetString(),
                       folder->GetFolderId());
            DumpLevel(folder->Children(), depth + 1, file);
        } else if (auto* object = DYNAMIC_DOWNCAST(OrvObject, entry)) {
            AddinPrint(file, L"%s\n", object->Name().GetString());
        }
    }
}

} // namespace

void BuildDemoFolders(OrvFolderObList& list, const CObList& features, OrvObject* owner) {
    list.Initialize(const_cast<CObList*>(&features));
    std::vector<CObject*> ordered;
    for (POSITION pos = list.GetHeadPosition(); pos;)
        ordered.push_back(list.GetNext(pos));
    const std::size_t count = ordered.size();
    const std::size_t half = count / 2 + 1;
    if (Group(list, ordered, 1, half, L"Roughing") && half - 1 >= 2)
        Group(list, ordered, 1 + (half - 1) / 2, half, L"Pockets");
    if (count > 0)
        Group(list, ordered, half, count - 1, L"Finishing");
    list.SetOwner(owner);
    list.GenerateFolderIds();
}

void DumpFolderViews(const OrvFolderObList& list, FILE* file) {
    if (!file)
        return;
    AddinPrint(file, L"Flat list: %d objects\n", static_cast<int>(list.GetCount()));
    int number = 0;
    for (POSITION pos = list.GetHeadPosition(); pos;) {
        OrvObject* object = list.GetNext(pos);
        AddinPrint(file, L"%4d %s\n", ++number, object ? object->Name().GetString() : L"(null)");
    }
    AddinPrint(file, L"Folder tree:\n");
    if (const OrvFolderManager* manager = list.GetFolderManager())
        DumpLevel(manager->TopLevel(), 1, file);
}
