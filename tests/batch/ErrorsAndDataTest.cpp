#include "batch/BatchRun.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

using ::testing::ContainsRegex;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string kFlat = "propagate --catalogue 1,1 --par c=3,-.3 --par x=2 ";
const std::string kLineModel = "--catalogue 1,2 --par b=2 --par c=-1 ";

constexpr const char* kThreeColumns = "t\r\ns\r\n 2\r\n1 2 .1\r\n3 4 .2\r\n";
constexpr const char* kFourColumns = "t\r\ns\r\n 2 1\r\n1 2 .01 .1\r\n3 4 .02 .2\r\n";

std::string dataFile(const std::string& text = kThreeColumns) {
  return "'" + temporaryFile("IN.DAT", text) + "' ";
}

// ---- propagate --------------------------------------------------------------------------------------------

TEST(BatchPropagate, PrintsTheScreenOfTheProgram) {
  const BatchRun run = batch(kFlat + "--seed 1");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors, "");
  EXPECT_EQ(run.output.substr(0, run.output.find("│<y>=")),
            R"(┌────────────────────────────────────────────┐
│                   y = c                    │
├────────────────────────────────────────────┤
│ x = 0.200000E+01   δx = 0.000E+00 σ        │
│ c = 0.300000E+01   δc = 0.300E+00 Err. Max.│
├─Espressioni Analitiche─────────────────────┤
│ y = 0.300000E+01   δy = 0.300E+00 Err. Max.│
│                    δy'= 0.173E+00 σ(y)     │
├─Simulazione di Monte Carlo─────────────────┤
)");
}

TEST(BatchPropagate, TheSeedTellsTheSamples) {
  const std::string first = batch(kFlat + "--json --seed 1").output;
  EXPECT_EQ(batch(kFlat + "--json --seed 1").output, first);
  EXPECT_NE(batch(kFlat + "--json --seed 2").output, first);
  EXPECT_EQ(batch(kFlat + "--seed uno").exitCode, 2);
  EXPECT_EQ(batch(kFlat + "--seed 1E300").exitCode, 2);
}

TEST(BatchPropagate, GivesTheResultAsOneObject) {
  const BatchRun run = batch("propagate --function 'a*x' --par a=2,.5 --par x=3,-.25 --seed 7 --json");
  EXPECT_EQ(run.exitCode, 0);
  for (const char* text : {"\"function\": \"y = a*x\"", "\"value\": 6", "\"error_kind\": \"maximum\"",
                           "\"count\": 10000", "\"seed\": 7", "\"status\": \"completed\""}) {
    EXPECT_THAT(run.output, HasSubstr(text));
  }
}

TEST(BatchPropagate, RefusedNamesAreToldAsTheyWereTyped) {
  EXPECT_EQ(batch("propagate --function 'µ*x' --par µ=2").errors,
            "µ*x\n^ \"µ\" non e` un segno delle formule\n");
  EXPECT_EQ(batch("propagate --function x --par µ=2").errors, "\"µ\": il Nome NON Inizia con una Lettera\n");
  EXPECT_EQ(batch("propagate --catalogue 1,1 --par c=1 --par ß=1").errors,
            "La funzione non ha il parametro ß\n");
  EXPECT_EQ(batch("eval x è=1 è=2").errors, "è: valore dato piu` di una volta\n");
}

TEST(BatchPropagate, WritesTheHistogramAsADataFile) {
  const std::string file = temporaryFile("H.DAT", "");
  EXPECT_EQ(batch(kFlat + "--seed 1 --histogram '" + file + "'").exitCode, 0);
  EXPECT_THAT(fileContent(file), HasSubstr("Sim. M.C. per y = c\r\nDensita` di Probabilita`\r\n "));
  EXPECT_EQ(batch("check '" + file + "'").exitCode, 0);
  const BatchRun fit = batch("fit '" + file + "' --catalogue 1,1 --par c=1");
  EXPECT_EQ(fit.exitCode, 0) << fit.errors;
}

TEST(BatchPropagate, AHistogramThatCannotBeWrittenIsBadInputAndCostsNoResult) {
  const BatchRun run = batch(kFlat + "--seed 1 --histogram /nowhere/at/all/H.DAT");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_THAT(run.errors, EndsWith("/nowhere/at/all/H.DAT: Impossibile trovare il percorso\n"));
  EXPECT_THAT(run.output, HasSubstr("Simulazione di Monte Carlo"));
}

