// The host's side of the library's start-up: a document object that answers the core messages,
// an application settings tree, and the callback table registered the way an add-in does.
#pragma once

#include <memory>

#include "objects/OrvObject.h"
#include "settings/OrvSettingsKey.h"

namespace orvhost {

// The host's one document.
class HostDocument : public OrvObject {
public:
    float m_StorageUnits = 0.0f; // 0: the current storage version
    int m_Modified = 0;
    int m_Units = 0; // millimetres
    CString m_Title = L"orvhost document";

    int SendOrvCoreMessage(ORV_CORE_MESSAGE_ID id, unsigned long long param,
                           long long extra) override;
};

// The host's "Display" group. Its constructor is its table of defaults, so that an archive that
// holds the group rebuilds it by class and merges what it read with those defaults.
class HostDisplaySettings : public OrvSettingsKey {
    DECLARE_SERIAL(HostDisplaySettings)
public:
    HostDisplaySettings();
};

// The host's application settings: one value of each type, and a "Display" group.
std::unique_ptr<OrvSettingsKey> MakeAppSettings();

HostDocument& ActiveDocument();
// The tree that the settings callback hands out.
OrvSettingsKey& AppSettings();

// Steps 2 to 7 of an add-in's start-up: resources, callbacks, language, environment, providers.
void StartLibrary();
// The add-in's unload step.
void StopLibrary();

} // namespace orvhost
