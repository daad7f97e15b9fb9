#include "ui/layout/EditorLayout.h"

#include "ui/FixedMeasure.h"

namespace vk {
namespace {

constexpr int kWide = 0xDB;

/// A font in which one character of the upper half is wider than the others, and the lower half wider still.
class UnevenMeasure : public FixedMeasure {
 public:
  Twips width(std::string_view text) const override {
    const int code = static_cast<unsigned char>(text.front());
    return Twips(code < kFirstPaletteCode ? 900 : code == kWide ? 150 : 120);
  }
};

TEST(EditorLayout, TheControlHasRoomFor80Columns) {
  const EditorLayout layout = layoutEditor({120, 240}, {}, {});
  EXPECT_EQ(layout.control.width, 80 * 120 + 300);
  EXPECT_EQ(layout.control.height, 25 * 240 + 300);
}

TEST(EditorLayout, TheFormStandsBelowTheTopOfTheMainWindowCentredOnIt) {
  const EditorLayout layout = layoutEditor({120, 240}, {1500, 900, 12000, 9000}, {150, 900});
  EXPECT_EQ(layout.form.width, 9900 + 150);
  EXPECT_EQ(layout.form.height, 6300 + 900);
  EXPECT_EQ(layout.form.top, 900 + 600);
  EXPECT_EQ(layout.form.left, 1500 + (12000 - 10050) / 2);
}

TEST(EditorLayout, ThePaletteHas16By8CellsOfItsWidestCharacter) {
  const PaletteLayout layout = layoutPalette(UnevenMeasure());
  const double cellWidth = 3 * 150, cellHeight = 240 + 40;
  EXPECT_EQ(layout.FraIns, (Size{16 * cellWidth + 300, 8 * cellHeight + 300}));
  for (int i = 0; i < kPaletteCells; ++i) {
    EXPECT_EQ(layout.LblChr.at(static_cast<std::size_t>(i)),
              (Rect{i % 16 * cellWidth + 150, i / 16 * cellHeight + 200, cellWidth, cellHeight}))
        << i;
  }
  EXPECT_EQ(layout.LblChr.size(), 128u);
}

}  // namespace
}  // namespace vk