TEST(BatchPropagate, AFailedPropagationHasExitCodeOne) {
  const BatchRun flat = batch("propagate --catalogue 1,1 --par c=3 --json");
  EXPECT_EQ(flat.exitCode, 1);
  EXPECT_EQ(flat.errors,
            "propagate: Errori nella Simulazione di Monte Carlo; la funzione NON dipende dalle variabili\n");
  EXPECT_THAT(flat.output, HasSubstr("\"status\": \"no_dependence\""));
  const BatchRun root = batch("propagate --function 'SQR(a)' --par a=0,1 --json");
  EXPECT_EQ(root.exitCode, 1);
  EXPECT_EQ(root.errors, "propagate: Errori nel Calcolo delle Derivate Parziali\n");
  EXPECT_THAT(root.output, HasSubstr("\"value\": null"));
  EXPECT_THAT(root.output, HasSubstr("\"samples\": null"));
}

TEST(BatchPropagate, BadArgumentsAreBadInput) {
  for (const char* words :
       {"propagate", "propagate --catalogue 1,1", "propagate --catalogue 1,1 --par c=1,due",
        "propagate --catalogue 1,1 --par c=uno,2", "propagate --catalogue 1,1 --par c=1 --par d=1",
        "propagate --catalogue 1,1 --par c=1 --par x=1 --par x=2", "propagate --function 'q*x' --par a=1"}) {
    const BatchRun run = batch(words);
    EXPECT_EQ(run.exitCode, 2) << words;
    EXPECT_FALSE(run.errors.empty()) << words;
    EXPECT_EQ(run.output, "") << words;
  }
}

// ---- simulate ---------------------------------------------------------------------------------------------

TEST(BatchSimulate, WritesTheDataAndPrintsTheScreenOfTheFit) {
  const std::string file = temporaryFile("OUT.DAT", "");
  const BatchRun run =
      batch("simulate " + kLineModel + "--xmin -5 --xmax 5 --points 21 --dy .5 --dy-absolute --seed 1 -o '" +
            file + "'");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  for (const char* text : {"y = bx+c", "Completata", "Mat. Cor.%"}) EXPECT_THAT(run.output, HasSubstr(text));
  EXPECT_THAT(fileContent(file), HasSubstr("x\r\ny\r\n 21\r\n -5.00000E+00 "));
  const BatchRun fit = batch("fit '" + file + "' --catalogue 1,2 --par b=1 --par c=0");
  EXPECT_EQ(fit.exitCode, 0) << fit.errors;
}

TEST(BatchSimulate, ErrorsOfXMakeAFourthColumn) {
  const std::string file = temporaryFile("OUT.DAT", "");
  EXPECT_EQ(batch("simulate " + kLineModel + "--dx 2 --seed 1 -o '" + file + "'").exitCode, 0);
  EXPECT_THAT(fileContent(file), HasSubstr("x\r\ny\r\n 11 1\r\n"));
}

TEST(BatchSimulate, GivesSettingsTruthAndFitAsOneObject) {
  const BatchRun run = batch("simulate " + kLineModel + "--points 4 --dx .5 --dx-absolute --seed 3 --json");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  for (const char* text :
       {"\"points\": 4", "\"error_y_absolute\": false", "\"error_x\": 0.5", "\"error_x_absolute\": true",
        "\"seed\": 3", "\"truth\"", "\"value\": -1", "\"error_linearised\"", "\"status\": \"completed\""}) {
    EXPECT_THAT(run.output, HasSubstr(text));
  }
  EXPECT_EQ(batch("simulate " + kLineModel + "--points 4 --dx .5 --dx-absolute --seed 3 --json").output,
            run.output);
  EXPECT_NE(batch("simulate " + kLineModel + "--points 4 --dx .5 --dx-absolute --seed 4 --json").output,
            run.output);
}

