// Outcome: the one way a message is put in front of the user. It carries a severity, a status, an
// optional caption and help context, and shows a message by resource id or by text through the
// message sink, unless running silent.
#pragma once

#include "port/Export.h"

#include "diagnostics/OrvMessageSink.h"
#include "mfc/CString.h"
#include "win/types.h"

class CWnd;
using HHOOK = struct HHOOK__*;

enum SeverityIndex {
    SEVERITY_ERROR = 0,         // OK, stop icon
    SEVERITY_WARNING_YESNO = 1, // Yes/No, exclamation
    SEVERITY_WARNING_YESNOCANCEL = 2,
    SEVERITY_NOTE = 3, // OK, information
    SEVERITY_NOTE_YESNO = 4,
    SEVERITY_NOTE_YESNOCANCEL = 5,
};

// What Display answers when neither a box nor the service showed anything.
constexpr int ORV_OUTCOME_NOT_SHOWN = -101;

class ORV_API Outcome {
public:
    Outcome(int status = 0, SeverityIndex severity = SEVERITY_ERROR, unsigned int captionId = 0,
            unsigned long helpContext = 0xFFFFFFFF, CWnd* parent = nullptr,
            int productSpecific = 0);

    // 1 when the status is 0.
    int Ok() const { return m_Status == 0 ? 1 : 0; }

    // The message of a resource id, formatted with printf-style arguments. Answers the button
    // chosen, or IDYES when nothing was shown.
    unsigned int Display(int messageId, ...);
    unsigned int Display(CString text);

    void SetAlwaysShowMsg(int alwaysShow) { m_AlwaysShowMsg = alwaysShow; }
    // Relabels Yes and No of the next boxes.
    void SetMessageBoxButtonNewLabels(CString yes, CString no);
    // Relabels Yes, No and Cancel of the next boxes.
    void SetMessageBoxButtonNewLabels(CString yes, CString no, CString cancel);
    // IDNO moves the focus to No in the next relabelled box.
    void SetMessageBoxButtonFocus(int buttonId) { m_buttonID = buttonId; }

    // "CGMDisplayDialogs" of the Application key, 1 unless the key restores another value.
    static int IsDisplayDialog();

    static HHOOK m_hMsgBoxHook;
    static CString m_strIDYES;
    static CString m_strIDNO;
    static CString m_strIDCancel;
    static int m_buttonID;
    static int m_bChangeYesNoCancelButtonLabel;

private:
    // The style word of the severity, or 0 for none; the default caption id beside it.
    static UINT StyleOf(int severity, UINT& defaultCaptionId);
    // True when a kernel or the application's alert switch silences boxes.
    bool IsSilent() const;
    // The three relabelling show functions; each acts as the box's activation hook would.
    int MsgBoxButtonCaptionsChanged(OrvMessageBoxRequest& box);
    int MsgBoxYesNoCancelButtonCaptionsChanged(OrvMessageBoxRequest& box);
    int MsgBoxIndirectButtonCaptionsChanged(OrvMessageBoxRequest& box);
    // What the activation hooks do to the box.
    static void CBTProc(OrvMessageBoxRequest& box);
    static void CBTProcForYesNoCancel(OrvMessageBoxRequest& box);

    SeverityIndex m_Severity;
    int m_Status;
    unsigned int m_CaptionID;
    unsigned long m_HelpContext;
    CWnd* m_pParent;
    int m_ChangeButtonLabels = 0;
    int m_ChangeYesNoCancelLabels = 0;
    unsigned int m_MessageID = 0;
    int m_AlwaysShowMsg = 0;
    int m_ProductSpecific;
};

// Loads the resource string `id` and formats the arguments into `out` (at most the string's length
// + 100 characters). `out` is emptied when the id is unknown.
ORV_API void OrvStuffString(CString& out, unsigned int id, ...);
