#include "data/foreign/BinaryKinds.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

TEST(BinaryKinds, TellWhatIsPackedInAnArchiveByItsStartOrItsEnd) {
  const std::string archive = "PK\3\4", much(70000, 'x');
  EXPECT_EQ(nameOfOtherKind(archive + "xl/" + much), "una cartella di lavoro .xlsx");
  EXPECT_EQ(nameOfOtherKind(archive + much + "xl/"), "una cartella di lavoro .xlsx");
  EXPECT_EQ(nameOfOtherKind(archive + much + "xl/" + much), "un archivio ZIP");
  EXPECT_EQ(nameOfOtherKind(archive + "xl/"), "una cartella di lavoro .xlsx");
}

}  // namespace
}  // namespace vk
