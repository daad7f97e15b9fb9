#include <algorithm>

#include "doubles/DrawingLines.h"
#include "doubles/Tolerances.h"
#include "grafile/FrameTexts.h"
#include "grafile/GraphicCommandsFixture.h"

namespace vk {
namespace {

/// Numbers and titles of frames on a page of 20 x 15 cm.
class FrameTextsTest : public GraphicCommandsTest {
 protected:
  void SetUp() override { d.GralGrStr(form, "LANDSCAPE", 2); }

  static std::string shown(const AxisText& text) {
    std::string result;
    for (int k = 0; k <= text.labels.upper(); ++k) result += text.labels[k] + "|";
    return result + text.title;
  }
  std::string ofX(double length, double from, double to, int intervals, bool logarithmic = false) {
    const PlotBox box{{1, 1 + length, from, to}, {1, 5, 0, 1}};
    return shown(frameTexts(d, box, {intervals, 1, {logarithmic, false}, true, "t (s)", ""}).x);
  }
  std::string ofY(double length, double from, double to, int intervals, bool logarithmic = false) {
    const PlotBox box{{1, 5, 0, 1}, {1, 1 + length, from, to}};
    return shown(frameTexts(d, box, {1, intervals, {false, logarithmic}, true, "", "N"}).y);
  }

