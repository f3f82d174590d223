// The process-wide status word of document storing and loading. A damaged object does not stop a
// save or a load: a null is written or read in its place and the fact is logged here, so that the
// add-in can ask afterwards whether anything went wrong and where.
#pragma once

#include "port/Export.h"

#include "win/types.h"

class OrvObject;

// Error logged.
constexpr DWORD ORV_SERIALIZE_ERROR = 0x0001;
// Mark of InitialiseSerializationStatus(non-zero).
constexpr DWORD ORV_SERIALIZE_INITIALISED = 0x0002;
// The failure concerns a reference to another object.
constexpr DWORD ORV_SERIALIZE_OWNER_LINK = 0x8000;
// The library's own guards around object references: location 0x1000 with the owner link marker.
constexpr DWORD ORV_SERIALIZE_REFERENCE_ERROR = 0x9000;

// Clears the word; sets 0x0002 when `mark` is non-zero.
ORV_API void InitialiseSerializationStatus(int mark);
// Sets the error bit and ORs `bits` in.
ORV_API void LogSerializationError(DWORD bits);
ORV_API DWORD GetSerializationStatus();
// The error bit alone.
ORV_API DWORD IsErrorDetected();
// The lowest location bit set (0x0020 up to 0x4000), or 0.
ORV_API DWORD GetErrorLocation();
// Logs `location` with 0x9000 when `owner` is null. Answers 1 either way.
ORV_API int AnalyseOwner(OrvObject* owner, DWORD location);
