#include "Transcript.h"

#include "support/TempRegistry.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <regex>
#include <sstream>

#include "port/TextConversion.h"

namespace {

std::vector<std::string> SplitLines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

// The argument as a shell would need it, except for backslashes, which every key name has.
std::string Quoted(const std::string& arg) {
    if (!arg.empty() && arg.find_first_of(" '\";&|<>*?$%") == std::string::npos)
        return arg;
    return "'" + arg + "'";
}

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
    if (from.empty())
        return;
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

std::string UserName() {
    const passwd* entry = getpwuid(geteuid());
    return entry ? entry->pw_name : "";
}

// A line diff by longest common subsequence: "-" golden only, "+" actual only, unchanged lines
// shown only next to a change.
std::string LineDiff(const std::vector<std::string>& expected,
                     const std::vector<std::string>& actual) {
    const std::size_t n = expected.size(), m = actual.size();
    std::vector<std::vector<int>> common(n + 1, std::vector<int>(m + 1, 0));
    for (std::size_t i = n; i-- > 0;)
        for (std::size_t j = m; j-- > 0;)
            common[i][j] = expected[i] == actual[j] ? common[i + 1][j + 1] + 1
                                                    : std::max(common[i + 1][j], common[i][j + 1]);
    std::vector<std::pair<char, std::string>> edits;
    std::size_t i = 0, j = 0;
    while (i < n || j < m) {
        if (i < n && j < m && expected[i] == actual[j]) {
            edits.emplace_back(' ', expected[i++]);
            ++j;
        } else if (i < n && (j == m || common[i + 1][j] >= common[i][j + 1])) {
            edits.emplace_back('-', expected[i++]);
        } else {
            edits.emplace_back('+', actual[j++]);
        }
    }
    constexpr std::size_t kContext = 2;
    std::string diff;
    bool skipped = false;
    for (std::size_t k = 0; k < edits.size(); ++k) {
        const auto near = [&](std::size_t from, std::size_t to) {
            for (std::size_t x = from; x < std::min(to, edits.size()); ++x)
                if (edits[x].first != ' ')
                    return true;
            return false;
        };
        if (edits[k].first == ' ' && !near(k > kContext ? k - kContext : 0, k + kContext + 1)) {
            if (!skipped)
                diff += "   ...\n";
            skipped = true;
            continue;
        }
        skipped = false;
        diff += std::string(1, edits[k].first) + "  " + edits[k].second + "\n";
    }
    return diff;
}

} // namespace

std::string MaskVariableParts(const std::string& text, const std::string& folder) {
    std::string masked = text;
    ReplaceAll(masked, folder, "<TMP>");
    ReplaceAll(masked, ORV_BINARY_DIR, "<BUILD>");
    ReplaceAll(masked, ORV_SOURCE_DIR, "<SRC>");

    // User-space addresses as this platform prints them: 16 upper-case digits, or %p's form.
    static const std::regex address(R"(\b0000[0-9A-F]{12}\b|\b0x[0-9a-f]{12}\b)");
    std::map<std::string, int> numbers;
    std::string numbered;
    auto last = masked.cbegin();
    for (std::sregex_iterator it(masked.begin(), masked.end(), address), end; it != end; ++it) {
        const auto inserted = numbers.emplace(it->str(), static_cast<int>(numbers.size()) + 1);
        numbered.append(last, (*it)[0].first);
        numbered += "<ADDR" + std::to_string(inserted.first->second) + ">";
        last = (*it)[0].second;
    }
    numbered.append(last, masked.cend());

    static const std::regex date(R"(\b\d{2}/\d{2}/\d{4}\b)");
    static const std::regex time(R"(\b\d{2}:\d{2}(:\d{2})?\b)");
    numbered = std::regex_replace(numbered, date, "<DATE>");
    numbered = std::regex_replace(numbered, time, "<TIME>");
    const std::string user = UserName();
    if (!user.empty()) {
        const std::regex atLineEnd("([ :])" + user + "$", std::regex::multiline);
        numbered = std::regex_replace(numbered, atLineEnd, "$1<USER>");
    }
    return numbered;
}

