#include "platform/system/SystemError.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace vk {
namespace {

TEST(SystemError, HasTheRunTimeErrorThatUsersKnow) {
  struct Case {
    int system, number;
    std::string reason;
  };
  const std::string general = systemError(EIO).reason();
  const Case cases[]{
      {ENOENT, kPathNotFound, RuntimeError(kPathNotFound).reason()},
      {ENOTDIR, kPathNotFound, RuntimeError(kPathNotFound).reason()},
      {EACCES, kPathAccessError, kAccessDenied},
      {EPERM, kPathAccessError, kAccessDenied},
      {EROFS, kPathAccessError, kAccessDenied},
      {ELOOP, kPathAccessError, kAccessDenied},
      {EISDIR, kPathAccessError, kIsFolder},
      {ETXTBSY, kPathAccessError, RuntimeError(kPathAccessError).reason()},
      {ENAMETOOLONG, kPathAccessError, RuntimeError(kPathAccessError).reason()},
      {ENOSPC, kDeviceIoError, "Disco pieno"},
      {EDQUOT, kDeviceIoError, "Disco pieno"},
      {EIO, kDeviceIoError, general},
      {EMFILE, kDeviceIoError, general},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(systemError(c.system).number(), c.number) << c.system;
    EXPECT_EQ(systemError(c.system).reason(), c.reason) << c.system;
  }
  EXPECT_EQ(general, RuntimeError(kDeviceIoError).reason());
}

}  // namespace
}  // namespace vk
