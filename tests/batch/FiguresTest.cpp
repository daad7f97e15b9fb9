#include <algorithm>
#include <map>

#include "batch/BatchRun.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* kPngStart = "\x89PNG\r\n";

/// A sample file, with the names of other samples as they are from the root of the sources.
std::string sampleText(const std::string& name) {
  std::string text = fileContent(sourcePath("examples/" + name));
  for (std::size_t at = 0; (at = text.find("ohm.dat", at)) != std::string::npos; at += 16) {
    text.insert(at, "examples/");
  }
  return text;
}

TEST(BatchFit, SavesTheTextsOfItsFiguresAsTheProgramDoes) {
  const std::string figure = freshPath("OUT.GRA"), differences = freshPath("OUT.DAT");
  const BatchRun run = batch(kFitOhm + ("--save-gra '" + figure) + "' --differences '" + differences + "'");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(run.output, HasSubstr("y = bx+c"));
  EXPECT_EQ(fileContent(figure), sampleText("ohm_fun.gra") + "\r\n");
  EXPECT_EQ(fileContent(differences), sampleText("ohm_dif.dat") + "\r\n");
  EXPECT_EQ(batch("check '" + figure + "'").exitCode, 0);
  EXPECT_EQ(batch("check '" + differences + "'").exitCode, 0);
}

TEST(BatchFit, AModernFigureIsThatOfItsGraphicFile) {
  const std::string figure = freshPath("OUT.GRA"), image = freshPath("A.PNG"), again = freshPath("B.PNG");
  const BatchRun run =
      batch(kFitOhm + ("--residuals --band 68 --save-gra '" + figure) + "' --figure '" + image + "'");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(fileContent(figure), HasSubstr("\\CHIAVE("));
  EXPECT_EQ(batch("draw '" + figure + "' -o '" + again + "'").exitCode, 0);
  EXPECT_THAT(fileContent(image), StartsWith(kPngStart));
  EXPECT_TRUE(fileContent(image) == fileContent(again));
  for (const char* ending : {"_banda.dat", "_scarti.dat"}) {
    const std::string beside = figure.substr(0, figure.size() - 4) + ending;
    EXPECT_EQ(batch("check '" + beside + "'").exitCode, 0) << beside;
  }
}

TEST(BatchDraw, PutsDataAndFormulasOnOneSheetAndShowsIt) {
  const std::string figure = freshPath("OUT.GRA"), image = freshPath("A.PNG"), again = freshPath("B.PNG");
  const BatchRun run =
      batch("draw --data examples/ohm.dat --data examples/decay.dat --function 'x^2' --save-gra '" + figure +
            "' --show -o '" + image + "'");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(run.output, HasSubstr("\u2580"));
  EXPECT_EQ(std::ranges::count(run.output, '\n'), 28);
  for (const char* line :
       {"\\DATI(examples/ohm.dat)", "\\DATI(examples/decay.dat)", "\\FUNZIONE(x^2)", ", x^{2})"})
    EXPECT_THAT(fileContent(figure), HasSubstr(line));
  EXPECT_EQ(batch("draw '" + figure + "' -o '" + again + "'").exitCode, 0);
  EXPECT_TRUE(fileContent(image) == fileContent(again));
}

TEST(BatchDraw, AGraphicFileIsOfAWholePageWhateverTheFigureIs) {
  const std::string figure = freshPath("A.SVG"), small = freshPath("A.GRA"), upright = freshPath("B.GRA");
  const std::string draw = "draw --function 'x^2' -o '" + figure + "' --save-gra '";
  EXPECT_EQ(batch(draw + small + "' --size 10x8cm").errors, "");
  EXPECT_EQ(batch(draw + upright + "' --portrait").errors, "");
  EXPECT_THAT(fileContent(small), HasSubstr("\\XLEGENDA(x)\r\n\\YLEGENDA(y)\r\n"));
  EXPECT_EQ(fileContent(small), fileContent(upright));
}

TEST(BatchFit, ShowsItsFigure) {
  const BatchRun run = batch("fit examples/ohm.dat --catalogue 1,2 --par b=40 --par c=0 --show");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(run.output, HasSubstr("\u2580"));
}

