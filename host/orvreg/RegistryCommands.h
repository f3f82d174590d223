// The commands of orvreg.
#pragma once

#include <string>
#include <vector>

namespace orvreg {

// Runs one command line (without the program name) and answers the exit status. A bad request or
// a failure throws an exception whose message is the one-line error.
int Run(const std::vector<std::wstring>& args);

} // namespace orvreg
