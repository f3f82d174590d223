// CString (wide) and CStringA (narrow): MFC's value strings over std::basic_string.
#pragma once

#include <algorithm>
#include <compare>
#include <concepts>
#include <cstdarg>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

#include "mfc/StringFormat.h"
#include "mfc/StringResources.h"
#include "port/Export.h"
#include "win/types.h"

// The character traits of CStringT, as MFC names them: what the string's inline members need
// from the library. Wide text case-maps by Unicode's simple mapping whatever the process locale,
// narrow (UTF-8) text in its ASCII letters only; collation follows the process's locale;
// formatting follows the Microsoft runtime (mfc/StringFormat.h); the other width converts through
// UTF-8; resource strings come from the installed loader.
template <typename T> struct ChTraitsCRT;

template <> struct ORV_API ChTraitsCRT<wchar_t> {
    static wchar_t CharToLower(wchar_t ch);
    static wchar_t CharToUpper(wchar_t ch);
    static int StringCollate(const wchar_t* a, const wchar_t* b);
    static int AppendFormatV(std::wstring& out, const wchar_t* format, va_list args);
    static std::wstring FromOtherWidth(std::string_view text);
    static bool LoadString(UINT id, std::wstring& text);
};

template <> struct ORV_API ChTraitsCRT<char> {
    static char CharToLower(char ch);
    static char CharToUpper(char ch);
    static int StringCollate(const char* a, const char* b);
    static int AppendFormatV(std::string& out, const char* format, va_list args);
    static std::string FromOtherWidth(std::wstring_view text);
};

