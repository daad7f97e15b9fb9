#include <cmath>
#include <filesystem>
#include <iomanip>
#include <sstream>

#include "batch/BatchRun.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string figureFile() {
  return temporaryFile(
      "A.GRA", "\\XASSE(0,1,2,2,2,1,Tempo (s))\r\n\\SCRIVI(5,5,0,0,20,parole)\r\n\\LINEA(2,3,15,12)\r\n");
}

TEST(BatchDraw, MakesFiguresOfASizeADensityAndNoGround) {
  const std::string figure = figureFile(), svg = freshPath("S.svg"), png = freshPath("S.png");
  EXPECT_EQ(batch("draw '" + figure + "' -o '" + svg + "' --size 120x80mm").exitCode, 0);
  EXPECT_THAT(fileContent(svg), HasSubstr(" width=\"340.16pt\" height=\"226.77pt\""));
  EXPECT_THAT(fileContent(svg), HasSubstr("<title>A.GRA</title>\n<desc>Asse x: Tempo (s), da 0 a 1.</desc>"));
  EXPECT_THAT(fileContent(svg), HasSubstr(">parole</text>"));
  EXPECT_EQ(batch("draw '" + figure + "' -o '" + png + "' --size 12x8cm --dpi 300 --transparent").exitCode,
            0);
  const std::string bytes = fileContent(png);
  // width, height, 8 bits of colour with opacity; 11811 points to the metre
  EXPECT_EQ(bytes.substr(16, 10), std::string("\0\0\x05\x89\0\0\x03\xB1\x08\x06", 10));
  EXPECT_THAT(bytes, HasSubstr(std::string("pHYs\0\0\x2E\x23\0\0\x2E\x23\x01", 13)));
}

TEST(BatchDraw, MakesUprightPagesAndOtherScales) {
  const std::string figure = figureFile(), upright = freshPath("U.svg"), large = freshPath("L.svg");
  EXPECT_EQ(batch("draw '" + figure + "' -o '" + upright + "' --portrait").exitCode, 0);
  EXPECT_THAT(fileContent(upright), HasSubstr("viewBox=\"0 0 5715 8175\""));
  EXPECT_EQ(batch("draw '" + figure + "' -o '" + large + "' --scale 2").exitCode, 0);
  EXPECT_THAT(fileContent(large), HasSubstr("viewBox=\"0 0 16365 11415\""));
}

TEST(BatchDraw, MakesEncapsulatedPostScript) {
  const std::string eps = freshPath("E.eps");
  const BatchRun run = batch("draw '" + figureFile() + "' -o '" + eps + "' --size 12x8cm");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(fileContent(eps), StartsWith("%!PS-Adobe-3.0 EPSF-3.0"));
  // It is made of a PDF page, which has whole points, and at whose top left corner stands the sheet in its exact size.
  const auto inPoints = [](double cm) { return cm / 2.54 * 72; };
  const double page = std::ceil(inPoints(8));
  std::ostringstream box;
  box << "%%HiResBoundingBox: 0 " << std::setprecision(2) << page - inPoints(8) << " " << std::setprecision(5)
      << inPoints(12) << " " << page << "\n";
  EXPECT_THAT(fileContent(eps), HasSubstr(box.str()));
}

TEST(BatchDraw, MakesImagesOfASizeOrWithoutGroundAlone) {
  const std::string figure = figureFile(), sized = freshPath("S.png"), bare = freshPath("B.png");
  EXPECT_EQ(batch("draw '" + figure + "' -o '" + sized + "' --size 12x8cm").exitCode, 0);
  EXPECT_EQ(batch("draw '" + figure + "' -o '" + bare + "' --transparent").exitCode, 0);
  EXPECT_EQ(fileContent(sized).substr(24, 2), "\x08\x02");  // 8 bits of colour, and below with opacity
  EXPECT_EQ(fileContent(bare).substr(24, 2), "\x08\x06");
}

