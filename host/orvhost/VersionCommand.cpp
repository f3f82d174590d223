// `orvhost version`: the host's version and the runtime classes the library knows.
#include <afx.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "HostCommand.h"

namespace {

int RunVersion(const orvhost::Arguments&) {
    std::printf("orvhost %s\n", ORV_VERSION);
    std::vector<std::string> classes;
    AfxDoForAllClasses(
        [](const CRuntimeClass* runtimeClass, void* context) {
            static_cast<std::vector<std::string>*>(context)->push_back(
                runtimeClass->m_lpszClassName);
        },
        &classes);
    std::sort(classes.begin(), classes.end());
    std::printf("runtime classes (%zu):\n", classes.size());
    for (const auto& name : classes)
        std::printf("  %s\n", name.c_str());
    return 0;
}

const orvhost::CommandRegistrar
    registrar({"version", "version    print the version and the runtime classes", RunVersion});

} // namespace
