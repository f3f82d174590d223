#include "core/OrvObjectSlots.h"

namespace {

// Written during static initialisation, before any thread of the library exists.
PFN_SendOrvCoreMessage g_sender = nullptr;
PFN_RunOrvCommand g_runner = nullptr;

} // namespace

void SetOrvCoreMessageSender(PFN_SendOrvCoreMessage sender) {
    g_sender = sender;
}

void SetOrvCommandRunner(PFN_RunOrvCommand runner) {
    g_runner = runner;
}

int SendOrvCoreMessageTo(OrvObject* doc, ORV_CORE_MESSAGE_ID id, unsigned long long param,
                         long long extra) {
    return g_sender ? g_sender(doc, id, param, extra) : 0;
}

int RunOrvCommand(OrvObject* caller, unsigned int contextId, void* parameter, OrveThreadType type,
                  OrveThreadEndType endType) {
    return g_runner ? g_runner(caller, contextId, parameter, type, endType) : 0;
}
