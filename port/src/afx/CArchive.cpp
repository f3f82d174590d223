// CArchive: the buffer, raw bytes, scalars and the archive's life cycle.
#include "mfc/CArchive.h"

#include <algorithm>
#include <limits>

namespace {

constexpr UINT kMinBufferSize = 16;

} // namespace

CArchive::CArchive(CFile* pFile, UINT nMode, int nBufSize, void* lpBuf)
    : m_pFile(pFile), m_nMode(nMode),
      m_nBufSize(std::max<UINT>(kMinBufferSize, nBufSize > 0 ? static_cast<UINT>(nBufSize) : 0)) {
    if (lpBuf != nullptr && nBufSize >= static_cast<int>(kMinBufferSize)) {
        m_lpBufStart = static_cast<BYTE*>(lpBuf);
    } else {
        m_ownBuffer = std::make_unique<BYTE[]>(m_nBufSize);
        m_lpBufStart = m_ownBuffer.get();
    }
    m_lpBufCur = m_lpBufStart;
    // Storing, [cur, max) is the free room; loading, the bytes not yet consumed.
    m_lpBufMax = IsStoring() ? m_lpBufStart + m_nBufSize : m_lpBufStart;
    if (IsLoading())
        m_loadArray.push_back({nullptr, SlotKind::Object});
}

CArchive::~CArchive() {
    if (m_pFile != nullptr && !(m_nMode & bNoFlushOnDelete)) {
        try {
            Close();
        } catch (CException* e) {
            e->Delete();
        } catch (...) {
            // A destructor must not throw; the caller who wanted the error calls Close.
        }
    }
    Abort();
}

void CArchive::Throw(int cause) const {
    if (m_pFile != nullptr)
        AfxThrowArchiveException(cause, m_pFile->GetFilePath());
    AfxThrowArchiveException(cause);
}

void CArchive::CheckStoring() const {
    if (!IsStoring())
        Throw(CArchiveException::readOnly);
}

void CArchive::CheckLoading() const {
    if (!IsLoading())
        Throw(CArchiveException::writeOnly);
}

UINT CArchive::GetObjectSchema() {
    const UINT nResult = m_nObjectSchema;
    m_nObjectSchema = 0xFFFFFFFF;
    return nResult;
}

void CArchive::WriteBuffer() {
    const auto nUsed = static_cast<UINT>(m_lpBufCur - m_lpBufStart);
    m_lpBufCur = m_lpBufStart;
    if (nUsed != 0)
        m_pFile->Write(m_lpBufStart, nUsed);
}

void CArchive::FillBuffer() {
    m_lpBufCur = m_lpBufStart;
    m_lpBufMax = m_lpBufStart;
    m_lpBufMax = m_lpBufStart + m_pFile->Read(m_lpBufStart, m_nBufSize);
}

void CArchive::Write(const void* lpBuf, UINT nMax) {
    CheckStoring();
    if (m_pFile == nullptr)
        Throw(CArchiveException::genericException);
    const auto* p = static_cast<const BYTE*>(lpBuf);
    while (nMax > 0) {
        const auto nRoom = static_cast<UINT>(m_lpBufMax - m_lpBufCur);
        if (nRoom == 0) {
            WriteBuffer();
            // Large blocks go straight to the file once the buffer is empty.
            if (nMax >= m_nBufSize) {
                m_pFile->Write(p, nMax);
                return;
            }
            continue;
        }
        const UINT n = std::min(nRoom, nMax);
        std::memcpy(m_lpBufCur, p, n);
        m_lpBufCur += n;
        p += n;
        nMax -= n;
    }
}

UINT CArchive::Read(void* lpBuf, UINT nMax) {
    CheckLoading();
    if (m_pFile == nullptr)
        Throw(CArchiveException::genericException);
    auto* p = static_cast<BYTE*>(lpBuf);
    UINT nDone = 0;
    while (nDone < nMax) {
        const auto nHave = static_cast<UINT>(m_lpBufMax - m_lpBufCur);
        if (nHave == 0) {
            const UINT nLeft = nMax - nDone;
            // Large blocks come straight from the file.
            if (nLeft >= m_nBufSize)
                return nDone + m_pFile->Read(p + nDone, nLeft);
            FillBuffer();
            if (m_lpBufMax == m_lpBufStart)
                break;
            continue;
        }
        const UINT n = std::min(nHave, nMax - nDone);
        std::memcpy(p + nDone, m_lpBufCur, n);
        m_lpBufCur += n;
        nDone += n;
    }
    return nDone;
}

void CArchive::ReadExact(void* lpBuf, UINT nCount) {
    if (Read(lpBuf, nCount) != nCount)
        Throw(CArchiveException::endOfFile);
}

void CArchive::Flush() {
    if (m_pFile == nullptr)
        return;
    if (IsStoring()) {
        WriteBuffer();
        return;
    }
    const auto nUnread = static_cast<LONGLONG>(m_lpBufMax - m_lpBufCur);
    m_lpBufCur = m_lpBufMax = m_lpBufStart;
    if (nUnread != 0)
        m_pFile->Seek(-nUnread, CFile::current);
}

void CArchive::Close() {
    Flush();
    Abort();
}

void CArchive::Abort() {
    // With no room and no data left, every later Read or Write reaches the missing file and throws.
    m_pFile = nullptr;
    m_lpBufCur = m_lpBufMax = m_lpBufStart;
}

CArchive& CArchive::operator<<(long l) {
    if (l < std::numeric_limits<LONG>::min() || l > std::numeric_limits<LONG>::max())
        Throw(CArchiveException::genericException);
    return Put(static_cast<LONG>(l));
}

CArchive& CArchive::operator<<(unsigned long ul) {
    if (ul > std::numeric_limits<DWORD>::max())
        Throw(CArchiveException::genericException);
    return Put(static_cast<DWORD>(ul));
}

CArchive& CArchive::operator>>(bool& b) {
    BYTE by = 0;
    Get(by);
    b = by != 0;
    return *this;
}

CArchive& CArchive::operator>>(wchar_t& ch) {
    WORD w = 0;
    Get(w);
    ch = static_cast<wchar_t>(w);
    return *this;
}

CArchive& CArchive::operator>>(long& l) {
    LONG v = 0;
    Get(v);
    l = v;
    return *this;
}

CArchive& CArchive::operator>>(unsigned long& ul) {
    DWORD v = 0;
    Get(v);
    ul = v;
    return *this;
}
