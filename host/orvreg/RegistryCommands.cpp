#include "RegistryCommands.h"

#include "port/src/registry/RegFile.h"
#include "port/src/registry/RegTransfer.h"

#include "port/TextConversion.h"
#include <windows.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <cwctype>
#include <filesystem>
#include <memory>
#include <optional>

namespace orvreg {
namespace {

using port::WideToNarrow;
using port::registry::Bytes;
using port::registry::RegFileError;
using port::registry::RegFileKey;
using port::registry::RegFileValue;

struct Options {
    std::optional<std::wstring> value; // /v NAME, or /ve for the default value
    bool allValues = false;            // /va
    std::wstring type = L"REG_SZ";     // /t
    std::wstring data;                 // /d
    std::wstring separator = L"\\0";   // /s
    bool force = false;                // /f: overwrite an existing value without asking
    bool overwrite = false;            // /y: overwrite an existing file without asking
};

[[noreturn]] void Fail(const std::string& message) {
    throw RegFileError(message);
}

std::string StatusText(LSTATUS status) {
    switch (status) {
    case ERROR_FILE_NOT_FOUND:
        return "the key or value was not found";
    case ERROR_ACCESS_DENIED:
        return "access is denied";
    case ERROR_BADDB:
        return "the registry database is damaged";
    case ERROR_KEY_DELETED:
        return "the key has been deleted";
    default:
        return "error " + std::to_string(status);
    }
}

std::wstring Upper(std::wstring text) {
    for (auto& c : text)
        c = static_cast<wchar_t>(std::towupper(c));
    return text;
}

Options ParseOptions(const std::vector<std::wstring>& args, std::size_t first) {
    Options options;
    for (std::size_t i = first; i < args.size(); ++i) {
        const std::wstring option = Upper(args[i]);
        const auto next = [&]() -> const std::wstring& {
            if (i + 1 >= args.size())
                Fail("option " + WideToNarrow(args[i]) + " needs a value");
            return args[++i];
        };
        if (option == L"/V")
            options.value = next();
        else if (option == L"/VE")
            options.value = L"";
        else if (option == L"/VA")
            options.allValues = true;
        else if (option == L"/T")
            options.type = Upper(next());
        else if (option == L"/D")
            options.data = next();
        else if (option == L"/S")
            options.separator = next();
        else if (option == L"/F")
            options.force = true;
        else if (option == L"/Y")
            options.overwrite = true;
        else
            Fail("unknown option " + WideToNarrow(args[i]));
    }
    return options;
}

// Closes a handle on leaving scope.
struct KeyCloser {
    void operator()(HKEY__* key) const { RegCloseKey(key); }
};
using KeyHandle = std::unique_ptr<HKEY__, KeyCloser>;

KeyHandle OpenKey(const std::wstring& name, REGSAM access) {
    std::wstring path;
    const HKEY root = port::registry::ParseKeyName(name, path);
    HKEY key = nullptr;
    if (const LSTATUS status = RegOpenKeyExW(root, path.c_str(), 0, access, &key))
        Fail("cannot open " + WideToNarrow(name) + ": " + StatusText(status));
    return KeyHandle(key);
}

unsigned long long ParseNumber(const std::wstring& text, unsigned long long max) {
    const std::string narrow = WideToNarrow(text);
    char* end = nullptr;
    errno = 0;
    const unsigned long long number = std::strtoull(narrow.c_str(), &end, 0);
    if (narrow.empty() || narrow[0] == '-' || *end != '\0' || errno == ERANGE || number > max)
        Fail("'" + narrow + "' is not a number in range for this type");
    return number;
}

Bytes LittleEndian(unsigned long long number, std::size_t size) {
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<std::uint8_t>(number >> (8 * i));
    return bytes;
}

Bytes HexString(const std::wstring& text) {
    if (text.size() % 2 != 0)
        Fail("binary data must be an even number of hexadecimal digits");
    Bytes bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const std::string pair = WideToNarrow(text.substr(i, 2));
        if (!std::isxdigit(static_cast<unsigned char>(pair[0])) ||
            !std::isxdigit(static_cast<unsigned char>(pair[1])))
            Fail("binary data must be hexadecimal digits");
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(pair, nullptr, 16)));
    }
    return bytes;
}

