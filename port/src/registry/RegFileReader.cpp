// Reads .reg files: regedit's version 5 format and the older REGEDIT4.
#include "RegFile.h"

#include "port/TextConversion.h"
#include "win/registry.h"

#include <cwctype>

namespace port::registry {
namespace {

std::wstring Decode(std::string_view bytes) {
    if (bytes.size() >= 2 && static_cast<unsigned char>(bytes[0]) == 0xFF &&
        static_cast<unsigned char>(bytes[1]) == 0xFE)
        return TextFromUtf16Bytes(Bytes(bytes.begin() + 2, bytes.end()));
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF")
        return NarrowToWide(bytes.substr(3));
    return FromCp1252(bytes);
}

std::wstring_view Trim(std::wstring_view text) {
    while (!text.empty() && std::iswspace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && std::iswspace(text.back()))
        text.remove_suffix(1);
    return text;
}

class Reader {
public:
    Reader(std::wstring_view text) {
        std::size_t start = 0;
        while (start < text.size()) {
            const std::size_t end = std::min(text.find(L'\n', start), text.size());
            std::wstring_view line = text.substr(start, end - start);
            if (!line.empty() && line.back() == L'\r')
                line.remove_suffix(1);
            m_lines.push_back(line);
            start = end + 1;
        }
    }

    std::vector<RegFileKey> Read() {
        std::size_t index = 0;
        while (index < m_lines.size() && Trim(m_lines[index]).empty())
            ++index;
        const std::wstring_view header = index < m_lines.size() ? Trim(m_lines[index]) : L"";
        if (header == L"REGEDIT4")
            m_ansi = true;
        else if (header != L"Windows Registry Editor Version 5.00")
            Fail(index, "not a registry file: the first line must be 'Windows Registry Editor "
                        "Version 5.00' or 'REGEDIT4'");
        for (++index; index < m_lines.size(); ++index) {
            const std::size_t first = index;
            std::wstring line(Trim(m_lines[index]));
            // Hex data goes on over lines that end in a backslash.
            while (!line.empty() && line.back() == L'\\' && line.front() != L'[' &&
                   index + 1 < m_lines.size()) {
                line.pop_back();
                line += Trim(m_lines[++index]);
            }
            if (line.empty() || line.front() == L';')
                continue;
            if (line.front() == L'[')
                ReadKey(first, line);
            else
                ReadValue(first, line);
        }
        return std::move(m_keys);
    }

private:
    [[noreturn]] static void Fail(std::size_t line, const std::string& what) {
        throw RegFileError("line " + std::to_string(line + 1) + ": " + what);
    }

    void ReadKey(std::size_t line, std::wstring_view text) {
        if (text.back() != L']')
            Fail(line, "a key line must end with ']'");
        text = text.substr(1, text.size() - 2);
        RegFileKey key;
        if (!text.empty() && text.front() == L'-') {
            key.remove = true;
            text.remove_prefix(1);
        }
        try {
            key.root = ParseKeyName(text, key.path);
        } catch (const RegFileError& error) {
            Fail(line, error.what());
        }
        if (key.remove && key.path.empty())
            Fail(line, "a root key can't be deleted");
        m_keys.push_back(std::move(key));
    }

    // A quoted string from text[pos] (the opening quote), with \\ and \" escapes.
    std::wstring ReadQuoted(std::size_t line, std::wstring_view text, std::size_t& pos) {
        std::wstring result;
        for (++pos; pos < text.size(); ++pos) {
            const wchar_t c = text[pos];
            if (c == L'"') {
                ++pos;
                return result;
            }
            if (c == L'\\') {
                if (pos + 1 >= text.size() || (text[pos + 1] != L'\\' && text[pos + 1] != L'"'))
                    Fail(line, "unknown escape in a quoted string (only \\\\ and \\\" are known)");
                ++pos;
            }
            result += text[pos];
        }
        Fail(line, "a quoted string has no closing quote");
    }

