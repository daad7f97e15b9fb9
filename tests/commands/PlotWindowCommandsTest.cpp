#include "tests/commands/FigureFixture.h"

namespace vk {
namespace {

enum Button : int { kContinue = 1, kExit = 2, kCopy = 3, kPrint = 4 };

class GralFrmTest : public FigureFixture {
 protected:
  GralFrmTest() : plot(static_cast<RecordingPlotWindow&>(newPlotWindow(ports))) {
    plot.form.setCaption("VOR_KEL: Grafico Dati");
    plot.form.setWidth(6000);
    plot.form.setHeight(4500);
    plot.form.Show();
  }
  void click(int button) {
    dialogs.press(button);
    plot.click();
  }
  std::string captionOfTheDialog(const std::string& caption) {
    plot.form.setCaption(caption);
    click(kContinue);
    return std::string(dialogs.messages.back().caption.bytes());
  }

  RecordingPlotWindow& plot;
};

TEST_F(GralFrmTest, AClickAsksWhatToDo) {
  click(kContinue);
  ASSERT_EQ(dialogs.messages.size(), 1U);
  const MessageRequest& asked = dialogs.messages[0];
  EXPECT_EQ(asked.owner, Form::kActivePlot);
  EXPECT_EQ(asked.caption, "VOR_KEL: Grafico Dati");
  EXPECT_EQ(asked.text, "");
  EXPECT_EQ(asked.captions, (std::vector<WindowText>{"&Continua", "&Esci", "Co&pia", "&Stampa"}));
  EXPECT_EQ(asked.posX, 0);
  EXPECT_EQ(asked.posY, 0);
}

TEST_F(GralFrmTest, TheCaptionLosesItsTailInParentheses) {
  EXPECT_EQ(captionOfTheDialog("VOR_KEL: Grafico Dati"), "VOR_KEL: Grafico Dati");
  EXPECT_EQ(captionOfTheDialog("Grafico (2) di (3)"), "Grafico ");
  EXPECT_EQ(captionOfTheDialog("abc(d"), "abc");
  EXPECT_EQ(captionOfTheDialog("ab(cd"), "ab(cd");
  EXPECT_EQ(captionOfTheDialog("(a)b(c)"), "(a)b");
}

TEST_F(GralFrmTest, ToGoOnChangesNothing) {
  click(kContinue);
  EXPECT_TRUE(plot.form.Visible());
  EXPECT_EQ(plot.copies, 0);
  EXPECT_TRUE(printer.lines().empty());
  EXPECT_TRUE(window.calls.empty());
}

TEST_F(GralFrmTest, ToExitHidesTheWindowAndBringsTheMainWindowForward) {
  click(kExit);
  EXPECT_FALSE(plot.form.Visible());
  EXPECT_EQ(window.calls, std::vector<std::string>{"front"});
}

TEST_F(GralFrmTest, TheWindowThatWasClickedIsTheOneMeant) {
  RecordingPlotWindow& newer = static_cast<RecordingPlotWindow&>(newPlotWindow(ports));
  newer.form.Show();
  click(kExit);
  EXPECT_FALSE(plot.form.Visible());
  EXPECT_TRUE(newer.form.Visible());
}

TEST_F(GralFrmTest, ACopyPutsThePictureOnTheClipboard) {
  click(kCopy);
  EXPECT_EQ(plot.copies, 1);
  EXPECT_TRUE(plot.form.Visible());
}

TEST_F(GralFrmTest, AClipboardThatRefusesIsPassedOver) {
  plot.copyError = kInvalidCall;
  click(kCopy);
  EXPECT_TRUE(plot.form.Visible());
}

TEST_F(GralFrmTest, AWideWindowIsPrintedCentredOnLandscapePaper) {
  click(kPrint);
  // The page has 20 x 15 cm, 11338.58 x 8503.94 twips.
  EXPECT_EQ(printer.lines(), std::vector<std::string>{"picture 2669.291,2001.969 tw 2x1 of 15 tw"});
  EXPECT_EQ(printer.documents(), 1);
  EXPECT_EQ(printer.Orientation(), kPortrait);
}

TEST_F(GralFrmTest, AHighWindowIsPrintedAsThePaperLies) {
  plot.form.setWidth(3000);
  click(kPrint);
  EXPECT_EQ(printer.lines(), std::vector<std::string>{"picture 2751.969,3419.291 tw 2x1 of 15 tw"});
  printer.forget();
  printer.setOrientation(kLandscape);
  click(kPrint);
  EXPECT_EQ(printer.lines(), std::vector<std::string>{"picture 4169.291,2001.969 tw 2x1 of 15 tw"});
  EXPECT_EQ(printer.Orientation(), kLandscape);
}

TEST_F(GralFrmTest, AWindowLargerThanThePageKeepsAMargin) {
  plot.form.setWidth(15000);
  plot.form.setHeight(12000);
  click(kPrint);
  EXPECT_EQ(printer.lines(), std::vector<std::string>{"picture 1830.709,1748.031 tw 2x1 of 15 tw"});
}

TEST_F(GralFrmTest, APrintedWindowIsCopiedUnchanged) {
  const auto before = plot.form.lines();
  click(kPrint);
  click(kCopy);
  EXPECT_EQ(plot.copies, 1);
  EXPECT_EQ(plot.form.lines(), before);
}

/// A printer that refuses to print.
class BrokenPrinter : public RecorderDevice {
 public:
  BrokenPrinter() : RecorderDevice(PrinterMetrics{}) {}

 private:
  void picture(const Picture&, const TwipPoint&) override { throw RuntimeError(kPrinterError); }
  void endDocument() override {
    RecorderDevice::endDocument();
    throw RuntimeError(kPrinterError);
  }
};

TEST_F(GralFrmTest, APrinterThatFailsIsPassedOverStepByStep) {
  BrokenPrinter broken;
  printPicture(broken, plot.form);
  EXPECT_EQ(broken.documents(), 1);
  EXPECT_EQ(broken.Orientation(), kPortrait);
  EXPECT_TRUE(plot.form.Visible());
}

}  // namespace
}  // namespace vk
