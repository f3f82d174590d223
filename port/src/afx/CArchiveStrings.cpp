// CArchive: counts, length-prefixed strings and text lines.
#include <algorithm>

#include "mfc/CArchive.h"
#include "port/TextConversion.h"

namespace {

// Text is read in pieces of this many units, so that a damaged length runs into the end of the
// data instead of allocating its full claim first.
constexpr ULONGLONG kReadChunk = 1 << 16;

constexpr BYTE kByteEscape = 0xFF;
constexpr WORD kUnicodeMark = 0xFFFE;
constexpr WORD kWordEscape = 0xFFFF;
constexpr DWORD kDwordEscape = 0xFFFFFFFF;

} // namespace

void CArchive::WriteCount(DWORD_PTR dwCount) {
    if (dwCount < kWordEscape) {
        *this << static_cast<WORD>(dwCount);
        return;
    }
    *this << kWordEscape;
    if (dwCount < kDwordEscape) {
        *this << static_cast<DWORD>(dwCount);
        return;
    }
    *this << kDwordEscape << static_cast<unsigned long long>(dwCount);
}

DWORD_PTR CArchive::ReadCount() {
    WORD wCount = 0;
    *this >> wCount;
    if (wCount != kWordEscape)
        return wCount;
    DWORD dwCount = 0;
    *this >> dwCount;
    if (dwCount != kDwordEscape)
        return dwCount;
    unsigned long long qwCount = 0;
    *this >> qwCount;
    return static_cast<DWORD_PTR>(qwCount);
}

void CArchive::WriteStringLength(ULONGLONG nLength, bool bUnicode) {
    if (bUnicode)
        *this << kByteEscape << kUnicodeMark;
    if (nLength < kByteEscape) {
        *this << static_cast<BYTE>(nLength);
        return;
    }
    *this << kByteEscape;
    // 0xFFFE is the Unicode mark, so it cannot be a WORD length.
    if (nLength < kUnicodeMark) {
        *this << static_cast<WORD>(nLength);
        return;
    }
    *this << kWordEscape;
    if (nLength < kDwordEscape) {
        *this << static_cast<DWORD>(nLength);
        return;
    }
    *this << kDwordEscape << static_cast<unsigned long long>(nLength);
}

ULONGLONG CArchive::ReadStringLength(bool& bUnicode) {
    bUnicode = false;
    BYTE bLength = 0;
    *this >> bLength;
    if (bLength < kByteEscape)
        return bLength;
    WORD wLength = 0;
    *this >> wLength;
    if (wLength == kUnicodeMark) {
        // The mark: the length scheme starts over, and now 0xFFFE is a plain length.
        bUnicode = true;
        *this >> bLength;
        if (bLength < kByteEscape)
            return bLength;
        *this >> wLength;
    }
    if (wLength < kWordEscape)
        return wLength;
    DWORD dwLength = 0;
    *this >> dwLength;
    if (dwLength < kDwordEscape)
        return dwLength;
    unsigned long long qwLength = 0;
    *this >> qwLength;
    return qwLength;
}

std::wstring CArchive::ReadStringText() {
    bool bUnicode = false;
    const ULONGLONG nLength = ReadStringLength(bUnicode);
    if (bUnicode) {
        std::u16string units;
        for (ULONGLONG nDone = 0; nDone < nLength;) {
            const auto n = static_cast<size_t>(std::min(kReadChunk, nLength - nDone));
            units.resize(units.size() + n);
            ReadExact(units.data() + nDone, static_cast<UINT>(n * sizeof(char16_t)));
            nDone += n;
        }
        return port::FromUtf16(units);
    }
    std::string bytes;
    for (ULONGLONG nDone = 0; nDone < nLength;) {
        const auto n = static_cast<size_t>(std::min(kReadChunk, nLength - nDone));
        bytes.resize(bytes.size() + n);
        ReadExact(bytes.data() + nDone, static_cast<UINT>(n));
        nDone += n;
    }
    return port::FromCp1252(bytes);
}

void CArchive::WriteLarge(const void* lpBuf, ULONGLONG nBytes) {
    const auto* p = static_cast<const BYTE*>(lpBuf);
    for (ULONGLONG nDone = 0; nDone < nBytes;) {
        const auto n = static_cast<UINT>(std::min<ULONGLONG>(kReadChunk, nBytes - nDone));
        Write(p + nDone, n);
        nDone += n;
    }
}

void CArchive::WriteUnicode(const std::u16string& units) {
    WriteStringLength(units.size(), true);
    WriteLarge(units.data(), units.size() * sizeof(char16_t));
}

CArchive& CArchive::operator<<(const CString& str) {
    WriteUnicode(port::ToUtf16(str.str()));
    return *this;
}

CArchive& CArchive::operator<<(const CStringA& str) {
    // Narrow text here is UTF-8; the archive's 8-bit form is Windows-1252. Text that the code page
    // cannot hold is written in the Unicode form, which MFC reads into either string type.
    const std::wstring wide = port::NarrowToWide(str.str());
    std::string bytes = port::ToCp1252(wide);
    if (port::FromCp1252(bytes) == wide) {
        WriteStringLength(bytes.size(), false);
        WriteLarge(bytes.data(), bytes.size());
    } else {
        WriteUnicode(port::ToUtf16(wide));
    }
    return *this;
}

CArchive& CArchive::operator>>(CString& str) {
    str = CString(ReadStringText());
    return *this;
}

CArchive& CArchive::operator>>(CStringA& str) {
    str = CStringA(port::WideToNarrow(ReadStringText()));
    return *this;
}

namespace {

// Reads UTF-16 units up to a line end ("\n", or "\r" and the unit after it, which is dropped) or
// nMax units. Answers false when the data ended before any unit.
bool ReadLineUnits(CArchive& ar, std::u16string& line, size_t nMax) {
    line.clear();
    bool bAny = false;
    char16_t unit = 0;
    while (line.size() < nMax && ar.Read(&unit, sizeof(unit)) == sizeof(unit)) {
        bAny = true;
        if (unit == u'\r') {
            ar.Read(&unit, sizeof(unit));
            break;
        }
        if (unit == u'\n')
            break;
        line.push_back(unit);
    }
    return bAny;
}

} // namespace

BOOL CArchive::ReadString(CString& rString) {
    std::u16string line;
    const bool bAny = ReadLineUnits(*this, line, line.max_size());
    rString = CString(port::FromUtf16(line));
    return bAny ? TRUE : FALSE;
}

LPTSTR CArchive::ReadString(LPTSTR lpsz, UINT nMax) {
    if (lpsz == nullptr)
        return nullptr;
    std::u16string line;
    if (!ReadLineUnits(*this, line, nMax))
        return nullptr;
    const std::wstring text = port::FromUtf16(line);
    std::copy(text.begin(), text.end(), lpsz);
    lpsz[text.size()] = L'\0';
    return lpsz;
}

void CArchive::WriteString(LPCTSTR lpsz) {
    if (lpsz == nullptr)
        return;
    const std::u16string units = port::ToUtf16(lpsz);
    WriteLarge(units.data(), units.size() * sizeof(char16_t));
}
