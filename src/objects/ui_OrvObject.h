// ui_OrvObject: the interface-side companion of a node. The interface layer derives its tree-item
// classes from it; at this level every operation does nothing.
#pragma once

#include "port/Export.h"

#include "mfc/CObject.h"
#include "mfc/CString.h"
#include "win/types.h"

class OrvObject;

class ORV_API ui_OrvObject : public CObject {
public:
    explicit ui_OrvObject(OrvObject* object);
    ~ui_OrvObject() override;

    // A companion is not archived.
    void Serialize(CArchive& ar) override;

    virtual void BaseName(CString& name) const;
    virtual void ResetFlagForStockChange();
    virtual void SetNodeStatus(WORD mask, int on);

    OrvObject* GetObject() const { return m_pObject; }

protected:
    OrvObject* m_pObject;
};
