#include <gmock/gmock.h>

#include <filesystem>

#include "base/NumberText.h"
#include "batch/BatchRun.h"
#include "doubles/TemporaryFolder.h"

/// Graphic files of fits, which need no toolkit.
namespace vk {
namespace {

using ::testing::HasSubstr;

TEST(BatchFit, AFigureThatCannotBeWrittenIsBadInput) {
  const BatchRun run = batch(std::string(kFitOhm) + "--save-gra /nowhere/at/all.gra");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, "/nowhere/at/all.gra: Impossibile trovare il percorso\n");
}

TEST(BatchFit, AFunctionThatCannotBeComputedHasNoFigure) {
  // The curve begins at x = 0 and has 80 steps to 100: more than five points lie where LOG fails.
  std::string data = "x\r\ny\r\n 40\r\n";
  for (int i = 0; i < 40; ++i) data += generalText(9 + i * 2.3) + " " + generalText(i * .1) + " .1\r\n";
  const std::string figure = freshPath("OUT.GRA");
  const std::string fit = "fit '" + temporaryFile("L.DAT", data) +
                          "' --function 'a*LOG(x-t)' --par a=1 --fixed t=8.9 --save-gra '" + figure;
  const BatchRun run = batch(fit + "'");
  EXPECT_EQ(run.exitCode, 1);
  const std::string none = "La funzione non si puo` calcolare: nessun grafico\n";
  EXPECT_EQ(run.errors, "fit: Errori nel Calcolo della Funzione\n" + none);
  EXPECT_THAT(run.output, HasSubstr("Completata"));
  EXPECT_FALSE(std::filesystem::exists(figure));
  EXPECT_EQ(batch(fit + "' --style modern").errors, none);
  EXPECT_FALSE(std::filesystem::exists(figure));
}

TEST(BatchFit, AFailedFitMakesNoFigures) {
  const std::string figure = freshPath("OUT.GRA");
  const BatchRun run =
      batch("fit examples/ohm.dat --function 'a*x+b-b' --par a=1 --par b=1 --save-gra '" + figure + "'");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_FALSE(std::filesystem::exists(figure));
}

}  // namespace
}  // namespace vk
