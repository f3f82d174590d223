#include "core/OrvDocAccessors.h"

#include <cmath>
#include <cstdint>

#include "core/OrvHostCallbacks.h"
#include "core/OrvObjectSlots.h"
#include "geometry/FRConstants.h"

namespace {

unsigned long long Address(void* variable) {
    return static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(variable));
}

int Send(OrvObject* doc, ORV_CORE_MESSAGE_ID id, void* variable) {
    return SendOrvCoreMessageTo(doc, id, Address(variable), 0);
}

// An int the active document fills in; 0 without a document.
int AskInt(ORV_CORE_MESSAGE_ID id) {
    OrvObject* doc = GetActiveDocument();
    int answer = 0;
    if (doc)
        Send(doc, id, &answer);
    return answer;
}

CString AskString(ORV_CORE_MESSAGE_ID id) {
    OrvObject* doc = GetActiveDocument();
    CString answer;
    if (doc)
        Send(doc, id, &answer);
    return answer;
}

int Forward(ORV_CORE_MESSAGE_ID id, int& flag) {
    OrvObject* doc = GetActiveDocument();
    return doc ? Send(doc, id, &flag) : 0;
}

} // namespace

float GetActiveDocReadStorageUnits() {
    float units = 0.0f;
    Send(GetActiveDocument(), ORV_MSG_GET_DOC_READ_STORAGE_UNITS, &units);
    if (std::fabs(units) < RESABS)
        units = 40.0f;
    return units;
}

void SetActiveDocReadStorageUnits(float units) {
    Send(GetActiveDocument(), ORV_MSG_SET_DOC_READ_STORAGE_UNITS, &units);
}

void SetDocumentModifiedFlag(int flag, OrvObject* doc) {
    if (!doc)
        doc = GetActiveDocument();
    if (doc)
        Send(doc, ORV_MSG_SET_DOC_MODIFIED_FLAG, &flag);
}

int IsDocumentModified() {
    return AskInt(ORV_MSG_IS_DOC_MODIFIED);
}
int IsDocumentUnitsMm() {
    return AskInt(ORV_MSG_IS_DOC_UNITS_MM);
}
int GetDocumentUnits() {
    return AskInt(ORV_MSG_GET_DOC_UNITS);
}
int IsFEATTreeActive() {
    return AskInt(ORV_MSG_IS_FEAT_TREE_ACTIVE);
}
int IsOPERTreeActive() {
    return AskInt(ORV_MSG_IS_OPER_TREE_ACTIVE);
}
int IsToolTreeActive() {
    return AskInt(ORV_MSG_IS_TOOL_TREE_ACTIVE);
}
CString GetDocTitle() {
    return AskString(ORV_MSG_GET_DOC_TITLE);
}
CString GetDocServicePack() {
    return AskString(ORV_MSG_GET_DOC_SERVICE_PACK);
}

int GetShowExceptionMsgFlag(int& flag) {
    return Forward(ORV_MSG_GET_SHOW_EXCEPTION_MSG, flag);
}
int SetShowExceptionMsgFlag(int& flag) {
    return Forward(ORV_MSG_SET_SHOW_EXCEPTION_MSG, flag);
}

int RemoveNodeFromSelection(ui_OrvObject* node) {
    OrvObject* doc = GetActiveDocument();
    return doc ? SendOrvCoreMessageTo(doc, ORV_MSG_REMOVE_NODE_FROM_SELECTION, Address(node), 0)
               : 0;
}

int IsDocumentUnitsMetric() {
    return IsUnitsMetric(GetDocumentUnits());
}

int IsUnitsMetric(int unitCode) {
    switch (unitCode) {
    case 0:
    case 1:
    case 2:
    case 6:
    case 7:
    case 8:
        return 1;
    default:
        return 0;
    }
}
