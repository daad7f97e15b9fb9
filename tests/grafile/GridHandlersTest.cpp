#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "doubles/DrawingLines.h"
#include "grafile/GraphicCommandsFixture.h"
#include "grafile/GridLevels.h"
#include "grafile/SpaceFigure.h"

namespace vk {
namespace {

/// Commands that draw a grid file of 3 x 2 points, from 0 to 10, on a page of 20 x 15 cm.
class GridCommandsTest : public GraphicCommandsTest {
 protected:
  GridCommandsTest() {
    files.content["SLOPE.GRD"] =
        lines({"x (cm)", "y (cm)", "z (V)", "3 2", "0 5 10", "0 6", "0 4 10", "2 6 10"});
  }
  const std::string scales = lines({"\\XSCALA(4,14,0,10)", "\\YSCALA(3,12,0,6)"});
  static void scale(GralCls& d) {
    d.GralXMap(4, 14, 0, 10);
    d.GralYMap(3, 12, 0, 6);
  }
  static Array2<float> shares() {
    Array2<float> z(3, 2);
    z(1, 1) = 0;
    z(2, 1) = .4F;
    z(3, 1) = 1;
    z(1, 2) = .2F;
    z(2, 2) = .6F;
    z(3, 2) = 1;
    return z;
  }
  static void contours(GralCls& d, std::initializer_list<float> levels,
                       std::initializer_list<Colour> colours) {
    const int n = static_cast<int>(levels.size());
    Array<float> values(n);
    Array<Colour> ofLevels(n);
    std::ranges::copy(levels, values.span(1, n).begin());
    std::ranges::copy(colours, ofLevels.span(1, n).begin());
    d.GralContour(0, 10, 0, 6, shares(), 3, 2, values, ofLevels, n);
  }
  std::string warningsOf(const std::string& text) { return errorsOf(text); }
};

TEST_F(GridCommandsTest, ContoursAreThoseOfTheLibraryAtRoundLevels) {
  expectDraws(scales + "\\CONTORNI(4,0,0,slope.grd)\r\n", [](GralCls& d) {
    scale(d);
    contours(d, {.2F, .4F, .6F, .8F}, {kBlack, kBlack, kBlack, kBlack});
  });
  expectDraws(scales + "\\COLORE(0072B2)\r\n\\CONTORNI(1,0,0, slope.grd )\r\n", [](GralCls& d) {
    scale(d);
    d.GralColor(Colour::fromRgb(0x0072B2));
    contours(d, {.5F}, {Colour::fromRgb(0x0072B2)});
  });
}

TEST_F(GridCommandsTest, ContoursTakeAListOfLevelsInAnyOrder) {
  expectDraws(scales + lines({"\\PARAMETRI(top=9)", "\\CONTORNI(0,1,0,slope.grd; top, 1,5 , 1)"}),
              [](GralCls& d) {
                scale(d);
                contours(d, {.1F, .5F, .9F}, {kBlack, Colour::fromRgb(0x555555), Colour::fromRgb(0xAAAAAA)});
              });
}

TEST_F(GridCommandsTest, AKeyTellsTheLevelsBesideTheBoxTheHighestFirst) {
  expectDraws(scales + "\\CONTORNI(0,2,1,slope.grd;5,7.5)\r\n", [](GralCls& d) {
    scale(d);
    const Colour low = Colour::fromRgb(0x3B1F6B), high = Colour::fromRgb(0xD6A11E);
    contours(d, {.5F, .75F}, {low, high});
    const auto entry = [&](double cm, Colour colour, const char* text) {
      const double y = d.yLog2Usr(cm);
      d.GralColor(colour);
      d.GralDraw(column({d.xLog2Usr(14.6), d.xLog2Usr(15.6)}), column({y, y}), 2);
      d.GralColor(kBlack);
      d.GralWPrint(d.xLog2Usr(15.8), y, 0, 0, 12, text);
    };
    entry(12 - .35, high, "7.5");
    entry(12 - 1.05, low, "5.0");
  });
}

TEST_F(GridCommandsTest, RoundLevelsLieBetweenTheValues) {
  EXPECT_EQ(roundLevels({0, 10}, 4), (std::vector<double>{2, 4, 6, 8}));
  EXPECT_EQ(roundLevels({-.03, .04}, 6), (std::vector<double>{-.02, -.01, 0, .01, .02, .03}));
  EXPECT_EQ(roundLevels({1E200, 3E200}, 1), (std::vector<double>{2E200}));
  EXPECT_TRUE(roundLevels({3, 3}, 10).empty());
  EXPECT_LE(roundLevels({1E17, 1E17 + 64}, 10).size(), 11U);
}

TEST_F(GridCommandsTest, AFigureInSpaceIsPutBackIntoTheMappingOfTheUser) {
  const auto after = [&](const std::string& command) {
    return run(scales + command + lines({"\\TIPO_SIMBOLO(1,5)", "\\SIMBOLO(5,3)"})).back();
  };
  const std::string mark = after("");
  for (const std::string command :
       {"RIQUADRO3D(110,125,.5,0,0,0,0,", "SUPERFICIE(110,125,.5,0,0,1,0,", "COLONNE(110,125,.5,0,0,1,"}) {
    EXPECT_EQ(after("\\" + command + "slope.grd)\r\n"), mark) << command;
  }
}

TEST_F(GridCommandsTest, ColumnsAreThoseOfTheLibraryInABoxThatFillsThePlot) {
  // From theta 90 the floor is a rectangle: x to the right, y downward.
  expectDraws(
      "\\XSCALA(4,14,0,1)\r\n\\YSCALA(3,12,0,1)\r\n\\COLONNE(90,150,1,0,10,1,slope.grd)\r\n", [](GralCls& d) {
        d.GralXMap(4, 14, 4, 14);
        d.GralYMap(3, 12, 3, 12);
        const double rad = 3.1415926 / 180;
        const double floor = std::abs(std::cos(150 * rad)), rise = std::sin(150 * rad);
        const double size = 9 / (floor + rise);
        Array2<float> z(3, 2);
        for (int j = 1; j <= 2; ++j) {
          for (int i = 1; i <= 3; ++i)
            z(i, j) = static_cast<float>(static_cast<double>(shares()(i, j)) * size);
        }
        const auto f = [](double value) { return static_cast<float>(value); };
        d.GralLego3d(9, f(3 + size * floor / 2), 90, 150, f(size), f(size), f(size), z, 3, 2, true, false);
      });
}

TEST_F(GridCommandsTest, TheRoomForLabelsIsKeptAtTheWholePageOnly) {
  // A side that reaches only one edge of the page is filled like any other.
  const auto drawnFrom = [&](int left) {
    const std::string x = std::to_string(left) + "," + std::to_string(left + 10);
    auto drawn =
        run("\\XSCALA(" + x + ",0,1)\r\n\\YSCALA(3,12,0,1)\r\n\\COLONNE(90,150,1,0,10,1,slope.grd)\r\n");
    std::erase_if(drawn, [](const std::string& line) { return !line.starts_with("fill+stroke "); });
    return drawn;
  };
  const auto atEdge = drawnFrom(0), inside = drawnFrom(4);
  ASSERT_EQ(atEdge.size(), inside.size());
  for (std::size_t i = 0; i < atEdge.size(); ++i) {
    const auto a = numbersOf(atEdge[i]), b = numbersOf(inside[i]);
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t k = 0; k < a.size(); k += 2) {
      EXPECT_NEAR(b[k] - a[k], b[0] - a[0], 2) << i;
      EXPECT_NEAR(a[k + 1], b[k + 1], 1) << i;
    }
  }
}

TEST_F(GridCommandsTest, ASurfaceIsShadedInTheHueOfThePen) {
  const auto parts = [](Colour colour) { return std::array{colour.red(), colour.green(), colour.blue()}; };
  const struct {
    const char* pen;
    std::array<std::size_t, 3> order;  // of red, green and blue, the strongest first
  } cases[] = {{"FF0080", {0, 2, 1}}, {"40FF80", {1, 2, 0}}, {"80FF40", {1, 0, 2}}, {"8040FF", {2, 0, 1}}};
  for (const auto& [pen, order] : cases) {
    auto drawn = run("\\COLORE(" + std::string(pen) + ")\r\n\\SUPERFICIE(110,125,.5,0,10,2,0,slope.grd)\r\n");
    std::erase_if(drawn, [](const std::string& line) { return !line.starts_with("filling "); });
    EXPECT_FALSE(drawn.empty());
    for (const std::string& line : drawn) {
      const auto found =
          parts(Colour::fromRgb(static_cast<std::uint32_t>(std::stoul(line.substr(8, 6), nullptr, 16))));
      EXPECT_GE(found[order[0]], found[order[1]]) << pen << ": " << line;
      EXPECT_GE(found[order[1]], found[order[2]]) << pen << ": " << line;
    }
  }
}

TEST_F(GridCommandsTest, HeightsInSpaceStandALittleToTheRightOfTheirTicks) {
  constexpr double kGap = 0.3 * kTwipsPerInch / kCmPerInch / 2;  // on a page in half its size
  double ticks = 0, labels = std::numeric_limits<double>::infinity();
  for (const std::string& line : run("\\RIQUADRO3D(110,125,.5,0,0,0,0,slope.grd)\r\n")) {
    const std::vector<double> n = numbersOf(line);
    if (line.starts_with("line ")) ticks = std::max({ticks, n[0], n[2]});
    if (line.starts_with("text ") && n[0] > ticks) labels = std::min(labels, n[0]);
  }
  EXPECT_LT(labels - ticks, kGap);
}

TEST_F(GridCommandsTest, TitlesInSpaceAreNeverUpsideDown) {
  for (const int theta : {20, 65, 110, 155, 200, 245, 290, 335}) {
    for (const int phi : {40, 125}) {
      const auto drawn = run("\\RIQUADRO3D(" + std::to_string(theta) + "," + std::to_string(phi) +
                             ",.5,0,0,0,0,slope.grd)\r\n");
      int turned = 0;
      for (const std::string& line : drawn) {
        const auto end = line.find(" deg ");
        if (end == std::string::npos) continue;
        const int angle = std::stoi(line.substr(line.rfind(' ', end - 1)));
        EXPECT_TRUE(angle >= -90 && angle <= 91) << theta << ", " << phi << ": " << line;
        turned += angle != 0;
      }
      EXPECT_GT(turned, 0) << theta << ", " << phi;
    }
  }
}

TEST_F(GridCommandsTest, ASurfaceHasTheStylesOfTheTable) {
  const auto surface = [&](int style) {
    return run("\\SUPERFICIE(110,125,.5,0,10," + std::to_string(style) + ",3,slope.grd)\r\n");
  };
  const auto fillings = [&](int style) {
    auto drawn = surface(style);
    std::erase_if(drawn, [](const std::string& line) { return !line.starts_with("filling "); });
    return drawn;
  };
  EXPECT_EQ(fillings(0), (std::vector<std::string>{"filling FFFFFF solid"}));
  for (const std::string& line : fillings(1)) EXPECT_EQ(line.substr(8, 2), line.substr(10, 2)) << line;
  EXPECT_EQ(fillings(3), fillings(3));
  EXPECT_TRUE(contains(surface(3), "filling 3B1F6B solid"));
  EXPECT_FALSE(contains(surface(4), "filling 3B1F6B solid"));
  EXPECT_TRUE(contains(surface(4), "filling "));
  EXPECT_FALSE(contains(surface(1), "pen 3"));
  std::vector<std::string> before;
  for (int style = 0; style <= 5; ++style) {
    const auto drawn = surface(style);
    EXPECT_NE(drawn, before) << style;
    EXPECT_TRUE(output.requests.empty()) << style;
    before = drawn;
  }
}

TEST_F(GridCommandsTest, AFrameInSpaceHasTicksLabelsAndTitles) {
  const auto drawn = run("\\RIQUADRO3D(110,125,.5,0,0,0,0,slope.grd)\r\n");
  EXPECT_TRUE(output.requests.empty());
  std::string texts;
  for (const std::string& line : drawn) {
    if (line.starts_with("text ")) texts += line[line.size() - 2];
  }
  EXPECT_EQ(texts, "0246810x (cm)0123456y (cm)0246810z (V)");
}

TEST_F(GridCommandsTest, UnderColumnsTheFloorReachesHalfAStepFurther) {
  const auto first = [&](const std::string& columns) {
    auto drawn = run("\\RIQUADRO3D(90,125,.5,0,10,0," + columns + ",slope.grd)\r\n");
    std::erase_if(drawn, [](const std::string& line) { return !line.starts_with("line "); });
    return numbersOf(drawn.front()).front();
  };
  // Ticks of x at 0 and at the step 2.5 before it on a floor from -2.5 to 12.5.
  EXPECT_LT(first("0"), first("1"));
}

TEST_F(GridCommandsTest, TellsFromWhereTheCellsHideWrongly) {
  const auto told = [&](int theta, int phi) {
    const std::string angles = std::to_string(theta) + "," + std::to_string(phi);
    return warningsOf("\\COLONNE(" + angles + ",.5,0,0,1,slope.grd)\r\n");
  };
  EXPECT_EQ(told(75, 125),
            "*** Attenzione: COLONNE con theta = 75 e phi = 125: le parti lontane coprono le vicine (meglio "
            "theta = 110 e phi "
            "= 125)\r\n");
  for (const auto& [theta, phi] : {std::pair{90, 125},
                                   {117, 145},
                                   {134, 91},
                                   {150, 40},
                                   {180, 60},
                                   {295, 40},
                                   {270, 20},
                                   {340, 120},
                                   {-20, 120},
                                   {360, 100},
                                   {470, 125}}) {
    EXPECT_EQ(told(theta, phi), "") << theta << " " << phi;
  }
  for (const auto& [theta, phi] : {std::pair{75, 125},
                                   {252, 50},
                                   {110, 60},
                                   {110, 90},
                                   {150, 125},
                                   {45, 45},
                                   {20, 140},
                                   {200, 120},
                                   {300, 120},
                                   {340, 60}}) {
    EXPECT_NE(told(theta, phi), "") << theta << " " << phi;
  }
}

TEST_F(GridCommandsTest, TellsWhenLabelsOverlap) {
  EXPECT_EQ(warningsOf("\\RIQUADRO3D(91,179,.5,0,0,0,0,slope.grd)\r\n"),
            "*** Attenzione: RIQUADRO3D con theta = 91 e phi = 179: le etichette si sovrappongono (meglio "
            "theta = 110 e phi = "
            "125)\r\n");
  EXPECT_EQ(warningsOf("\\RIQUADRO3D(117,145,.5,0,0,1,0,slope.grd)\r\n"), "");
}

TEST_F(GridCommandsTest, LabelsOfASmallBoxOverlapFromEachSide) {
  EXPECT_EQ(
      warningsOf("\\XSCALA(5,7,0,1)\r\n\\YSCALA(5,7,0,1)\r\n\\RIQUADRO3D(110,125,.5,0,0,0,0,slope.grd)\r\n"),
      "*** Attenzione: RIQUADRO3D con theta = 110 e phi = 125: le etichette si sovrappongono\r\n");
}

TEST_F(GridCommandsTest, TellsThatNoLevelIsSeen) {
  for (const char* levels : {"11,12", "-1,0", "-2,10"}) {
    EXPECT_EQ(warningsOf("\\CONTORNI(0,0,0,slope.grd;" + std::string(levels) + ")\r\n"),
              "*** Attenzione: CONTORNI: nessun livello cade fra i valori di z\r\n");
  }
  files.content["FLAT.GRD"] = lines({"x", "y", "z", "2 2", "0 1", "0 1", "3 3", "3 3"});
  EXPECT_EQ(warningsOf("\\CONTORNI(5,0,0,flat.grd)\r\n"),
            "*** Attenzione: CONTORNI: nessun livello cade fra i valori di z\r\n");
  EXPECT_EQ(warningsOf(
                lines({"\\RIQUADRO3D(110,125,.5,0,0,0,0,flat.grd)",
                       "\\SUPERFICIE(110,125,.5,0,0,3,5,flat.grd)", "\\COLONNE(110,125,.5,0,0,0,flat.grd)"})),
            "");
}

TEST_F(GridCommandsTest, AFileThatIsNoGridIsWrong) {
  files.content["BAD.GRD"] = lines({"x", "y", "z", "3 2", "0 5 10", "0 6", "0 4 10"});
  EXPECT_EQ(errorsOf(lines({"\\CONTORNI(4,0,0,bad.grd)", "\\RIQUADRO3D(110,125,.5,0,0,0,0,none.grd)",
                            "\\SUPERFICIE(110,125,.5,0,0,1,0,BAD.GRD)", "\\COLONNE(110,125,.5,0,0,0)"})),
            lines({"*** File Griglia BAD.GRD Errato", "*** File Griglia NONE.GRD Errato",
                   "*** File Griglia BAD.GRD Errato", "*** File Griglia  Errato"}));
}

TEST_F(GridCommandsTest, FieldsThatSayNothingAreWrongParameters) {
  for (const char* fields : {"0,0,0,slope.grd", "51,0,0,slope.grd", "4,3,0,slope.grd", "4,-1,0,slope.grd",
                             "0,0,0,slope.grd;", "0,0,0,slope.grd;1,due", "0,0,0,slope.grd;1,,2"}) {
    EXPECT_EQ(errorsOf("\\CONTORNI(" + std::string(fields) + ")\r\n"), "*** Parametri di CONTORNI Errati\r\n")
        << fields;
  }
  for (const char* fields :
       {"110,0,.5,0,0,1,0", "110,180,.5,0,0,1,0", "110,125,0,0,0,1,0", "110,125,.5,2,1,1,0",
        "110,125,.5,0,0,6,3", "110,125,.5,0,0,-1,3", "110,125,.5,0,0,3,0"}) {
    EXPECT_EQ(errorsOf("\\SUPERFICIE(" + std::string(fields) + ",slope.grd)\r\n"),
              "*** Parametri di SUPERFICIE Errati\r\n")
        << fields;
  }
}

TEST_F(GridCommandsTest, AListHasAtMostFiftyLevels) {
  std::string list = "1";
  for (int i = 2; i <= 50; ++i) list += ",1";
  EXPECT_EQ(errorsOf("\\CONTORNI(0,0,0,slope.grd;" + list + ")\r\n"), "");
  EXPECT_EQ(errorsOf("\\CONTORNI(0,0,0,slope.grd;" + list + ",1)\r\n"),
            "*** Parametri di CONTORNI Errati\r\n");
}

TEST_F(GridCommandsTest, ValuesOfAnySizeAreDrawn) {
  files.content["LARGE.GRD"] = lines({"x", "y", "z", "2 2", "0 1", "0 1", "-1E300 0", "1E300 2E300"});
  files.content["NARROW.GRD"] =
      lines({"x", "y", "z", "2 2", "0 1", "0 1", "1E9 1000000001", "1E9 1000000002"});
  for (const std::string name : {"large.grd", "narrow.grd"}) {
    const std::string view = "(110,125,.5,0,0,";
    EXPECT_EQ(errorsOf(scales +
                       lines({"\\CONTORNI(5,2,1," + name + ")", "\\RIQUADRO3D" + view + "1,0," + name + ")",
                              "\\SUPERFICIE" + view + "4,5," + name + ")",
                              "\\COLONNE" + view + "1," + name + ")"})),
              "")
        << name;
  }
}

TEST_F(GridCommandsTest, AreDrawnOnPaperToo) {
  run(scales + lines({"\\CONTORNI(5,2,1,slope.grd)", "\\RIQUADRO3D(110,125,.5,0,0,1,0,slope.grd)",
                      "\\SUPERFICIE(110,125,.5,0,0,4,5,slope.grd)", "\\COLONNE(110,125,.5,0,0,1,slope.grd)"}),
      "Printer");
  EXPECT_TRUE(output.requests.empty());
  EXPECT_TRUE(contains(printer.lines(), "fill+stroke "));
}

}  // namespace
}  // namespace vk
