#include "grafile/PlotSheet.h"

#include <algorithm>
#include <limits>

#include "data/DataFiles.h"
#include "doubles/DrawingLines.h"
#include "doubles/Tolerances.h"
#include "grafile/GraphicCommandsFixture.h"
#include "grafile/SheetLayout.h"

namespace vk {
namespace {

using Point = std::array<double, 3>;

DataSet dataOf(std::initializer_list<Point> points) {
  DataSet data;
  data.allocate(static_cast<int>(points.size()), kFalse);
  int i = 0;
  for (const auto& [x, y, dy] : points) {
    ++i;
    data.Xpnt[i] = x;
    data.Ypnt[i] = y;
    data.ErrYpnt[i] = dy;
  }
  return data;
}

SheetCurve line(double slope, double offset, const std::string& expression) {
  return {"retta", {"", expression}, [=](std::span<const double> x) {
            std::vector<double> y;
            for (const double place : x) y.push_back(slope * place + offset);
            return y;
          }};
}

/// Sheets on a page of 20 x 15 cm.
class PlotSheetTest : public GraphicCommandsTest {
 protected:
  void SetUp() override { open(); }
  void open() { d.GralGrStr(form, "LANDSCAPE", static_cast<double>(session.figures.GraphScale[3])); }

  PlotSheet sheetOf(std::initializer_list<Point> points) const {
    PlotSheet sheet;
    sheet.titleX = "t (s)";
    sheet.titleY = "v";
    sheet.points = {{"dati", "a.dat", dataOf(points)}};
    return sheet;
  }
  PlotSheet wholeSheet() const {
    PlotSheet sheet = sheetOf({{0.5, 1.5, .2}, {4, 5, .2}, {9, 10.5, .3}});
    sheet.curves = {line(1, 1, "x+1")};
    sheet.bands = {{"larga", "p.dat", dataOf({{0, 0, 2}, {10, 9, 13}})},
                   {"banda", "b.dat", dataOf({{0, .5, 1.5}, {10, 10, 12}})}};
    sheet.residuals = SheetData{"", "r.dat", dataOf({{0.5, 0, 1}, {4, -1.25, 1}, {9, 2.5, 1}})};
    return sheet;
  }

