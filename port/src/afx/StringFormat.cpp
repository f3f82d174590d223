// The one printf engine of the port: MSVC's format conventions over the C library's conversions.
#include "mfc/StringFormat.h"

#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <type_traits>

#include "port/TextConversion.h"

namespace port {
namespace {

enum class Size { Default, Char, Short, Long, LongLong, Int32, Pointer, IntMax, LongDouble, Wide };

struct Directive {
    bool left = false;
    bool plus = false;
    bool space = false;
    bool alt = false;
    bool zero = false;
    int width = 0;
    int precision = -1; // none
    Size size = Size::Default;
    char conversion = 0;
};

// The C library's conversion of one value, by a narrow directive built from ours. Width and
// precision travel as '*' arguments.
template <typename V>
std::string CConvert(const Directive& directive, const char* length, V value) {
    std::string format = "%";
    if (directive.left)
        format += '-';
    if (directive.plus)
        format += '+';
    if (directive.space)
        format += ' ';
    if (directive.alt)
        format += '#';
    if (directive.zero)
        format += '0';
    format += '*';
    if (directive.precision >= 0)
        format += ".*";
    format += length;
    format += directive.conversion;
    const auto print = [&](char* buffer, std::size_t size) {
        return directive.precision >= 0
                   ? std::snprintf(buffer, size, format.c_str(), directive.width,
                                   directive.precision, value)
                   : std::snprintf(buffer, size, format.c_str(), directive.width, value);
    };
    const int length_needed = print(nullptr, 0);
    if (length_needed <= 0)
        return std::string();
    std::string text(static_cast<std::size_t>(length_needed), '\0');
    print(text.data(), text.size() + 1);
    return text;
}

// Infinity and NaN as the Universal CRT spells them.
std::string SpecialFloatText(const Directive& directive, double value) {
    std::string text;
    const bool negative = std::signbit(value);
    if (std::isinf(value)) {
        text = "inf";
    } else {
        const auto bits = std::bit_cast<std::uint64_t>(value);
        const bool quiet = (bits >> 51) & 1;
        const std::uint64_t payload = bits & ((std::uint64_t{1} << 51) - 1);
        if (!quiet)
            text = "nan(snan)";
        else if (negative && payload == 0)
            text = "nan(ind)"; // the indefinite NaN of 0/0 and friends
        else
            text = "nan";
    }
    if (negative)
        text.insert(0, 1, '-');
    else if (directive.plus)
        text.insert(0, 1, '+');
    else if (directive.space)
        text.insert(0, 1, ' ');
    if (directive.conversion >= 'A' && directive.conversion <= 'Z') {
        for (char& c : text)
            if (c >= 'a' && c <= 'z')
                c = static_cast<char>(c - 'a' + 'A');
    }
    const auto width = static_cast<std::size_t>(directive.width);
    if (text.size() < width)
        text.insert(directive.left ? text.size() : 0, width - text.size(), ' ');
    return text;
}

template <typename T> std::basic_string<T> FromNarrow(const std::string& text) {
    if constexpr (std::is_same_v<T, char>)
        return text;
    else
        return NarrowToWide(text);
}

template <typename T> std::basic_string<T> FromWide(std::wstring_view text) {
    if constexpr (std::is_same_v<T, wchar_t>)
        return std::wstring(text);
    else
        return WideToNarrow(text);
}

// Drops a UTF-8 sequence left incomplete at the end by a precision's cut.
void DropPartialCharacter(std::string& text) {
    std::size_t lead = text.size();
    while (lead > 0 && (static_cast<unsigned char>(text[lead - 1]) & 0xC0) == 0x80 &&
           text.size() - lead < 3)
        --lead;
    if (lead == 0)
        return;
    const auto byte = static_cast<unsigned char>(text[lead - 1]);
    const std::size_t needed = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
    if (text.size() - (lead - 1) < needed)
        text.resize(lead - 1);
}

template <typename T> class Formatter {
public:
    Formatter(std::basic_string<T>& out, va_list args) : m_out(out) { va_copy(m_args, args); }
    ~Formatter() { va_end(m_args); }
    Formatter(const Formatter&) = delete;
    Formatter& operator=(const Formatter&) = delete;

    int Run(const T* format) {
        if (!format)
            return -1;
        const std::size_t start = m_out.size();
        const T* p = format;
        while (*p) {
            if (*p != T('%')) {
                const T* literal = p;
                while (*p && *p != T('%'))
                    ++p;
                m_out.append(literal, p);
                continue;
            }
            ++p;
            if (*p == T('%')) {
                m_out += T('%');
                ++p;
                continue;
            }
            Directive directive;
            if (!Parse(p, directive) || !Convert(directive)) {
                m_out.resize(start);
                return -1;
            }
        }
        const std::size_t appended = m_out.size() - start;
        return appended > INT_MAX ? INT_MAX : static_cast<int>(appended);
    }

private:
    // Reads a decimal field; false when it overflows an int.
    static bool ReadNumber(const T*& p, int& value) {
        value = 0;
        while (*p >= T('0') && *p <= T('9')) {
            const int digit = static_cast<int>(*p - T('0'));
            if (value > (INT_MAX - digit) / 10)
                return false;
            value = value * 10 + digit;
            ++p;
        }
        return true;
    }

    bool Parse(const T*& p, Directive& directive) {
        for (;; ++p) {
            if (*p == T('-'))
                directive.left = true;
            else if (*p == T('+'))
                directive.plus = true;
            else if (*p == T(' '))
                directive.space = true;
            else if (*p == T('#'))
                directive.alt = true;
            else if (*p == T('0'))
                directive.zero = true;
            else
                break;
        }
        if (*p == T('*')) {
            ++p;
            const int width = va_arg(m_args, int);
            if (width < 0) {
                directive.left = true;
                directive.width = width == INT_MIN ? INT_MAX : -width;
            } else {
                directive.width = width;
            }
        } else if (!ReadNumber(p, directive.width)) {
            return false;
        }
        if (*p == T('.')) {
            ++p;
            if (*p == T('*')) {
                ++p;
                const int precision = va_arg(m_args, int);
                directive.precision = precision < 0 ? -1 : precision;
            } else if (!ReadNumber(p, directive.precision)) {
                return false;
            }
        }
        switch (*p) {
        case T('h'):
            directive.size = p[1] == T('h') ? Size::Char : Size::Short;
            p += directive.size == Size::Char ? 2 : 1;
            break;
        case T('l'):
            directive.size = p[1] == T('l') ? Size::LongLong : Size::Long;
            p += directive.size == Size::LongLong ? 2 : 1;
            break;
        case T('L'):
            directive.size = Size::LongDouble;
            ++p;
            break;
        case T('w'):
            directive.size = Size::Wide;
            ++p;
            break;
        case T('z'):
        case T('t'):
            directive.size = Size::Pointer;
            ++p;
            break;
        case T('j'):
            directive.size = Size::IntMax;
            ++p;
            break;
        case T('I'):
            if (p[1] == T('6') && p[2] == T('4')) {
                directive.size = Size::LongLong;
                p += 3;
            } else if (p[1] == T('3') && p[2] == T('2')) {
                directive.size = Size::Int32;
                p += 3;
            } else {
                directive.size = Size::Pointer;
                ++p;
            }
            break;
        default:
            break;
        }
        const T conversion = *p;
        if (conversion <= T(0) || conversion > T(0x7F))
            return false;
        directive.conversion = static_cast<char>(conversion);
        ++p;
        return true;
    }

    bool Convert(const Directive& directive) {
        switch (directive.conversion) {
        case 'd':
        case 'i':
            return Signed(directive);
        case 'u':
        case 'o':
        case 'x':
        case 'X':
            return Unsigned(directive);
        case 'c':
        case 'C':
            return Character(directive);
        case 's':
        case 'S':
            return String(directive);
        case 'p':
            return Pointer(directive);
        case 'e':
        case 'E':
        case 'f':
        case 'F':
        case 'g':
        case 'G':
        case 'a':
        case 'A':
            return Float(directive);
        default:
            return false; // %n among them: writing through an argument is never allowed
        }
    }

    bool Signed(const Directive& directive) {
        long long value = 0;
        switch (directive.size) {
        case Size::Default:
        case Size::Int32:
            value = va_arg(m_args, int);
            break;
        case Size::Char:
            value = static_cast<signed char>(va_arg(m_args, int));
            break;
        case Size::Short:
            value = static_cast<short>(va_arg(m_args, int));
            break;
        case Size::Long:
            // A Windows long is 32 bits: what it can hold is what gets printed.
            value = static_cast<std::int32_t>(va_arg(m_args, long));
            break;
        case Size::LongLong:
        case Size::LongDouble:
            value = va_arg(m_args, long long);
            break;
        case Size::Pointer:
            value = va_arg(m_args, std::ptrdiff_t);
            break;
        case Size::IntMax:
            value = va_arg(m_args, std::intmax_t);
            break;
        case Size::Wide:
            return false;
        }
        AppendNumber(CConvert(directive, "ll", value));
        return true;
    }

    bool Unsigned(const Directive& directive) {
        unsigned long long value = 0;
        switch (directive.size) {
        case Size::Default:
        case Size::Int32:
            value = va_arg(m_args, unsigned int);
            break;
        case Size::Char:
            value = static_cast<unsigned char>(va_arg(m_args, unsigned int));
            break;
        case Size::Short:
            value = static_cast<unsigned short>(va_arg(m_args, unsigned int));
            break;
        case Size::Long:
            value = static_cast<std::uint32_t>(va_arg(m_args, unsigned long));
            break;
        case Size::LongLong:
        case Size::LongDouble:
            value = va_arg(m_args, unsigned long long);
            break;
        case Size::Pointer:
            value = va_arg(m_args, std::size_t);
            break;
        case Size::IntMax:
            value = va_arg(m_args, std::uintmax_t);
            break;
        case Size::Wide:
            return false;
        }
        AppendNumber(CConvert(directive, "ll", value));
        return true;
    }

    bool Float(const Directive& directive) {
        // The Microsoft long double is a double, so both print as one.
        const double value = directive.size == Size::LongDouble
                                 ? static_cast<double>(va_arg(m_args, long double))
                                 : va_arg(m_args, double);
        if (!std::isfinite(value)) {
            AppendNumber(SpecialFloatText(directive, value));
            return true;
        }
        Directive c = directive;
        if ((c.conversion == 'a' || c.conversion == 'A') && c.precision < 0)
            c.precision = 13; // all the hex digits of a double's fraction
        AppendNumber(CConvert(c, "", value));
        return true;
    }

    bool Pointer(const Directive& directive) {
        const auto value = reinterpret_cast<std::uintptr_t>(va_arg(m_args, void*));
        char digits[17];
        std::snprintf(digits, sizeof digits, "%016llX", static_cast<unsigned long long>(value));
        Directive padding = directive;
        padding.zero = false;
        AppendPadded(padding, FromNarrow<T>(digits));
        return true;
    }

    // Whether a %s or %c argument is wide: h narrows, l and w widen, otherwise the lower-case
    // letter takes the format's own width and the upper-case letter the other one.
    bool WideArgument(const Directive& directive) const {
        if (directive.size == Size::Short)
            return false;
        if (directive.size == Size::Long || directive.size == Size::Wide)
            return true;
        const bool own = directive.conversion == 'c' || directive.conversion == 's';
        return own == std::is_same_v<T, wchar_t>;
    }

    bool Character(const Directive& directive) {
        if (directive.size != Size::Default && directive.size != Size::Short &&
            directive.size != Size::Long && directive.size != Size::Wide)
            return false;
        const int value = va_arg(m_args, int);
        std::basic_string<T> text;
        if (WideArgument(directive)) {
            const auto ch = static_cast<wchar_t>(value);
            text = FromWide<T>(std::wstring_view(&ch, 1));
        } else {
            const auto ch = static_cast<char>(value);
            text = FromNarrow<T>(std::string(1, ch));
        }
        AppendPadded(directive, text);
        return true;
    }

    bool String(const Directive& directive) {
        if (directive.size != Size::Default && directive.size != Size::Short &&
            directive.size != Size::Long && directive.size != Size::Wide)
            return false;
        std::basic_string<T> text;
        const std::size_t limit =
            directive.precision < 0 ? SIZE_MAX : std::size_t(directive.precision);
        // A bounded read: with a precision the argument need not be terminated.
        const std::size_t read_limit = limit > SIZE_MAX / 4 ? SIZE_MAX : limit * 4;
        if (WideArgument(directive)) {
            const wchar_t* s = va_arg(m_args, const wchar_t*);
            if (!s)
                s = L"(null)";
            text = FromWide<T>(std::wstring_view(s, wcsnlen(s, limit)));
        } else {
            const char* s = va_arg(m_args, const char*);
            if (!s)
                s = "(null)";
            const std::size_t bytes = std::is_same_v<T, char> ? limit : read_limit;
            text = FromNarrow<T>(std::string(s, strnlen(s, bytes)));
        }
        if (text.size() >= limit) {
            text.resize(limit);
            if constexpr (std::is_same_v<T, char>)
                DropPartialCharacter(text);
        }
        AppendPadded(directive, text);
        return true;
    }

    void AppendNumber(const std::string& text) { m_out += FromNarrow<T>(text); }

    // Pads to the field width: blanks, or zeros with the 0 flag as the Microsoft runtime does
    // for text too; the - flag pads on the right.
    void AppendPadded(const Directive& directive, const std::basic_string<T>& text) {
        const auto width = static_cast<std::size_t>(directive.width);
        const std::size_t fill = text.size() < width ? width - text.size() : 0;
        if (directive.left) {
            m_out += text;
            m_out.append(fill, T(' '));
        } else {
            m_out.append(fill, directive.zero ? T('0') : T(' '));
            m_out += text;
        }
    }

    std::basic_string<T>& m_out;
    va_list m_args;
};

} // namespace

int AppendFormatV(std::wstring& out, const wchar_t* format, va_list args) {
    return Formatter<wchar_t>(out, args).Run(format);
}

int AppendFormatV(std::string& out, const char* format, va_list args) {
    return Formatter<char>(out, args).Run(format);
}

int VFilePrintf(FILE* file, const wchar_t* format, va_list args) {
    if (!file)
        return 0;
    std::wstring text;
    const int count = AppendFormatV(text, format, args);
    if (count < 0)
        return -1;
    const std::string bytes = WideToNarrow(text);
    if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size())
        return -1;
    return count;
}

int FilePrintf(FILE* file, const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    const int count = VFilePrintf(file, format, args);
    va_end(args);
    return count;
}

} // namespace port