TEST(BatchDraw, TellsWhatIsMissing) {
  const std::map<std::string, std::string> complaints{
      {"", "draw: serve un file grafico, oppure --grid FILE, o --data e --function\n"},
      {"--function x", "draw: serve --output o --show\n"},
      {"--function x --show=kitty", "--show: si attende blocks o sixel\n"},
      {"--function x --show --xmin 3 --xmax 3", "--xmin: deve essere minore di --xmax\n"},
      {"examples/sheet.gra --show --save-gra /nowhere", "--save-gra: serve --grid, --data o --function\n"}};
  for (const auto& [words, complaint] : complaints) {
    const BatchRun run = batch("draw " + words);
    EXPECT_EQ(run.exitCode, 2) << words;
    EXPECT_THAT(run.errors, HasSubstr(complaint)) << words;
  }
}

TEST(BatchFit, RefusesAStyleThatNobodyKnowsOrSees) {
  EXPECT_THAT(batch(std::string(kFitOhm) + "--style modern").errors,
              HasSubstr("serve --figure, --save-gra o --show"));
  EXPECT_THAT(batch(std::string(kFitOhm) + "--style bello --save-gra /nowhere.gra").errors,
              HasSubstr("--style: si attende modern"));
}

TEST(BatchProgram, StartsWithoutTheToolkit) {
  const std::string libraries = temporaryFile("libraries", "");
  ASSERT_EQ(std::system(("ldd '" + builtPath("batch/vor_kel_batch") + "' > '" + libraries + "'").c_str()), 0);
  EXPECT_THAT(fileContent(libraries), AllOf(HasSubstr("libc.so"), Not(HasSubstr("Qt"))));
}

TEST(BatchDraw, DepartureMakesAnImageOfDataBesideTheFigure) {
  const std::string image = freshPath("OUT.png");
  const BatchRun run = batch("draw examples/sheet.gra -o '" + image + "'");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors, "");
  const std::string bytes = fileContent(image);
  EXPECT_THAT(bytes, StartsWith(kPngStart));
  EXPECT_GT(bytes.size(), 5000U);
}

TEST(BatchDraw, AFigureWithErrorsLeavesAnOldFileAlone) {
  const std::string figure = temporaryFile("A.GRA", "\\SIMBOLO(3,4)\r\n\\CERCHIO(3,4)\r\n");
  const std::string image = temporaryFile("OUT.svg", "old");
  const std::string draw = "draw '" + figure + "' -o '" + image + "'";
  const BatchRun run = batch(draw);
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, figure + ":\n***\\CERCHIO(3,4) Comando Errato\n");
  EXPECT_EQ(fileContent(image), "old");
  const BatchRun anyway = batch(draw + " --anyway");
  EXPECT_EQ(anyway.exitCode, 2);
  EXPECT_EQ(anyway.errors, run.errors);
  EXPECT_THAT(fileContent(image), HasSubstr("<svg"));
  const BatchRun shown = batch("draw '" + figure + "' --show");
  EXPECT_EQ(shown.exitCode, 2);
  EXPECT_EQ(shown.output, "");
}

TEST(BatchDraw, MakesVectorFiles) {
  const std::string figure = temporaryFile("A.GRA", "\\LINEA(2,3,15,12)\r\n\\SCRIVI(5,5,0,0,20,abc)\r\n");
  const std::string svg = freshPath("OUT.SVG"), pdf = freshPath("out.pdf");
  const BatchRun run = batch("draw '" + figure + "' --output '" + svg + "'");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors, "");
  EXPECT_EQ(batch("draw '" + figure + "' -o '" + pdf + "'").exitCode, 0);
  EXPECT_THAT(fileContent(svg), HasSubstr("<svg"));
  EXPECT_THAT(fileContent(svg), HasSubstr("</svg>"));
  EXPECT_THAT(fileContent(pdf), StartsWith("%PDF-"));
}

TEST(BatchDraw, SharesTheMarksOfALongPdf) {
  std::string commands;
  for (int i = 0; i < 1200; ++i) commands += "\\SIMBOLO(" + std::to_string(2 + i % 20) + ",4)\r\n";
  const std::string figure = temporaryFile("LONG.GRA", commands), pdf = freshPath("long.pdf");
  EXPECT_EQ(batch("draw '" + figure + "' -o '" + pdf + "'").exitCode, 0);
  EXPECT_THAT(fileContent(pdf), HasSubstr("/Mark0"));
}

