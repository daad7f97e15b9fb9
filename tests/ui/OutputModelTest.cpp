#include "ui/OutputModel.h"

#include "doubles/Doubles.h"

namespace vk {
namespace {

using testing::ElementsAre;

constexpr CellSize kOutputCell{100, 200};
const FontSpec kFont{"Courier New", 10};

class OutputModelTest : public testing::Test {
 protected:
  OutputLayout show(int rows, int cols, std::vector<WindowText> captions, const std::string& text = "") {
    model.OutShow({Form::kMain, rows, cols, std::move(captions), "Titolo", Cp437Text(text)});
    return model.layout(kOutputCell, around);
  }

  OutputModel model;
  OutputSurroundings around{{1000, 500, 12000, 8000}, {60, 300}, {900, 400}};
  RecordingPrinter printer;
  RecordingClipboard clipboard;
};

TEST_F(OutputModelTest, ATextSelectsTextModeAndBlanksDoNot) {
  show(25, 80, kReportButtons, "*** ERR.");
  EXPECT_EQ(model.OutTextMode, kTrue);
  show(25, 80, kReportButtons, "     ");
  EXPECT_EQ(model.OutTextMode, kFalse);
  show(25, 80, kReportButtons);
  EXPECT_EQ(model.OutTextMode, kFalse);
}

TEST_F(OutputModelTest, TheContentIsRowsByColumnsOfCells) {
  const OutputLayout layout = show(20, 80, {"&Continua"});
  EXPECT_EQ(model.OutPixelW, 8000);
  EXPECT_EQ(model.OutPixelH, 4000);
  EXPECT_EQ(layout.form.width, 8000 + 60);
  EXPECT_EQ(layout.form.height, 4000 + 300 + 2 * 400);
}

TEST_F(OutputModelTest, ATextBoxIs300TwipsLarger) {
  const OutputLayout layout = show(20, 80, {"&Continua"}, "testo");
  EXPECT_EQ(model.OutPixelW, 8300);
  EXPECT_EQ(model.OutPixelH, 4300);
  EXPECT_EQ(layout.form.width, 8360);
  EXPECT_EQ(layout.buttons[0].top, 4300 + 200);
}

TEST_F(OutputModelTest, EachButtonIsCentredInItsStrip) {
  const OutputLayout layout = show(20, 80, {"&Continua", "&Stampa", "Co&pia", "Salva &File"});
  EXPECT_EQ(model.OutButtons, 4);
  ASSERT_EQ(layout.buttons.size(), 4u);
  EXPECT_EQ(layout.buttons[0], (Rect{1000 - 450, 4000 + 200, 900, 400}));
  EXPECT_EQ(layout.buttons[3].left, 7000 - 450);
}

TEST_F(OutputModelTest, WithoutButtonsThereIsNoRoomForThem) {
  const OutputLayout layout = show(20, 80, {});
  EXPECT_EQ(layout.form.height, 4000 + 300);
  EXPECT_TRUE(layout.buttons.empty());
}

TEST_F(OutputModelTest, StandsCentredBelowTheTopOfItsOwner) {
  const OutputLayout layout = show(20, 80, {"&Continua"});
  EXPECT_EQ(layout.form.top, 500 + 600);
  EXPECT_EQ(layout.form.left, 1000 + (12000 - 8060) / 2.0);
}

TEST_F(OutputModelTest, OnlyTheFourCaptionsAreCommands) {
  EXPECT_EQ(outputCommand("&Continua"), OutputCommand::kContinue);
  EXPECT_EQ(outputCommand("&Stampa"), OutputCommand::kPrint);
  EXPECT_EQ(outputCommand("Co&pia"), OutputCommand::kCopy);
  EXPECT_EQ(outputCommand("Salva &File"), OutputCommand::kSaveFile);
  EXPECT_EQ(outputCommand("Continua"), OutputCommand::kNone);
  EXPECT_EQ(outputCommand(""), OutputCommand::kNone);
}

TEST_F(OutputModelTest, ANarrowDrawingIsPrintedCentredInPortrait) {
  show(40, 40, kReportButtons);
  model.print("x");
  model.printOn(printer, kFont);
  EXPECT_THAT(printer.calls, ElementsAre("portrait", "grid", "end", "portrait"));
  EXPECT_EQ(printer.place,
            (GridPlace{(11000 - 4000) / 2.0, (16000 - 8000) / 2.0, 100, 200, "Courier New", 10}));
  EXPECT_EQ(printer.grid.at(1, 1), 'x');
}

TEST_F(OutputModelTest, AWideDrawingIsPrintedInLandscapeAndTheOrientationReturns) {
  show(20, 80, kReportButtons);
  model.printOn(printer, kFont);
  EXPECT_THAT(printer.calls, ElementsAre("landscape", "grid", "end", "portrait"));
  EXPECT_EQ(printer.place.left, (16000 - 8000) / 2.0);
  printer.calls.clear();
  printer.orientation = kLandscape;
  show(40, 40, kReportButtons);
  model.printOn(printer, kFont);
  EXPECT_THAT(printer.calls, ElementsAre("portrait", "grid", "end", "landscape"));
}

TEST_F(OutputModelTest, ADrawingWiderThanThePageKeepsThePositiveMargin) {
  // QUIRK: the margin is an absolute difference.
  show(20, 200, kReportButtons);
  model.printOn(printer, kFont);
  EXPECT_EQ(printer.place.left, (20000 - 16000) / 2.0);
}

TEST_F(OutputModelTest, ATextIsPrintedAsTextInTheEditFont) {
  show(25, 80, kReportButtons, "uno\r\ndue");
  model.printOn(printer, kFont);
  EXPECT_THAT(printer.calls, ElementsAre("text", "end"));
  EXPECT_EQ(printer.text, "uno\r\ndue");
  EXPECT_EQ(printer.face, "Courier New");
  EXPECT_EQ(printer.points, 10);
}

TEST_F(OutputModelTest, CopyPutsTheTextOrTheGridOnAClearedClipboard) {
  show(25, 80, kReportButtons, "uno");
  model.copyTo(clipboard);
  EXPECT_THAT(clipboard.calls, ElementsAre("clear", "text"));
  EXPECT_EQ(clipboard.held, "uno");
  clipboard.calls.clear();
  show(2, 10, kReportButtons);
  model.CharLocate(2, 3);
  model.print("abc");
  model.copyTo(clipboard);
  EXPECT_THAT(clipboard.calls, ElementsAre("clear", "grid"));
  EXPECT_EQ(clipboard.grid.rowText(2), "  abc     ");
}

TEST_F(OutputModelTest, AFramesTitleStandsCentredBelowItsTopRow) {
  show(10, 20, {});
  model.CharFrame(2, 1, 6, 20, 3, "Titolo");
  EXPECT_EQ(model.grid().rowText(3), "       Titolo       ");
}

TEST_F(OutputModelTest, ANewShowingStartsWithAnEmptyGrid) {
  show(5, 10, {});
  model.print("vecchio");
  show(5, 10, {});
  EXPECT_EQ(model.grid().rowText(1), "          ");
  model.print("x");
  EXPECT_EQ(model.grid().at(1, 1), 'x');
}

}  // namespace
}  // namespace vk
