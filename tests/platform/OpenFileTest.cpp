#include "platform/system/OpenFile.h"

#include <fcntl.h>

#include <cerrno>

#include "doubles/ErrorOf.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

TEST(OpenFile, ThatIsNotOpenTakesAndGivesNothing) {
  const TemporaryFolder folder;
  OpenFile file(folder / "none", O_RDONLY);
  EXPECT_FALSE(file.isOpen());
  EXPECT_FALSE(file.isRegular());
  EXPECT_FALSE(file.lock());
  EXPECT_EQ(errorOf([&] { file.readToEnd(10); }), kDeviceIoError);
  EXPECT_EQ(file.write("x"), EBADF);
  EXPECT_EQ(file.resize(1), EBADF);
  EXPECT_EQ(file.reserve(1), EBADF);
  EXPECT_EQ(file.close(), EBADF);
}

TEST(OpenFile, GivesNoMoreThanItsReaderTakes) {
  const TemporaryFolder folder;
  const OpenFile file(folder.make("X.DAT", "12345"), O_RDONLY);
  EXPECT_EQ(errorOf([&] { file.readToEnd(4); }), kDeviceIoError);
  EXPECT_EQ(file.readToEnd(5), "12345");
}

}  // namespace
}  // namespace vk
