// Shared pieces of the node tests: archive bytes through memory, and a dump captured as text.
#pragma once

#include <cstdio>
#include <string>

#include "tests/settings/ArchiveBytes.h"
#include "tests/settings/SettingsTestSupport.h"

// Runs `load`, which must end in an archive exception; answers its cause (-1 when none came).
template <class Load> int ArchiveFault(Load load) {
    try {
        load();
    } catch (CArchiveException* e) {
        const int cause = e->m_cause;
        e->Delete();
        return cause;
    }
    return -1;
}

// What `dump` writes into a FILE*, read back as UTF-8 text.
template <class Dump> std::string CaptureDump(Dump dump) {
    FILE* file = std::tmpfile();
    dump(file);
    std::fflush(file);
    std::string text;
    std::rewind(file);
    for (int c; (c = std::fgetc(file)) != EOF;)
        text.push_back(static_cast<char>(c));
    std::fclose(file);
    return text;
}

// The form the dumps give an address: 16 upper-case hex digits, as MSVC prints %p.
inline std::string PointerText(const void* p) {
    char text[32];
    std::snprintf(text, sizeof text, "%016llX",
                  static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(p)));
    return text;
}

// "\n" + 28 "=" + " <name> <which> " + 32 "=" + "\n".
inline std::string Banner(const std::string& name, const std::string& which) {
    return "\n" + std::string(28, '=') + " " + name + " " + which + " " + std::string(32, '=') +
           "\n";
}
