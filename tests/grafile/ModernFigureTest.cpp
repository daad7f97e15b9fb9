#include "grafile/ModernFigure.h"

#include <gmock/gmock.h>

#include <cmath>
#include <optional>

#include "commands/FigureCommands.h"
#include "tests/analysis/FormulaModel.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Three points and the root of x - 1.5, which has no value at the first of them; the second one has no error.
class ModernFigureTest : public testing::Test {
 protected:
  ModernFigureTest() {
    data.allocate(3, kFalse);
    for (int i = 1; i <= 3; ++i) {
      data.Xpnt[i] = std::array{1.0, 16.0, 31.0}.at(static_cast<std::size_t>(i) - 1);
      data.Ypnt[i] = 5;
      data.ErrYpnt[i] = i == 2 ? 0 : 0.5;
    }
    par.ParValues[1] = 1.5;
    par.ParDeltas[1] = 1;
    classifyParameters(par);
    covariance.set(1, 1, 0.01);
  }
  PlotSheet sheet(int kind, const std::string& functionText = "y = SQR(x-a)") {
    source.emplace(FigureSource{.kind = kind,
                                .data = data,
                                .dataName = "a.dat",
                                .dataPath = "/D/a.dat",
                                .functionText = functionText,
                                .expression = "SQR(x-a)",
                                .model = model,
                                .parameters = par,
                                .band = &band,
                                .residuals = true,
                                .beside = "fig"});
    return modernSheet(*source, computeFigure(*source, listener, [] {}).value(), listener);
  }

  DataSet data;
  Model model = modelOf("SQR(x-a)", "a");
  ParameterSet par = parametersOf({"a"});
  CovarianceMatrix covariance{1};
  CurveBand band{covariance, 1, false};
  NoListener listener;
  std::optional<FigureSource> source;
};

TEST_F(ModernFigureTest, HasResidualsOfThePointsWithAValueAndAnError) {
  const PlotSheet drawn = sheet(kFunctionFigure);
  ASSERT_TRUE(drawn.residuals.has_value());
  EXPECT_EQ(drawn.residuals->file, "fig_scarti.dat");
  EXPECT_THAT(drawn.residuals->data.Xpnt.span(1, drawn.residuals->data.NumPnt), ElementsAre(31));
  EXPECT_DOUBLE_EQ(drawn.residuals->data.Ypnt[1], (5 - std::sqrt(29.5)) / 0.5);
}

TEST_F(ModernFigureTest, HasNoValuesAndNoBandWhereTheFunctionHasNone) {
  const PlotSheet drawn = sheet(kFunctionFigure);
  ASSERT_EQ(drawn.curves.size(), 1U);
  EXPECT_EQ(drawn.curves[0].name, "y = SQR(x-a)");
  const std::vector<double> values = drawn.curves[0].values(std::array{1.0, 5.5});
  EXPECT_TRUE(std::isnan(values[0]));
  EXPECT_EQ(values[1], 2);
  ASSERT_EQ(drawn.bands.size(), 1U);
  const DataSet& edges = drawn.bands[0].data;
  ASSERT_GT(edges.NumPnt, 100);
  EXPECT_GT(edges.Xpnt[1], 1.5);
  for (int i = 1; i <= edges.NumPnt; ++i) EXPECT_LE(edges.Ypnt[i], edges.ErrYpnt[i]) << i;
}

TEST_F(ModernFigureTest, NamesALongFunctionByItsKind) {
  EXPECT_EQ(sheet(kFunctionFigure, "y = " + std::string(37, 'x')).curves[0].name, "Funzione");
}

TEST_F(ModernFigureTest, OfDataAloneHasNeitherCurvesNorBandsNorResiduals) {
  const PlotSheet drawn = sheet(kDataFigure);
  EXPECT_EQ(drawn.points.size(), 1U);
  EXPECT_THAT(drawn.curves, IsEmpty());
  EXPECT_THAT(drawn.bands, IsEmpty());
  EXPECT_FALSE(drawn.residuals.has_value());
}

}  // namespace
}  // namespace vk
