#include "ui/qt/widgets/DesktopServices.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

TEST(QtProcess, TellsWhetherTheProgramWasStarted) {
  QtProcess process;
  EXPECT_TRUE(process.start("/bin/true"));
  EXPECT_FALSE(process.start("/nowhere/tabulo"));
}

}  // namespace
}  // namespace vk