Transcript::Transcript(std::string folder) : m_folder(std::move(folder)) {}

void Transcript::AppendOutput(const char* label, std::string text, bool unordered) {
    const bool newlineAtEnd = text.empty() || text.back() == '\n';
    if (unordered) {
        std::vector<std::string> lines = SplitLines(text);
        std::sort(lines.begin(), lines.end());
        text.clear();
        for (const auto& line : lines)
            text += line + "\n";
    }
    if (label && !text.empty())
        m_text += std::string("[") + label + "]\n";
    m_text += text;
    if (!newlineAtEnd)
        m_text += "\n[no new line at the end]\n";
}

ProcessResult Transcript::Run(const std::string& program, const std::vector<std::string>& args,
                              const RunOptions& options) {
    m_text += "$ " + program;
    for (const auto& arg : args)
        m_text += " " + MaskVariableParts(Quoted(arg), m_folder);
    m_text += "\n";
    std::vector<std::string> variables;
    if (!options.registry.empty()) {
        m_text += "[registry: " + options.registry + "]\n";
        variables.push_back("ORV_REGISTRY_DIR=" + m_folder + "/" + options.registry);
    }
    const ProcessResult result =
        RunProgram(ORV_BINARY_DIR "/" + program, args, m_folder, variables);
    if (options.unordered)
        m_text += "[lines sorted: worker threads print in any order]\n";
    AppendOutput(nullptr, MaskVariableParts(result.out, m_folder), options.unordered);
    std::string err;
    int dropped = 0;
    for (const auto& line : SplitLines(result.err)) {
        const auto& prefix = options.dropErrorLinesStartingWith;
        if (!prefix.empty() && line.rfind(prefix, 0) == 0)
            ++dropped;
        else
            err += line + "\n";
    }
    if (!options.dropErrorLinesStartingWith.empty())
        m_text += "[stderr: " + std::string(dropped ? "some" : "no") + " lines starting with '" +
                  options.dropErrorLinesStartingWith + "' left out]\n";
    if (options.dropErrorLinesStartingWith.empty())
        err = result.err;
    AppendOutput("stderr", MaskVariableParts(err, m_folder), options.unordered);
    m_text += "[exit " + std::to_string(result.status) + "]\n\n";
    return result;
}

void Transcript::Note(const std::string& text) {
    m_text += "# " + text + "\n";
}

void Transcript::ShowFile(const std::string& name) {
    std::string bytes = ReadFileBytes(m_folder + "/" + name);
    std::string shown = bytes;
    const char* form = "bytes";
    if (bytes.size() >= 2 && bytes[0] == '\xFF' && bytes[1] == '\xFE') {
        std::u16string units((bytes.size() - 2) / 2, u'\0');
        for (std::size_t i = 0; i < units.size(); ++i)
            units[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 + 2 * i]) |
                                             static_cast<unsigned char>(bytes[3 + 2 * i]) << 8);
        shown = port::WideToNarrow(port::FromUtf16(units));
        form = "UTF-16LE";
    }
    shown = MaskVariableParts(shown, m_folder);
    ReplaceAll(shown, "\r\n", "\\r\n");
    m_text += "--- " + name + " (" + form + ", " + std::to_string(bytes.size()) + " bytes)\n";
    m_text += shown;
    if (!shown.empty() && shown.back() != '\n')
        m_text += "\n[no new line at the end]\n";
    m_text += "---\n\n";
}

void ExpectMatchesGolden(const std::string& name, const std::string& text) {
    const std::string path = ORV_SOURCE_DIR "/tests/host/golden/" + name + ".txt";
    if (std::getenv("ORV_UPDATE_GOLDEN")) {
        WriteFileBytes(path, text);
        ADD_FAILURE() << "wrote " << path << ": read it and check every line before keeping it";
        return;
    }
    const std::string golden = ReadFileBytes(path);
    if (golden == text)
        return;
    ADD_FAILURE() << "the transcript differs from " << path << " (- golden, + this run):\n"
                  << LineDiff(SplitLines(golden), SplitLines(text));
}
