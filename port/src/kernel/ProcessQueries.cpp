#include "port/ProcessQueries.h"

#include <signal.h>
#include <sys/types.h>

#include <algorithm>
#include <cctype>
#include <climits>
#include <filesystem>
#include <fstream>
#include <string>

#include "port/TextConversion.h"

namespace {

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// The executable's file name: the target of /proc/PID/exe where it can be read, else the first
// word of the command line (other users' processes hide their exe link).
std::string ExecutableName(const std::filesystem::path& processFolder) {
    std::error_code error;
    const auto target = std::filesystem::read_symlink(processFolder / "exe", error);
    if (!error)
        return target.filename().string();
    std::ifstream in(processFolder / "cmdline", std::ios::binary);
    std::string first;
    std::getline(in, first, '\0');
    return std::filesystem::path(first).filename().string();
}

bool IsProcessFolder(const std::filesystem::directory_entry& entry) {
    const std::string name = entry.path().filename().string();
    return !name.empty() &&
           std::all_of(name.begin(), name.end(), [](unsigned char c) { return std::isdigit(c); });
}

} // namespace

int IsProcessAlreadyRunning(char const* exeName) {
    if (!exeName || !*exeName)
        return 0;
    const std::string wanted = Lower(exeName);
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc", error)) {
        if (IsProcessFolder(entry) && Lower(ExecutableName(entry.path())) == wanted)
            return 1;
    }
    return 0;
}

int IsProcessAlreadyRunning2(wchar_t* exeName) {
    if (!exeName)
        return 0;
    return IsProcessAlreadyRunning(port::WideToNarrow(exeName).c_str());
}

int TerminateProcessById(unsigned long processId) {
    if (processId == 0 || processId > static_cast<unsigned long>(INT_MAX))
        return 1;
    const pid_t pid = static_cast<pid_t>(processId);
    if (kill(pid, 0) != 0)
        return 1;
    return kill(pid, SIGTERM) == 0 ? 1 : 0;
}
