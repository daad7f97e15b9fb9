#include "batch/FitResultFile.h"

#include <gmock/gmock.h>

#include <random>

#include "batch/TerminalPorts.h"
#include "doubles/MemoryFiles.h"

namespace vk {
namespace {

using ::testing::ElementsAre;
using ::testing::FieldsAre;
using ::testing::StartsWith;

const std::string kResult = R"({"parameters": [
  {"name": "A", "value": 514.13, "error": 99, "error_linearised": 14.2099, "free": true},
  {"name": "c", "value": 1, "error": null, "error_linearised": null, "free": false},
  {"name": "k", "value": 0.309163, "error": 99, "error_linearised": 0.00854487, "free": true}],
 "correlation": [[1, 0.9], [0.9, 1]], "correlation_linearised": [[1, 0.5644], [0.5644, 1]]})";

const std::string kRefined = R"({"parameters": [], "correlation_linearised": null, "refined": {"parameters": [
  {"name": "A", "value": 514, "error": 14, "error_scaled": 99, "free": true},
  {"name": "k", "value": 0.31, "error": 0.009, "error_scaled": 99, "free": true}],
 "correlation": [[1, -0.25], [-0.25, 1]], "stop_reason": "converged"}})";

/// A text with one part replaced by another one.
std::string with(std::string text, const std::string& part, const std::string& other) {
  const auto at = text.find(part);
  EXPECT_NE(at, std::string::npos) << part;
  return text.replace(at, part.size(), other);
}

FittedParameters read(const std::string& bytes) {
  MemoryFiles files;
  files.content["R.JSON"] = bytes;
  return readFitResult(files, "R.JSON");
}

