// Where message boxes go. The library does not draw boxes itself: it hands everything a box would
// show to a sink that the host registers, and the sink answers the Windows button code. A second
// callback, the scripted-answer service, may answer a box before it is shown.
#pragma once

#include "port/Export.h"

#include <functional>
#include <optional>

#include "mfc/CString.h"
#include "win/msgbox.h"
#include "win/types.h"

class CWnd;

// How the buttons move when long labels need room: pixels, in the box's client co-ordinates.
struct ORV_API OrvButtonLayoutChange {
    int yesMoveLeft = 0;
    int noMoveLeft = 0;
    int noGrowWider = 0;
};

// Everything one box shows.
struct ORV_API OrvMessageBoxRequest {
    CWnd* ownerWindow = nullptr; // the Outcome's parent, when it has one
    HWND ownerHandle = nullptr;  // the main window otherwise
    CString text;
    CString caption;
    UINT style = 0;
    DWORD helpContext = 0xFFFFFFFF; // 0xFFFFFFFF: no help button
    // Relabelled buttons; empty labels keep the standard words.
    bool relabelled = false;
    CString yesLabel;
    CString noLabel;
    CString cancelLabel;
    // The button that has the focus when the box opens (IDYES unless moved to IDNO).
    int focusButton = IDYES;
    OrvButtonLayoutChange layout;
};

// Shows the box and answers the button the user chose.
using OrvMessageSink = std::function<int(const OrvMessageBoxRequest& box)>;
// Answers a box without showing it, or gives no answer to let the box be shown.
using OrvScriptedAnswerService =
    std::function<std::optional<int>(UINT style, UINT messageId, const CString& text)>;

// Installs the sink; an empty function restores the default, which writes the box to standard
// error and answers IDYES, what silent running answers.
ORV_API void SetOrvMessageSink(OrvMessageSink sink);
// Installs the scripted-answer service; an empty function removes it.
ORV_API void SetOrvScriptedAnswerService(OrvScriptedAnswerService service);

// Shows a box through the installed sink.
ORV_API int ShowOrvMessageBox(const OrvMessageBoxRequest& box);
// The installed service's answer, if there is a service and it answers.
ORV_API std::optional<int> AskOrvScriptedAnswerService(UINT style, UINT messageId,
                                                       const CString& text);

// The default sink's rendering of a box, as written to standard error.
ORV_API CString DescribeOrvMessageBox(const OrvMessageBoxRequest& box);
