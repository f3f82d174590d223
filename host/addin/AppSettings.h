// The add-in's application settings tree, which the settings callback hands out.
#pragma once

#include <memory>

#include "settings/OrvSettingsKey.h"

namespace addin {

// The "Display" group. Its constructor is its table of defaults, so that an archive that holds the
// group rebuilds it by class and merges what it read with those defaults.
class HostDisplaySettings : public OrvSettingsKey {
    DECLARE_SERIAL(HostDisplaySettings)
public:
    HostDisplaySettings();
};

// A fresh tree: one value of each type, and a "Display" group.
std::unique_ptr<OrvSettingsKey> MakeAppSettings();

// The tree of the process, made on first use.
OrvSettingsKey& AppSettings();

} // namespace addin
