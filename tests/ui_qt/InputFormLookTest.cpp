#include "ui/qt/widgets/Twips.h"
#include "ui_qt/InputFormFixture.h"

namespace vk {
namespace {

/// Where everything stands on the input form, and what is painted there.
class InputFormLookTest : public InputFormFixture {};

TEST_F(InputFormLookTest, ResizingHasNoEffect) {
  then([this] {
    const QSize before = form.size();
    form.resize(before * 2);
    EXPECT_EQ(form.size(), before);
  });
  giveUp();
  show();
}

TEST_F(InputFormLookTest, StandsCentredBelowTheTopOfItsCaller) {
  then([this] {
    EXPECT_EQ(form.frameGeometry().top(), owner.frameGeometry().top() + 40);
    EXPECT_LE(std::abs(form.frameGeometry().center().x() - owner.frameGeometry().center().x()), 1);
  });
  giveUp();
  show();
}

TEST_F(InputFormLookTest, ThePlacesOnTheScreenAreThoseOfTheGrid) {
  then([this] {
    const CellSize cell = engine.layout().cell;
    EXPECT_EQ(form.size(), QSize(44 * cell.width / 15, 12 * cell.height / 15));
    EXPECT_EQ(field(2)->geometry(),
              toPixels(Rect{9.0 * cell.width, 4.0 * cell.height + 5, 7.0 * cell.width, cell.height + 40.0}));
    EXPECT_NEAR(control<QPushButton>(&form, "cmdRin")->geometry().center().x(), form.width() / 4.0, 1);
    EXPECT_NEAR(control<QPushButton>(&form, "cmdEse")->geometry().center().x(), 3 * form.width() / 4.0, 1);
    EXPECT_EQ(control<QPushButton>(&form, "cmdEse")->y(), toPixels(Twips(10 * cell.height)));
    EXPECT_EQ(form.accessibleName(), "VOR_KEL: Parametri Iniziali");
    EXPECT_FALSE(field(0)->isVisible()) << "the template";
  });
  giveUp();
  show();
}

TEST_F(InputFormLookTest, FramesPromptsAndFixedTextsArePainted) {
  tables.InpLabels[1] = Cp437Text(std::string("\xDB"));  // a full block, at row 4 and column 2
  tables.InpTextCount = 1;
  tables.InpTexts.dim(1);
  tables.InpTextPos.dim(1);
  tables.InpTexts[1] = Cp437Text(std::string(" \xDB\xDB "));
  tables.InpTextPos[1] = {2, 21, 1};
  then([this] {
    const CellSize cell = engine.layout().cell;
    const auto at = [&](double row, double col) {
      return pixelAt(&form, QPoint(toPixels(Twips((col - 0.5) * cell.width)),
                                   toPixels(Twips((row - 0.5) * cell.height))));
    };
    const QColor surface = at(3, 30);
    EXPECT_EQ(at(4, 2), QColor(Qt::black));
    EXPECT_NE(at(4, 3), QColor(Qt::black));
    // Two letters centred on the left edge of column 21.
    EXPECT_EQ(at(2, 20), QColor(Qt::black));
    EXPECT_EQ(at(2, 21), QColor(Qt::black));
    EXPECT_EQ(at(2, 19), surface);
    EXPECT_EQ(at(2, 22), surface);
    // The light sides of a frame are white, as the form is not.
    EXPECT_EQ(at(1, 20), QColor(Qt::white)) << "top";
    EXPECT_EQ(at(10, 20), QColor(Qt::black)) << "bottom";
    EXPECT_NE(surface, QColor(Qt::white));
  });
  giveUp();
  show();
}

}  // namespace
}  // namespace vk
