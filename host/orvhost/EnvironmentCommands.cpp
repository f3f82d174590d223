// `orvhost env`: starts the library against an install tree and prints the environment.
// `orvhost message`: shows an Outcome through the default message sink (standard error) and
// prints the button code that Display answered.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "HostCallbacks.h"
#include "HostCommand.h"
#include "diagnostics/Outcome.h"
#include "environment/CKelEnvApp.h"
#include "environment/OrvAppEnv.h"

namespace {

struct MessageOptions {
    int severity = SEVERITY_NOTE;
    unsigned int captionId = 0;
    unsigned long helpContext = 0xFFFFFFFF;
    int messageId = 0;
    bool focusNo = false;
    std::wstring labels[3];
    int labelCount = 0;
    std::wstring text;
};

std::wstring Widen(const std::string& text) {
    return CString(text.c_str()).GetString();
}

void SplitLabels(const std::string& list, MessageOptions& options) {
    std::size_t start = 0;
    while (options.labelCount < 3) {
        const std::size_t comma = list.find(',', start);
        options.labels[options.labelCount++] = Widen(list.substr(start, comma - start));
        if (comma == std::string::npos)
            break;
        start = comma + 1;
    }
}

bool ParseOptions(const orvhost::Arguments& arguments, MessageOptions& options) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const bool hasValue = i + 1 < arguments.size();
        if (argument == "--severity" && hasValue)
            options.severity = std::atoi(arguments[++i].c_str());
        else if (argument == "--caption" && hasValue)
            options.captionId =
                static_cast<unsigned int>(std::strtoul(arguments[++i].c_str(), nullptr, 10));
        else if (argument == "--help-context" && hasValue)
            options.helpContext = std::strtoul(arguments[++i].c_str(), nullptr, 10);
        else if (argument == "--id" && hasValue)
            options.messageId = std::atoi(arguments[++i].c_str());
        else if (argument == "--labels" && hasValue)
            SplitLabels(arguments[++i], options);
        else if (argument == "--focus-no")
            options.focusNo = true;
        else if (argument.rfind("--", 0) == 0)
            return false;
        else
            options.text += (options.text.empty() ? L"" : L" ") + Widen(argument);
    }
    return options.messageId != 0 || !options.text.empty();
}

int RunMessage(const orvhost::Arguments& arguments) {
    MessageOptions options;
    if (!ParseOptions(arguments, options)) {
        std::fprintf(stderr, "usage: orvhost message [--severity N] [--caption ID] "
                             "[--help-context N] [--labels YES,NO[,CANCEL]] [--focus-no] "
                             "(--id ID | TEXT...)\n");
        return 2;
    }
    orvhost::StartLibrary();
    Outcome outcome(1, static_cast<SeverityIndex>(options.severity), options.captionId,
                    options.helpContext);
    if (options.labelCount == 2)
        outcome.SetMessageBoxButtonNewLabels(options.labels[0].c_str(), options.labels[1].c_str());
    else if (options.labelCount == 3)
        outcome.SetMessageBoxButtonNewLabels(options.labels[0].c_str(), options.labels[1].c_str(),
                                             options.labels[2].c_str());
    if (options.focusNo)
        outcome.SetMessageBoxButtonFocus(IDNO);
    const int answer =
        static_cast<int>(options.messageId != 0 ? outcome.Display(options.messageId)
                                                : outcome.Display(CString(options.text.c_str())));
    std::printf("answer: %d\n", answer);
    orvhost::StopLibrary();
    return 0;
}

void Print(const wchar_t* label, const CString& value) {
    CString line;
    line.Format(L"%-28s %s\n", label, value.GetString());
    std::fputs(CStringA(line).GetString(), stdout);
}

int RunEnv(const orvhost::Arguments& arguments) {
    // Without a folder the library finds its install tree beside its own file; with one, the
    // library's file is taken to stand in that folder, as it does in an installation.
    if (!arguments.empty()) {
        const std::filesystem::path install = std::filesystem::absolute(arguments[0]);
        CKelEnvApp::SetModuleFilePathOverride(
            CString((install / "libKELSHAREu.so").string().c_str()));
    }
    orvhost::StartLibrary();
    CKelEnvApp* env = AppEnv();
    CString number;
    Print(L"install folder", env->GetKelDrive() + env->GetKelPath());
    Print(L"language folder", env->GetKelDefDataRelPath());
    number.Format(L"%d", static_cast<int>(env->GetCutbaseLang()));
    Print(L"language code", number);
    Print(L"resource file", env->GetKelResourceDllPath());
    Print(L"help folder", env->GetKelHelpPath());
    Print(L"data folder", env->GetKelDataPath());
    Print(L"setup sheet images", env->GetSetupSheetImagePath());
    Print(L"setup sheet templates", env->GetSetupSheetTemplatePath());
    Print(L"sub-spindle operations", env->GetSubSpindleOperFolderPath());
    Print(L"simulation machines", env->GetDefaultSimulationMachineFolderPath());
    Print(L"simulation controllers", env->GetDefaultSimulationControllerFolderPath());
    Print(L"simulation jobs", env->GetDefaultSimulationJobFolderPath());
    Print(L"machine simulation program", env->GetIMSExePath());
    Print(L"tool inserts", env->GetKelDefaultToolInsertPath());
    Print(L"tutorials", env->GetTutorialsPath());
    Print(L"NC editor", env->GetCIMCOEditorPath() + L" " + env->GetCIMCOEditorCmdArg());
    Print(L"database configuration", env->GetCutbaseConfigFilePath() + L"database.config");
    Print(L"active database", env->GetActiveDBname());
    Print(L"database path", env->GetKelCutbasePath());
    Print(L"user", env->GetUserNameW());
    number.Format(L"%d", static_cast<int>(env->GetEnvAPPInitResult()));
    Print(L"init result", number);
    const int result = env->GetEnvAPPInitResult();
    orvhost::StopLibrary();
    return result == 0 ? 0 : 1;
}

const orvhost::CommandRegistrar
    envRegistrar({"env",
                  "env        [FOLDER] start against an install tree (default: the project's "
                  "data/) and print the environment",
                  RunEnv});

const orvhost::CommandRegistrar registrar(
    {"message", "message    show an Outcome through the default message sink", RunMessage});

} // namespace
