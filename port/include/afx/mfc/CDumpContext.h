// CDumpContext: the text sink of CObject::Dump. It writes to a CFile, or to standard error (where
// this platform's debugger output goes) when it has none. Text is written as UTF-8.
#pragma once

#include "port/Export.h"

#include "win/types.h"

class CFile;
class CObject;

class ORV_API CDumpContext {
public:
    explicit CDumpContext(CFile* pFile = nullptr);
    CDumpContext(const CDumpContext&) = delete;
    CDumpContext& operator=(const CDumpContext&) = delete;

    // How deep a Dump goes into the objects it holds; 0 (the start) dumps only the object itself.
    int GetDepth() const { return m_nDepth; }
    void SetDepth(int nNewDepth) { m_nDepth = nNewDepth; }

    CDumpContext& operator<<(LPCSTR lpsz);
    CDumpContext& operator<<(LPCWSTR lpsz);
    // "$" and the address as 16 upper-case hexadecimal digits, as MFC shows it on 64-bit Windows.
    CDumpContext& operator<<(const void* lp);
    // The object's own Dump, or "NULL".
    CDumpContext& operator<<(const CObject* pOb);
    CDumpContext& operator<<(const CObject& ob);
    CDumpContext& operator<<(int n);
    CDumpContext& operator<<(UINT u);
    CDumpContext& operator<<(LONGLONG n);
    CDumpContext& operator<<(ULONGLONG n);
    CDumpContext& operator<<(double d);

    void Flush();

private:
    void Output(const char* text, std::size_t length);

    CFile* m_pFile;
    int m_nDepth = 0;
};

// The context that writes to standard error.
ORV_API extern CDumpContext afxDump;