// The type and stored data that /t and /d ask for.
std::pair<DWORD, Bytes> ValueData(const Options& options) {
    const std::wstring& type = options.type;
    if (type == L"REG_SZ" || type == L"REG_EXPAND_SZ")
        return {type == L"REG_SZ" ? REG_SZ : REG_EXPAND_SZ,
                port::registry::Utf16Bytes(options.data + L'\0')};
    if (type == L"REG_MULTI_SZ") {
        std::wstring text;
        std::size_t start = 0;
        while (start < options.data.size()) {
            const std::size_t end =
                std::min(options.data.find(options.separator, start), options.data.size());
            text += options.data.substr(start, end - start) + L'\0';
            start = end + options.separator.size();
        }
        return {REG_MULTI_SZ, port::registry::Utf16Bytes(text + L'\0')};
    }
    if (type == L"REG_DWORD")
        return {REG_DWORD, LittleEndian(ParseNumber(options.data, 0xFFFFFFFFull), 4)};
    if (type == L"REG_QWORD")
        return {REG_QWORD, LittleEndian(ParseNumber(options.data, ~0ull), 8)};
    if (type == L"REG_BINARY" || type == L"REG_NONE")
        return {type == L"REG_BINARY" ? REG_BINARY : REG_NONE, HexString(options.data)};
    Fail("unknown type " + WideToNarrow(type) +
         " (known: REG_SZ, REG_EXPAND_SZ, REG_MULTI_SZ, REG_DWORD, REG_QWORD, REG_BINARY, "
         "REG_NONE)");
}

const char* TypeName(DWORD type) {
    switch (type) {
    case REG_NONE:
        return "REG_NONE";
    case REG_SZ:
        return "REG_SZ";
    case REG_EXPAND_SZ:
        return "REG_EXPAND_SZ";
    case REG_BINARY:
        return "REG_BINARY";
    case REG_DWORD:
        return "REG_DWORD";
    case REG_MULTI_SZ:
        return "REG_MULTI_SZ";
    case REG_QWORD:
        return "REG_QWORD";
    default:
        return "REG_UNKNOWN";
    }
}

// Data as reg.exe shows it; text types arrive as wchar_t units.
std::string Render(DWORD type, const Bytes& data) {
    char buffer[32];
    if (port::registry::IsTextType(type)) {
        std::wstring text(data.size() / sizeof(wchar_t), L'\0');
        if (!text.empty())
            std::memcpy(text.data(), data.data(), text.size() * sizeof(wchar_t));
        while (!text.empty() && text.back() == L'\0')
            text.pop_back();
        std::string shown;
        for (wchar_t c : text)
            shown += c == L'\0' ? std::string("\\0") : WideToNarrow(std::wstring(1, c));
        return shown;
    }
    if ((type == REG_DWORD && data.size() == 4) || (type == REG_QWORD && data.size() == 8)) {
        unsigned long long number = 0;
        for (std::size_t i = data.size(); i-- > 0;)
            number = number << 8 | data[i];
        std::snprintf(buffer, sizeof buffer, "0x%llx", number);
        return buffer;
    }
    std::string hex;
    for (auto byte : data) {
        std::snprintf(buffer, sizeof buffer, "%02X", byte);
        hex += buffer;
    }
    return hex;
}

void PrintValue(const std::wstring& name, DWORD type, const Bytes& data) {
    std::printf("    %s    %s    %s\n", name.empty() ? "(Default)" : WideToNarrow(name).c_str(),
                TypeName(type), Render(type, data).c_str());
}

int Query(const std::wstring& name, const Options& options) {
    const KeyHandle key = OpenKey(name, KEY_READ);
    std::printf("\n%s\n", WideToNarrow(name).c_str());
    if (options.value) {
        DWORD type = 0, size = 0;
        LSTATUS status =
            RegQueryValueExW(key.get(), options.value->c_str(), nullptr, &type, nullptr, &size);
        Bytes data(size);
        if (status == ERROR_SUCCESS)
            status = RegQueryValueExW(key.get(), options.value->c_str(), nullptr, &type,
                                      data.data(), &size);
        if (status != ERROR_SUCCESS)
            Fail("cannot read value '" + WideToNarrow(*options.value) + "' of " +
                 WideToNarrow(name) + ": " + StatusText(status));
        data.resize(size);
        PrintValue(*options.value, type, data);
        return 0;
    }
    DWORD maxName = 0, maxData = 0, maxSubkey = 0;
    RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, nullptr, &maxSubkey, nullptr, nullptr,
                     &maxName, &maxData, nullptr, nullptr);
    for (DWORD index = 0;; ++index) {
        std::wstring valueName(maxName + 1, L'\0');
        DWORD nameLength = maxName + 1, type = 0, size = maxData;
        Bytes data(maxData);
        if (RegEnumValueW(key.get(), index, valueName.data(), &nameLength, nullptr, &type,
                          data.data(), &size) != ERROR_SUCCESS)
            break;
        valueName.resize(nameLength);
        data.resize(size);
        PrintValue(valueName, type, data);
    }
    std::printf("\n");
    for (DWORD index = 0;; ++index) {
        std::wstring subkey(maxSubkey + 1, L'\0');
        DWORD length = maxSubkey + 1;
        if (RegEnumKeyExW(key.get(), index, subkey.data(), &length, nullptr, nullptr, nullptr,
                          nullptr) != ERROR_SUCCESS)
            break;
        subkey.resize(length);
        std::printf("%s\\%s\n", WideToNarrow(name).c_str(), WideToNarrow(subkey).c_str());
    }
    return 0;
}

