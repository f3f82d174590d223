// orvhost's commands: each source file registers the commands it provides.
#pragma once

#include <string>
#include <vector>

namespace orvhost {

using Arguments = std::vector<std::string>;
// A command answers the process exit code.
using CommandFunction = int (*)(const Arguments& arguments);

struct HostCommand {
    const char* name;
    const char* usage;
    CommandFunction run;
};

const std::vector<HostCommand>& Commands();

// Registers a command during static construction.
struct CommandRegistrar {
    explicit CommandRegistrar(const HostCommand& command);
};

} // namespace orvhost
