#include "commands/RefinedTable.h"

#include <gmock/gmock.h>

#include "tests/analysis/FitFixture.h"
#include "tests/numeric/SampleValues.h"

namespace vk {
namespace {

/// The table of a fit, as text.
std::string tableOf(FitCase& fit, XErrors xErrors = XErrors::kEffective) {
  const ParameterSet start = fit.par;
  const FitResult result = FitData(fit.problem(), start, fit.log);
  const RefinedFit refined = refine(fit.problem(), start, &result, xErrors);
  return refinedTable(fit.points, refined, fitWarnings(fit.points, result, refined)).toUtf8();
}

// The lines of the parameters come from RefinedTableTest.py.
TEST(RefinedTable, ShowsFiguresParametersCorrelationsAndWarnings) {
  FitCase fit("A*EXP(-tau*x)+C", "A,tau,C");
  fit.data({0, 1, 2, 3, 4, 5, 6, 7}, {10.2, 7.1, 4.9, 3.9, 2.7, 2.4, 2.1, 1.6}, Values(8, 0.2));
  fit.start({8, 0.4, 1});
  EXPECT_EQ(tableOf(fit), R"(┌───────────────────────────────────────────────────┐
│              Minimo e Errori Lineari              │
├─────────────────────────┬─────────────────────────┤
│     Minimizzazione      │ µ                   5   │
│    Minimo Raggiunto     │ X²/µ       0.6161E+00   │
│                         │ Liv. Conf.  68.7567 %   │
└─────────────────────────┴─────────────────────────┘
┌─────┬──────────────┬──────────────┬───────────────┐
│ Par │    Valore    │    Errore    │ Err. Scalato  │
├─────┼──────────────┼──────────────┼───────────────┤
│  A  │ 0.889209E+01 │ 0.248781E+00 │ 0.195275E+00  │
│ tau │ 0.434566E+00 │ 0.333107E-01 │ 0.261465E-01  │
│  C  │ 0.130636E+01 │ 0.222465E+00 │ 0.174619E+00  │
├─────┼──────────────┴──────────────┴───────────────┤
│ Par │ Mat. Cor.%                                  │
├─────┼─────────────────────────────────────────────┤
│  A  │ _____ _____ _____                           │
│ tau │   -41 _____ _____                           │
│  C  │   -68    88 _____                           │
├─────┴─────────────────────────────────────────────┤
│ - Errore dell'adattamento inesatto: A             │
└───────────────────────────────────────────────────┘
)");
}

TEST(RefinedTable, ShowsConstantParametersWithoutErrorsAndOneFreeOneWithoutAMatrix) {
  FitCase fit("b*x+c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 0.03}, "c");
  EXPECT_EQ(tableOf(fit), R"(┌───────────────────────────────────────────────────┐
│              Minimo e Errori Lineari              │
├─────────────────────────┬─────────────────────────┤
│     Minimizzazione      │ µ                   4   │
│    Minimo Raggiunto     │ X²/µ       0.2684E+01   │
│                         │ Liv. Conf.   2.9692 %   │
└─────────────────────────┴─────────────────────────┘
┌─────┬──────────────┬──────────────┬───────────────┐
│ Par │    Valore    │    Errore    │ Err. Scalato  │
├─────┼──────────────┼──────────────┼───────────────┤
│  b  │ 0.199545E+01 │ 0.134840E-01 │ 0.220911E-01  │
│  c  │ 0.300000E-01 │ ___________  │ ___________   │
└─────┴──────────────┴──────────────┴───────────────┘
)");
}

TEST(RefinedTable, TellsHowErrorsInXCount) {
  FitCase fit("b*x+c", "b,c");
  fit.data(kFive, kLineY, kTenths, Values(5, 0.05));
  fit.start({1, 1});
  EXPECT_NE(tableOf(fit).find("│    Varianza Efficace    │"), std::string::npos) << tableOf(fit);
  EXPECT_NE(tableOf(fit, XErrors::kOrthogonal).find("│   Distanza Ortogonale   │"), std::string::npos);
}

TEST(RefinedTable, HasNoNumbersWhereTheFunctionFails) {
  FitCase fit("a*LOG(x)+c", "a,c");
  fit.data({1, 2, -3, 4}, {1, 2, 3, 4}, {1, 2, 1, 1});
  fit.start({1, 0.5}, "c");
  EXPECT_EQ(tableOf(fit), R"(┌───────────────────────────────────────────────────┐
│              Minimo e Errori Lineari              │
├─────────────────────────┬─────────────────────────┤
│     Minimizzazione      │ µ                   3   │
│     NON Calcolabile     │ X²/µ       __________   │
│                         │ Liv. Conf. __________   │
└─────────────────────────┴─────────────────────────┘
┌─────┬──────────────┬──────────────┬───────────────┐
│ Par │    Valore    │    Errore    │ Err. Scalato  │
├─────┼──────────────┼──────────────┼───────────────┤
│  a  │ ___________  │ ___________  │ ___________   │
│  c  │ 0.500000E+00 │ ___________  │ ___________   │
├─────┴──────────────┴──────────────┴───────────────┤
│ - La funzione NON si calcola in un punto: servono │
│   altri valori iniziali, o altri dati. Punto 3.   │
│ - Chi quadro troppo grande                        │
└───────────────────────────────────────────────────┘
)");
}

TEST(RefinedTable, TellsWhyThereIsNoMinimum) {
  FitCase fit("b*x+c", "b,c");
  fit.data({2}, {4.5}, {0.1});
  fit.start({1, 1});
  EXPECT_EQ(tableOf(fit), R"(┌───────────────────────────────────────────────────┐
│              Minimo e Errori Lineari              │
├─────────────────────────┬─────────────────────────┤
│     Minimizzazione      │ µ                  -1   │
│  Parametri Dipendenti   │ X²/µ       __________   │
│                         │ Liv. Conf. __________   │
└─────────────────────────┴─────────────────────────┘
┌─────┬──────────────┬──────────────┬───────────────┐
│ Par │    Valore    │    Errore    │ Err. Scalato  │
├─────┼──────────────┼──────────────┼───────────────┤
│  b  │ 0.100000E+01 │ ___________  │ ___________   │
│  c  │ 0.100000E+01 │ ___________  │ ___________   │
├─────┴──────────────┴──────────────┴───────────────┤
│ - I dati NON distinguono i parametri, o sono meno │
│   di questi: qualcuno va tenuto costante.         │
└───────────────────────────────────────────────────┘
)");
}

TEST(RefinedTable, HasNoScaledErrorsWithoutADegreeOfFreedom) {
  FitCase fit("b*x+c", "b,c");
  fit.data({1, 2}, {2, 4.5}, {0.1, 0.2});
  fit.start({1, 1});
  EXPECT_EQ(tableOf(fit), R"(┌───────────────────────────────────────────────────┐
│              Minimo e Errori Lineari              │
├─────────────────────────┬─────────────────────────┤
│     Minimizzazione      │ µ                       │
│    Minimo Raggiunto     │ X²/µ       __________   │
│                         │ Liv. Conf. __________   │
└─────────────────────────┴─────────────────────────┘
┌─────┬──────────────┬──────────────┬───────────────┐
│ Par │    Valore    │    Errore    │ Err. Scalato  │
├─────┼──────────────┼──────────────┼───────────────┤
│  b  │ 0.250000E+01 │ 0.223607E+00 │ ___________   │
│  c  │ -.500000E+00 │ 0.282843E+00 │ ___________   │
├─────┼──────────────┴──────────────┴───────────────┤
│ Par │ Mat. Cor.%                                  │
├─────┼─────────────────────────────────────────────┤
│  b  │ _____ _____                                 │
│  c  │   -95 _____                                 │
├─────┴─────────────────────────────────────────────┤
│ - Errore dell'adattamento inesatto: b, c          │
└───────────────────────────────────────────────────┘
)");
}

/// A minimum of `count` parameters, the first `free` of them free, that is not correlated.
RefinedFit minimum(int count, int free) {
  RefinedFit refined;
  refined.end = LeastSquaresEnd::kConverged;
  std::vector<std::string> names;
  for (int i = 1; i <= count; ++i) names.push_back("p" + std::to_string(i));
  refined.par = parametersOf(names);
  for (int i = 1; i <= free; ++i) refined.par.ParDeltas[i] = 1;
  classifyParameters(refined.par);
  refined.covariance = CovarianceMatrix(free);
  for (int i = 1; i <= free; ++i) refined.covariance.set(i, i, 1);
  return refined;
}

TEST(RefinedTable, GrowsWithTheMatrix) {
  for (const int free : {2, 8, 11, 12}) {
    const CharGrid grid = refinedTable(DataSet(), minimum(12, free), {});
    EXPECT_EQ(grid.cols(), std::max(53, 9 + 6 * free)) << free;
    EXPECT_EQ(grid.rows(), 8 + 3 + 12 + 3 + free) << free;
  }
}

TEST(RefinedTable, HasNoCorrelationsOfVariancesThatAreTooSmall) {
  RefinedFit refined = minimum(2, 2);
  refined.covariance.set(1, 2, 0.5);
  EXPECT_THAT(refinedTable(DataSet(), refined, {}).rowText(17), testing::HasSubstr("    50 _____ "));
  refined.covariance.set(2, 2, 0);
  EXPECT_THAT(refinedTable(DataSet(), refined, {}).rowText(17), testing::HasSubstr(" _____ _____ "));
}

TEST(RefinedTable, DividesLongWarningsAtBlanks) {
  const std::vector<FitWarning> warnings{
      {FitWarningKind::kChiSquareHigh, {}},
      {FitWarningKind::kChiSquareLow, {}},
      {FitWarningKind::kCorrelationHigh, {"p1-p2", "p1-p3", "p1-p4", "p1-p5", "p2-p3"}},
      {FitWarningKind::kErrorAboveValue, {"p1"}},
      {FitWarningKind::kFitOffMinimum, {"p1", "p2"}},
      {FitWarningKind::kFitErrorWrong, {"p1", "p2", "p3", "p4", "p5"}},
      {FitWarningKind::kErrorsInvented, {}},
  };
  const CharGrid grid = refinedTable(DataSet(), minimum(1, 1), warnings);
  std::string lines;
  for (int row = 13; row < grid.rows(); ++row) lines += trim(grid.rowText(row)) + "\n";
  EXPECT_EQ(lines,
            "- Chi quadro troppo grande\n"
            "- Chi quadro troppo piccolo\n"
            "- Correlazione oltre 98 %: p1-p2, p1-p3, p1-p4,\n"
            "p1-p5, p2-p3\n"
            "- Errore maggiore del valore: p1\n"
            "- Adattamento lontano dal minimo: p1, p2\n"
            "- Errore dell'adattamento inesatto: p1, p2, p3,\n"
            "p4, p5\n"
            "- Errori di y tutti uguali a 1\n");
}

}  // namespace
}  // namespace vk