// reg.exe asks before it overwrites; orvreg never asks, so without /f it answers as reg.exe does
// when the question goes unanswered.
void RefuseToOverwriteValue(const std::wstring& name, const std::wstring& value) {
    std::wstring path;
    const HKEY root = port::registry::ParseKeyName(name, path);
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return;
    const bool exists =
        RegQueryValueExW(key, value.c_str(), nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
    RegCloseKey(key);
    if (exists)
        Fail("value " + (value.empty() ? std::string("(Default)") : WideToNarrow(value)) +
             " exists in " + WideToNarrow(name) +
             " and cannot be overwritten without /f; the operation was cancelled");
}

int Add(const std::wstring& name, const Options& options) {
    RegFileKey key;
    key.root = port::registry::ParseKeyName(name, key.path);
    if (options.value) {
        auto [type, data] = ValueData(options);
        if (!options.force)
            RefuseToOverwriteValue(name, *options.value);
        key.values.push_back(RegFileValue{*options.value, false, type, std::move(data)});
    }
    port::registry::ImportKeys({key});
    std::printf("The operation completed successfully.\n");
    return 0;
}

int Delete(const std::wstring& name, const Options& options) {
    RegFileKey key;
    key.root = port::registry::ParseKeyName(name, key.path);
    const KeyHandle handle = OpenKey(name, KEY_READ);
    if (options.value) {
        DWORD type = 0;
        if (RegQueryValueExW(handle.get(), options.value->c_str(), nullptr, &type, nullptr,
                             nullptr) != ERROR_SUCCESS)
            Fail("value '" + WideToNarrow(*options.value) + "' not found in " + WideToNarrow(name));
        key.values.push_back(RegFileValue{*options.value, true, 0, {}});
    } else if (options.allValues) {
        // The tree is kept in a variable: a range-for over a member of a temporary would read
        // freed memory.
        const auto tree = port::registry::ExportTree(key.root, key.path);
        for (const auto& value : tree.front().values)
            key.values.push_back(RegFileValue{value.name, true, 0, {}});
    } else {
        if (key.path.empty())
            Fail("a root key can't be deleted: " + WideToNarrow(name));
        key.remove = true;
    }
    port::registry::ImportKeys({key});
    std::printf("The operation completed successfully.\n");
    return 0;
}

int Export(const std::wstring& name, const std::wstring& file, const Options& options) {
    std::wstring path;
    const HKEY root = port::registry::ParseKeyName(name, path);
    const std::string text = port::registry::FormatRegFile(port::registry::ExportTree(root, path));
    const std::string fileName = WideToNarrow(file);
    std::error_code ignored;
    if (!options.overwrite && std::filesystem::exists(fileName, ignored))
        Fail("file " + fileName +
             " exists and cannot be overwritten without /y; the operation was cancelled");
    std::FILE* out = std::fopen(fileName.c_str(), "wb");
    if (!out)
        Fail("cannot write " + fileName + ": " + std::strerror(errno));
    const bool written = std::fwrite(text.data(), 1, text.size(), out) == text.size();
    if (std::fclose(out) != 0 || !written)
        Fail("cannot write " + fileName + ": " + std::strerror(errno));
    std::printf("The operation completed successfully.\n");
    return 0;
}

int Import(const std::wstring& file) {
    const std::string fileName = WideToNarrow(file);
    std::FILE* in = std::fopen(fileName.c_str(), "rb");
    if (!in)
        Fail("cannot read " + fileName + ": " + std::strerror(errno));
    std::string bytes;
    char buffer[65536];
    while (const std::size_t got = std::fread(buffer, 1, sizeof buffer, in))
        bytes.append(buffer, got);
    const bool failed = std::ferror(in) != 0;
    std::fclose(in);
    if (failed)
        Fail("cannot read " + fileName);
    std::vector<RegFileKey> keys;
    try {
        keys = port::registry::ParseRegFile(bytes);
    } catch (const RegFileError& error) {
        Fail(fileName + ": " + error.what());
    }
    port::registry::ImportKeys(keys);
    std::printf("The operation completed successfully.\n");
    return 0;
}

const char* const kUsage = "usage: orvreg query KEY [/v NAME | /ve] | add KEY [/v NAME | /ve] "
                           "[/t TYPE] [/d DATA] [/f] | delete KEY [/v NAME | /ve | /va] [/f] | "
                           "export KEY FILE [/y] | import FILE";

} // namespace

int Run(const std::vector<std::wstring>& args) {
    if (args.size() < 2)
        Fail(kUsage);
    const std::wstring command = Upper(args[0]);
    if (command == L"QUERY")
        return Query(args[1], ParseOptions(args, 2));
    if (command == L"ADD")
        return Add(args[1], ParseOptions(args, 2));
    if (command == L"DELETE")
        return Delete(args[1], ParseOptions(args, 2));
    if (command == L"EXPORT" && args.size() >= 3)
        return Export(args[1], args[2], ParseOptions(args, 3));
    if (command == L"IMPORT" && args.size() == 2)
        return Import(args[1]);
    Fail(kUsage);
}

} // namespace orvreg