  RecorderDevice form;
  GralCls d{printer};
};

TEST_F(FrameTextsTest, NumbersStandClearOfOneAnother) {
  EXPECT_EQ(ofX(14, 0, 10, 5), "0|2|4|6|8|10|t (s)");
  EXPECT_EQ(ofX(4, 0, 1, 10), "0.0|||0.3|||0.6|||0.9||t (s)");
  EXPECT_EQ(ofX(14, 0, 5E7, 5), "0|10|20|30|40|50|t (s) (10^{6})");
  EXPECT_EQ(ofY(8, -1, 1, 4), "-1.0|-0.5|0.0|0.5|1.0|N");
  EXPECT_EQ(ofY(3, 0, 10, 10), "0|||3|||6|||9||N");
}

TEST_F(FrameTextsTest, PowersOfTenHaveNoGapAndKeepTheirPlace) {
  EXPECT_EQ(ofX(14, -1, 2, 3, true), "10^{-1}|10^{0}|10^{1}|10^{2}|t (s)");
  EXPECT_EQ(ofX(3, -1, 2, 3, true), "10^{-1}||10^{1}||t (s)");
  EXPECT_EQ(ofY(9, 0, 12, 12, true),
            "10^{0}|10^{1}|10^{2}|10^{3}|10^{4}|10^{5}|10^{6}|10^{7}|10^{8}|10^{9}|"
            "10^{10}|10^{11}|10^{12}|N");
}

TEST_F(FrameTextsTest, TheRoomIsThatOfWhatIsDrawn) {
  const PlotBox box{{4, 18, 0, 10}, {3, 12, 0, 2}};
  const auto room = [&](const BoxAxes& axes) { return roomFor(d, frameTexts(d, box, axes)); };
  const double line = d.GralTextExtent(16, "0").height, title = d.GralTextExtent(17, "0").height;
  const double digit = d.GralTextExtent(16, "0").width;
  const Margins plain = room({5, 2, {}, true, "", ""});
  EXPECT_NEAR(plain.left, digit + 0.4, kSingles);
  EXPECT_NEAR(plain.right, digit + 0.2, kSingles);
  EXPECT_NEAR(plain.bottom, line + 0.4, kSingles);
  EXPECT_NEAR(plain.top, line / 2, kSingles);
  const Margins titled = room({5, 2, {}, true, "t", "N"});
  EXPECT_NEAR(titled.left, plain.left + title + 0.2, kSingles);
  EXPECT_NEAR(titled.bottom, plain.bottom + title, kSingles);
  // As wide as it is drawn: the braces take no room, the exponent three quarters.
  const Margins powers = room({5, 2, {false, true}, true, "", ""});
  EXPECT_NEAR(powers.left, d.GralTextExtent(16, "10").width + 0.75 * digit + 0.4, kSingles);
  EXPECT_NEAR(room({5, 2, {}, false, "t", ""}).bottom, line / 2, kSingles);
}

TEST_F(FrameTextsTest, AFrameWritesThemAndItsFunctionsRunOverIt) {
  const std::string scales = lines(
      {"\\XSCALA(4,18,0,10)", "\\YSCALA(3,12,0,6)", "\\XLEGENDA( t )", "\\YLEGENDA(N)", "\\RIQUADRO(5,3,1)"});
  const auto drawn = run(scales + "\\FUNZIONE(x/2)\r\n");
  EXPECT_TRUE(output.requests.empty());
  const auto letters =
      std::ranges::count_if(drawn, [](const std::string& l) { return l.starts_with("text "); });
  EXPECT_EQ(letters, 7 + 4 + 2);
  const auto curve =
      std::ranges::find_if(drawn, [](const std::string& l) { return l.starts_with("polyline "); });
  ASSERT_NE(curve, drawn.end());
  EXPECT_EQ(numbersOf(*curve).size(), 2 * 400U);
}

TEST_F(FrameTextsTest, TitlesStandInTheMiddleOfTheirSides) {
  const auto placeOf = [&](const std::string& title, const std::string& x, const std::string& y) {
    const auto drawn = run(lines({"\\XSCALA(" + x + ",0,10)", "\\YSCALA(" + y + ",0,6)", "\\XLEGENDA(t)",
                                  "\\YLEGENDA(N)", "\\RIQUADRO(5,3,1)"}));
    const auto text = std::ranges::find_if(drawn, [&](const std::string& line) {
      return line.starts_with("text ") && line.ends_with("'" + title + "'");
    });
    const std::vector<double> numbers = numbersOf(*text);
    return std::pair(numbers[0], numbers[1]);
  };
  // A page has its origin above.
  const auto [tx, ty] = placeOf("t", "4,18", "3,12");
  const auto [nx, ny] = placeOf("N", "4,18", "3,12");
  const auto [movedTx, movedTy] = placeOf("t", "5,19", "5,14");
  const auto [movedNx, movedNy] = placeOf("N", "5,19", "5,14");
  EXPECT_GT(movedTx, tx);
  EXPECT_LT(movedTy, ty);
  EXPECT_NEAR(movedNx - nx, movedTx - tx, kSingles);
  EXPECT_NEAR(movedNy - ny, movedTy - ty, kSingles);
}

TEST_F(FrameTextsTest, FunctionsOfAFrameAreRefusedLikeOthers) {
  const std::string frame = lines({"\\XSCALA(4,18,0,10)", "\\YSCALA(3,12,0,6)", "\\RIQUADRO(5,3,1)"});
  EXPECT_EQ(errorsOf(frame + lines({"\\FUNZIONE(q * x)", "\\FUNZIONE(LOG(-1-x))", "\\FUNZIONE(x)"})),
            lines({"*** Funzione q * x Errata", "*** Funzione LOG(-1-x) NON Calcolabile"}));
}

// QUIRK: a function that fails at its last point leaves the error register set at the end of the file.
TEST_F(FrameTextsTest, AFunctionOfTheLastLineThatFailsAtTheEndOfTheFrameOpensAnEmptyList) {
  run(lines({"\\XSCALA(4,18,0,10)", "\\YSCALA(3,12,0,6)", "\\RIQUADRO(5,3,1)", "\\FUNZIONE(SQR(9-x))"}));
  ASSERT_EQ(output.requests.size(), 1U);
  EXPECT_EQ(output.request().text, "");
}

TEST_F(FrameTextsTest, UnderLogarithmsFunctionsRunOverTheDecades) {
  const auto curve = [&](const std::string& formula, const std::string& logarithms) {
    std::vector<std::string> drawn = run(lines({"\\XSCALA(4,18,-1,1)", "\\YSCALA(3,12,-2,2)", logarithms,
                                                "\\RIQUADRO(2,4,1)", "\\FUNZIONE(" + formula + ")"}));
    std::erase_if(drawn, [](const std::string& line) { return !line.starts_with("polyline "); });
    EXPECT_TRUE(output.requests.empty());
    return drawn;
  };
  EXPECT_EQ(curve("x^2", "\\XLOG(1)\r\n\\YLOG(1)"), curve("2*x", ""));
  // What has no logarithm has no place.
  EXPECT_LT(numbersOf(curve("x-1", "\\XLOG(1)\r\n\\YLOG(1)").at(0)).size(), 2 * 300U);
}

}  // namespace
}  // namespace vk
