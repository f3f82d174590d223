#include "HostProcess.h"

#include "support/TempRegistry.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

extern char** environ;

namespace {

// The test's environment with the given variables put in place of their namesakes.
std::vector<std::string> Environment(const std::vector<std::string>& variables) {
    std::vector<std::string> result(variables);
    for (char** entry = environ; *entry; ++entry) {
        const std::string text = *entry;
        const std::string name = text.substr(0, text.find('=') + 1);
        const bool replaced = std::any_of(variables.begin(), variables.end(), [&](const auto& v) {
            return v.compare(0, name.size(), name) == 0;
        });
        if (!replaced)
            result.push_back(text);
    }
    return result;
}

} // namespace

ProcessResult RunProgram(const std::string& program, const std::vector<std::string>& args,
                         const std::string& folder, const std::vector<std::string>& variables) {
    const std::string out = folder + "/.transcript-stdout";
    const std::string err = folder + "/.transcript-stderr";
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const auto& arg : args)
        argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);
    std::vector<std::string> environment = Environment(variables);
    std::vector<char*> envp;
    for (auto& variable : environment)
        envp.push_back(variable.data());
    envp.push_back(nullptr);
    pid_t pid = 0;
    const int failed =
        posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    if (failed)
        throw std::runtime_error("cannot start " + program);
    int wait = 0;
    waitpid(pid, &wait, 0);
    ProcessResult result;
    result.status = WIFEXITED(wait) ? WEXITSTATUS(wait) : 128 + WTERMSIG(wait);
    result.out = ReadFileBytes(out);
    result.err = ReadFileBytes(err);
    unlink(out.c_str());
    unlink(err.c_str());
    return result;
}
