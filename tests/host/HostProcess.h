// Runs one of the project's programs as a child process in a given folder and collects what it
// wrote to standard output and standard error, and how it ended.
#pragma once

#include <string>
#include <vector>

struct ProcessResult {
    int status = -1; // the exit status, or 128 + the signal that ended it
    std::string out;
    std::string err;
};

// Runs program with args in folder, with the test's own environment where `variables`
// ("NAME=VALUE") do not replace it. Output goes through files in folder, so a child that writes
// much never blocks.
ProcessResult RunProgram(const std::string& program, const std::vector<std::string>& args,
                         const std::string& folder, const std::vector<std::string>& variables = {});
