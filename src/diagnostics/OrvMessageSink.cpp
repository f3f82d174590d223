#include "diagnostics/OrvMessageSink.h"

#include <cstdio>
#include <utility>

#include "mfc/StringFormat.h"

namespace {

int WriteToStandardError(const OrvMessageBoxRequest& box) {
    port::FilePrintf(stderr, L"%s", DescribeOrvMessageBox(box).GetString());
    std::fflush(stderr);
    return IDYES;
}

OrvMessageSink& Sink() {
    static OrvMessageSink sink = WriteToStandardError;
    return sink;
}

OrvScriptedAnswerService& Service() {
    static OrvScriptedAnswerService service;
    return service;
}

CString ButtonsOf(const OrvMessageBoxRequest& box) {
    const CString yes = box.yesLabel.IsEmpty() ? CString(L"Yes") : box.yesLabel;
    const CString no = box.noLabel.IsEmpty() ? CString(L"No") : box.noLabel;
    const CString cancel = box.cancelLabel.IsEmpty() ? CString(L"Cancel") : box.cancelLabel;
    switch (box.style & 0xF) {
    case MB_YESNO:
        return L"[" + yes + L"] [" + no + L"]";
    case MB_YESNOCANCEL:
        return L"[" + yes + L"] [" + no + L"] [" + cancel + L"]";
    default:
        return L"[OK]";
    }
}

} // namespace

void SetOrvMessageSink(OrvMessageSink sink) {
    Sink() = sink ? std::move(sink) : OrvMessageSink(WriteToStandardError);
}

void SetOrvScriptedAnswerService(OrvScriptedAnswerService service) {
    Service() = std::move(service);
}

int ShowOrvMessageBox(const OrvMessageBoxRequest& box) {
    return Sink()(box);
}

std::optional<int> AskOrvScriptedAnswerService(UINT style, UINT messageId, const CString& text) {
    if (!Service())
        return std::nullopt;
    return Service()(style, messageId, text);
}

CString DescribeOrvMessageBox(const OrvMessageBoxRequest& box) {
    CString out;
    out.Format(L"[%s] %s\n%s", box.caption.GetString(), box.text.GetString(),
               ButtonsOf(box).GetString());
    if (box.style & MB_HELP)
        out.AppendFormat(L" [Help %u]", box.helpContext);
    out.AppendFormat(L" (style 0x%X)\n", box.style);
    return out;
}
