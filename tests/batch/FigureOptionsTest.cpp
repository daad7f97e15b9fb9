#include "batch/FigureOptions.h"

#include <gmock/gmock.h>

#include "batch/TerminalPorts.h"

namespace vk {
namespace {

using ::testing::HasSubstr;

constexpr double kTwipsPerCm = kTwipsPerInch / kCmPerInch;

TEST(FigureOptions, SizesAreCmOrMm) {
  for (const char* word : {"12x8cm", "120x80mm", "12.0x8.cm"}) {
    const SheetSize size = sheetOf({.size = word}).size;
    EXPECT_NEAR(size.width, 12 * kTwipsPerCm, 1E-9) << word;
    EXPECT_NEAR(size.height, 8 * kTwipsPerCm, 1E-9) << word;
  }
  EXPECT_FALSE(sheetOf({}).sized());
}

/// What refuses the options; empty where nothing does.
std::string refusal(const FigureOptions& options) {
  try {
    sheetOf(options);
    return "";
  } catch (const UsageError& error) {
    return error.what();
  }
}

TEST(FigureOptions, BadSizesAreRefusedInTheirWords) {
  for (const char* word : {"12", "12x8", "12x8in", "x8cm", "12xcm", "12x8 cm", "12*8cm", "axbcm", "12x8x3cm",
                           "nanx8", "12x8cmcm"}) {
    EXPECT_THAT(refusal({.size = word}), HasSubstr("si attende LARGHEZZAxALTEZZA in cm o mm")) << word;
  }
  for (const char* word : {"0x8cm", "12x0cm", "-12x8cm", "12x1.9cm", "101x8cm", "1E300x8cm", "12x1001mm",
                           "nanx8cm", "infx8cm"}) {
    EXPECT_EQ(refusal({.size = word}), "--size: si attendono lati in cm da 2 a 100") << word;
  }
  EXPECT_EQ(refusal({.scale = 0}), "--scale: si attende un numero da .1 a 5");
  EXPECT_EQ(refusal({.scale = 5.1}), "--scale: si attende un numero da .1 a 5");
  EXPECT_EQ(refusal({.dpi = 29}), "--dpi: si attende un numero da 30 a 1200");
  EXPECT_EQ(refusal({.dpi = 1201}), "--dpi: si attende un numero da 30 a 1200");
  EXPECT_EQ(refusal({.size = "2x100cm", .scale = .1, .dpi = 1200}), "");
}

TEST(FigureOptions, PagesThatFollowTheSheetKeepTheSizeOfLetters) {
  const FigurePage page = filledPage({.size = "12x8cm"});
  EXPECT_FALSE(page.portrait);
  EXPECT_EQ(page.scale, 1);
  EXPECT_NEAR(page.sides.longSide.value(), 24 * kTwipsPerCm, 1E-9);
  EXPECT_NEAR(page.sides.shortSide.value(), 16 * kTwipsPerCm, 1E-9);
  const FigurePage large = filledPage({.size = "8x12cm", .scale = 2});
  EXPECT_TRUE(large.portrait);
  EXPECT_EQ(large.scale, 2);
  // 8 cm at this scale are less than letters and margins need: the page is larger, in the same form.
  EXPECT_NEAR(large.sides.shortSide.value(), 14 * kTwipsPerCm, 1E-9);
  EXPECT_NEAR(large.sides.longSide.value(), 21 * kTwipsPerCm, 1E-9);
}

}  // namespace
}  // namespace vk
