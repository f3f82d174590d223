#include "win/files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "port/TextConversion.h"
#include "win/error.h"
#include "win/threads.h"

namespace {

// The Win32 status of a failed file call, from its errno.
DWORD StatusOfErrno(int error) {
    switch (error) {
    case ENOENT:
        return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
    case ENAMETOOLONG:
        return ERROR_PATH_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EROFS:
        return ERROR_ACCESS_DENIED;
    case ENOMEM:
        return ERROR_NOT_ENOUGH_MEMORY;
    default:
        return ERROR_INVALID_FUNCTION;
    }
}

} // namespace

DWORD GetFileAttributesW(LPCWSTR path) {
    if (!path) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_FILE_ATTRIBUTES;
    }
    const std::string file = port::WideToNarrow(path);
    struct stat status {};
    if (stat(file.c_str(), &status) != 0) {
        SetLastError(StatusOfErrno(errno));
        return INVALID_FILE_ATTRIBUTES;
    }
    DWORD attributes = 0;
    if (S_ISDIR(status.st_mode))
        attributes |= FILE_ATTRIBUTE_DIRECTORY;
    if (access(file.c_str(), R_OK | W_OK) != 0)
        attributes |= FILE_ATTRIBUTE_READONLY;
    return attributes ? attributes : FILE_ATTRIBUTE_NORMAL;
}

BOOL SetFileAttributesW(LPCWSTR path, DWORD attributes) {
    if (!path) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const std::string file = port::WideToNarrow(path);
    struct stat status {};
    if (stat(file.c_str(), &status) != 0) {
        SetLastError(StatusOfErrno(errno));
        return FALSE;
    }
    const mode_t writable = S_IWUSR | S_IWGRP | S_IWOTH;
    const mode_t mode = (attributes & FILE_ATTRIBUTE_READONLY)
                            ? (status.st_mode & ~writable)
                            : (status.st_mode | S_IRUSR | S_IWUSR);
    if (chmod(file.c_str(), mode & 07777) != 0) {
        SetLastError(StatusOfErrno(errno));
        return FALSE;
    }
    return TRUE;
}
