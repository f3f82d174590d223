#include "objects/ui_OrvObject.h"

ui_OrvObject::ui_OrvObject(OrvObject* object) : m_pObject(object) {}

ui_OrvObject::~ui_OrvObject() = default;

void ui_OrvObject::Serialize(CArchive&) {}

void ui_OrvObject::BaseName(CString&) const {}

void ui_OrvObject::ResetFlagForStockChange() {}

void ui_OrvObject::SetNodeStatus(WORD, int) {}
