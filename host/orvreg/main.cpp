// orvreg: queries, sets, deletes, exports and imports the registry from the command line.
//
//   orvreg query KEY [/v NAME | /ve]
//   orvreg add KEY [/v NAME | /ve] [/t TYPE] [/s SEPARATOR] [/d DATA] [/f]
//   orvreg delete KEY [/v NAME | /ve | /va] [/f]
//   orvreg export KEY FILE [/y]
//   orvreg import FILE
//
// KEY starts with HKCU, HKLM, HKEY_CURRENT_USER or HKEY_LOCAL_MACHINE. An error is one line on
// standard error and exit status 1; the registry is then unchanged. orvreg never asks a question:
// where reg.exe would ask before overwriting, it refuses unless /f (a value) or /y (a file) says
// yes in advance.
#include "RegistryCommands.h"

#include "port/TextConversion.h"

#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
    std::vector<std::wstring> args;
    for (int i = 1; i < argc; ++i)
        args.push_back(port::NarrowToWide(argv[i]));
    try {
        return orvreg::Run(args);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orvreg: ERROR: %s\n", error.what());
    }
    return 1;
}
