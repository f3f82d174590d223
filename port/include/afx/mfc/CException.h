// MFC's exception family: thrown as heap pointers, caught by pointer, released with Delete().
#pragma once

#include "port/Export.h"

#include "mfc/CObject.h"
#include "mfc/CString.h"
#include "win/types.h"

using PUINT = UINT*;

class ORV_API CException : public CObject {
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

class ORV_API CArchiveException : public CException {
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

class ORV_API CFileException : public CException {
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

class ORV_API CMemoryException : public CException {
    DECLARE_DYNAMIC(CMemoryException)
public:
    CMemoryException() = default;

protected:
    CString GetMessageText() const override;
};

class ORV_API CNotSupportedException : public CException {
    DECLARE_DYNAMIC(CNotSupportedException)
public:
    CNotSupportedException() = default;

protected:
    CString GetMessageText() const override;
};

class ORV_API CInvalidArgException : public CException {
    DECLARE_DYNAMIC(CInvalidArgException)
public:
    CInvalidArgException() = default;

protected:
    CString GetMessageText() const override;
};

// Thrown after the user has been told; carries no message.
class ORV_API CUserException : public CException {
    DECLARE_DYNAMIC(CUserException)
public:
    CUserException() = default;
};

[[noreturn]] ORV_API void AfxThrowArchiveException(int cause, LPCTSTR lpszArchiveName = nullptr);
[[noreturn]] ORV_API void AfxThrowFileException(int cause, LONG lOsError = -1,
                                                LPCTSTR lpszFileName = nullptr);
[[noreturn]] ORV_API void AfxThrowMemoryException();
[[noreturn]] ORV_API void AfxThrowNotSupportedException();
[[noreturn]] ORV_API void AfxThrowInvalidArgException();
[[noreturn]] ORV_API void AfxThrowUserException();
