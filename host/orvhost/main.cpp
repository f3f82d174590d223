// orvhost, the reference host: loads the library the way an add-in does and drives its subsystems
// from the command line.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "HostCommand.h"

namespace {

void PrintUsage() {
    std::printf("usage: orvhost [COMMAND [ARGUMENTS...]]\ncommands:\n");
    auto commands = orvhost::Commands();
    std::sort(commands.begin(), commands.end(),
              [](const auto& a, const auto& b) { return std::strcmp(a.name, b.name) < 0; });
    for (const auto& command : commands)
        std::printf("  %s\n", command.usage);
}

// The host keeps its registry beside itself unless told otherwise, so that trying it out never
// touches the user's or the machine's settings.
void UseEmbeddedRegistryByDefault(const char* program) {
    if (std::getenv("ORV_REGISTRY_DIR"))
        return;
    const auto folder = std::filesystem::absolute(program).parent_path() / "registry";
    setenv("ORV_REGISTRY_DIR", folder.c_str(), 1);
}

} // namespace

int main(int argc, char** argv) {
    UseEmbeddedRegistryByDefault(argv[0]);
    const std::string name = argc > 1 ? argv[1] : "version";
    if (name == "help" || name == "--help" || name == "-h") {
        PrintUsage();
        return 0;
    }
    const auto& commands = orvhost::Commands();
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&](const auto& command) { return name == command.name; });
    if (found == commands.end()) {
        std::fprintf(stderr, "orvhost: unknown command '%s' (try 'orvhost help')\n", name.c_str());
        return 2;
    }
    return found->run(orvhost::Arguments(argv + std::min(argc, 2), argv + argc));
}
