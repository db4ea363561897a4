// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "FileStatus.h"

#include <cerrno>

namespace Host {

OSErr LastFileStatus()
{
    switch (errno) {
    case ENOENT:
    case ENOTDIR:
        return fnfErr;
    case EEXIST:
        return dupFNErr;
    case ENOTEMPTY:
    case EBUSY:
    case ETXTBSY:
        return fBsyErr;
    case EACCES:
    case EPERM:
        return permErr;
    case EROFS:
        return wPrErr;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return dskFulErr;
    case EMFILE:
    case ENFILE:
        return tmfoErr;
    case ENAMETOOLONG:
        return errFSNameTooLong;
    case EISDIR:
        return notAFileErr;
    case ENOMEM:
        return memFullErr;
    default:
        return ioErr;
    }
}

} // namespace Host
