// OrvFeaturesFolder: the folder of the document's features. It adds nothing to OrvBaseFolder but
// its class, which the archive and the interface tell apart.
#pragma once

#include "port/Export.h"

#include "objects/OrvBaseFolder.h"

class ORV_API OrvFeaturesFolder : public OrvBaseFolder {
    DECLARE_SERIAL(OrvFeaturesFolder)
public:
    OrvFeaturesFolder() = default;

    ORV_FOLDER_TYPE GetFolderType() override;
};