TEST(BatchSimulate, SettingsThatAreNotReasonableAreToldAndNothingIsDone) {
  const std::string file = temporaryFile("OUT.DAT", "before");
  const BatchRun run = batch("simulate " + kLineModel + "--xmin 20 -o '" + file + "'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_THAT(run.errors, HasSubstr("*** Xmin > Xmax: Scambiati Xmin e Xmax\n"));
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(fileContent(file), "before");
}

TEST(BatchSimulate, BadArgumentsAreBadInput) {
  for (const char* words : {"", "--catalogue 1,2", "--catalogue 1,2 --fixed b=1 --fixed c=1",
                            "--catalogue 1,2 --par b=1 --par c=1 --points molti",
                            "--catalogue 1,2 --par b=1 --par c=1 --points 1E9"}) {
    const BatchRun run = batch(std::string("simulate ") + words);
    EXPECT_EQ(run.exitCode, 2) << words;
    EXPECT_FALSE(run.errors.empty()) << words;
    EXPECT_EQ(run.output, "") << words;
  }
}

TEST(BatchSimulate, DepartureMorePointsThanDataCanHaveAreToldInOneLine) {
  for (const std::string points : {"32767.5", "40000", "-40000", "1E9"}) {
    const BatchRun run = batch("simulate " + kLineModel + "--seed 1 --points " + points);
    EXPECT_EQ(run.exitCode, 2) << points;
    EXPECT_EQ(run.errors, "simulate: --points \"" + points + "\": si attende un numero fino a 32767\n");
    EXPECT_EQ(run.output, "") << points;
  }
  for (const char* points : {"32767.4", "-32767"}) {
    const BatchRun run = batch("simulate " + kLineModel + "--seed 1 --points " + points);
    EXPECT_EQ(run.exitCode, 0) << points << run.errors;
  }
}

TEST(BatchSimulate, AFileThatCannotBeWrittenIsBadInputAndCostsNoResult) {
  const BatchRun run = batch("simulate " + kLineModel + "--seed 1 -o /nowhere/at/all/OUT.DAT");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, "/nowhere/at/all/OUT.DAT: Impossibile trovare il percorso\n");
  EXPECT_THAT(run.output, HasSubstr("Completata"));
}

// ---- transform --------------------------------------------------------------------------------------------

TEST(BatchTransform, PrintsTheNewDataFile) {
  const BatchRun run = batch("transform " + dataFile() + "--x '-x' --y 'x*y' --title-y lavoro");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.output,
            "t\nlavoro\n 2\n"
            " -1.00000E+00   2.00000E+00   1.00000E-01 \n"
            " -3.00000E+00   1.20000E+01   2.00000E-01 \n");
}

TEST(BatchTransform, WritesAFile) {
  const std::string out = temporaryFile("OUT.DAT", "");
  const BatchRun run =
      batch("transform " + dataFile(kFourColumns) + "--dx '2*dx' --dy 'dy+dx' -o '" + out + "'");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(fileContent(out),
            "t\r\ns\r\n 2 1\r\n"
            "  1.00000E+00   2.00000E+00   2.00000E-02   1.10000E-01 \r\n"
            "  3.00000E+00   4.00000E+00   4.00000E-02   2.20000E-01 \r\n");
}

TEST(BatchTransform, DepartureDataMayComeThroughAPipe) {
  const std::string words = "transform /dev/stdin --y '2*y'";
  const BatchRun run = batch(words, temporaryFile("IN.DAT", kThreeColumns));
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.output,
            "t\ns\n 2\n"
            "  1.00000E+00   4.00000E+00   1.00000E-01 \n"
            "  3.00000E+00   8.00000E+00   2.00000E-01 \n");
  EXPECT_EQ(batch(words, temporaryFile("BAD.DAT", "t\ns\n")).exitCode, 2);
}

TEST(BatchFit, DepartureDataMayComeThroughAPipe) {
  const std::string words = " --catalogue 1,2 --par b=1 --par c=1";
  const BatchRun run = batch("fit /dev/stdin" + words, sourcePath("examples/ohm.dat"));
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.output, batch("fit examples/ohm.dat" + words).output);
}

TEST(BatchTransform, DepartureTitlesThatNoFileCanHoldAreChanged) {
  const BatchRun run = batch("transform " + dataFile() + "--title-x '%' --title-y '% di luce'");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.output.substr(0, 17), "- %\n- % di luce\n ");
}

TEST(BatchTransform, AFileThatCannotBeWrittenIsBadInput) {
  const BatchRun run = batch("transform " + dataFile() + "-o /nowhere/at/all/OUT.DAT");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, "/nowhere/at/all/OUT.DAT: Impossibile trovare il percorso\n");
}

TEST(BatchTransform, GivesTheColumnsAsOneObject) {
  const BatchRun run = batch("transform " + dataFile() + "--title-x tempo --json");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.output,
            "{\n  \"schema_version\": 1,\n  \"title_x\": \"tempo\",\n  \"title_y\": \"s\",\n  \"x\": [\n    "
            "1,\n    3\n  ],\n"
            "  \"y\": [\n    2,\n    4\n  ],\n  \"dx\": null,\n  \"dy\": [\n    0.1,\n    0.2\n  ]\n}\n");
}

