// A transcript of program runs: each command line with what it wrote and how it ended, with the
// parts that change from run to run masked, compared with a golden copy kept in the tree.
#pragma once

#include <string>
#include <vector>

#include "HostProcess.h"

struct RunOptions {
    // Worker threads print in any order: the run's lines are shown sorted.
    bool unordered = false;
    // Lines of standard error that start with this are left out (and counted in the transcript).
    std::string dropErrorLinesStartingWith;
    // A registry folder of its own, below the transcript's folder, instead of the shared one.
    std::string registry;
};

class Transcript {
public:
    // folder: where the programs run and keep their registry; shown as <TMP>.
    explicit Transcript(std::string folder);

    // Runs build/<program> with args and records it. Answers the unmasked result.
    ProcessResult Run(const std::string& program, const std::vector<std::string>& args,
                      const RunOptions& options = {});
    // A comment line in the transcript.
    void Note(const std::string& text);
    // The contents of a file of the folder; UTF-16LE text (with its byte-order mark) is shown as
    // UTF-8 and line ends as they are.
    void ShowFile(const std::string& name);

    const std::string& Text() const { return m_text; }

private:
    void AppendOutput(const char* label, std::string text, bool unordered);

    std::string m_folder;
    std::string m_text;
};

// Replaces what differs between runs: the given folder (<TMP>), the source and build folders
// (<SRC>, <BUILD>), object addresses (<ADDR1>, <ADDR2>... numbered by first appearance, so equal
// addresses stay equal), dates (<DATE>), times of day and durations (<TIME>) and the user's name
// where it ends a line (<USER>).
std::string MaskVariableParts(const std::string& text, const std::string& folder);

// Compares text with tests/host/golden/<name>.txt. A mismatch fails the test with a line diff.
// With ORV_UPDATE_GOLDEN set in the environment the file is written instead and the test fails,
// so that the new transcript is read before it is kept.
void ExpectMatchesGolden(const std::string& name, const std::string& text);
