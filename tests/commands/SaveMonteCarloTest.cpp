#include <cmath>
#include <sstream>

#include "base/Text.h"
#include "base/TextLines.h"
#include "data/DataFiles.h"
#include "doubles/ErrorOf.h"
#include "platform/system/SystemRandom.h"
#include "tests/commands/PropagationHelp.h"

namespace vk {
namespace {

using testing::ElementsAre;

constexpr const char* kFile = "/data/Mon_Sim.DAT";

/// A histogram of 100 samples with these hits in bins of width 1 around 1, 2, 3, ...
class SaveMonteCarloTest : public PropagationTest {
 protected:
  SaveMonteCarloTest() { session.analysis.fun.FunctionText = " y = bx+c "; }

  /// Saves the histogram and gives the lines of the file.
  std::vector<std::string> save(const std::vector<double>& hits) {
    MonteCarloResult& bins = session.analysis.monteCarlo;
    const int count = static_cast<int>(hits.size());
    bins.McBinCount = count;
    bins.McBinCentre.dim(count);
    bins.McBinHits.dim(count);
    bins.McBinWidth = 1;
    bins.McSamples = 100;
    for (int b = 1; b <= count; ++b) {
      bins.McBinCentre[b] = b;
      bins.McBinHits[b] = hits[static_cast<std::size_t>(b - 1)];
    }
    SaveMonteCarlo(session, {files, dialogs});
    return linesOfFile();
  }
  std::vector<std::string> linesOfFile() {
    std::vector<std::string> all;
    TextLines lines(files.content.at(kFile));
    while (const auto line = lines.next()) all.emplace_back(*line);
    return all;
  }
  /// Hits and centres of the bins as the save leaves them in the session.
  std::vector<std::pair<double, double>> bins() const {
    std::vector<std::pair<double, double>> result;
    for (int b = 1; b <= session.analysis.monteCarlo.McBinCount; ++b) {
      result.emplace_back(session.analysis.monteCarlo.McBinHits[b],
                          session.analysis.monteCarlo.McBinCentre[b]);
    }
    return result;
  }
  using Bin = std::pair<double, double>;
};

TEST_F(SaveMonteCarloTest, WritesADataFileOfThreeColumns) {
  save({0, 16, 25, 0, 16});
  EXPECT_EQ(files.content[kFile],
            "Sim. M.C. per y = bx+c\r\n"
            "Densita` di Probabilita`\r\n"
            " 3\r\n"
            // 16 and 25 hits in bins of width 1; 16 hits in the last two bins, joined to width 2.
            "   2.0000E+00   1.6000E-01   4.0000E-02\r\n"
            "   3.0000E+00   2.5000E-01   5.0000E-02\r\n"
            "   4.5000E+00   8.0000E-02   2.0000E-02\r\n");
}

TEST_F(SaveMonteCarloTest, IsInUtf8) {
  session.analysis.fun.FunctionText = " y = ax\xFD+\x85 ";
  EXPECT_EQ(save({0, 20})[0], "Sim. M.C. per y = ax\u00B2+\u00E0");
  EXPECT_EQ(parseLines(files.content.at(kFile)).data.TitleX, "Sim. M.C. per y = ax^2+\xE0");
}

TEST_F(SaveMonteCarloTest, TheCountIsThatOfTheLinesWithoutTheEmptyBins) {
  const std::vector<std::string> lines = save({0, 0, 3, 0, 4, 0});
  EXPECT_EQ(lines[2], " 2");
  EXPECT_EQ(lines.size(), 5U);
}

TEST_F(SaveMonteCarloTest, WithAllBinsBelowElevenNothingMerges) {
  const std::vector<std::string> lines = save({0, 1, 10, 9, 0, 10, 4, 1});
  EXPECT_EQ(session.analysis.monteCarlo.McBinCount, 8);
  EXPECT_EQ(lines[2], " 6");
  EXPECT_EQ(lines.size(), 3U + 6U);
}

TEST_F(SaveMonteCarloTest, BinsBeforeTheFirstWithMoreThanTenHitsStay) {
  save({0, 1, 2, 10, 3, 11, 12});
  EXPECT_THAT(bins(),
              ElementsAre(Bin(0, 1), Bin(1, 2), Bin(2, 3), Bin(10, 4), Bin(3, 5), Bin(11, 6), Bin(12, 7)));
}

TEST_F(SaveMonteCarloTest, ExactlyTenHitsNeitherStartTheMergingNorAreMerged) {
  save({0, 10, 3, 11, 10, 9, 1, 12});
  EXPECT_THAT(bins(), ElementsAre(Bin(0, 1), Bin(10, 2), Bin(3, 3), Bin(11, 4), Bin(10, 5), Bin(10, 6.5),
                                  Bin(12, 8)));
}

TEST_F(SaveMonteCarloTest, AThinBinGoesOnMergingToTheRight) {
  save({0, 11, 1, 2, 3, 5, 20});
  EXPECT_THAT(bins(), ElementsAre(Bin(0, 1), Bin(11, 2), Bin(11, 4.5), Bin(20, 7)));
}

TEST_F(SaveMonteCarloTest, TheCentreOfUnequalBinsIsThatOfTheJoinedInterval) {
  save({0, 11, 1, 1, 1, 11});
  // 3, 4 and 5 join to the interval 2.5..5.5; with 3 hits it joins 6 too.
  EXPECT_THAT(bins(), ElementsAre(Bin(0, 1), Bin(11, 2), Bin(14, 4.5)));
}

TEST_F(SaveMonteCarloTest, AThinLastBinJoinsItsLeftNeighbour) {
  save({0, 11, 12, 3});
  EXPECT_THAT(bins(), ElementsAre(Bin(0, 1), Bin(11, 2), Bin(15, 3.5)));
}

TEST_F(SaveMonteCarloTest, ATailOfThinBinsCollapses) {
  save({0, 11, 12, 3, 2, 0, 1});
  // The tail becomes one bin of 6 hits at 4..7, which joins its neighbour.
  EXPECT_THAT(bins(), ElementsAre(Bin(0, 1), Bin(11, 2), Bin(18, 5)));
}

TEST_F(SaveMonteCarloTest, ALastBinThatStaysThinGoesOnToTheLeftUntilOneBinIsLeft) {
  // No run leaves such hits: with those of a run the first join to the left is always enough.
  save({0, 1, 12, -5});
  EXPECT_THAT(bins(), ElementsAre(Bin(8, 2.5)));
  save({10, 1, 12, -5});
  EXPECT_THAT(bins(), ElementsAre(Bin(18, 2.5)));
}

TEST_F(SaveMonteCarloTest, TheFunctionIsTrimmedAndNotShortened) {
  session.analysis.fun.FunctionText = " y = " + std::string(60, 'f') + " ";
  EXPECT_EQ(save({0, 20})[0], "Sim. M.C. per y = " + std::string(60, 'f'));
}

TEST_F(SaveMonteCarloTest, DepartureNumbersWithAThreeDigitExponentAreWritten) {
  save({0, 20, 30});
  session.analysis.monteCarlo.McBinCentre[2] = -1E-120;
  session.analysis.monteCarlo.McBinWidth = 1E-150;
  SaveMonteCarlo(session, {files, dialogs});
  EXPECT_EQ(linesOfFile()[3], "  -1.000E-120  2.0000E+149  4.4721E+148");
}

TEST_F(SaveMonteCarloTest, AnOldFileIsReplaced) {
  files.content[kFile] = "an older one";
  EXPECT_EQ(save({0, 20}).size(), 4U);
}

TEST_F(SaveMonteCarloTest, DepartureAFolderThatCannotBeWrittenGivesWayToAFileThatIsNamed) {
  files.notWritable.insert(kFile);
  dialogs.pick(std::nullopt);
  EXPECT_EQ(errorOf([&] { save({0, 20}); }), kPathAccessError) << "so that the window stays";
  dialogs.pick("/casa/isto.dat");
  files.content[kFile] = "old";
  EXPECT_THAT(save({0, 20}), testing::ElementsAre("old"));
  EXPECT_THAT(files.content["/casa/isto.dat"], testing::StartsWith("Sim. M.C. per y = bx+c\r\n"));
  EXPECT_EQ(dialogs.fileRequests[1].proposedName, "Mon_Sim.DAT");
}

// ---- After a run ------------------------------------------------------------------------------------------

class SavedPropagation : public SaveMonteCarloTest {
 protected:
  /// Propagates a normal error of 0.5 of y = c and presses "Salva &File".
  void runAndSave() {
    choose(session, 1, 1);
    set(1, 20, 0.5);
    SystemRandom random;
    propagate(random);
    for (const double bin : session.analysis.monteCarlo.McBinHits.span(1, 60)) hits += bin;
    output.saveRoutine()();
    output.FrmOut_Exit();
  }
  double hits = 0;
};

TEST_F(SavedPropagation, PassesTheCheckAndLoads) {
  runAndSave();
  DataReading reading = readData(files, kFile);
  EXPECT_EQ(reading.errors, "");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(reading.declaredCount, reading.data.NumPnt);
  EXPECT_EQ(reading.data.kXpntErr, kFalse);
  LoadDataFile(session.loaded, kFile, std::move(reading.data));
  EXPECT_EQ(session.loaded.data.TitleX, "Sim. M.C. per y = c");
  EXPECT_EQ(session.loaded.data.TitleY, "Densita` di Probabilita`");
  EXPECT_EQ(session.loaded.data.NumPnt, session.analysis.monteCarlo.McBinCount - 1);
}

TEST_F(SavedPropagation, TheDensityIntegratesToTheShareOfSamplesInTheBins) {
  runAndSave();
  const double full = session.analysis.monteCarlo.McBinWidth;
  std::vector<double> x, y;
  const std::vector<std::string> lines = linesOfFile();
  for (std::size_t i = 3; i < lines.size(); ++i) {
    std::istringstream numbers(lines[i]);
    double centre = 0, density = 0;
    numbers >> centre >> density;
    x.push_back(centre);
    y.push_back(density);
  }
  // The first bins stand alone; every width further right follows from the distance of the centres.
  double width = full;
  double integral = y[0] * width;
  for (std::size_t i = 1; i < x.size(); ++i) {
    width = std::round((2 * (x[i] - x[i - 1]) - width) / full) * full;
    integral += y[i] * width;
  }
  EXPECT_NEAR(integral, hits / 10000, 1E-4);
  EXPECT_LT(hits, 10000);
  EXPECT_GT(hits, 9900);
}

}  // namespace
}  // namespace vk
