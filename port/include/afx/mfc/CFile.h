// CFile: unbuffered binary file over a POSIX file descriptor, with MFC's open flags and
// CFileException errors.
#pragma once

#include "port/Export.h"

#include "mfc/CException.h"
#include "mfc/CObject.h"
#include "mfc/CString.h"
#include "win/types.h"

class ORV_API CFile : public CObject {
    DECLARE_DYNAMIC(CFile)
public:
    enum OpenFlags : UINT {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,
        modeCreate = 0x1000,
        modeNoTruncate = 0x2000,
        typeText = 0x4000,
        typeBinary = 0x8000,
    };
    enum SeekPosition : UINT { begin = 0x0, current = 0x1, end = 0x2 };

    CFile();
    // Opens the file; throws CFileException* on failure.
    CFile(LPCTSTR lpszFileName, UINT nOpenFlags);
    // Closes the file when it is open and m_bCloseOnDelete; errors are swallowed here.
    ~CFile() override;

    // Answers FALSE on failure and fills *pError when one is given (nothing is thrown).
    virtual BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError = nullptr);

    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG Seek(LONGLONG lOff, UINT nFrom);
    void SeekToBegin() { Seek(0, begin); }
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    virtual ULONGLONG GetLength() const;
    virtual void SetLength(ULONGLONG dwNewLen);

    // Answers the bytes read, fewer than nCount only at the end of the file.
    virtual UINT Read(void* lpBuf, UINT nCount);
    virtual void Write(const void* lpBuf, UINT nCount);

    // Forces written data to the disk.
    virtual void Flush();
    virtual void Close();
    // Closes without reporting errors.
    virtual void Abort();

    // The full path given to Open, and its last component.
    virtual CString GetFilePath() const { return m_strFileName; }
    virtual CString GetFileName() const;

    BOOL m_bCloseOnDelete = FALSE;
    CString m_strFileName;

protected:
    [[noreturn]] void ThrowLastError() const;

private:
    int m_fd = -1;
};
