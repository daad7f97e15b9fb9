#include <gmock/gmock.h>

#include "batch/BatchRun.h"

namespace vk {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string kDecay =
    "fit examples/decay.dat --file examples/lab.fcn --entry 1 --par A=400 --par k=0.2 --par b=5 ";

// The line y = 2x+1, exact, with errors of .1: of its slope .1/sqrt(2), of its value at 2 .1/sqrt(3).
std::string line() {
  return "fit '" + temporaryFile("LINE.DAT", "x\r\ny\r\n 3\r\n1 3 .1\r\n2 5 .1\r\n3 7 .1\r\n") + "' " +
         "--catalogue 1,2 --par b=1 --par c=0 ";
}

TEST(BatchDerive, PrintsATableUnderTheReportOfTheFit) {
  const std::string plain = batch(line()).output;
  const BatchRun run = batch(line() + "--derive 'half=1/b' --derive 'mid=2*b+c'");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.output.substr(0, plain.size()), plain);
  EXPECT_EQ(run.output.substr(plain.size()), R"(┌──────────────────────────────────────────────┐
│    Grandezze Derivate con Errori Lineari     │
├──────┬──────────────┬──────────────┬─────────┤
│ Nome │    Valore    │    Errore    │ Formula │
├──────┼──────────────┼──────────────┼─────────┤
│ half │ 0.500000E+00 │ 0.176777E-01 │ 1/b     │
│ mid  │ 0.500000E+01 │ 0.577350E-01 │ 2*b+c   │
└──────┴──────────────┴──────────────┴─────────┘
)");
}

TEST(BatchDerive, AtTheMinimumErrorsAreScaledToo) {
  // Chi-square is 6, for two degrees of freedom.
  const std::string words = "fit '" +
                            temporaryFile("MEAN.DAT",
                                          "x\r\ny\r\n 3\r\n1 2 .1\r\n2 2.1732050808 .1\r\n"
                                          "3 1.8267949192 .1\r\n") +
                            "' --catalogue 1,1 --par c=1 --derive 'twice=2*c' --refine ";
  const BatchRun run = batch(words);
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(run.output, EndsWith(R"(
┌──────────────────────────────────────────────────────────────┐
│            Grandezze Derivate con Errori Lineari             │
├───────┬──────────────┬──────────────┬──────────────┬─────────┤
│ Nome  │    Valore    │    Errore    │ Err. Scalato │ Formula │
├───────┼──────────────┼──────────────┼──────────────┼─────────┤
│ twice │ 0.400000E+01 │ 0.115470E+00 │ 0.200000E+00 │ 2*c     │
└───────┴──────────────┴──────────────┴──────────────┴─────────┘
)"));
  EXPECT_THAT(batch(words + "--json").output, HasSubstr("\"error_scaled\": 0.2"));
}

TEST(BatchDerive, GivesAListInTheObject) {
  const BatchRun run = batch(line() + "--json --derive ' µ = 0*b ' --derive 'one=1'");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(run.output, EndsWith(R"(  "derived": [
    {
      "name": "µ",
      "formula": "0*b",
      "value": 0,
      "error": 0
    },
    {
      "name": "one",
      "formula": "1",
      "value": 1,
      "error": 0
    }
  ]
}
)"));
  EXPECT_THAT(batch(line() + "--json").output, AllOf(HasSubstr("parameters"), Not(HasSubstr("derived"))));
}

TEST(BatchDerive, WhatIsWrongIsToldBeforeTheFit) {
  const std::pair<const char*, const char*> cases[] = {
      {"T", "\"T\": si attende NOME=FORMULA\n"},
      {"=k", "\"=k\": si attende NOME=FORMULA\n"},
      {"5=A", "\"5=A\": un nome comincia con una lettera\n"},
      {"a b=k", "\"a b=k\": si attende NOME=FORMULA\n"},
      {"T=", "\n^ manca un valore\n"},
      {"T=LOG(2)/q", "LOG(2)/q\n       ^ \"q\" non e` definita\n"},
      {"T=x*k", "x*k\n^ \"x\" non e` definita\n"},
      {"T=(k", "(k\n^ parentesi mai chiusa\n"},
      {"T=€", "\"€\": un carattere non esiste nella tabella dei codici 437\n"},
  };
  for (const auto& [word, complaint] : cases) {
    const BatchRun run = batch(kDecay + "--derive '" + word + "'");
    EXPECT_EQ(run.exitCode, 2) << word;
    EXPECT_EQ(run.errors, complaint);
    EXPECT_EQ(run.output, "") << word;
  }
  const BatchRun twice = batch(kDecay + "--derive T=k --derive T=A");
  EXPECT_EQ(twice.exitCode, 2);
  EXPECT_EQ(twice.errors, "T: formula data piu` di una volta\n");
}

TEST(BatchDerive, ANameThatTwoParametersBearIsRefusedWhereItIsUsed) {
  const std::string words = "fit examples/ohm.dat --function 'A+k*x' --par A=1 --par k=1 --par A=2 ";
  const BatchRun run = batch(words + "--derive 'T=2*A'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, "\"T=2*A\": piu` di un parametro ha il nome A\n");
}

TEST(BatchDerive, WhatCannotBeComputedIsToldAndTheRestIsPrinted) {
  const BatchRun run =
      batch(line() + "--derive 'none=LOG(-b)' --derive 'edge=SQR(ABS(b-2))' --derive 'sq=b*b'");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_THAT(run.errors, EndsWith("fit: none NON calcolabile\nfit: errore di edge NON calcolabile\n"));
  EXPECT_THAT(run.output, HasSubstr("│ none │ ___________  │ ___________  │ LOG(-b)"));
  EXPECT_THAT(run.output, HasSubstr("│ sq   │ 0.400000E+01 │ 0.282843E+00 │ b*b"));
  EXPECT_THAT(batch(line() + "--json --derive 'none=LOG(-b)'").output,
              HasSubstr("\"value\": null,\n      \"error\": null\n"));
}

TEST(BatchDerive, WithoutLinearErrorsThereAreValuesOnly) {
  const BatchRun run =
      batch("fit examples/ohm.dat --function 'a+b+c*x' --par a=1 --par b=2 --par c=1 --derive 'R=7'");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_THAT(run.errors, EndsWith("fit: errori lineari dei parametri NON calcolabili\n"));
  EXPECT_THAT(run.output, EndsWith(R"(│ R    │ 0.700000E+01 │ ___________  │ 7       │
└──────┴──────────────┴──────────────┴─────────┘
)"));
}

}  // namespace
}  // namespace vk
