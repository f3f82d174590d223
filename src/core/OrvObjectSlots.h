// The two calls that code below the object layer makes into a node: a core message to the document
// and a node's command to the thread manager. The object layer and the thread manager fill these
// slots when they are linked in, so that what they serve needs neither of them.
#pragma once

#include "core/OrvCoreMessage.h"
#include "core/OrvThreadEnums.h"

class OrvObject;

using PFN_SendOrvCoreMessage = int (*)(OrvObject* doc, ORV_CORE_MESSAGE_ID id,
                                       unsigned long long param, long long extra);
using PFN_RunOrvCommand = int (*)(OrvObject* caller, unsigned int contextId, void* parameter,
                                  OrveThreadType type, OrveThreadEndType endType);

void SetOrvCoreMessageSender(PFN_SendOrvCoreMessage sender);
void SetOrvCommandRunner(PFN_RunOrvCommand runner);

// The document's answer; 0 while no sender is installed (no object layer, so no document).
int SendOrvCoreMessageTo(OrvObject* doc, ORV_CORE_MESSAGE_ID id, unsigned long long param,
                         long long extra);
// The manager's answer; 0 while no runner is installed.
int RunOrvCommand(OrvObject* caller, unsigned int contextId, void* parameter, OrveThreadType type,
                  OrveThreadEndType endType);