TEST(BatchDraw, TellsThatTheProgramForPostScriptIsMissingOrBreaks) {
  const std::string figure = figureFile(), eps = freshPath("E.eps");
  const std::string folder = std::filesystem::path(figure).parent_path();
  const std::string draw = "PATH='" + folder + "' VOR draw '" + figure + "' -o '" + eps + "'";
  const BatchRun missing = shell(draw);
  EXPECT_EQ(missing.exitCode, 2);
  EXPECT_EQ(missing.errors, "Per figure .EPS serve il programma pdftops (pacchetto poppler-utils)\n");
  const std::string program =
      temporaryFile("pdftops", "#!/bin/sh\n[ \"$1\" = -v ] && exit\necho rotto >&2\nexit 3\n");
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  const BatchRun broken = shell(draw);
  EXPECT_EQ(broken.exitCode, 2);
  EXPECT_EQ(broken.errors, "pdftops NON ha scritto la figura: rotto\n");
  EXPECT_FALSE(std::filesystem::exists(eps));
}

TEST(BatchDraw, BadWishesForAFigureLeaveNoFile) {
  const std::string draw = "draw '" + figureFile() + "' -o '", png = freshPath("B.png"),
                    svg = freshPath("B.svg");
  const struct {
    std::string words;
    const char* complaint;
  } cases[] = {{png + "' --size 0x3cm", "--size: si attendono lati in cm da 2 a 100"},
               {svg + "' --dpi 300", "--dpi: solo per figure .PNG"},
               {png + "' --dpi high", "--dpi"},
               {png + "' --size 12x8cm --scale 2", "--size esclude --scale"},
               {png + "' --scale 5 --dpi 1200", "--dpi: la figura avrebbe troppi punti"},
               {png + "' --size 50x50cm --dpi 1200", "--dpi: la figura avrebbe troppi punti"}};
  for (const auto& [words, complaint] : cases) {
    const BatchRun run = batch(draw + words);
    EXPECT_EQ(run.exitCode, 2) << words;
    EXPECT_THAT(run.errors, HasSubstr(complaint)) << words;
  }
  EXPECT_FALSE(std::filesystem::exists(png));
  EXPECT_FALSE(std::filesystem::exists(svg));
}

TEST(BatchFit, FigureOfASizeKeepsItsLettersAndTheGraphicFile) {
  const std::string svg = freshPath("F.svg"), small = freshPath("G.svg"), saved = freshPath("F.GRA"),
                    alone = freshPath("G.GRA"), upright = freshPath("H.GRA");
  EXPECT_EQ(batch(kFitOhm + ("--figure '" + svg) + "'").exitCode, 0);
  EXPECT_EQ(batch(kFitOhm + ("--figure '" + small) + "' --size 9x7cm --save-gra '" + saved + "'").exitCode,
            0);
  EXPECT_EQ(batch(kFitOhm + ("--save-gra '" + alone) + "'").exitCode, 0);
  EXPECT_THAT(fileContent(small), HasSubstr(" width=\"255.12pt\" height=\"198.43pt\""));
  EXPECT_THAT(fileContent(small),
              HasSubstr("<title>Dati e Funzione: ohm.dat</title>\n<desc>Asse x: I (A), da 0 a .25. "
                        "Asse y: U (V), da 0 a 12. Funzione: b*x+c. Dati: ohm.dat.</desc>"));
  for (const std::string& file : {svg, small}) {
    EXPECT_THAT(fileContent(file), HasSubstr("font-size=\"170.08\"")) << file;
    EXPECT_THAT(fileContent(file), HasSubstr(">I (A)</text>")) << file;
  }
  EXPECT_EQ(batch(kFitOhm + ("--save-gra '" + upright) + "' --portrait").exitCode, 0);
  EXPECT_EQ(fileContent(saved), fileContent(alone));
  EXPECT_EQ(fileContent(upright), fileContent(alone));
}

TEST(BatchFit, SameFigureIsTheSameFile) {
  const std::string first = freshPath("1.pdf"), second = freshPath("2.pdf");
  for (const std::string& file : {first, second})
    EXPECT_EQ(batch(kFitOhm + ("--figure '" + file) + "'").exitCode, 0);
  EXPECT_EQ(fileContent(first), fileContent(second));
}

}  // namespace
}  // namespace vk
