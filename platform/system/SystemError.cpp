#include "platform/system/SystemError.h"

#include <cerrno>

namespace vk {

RuntimeError systemError(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return RuntimeError(kPathNotFound);
    case EACCES:
    case EPERM:
    case EROFS:
    case ELOOP:
      return RuntimeError(kPathAccessError, kAccessDenied);
    case EISDIR:
      return RuntimeError(kPathAccessError, kIsFolder);
    case ETXTBSY:
    case ENAMETOOLONG:
      return RuntimeError(kPathAccessError);
    case ENOSPC:
    case EDQUOT:
      return RuntimeError(kDeviceIoError, "Disco pieno");
    default:
      return RuntimeError(kDeviceIoError);
  }
}

}  // namespace vk
