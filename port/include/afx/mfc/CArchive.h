// CArchive: MFC's binary serialization over a CFile, byte for byte the MFC format: scalars,
// counts, strings and the object protocol (class descriptions, schemas, references).
#pragma once

#include "port/Export.h"

#include <bit>
#include <cstring>
#include <memory>
#include <unordered_map>
#include <vector>

#include "mfc/CException.h"
#include "mfc/CFile.h"
#include "mfc/CObject.h"
#include "mfc/CString.h"
#include "win/types.h"

static_assert(std::endian::native == std::endian::little, "archives are little-endian");

class ORV_API CArchive {
public:
    enum Mode { store = 0, load = 1, bNoFlushOnDelete = 2, bNoByteSwap = 4 };

    CArchive(CFile* pFile, UINT nMode, int nBufSize = 4096, void* lpBuf = nullptr);
    // An archive not closed is flushed (unless bNoFlushOnDelete) and released; errors are
    // swallowed here.
    ~CArchive();
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    BOOL IsLoading() const { return (m_nMode & load) != 0; }
    BOOL IsStoring() const { return (m_nMode & load) == 0; }
    BOOL IsByteSwapping() const { return FALSE; }
    BOOL IsBufferEmpty() const { return m_lpBufCur == m_lpBufMax; }
    CFile* GetFile() const { return m_pFile; }

    // The schema of the object being loaded; asking resets it to 0xFFFFFFFF.
    UINT GetObjectSchema();
    void SetObjectSchema(UINT nSchema) { m_nObjectSchema = nSchema; }

    // Raw bytes. Read answers the count it got and does not throw at the end of the data.
    UINT Read(void* lpBuf, UINT nMax);
    void Write(const void* lpBuf, UINT nMax);

    // Storing: writes the buffer to the file. Loading: gives back the unread bytes of the buffer
    // by seeking the file back.
    void Flush();
    void Close();
    // Drops the buffer without writing it and lets go of the file.
    void Abort();

    // Text lines of UTF-16 units: ReadString stops after "\n" or "\r\n" and keeps neither;
    // WriteString adds no line end. ReadString answers FALSE (or null) at the end of the data.
    BOOL ReadString(CString& rString);
    LPTSTR ReadString(LPTSTR lpsz, UINT nMax);
    void WriteString(LPCTSTR lpsz);

    // The object protocol.
    CObject* ReadObject(const CRuntimeClass* pClass);
    void WriteObject(const CObject* pOb);
    CRuntimeClass* ReadClass(const CRuntimeClass* pClassRefRequested = nullptr,
                             UINT* pSchema = nullptr, DWORD* pObTag = nullptr);
    void WriteClass(const CRuntimeClass* pClassRef);
    void SerializeClass(const CRuntimeClass* pClassRef);
    // Gives pOb the next index without writing or reading anything.
    void MapObject(const CObject* pOb);

    // Element counts of collections.
    DWORD_PTR ReadCount();
    void WriteCount(DWORD_PTR dwCount);

    // Scalars, little-endian, Windows widths. long and unsigned long take 4 bytes; a value that
    // does not fit throws genericException.
    CArchive& operator<<(BYTE by) { return Put(by); }
    CArchive& operator<<(char ch) { return Put(ch); }
    CArchive& operator<<(bool b) { return Put(static_cast<BYTE>(b ? 1 : 0)); }
    CArchive& operator<<(WORD w) { return Put(w); }
    CArchive& operator<<(short w) { return Put(w); }
    CArchive& operator<<(wchar_t ch) { return Put(static_cast<WORD>(ch)); }
    CArchive& operator<<(int i) { return Put(i); }
    CArchive& operator<<(unsigned u) { return Put(u); }
    CArchive& operator<<(long l);
    CArchive& operator<<(unsigned long ul);
    CArchive& operator<<(long long ll) { return Put(ll); }
    CArchive& operator<<(unsigned long long ull) { return Put(ull); }
    CArchive& operator<<(float f) { return Put(f); }
    CArchive& operator<<(double d) { return Put(d); }

