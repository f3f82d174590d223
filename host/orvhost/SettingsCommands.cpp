// `orvhost settings-archive`, `settings-load` and `settings-registry`: the host's settings tree
// travelling through a document archive and through the registry.
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "HostCallbacks.h"
#include "HostCommand.h"
#include "mfc/CArchive.h"
#include "mfc/CFile.h"

namespace {

enum class Kind { Int, Color, Double, LongDouble, String, Point, Rect, Time, IntArray };

struct Entry {
    const wchar_t* name;
    Kind kind;
};

// The values of MakeAppSettings, in the order they are printed.
const Entry kEntries[] = {
    {L"Units", Kind::Int},
    {L"GridColor", Kind::Color},
    {L"Tolerance", Kind::Double},
    {L"Stepover", Kind::LongDouble},
    {L"PostName", Kind::String},
    {L"WindowPos", Kind::Point},
    {L"WindowRect", Kind::Rect},
    {L"LastRun", Kind::Time},
    {L"RecentTools", Kind::IntArray},
    {L"OpenOperationDialogToLastPage", Kind::Int},
    {L"CollapseOperationOnPreview", Kind::Int},
};

void PrintValues(OrvSettingsKey& tree) {
    for (const Entry& entry : kEntries) {
        const CStringA name(entry.name);
        std::printf("  %-30s ", name.GetString());
        switch (entry.kind) {
        case Kind::Int: {
            int value = 0;
            tree.GetValue(entry.name, value);
            std::printf("%d\n", value);
            break;
        }
        case Kind::Color: {
            unsigned long value = 0;
            tree.GetValue(entry.name, value);
            std::printf("0x%08lX\n", value);
            break;
        }
        case Kind::Double: {
            double value = 0;
            tree.GetValue(entry.name, value);
            std::printf("%.17g\n", value);
            break;
        }
        case Kind::LongDouble: {
            long double value = 0;
            tree.GetValue(entry.name, value);
            std::printf("%.17Lg\n", value);
            break;
        }
        case Kind::String: {
            CString value;
            tree.GetValue(entry.name, value);
            std::printf("\"%s\"\n", CStringA(value).GetString());
            break;
        }
        case Kind::Point: {
            CPoint value;
            tree.GetValue(entry.name, value);
            std::printf("(%d, %d)\n", value.x, value.y);
            break;
        }
        case Kind::Rect: {
            CRect value;
            tree.GetValue(entry.name, value);
            std::printf("(%d, %d, %d, %d)\n", value.left, value.top, value.right, value.bottom);
            break;
        }
        case Kind::Time: {
            CTime value;
            tree.GetValue(entry.name, value);
            std::printf("%lld\n", static_cast<long long>(value.GetTime()));
            break;
        }
        case Kind::IntArray: {
            CArray<int, int> value;
            tree.GetValue(entry.name, value);
            std::printf("[");
            for (INT_PTR i = 0; i < value.GetSize(); ++i)
                std::printf(i ? ", %d" : "%d", value[i]);
            std::printf("]\n");
            break;
        }
        }
    }
}

// The library started for one command and stopped on every way out of it.
struct LibrarySession {
    LibrarySession() { orvhost::StartLibrary(); }
    ~LibrarySession() { orvhost::StopLibrary(); }
    LibrarySession(const LibrarySession&) = delete;
    LibrarySession& operator=(const LibrarySession&) = delete;
};

using Assignments = std::vector<std::pair<CString, int>>;

bool IsIntegerSetting(const CString& name) {
    return std::any_of(std::begin(kEntries), std::end(kEntries), [&](const Entry& entry) {
        return entry.kind == Kind::Int && name == entry.name;
    });
}

// Reads NAME=INTEGER arguments, all of them before anything is changed; answers false (with a
// message naming the first bad one) when one is not an integer setting or not a 32-bit integer.
bool ParseAssignments(const orvhost::Arguments& arguments, std::size_t first,
                      Assignments& assignments) {
    for (std::size_t i = first; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const std::size_t equals = argument.find('=');
        const CString name(argument.substr(0, equals).c_str());
        if (equals == std::string::npos || !IsIntegerSetting(name)) {
            std::fprintf(stderr,
                         "orvhost: '%s' is not NAME=INTEGER for an integer setting (Units, "
                         "OpenOperationDialogToLastPage, CollapseOperationOnPreview)\n",
                         argument.c_str());
            return false;
        }
        const char* text = argument.c_str() + equals + 1;
        char* end = nullptr;
        errno = 0;
        const long long value = std::strtoll(text, &end, 10);
        if (end == text || *end != '\0' || errno == ERANGE ||
            value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max()) {
            std::fprintf(stderr, "orvhost: '%s' is not an integer from %d to %d\n",
                         argument.c_str(), std::numeric_limits<int>::min(),
                         std::numeric_limits<int>::max());
            return false;
        }
        assignments.emplace_back(name, static_cast<int>(value));
    }
    return true;
}

void Apply(OrvSettingsKey& tree, const Assignments& assignments) {
    for (const auto& [name, value] : assignments)
        tree.SetValue(name, value);
}

const char* CauseText(int cause) {
    static const char* const texts[] = {"none",        "generic error", "read-only",
                                        "end of file", "write-only",    "bad index",
                                        "bad class",   "bad schema",    "buffer full"};
    return cause >= 0 && cause < 9 ? texts[cause] : "unknown";
}

// Loads `path` into `tree` (which holds its defaults); false with a message on failure.
bool LoadTree(OrvSettingsKey& tree, const std::string& path) {
    try {
        CFile file(CString(path.c_str()), CFile::modeRead | CFile::typeBinary);
        CArchive ar(&file, CArchive::load);
        tree.Serialize(ar);
        ar.Close();
        return true;
    } catch (CArchiveException* e) {
        std::fprintf(stderr, "orvhost: %s is not a settings archive (%s); nothing was loaded\n",
                     path.c_str(), CauseText(e->m_cause));
        e->Delete();
    } catch (CFileException* e) {
        std::fprintf(stderr, "orvhost: cannot read %s\n", path.c_str());
        e->Delete();
    }
    return false;
}

int RunSettingsArchive(const orvhost::Arguments& arguments) {
    if (arguments.empty()) {
        std::fprintf(stderr, "usage: orvhost settings-archive FILE [NAME=INTEGER...]\n");
        return 2;
    }
    Assignments assignments;
    if (!ParseAssignments(arguments, 1, assignments))
        return 2;
    const LibrarySession session;
    const std::string& path = arguments[0];
    auto saved = orvhost::MakeAppSettings();
    Apply(*saved, assignments);
    try {
        CFile file(CString(path.c_str()), CFile::modeCreate | CFile::modeWrite | CFile::typeBinary);
        CArchive ar(&file, CArchive::store);
        saved->Serialize(ar);
        ar.Close();
    } catch (CException* e) {
        std::fprintf(stderr, "orvhost: cannot write %s\n", path.c_str());
        e->Delete();
        return 1;
    }
    std::printf("saved the settings tree to %s\n", path.c_str());

    auto loaded = orvhost::MakeAppSettings();
    std::printf("a fresh tree holds its defaults:\n");
    PrintValues(*loaded);
    if (!LoadTree(*loaded, path))
        return 1;
    std::printf("after loading %s (the archive beats memory):\n", path.c_str());
    PrintValues(*loaded);
    std::fflush(stdout);
    loaded->DumpData(stdout);
    std::printf("\n");
    return 0;
}

int RunSettingsLoad(const orvhost::Arguments& arguments) {
    if (arguments.size() != 1) {
        std::fprintf(stderr, "usage: orvhost settings-load FILE\n");
        return 2;
    }
    const LibrarySession session;
    auto tree = orvhost::MakeAppSettings();
    if (!LoadTree(*tree, arguments[0]))
        return 1;
    PrintValues(*tree);
    std::fflush(stdout);
    tree->DumpData(stdout);
    std::printf("\n");
    return 0;
}

int RunSettingsRegistry(const orvhost::Arguments& arguments) {
    Assignments assignments;
    if (!ParseAssignments(arguments, 0, assignments))
        return 2;
    const LibrarySession session;
    OrvSettingsKey& tree = orvhost::AppSettings();
    std::printf("compiled defaults:\n");
    PrintValues(tree);
    if (tree.RestoreValuesFromRegistry()) {
        std::printf("restored from the registry:\n");
    } else {
        std::printf("the registry lacks some values (first run?): writing the defaults\n");
        if (!tree.SaveValuesToRegistry()) {
            std::fprintf(stderr, "orvhost: cannot write the settings to the registry\n");
            return 1;
        }
    }
    PrintValues(tree);
    if (assignments.empty())
        return 0;
    Apply(tree, assignments);
    if (!tree.SaveValuesToRegistry()) {
        std::fprintf(stderr, "orvhost: cannot write the settings to the registry\n");
        return 1;
    }
    std::printf("changed and saved:\n");
    PrintValues(tree);
    return 0;
}

const orvhost::CommandRegistrar archiveRegistrar(
    {"settings-archive",
     "settings-archive FILE [NAME=INTEGER...]   save the settings tree to an archive, load it "
     "into a fresh tree and dump it",
     RunSettingsArchive});
const orvhost::CommandRegistrar loadRegistrar(
    {"settings-load", "settings-load FILE   load a settings archive over the defaults and dump it",
     RunSettingsLoad});
const orvhost::CommandRegistrar registryRegistrar(
    {"settings-registry",
     "settings-registry [NAME=INTEGER...]   restore the settings from the registry (writing the "
     "defaults on a first run), change and save",
     RunSettingsRegistry});

} // namespace
