// OrvCallbackHelper: the slot through which the interface layer tells the library how to make a
// node's companion. Each node class family with a companion keeps one static helper.
#pragma once

#include "port/Export.h"

class OrvObject;
class ui_OrvObject;

class ORV_API OrvCallbackHelper {
public:
    using PFN_UiObjCreate = ui_OrvObject* (*)(OrvObject* object);

    OrvCallbackHelper() = default;

    void SetCBUiObjCreate(PFN_UiObjCreate create) { m_pfnUiObjCreate = create; }
    PFN_UiObjCreate GetCBUiObjCreate() const { return m_pfnUiObjCreate; }

private:
    PFN_UiObjCreate m_pfnUiObjCreate = nullptr;
};
