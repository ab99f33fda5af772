#include "system/error_number.h"

#include <cerrno>

#include "base/failure.h"

namespace host {

namespace failure = platform::failure;

std::int32_t FailureNumber(int error, std::int32_t missing) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return missing;
    case ENOSPC:
    case EFBIG:
#ifdef EDQUOT
    case EDQUOT:
#endif
      return failure::DiskFull;
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY:
      return failure::PermissionDenied;
    case EISDIR:
      return failure::PathFileAccess;
    case EMFILE:
    case ENFILE:
      return failure::TooManyFiles;
    case EBADF:
    case ENAMETOOLONG:
      return failure::BadFileNumber;
    default:
      return failure::DeviceIo;
  }
}

}  // namespace host
