#include "support/DumpCapture.h"

#include <cstdint>

std::string CaptureDump(const std::function<void(FILE*)>& dump) {
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

std::string PointerText(const void* p) {
    char text[32];
    std::snprintf(text, sizeof text, "%016llX",
                  static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(p)));
    return text;
}

std::string Banner(const std::string& name, const std::string& which) {
    return "\n" + std::string(28, '=') + " " + name + " " + which + " " + std::string(32, '=') +
           "\n";
}