TEST(BatchDraw, TellsOnAllDevicesWhatTheCheckTells) {
  const std::string data =
      temporaryFile("NEAR.DAT", "t\r\nu\r\n 4\r\n1 2 .5\r\n2 3E12 .5\r\n2.0001 -1E11 1E15\r\n4 1 .5\r\n");
  const std::string good =
      "\\XASSE(0,1E12,1,5,1,1)\r\n\\LINEA(0,0,1E8,1E7)\r\n\\SIMBOLO(1E12,-1E12)\r\n"
      "\\FUNZIONE(EXP(x/1E11))\r\n\\SPEZZATA(" +
      data + ")\r\n\\CURVA(" + data + ")\r\n\\DATI(" + data + ")\r\n";
  const std::string bad = "\\TIPO_LINEA(70000,1)\r\n\\LINEA(0,0,1.7E308,1)\r\n";
  for (const bool fails : {false, true}) {
    const std::string figure = temporaryFile("FAR.GRA", fails ? good + bad : good);
    const std::string list =
        fails ? "*** Parametri di TIPO_LINEA Errati\n*** Parametri di LINEA Errati\n" : "";
    const BatchRun check = batch("check '" + figure + "'");
    EXPECT_EQ(check.exitCode, fails ? 2 : 0) << check.output;
    EXPECT_EQ(check.output, fails ? list : figure + ": nessun errore\n");
    for (const char* ending : {".png", ".svg", ".pdf"}) {
      const BatchRun draw =
          batch("draw '" + figure + "' -o '" + freshPath(std::string("FAR") + ending) + "'");
      EXPECT_EQ(draw.exitCode == 0, !fails) << ending << draw.errors;
      EXPECT_THAT(draw.output + draw.errors, HasSubstr(list)) << ending;
    }
  }
}

constexpr const char* kGrid = "x\r\ny\r\nz\r\n3 3\r\n0 1 2\r\n0 1 2\r\n0 1 2\r\n1 2 3\r\n2 3 5\r\n";

/// What follows the title, which is the name of the file that was drawn.
std::string behindTitle(const std::string& svg) {
  return svg.substr(svg.find("</title>"));
}

TEST(BatchDraw, DrawsAGridByAGraphicFileThatItCanSave) {
  const std::string grid = temporaryFile("A.GRD", kGrid), figure = freshPath("A.GRA");
  for (const std::string kind : {"", " --surface --levels 5", " --columns --theta 117 --phi 145"}) {
    const std::string made = freshPath("A.svg"), again = freshPath("B.svg");
    const BatchRun run =
        batch("draw --grid '" + grid + "' -o '" + made + "' --save-gra '" + figure + "'" + kind);
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(fileContent(made), HasSubstr("</svg>"));
    EXPECT_EQ(batch("check '" + figure + "'").exitCode, 0);
    EXPECT_EQ(batch("draw '" + figure + "' -o '" + again + "'").exitCode, 0);
    EXPECT_EQ(behindTitle(fileContent(again)), behindTitle(fileContent(made)));
  }
}

TEST(BatchDraw, TellsFromWhereAGridIsSeenWrongly) {
  const std::string grid = temporaryFile("A.GRD", kGrid), figure = freshPath("A.GRA");
  const BatchRun run = batch("draw --grid '" + grid + "' -o '" + freshPath("A.svg") + "' --save-gra '" +
                             figure + "' --columns --theta 75");
  EXPECT_EQ(run.exitCode, 0);
  const std::string told =
      "COLONNE con theta = 75 e phi = 125: le parti lontane coprono le vicine (meglio theta = 110 "
      "e phi = 125)\n";
  EXPECT_THAT(run.errors, HasSubstr(grid + ": attenzione: " + told));
  EXPECT_THAT(batch("check '" + figure + "'").errors, HasSubstr(figure + ": attenzione: " + told));
}

