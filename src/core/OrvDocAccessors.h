// Questions to the active document, each sent as one ORV_CORE_MESSAGE_ID message to the object
// that GetActiveDocument answers.
#pragma once

#include "mfc/CString.h"

class OrvObject;
class ui_OrvObject;

// The units the document was stored in; a document that reports 0 counts as storage version 40.
// Both assume a document and fault without one.
float GetActiveDocReadStorageUnits();
void SetActiveDocReadStorageUnits(float units);

// Uses `doc`, else the active document; with neither it does nothing.
void SetDocumentModifiedFlag(int flag, OrvObject* doc = nullptr);

// 0, or the empty string, when there is no active document.
int IsDocumentModified();
int IsDocumentUnitsMm();
int GetDocumentUnits();
int IsFEATTreeActive();
int IsOPERTreeActive();
int IsToolTreeActive();
CString GetDocTitle();
CString GetDocServicePack();

// The message's result; 0 when there is no active document.
int GetShowExceptionMsgFlag(int& flag);
int SetShowExceptionMsgFlag(int& flag);
int RemoveNodeFromSelection(ui_OrvObject* node);

int IsDocumentUnitsMetric();
// 1 for the unit codes 0, 1, 2, 6, 7 and 8.
int IsUnitsMetric(int unitCode);
