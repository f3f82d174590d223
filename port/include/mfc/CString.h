// CString (wide) and CStringA (narrow): MFC's value strings over std::basic_string.
#pragma once

#include <string>
#include <string_view>

#include "mfc/TextConversion.h"
#include "win/types.h"

template <typename T> class CStringT {
public:
    using XCHAR = T;
    using YCHAR = std::conditional_t<std::is_same_v<T, wchar_t>, char, wchar_t>;
    using PCXSTR = const T*;
    using StringType = std::basic_string<T>;

    CStringT() = default;
    CStringT(const T* text) : m_text(text ? text : StringType()) {}
    CStringT(const T* text, int length) : m_text(text, text ? length : 0) {}
    CStringT(T ch, int repeat = 1) : m_text(repeat > 0 ? repeat : 0, ch) {}
    CStringT(StringType text) : m_text(std::move(text)) {}
    CStringT(std::basic_string_view<T> text) : m_text(text) {}
    CStringT(const YCHAR* text) : m_text(Convert(text)) {}
    CStringT(const CStringT<YCHAR>& other) : m_text(Convert(other.GetString())) {}

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }
    const T* GetString() const { return m_text.c_str(); }
    operator const T*() const { return m_text.c_str(); }
    T GetAt(int index) const { return m_text.at(static_cast<std::size_t>(index)); }
    void SetAt(int index, T ch) { m_text.at(static_cast<std::size_t>(index)) = ch; }
    T operator[](int index) const { return GetAt(index); }

    // The underlying standard string, for the port's own helpers.
    const StringType& str() const { return m_text; }
    StringType& str() { return m_text; }

    CStringT& operator=(const T* text) {
        m_text = text ? text : StringType();
        return *this;
    }
    CStringT& operator=(T ch) {
        m_text.assign(1, ch);
        return *this;
    }
    CStringT& operator=(const YCHAR* text) {
        m_text = Convert(text);
        return *this;
    }
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

    friend CStringT operator+(const CStringT& a, const CStringT& b) {
        return CStringT(a.m_text + b.m_text);
    }
    friend CStringT operator+(const CStringT& a, const T* b) { return a + CStringT(b); }
    friend CStringT operator+(const T* a, const CStringT& b) { return CStringT(a) + b; }
    friend CStringT operator+(const CStringT& a, T b) { return CStringT(a.m_text + b); }
    friend CStringT operator+(T a, const CStringT& b) { return CStringT(a + b.m_text); }

    friend bool operator==(const CStringT& a, const CStringT& b) { return a.m_text == b.m_text; }
    friend bool operator==(const CStringT& a, const T* b) { return a.m_text == (b ? b : L0()); }
    friend bool operator==(const T* a, const CStringT& b) { return b == a; }
    friend bool operator<(const CStringT& a, const CStringT& b) { return a.m_text < b.m_text; }

private:
    static const T* L0() {
        static const T empty[1] = {};
        return empty;
    }
    static StringType Convert(const YCHAR* text) {
        if (!text)
            return StringType();
        if constexpr (std::is_same_v<T, wchar_t>)
            return port::NarrowToWide(text);
        else
            return port::WideToNarrow(text);
    }

    StringType m_text;
};

using CString = CStringT<wchar_t>;
using CStringA = CStringT<char>;
using CStringW = CStringT<wchar_t>;
