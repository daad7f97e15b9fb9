#include <gtest/gtest.h>

#include "batch/BatchRun.h"

// What people read of the fits, every letter of it. The lines of figures come from GoldenReportsTest.py.

namespace vk {
namespace {

constexpr const char* kPointsOfLine =
    "t\ns\n 6\n1 3.1 .1\n2 4.8 .2\n3 7.3 .1\n4 8.7 .4\n5 11.2 .2\n6 12.9 .1\n";

std::string reportOf(const std::string& words) {
  const BatchRun run =
      batch("fit '" + temporaryFile("L.DAT", kPointsOfLine) + "' --catalogue 1,2 --par b=1 " + words);
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.errors, "");
  return run.output;
}

const std::string kAllOfIt = "--par c=.5 --refine --profile --derive 'T=b/c' ";

TEST(GoldenReports, OfAFitWithItsMinimumIntervalsAndQuantities) {
  EXPECT_EQ(reportOf(kAllOfIt), R"(┌─────────────────────────────────────────────────┐
│                   y = bx+c                      │
├───────────────────────┬─────────────────────────┤
│    Minimizzazione     │ µ                   4   │
│      Completata       │ X²/µ       0.2432E+01   │
│ Sec.       Iter.    1 │ Liv. Conf.   4.5256 %   │
└───────────────────────┴─────────────────────────┘
┌─────┬──────────────┬──────────────┬─────────────┐
│ Par │    Valore    │    Errore    │ Mat. Cor.%  │
├─────┼──────────────┼──────────────┼─────────────┤
│  b  │ 0.196584E+01 │ 0.257450E-01 │ _____ _____ │
│  c  │ 0.119401E+01 │ 0.104683E+00 │   -85 _____ │
└─────┴──────────────┴──────────────┴─────────────┘
┌───────────────────────────────────────────────────┐
│              Minimo e Errori Lineari              │
├─────────────────────────┬─────────────────────────┤
│     Minimizzazione      │ µ                   4   │
│    Minimo Raggiunto     │ X²/µ       0.2432E+01   │
│                         │ Liv. Conf.   4.5256 %   │
└─────────────────────────┴─────────────────────────┘
┌─────┬──────────────┬──────────────┬───────────────┐
│ Par │    Valore    │    Errore    │ Err. Scalato  │
├─────┼──────────────┼──────────────┼───────────────┤
│  b  │ 0.196584E+01 │ 0.268909E-01 │ 0.419373E-01  │
│  c  │ 0.119401E+01 │ 0.104937E+00 │ 0.163653E+00  │
├─────┼──────────────┴──────────────┴───────────────┤
│ Par │ Mat. Cor.%                                  │
├─────┼─────────────────────────────────────────────┤
│  b  │ _____ _____                                 │
│  c  │   -86 _____                                 │
└─────┴─────────────────────────────────────────────┘
┌─────────────────────────────────────────────────────────────────┐
│           Intervalli di Confidenza dal Profilo di X²            │
├─────┬──────────────┬──────────────┬──────────────┬──────────────┤
│ Par │  68.27 % da  │      a       │   95 % da    │      a       │
├─────┼──────────────┼──────────────┼──────────────┼──────────────┤
│ b   │ 0.193895E+01 │ 0.199273E+01 │ 0.191314E+01 │ 0.201855E+01 │
│ c   │ 0.108907E+01 │ 0.129894E+01 │ 0.988333E+00 │ 0.139968E+01 │
└─────┴──────────────┴──────────────┴──────────────┴──────────────┘
┌─────────────────────────────────────────────────────────────┐
│            Grandezze Derivate con Errori Lineari            │
├──────┬──────────────┬──────────────┬──────────────┬─────────┤
│ Nome │    Valore    │    Errore    │ Err. Scalato │ Formula │
├──────┼──────────────┼──────────────┼──────────────┼─────────┤
│ T    │ 0.164643E+01 │ 0.164532E+00 │ 0.256593E+00 │ b/c     │
└──────┴──────────────┴──────────────┴──────────────┴─────────┘
)");
}

TEST(GoldenReports, OfAFitWithAConstant) {
  EXPECT_EQ(reportOf("--fixed c=1 --derive 'R=1/b'"), R"(┌───────────────────────────────────────────────┐
│                   y = bx+c                    │
├──────────────────────┬────────────────────────┤
│    Minimizzazione    │ µ                   5  │
│      Completata      │ X²/µ       0.2629E+01  │
│ Sec.      Iter.    1 │ Liv. Conf.   2.2043 %  │
└──────────────────────┴────────────────────────┘
┌─────┬──────────────┬──────────────┬───────────┐
│ Par │    Valore    │    Errore    │           │
├─────┼──────────────┼──────────────┼───────────┤
│  b  │ 0.200876E+01 │ 0.192452E-01 │           │
│  c  │  .100000E+01 │ ___________  │           │
└─────┴──────────────┴──────────────┴───────────┘
┌──────────────────────────────────────────────┐
│    Grandezze Derivate con Errori Lineari     │
├──────┬──────────────┬──────────────┬─────────┤
│ Nome │    Valore    │    Errore    │ Formula │
├──────┼──────────────┼──────────────┼─────────┤
│ R    │ 0.497821E+00 │ 0.336470E-02 │ 1/b     │
└──────┴──────────────┴──────────────┴─────────┘
)");
}

TEST(GoldenReports, OfAFitInRoundedFigures) {
  EXPECT_EQ(reportOf(kAllOfIt + "--rounded"), R"(b = 1.966 +- 0.027 = 1.966(27)
c = 1.19 +- 0.10 = 1.19(10)
T = 1.65 +- 0.16 = 1.65(16)
)");
}

TEST(GoldenReports, OfAFitForLaTeX) {
  EXPECT_EQ(reportOf(kAllOfIt + "--latex"),
            "% \\usepackage{siunitx}\n% " + temporaryFile("L.DAT", kPointsOfLine) + R"(
\begin{tabular}{lrrr}
\hline
Parametro & Valore & b & c \\
\hline
b & \num{1.966(27)} & \num{1.00} & \\
c & \num{1.19(10)} & \num{-0.86} & \num{1.00} \\
T & \num{1.65(16)} & & \\
\hline
$\chi^2/\nu$ & \num{9.729}/4 \\
\hline
\end{tabular}
)");
}

TEST(GoldenReports, OfAPropagation) {
  EXPECT_EQ(batch("propagate --function 'a*x' --par a=2,.5 --par x=3,-.25 --seed 7").output,
            R"(┌────────────────────────────────────────────┐
│                 y = a*x                    │
├────────────────────────────────────────────┤
│ x = 0.300000E+01   δx = 0.250E+00 Err. Max.│
│ a = 0.200000E+01   δa = 0.500E+00 σ        │
├─Espressioni Analitiche─────────────────────┤
│ y = 0.600000E+01   δy = 0.500E+01 Err. Max.│
│                    δy'= 0.153E+01 σ(y)     │
├─Simulazione di Monte Carlo─────────────────┤
│<y>= 0.600803E+01   δy = 0.153E+01 σ(y)     │
│ N =    10000       δy'= 0.153E-01 σ(<y>)   │
└────────────────────────────────────────────┘
)");
}

TEST(GoldenReports, OfATransformation) {
  const std::string data = temporaryFile(
      "B.DAT", "t\ns\n 5 1\n1 2.9 .1 .2\n2 5.3 .1 .1\n3 6.8 .2 .3\n4 9.2 .1 .2\n5 10.7 .2 .1\n");
  EXPECT_EQ(batch("transform '" + data +
                  "' --x 'x^2' --y 'LOG(y)' --dx '2*x*dx' --dy 'dy/y' --title-x 't^2' --title-y 'ln s'")
                .output,
            "t^2\n"
            "ln s\n"
            " 5 1\n"
            "  1.00000E+00   1.06471E+00   2.00000E-01   6.89655E-02 \n"
            "  4.00000E+00   1.66771E+00   4.00000E-01   1.88679E-02 \n"
            "  9.00000E+00   1.91692E+00   1.20000E+00   4.41176E-02 \n"
            "  1.60000E+01   2.21920E+00   8.00000E-01   2.17391E-02 \n"
            "  2.50000E+01   2.37024E+00   2.00000E+00   9.34579E-03 \n");
}

}  // namespace
}  // namespace vk
