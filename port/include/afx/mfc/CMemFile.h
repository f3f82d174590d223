// CMemFile: a file in memory, in a growing buffer of its own or in one the caller attaches.
#pragma once

#include "port/Export.h"

#include "mfc/CFile.h"

class ORV_API CMemFile : public CFile {
    DECLARE_DYNAMIC(CMemFile)
public:
    // A buffer of its own that grows by nGrowBytes at a time.
    explicit CMemFile(UINT nGrowBytes = 1024);
    // Same as Attach.
    CMemFile(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes = 0);
    ~CMemFile() override;

    // Uses the caller's buffer. With nGrowBytes 0 the file holds the buffer's nBufferSize bytes
    // and cannot grow past it (writing beyond throws CMemoryException*); otherwise the file starts
    // empty and the buffer, which must come from malloc, is grown with realloc.
    void Attach(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes = 0);
    // Hands the buffer to the caller (release it with free()) and leaves the file empty.
    BYTE* Detach();

    BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError = nullptr) override;
    ULONGLONG GetPosition() const override { return m_nPosition; }
    ULONGLONG Seek(LONGLONG lOff, UINT nFrom) override;
    ULONGLONG GetLength() const override { return m_nFileSize; }
    void SetLength(ULONGLONG dwNewLen) override;
    UINT Read(void* lpBuf, UINT nCount) override;
    void Write(const void* lpBuf, UINT nCount) override;
    void Flush() override {}
    void Close() override;
    void Abort() override { Close(); }

private:
    void GrowFile(SIZE_T dwNewLen);
    void FreeBuffer();

    BYTE* m_lpBuffer = nullptr;
    SIZE_T m_nBufferSize = 0;
    SIZE_T m_nFileSize = 0;
    SIZE_T m_nPosition = 0;
    UINT m_nGrowBytes = 1024;
    BOOL m_bAutoDelete = TRUE; // the buffer is ours to free
};
