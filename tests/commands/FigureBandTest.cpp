#include "tests/commands/MakeGraphFixture.h"

namespace vk {
namespace {

/// A constant c = 2 with the error 0.5 over the points of the fixture.
constexpr int kLinesOfBands = 2 * (100 + 50);

class FigureBandTest : public MakeGraphTest {
 protected:
  FigureBandTest() {
    loadPoints();
    takeFunction(1, 1, {2});
    session.analysis.par.ParDeltas[1] = 1;
    classifyParameters(session.analysis.par);
  }
  void ask(bool prediction) {
    CovarianceMatrix covariance(1);
    covariance.set(1, 1, 0.25);
    session.figures.band = CurveBand{covariance, 1, prediction};
  }
  /// The lines of the figure's text behind the one that draws the data.
  std::string behindData() const {
    const std::string& text = session.figures.GraphText[kFunctionFigure];
    const auto at = text.find("\\Dati(");
    return text.substr(text.find("\r\n", at) + 2);
  }
};

TEST_F(FigureBandTest, NobodyGetsOneUnasked) {
  makeGraph(kFunctionFigure);
  EXPECT_EQ(behindData(), "");
}

TEST_F(FigureBandTest, StandsBehindTheDataAsLines) {
  ask(false);
  makeGraph(kFunctionFigure);
  const std::string text = behindData();
  EXPECT_EQ(text.substr(0, text.find("\\LINEA")), "%Disegna la Banda di Confidenza\r\n\\TIPO_LINEA(1,1)\r\n");
  EXPECT_THAT(text, testing::HasSubstr("\\LINEA(0, 1.5, .05, 1.5)\r\n\\LINEA(.1, 1.5, .15, 1.5)\r\n"));
  EXPECT_THAT(text, testing::HasSubstr("\\LINEA(0, 2.5, .05, 2.5)\r\n"));
  EXPECT_THAT(text, testing::Not(testing::HasSubstr("Previsione")));
}

TEST_F(FigureBandTest, OfAPredictionIsDrawnAroundIt) {
  ask(true);
  makeGraph(kFunctionFigure);
  EXPECT_THAT(behindData(), testing::HasSubstr("%Disegna la Banda di Previsione\r\n\\LINEA(0, "));
}

TEST_F(FigureBandTest, IsOfTheFigureWithTheFunctionOnly) {
  ask(true);
  makeGraph(kDataFigure);
  EXPECT_EQ(session.figures.GraphText[kDataFigure].find("Banda"), std::string::npos);
  makeGraph(kDifferencesFigure);
  EXPECT_EQ(session.figures.GraphText[kDifferencesFigure].find("Banda"), std::string::npos);
}

TEST_F(FigureBandTest, TheTextDrawsTheSameFigure) {
  files.content["/D/A.DAT"] = lines({"Tempo (s)", "Corsa (m)", "3", ".3 1 .25", "5 2.5 .5", "9.7 1.5 .25"});
  ask(true);
  std::vector<std::string> drawn = makeGraph(kFunctionFigure);
  drawn.emplace_back("clip off");
  // Before the band stands the function, which the file draws at places of its own.
  const auto bandOf = [](const std::vector<std::string>& all) {
    return std::vector<std::string>(all.end() - kLinesOfBands, all.end());
  };
  EXPECT_EQ(bandOf(run(session.figures.GraphText[kFunctionFigure])), bandOf(drawn));
}

}  // namespace
}  // namespace vk
