// Questions to the active document, each sent as one ORV_CORE_MESSAGE_ID message to the object
// that GetActiveDocument answers.
#pragma once

#include "port/Export.h"

#include "mfc/CString.h"

class OrvObject;
class ui_OrvObject;

// The units the document was stored in; a document that reports 0 counts as storage version 40.
// Both assume a document and fault without one.
ORV_API float GetActiveDocReadStorageUnits();
ORV_API void SetActiveDocReadStorageUnits(float units);

// Uses `doc`, else the active document; with neither it does nothing.
ORV_API void SetDocumentModifiedFlag(int flag, OrvObject* doc = nullptr);

// 0, or the empty string, when there is no active document.
ORV_API int IsDocumentModified();
ORV_API int IsDocumentUnitsMm();
ORV_API int GetDocumentUnits();
ORV_API int IsFEATTreeActive();
ORV_API int IsOPERTreeActive();
ORV_API int IsToolTreeActive();
ORV_API CString GetDocTitle();
ORV_API CString GetDocServicePack();

// The message's result; 0 when there is no active document.
ORV_API int GetShowExceptionMsgFlag(int& flag);
ORV_API int SetShowExceptionMsgFlag(int& flag);
ORV_API int RemoveNodeFromSelection(ui_OrvObject* node);

ORV_API int IsDocumentUnitsMetric();
// 1 for the unit codes 0, 1, 2, 6, 7 and 8.
ORV_API int IsUnitsMetric(int unitCode);
