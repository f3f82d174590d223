#include "diagnostics/Outcome.h"

#include <cstdarg>

#include "core/OrvHostCallbacks.h"
#include "diagnostics/BoundedFormat.h"
#include "frame/CKelVersionInfo.h"
#include "frame/OrvAfx.h"
#include "frame/OrvProductAccessors.h"
#include "frame/RegistryHelpers.h"
#include "settings/OrvSettingsKey.h"

namespace {

constexpr unsigned long kNoHelp = 0xFFFFFFFF;

} // namespace

HHOOK Outcome::m_hMsgBoxHook = nullptr;
CString Outcome::m_strIDYES = L"Yes";
CString Outcome::m_strIDNO = L"No";
CString Outcome::m_strIDCancel = L"Cancel";
int Outcome::m_buttonID = IDYES;
int Outcome::m_bChangeYesNoCancelButtonLabel = 0;

Outcome::Outcome(int status, SeverityIndex severity, unsigned int captionId,
                 unsigned long helpContext, CWnd* parent, int productSpecific)
    : m_Severity(severity), m_Status(status), m_CaptionID(captionId), m_HelpContext(helpContext),
      m_pParent(parent), m_ProductSpecific(productSpecific) {
    m_bChangeYesNoCancelButtonLabel = 0;
    if (captionId != 0) {
        CString caption;
        caption.LoadString(captionId);
    }
}

UINT Outcome::StyleOf(int severity, UINT& defaultCaptionId) {
    switch (severity) {
    case SEVERITY_ERROR:
        defaultCaptionId = 2555;
        return MB_SETFOREGROUND | MB_ICONSTOP | MB_OK;
    case SEVERITY_WARNING_YESNO:
        defaultCaptionId = 2554;
        return MB_SETFOREGROUND | MB_ICONEXCLAMATION | MB_YESNO;
    case SEVERITY_WARNING_YESNOCANCEL:
        defaultCaptionId = 2554;
        return MB_SETFOREGROUND | MB_ICONEXCLAMATION | MB_YESNOCANCEL;
    case SEVERITY_NOTE:
        defaultCaptionId = 2553;
        return MB_SETFOREGROUND | MB_ICONINFORMATION | MB_OK;
    case SEVERITY_NOTE_YESNO:
        defaultCaptionId = 2553;
        return MB_SETFOREGROUND | MB_ICONINFORMATION | MB_YESNO;
    case SEVERITY_NOTE_YESNOCANCEL:
        defaultCaptionId = 2553;
        return MB_SETFOREGROUND | MB_ICONINFORMATION | MB_YESNOCANCEL;
    default:
        defaultCaptionId = 0;
        return 0;
    }
}

bool Outcome::IsSilent() const {
    if (GetKernelType() == KelKernelAlternate)
        return true;
    if (!m_AlwaysShowMsg) {
        short alerts = 0;
        GetAppDisplayAlerts(&alerts);
        if (alerts == 0)
            return true;
    }
    return false;
}

unsigned int Outcome::Display(int messageId, ...) {
    if (IsSilent())
        return IDYES;
    CString format;
    if (!format.LoadString(static_cast<UINT>(messageId)))
        return IDYES;
    m_MessageID = static_cast<unsigned int>(messageId);
    va_list args;
    va_start(args, messageId);
    const CString text =
        FormatBounded(format, static_cast<std::size_t>(format.GetLength()) + 500, args);
    va_end(args);
    return Display(text);
}