template <typename T> class CStringT {
public:
    using XCHAR = T;
    using YCHAR = std::conditional_t<std::is_same_v<T, wchar_t>, char, wchar_t>;
    using PCXSTR = const T*;
    using PXSTR = T*;
    using PCYSTR = const YCHAR*;
    using StringType = std::basic_string<T>;

    CStringT() = default;
    CStringT(std::nullptr_t) {}
    CStringT(const T* text) : m_text(text ? text : StringType()) {}
    CStringT(const T* text, int length) : m_text(text, text && length > 0 ? length : 0) {}
    CStringT(T ch, int repeat = 1) : m_text(repeat > 0 ? repeat : 0, ch) {}
    CStringT(StringType text) : m_text(std::move(text)) {}
    CStringT(std::basic_string_view<T> text) : m_text(text) {}
    CStringT(const YCHAR* text)
        : m_text(Convert(text ? std::basic_string_view<YCHAR>(text)
                              : std::basic_string_view<YCHAR>())) {}
    CStringT(const YCHAR* text, int length)
        : m_text(Convert(std::basic_string_view<YCHAR>(text, text && length > 0 ? length : 0))) {}
    CStringT(const CStringT<YCHAR>& other) : m_text(Convert(other.str())) {}

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }
    const T* GetString() const { return m_text.c_str(); }
    operator const T*() const { return m_text.c_str(); }
    T GetAt(int index) const { return m_text.at(static_cast<std::size_t>(index)); }
    void SetAt(int index, T ch) { m_text.at(static_cast<std::size_t>(index)) = ch; }
    // Any integer index, so that s[i] never competes with the built-in pointer subscript.
    template <std::integral I> T operator[](I index) const {
        return GetAt(static_cast<int>(index));
    }

    // The underlying standard string, for the port's own helpers.
    const StringType& str() const { return m_text; }
    StringType& str() { return m_text; }

    // Assignment.
    CStringT& operator=(const T* text) {
        m_text = text ? text : StringType();
        return *this;
    }
    CStringT& operator=(T ch) {
        m_text.assign(1, ch);
        return *this;
    }
    CStringT& operator=(const YCHAR* text) { return *this = CStringT(text); }
    CStringT& operator=(const CStringT<YCHAR>& other) { return *this = CStringT(other); }
    CStringT& operator+=(const CStringT& other) {
        m_text += other.m_text;
        return *this;
    }
    CStringT& operator+=(const T* text) {
        if (text)
            m_text += text;
        return *this;
    }
    CStringT& operator+=(T ch) {
        m_text += ch;
        return *this;
    }

    void Append(const T* text) { *this += text; }
    void Append(const T* text, int length) {
        if (text && length > 0)
            m_text.append(text, static_cast<std::size_t>(length));
    }
    void AppendChar(T ch) { m_text += ch; }
    void SetString(const T* text) { *this = text; }
    void SetString(const T* text, int length) { *this = CStringT(text, length); }
    // Keeps the first length characters; a longer length changes nothing.
    void Truncate(int length) {
        m_text.resize(std::min(m_text.size(), static_cast<std::size_t>(std::max(length, 0))));
    }

    friend CStringT operator+(const CStringT& a, const CStringT& b) {
        return CStringT(a.m_text + b.m_text);
    }
    friend CStringT operator+(const CStringT& a, const T* b) { return a + CStringT(b); }
    friend CStringT operator+(const T* a, const CStringT& b) { return CStringT(a) + b; }
    friend CStringT operator+(const CStringT& a, T b) { return CStringT(a.m_text + b); }
    friend CStringT operator+(T a, const CStringT& b) { return CStringT(a + b.m_text); }

    // Comparison is ordinal, by character value; a null C string compares as empty. The
    // reversed forms (L"x" == s) and != come from these.
    friend bool operator==(const CStringT& a, const CStringT& b) { return a.m_text == b.m_text; }
    friend bool operator==(const CStringT& a, const T* b) { return a.Compare(b) == 0; }
    friend std::strong_ordering operator<=>(const CStringT& a, const CStringT& b) {
        return a.Compare(b.GetString()) <=> 0;
    }
    friend std::strong_ordering operator<=>(const CStringT& a, const T* b) {
        return a.Compare(b) <=> 0;
    }

    // -1, 0 or 1, ordinal.
    int Compare(const T* other) const {
        const int c = m_text.compare(other ? other : L0());
        return (c > 0) - (c < 0);
    }
    // Ordinal after lowering both sides, as _wcsicmp does.
    int CompareNoCase(const T* other) const {
        const CStringT a = CStringT(*this).MakeLower();
        const CStringT b = CStringT(other).MakeLower();
        return a.Compare(b.GetString());
    }
    int Collate(const T* other) const {
        return ChTraitsCRT<T>::StringCollate(GetString(), other ? other : L0());
    }
    int CollateNoCase(const T* other) const {
        return ChTraitsCRT<T>::StringCollate(CStringT(*this).MakeLower().GetString(),
                                             CStringT(other).MakeLower().GetString());
    }

    // Extraction: counts and positions are clamped to the string.
    CStringT Mid(int first) const { return Mid(first, GetLength()); }
    CStringT Mid(int first, int count) const {
        first = std::clamp(first, 0, GetLength());
        count = std::clamp(count, 0, GetLength() - first);
        return CStringT(
            m_text.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(count)));
    }
    CStringT Left(int count) const { return Mid(0, count); }
    CStringT Right(int count) const {
        count = std::clamp(count, 0, GetLength());
        return Mid(GetLength() - count, count);
    }
    CStringT SpanIncluding(const T* set) const {
        return Left(static_cast<int>(Position(m_text.find_first_not_of(Set(set)))));
    }
    CStringT SpanExcluding(const T* set) const {
        return Left(static_cast<int>(Position(m_text.find_first_of(Set(set)))));
    }

    // Search: a zero-based index, or -1.
    int Find(T ch, int start = 0) const {
        if (start < 0 || start >= GetLength())
            return -1;
        return Index(m_text.find(ch, static_cast<std::size_t>(start)));
    }
    int Find(const T* sub, int start = 0) const {
        if (!sub || start < 0 || start > GetLength())
            return -1;
        return Index(m_text.find(sub, static_cast<std::size_t>(start)));
    }
    int ReverseFind(T ch) const { return Index(m_text.rfind(ch)); }
    int FindOneOf(const T* set) const {
        const auto chars = Set(set);
        return chars.empty() ? -1 : Index(m_text.find_first_of(chars));
    }

    // Editing. Each answers what MFC answers: a count, or the new length.
    int Replace(T oldCh, T newCh) {
        int count = 0;
        for (T& ch : m_text) {
            if (ch == oldCh) {
                ch = newCh;
                ++count;
            }
        }
        return count;
    }
    int Replace(const T* oldText, const T* newText) {
        const auto from = Set(oldText);
        if (from.empty())
            return 0;
        const auto to = Set(newText);
        StringType result;
        int count = 0;
        std::size_t pos = 0;
        for (std::size_t hit; (hit = m_text.find(from, pos)) != StringType::npos;
             pos = hit + from.size()) {
            result.append(m_text, pos, hit - pos).append(to);
            ++count;
        }
        if (count > 0) {
            result.append(m_text, pos);
            m_text = std::move(result);
        }
        return count;
    }
    int Remove(T ch) {
        const auto before = m_text.size();
        std::erase(m_text, ch);
        return static_cast<int>(before - m_text.size());
    }
    int Insert(int index, T ch) { return Insert(index, std::basic_string_view<T>(&ch, 1)); }
    int Insert(int index, const T* text) { return Insert(index, Set(text)); }
    int Delete(int index, int count = 1) {
        index = std::max(index, 0);
        if (index < GetLength() && count > 0) {
            count = std::min(count, GetLength() - index);
            m_text.erase(static_cast<std::size_t>(index), static_cast<std::size_t>(count));
        }
        return GetLength();
    }

    CStringT& MakeLower() {
        for (T& ch : m_text)
            ch = ChTraitsCRT<T>::CharToLower(ch);
        return *this;
    }
    CStringT& MakeUpper() {
        for (T& ch : m_text)
            ch = ChTraitsCRT<T>::CharToUpper(ch);
        return *this;
    }
    CStringT& MakeReverse() {
        std::reverse(m_text.begin(), m_text.end());
        return *this;
    }

    // Trimming: white space (blank, tab, line feed, vertical tab, form feed, return), one
    // character, or any character of a set.
    CStringT& Trim() { return TrimRight().TrimLeft(); }
    CStringT& Trim(T ch) { return TrimRight(ch).TrimLeft(ch); }
    CStringT& Trim(const T* set) { return TrimRight(set).TrimLeft(set); }
    CStringT& TrimLeft() { return TrimLeftOf(WhiteSpace()); }
    CStringT& TrimLeft(T ch) { return TrimLeftOf(std::basic_string_view<T>(&ch, 1)); }
    CStringT& TrimLeft(const T* set) { return TrimLeftOf(Set(set)); }
    CStringT& TrimRight() { return TrimRightOf(WhiteSpace()); }
    CStringT& TrimRight(T ch) { return TrimRightOf(std::basic_string_view<T>(&ch, 1)); }
    CStringT& TrimRight(const T* set) { return TrimRightOf(Set(set)); }

    // The next token from start: leading delimiters are skipped and start moves past the
    // token's delimiter. At the end start becomes -1 and the token is empty. With no
    // delimiters the rest of the string is one token.
    CStringT Tokenize(const T* delimiters, int& start) const {
        if (start >= 0 && start < GetLength()) {
            const auto set = Set(delimiters);
            const auto begin = m_text.find_first_not_of(set, static_cast<std::size_t>(start));
            if (begin != StringType::npos) {
                const auto end = std::min(m_text.find_first_of(set, begin), m_text.size());
                start = static_cast<int>(end + 1);
                return CStringT(m_text.substr(begin, end - begin));
            }
        }
        start = -1;
        return CStringT();
    }

    // Direct access to the characters, as MFC gives it: write at most the length asked for,
    // then call ReleaseBuffer, with -1 to take the length from the terminating null.
    T* GetBuffer() { return m_text.data(); }
    T* GetBuffer(int minLength) {
        if (minLength > GetLength())
            m_text.resize(static_cast<std::size_t>(minLength));
        return m_text.data();
    }
    T* GetBufferSetLength(int length) {
        m_text.resize(static_cast<std::size_t>(std::max(length, 0)));
        return m_text.data();
    }
    void ReleaseBuffer(int newLength = -1) {
        const auto size = newLength < 0 ? std::char_traits<T>::length(m_text.c_str())
                                        : static_cast<std::size_t>(newLength);
        m_text.resize(std::min(size, m_text.size()));
    }

    // The string resource id through the installed loader; FALSE leaves the string empty.
    BOOL LoadString(UINT id) {
        std::wstring text;
        const bool found = ChTraitsCRT<wchar_t>::LoadString(id, text);
        m_text = Convert(text);
        return found ? TRUE : FALSE;
    }

    // printf-style formatting by the Microsoft runtime's rules (mfc/StringFormat.h). A format
    // that the runtime refuses (%n, an unknown conversion) throws std::invalid_argument and
    // leaves the string as it was.
    void Format(const T* format, ...) {
        va_list args;
        va_start(args, format);
        StringType text;
        const int count = ChTraitsCRT<T>::AppendFormatV(text, format, args);
        va_end(args);
        Take(count, std::move(text));
    }
    void Format(UINT formatId, ...) {
        CStringT format;
        format.LoadString(formatId);
        va_list args;
        va_start(args, formatId);
        StringType text;
        const int count = ChTraitsCRT<T>::AppendFormatV(text, format.GetString(), args);
        va_end(args);
        Take(count, std::move(text));
    }
    void FormatV(const T* format, va_list args) {
        StringType text;
        const int count = ChTraitsCRT<T>::AppendFormatV(text, format, args);
        Take(count, std::move(text));
    }
    void AppendFormat(const T* format, ...) {
        va_list args;
        va_start(args, format);
        StringType text;
        const int count = ChTraitsCRT<T>::AppendFormatV(text, format, args);
        va_end(args);
        Take(count, m_text + text);
    }