    void ReadValue(std::size_t line, std::wstring_view text) {
        if (m_keys.empty())
            Fail(line, "a value comes before any [key] line");
        if (m_keys.back().remove)
            Fail(line, "a value under a key that is being deleted");
        RegFileValue value;
        std::size_t pos = 0;
        if (text.front() == L'@')
            pos = 1;
        else if (text.front() == L'"')
            value.name = ReadQuoted(line, text, pos);
        else
            Fail(line, "a value line must start with '@' or a quoted name");
        const std::wstring_view rest = Trim(text.substr(pos));
        if (rest.empty() || rest.front() != L'=')
            Fail(line, "'=' expected after the value name");
        ReadData(line, Trim(rest.substr(1)), value);
        m_keys.back().values.push_back(std::move(value));
    }

    void ReadData(std::size_t line, std::wstring_view data, RegFileValue& value) {
        if (data == L"-") {
            value.remove = true;
        } else if (!data.empty() && data.front() == L'"') {
            std::size_t pos = 0;
            const std::wstring text = ReadQuoted(line, data, pos);
            if (!Trim(data.substr(pos)).empty())
                Fail(line, "text after the closing quote");
            value.type = REG_SZ;
            value.data = Utf16Bytes(text + L'\0');
        } else if (data.starts_with(L"dword:")) {
            const std::wstring_view digits = data.substr(6);
            if (digits.empty() || digits.size() > 8)
                Fail(line, "dword: takes 1 to 8 hexadecimal digits");
            const unsigned number = static_cast<unsigned>(Hex(line, digits));
            value.type = REG_DWORD;
            value.data = {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number >> 8),
                          static_cast<std::uint8_t>(number >> 16),
                          static_cast<std::uint8_t>(number >> 24)};
        } else if (data.starts_with(L"hex:")) {
            value.type = REG_BINARY;
            value.data = HexBytes(line, data.substr(4));
        } else if (data.starts_with(L"hex(")) {
            const std::size_t close = data.find(L"):");
            if (close == std::wstring_view::npos || close == 4 || close > 12)
                Fail(line, "hex(N): expected");
            value.type = static_cast<DWORD>(Hex(line, data.substr(4, close - 4)));
            value.data = HexBytes(line, data.substr(close + 2));
            // REGEDIT4 holds the text of string types in the ANSI code page.
            if (m_ansi && IsTextType(value.type))
                value.data =
                    Utf16Bytes(FromCp1252(std::string(value.data.begin(), value.data.end())));
        } else {
            Fail(line, "unknown value type (expected \"text\", dword:, hex: or hex(N):)");
        }
    }

    static unsigned long long Hex(std::size_t line, std::wstring_view digits) {
        unsigned long long number = 0;
        for (wchar_t c : digits) {
            if (!std::iswxdigit(c) || c > 0x7F)
                Fail(line, "bad hexadecimal number");
            number = number * 16 + static_cast<unsigned>(
                                       std::iswdigit(c) ? c - L'0' : std::towlower(c) - L'a' + 10);
        }
        return number;
    }

    static Bytes HexBytes(std::size_t line, std::wstring_view list) {
        Bytes bytes;
        list = Trim(list);
        std::size_t start = 0;
        while (start < list.size()) {
            const std::size_t end = std::min(list.find(L',', start), list.size());
            const std::wstring_view item = Trim(list.substr(start, end - start));
            if (item.empty() && end == list.size())
                break; // a trailing comma
            if (item.empty() || item.size() > 2)
                Fail(line, "hex data must be bytes of two hexadecimal digits separated by commas");
            bytes.push_back(static_cast<std::uint8_t>(Hex(line, item)));
            start = end + 1;
        }
        return bytes;
    }

    std::vector<std::wstring_view> m_lines;
    std::vector<RegFileKey> m_keys;
    bool m_ansi = false;
};

} // namespace

std::vector<RegFileKey> ParseRegFile(std::string_view bytes) {
    const std::wstring text = Decode(bytes);
    return Reader(text).Read();
}

} // namespace port::registry
