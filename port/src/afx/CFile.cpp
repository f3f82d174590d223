// CFile over a POSIX file descriptor.
#include "mfc/CFile.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "port/TextConversion.h"

IMPLEMENT_DYNAMIC(CFile, CObject)

namespace {

// The open(2) flags for MFC's access and creation flags; the share flags have no POSIX
// counterpart and are not enforced.
int PosixFlags(UINT nOpenFlags) {
    int flags = 0;
    switch (nOpenFlags & 0x3) {
    case CFile::modeWrite:
        flags = O_WRONLY;
        break;
    case CFile::modeReadWrite:
        flags = O_RDWR;
        break;
    default:
        flags = O_RDONLY;
        break;
    }
    if (nOpenFlags & CFile::modeCreate)
        flags |= O_CREAT | ((nOpenFlags & CFile::modeNoTruncate) ? 0 : O_TRUNC);
    if (nOpenFlags & CFile::modeNoInherit)
        flags |= O_CLOEXEC;
    return flags;
}

} // namespace

CFile::CFile() = default;

CFile::CFile(LPCTSTR lpszFileName, UINT nOpenFlags) {
    CFileException error;
    if (!Open(lpszFileName, nOpenFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile() {
    if (m_fd >= 0 && m_bCloseOnDelete)
        Abort();
}

BOOL CFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError) {
    if (m_fd >= 0)
        Abort();
    const std::string narrow = port::WideToNarrow(lpszFileName != nullptr ? lpszFileName : L"");
    std::error_code ec;
    std::filesystem::path full = std::filesystem::absolute(narrow, ec);
    m_strFileName = CString(port::NarrowToWide(ec ? narrow : full.lexically_normal().string()));

    int fd = -1;
    if (!narrow.empty()) {
        do {
            fd = ::open(narrow.c_str(), PosixFlags(nOpenFlags), 0666);
        } while (fd < 0 && errno == EINTR);
    } else {
        errno = ENOENT;
    }
    if (fd < 0) {
        const int err = errno;
        if (pError != nullptr) {
            // As on Windows, a missing folder is a bad path rather than a missing file.
            const bool folderMissing =
                err == ENOENT && !ec && !std::filesystem::is_directory(full.parent_path(), ec);
            pError->m_cause =
                folderMissing ? CFileException::badPath : CFileException::ErrnoToException(err);
            pError->m_lOsError = err;
            pError->m_strFileName = m_strFileName;
        }
        return FALSE;
    }
    struct stat st {};
    if (::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode)) {
        ::close(fd);
        if (pError != nullptr) {
            pError->m_cause = CFileException::accessDenied;
            pError->m_lOsError = EISDIR;
            pError->m_strFileName = m_strFileName;
        }
        return FALSE;
    }
    m_fd = fd;
    m_bCloseOnDelete = TRUE;
    return TRUE;
}

void CFile::ThrowLastError() const {
    CFileException::ThrowErrno(errno, m_strFileName);
}

ULONGLONG CFile::GetPosition() const {
    const off_t pos = ::lseek(m_fd, 0, SEEK_CUR);
    if (pos < 0)
        ThrowLastError();
    return static_cast<ULONGLONG>(pos);
}

ULONGLONG CFile::Seek(LONGLONG lOff, UINT nFrom) {
    const int whence = nFrom == begin ? SEEK_SET : nFrom == current ? SEEK_CUR : SEEK_END;
    if (nFrom > end)
        AfxThrowFileException(CFileException::badSeek, EINVAL, m_strFileName);
    const off_t pos = ::lseek(m_fd, static_cast<off_t>(lOff), whence);
    if (pos < 0)
        ThrowLastError();
    return static_cast<ULONGLONG>(pos);
}

ULONGLONG CFile::GetLength() const {
    struct stat st {};
    if (::fstat(m_fd, &st) != 0)
        ThrowLastError();
    return static_cast<ULONGLONG>(st.st_size);
}

void CFile::SetLength(ULONGLONG dwNewLen) {
    int rc;
    do {
        rc = ::ftruncate(m_fd, static_cast<off_t>(dwNewLen));
    } while (rc != 0 && errno == EINTR);
    if (rc != 0)
        ThrowLastError();
}

UINT CFile::Read(void* lpBuf, UINT nCount) {
    auto* p = static_cast<BYTE*>(lpBuf);
    UINT done = 0;
    while (done < nCount) {
        const ssize_t n = ::read(m_fd, p + done, nCount - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            ThrowLastError();
        if (n == 0)
            break;
        done += static_cast<UINT>(n);
    }
    return done;
}

void CFile::Write(const void* lpBuf, UINT nCount) {
    const auto* p = static_cast<const BYTE*>(lpBuf);
    UINT done = 0;
    while (done < nCount) {
        const ssize_t n = ::write(m_fd, p + done, nCount - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            ThrowLastError();
        done += static_cast<UINT>(n);
    }
}

void CFile::Flush() {
    if (::fsync(m_fd) != 0 && errno != EINVAL && errno != EROFS)
        ThrowLastError();
}

void CFile::Close() {
    const int fd = m_fd;
    m_fd = -1;
    m_bCloseOnDelete = FALSE;
    if (fd >= 0 && ::close(fd) != 0 && errno != EINTR)
        ThrowLastError();
}

void CFile::Abort() {
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
    m_bCloseOnDelete = FALSE;
}

CString CFile::GetFileName() const {
    const auto& path = m_strFileName.str();
    const auto slash = path.find_last_of(L'/');
    return CString(slash == std::wstring::npos ? path : path.substr(slash + 1));
}
