#include "posix/fileerror.h"

#include <cerrno>

RunTimeError fileError(int systemError)
{
    switch (systemError) {
    case ENOENT:
    case ENAMETOOLONG:
        return RunTimeError(ErrorNumber::FileNotFound);
    case ENOTDIR:
        return RunTimeError(ErrorNumber::PathNotFound);
    case EACCES:
    case EPERM:
        return RunTimeError(ErrorNumber::PermissionDenied);
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return RunTimeError(ErrorNumber::DiskFull);
    default:
        return RunTimeError(ErrorNumber::PathFileAccess);
    }
}