unsigned int Outcome::Display(CString text) {
    if (IsSilent())
        return IDYES;
    if (m_ProductSpecific)
        text = GetProductSpecificString2(text);

    OrvMessageBoxRequest box;
    // Without a framework application the parent is both the owner and the thread's window, so
    // the owner never has to be swapped for the thread's window and disabled.
    box.ownerWindow = m_pParent;
    if (!m_pParent)
        box.ownerHandle = OrvAfx::GetMainHWnd();
    box.text = text;

    if (m_CaptionID)
        box.caption = GetProductSpecificString(m_CaptionID);
    UINT defaultCaptionId = 0;
    box.style = StyleOf(m_Severity, defaultCaptionId);
    if (box.caption.IsEmpty() && defaultCaptionId)
        box.caption = GetProductSpecificString(defaultCaptionId);

    if (const auto answer = AskOrvScriptedAnswerService(box.style, m_MessageID, text))
        return static_cast<unsigned int>(*answer);
    if (box.style == 0)
        return static_cast<unsigned int>(ORV_OUTCOME_NOT_SHOWN);

    int answer;
    if (m_HelpContext == kNoHelp) {
        if (m_ChangeButtonLabels)
            answer = MsgBoxButtonCaptionsChanged(box);
        else if (m_ChangeYesNoCancelLabels)
            answer = MsgBoxYesNoCancelButtonCaptionsChanged(box);
        else
            answer = ShowOrvMessageBox(box);
    } else {
        box.style |= MB_HELP;
        box.helpContext = static_cast<DWORD>(m_HelpContext);
        if (m_ChangeButtonLabels || m_ChangeYesNoCancelLabels)
            answer = MsgBoxIndirectButtonCaptionsChanged(box);
        else
            answer = ShowOrvMessageBox(box);
    }
    return static_cast<unsigned int>(answer);
}

void Outcome::SetMessageBoxButtonNewLabels(CString yes, CString no) {
    m_ChangeButtonLabels = 1;
    m_ChangeYesNoCancelLabels = 0;
    m_strIDYES = yes;
    m_strIDNO = no;
}

void Outcome::SetMessageBoxButtonNewLabels(CString yes, CString no, CString cancel) {
    m_ChangeButtonLabels = 0;
    m_ChangeYesNoCancelLabels = 1;
    m_bChangeYesNoCancelButtonLabel = 1;
    m_strIDYES = yes;
    m_strIDNO = no;
    m_strIDCancel = cancel;
}

int Outcome::IsDisplayDialog() {
    OrvSettingsKey key(L"Application", GetVersionKeyPath());
    key.AddValue(L"CGMDisplayDialogs", 1);
    int value = 1;
    if (key.RestoreValuesFromRegistry())
        key.GetValue(L"CGMDisplayDialogs", value);
    return value;
}

int Outcome::MsgBoxButtonCaptionsChanged(OrvMessageBoxRequest& box) {
    CBTProc(box);
    return ShowOrvMessageBox(box);
}

int Outcome::MsgBoxYesNoCancelButtonCaptionsChanged(OrvMessageBoxRequest& box) {
    CBTProcForYesNoCancel(box);
    return ShowOrvMessageBox(box);
}

int Outcome::MsgBoxIndirectButtonCaptionsChanged(OrvMessageBoxRequest& box) {
    if (m_ChangeYesNoCancelLabels)
        CBTProcForYesNoCancel(box);
    else
        CBTProc(box);
    return ShowOrvMessageBox(box);
}

void Outcome::CBTProc(OrvMessageBoxRequest& box) {
    box.relabelled = true;
    box.yesLabel = m_strIDYES;
    box.noLabel = m_strIDNO;
    if (m_buttonID == IDNO) {
        box.focusButton = IDNO;
        m_buttonID = IDYES;
    }
}

void Outcome::CBTProcForYesNoCancel(OrvMessageBoxRequest& box) {
    CBTProc(box);
    if (m_bChangeYesNoCancelButtonLabel) {
        m_bChangeYesNoCancelButtonLabel = 0;
        CString language;
        if (OrvSettingsKey* settings = GetAppSettingsCB())
            settings->GetValue(L"Language", language);
        if (language == L"French")
            box.layout = {50, 50, 50};
    }
    box.cancelLabel = m_strIDCancel;
}