  RecorderDevice form;
  GralCls d{printer};
};

TEST_F(PlotSheetTest, IsWrittenAsAGraphicFile) {
  PlotSheet sheet = sheetOf({{0, 1, .2}, {4, 5, .2}, {10, 11, .3}});
  sheet.heading = "%Prova\r\n";
  sheet.curves = {line(1, 1, "x+1")};
  EXPECT_EQ(sheetText(sheet, d),
            lines({"%Prova",
                   "%Scale",
                   "\\XSCALA(1.97, 19.46, 0, 10)",
                   "\\YSCALA(1.74, 14.67, 0, 12)",
                   "%Riquadro",
                   "\\COLORE(000000)",
                   "\\TIPO_LINEA(1, 1)",
                   "\\XLEGENDA(t (s))",
                   "\\YLEGENDA(v)",
                   "\\RIQUADRO(5, 6, 1)",
                   "%Funzioni",
                   "\\AREA(0, 0, 10, 12)",
                   "\\COLORE(0072B2)",
                   "\\TIPO_LINEA(4, 1)",
                   "\\FUNZIONE(x+1)",
                   "\\AREA(-1.12635791881075, -1.61484918793503, 10.3087478559177, 12.3062645011601)",
                   "%Dati",
                   "\\COLORE(000000)",
                   "\\TIPO_LINEA(1, 1)",
                   "\\TIPO_SIMBOLO(1.2, 5)",
                   "\\DATI(a.dat)",
                   "%Chiave",
                   "\\COLORE(000000)",
                   "\\TIPO_LINEA(1, 1)",
                   "\\TIPO_SIMBOLO(1.2, 5)",
                   "\\TIPO_LINEA(0, 1)",
                   "\\CHIAVE(.28587764436821, 11.2040861502136, dati)",
                   "\\TIPO_SIMBOLO(0, 1)",
                   "\\COLORE(0072B2)",
                   "\\TIPO_LINEA(4, 1)",
                   "\\CHIAVE(.28587764436821, 10.5403326965804, retta)"}));
}

TEST_F(PlotSheetTest, ItsGraphicFileDrawsTheSame) {
  const PlotSheet sheet = wholeSheet();
  const std::string text = sheetText(sheet, d);
  EXPECT_EQ(drawSheet(sheet, text, files, d, kernels), "");
  d.GralGrEnd();
  files.content["a.dat"] = dataFileText(sheet.points[0].data);
  files.content["p.dat"] = dataFileText(sheet.bands[0].data);
  files.content["b.dat"] = dataFileText(sheet.bands[1].data);
  files.content["r.dat"] = dataFileText(sheet.residuals->data);
  const auto drawn = run(text);
  EXPECT_TRUE(output.requests.empty()) << output.request().text.bytes();
  EXPECT_EQ(drawn, form.lines());
  const auto count = [&](const std::string& begin) {
    return std::ranges::count_if(drawn, [&](const std::string& l) { return l.starts_with(begin); });
  };
  EXPECT_EQ(count("circle "), 3 + 3 + 1);
  EXPECT_EQ(count("fill "), 2);
}

TEST_F(PlotSheetTest, TheLimitsHoldBarsCurvesAndBands) {
  const auto limits = [&](const PlotSheet& sheet) {
    const SheetLayout layout = layOut(sheet, d);
    return std::array{layout.x.low, layout.x.high, layout.y.low, layout.y.high};
  };
  PlotSheet sheet = sheetOf({{0, 1, .2}, {4, 5, .2}, {10, 9.9, .3}});
  EXPECT_EQ(limits(sheet), (std::array{0., 10., 0., 11.}));
  sheet.bands = {{"", "b.dat", dataOf({{0, -3, 2}, {10, 9, 10}})}};
  EXPECT_EQ(limits(sheet), (std::array{0., 10., -4., 12.}));
  sheet.curves = {line(3, 0, "3*x")};
  sheet.curves[0].name.clear();
  EXPECT_EQ(limits(sheet), (std::array{0., 10., -5., 30.}));
  PlotSheet alone;
  alone.from = -2;
  alone.to = 2;
  alone.curves = {line(1, 0, "x")};
  EXPECT_EQ(limits(alone), (std::array{-2., 2., -2., 2.}));
}

TEST_F(PlotSheetTest, PlacesWithoutANumberHaveNoPartInTheLimits) {
  PlotSheet alone;
  alone.from = -2;
  alone.to = 2;
  SheetCurve none = line(1, 0, "x");
  none.values = [](std::span<const double> x) {
    return std::vector<double>(x.size(), std::numeric_limits<double>::quiet_NaN());
  };
  alone.curves = {none};
  const SheetLayout layout = layOut(alone, d);
  EXPECT_EQ(layout.y.low, -1);
  EXPECT_EQ(layout.y.high, 1);
}

TEST_F(PlotSheetTest, ResidualsHaveScalesOfTheirOwn) {
  EXPECT_THAT(sheetText(wholeSheet(), d), testing::HasSubstr("%Scarti\r\n\\XSCALA("));
}

TEST_F(PlotSheetTest, OfDataAloneHasNoFunctions) {
  PlotSheet sheet = sheetOf({{0, 1, .2}, {4, 5, .2}});
  EXPECT_EQ(sheetText(sheet, d).find("%Funzioni"), std::string::npos);
}

TEST_F(PlotSheetTest, SetsWithoutANameAreNotInTheKeyAndCurvesDifferByTheirLines) {
  PlotSheet sheet = sheetOf({{0, 1, .2}, {4, 5, .2}, {10, 11, .3}});
  sheet.points[0].name.clear();
  sheet.curves = {line(1, 1, "x+1"), line(1, 2, "x+2")};
  const std::string text = sheetText(sheet, d);
  const auto count = [&](const std::string& what) {
    std::ptrdiff_t found = 0;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++found;
    return found;
  };
  EXPECT_EQ(count("\\CHIAVE("), 2);
  EXPECT_EQ(count("\\TIPO_LINEA(4, "), 4) << "each curve in the box and in the key";
  EXPECT_EQ(count("\\TIPO_LINEA(4, 1)"), 2);
}

TEST_F(PlotSheetTest, TheKeyStandsWhereItHidesNothing) {
  const auto corner = [&](double slope, double offset) {
    PlotSheet sheet = sheetOf({{0, 0, 0}, {10, 10, 0}});
    sheet.curves = {line(slope, offset, "")};
    const SheetLayout layout = layOut(sheet, d);
    return std::string(layout.keyY > 5 ? "top " : "bottom ") + (layout.keyX > 5 ? "right" : "left");
  };
  EXPECT_EQ(corner(-1, 10), "top right");  // raised above both
  EXPECT_EQ(corner(1, 0), "top left");
  EXPECT_EQ(corner(0, 10), "bottom right");
  PlotSheet sheet = sheetOf({{0, 0, 0}, {10, 10, 0}});
  sheet.curves = {line(-1, 10, "")};
  EXPECT_GT(layOut(sheet, d).y.high, 10);
}

TEST_F(PlotSheetTest, AKeyOfHalfTheBoxStandsTopRightWhateverItHides) {
  PlotSheet sheet = sheetOf({{0, 0, 0}, {10, 10, 0}, {0, 10, 0}, {10, 0, 0}});
  sheet.curves.assign(20, line(1, 0, ""));
  const SheetLayout layout = layOut(sheet, d);
  const double padding = 0.5 / layout.box.y.cmPerUnit();
  EXPECT_EQ(layout.y.high, 10) << "not raised for it";
  EXPECT_GT(layout.keyStep * 21, 5);
  EXPECT_NEAR(layout.keyY, 10 - padding - layout.keyStep / 2, kThroughScales);
  EXPECT_GT(layout.keyX, 5);
}

TEST_F(PlotSheetTest, AKeyWithoutChoiceIsLeftOutAndALongOneShortened) {
  PlotSheet sheet = sheetOf({{0, 0, 0}, {10, 10, 0}});
  EXPECT_TRUE(layOut(sheet, d).key.empty());
  sheet.curves = {line(1, 0, "")};
  EXPECT_EQ(layOut(sheet, d).key, (std::vector<std::string>{"dati", "retta"}));
  sheet.curves[0].name = std::string(200, 'a');
  const SheetLayout layout = layOut(sheet, d);
  const std::string name = layout.key.at(1);
  EXPECT_NE(name.find("..."), std::string::npos);
  const double room = 0.6 * (layout.box.x.toCm - layout.box.x.fromCm);
  EXPECT_LE(keyWidth(d, name), room);
  EXPECT_GT(keyWidth(d, name + "a"), room);
}

TEST_F(PlotSheetTest, NamesHaveNoMarkupAndFormulasRaisePowers) {
  EXPECT_EQ(nameInKey("my_data^{2}.dat"), "my data  2 .dat");
  EXPECT_EQ(formulaInKey("a*x^2+b_1"), "a*x^{2}+b 1");
  EXPECT_EQ(formulaInKey("x^0.5-2"), "x^{0.5}-2");
  EXPECT_EQ(formulaInKey("x^(a-(b+1))*y"), "x^{(a-(b+1))}*y");
  EXPECT_EQ(formulaInKey("x^"), "x^{}");
  EXPECT_EQ(formulaInKey("2^n+x^N1"), "2^{n}+x^{N1}");
  EXPECT_EQ(formulaInKey("y = \xFB(ax\xFD+b)"), "y = \\\\\xD6(ax^2+b)") << "the root of the Greek font";
}

TEST_F(PlotSheetTest, ResidualsStandBelowOnTheSameX) {
  const SheetLayout layout = layOut(wholeSheet(), d);
  EXPECT_EQ(layout.lower.x.fromCm, layout.box.x.fromCm);
  EXPECT_EQ(layout.lower.x.toCm, layout.box.x.toCm);
  EXPECT_LT(layout.lower.y.toCm + 0.5, layout.box.y.fromCm);
  EXPECT_EQ(layout.residuals.low, -4);
  EXPECT_EQ(layout.residuals.high, 4);
  EXPECT_EQ(layout.residuals.divisions, 4);
}

TEST_F(PlotSheetTest, ResidualsOfAnySizeHaveTheirLimits) {
  const std::tuple<double, double, int> sizes[] = {
      {3.5, 6, 4}, {99, 100, 4}, {249, 300, 6}, {1E9 - 1, 1E9, 4}};
  for (const auto& [most, high, divisions] : sizes) {
    PlotSheet sheet = wholeSheet();
    sheet.residuals->data.Ypnt[2] = -most;
    const SheetLayout layout = layOut(sheet, d);
    EXPECT_EQ(layout.residuals.low, -high);
    EXPECT_EQ(layout.residuals.high, high);
    EXPECT_EQ(layout.residuals.divisions, divisions) << most;
  }
}

}  // namespace
}  // namespace vk