    CArchive& operator>>(BYTE& by) { return Get(by); }
    CArchive& operator>>(char& ch) { return Get(ch); }
    CArchive& operator>>(bool& b);
    CArchive& operator>>(WORD& w) { return Get(w); }
    CArchive& operator>>(short& w) { return Get(w); }
    CArchive& operator>>(wchar_t& ch);
    CArchive& operator>>(int& i) { return Get(i); }
    CArchive& operator>>(unsigned& u) { return Get(u); }
    CArchive& operator>>(long& l);
    CArchive& operator>>(unsigned long& ul);
    CArchive& operator>>(long long& ll) { return Get(ll); }
    CArchive& operator>>(unsigned long long& ull) { return Get(ull); }
    CArchive& operator>>(float& f) { return Get(f); }
    CArchive& operator>>(double& d) { return Get(d); }

    // Strings: CString with the Unicode mark and UTF-16 units; CStringA as 8-bit Windows-1252
    // text (or, when it holds characters outside that code page, in the Unicode form). Either
    // form loads into either string type.
    CArchive& operator<<(const CString& str);
    CArchive& operator<<(const CStringA& str);
    CArchive& operator<<(LPCWSTR psz) { return *this << CString(psz); }
    CArchive& operator<<(LPCSTR psz) { return *this << CStringA(psz); }
    CArchive& operator>>(CString& str);
    CArchive& operator>>(CStringA& str);

    // The document being loaded or stored, for the classes' Serialize.
    void* m_pDocument = nullptr;

private:
    enum class SlotKind : BYTE { Class, Object };
    struct LoadSlot {
        void* p;
        SlotKind kind;
    };

    template <typename T> CArchive& Put(T value) {
        if (static_cast<size_t>(m_lpBufMax - m_lpBufCur) >= sizeof(T) && IsStoring()) {
            std::memcpy(m_lpBufCur, &value, sizeof(T));
            m_lpBufCur += sizeof(T);
        } else {
            Write(&value, sizeof(T));
        }
        return *this;
    }
    template <typename T> CArchive& Get(T& value) {
        if (static_cast<size_t>(m_lpBufMax - m_lpBufCur) >= sizeof(T) && IsLoading()) {
            std::memcpy(&value, m_lpBufCur, sizeof(T));
            m_lpBufCur += sizeof(T);
        } else {
            ReadExact(&value, sizeof(T));
        }
        return *this;
    }
    // Reads exactly nCount bytes or throws endOfFile.
    void ReadExact(void* lpBuf, UINT nCount);
    void FillBuffer();
    void WriteBuffer();
    [[noreturn]] void Throw(int cause) const;
    void CheckStoring() const;
    void CheckLoading() const;
    void CheckMapCount() const;

    // The length scheme of strings; answers the length and whether the text is UTF-16.
    ULONGLONG ReadStringLength(bool& bUnicode);
    void WriteStringLength(ULONGLONG nLength, bool bUnicode);
    void WriteUnicode(const std::u16string& units);
    // Write for blocks of any size.
    void WriteLarge(const void* lpBuf, ULONGLONG nBytes);
    std::wstring ReadStringText();

    CFile* m_pFile;
    UINT m_nMode;
    std::unique_ptr<BYTE[]> m_ownBuffer;
    BYTE* m_lpBufStart;
    BYTE* m_lpBufCur;
    BYTE* m_lpBufMax;
    UINT m_nBufSize;

    UINT m_nObjectSchema = 0xFFFFFFFF;
    DWORD m_nMapCount = 1; // index 0 is the null pointer
    std::unordered_map<const void*, DWORD> m_storeMap;
    std::vector<LoadSlot> m_loadArray;
    std::unordered_map<const CRuntimeClass*, UINT> m_schemaMap; // stored schemas that differ
};

ORV_API CArchive& operator<<(CArchive& ar, const CObject* pOb);
ORV_API CArchive& operator>>(CArchive& ar, CObject*& pOb);
ORV_API CArchive& operator>>(CArchive& ar, const CObject*& pOb);