/// Why the file is refused.
std::string refusalFor(const std::string& bytes) {
  try {
    read(bytes);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "none";
}

TEST(FitResultFile, GivesTheFitWithItsLinearErrors) {
  const FittedParameters fitted = read(kResult);
  EXPECT_EQ(fitted.file, "R.JSON");
  EXPECT_THAT(fitted.parameters, ElementsAre(FieldsAre("A", 514.13, 14.2099), FieldsAre("c", 1, 0),
                                             FieldsAre("k", 0.309163, 0.00854487)));
  EXPECT_EQ(fitted.correlation.at(1, 3), 0.5644);
  EXPECT_EQ(fitted.correlation.at(1, 2), 0);
  EXPECT_TRUE(fitted.converged);
}

TEST(FitResultFile, PrefersTheMinimum) {
  const FittedParameters fitted = read(kRefined);
  EXPECT_THAT(fitted.parameters, ElementsAre(FieldsAre("A", 514, 14), FieldsAre("k", 0.31, 0.009)));
  EXPECT_EQ(fitted.correlation.at(2, 1), -0.25);
  EXPECT_TRUE(fitted.converged);
  EXPECT_FALSE(read(with(kRefined, "converged", "evaluations")).converged);
}

TEST(FitResultFile, TakesNamesOfTheCodePage) {
  EXPECT_EQ(read(with(kResult, "\"A\"", "\"\\u00b5\"")).parameters.front().name, "\xE6");
}

TEST(FitResultFile, CorrelationsMayBeWhole) {
  const FittedParameters fitted = read(with(kResult, "[[1, 0.5644], [0.5644, 1]]", "[[1, -1], [-1, 1]]"));
  EXPECT_EQ(fitted.correlation.at(1, 3), -1);
}

TEST(FitResultFile, AFileThatIsNoJsonIsRefused) {
  EXPECT_EQ(refusalFor(""), "R.JSON: JSON errato al byte 1");
  EXPECT_EQ(refusalFor("A = 3"), "R.JSON: JSON errato al byte 1");
  EXPECT_EQ(refusalFor("{\"parameters\": [}"), "R.JSON: JSON errato al byte 17");
  EXPECT_EQ(refusalFor(std::string("\x89PNG\r\n\x1A\n\0\0", 10)), "R.JSON: JSON errato al byte 1");
  EXPECT_EQ(refusalFor(with(kResult, "\"A\"", "\"\xE6\"")), "R.JSON: JSON errato al byte 31");
  EXPECT_EQ(refusalFor(with(kResult, "514.13", "NaN")), "R.JSON: JSON errato al byte 43");
  EXPECT_EQ(refusalFor(with(kResult, "514.13", "1e999")), "R.JSON: un numero e` fuori dai limiti");
  EXPECT_EQ(refusalFor(std::string(100000, '[')), "R.JSON: JSON errato al byte 100001");
  EXPECT_EQ(refusalFor(std::string(100000, '[') + std::string(100000, ']')), "R.JSON: si attende un oggetto");
}

TEST(FitResultFile, AnotherObjectIsRefused) {
  EXPECT_EQ(refusalFor("[1, 2]"), "R.JSON: si attende un oggetto");
  EXPECT_EQ(refusalFor("{}"), "R.JSON: manca \"parameters\"");
  EXPECT_EQ(refusalFor("{\"parameters\": 3}"), "R.JSON: parameters: si attende un elenco");
  EXPECT_EQ(refusalFor("{\"parameters\": [3]}"), "R.JSON: parameters[0]: si attende un oggetto");
  EXPECT_EQ(refusalFor(with(kResult, "\"value\": 514.13, ", "")), "R.JSON: parameters[0]: manca \"value\"");
  EXPECT_EQ(refusalFor(with(kResult, "514.13", "\"514\"")),
            "R.JSON: parameters[0]: value: si attende un numero");
  EXPECT_EQ(refusalFor(with(kResult, "\"A\"", "1")), "R.JSON: parameters[0]: name: si attende un testo");
  EXPECT_EQ(refusalFor(with(kResult, "true", "1")), "R.JSON: parameters[0]: free: si attende true o false");
  EXPECT_EQ(refusalFor(with(kResult, "14.2099", "-1")),
            "R.JSON: parameters[0]: error_linearised: si attende un numero non negativo");
  for (const char* name : {"", "A,B", "A B", "x", "€", "\\u0085[2J", "\\n"}) {
    EXPECT_EQ(refusalFor(with(kResult, "\"A\"", "\"" + std::string(name) + "\"")),
              "R.JSON: parameters[0]: name: si attende il nome di un parametro");
  }
}

TEST(FitResultFile, AFitWithoutErrorsIsRefused) {
  const std::string none = ": null, l'adattamento non ha dato questo valore";
  EXPECT_EQ(refusalFor(with(kResult, "14.2099", "null")), "R.JSON: parameters[0]: error_linearised" + none);
  EXPECT_EQ(refusalFor(with(kResult, "[[1, 0.5644], [0.5644, 1]]", "null")),
            "R.JSON: correlation_linearised" + none);
  EXPECT_EQ(refusalFor(with(kRefined, "[[1, -0.25], [-0.25, 1]]", "null")),
            "R.JSON: refined: correlation" + none);
  EXPECT_EQ(refusalFor(with(kRefined, "\"error\": 14,", "\"error\": null,")),
            "R.JSON: refined: parameters[0]: error" + none);
  EXPECT_EQ(refusalFor("{\"refined\": null}"), "R.JSON: refined" + none);
}

TEST(FitResultFile, AResultFromBeforeTheCorrelationsIsRefused) {
  EXPECT_EQ(refusalFor(with(kResult, "correlation_linearised", "other")),
            "R.JSON: manca \"correlation_linearised\": il file e` di una versione precedente, ripetere "
            "l'adattamento con fit --json");
  EXPECT_EQ(refusalFor(with(kRefined, "\"correlation\"", "\"other\"")),
            "R.JSON: refined: manca \"correlation\"");
}

TEST(FitResultFile, ImpossibleCorrelationsAreRefused) {
  const auto refusalOf = [](const std::string& matrix) {
    return refusalFor(with(kResult, "[[1, 0.5644], [0.5644, 1]]", matrix));
  };
  const std::string place = "R.JSON: correlation_linearised: ";
  EXPECT_EQ(refusalOf("[[1, 0.5], [0.4, 1]]"), place + "la matrice non e` simmetrica");
  EXPECT_EQ(refusalOf("[[1, 0.5], [0.5, 2]]"), place + "sulla diagonale si attende 1");
  for (const char* matrix : {"[]", "[[1, 0.5]]", "[[1], [1]]", "[[1, 0, 0], [0, 1, 0], [0, 0, 1]]"})
    EXPECT_EQ(refusalOf(matrix), place + "si attende una matrice 2 x 2");
  EXPECT_EQ(refusalOf("[[1, null], [null, 1]]"),
            "R.JSON: correlation_linearised[0][1]: null, l'adattamento non ha dato questo valore");
  EXPECT_EQ(refusalOf("[[1, 1.5], [1.5, 1]]"), "R.JSON: nessun errore ha queste correlazioni");
  // Each pair could be; all three together cannot.
  const std::string third = R"("free": true},
  {"name": "b", "value": 1, "error": 1, "error_linearised": 1, "free": true}])";
  const std::string three =
      with(kResult, "[[1, 0.5644], [0.5644, 1]]", "[[1, 0.9, 0.9], [0.9, 1, -0.9], [0.9, -0.9, 1]]");
  EXPECT_EQ(refusalFor(with(three, "\"free\": true}]", third)),
            "R.JSON: nessun errore ha queste correlazioni");
}

TEST(FitResultFile, WhateverStandsInAFileIsTakenOrRefused) {
  std::mt19937 random(1);
  const auto below = [&](std::size_t count) { return random() % count; };
  const std::vector<std::string> pieces{"1e308", "-1", "null", "true", "\"",    "[",
                                        "]",     "{",  "}",    ",",    "[[1]]", "\xFF"};
  int taken = 0, refused = 0;
  for (int i = 0; i < 3000; ++i) {
    std::string bytes = i % 2 == 0 ? kResult : kRefined;
    for (std::size_t changes = 1 + below(2); changes > 0; --changes)
      bytes.replace(below(bytes.size()), below(8), pieces[below(pieces.size())]);
    try {
      for (const FittedParameter& parameter : read(bytes).parameters) EXPECT_GE(parameter.error, 0) << bytes;
      ++taken;
    } catch (const UsageError& error) {
      EXPECT_THAT(error.what(), StartsWith("R.JSON: ")) << bytes;
      ++refused;
    }
  }
  EXPECT_GT(taken, 10);
  EXPECT_GT(refused, 1000);
}

}  // namespace
}  // namespace vk
