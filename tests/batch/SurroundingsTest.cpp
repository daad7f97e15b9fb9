#include <clocale>

#include "batch/BatchRun.h"

namespace vk {
namespace {

/// Each command in the folder of the samples, with "i" in its words, which other languages take for another letter, and
/// with fractions, which they write with a comma.
const std::vector<std::string> kLines{
    "fit ohm.dat --catalogue 1,2 --par b=1.5 --par c=0 --refine",
    "fit PENDULUM.DAT --function 'A*sin(x*b)*Sin(x)+a' --par A=.5 --par a=1 --fixed b=1.5 --csv",
    "fit ohm.dat decay.dat --catalogue 1,2 --par b=1 --par c=0 --rounded --jobs 2",
    "fit DECAY.DAT --file LAB.FCN --entry 1 --par A=400 --par k=.2 --par b=5 --json",
    "fit ohm.dat --catalogue 1,2 --par b=1 --par c=0 --latex --derive i=c/b",
    "fit ohm.dat --catalogue 1,2 --par b=1 --par c=0 --DERIVE i=c/b",
    "eval 'asin(i)+SIN(I)+aTan(.5)+int(2.5)' i=.25 I=-1.5",
    "eval 'ARCSIN(i)+arcsin(i)+pi' i=.5",
    "eval 'LOG(-1.5)'",
    "import ../tests/files/it-csv-utf8.csv --columns 'età,QUANTITà (µg),±' --decimal VIRGOLA",
    "import ../TESTS/FILES/IT-CSV-WINDOWS1252.CSV --encoding WINDOWS-1252 --separator Punto-e-virgola -o -",
    "import ../tests/files/en-csv.csv --preview --dy 2.5%",
    "check lab.fcn",
    "check SHEET.GRA",
    "check ../tests/files/it-csv-utf8.csv",
    "transform ohm.dat --x 'asin(x/1E3)' --title-x '° di i' --digits 12 -o -",
    "simulate --function 'i*sin(x)+I' --par i=2.5 --par I=.5 --seed 1 -o -",
    "propagate --function 'i*SIN(I)' --par i=1.5,.1 --par I=.5,-.05 --seed 1 --histogram -",
    "draw sheet.gra --format SVG -o -",
    "draw OHM_FUN.GRA --format svg -o -",
    "catalogue",
    "catalogue --json",
    "completion",
    "IMPORT",
    "SIMULATE --FIXED",
    "fit --PREDICTION",
    "fit --help",
};

/// What the lines print on both streams, and their exit codes, each behind its line.
std::string printed(const std::string& surroundings) {
  std::string script = "cd examples\n";
  for (const std::string& line : kLines) {
    script += "cat << 'END'\n$ " + line + "\nEND\nenv -i " + surroundings + " VOR " + line +
              " 2>&1\necho \"exit code $?\"\n";
  }
  return shell(script).output;
}

TEST(BatchSurroundings, NeitherTextsNorNumbersDependOnTheLanguage) {
  const std::string usual = printed("LC_ALL=C");
  for (const char* language : {"it_IT.UTF-8", "tr_TR.UTF-8"}) {
    ASSERT_NE(std::setlocale(LC_ALL, language), nullptr) << language << ": packaging/locale.sh makes it";
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(printed("LC_ALL=" + std::string(language) + " HOME=/nonexistent"), usual) << language;
  }
}

}  // namespace
}  // namespace vk
