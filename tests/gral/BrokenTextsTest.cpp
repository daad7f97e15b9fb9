#include "GralFixture.h"
#include "base/RuntimeError.h"

namespace vk {
namespace {

/// A form on which every n-th text operation fails.
class BrokenForm : public RecorderDevice {
 public:
  bool failMeasure = false, failText = false;

 private:
  double advance(bool symbol, unsigned char code) override {
    if (failMeasure && code == 'Z') throw RuntimeError(kInvalidCall);
    return RecorderDevice::advance(symbol, code);
  }
  double lineHeight(bool symbol) override {
    if (failMeasure) throw RuntimeError(kInvalidCall);
    return RecorderDevice::lineHeight(symbol);
  }
  void text(const TextRun& run) override {
    if (failText && run.text == "b") throw RuntimeError(kInvalidCall);
    RecorderDevice::text(run);
  }
};

TEST(BrokenTexts, FailingLetterIsSkippedAndTheNextAreDrawn) {
  RecorderDevice printer{smallPage()};
  BrokenForm form;
  GralCls drawing(printer);
  drawing.GralGrStr(form, "LANDSCAPE", 2);
  form.forget();
  form.failText = true;
  EXPECT_NO_THROW(drawing.GralWinPrintString(1000, 2000, 0, 0, 10, 0, "abc"));
  const std::vector<std::string> lines = form.lines();
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[1], "text 1000,1885 tw Arial 10 pt 0 deg 'a'");
  EXPECT_EQ(lines[2], "text 1240,1885 tw Arial 10 pt 0 deg 'c'");
}

TEST(BrokenTexts, MeasuringThatBreaksOffLeavesTheLaterWidthsZero) {
  RecorderDevice printer{smallPage()};
  BrokenForm form;
  GralCls drawing(printer);
  drawing.GralGrStr(form, "LANDSCAPE", 2);
  form.forget();
  form.failMeasure = true;
  EXPECT_NO_THROW(drawing.GralWinPrintString(1000, 2000, 0, 0, 10, 0, "A1ab"));
  const std::vector<std::string> lines = form.lines();
  ASSERT_EQ(lines.size(), 5U);
  // no line height either; "a" and "b" come after the code at which measuring broke off
  EXPECT_EQ(lines[2], "text 1140,2000 tw Arial 10 pt 0 deg '1'");
  EXPECT_EQ(lines[3], "text 1260,2000 tw Arial 10 pt 0 deg 'a'");
  EXPECT_EQ(lines[4], "text 1260,2000 tw Arial 10 pt 0 deg 'b'");
}

}  // namespace
}  // namespace vk
