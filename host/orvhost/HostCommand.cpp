#include "HostCommand.h"

namespace orvhost {

namespace {
std::vector<HostCommand>& Registry() {
    static std::vector<HostCommand> commands;
    return commands;
}
} // namespace

const std::vector<HostCommand>& Commands() {
    return Registry();
}

CommandRegistrar::CommandRegistrar(const HostCommand& command) {
    Registry().push_back(command);
}

} // namespace orvhost
