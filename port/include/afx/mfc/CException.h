// MFC's exception family: thrown as heap pointers, caught by pointer, released with Delete().
#pragma once

#include "mfc/CObject.h"
#include "mfc/CString.h"
#include "win/types.h"

using PUINT = UINT*;

class CException : public CObject {
    DECLARE_DYNAMIC(CException)
public:
    explicit CException(BOOL bAutoDelete = TRUE) : m_bAutoDelete(bAutoDelete) {}

    // Deletes a heap exception; one made with bAutoDelete FALSE (on the stack) is left alone.
    void Delete();
    // Copies the message, cut to nMaxError - 1 characters and terminated, into lpszError.
    // Answers FALSE (and an empty buffer) when the exception has no message.
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError,
                                 PUINT pnHelpContext = nullptr) const;
    // Writes the message to standard error and answers IDOK.
    virtual int ReportError(UINT nType = 0, UINT nMessageID = 0);

protected:
    // The message of this exception; empty when it has none.
    virtual CString GetMessageText() const { return CString(); }

    BOOL m_bAutoDelete;
};

class CArchiveException : public CException {
    DECLARE_DYNAMIC(CArchiveException)
public:
    enum {
        none,
        genericException,
        readOnly,
        endOfFile,
        writeOnly,
        badIndex,
        badClass,
        badSchema,
        bufferFull
    };

    explicit CArchiveException(int cause = none, LPCTSTR lpszArchiveName = nullptr);

    int m_cause;
    CString m_strFileName;

protected:
    CString GetMessageText() const override;
};

class CFileException : public CException {
    DECLARE_DYNAMIC(CFileException)
public:
    enum {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    explicit CFileException(int cause = none, LONG lOsError = -1,
                            LPCTSTR lpszArchiveName = nullptr);

    // The cause for a C library errno value.
    static int ErrnoToException(int nErrno);
    [[noreturn]] static void ThrowErrno(int nErrno, LPCTSTR lpszFileName = nullptr);

    int m_cause;
    LONG m_lOsError; // errno here
    CString m_strFileName;

protected:
    CString GetMessageText() const override;
};

class CMemoryException : public CException {
    DECLARE_DYNAMIC(CMemoryException)
public:
    CMemoryException() = default;

protected:
    CString GetMessageText() const override;
};

class CNotSupportedException : public CException {
    DECLARE_DYNAMIC(CNotSupportedException)
public:
    CNotSupportedException() = default;

protected:
    CString GetMessageText() const override;
};

class CInvalidArgException : public CException {
    DECLARE_DYNAMIC(CInvalidArgException)
public:
    CInvalidArgException() = default;

protected:
    CString GetMessageText() const override;
};

// Thrown after the user has been told; carries no message.
class CUserException : public CException {
    DECLARE_DYNAMIC(CUserException)
public:
    CUserException() = default;
};

[[noreturn]] void AfxThrowArchiveException(int cause, LPCTSTR lpszArchiveName = nullptr);
[[noreturn]] void AfxThrowFileException(int cause, LONG lOsError = -1,
                                        LPCTSTR lpszFileName = nullptr);
[[noreturn]] void AfxThrowMemoryException();
[[noreturn]] void AfxThrowNotSupportedException();
[[noreturn]] void AfxThrowInvalidArgException();
[[noreturn]] void AfxThrowUserException();