private:
    static const T* L0() {
        static const T empty[1] = {};
        return empty;
    }
    static std::basic_string_view<T> Set(const T* text) {
        return text ? std::basic_string_view<T>(text) : std::basic_string_view<T>();
    }
    static std::basic_string_view<T> WhiteSpace() {
        static const T spaces[] = {T(' '), T('\t'), T('\n'), T('\v'), T('\f'), T('\r'), T(0)};
        return spaces;
    }
    static int Index(std::size_t pos) {
        return pos == StringType::npos ? -1 : static_cast<int>(pos);
    }
    std::size_t Position(std::size_t pos) const {
        return pos == StringType::npos ? m_text.size() : pos;
    }
    template <typename Y> static StringType Convert(std::basic_string_view<Y> text) {
        if constexpr (std::is_same_v<Y, T>)
            return StringType(text);
        else
            return ChTraitsCRT<T>::FromOtherWidth(text);
    }
    template <typename Y> static StringType Convert(const std::basic_string<Y>& text) {
        return Convert(std::basic_string_view<Y>(text));
    }
    int Insert(int index, std::basic_string_view<T> text) {
        index = std::clamp(index, 0, GetLength());
        m_text.insert(static_cast<std::size_t>(index), text);
        return GetLength();
    }
    CStringT& TrimLeftOf(std::basic_string_view<T> set) {
        m_text.erase(0, Position(m_text.find_first_not_of(set)));
        return *this;
    }
    CStringT& TrimRightOf(std::basic_string_view<T> set) {
        const auto last = m_text.find_last_not_of(set);
        m_text.erase(last == StringType::npos ? 0 : last + 1);
        return *this;
    }
    void Take(int count, StringType text) {
        if (count < 0)
            throw std::invalid_argument("CString::Format: invalid format string");
        m_text = std::move(text);
    }

    StringType m_text;
};

using CString = CStringT<wchar_t>;
using CStringA = CStringT<char>;
using CStringW = CStringT<wchar_t>;
