#include "objects/OrvFeaturesFolder.h"

IMPLEMENT_SERIAL(OrvFeaturesFolder, OrvBaseFolder, VERSIONABLE_SCHEMA | 1)

ORV_FOLDER_TYPE OrvFeaturesFolder::GetFolderType() {
    return ORV_FOLDER_GENERIC;
}
