#pragma once

#include <string>
#include <vector>

#include "gral/Plotting.h"
#include "gral/sinks/LineWriter.h"
#include "gral/sinks/RecorderDevice.h"

namespace vk {

inline constexpr double kTwipsPerCmExact = 1440 / 2.54;

/// A printer whose printable area is 16 x 8 cm, so that a form at natural size has 9075 x 4530 twips.
inline PrinterMetrics smallPage(double resolution = 600) {
  return {Twips(8 * kTwipsPerCmExact), Twips(16 * kTwipsPerCmExact), resolution};
}

/// Keeps the letters of a drawing.
class LetterCatcher : public LineWriter {
 public:
  std::vector<TextRun> letters;
  void text(const TextRun& run) override { letters.push_back(run); }
};

/// A landscape drawing of 16 x 8 cm on a recording form.
class GralFixture : public ::testing::Test {
 protected:
  static constexpr double kWidth = 9075;
  static constexpr double kHeight = 4530;
  static constexpr double kTwipsPerLogX = kWidth / 16;
  static constexpr double kTwipsPerLogY = kHeight / 8;

  void SetUp() override { open(2); }

  void open(double scale, const std::string& orientation = "LANDSCAPE") {
    drawing.GralGrStr(form, orientation, scale);
    form.forget();
  }
  void openPrinter(double scale = 1, const std::string& orientation = "LANDSCAPE") {
    drawing.GralGrStr(printer, orientation, scale);
    printer.forget();
  }
  /// What was drawn since the last look, without the pens and fillings.
  std::vector<std::string> drawn() { return drawnOn(form); }
  static std::vector<std::string> drawnOn(RecorderDevice& device) {
    std::vector<std::string> result;
    for (const std::string& line : device.lines()) {
      if (line.rfind("pen ", 0) != 0 && line.rfind("filling ", 0) != 0) result.push_back(line);
    }
    device.forget();
    return result;
  }
  /// All lines since the last look.
  std::vector<std::string> allDrawn() {
    std::vector<std::string> result = form.lines();
    form.forget();
    return result;
  }

  /// The letters drawn since the last look, without the other primitives.
  std::vector<TextRun> lettersOn(RecorderDevice& device) {
    LetterCatcher catcher;
    device.list().replay(catcher);
    device.forget();
    return catcher.letters;
  }
  std::vector<TextRun> letters() { return lettersOn(form); }
  /// The first letters of texts of which these are the printed characters; all letters must be used up.
  static std::vector<TextRun> firstLetters(const std::vector<TextRun>& letters,
                                           const std::vector<std::string>& texts);

  RecorderDevice printer{smallPage()};
  RecorderDevice form{FormMetrics{{120, 405}, 1}};
  GralCls drawing{printer};
};

/// A pattern text from its codes.
inline std::string pattern(std::initializer_list<int> codes) {
  std::string result;
  for (const int c : codes) result += static_cast<char>(static_cast<unsigned char>(c));
  return result;
}

/// The numbers of a recorder line, in order.
std::vector<double> numbersOf(const std::string& line);

}  // namespace vk
