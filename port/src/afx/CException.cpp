// The exception family and the AfxThrow functions.
#include "mfc/CException.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "port/TextConversion.h"

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CArchiveException, CException)
IMPLEMENT_DYNAMIC(CFileException, CException)
IMPLEMENT_DYNAMIC(CMemoryException, CException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CException)
IMPLEMENT_DYNAMIC(CUserException, CException)

namespace {

// " (file name)" when there is a name, for the messages.
CString NameSuffix(const CString& name) {
    return name.IsEmpty() ? CString() : CString(L" (") + name + L")";
}

} // namespace

void CException::Delete() {
    if (m_bAutoDelete)
        delete this;
}

BOOL CException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const {
    if (pnHelpContext != nullptr)
        *pnHelpContext = 0;
    const CString text = GetMessageText();
    if (lpszError != nullptr && nMaxError > 0) {
        const auto n = std::min<size_t>(text.str().size(), nMaxError - 1);
        std::copy_n(text.GetString(), n, lpszError);
        lpszError[n] = L'\0';
    }
    return text.IsEmpty() ? FALSE : TRUE;
}

int CException::ReportError(UINT, UINT) {
    const CString text = GetMessageText();
    std::fprintf(stderr, "%s\n", port::WideToNarrow(text.str()).c_str());
    return 1; // IDOK
}

CArchiveException::CArchiveException(int cause, LPCTSTR lpszArchiveName)
    : m_cause(cause), m_strFileName(lpszArchiveName) {}

CString CArchiveException::GetMessageText() const {
    static const wchar_t* const messages[] = {
        L"",
        L"An unknown error occurred while accessing an archive",
        L"Tried to write to an archive opened for loading",
        L"Reached the end of the archive unexpectedly",
        L"Tried to read from an archive opened for storing",
        L"The archive has an invalid format",
        L"The archive holds an unexpected object",
        L"The archive holds an object of an unreadable version",
        L"The archive buffer is full",
    };
    if (m_cause < 0 || m_cause >= static_cast<int>(std::size(messages)))
        return CString(messages[genericException]) + NameSuffix(m_strFileName);
    if (m_cause == none)
        return CString();
    return CString(messages[m_cause]) + NameSuffix(m_strFileName);
}

CFileException::CFileException(int cause, LONG lOsError, LPCTSTR lpszArchiveName)
    : m_cause(cause), m_lOsError(lOsError), m_strFileName(lpszArchiveName) {}

int CFileException::ErrnoToException(int nErrno) {
    switch (nErrno) {
    case 0:
        return none;
    case ENOENT:
        return fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        return badPath;
    case EMFILE:
    case ENFILE:
        return tooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return accessDenied;
    case EBADF:
        return invalidFile;
    case EINVAL:
    case ESPIPE:
    case EOVERFLOW:
        return badSeek;
    case EIO:
        return hardIO;
    case ETXTBSY:
    case EBUSY:
        return sharingViolation;
    case EAGAIN:
    case ENOLCK:
        return lockViolation;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return diskFull;
    default:
        return genericException;
    }
}

void CFileException::ThrowErrno(int nErrno, LPCTSTR lpszFileName) {
    AfxThrowFileException(ErrnoToException(nErrno), nErrno, lpszFileName);
}

CString CFileException::GetMessageText() const {
    static const wchar_t* const messages[] = {
        L"",
        L"An unexpected file error occurred",
        L"The file was not found",
        L"The path is invalid",
        L"Too many files are open",
        L"Access to the file was denied",
        L"The file handle is invalid",
        L"The current folder cannot be removed",
        L"The folder is full",
        L"Seeking in the file failed",
        L"A hardware error occurred while accessing the file",
        L"A sharing violation occurred while accessing the file",
        L"A locking violation occurred while accessing the file",
        L"The disk is full",
        L"Reached the end of the file unexpectedly",
    };
    if (m_cause == none)
        return CString();
    const int cause =
        m_cause > 0 && m_cause < static_cast<int>(std::size(messages)) ? m_cause : genericException;
    return CString(messages[cause]) + NameSuffix(m_strFileName);
}

CString CMemoryException::GetMessageText() const {
    return CString(L"Out of memory");
}

CString CNotSupportedException::GetMessageText() const {
    return CString(L"The operation is not supported");
}

CString CInvalidArgException::GetMessageText() const {
    return CString(L"An invalid argument was given");
}

void AfxThrowArchiveException(int cause, LPCTSTR lpszArchiveName) {
    throw new CArchiveException(cause, lpszArchiveName);
}

void AfxThrowFileException(int cause, LONG lOsError, LPCTSTR lpszFileName) {
    throw new CFileException(cause, lOsError, lpszFileName);
}

void AfxThrowMemoryException() {
    throw new CMemoryException();
}

void AfxThrowNotSupportedException() {
    throw new CNotSupportedException();
}

void AfxThrowInvalidArgException() {
    throw new CInvalidArgException();
}

void AfxThrowUserException() {
    throw new CUserException();
}
