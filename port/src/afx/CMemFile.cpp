// CMemFile: a growing memory buffer behind the CFile interface. The buffer comes from malloc, as
// MFC's does, so that Detach can hand it to a caller who releases it with free().
#include "mfc/CMemFile.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

IMPLEMENT_DYNAMIC(CMemFile, CFile)

CMemFile::CMemFile(UINT nGrowBytes) : m_nGrowBytes(nGrowBytes) {}

CMemFile::CMemFile(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes) {
    Attach(lpBuffer, nBufferSize, nGrowBytes);
}

CMemFile::~CMemFile() {
    FreeBuffer();
}

void CMemFile::FreeBuffer() {
    if (m_bAutoDelete)
        std::free(m_lpBuffer);
    m_lpBuffer = nullptr;
    m_nBufferSize = 0;
    m_nFileSize = 0;
    m_nPosition = 0;
}

void CMemFile::Attach(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes) {
    FreeBuffer();
    m_lpBuffer = lpBuffer;
    m_nBufferSize = nBufferSize;
    m_nFileSize = nGrowBytes == 0 ? nBufferSize : 0;
    m_nGrowBytes = nGrowBytes;
    // A growable buffer is realloc'ed, so it becomes ours; a fixed one stays the caller's.
    m_bAutoDelete = nGrowBytes != 0;
}

BYTE* CMemFile::Detach() {
    BYTE* lpBuffer = m_lpBuffer;
    m_lpBuffer = nullptr;
    FreeBuffer();
    m_nGrowBytes = 1024;
    m_bAutoDelete = TRUE;
    return lpBuffer;
}

BOOL CMemFile::Open(LPCTSTR, UINT, CFileException*) {
    AfxThrowNotSupportedException();
}

void CMemFile::GrowFile(SIZE_T dwNewLen) {
    if (dwNewLen <= m_nBufferSize)
        return;
    if (m_nGrowBytes == 0)
        AfxThrowMemoryException();
    // Grow by whole steps of nGrowBytes, and at least double, so that many small writes stay
    // linear in time.
    SIZE_T nNewBufferSize = std::max<SIZE_T>(m_nBufferSize * 2, m_nGrowBytes);
    if (nNewBufferSize < dwNewLen)
        nNewBufferSize = dwNewLen;
    nNewBufferSize = (nNewBufferSize + m_nGrowBytes - 1) / m_nGrowBytes * m_nGrowBytes;
    auto* lpNew = static_cast<BYTE*>(std::realloc(m_lpBuffer, nNewBufferSize));
    if (lpNew == nullptr)
        AfxThrowMemoryException();
    m_lpBuffer = lpNew;
    m_nBufferSize = nNewBufferSize;
}

ULONGLONG CMemFile::Seek(LONGLONG lOff, UINT nFrom) {
    LONGLONG base = 0;
    if (nFrom == current)
        base = static_cast<LONGLONG>(m_nPosition);
    else if (nFrom == end)
        base = static_cast<LONGLONG>(m_nFileSize);
    else if (nFrom != begin)
        AfxThrowFileException(CFileException::badSeek);
    LONGLONG newPos = 0;
    if (__builtin_add_overflow(base, lOff, &newPos) || newPos < 0)
        AfxThrowFileException(CFileException::badSeek);
    m_nPosition = static_cast<SIZE_T>(newPos);
    return m_nPosition;
}

void CMemFile::SetLength(ULONGLONG dwNewLen) {
    if (dwNewLen > m_nBufferSize)
        GrowFile(static_cast<SIZE_T>(dwNewLen));
    if (dwNewLen > m_nFileSize)
        std::memset(m_lpBuffer + m_nFileSize, 0, static_cast<SIZE_T>(dwNewLen) - m_nFileSize);
    if (dwNewLen < m_nPosition)
        m_nPosition = static_cast<SIZE_T>(dwNewLen);
    m_nFileSize = static_cast<SIZE_T>(dwNewLen);
}

UINT CMemFile::Read(void* lpBuf, UINT nCount) {
    if (m_nPosition >= m_nFileSize || nCount == 0)
        return 0;
    const SIZE_T n = std::min<SIZE_T>(nCount, m_nFileSize - m_nPosition);
    std::memcpy(lpBuf, m_lpBuffer + m_nPosition, n);
    m_nPosition += n;
    return static_cast<UINT>(n);
}

void CMemFile::Write(const void* lpBuf, UINT nCount) {
    if (nCount == 0)
        return;
    const SIZE_T end = m_nPosition + nCount;
    if (end > m_nBufferSize)
        GrowFile(end);
    // A write past the end after a seek leaves zeros in the gap.
    if (m_nPosition > m_nFileSize)
        std::memset(m_lpBuffer + m_nFileSize, 0, m_nPosition - m_nFileSize);
    std::memcpy(m_lpBuffer + m_nPosition, lpBuf, nCount);
    m_nPosition = end;
    m_nFileSize = std::max(m_nFileSize, end);
}

void CMemFile::Close() {
    FreeBuffer();
    m_bAutoDelete = TRUE;
}