TEST(BatchTransform, TitlesAreWrittenInUtf8) {
  const std::string out = temporaryFile("OUT.DAT", "");
  const BatchRun run =
      batch("transform " + dataFile() + "--title-x 'Età (µm²)' --title-y 'β' --json -o '" + out + "'");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(fileContent(out), StartsWith("Età (\\\\mm^2)\r\n\\\\b\r\n"));
  EXPECT_THAT(run.output, HasSubstr("\"title_x\": \"Età (\\\\\\\\mm^2)\""));
  EXPECT_THAT(batch("transform '" + out + "' --title-y 'costo (€)'").output,
              StartsWith("Età (\\\\mm^2)\ncosto (€)\n"));
  // Bytes that are no UTF-8 are those of an old file.
  EXPECT_EQ(batch("transform " + dataFile() + "--title-x '\xE6m' -o '" + out + "'").exitCode, 0);
  EXPECT_THAT(fileContent(out), StartsWith("\\\\mm\r\n"));
}

TEST(BatchTransform, ATitleThatNoFileCanHoldIsBadInput) {
  const BatchRun run = batch("transform " + dataFile() + "--title-y 'жар?'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, "\"жар?\": un carattere non puo` stare in un titolo\n");
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(batch("transform " + dataFile() + "--title-y 'due\nrighe'").exitCode, 2);
}

// ln(y-300) in rows where y is at most 300.
constexpr const char* kFiveRows =
    "t\r\ns\r\n 5\r\n1 200 .1\r\n2 400 .1\r\n3 100 .1\r\n4 300 .1\r\n5 0 .1\r\n";

TEST(BatchTransform, RowsWhoseFormulaFailsAreToldAndNothingIsWritten) {
  const std::string out = temporaryFile("OUT.DAT", "vecchio");
  const BatchRun run = batch("transform " + dataFile(kFiveRows) + "--y 'LOG(y-300)' -o '" + out + "'");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.errors, "transform: formula di y NON calcolabile nelle righe 1, 3-5\n");
  EXPECT_EQ(fileContent(out), "vecchio");
  for (const char* form : {"", " --json"}) {
    EXPECT_EQ(batch("transform " + dataFile(kFiveRows) + "--y 'LOG(y-300)'" + form).output, "");
  }
}

TEST(BatchTransform, ColumnsWithFailingRowsAreToldInOneLine) {
  const BatchRun run =
      batch("transform " + dataFile(kFiveRows) + "--x '1/(x-2)' --y 'y*2' --dy 'SQR(2.5-x)'");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.errors,
            "transform: formula di x NON calcolabile nelle righe 2; formula di dy NON calcolabile nelle "
            "righe 3-5\n");
}

TEST(BatchTransform, RowsWhoseFormulaFailsAreWrittenAnyway) {
  const std::string out = temporaryFile("OUT.DAT", "");
  const BatchRun run =
      batch("transform " + dataFile(kFiveRows) + "--y 'LOG(y-300)' --anyway --json -o '" + out + "'");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_THAT(run.errors, HasSubstr("righe 1, 3-5\n"));
  EXPECT_THAT(run.output, HasSubstr("4.605170185988"));
  EXPECT_THAT(fileContent(out), HasSubstr("4.60517E+00"));
  const BatchRun good = batch("transform " + dataFile(kFiveRows) + "--y 'y-300' --anyway");
  EXPECT_EQ(good.exitCode, 0);
  EXPECT_EQ(good.errors, "");
}

TEST(BatchTransform, ABadFormulaIsBadInput) {
  const BatchRun run = batch("transform " + dataFile() + "--y 'x+dx'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, "x+dx\n  ^ \"dx\" non e` definita\n");
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(batch("transform " + dataFile() + "--dx 'x'").exitCode, 2);
  EXPECT_EQ(batch("transform /nowhere/at/all.dat").exitCode, 2);
}

TEST(BatchDigits, LostOnesAreToldOnceUnlessTheyWereChosen) {
  const std::string data = temporaryFile("A.DAT", "x\r\ny\r\n 2\r\n1 2 .5\r\n2 3 .5\r\n");
  const std::string out = temporaryFile("OUT.DAT", "");
  const std::string thirds = "transform '" + data + "' --y 'y/3' -o '" + out + "'";
  EXPECT_EQ(batch(thirds).errors, out + ": dati arrotondati a 6 cifre (--digits ne scrive fino a 17)\n");
  EXPECT_THAT(fileContent(out), HasSubstr("  6.66667E-01 "));
  EXPECT_EQ(batch(thirds + " --digits 6").errors, "");
  EXPECT_EQ(batch(thirds + " --digits 17").errors, "");
  EXPECT_THAT(fileContent(out), HasSubstr("  6.6666666666666663E-01 "));
  EXPECT_EQ(batch("transform '" + data + "' -o '" + out + "'").errors, "");
}

