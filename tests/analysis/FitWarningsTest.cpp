#include "analysis/FitWarnings.h"

#include "analysis/FitFixture.h"

namespace vk {
namespace {

using Kind = FitWarningKind;

/// A fit of y = A*x+k over data without a fault: every figure is at a place where nothing is to be said.
struct Compared {
  DataSet data;
  FitResult fit;
  RefinedFit refined;

  Compared() {
    data.allocate(3, kFalse);
    dy({0.1, 0.2, 0.3});
    refined.end = LeastSquaresEnd::kConverged;
    refined.par = parametersOf({"A", "c", "k"});
    StoreParameters(refined.par, std::vector<double>{10, 5, 20}, std::vector<double>{1, 0, 1}, 1);
    refined.covariance = CovarianceMatrix(2);
    refined.covariance.set(1, 1, 1);
    refined.covariance.set(2, 2, 4);
    refined.reducedChiSquare = 1;
    refined.confidencePercent = 50;
    fit.status = FitStatus::kCompleted;
    fit.par = refined.par;
    fit.par.ParDeltas[1] = 1;
    fit.par.ParDeltas[3] = 2;
    fit.confidence_percent = 50;
  }
  void dy(const std::vector<double>& errors) {
    for (std::size_t j = 0; j < errors.size(); ++j) data.ErrYpnt[static_cast<int>(j) + 1] = errors[j];
  }
  std::vector<FitWarning> warnings() const { return fitWarnings(data, fit, refined); }
};

using Warnings = std::vector<FitWarning>;

TEST(FitWarnings, AreNoneWhereAllIsWell) {
  EXPECT_EQ(Compared().warnings(), Warnings{});
}

TEST(FitWarnings, SayNothingOfTheErrorsOfNoPoints) {
  Compared fit;
  fit.data.allocate(0, kFalse);
  EXPECT_FALSE(haveInventedErrors(fit.data));
  EXPECT_EQ(fit.warnings(), Warnings{});
}

TEST(FitWarnings, JudgeChiSquareByItsProbability) {
  Compared fit;
  fit.refined.confidencePercent = 0.1;
  EXPECT_EQ(fit.warnings(), Warnings{});
  fit.refined.confidencePercent = 0.0999;
  EXPECT_EQ(fit.warnings(), Warnings{{Kind::kChiSquareHigh}});
  fit.refined.confidencePercent = 99.9;
  EXPECT_EQ(fit.warnings(), Warnings{});
  fit.refined.confidencePercent = 99.901;
  EXPECT_EQ(fit.warnings(), Warnings{{Kind::kChiSquareLow}});
}

TEST(FitWarnings, TakeTheProbabilityOfTheFitWhereThereIsNoMinimum) {
  Compared fit;
  fit.fit.confidence_percent = 0.01;
  EXPECT_EQ(fit.warnings(), Warnings{});
  fit.refined.confidencePercent.reset();
  EXPECT_EQ(fit.warnings(), Warnings{{Kind::kChiSquareHigh}});
  fit.fit.confidence_percent.reset();
  EXPECT_EQ(fit.warnings(), Warnings{});
}

TEST(FitWarnings, NameThePairsOfHighCorrelations) {
  Compared fit;
  fit.refined.covariance.set(1, 2, 2 * 0.979);
  EXPECT_EQ(fit.warnings(), Warnings{});
  for (const double correlation : {0.981, -0.981}) {
    fit.refined.covariance.set(1, 2, 2 * correlation);
    EXPECT_EQ(fit.warnings(), (Warnings{{Kind::kCorrelationHigh, {"A-k"}}}));
  }
}

TEST(FitWarnings, NameParametersSmallerThanTheirErrors) {
  for (const double sign : {1, -1}) {
    Compared fit;
    fit.refined.par.ParValues[3] = fit.fit.par.ParValues[3] = sign * 2.001;
    EXPECT_EQ(fit.warnings(), Warnings{});
    fit.refined.par.ParValues[3] = fit.fit.par.ParValues[3] = sign * 1.999;
    EXPECT_EQ(fit.warnings(), (Warnings{{Kind::kErrorAboveValue, {"k"}}}));
  }
}

TEST(FitWarnings, TellHowFarTheFitIsFromTheMinimum) {
  for (const double sign : {1, -1}) {
    Compared fit;
    fit.fit.par.ParValues[1] = 10 + sign * 0.0999;
    fit.fit.par.ParValues[3] = 20 + sign * 0.1999;
    EXPECT_EQ(fit.warnings(), Warnings{});
    fit.fit.par.ParValues[1] = 10 + sign * 0.1001;
    fit.fit.par.ParValues[3] = 20 + sign * 0.2001;
    EXPECT_EQ(fit.warnings(), (Warnings{{Kind::kFitOffMinimum, {"A", "k"}}}));
  }
}

TEST(FitWarnings, MeasureByTheScatterWhereAllErrorsAreEqual) {
  Compared fit;
  fit.refined.reducedChiSquare = 0.25;
  fit.fit.par.ParValues[1] = 10.0501;
  EXPECT_EQ(fit.warnings(), Warnings{});
  fit.dy({0.2, 0.2, 0.2});
  EXPECT_EQ(fit.warnings(), (Warnings{{Kind::kFitOffMinimum, {"A"}}}));
  fit.fit.par.ParValues[1] = 10.0499;
  EXPECT_EQ(fit.warnings(), Warnings{});
  fit.refined.reducedChiSquare.reset();
  fit.fit.par.ParValues[1] = 10.0999;
  EXPECT_EQ(fit.warnings(), Warnings{});
}

TEST(FitWarnings, CompareTheErrorsOfTheFit) {
  for (const double factor : {1.499, 1 / 1.499}) {
    Compared fit;
    fit.fit.par.ParDeltas[1] = factor;
    EXPECT_EQ(fit.warnings(), Warnings{});
  }
  for (const double factor : {1.501, 1 / 1.501, 0.0}) {
    Compared fit;
    fit.fit.par.ParDeltas[1] = factor;
    EXPECT_EQ(fit.warnings(), (Warnings{{Kind::kFitErrorWrong, {"A"}}}));
  }
}

TEST(FitWarnings, TellErrorsThatAreInvented) {
  Compared fit;
  fit.dy({1, 1, 1.001});
  EXPECT_EQ(fit.warnings(), Warnings{});
  fit.dy({1, 1, 1});
  EXPECT_EQ(fit.warnings(), Warnings{{Kind::kErrorsInvented}});
}

TEST(FitWarnings, CompareNothingWithAFitOrAMinimumThatFailed) {
  Compared fit;
  fit.fit.par.ParValues[1] = 11;
  fit.fit.par.ParDeltas[3] = 9;
  EXPECT_EQ(fit.warnings(), (Warnings{{Kind::kFitOffMinimum, {"A"}}, {Kind::kFitErrorWrong, {"k"}}}));
  for (const auto end :
       {LeastSquaresEnd::kNoProgress, LeastSquaresEnd::kEvaluations, LeastSquaresEnd::kSingular}) {
    Compared other = fit;
    other.refined.end = end;
    EXPECT_EQ(other.warnings(), Warnings{});
  }
  fit.fit.status = FitStatus::kFailed;
  EXPECT_EQ(fit.warnings(), Warnings{});
}

TEST(FitWarnings, SayNothingOfParametersWithoutACovariance) {
  Compared fit;
  fit.refined.par.ParValues[1] = 0;
  EXPECT_FALSE(fit.warnings().empty());
  fit.refined.covariance = {};
  EXPECT_EQ(fit.warnings(), Warnings{});
}

TEST(FitWarnings, HaveStableWords) {
  EXPECT_EQ(textOf(Kind::kChiSquareHigh).word, "chi_square_high");
  EXPECT_EQ(textOf(Kind::kChiSquareLow).word, "chi_square_low");
  EXPECT_EQ(textOf(Kind::kCorrelationHigh).word, "correlation_high");
  EXPECT_EQ(textOf(Kind::kErrorAboveValue).word, "error_above_value");
  EXPECT_EQ(textOf(Kind::kFitOffMinimum).word, "fit_off_minimum");
  EXPECT_EQ(textOf(Kind::kFitErrorWrong).word, "fit_error_wrong");
  EXPECT_EQ(textOf(Kind::kErrorsInvented).word, "errors_invented");
  EXPECT_EQ(textOf(LeastSquaresEnd::kConverged).word, "converged");
  EXPECT_EQ(textOf(LeastSquaresEnd::kNoProgress).word, "no_progress");
  EXPECT_EQ(textOf(LeastSquaresEnd::kEvaluations).word, "evaluations");
  EXPECT_EQ(textOf(LeastSquaresEnd::kSingular).word, "singular");
  EXPECT_EQ(textOf(LeastSquaresEnd::kFailed).word, "failed");
  EXPECT_EQ(textOf(XErrors::kEffective).word, "effective");
  EXPECT_EQ(textOf(XErrors::kOrthogonal).word, "orthogonal");
}

TEST(FitWarnings, HaveSentencesThatAnyTerminalShows) {
  std::vector<FitText> texts{textOf(XErrors::kEffective), textOf(XErrors::kOrthogonal)};
  for (int kind = 0; kind <= static_cast<int>(Kind::kErrorsInvented); ++kind)
    texts.push_back(textOf(static_cast<Kind>(kind)));
  for (int end = 0; end <= static_cast<int>(LeastSquaresEnd::kFailed); ++end)
    texts.push_back(textOf(static_cast<LeastSquaresEnd>(end)));
  for (const FitText& text : texts) {
    EXPECT_TRUE(!text.line.empty() && !text.line.ends_with('.')) << text.word;
    EXPECT_TRUE(text.sentence.ends_with('.')) << text.word;
    for (const char c : std::string(text.line) + std::string(text.sentence))
      EXPECT_TRUE(c >= ' ' && c < 127) << text.word;
  }
}

}  // namespace
}  // namespace vk
