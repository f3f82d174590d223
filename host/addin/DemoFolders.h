// The folders of the reference host's demonstration document, and the text that shows both views
// of a folder list.
#pragma once

#include <cstdio>

#include "mfc/CObList.h"

class OrvObject;
class OrvFolderObList;

// `list` takes `features` in order and groups them: from the second feature on, the first half
// goes into the features folder "Roughing", whose second half goes into a nested "Pockets"; the
// rest but the last goes into "Finishing". Every folder and feature gets `owner`, and the folders
// are numbered.
void BuildDemoFolders(OrvFolderObList& list, const CObList& features, OrvObject* owner);

// Writes the flat list, one numbered name a line, then the tree, folders as "[name] (id n)" with
// their children indented below them. Nothing for a null file.
void DumpFolderViews(const OrvFolderObList& list, FILE* file);
