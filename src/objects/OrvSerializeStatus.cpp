#include "objects/OrvSerializeStatus.h"

namespace {

DWORD g_serializationStatus = 0;

} // namespace

void InitialiseSerializationStatus(int mark) {
    g_serializationStatus = mark ? ORV_SERIALIZE_INITIALISED : 0;
}

void LogSerializationError(DWORD bits) {
    g_serializationStatus |= ORV_SERIALIZE_ERROR | bits;
}

DWORD GetSerializationStatus() {
    return g_serializationStatus;
}

DWORD IsErrorDetected() {
    return g_serializationStatus & ORV_SERIALIZE_ERROR;
}

DWORD GetErrorLocation() {
    for (DWORD bit = 0x0020; bit <= 0x4000; bit <<= 1)
        if (g_serializationStatus & bit)
            return bit;
    return 0;
}

int AnalyseOwner(OrvObject* owner, DWORD location) {
    if (!owner)
        LogSerializationError(location | ORV_SERIALIZE_REFERENCE_ERROR);
    return 1;
}
