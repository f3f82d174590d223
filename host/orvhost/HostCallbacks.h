// The host's start-up is the reference add-in's: orvhost's commands start and stop the library and
// reach the application settings through it.
#pragma once

#include "addin/AddinStartup.h"
#include "addin/AppSettings.h"

namespace orvhost {

using addin::AppSettings;
using addin::MakeAppSettings;
using addin::StartLibrary;
using addin::StopLibrary;

} // namespace orvhost