TEST(BatchDraw, AGridWithErrorsIsBadInput) {
  const std::string grid = temporaryFile("A.GRD", "x\r\ny\r\nz\r\n2 2\r\n0 1\r\n0 1\r\n0 1\r\n1 due\r\n");
  const std::string list = "***ERR. Linea 8; Dato 2: due\n   Dato NON numerico\n";
  const BatchRun run = batch("draw --grid '" + grid + "' -o '" + freshPath("A.svg") + "'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, grid + ":\n" + list);
  const BatchRun check = batch("check '" + grid + "'");
  EXPECT_EQ(check.exitCode, 2);
  EXPECT_EQ(check.output, list);
  EXPECT_EQ(batch("check '" + temporaryFile("B.GRD", kGrid) + "'").exitCode, 0);
}

TEST(BatchDraw, OptionsOfAGridThatDoNotGoTogetherAreBadUsage) {
  const std::string grid = " --grid '" + temporaryFile("A.GRD", kGrid) + "'";
  const std::string out = " -o '" + freshPath("A.svg") + "'";
  for (const std::string& words :
       {std::string(""), grid + " a.gra", grid + " --theta 110", grid + " --phi 110",
        std::string(" a.gra --surface"), grid + " --surface --columns", grid + " --levels 0",
        grid + " --surface --phi 200"}) {
    EXPECT_EQ(batch("draw" + out + words).exitCode, 2) << words;
  }
}

TEST(BatchDraw, BadNamesAreBadInput) {
  const std::string figure = temporaryFile("A.GRA", "\\SIMBOLO(3,4)\r\n");
  EXPECT_EQ(batch("draw '" + figure + "'").exitCode, 2);
  EXPECT_EQ(batch("draw '" + figure + "' -o out.gif").exitCode, 2);
  EXPECT_EQ(batch("draw '" + figure + "' -o /nowhere/at/all.png").exitCode, 2);
  const BatchRun missing = batch("draw /nowhere/a.gra -o '" + freshPath("OUT.png") + "'");
  EXPECT_EQ(missing.exitCode, 2);
  EXPECT_EQ(missing.errors, "/nowhere/a.gra: Impossibile trovare il percorso\n");
}

TEST(BatchFit, DrawsDataAndFunctionBesideItsReport) {
  const std::string image = freshPath("OUT.png"), figure = freshPath("OUT.GRA");
  const BatchRun run = batch(kFitOhm + ("--figure '" + image) + "' --save-gra '" + figure + "'");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.output, batch(kFitOhm).output);
  EXPECT_THAT(fileContent(image), StartsWith(kPngStart));
  EXPECT_EQ(fileContent(figure), sampleText("ohm_fun.gra") + "\r\n");
}

TEST(BatchFit, AWrongEndingOfAFigureIsToldBeforeTheFit) {
  const BatchRun run = batch(std::string(kFitOhm) + "--figure out.gif");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.errors, "out.gif: si attende un nome .PNG, .SVG, .PDF o .EPS, o --format\n");
}

// What the toolkit misses around it is nothing that a user could mend.
TEST(BatchDraw, SaysNothingOfItsSurroundings) {
  const BatchRun run = shell(
      "cd examples; env -i LC_ALL=it_IT.UTF-8 HOME=/nonexistent "
      "QT_DEBUG_PLUGINS=1 "
      "VOR draw sheet.gra -o - --format svg");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors, "");
  EXPECT_THAT(run.output, HasSubstr("</svg>"));
}

TEST(BatchDraw, TheFormatStandsInTheNameOrInAnOption) {
  const std::string figure = temporaryFile("A.GRA", "\\SIMBOLO(3,4)\r\n"), odd = freshPath("figure");
  EXPECT_EQ(batch("draw '" + figure + "' -o -").errors,
            "-: si attende un nome .PNG, .SVG, .PDF o .EPS, o --format\n");
  EXPECT_EQ(batch("draw '" + figure + "' -o x --format gif").errors,
            "--format: si attende png, svg, pdf o eps\n");
  EXPECT_EQ(batch("draw '" + figure + "' -o '" + odd + "' --format PDF").errors, "");
  EXPECT_THAT(fileContent(odd), StartsWith("%PDF-"));
  const BatchRun fit = batch(std::string(kFitOhm) + "--figure - --format png");
  EXPECT_THAT(fit.output, StartsWith(kPngStart));
  EXPECT_THAT(fit.errors, HasSubstr("Completata"));
}

}  // namespace
}  // namespace vk
