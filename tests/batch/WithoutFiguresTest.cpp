#include <gmock/gmock.h>

#include "batch/BatchRun.h"

namespace vk {
namespace {

TEST(BatchDraw, WithoutTheProgramThatDrawsItIsNamed) {
  const BatchRun run = batch("draw examples/ohm_dat.gra -o out.png");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_THAT(run.errors, testing::HasSubstr("vor_kel_figures"));
}

}  // namespace
}  // namespace vk
