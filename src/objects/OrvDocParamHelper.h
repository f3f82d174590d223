// OrvDocParamHelper: what describes a document: its units, the storage version it was read with
// and its modified flag.
#pragma once

#include "port/Export.h"

#include "mfc/CArchive.h"
#include "objects/OrvParamHelper.h"

class ORV_API OrvDocParamHelper : public OrvParamHelper {
public:
    explicit OrvDocParamHelper(int units);

    // No class tag: the units alone. The storage version and the modified flag are not stored.
    void Serialize(CArchive& ar) override;

    int GetDocParamUnits() const { return m_Units; }
    void SetDocParamUnits(int units) { m_Units = units; }
    // Millimetres are unit code 0.
    int IsDocumentUnitsMm() const { return m_Units == 0; }
    float GetDocParamReadStorageUnits() const { return m_ReadStorageUnits; }
    void SetDocParamReadStorageUnits(float version) { m_ReadStorageUnits = version; }
    int IsDocumentModified() const { return m_bModified; }
    void SetDocumentModifiedFlag(int modified) { m_bModified = modified; }

private:
    int m_Units;
    float m_ReadStorageUnits = 40.0f;
    int m_bModified = 0;
};
