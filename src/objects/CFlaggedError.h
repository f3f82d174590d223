// CFlaggedError: the mark that the tree shows on a node with a problem: the flag, why it was set,
// the message to show and what the user may do about it.
#pragma once

#include "port/Export.h"

#include <cstdio>

#include "mfc/CArchive.h"
#include "mfc/CObject.h"

enum FlaggedErrorEnum : int {
    NORMAL = 0,  // set by the object's own check
    STOCK = 1,   // set because the stock changed
    SEGMENT = 2, // set because a segment was deleted
};

class ORV_API CFlaggedError : public CObject {
    DECLARE_SERIAL(CFlaggedError)
public:
    // Dynamic creation makes CFlaggedError(-1, NORMAL).
    CFlaggedError();
    CFlaggedError(int errorString, FlaggedErrorEnum type);
    CFlaggedError(const CFlaggedError& other);
    CFlaggedError& operator=(const CFlaggedError& other);
    ~CFlaggedError() override = default;

    // A new object with the same five fields; the caller owns it.
    CFlaggedError* Clone() const;

    // Storing: class tag, flag, type. Loading reads the tag only from documents stored after
    // version 32.002, and the type only behind a tag of schema 2 or later. The message id and
    // the two permissions are not stored: the holder sets them at construction.
    void Serialize(CArchive& ar) override;
    virtual void DumpData(FILE* file);

    int GetFlag() const { return m_bFlag; }
    void SetFlag() { m_bFlag = 1; }
    // Clears the flag; the type stays.
    void ResetFlag() { m_bFlag = 0; }
    FlaggedErrorEnum GetFlagErrorType() const { return m_eFlaggedErrorType; }
    void SetFlagErrorType(FlaggedErrorEnum type) { m_eFlaggedErrorType = type; }
    int ReportError() const { return m_iErrorStringID; }
    void SetErrorString(int id) { m_iErrorStringID = id; }
    int GetCanClearError() const { return m_bCanClearError; }
    void SetCanClearError(int canClear) { m_bCanClearError = canClear; }
    int GetAllowEditingFlag() const { return m_bAllowEditing; }
    void SetAllowEditingFlag(int allow) { m_bAllowEditing = allow; }

private:
    FlaggedErrorEnum m_eFlaggedErrorType;
    int m_bFlag = 0;
    int m_iErrorStringID;
    int m_bCanClearError = 0;
    int m_bAllowEditing = 0;
};