TEST(BatchDigits, OfAnImportAreLostOrChosenAsThoseOfOtherData) {
  const std::string table = temporaryFile("T.CSV", "a,b,c\n1,2.3456789,0.1\n2,3.5,0.1\n");
  const std::string out = temporaryFile("T.DAT", "");
  const std::string words = "import '" + table + "'", output = words + " -o '" + out + "'";
  const std::string lost = ": dati arrotondati a 6 cifre (--digits ne scrive fino a 17)\n";
  const std::string taken =
      table + ": ASCII, separatore ',', punto decimale, 1 riga di intestazione, colonne 1, 2 e 3, 2 punti\n";
  EXPECT_EQ(batch(output).errors, out + lost + taken);
  EXPECT_THAT(fileContent(out), HasSubstr("2.34568E+00"));
  EXPECT_EQ(batch(words).errors, table + lost + taken);
  EXPECT_EQ(batch(words + " --preview").errors, taken);
  EXPECT_EQ(batch(output + " --digits 8").errors, taken);
  EXPECT_THAT(fileContent(out), HasSubstr("2.3456789E+00"));
  // A data file stays as it is, unless digits are chosen.
  EXPECT_THAT(batch("import '" + out + "'").output, HasSubstr("2.3456789E+00"));
  EXPECT_THAT(batch("import '" + out + "' --digits 2").output, HasSubstr("2.3E+00"));
}

TEST(BatchDigits, OfDifferencesAndHistogramsCanBeChosen) {
  const std::string out = temporaryFile("OUT.DAT", "");
  const std::string fit =
      "fit examples/ohm.dat --catalogue 1,2 --par b=1 --par c=1 --differences '" + out + "'";
  EXPECT_EQ(batch(fit + " --digits 17").exitCode, 0);
  EXPECT_THAT(fileContent(out),
              ContainsRegex("\r\n  [0-9][.][0-9]{16}E[-+][0-9]{2} +-?[0-9][.][0-9]{16}E[-+][0-9]{2} "));
  EXPECT_EQ(batch("check '" + out + "'").exitCode, 0);
  const std::string propagate = "propagate --function a*2 --par a=5,0.1 --seed 1 --histogram '" + out + "'";
  EXPECT_EQ(batch(propagate + " --digits 3").exitCode, 0);
  EXPECT_THAT(fileContent(out),
              ContainsRegex("\r\n  [0-9][.][0-9]{2}E[-+][0-9]{2} +[0-9][.][0-9]{2}E[-+][0-9]{2} "));
  EXPECT_EQ(batch("check '" + out + "'").exitCode, 0);
}

TEST(BatchDigits, GoFromOneToSeventeen) {
  const std::string fit = "fit examples/ohm.dat --catalogue 1,2 --par b=1 --par c=1 --digits ";
  EXPECT_THAT(batch(fit + "3").errors, StartsWith("--digits richiede --differences\n"));
  for (const std::string& words :
       {fit + "0 --differences /nowhere/d.dat", std::string("import examples/ohm.dat --digits 18"),
        std::string("propagate --function a --par a=1,.1 --histogram /nowhere/h.dat --digits -1")}) {
    EXPECT_EQ(batch(words).errors, "--digits: si attende un numero da 1 a 17\n") << words;
  }
  const std::string data = temporaryFile("A.DAT", "x\r\ny\r\n 2\r\n1 2 .5\r\n2 3 .5\r\n");
  const std::string simulate = "simulate --catalogue 1,2 --par b=2 --par c=1 --seed 1";
  for (const std::string& words : {"transform '" + data + "'", simulate}) {
    for (const char* digits : {"0", "-1", "18"}) {
      const BatchRun run = batch(words + " --digits " + digits);
      EXPECT_EQ(run.exitCode, 2);
      EXPECT_EQ(run.output, "");
      EXPECT_EQ(run.errors, "--digits: si attende un numero da 1 a 17\n");
    }
  }
  EXPECT_THAT(batch("transform '" + data + "' --digits 2").output,
              HasSubstr("  1.0E+00   2.0E+00   5.0E-01 "));
}

}  // namespace
}  // namespace vk
