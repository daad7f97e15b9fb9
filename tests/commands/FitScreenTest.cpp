#include "tests/commands/FitScreenFixture.h"

namespace vk {
namespace {

// ---- The window -------------------------------------------------------------------------------------------

TEST(FitScreen, OpensAWindowWithCaptionAndThreeButtons) {
  DrivenScreen fit("y = bx+c", {"b", "c"}, 2);
  fit.start();
  EXPECT_TRUE(fit.output.isOpen());
  EXPECT_EQ(fit.output.request().caption, "VOR_KEL: Adattamento Funzione Dati");
  EXPECT_EQ(fit.output.request().captions, (std::vector<WindowText>{"&Continua", "&Stampa", "Co&pia"}));
  EXPECT_EQ(fit.output.request().owner, Form::kMain);
  EXPECT_EQ(fit.output.request().text, "");
  EXPECT_EQ(fit.grid().rows(), 11 + 2);
}

TEST(FitScreen, IsAsWideAsItsTableNeeds) {
  const int withShortNames[] = {49, 51, 57, 63, 69, 75};
  const int withLongNames[] = {49, 53, 59, 65, 71, 77};
  for (int n = 1; n <= 6; ++n) {
    DrivenScreen shortNames("y", parameters(n), n);
    shortNames.start();
    EXPECT_EQ(shortNames.grid().cols(), withShortNames[n - 1]) << n;
    EXPECT_EQ(shortNames.grid().rows(), 11 + n);
    DrivenScreen longNames("y", parameters(n, 4), n);
    longNames.start();
    EXPECT_EQ(longNames.grid().cols(), withLongNames[n - 1]) << n;
  }
}

TEST(FitScreen, MakesTheTitleOddWithABlankOnEachSide) {
  EXPECT_EQ(FitScreenLayout("  y = c ", ParameterSet(), 1).title, " y = c ");
  EXPECT_EQ(FitScreenLayout("y = cx", ParameterSet(), 1).title, " y = cx  ");
}

TEST(FitScreen, MakesTheNameColumnOddAndAtLeastThreeWide) {
  ParameterSet par;
  const int widths[][2] = {{1, 3}, {2, 3}, {3, 3}, {4, 5}, {5, 5}};
  for (const auto& [name, column] : widths) {
    par.ParNameWidth = name;
    EXPECT_EQ(FitScreenLayout("y", par, 1).nameWidth, column) << name;
  }
}

TEST(FitScreen, WidensForALongTitleAndKeepsAllTextsInsideTheirBoxes) {
  for (int titleLength = 1; titleLength <= 103; ++titleLength) {
    DrivenScreen fit(std::string(static_cast<std::size_t>(titleLength), 't'), {"a"}, 1);
    fit.start();
    const int W = fit.grid().cols();
    const int odd = (titleLength + 2) % 2 == 0 ? titleLength + 3 : titleLength + 2;
    EXPECT_EQ(W, std::max(49, odd)) << titleLength;
    const int half = (W - 1) / 2;
    const int right = 42 - (40 - half);
    EXPECT_EQ(fit.at(4, right, 21), "\xE6               #####") << titleLength;
    EXPECT_EQ(fit.at(5, right, 21), "X\xFD/\xE6       #.####^^^^") << titleLength;
    EXPECT_EQ(fit.at(6, right, 21), "Liv. Conf. ###.#### %") << titleLength;
    EXPECT_GT(right, half);
    EXPECT_LT(right + 20, W) << titleLength;
    EXPECT_EQ(fit.at(6, 3, 9), "Sec. ####");
    EXPECT_EQ(fit.at(6, 29 - (40 - half), 10), "Iter. ####");
    EXPECT_LT(29 - (40 - half) + 9, half);
    EXPECT_EQ(trim(fit.grid().rowText(2)), std::string(static_cast<std::size_t>(titleLength), 't'));
    EXPECT_FALSE(fit.grid().covers(2, 1)) << titleLength;  // the sides of the frame stay in view
    EXPECT_FALSE(fit.grid().covers(2, W)) << titleLength;
  }
}

TEST(FitScreen, DrawsTheBoxesOfTheNarrowestWindow) {
  DrivenScreen fit("y = c", {"c"}, 1);
  fit.start();
  const std::vector<GridFrame>& frames = fit.grid().frames();
  ASSERT_GE(frames.size(), 5U);
  EXPECT_EQ(frames[0], (GridFrame{1, 1, 3, 49, 3}));
  EXPECT_EQ(frames[1], (GridFrame{3, 1, 7, 24, 3}));
  EXPECT_EQ(frames[2], (GridFrame{3, 24, 7, 49, 3}));
  EXPECT_EQ(frames[3], (GridFrame{8, 1, 12, 49, 3}));
  EXPECT_EQ(frames[4], (GridFrame{8, 1, 10, 49, 3}));
}

TEST(FitScreen, PrintsTheLabelsOfTheNarrowestWindow) {
  DrivenScreen fit("y = c", {"c"}, 1);
  fit.start();
  EXPECT_EQ(fit.columnOf(4, "Minimizzazione"), 6);
  EXPECT_EQ(fit.columnOf(5, "in Corso"), 9);
  EXPECT_EQ(fit.columnOf(6, "Sec. ####"), 3);
  EXPECT_EQ(fit.columnOf(6, "Iter. ####"), 13);
  EXPECT_EQ(fit.columnOf(4, "\xE6               #####"), 26);
  EXPECT_EQ(fit.columnOf(5, "X\xFD/\xE6       #.####^^^^"), 26);
  EXPECT_EQ(fit.columnOf(6, "Liv. Conf. ###.#### %"), 26);
}

TEST(FitScreen, PutsTheHeadersOverTheirColumns) {
  for (int nameLength : {1, 4}) {
    const int NW = nameLength == 1 ? 3 : 5;
    for (int n = 1; n <= 6; ++n) {
      DrivenScreen fit("y", parameters(n, nameLength), n);
      fit.start();
      EXPECT_EQ(fit.columnOf(9, "Par"), NW == 3 ? 3 : 4);
      EXPECT_EQ(fit.columnOf(9, "Valore"), NW + 9);
      EXPECT_EQ(fit.columnOf(9, "Errore"), NW + 24);
      EXPECT_EQ(fit.columnOf(9, "Mat. Cor.%"), n == 1 ? 0 : NW + 35 + (6 * n - 10) / 2) << n;
    }
  }
}

TEST(FitScreen, ListsTheFreeParametersAndThenTheConstantsAsTheyWereFound) {
  DrivenScreen fit("y", {"a", "b", "c", "d"}, 2);
  // b and d are free; a was found constant before c.
  fit.par.FreeIndex[1] = 2;
  fit.par.FreeIndex[2] = 4;
  fit.par.FreeIndex[4] = 1;
  fit.par.FreeIndex[3] = 3;
  fit.X[1] = 20;
  fit.X[2] = 40;
  fit.start();
  EXPECT_EQ(fit.at(11, 3, 18), " b     .200000E+02");
  EXPECT_EQ(fit.at(12, 3, 18), " d     .400000E+02");
  EXPECT_EQ(fit.at(13, 3, 18), " a     .100000E+01");
  EXPECT_EQ(fit.at(14, 3, 18), " c     .300000E+01");
}

TEST(FitScreen, CutsNamesFromTheRightWithABlankBehind) {
  DrivenScreen fit("y", {"a", "ab", "abcd"}, 1);
  fit.start();
  EXPECT_EQ(fit.at(11, 3, 5), "   a ");
  EXPECT_EQ(fit.at(12, 3, 5), "  ab ");
  EXPECT_EQ(fit.at(13, 3, 5), "abcd ");
}

TEST(FitScreen, LosesNoLetterOfANameAsWideAsItsColumn) {
  DrivenScreen three("y", {"a", "abc"}, 1);
  three.start();
  EXPECT_EQ(three.at(11, 3, 3), " a ");
  EXPECT_EQ(three.at(12, 3, 3), "abc");
  DrivenScreen five("y", {"abcde"}, 1);
  five.start();
  EXPECT_EQ(five.at(11, 3, 5), "abcde");
}

TEST(FitScreen, StartsWithValuesAndPlaceholders) {
  DrivenScreen fit("y", {"a", "b", "c"}, 2);
  fit.X[1] = -1234.5;
  fit.X[2] = 0;
  fit.start();
  const int NW = 3;
  EXPECT_EQ(fit.at(11, NW + 6, 12), "-.123450E+04");
  EXPECT_EQ(fit.at(12, NW + 6, 12), " .000000E+00");
  for (int row = 11; row <= 13; ++row) {
    EXPECT_EQ(fit.at(row, NW + 20, 14), " ___________  ");
    EXPECT_EQ(fit.at(row, NW + 29 + 6, 12), " _____ _____");
  }
}

TEST(FitScreen, HasNoMatrixForOneFreeParameter) {
  DrivenScreen fit("y", {"a", "b"}, 1);
  fit.start();
  for (int row = 11; row <= 12; ++row) EXPECT_EQ(trim(fit.at(row, 3 + 33, 49)), "");
  const Array<double> errors = fromOne({0.5});
  fit.screen.finished({fit.progress(), errors, CorrelationMatrix(1), true, false});
  EXPECT_EQ(trim(fit.at(11, 3 + 33, 49)), "");
}

// ---- Running figures --------------------------------------------------------------------------------------

TEST(FitScreen, PrintsTheProgressInItsPlaces) {
  DrivenScreen fit("y", {"a"}, 1);
  fit.start();
  fit.X[1] = 0.5;
  fit.screen.progress(fit.progress());
  EXPECT_EQ(fit.at(6, 3, 9), "Sec.    7");
  EXPECT_EQ(fit.at(6, 13, 10), "Iter.   12");
  EXPECT_EQ(fit.at(4, 26, 21), "\xE6                  18");
  EXPECT_EQ(fit.at(5, 26, 21), "X\xFD/\xE6       0.1235E+01");
  EXPECT_EQ(fit.at(6, 26, 21), "Liv. Conf.  25.5000 %");
  EXPECT_EQ(fit.at(11, 3 + 6, 12), "0.500000E+00");
  EXPECT_EQ(fit.at(11, 3 + 21, 11), "___________");
  EXPECT_EQ(trim(fit.at(5, 2, 22)), "in Corso");
}

TEST(FitScreen, ShowsBlanksForNoSecondsAndNoIterations) {
  DrivenScreen fit("y", {"a"}, 1);
  fit.start();
  FitProgress progress = fit.progress();
  fit.clock.now -= 7;
  progress.iteration = 0;
  fit.screen.progress(progress);
  EXPECT_EQ(fit.at(6, 3, 9), "Sec.     ");
  EXPECT_EQ(fit.at(6, 13, 10), "Iter.     ");
}

std::string confidenceField(double confidence) {
  DrivenScreen fit("y", {"a"}, 1);
  fit.start();
  FitProgress progress = fit.progress();
  progress.confidence = confidence;
  fit.screen.progress(progress);
  return fit.at(6, 26 + 11, 10);
}

TEST(FitScreen, ChangesTheMaskForASmallConfidence) {
  EXPECT_EQ(confidenceField(100), "100.0000 %");
  EXPECT_EQ(confidenceField(0.001), "  0.0010 %");
  EXPECT_EQ(confidenceField(0.00099), "0.99E-03 %");
  EXPECT_EQ(confidenceField(1E-5), "0.10E-04 %");
  EXPECT_EQ(confidenceField(0), "0.00E+00 %");
}

TEST(FitScreen, KeepsThePlaceholderOfAFigureThatCannotBeComputed) {
  DrivenScreen fit("y", {"a"}, 1);
  fit.start(1);
  FitProgress progress = fit.progress();
  progress.degreesOfFreedom = 0;
  progress.reducedChiSquare.reset();
  progress.confidence.reset();
  fit.screen.progress(progress);
  EXPECT_EQ(fit.at(4, 26, 21), "\xE6                    ");
  EXPECT_EQ(fit.at(5, 26, 21), "X\xFD/\xE6       #.####^^^^");
  EXPECT_EQ(fit.at(6, 26, 21), "Liv. Conf. ###.#### %");
}

TEST(FitScreen, ShowsAsterisksForANumberThatDoesNotFit) {
  DrivenScreen fit("y", {"a"}, 1);
  fit.start();
  FitProgress progress = fit.progress();
  fit.clock.now += 10000 - 7;
  progress.degreesOfFreedom = 32766;
  progress.reducedChiSquare = 1E100;
  fit.screen.progress(progress);
  EXPECT_EQ(fit.at(6, 3, 9), "Sec. ****");
  EXPECT_EQ(fit.at(4, 26, 21), "\xE6               32766");
  EXPECT_EQ(fit.at(5, 26, 21), "X\xFD/\xE6       **********");
}

// ---- The end ----------------------------------------------------------------------------------------------

struct Ended : DrivenScreen {
  Ended(bool last, bool unreliable) : DrivenScreen("y = bx+c", {"b", "c", "d"}, 2) {
    start();
    CorrelationMatrix correlation(2);
    correlation.set(2, 1, -0.876);
    const Array<double> errors = fromOne({0.01, 2});
    screen.finished({progress(), errors, correlation, last, unreliable});
  }
};

TEST(FitScreen, SaysThatTheFitIsCompleted) {
  const Ended fit(true, false);
  EXPECT_EQ(fit.columnOf(4, "Minimizzazione"), 6);
  EXPECT_EQ(mid(fit.grid().rowText(5), 2, 23), "      Completata       ");
}

TEST(FitScreen, SaysThatTheFitIsNotReliable) {
  const Ended fit(true, true);
  EXPECT_EQ(mid(fit.grid().rowText(5), 2, 23), "    NON Affidabile     ");
}

TEST(FitScreen, LeavesTheWordsOfTheFirstOfTwoFits) {
  const Ended fit(false, false);
  EXPECT_EQ(trim(fit.at(5, 2, 23)), "in Corso");
  EXPECT_EQ(fit.at(11, 3 + 21, 12), "0.100000E-01");
}

TEST(FitScreen, PrintsValuesErrorsAndTheLowerTriangle) {
  const Ended fit(true, false);
  EXPECT_EQ(fit.at(11, 3 + 6, 12), "0.100000E+01");
  EXPECT_EQ(fit.at(12, 3 + 6, 12), "0.200000E+01");
  EXPECT_EQ(fit.at(11, 3 + 21, 12), "0.100000E-01");
  EXPECT_EQ(fit.at(12, 3 + 21, 12), "0.200000E+01");
  EXPECT_EQ(fit.at(11, 3 + 35, 12), " _____ _____");
  EXPECT_EQ(fit.at(12, 3 + 35, 12), "   -88 _____");
  EXPECT_EQ(fit.at(6, 3, 9), "Sec.    7");
}

TEST(FitScreen, LeavesPlaceholdersInTheRowsOfConstants) {
  const Ended fit(true, false);
  EXPECT_EQ(fit.at(13, 3 + 6, 12), " .300000E+01");
  EXPECT_EQ(fit.at(13, 3 + 21, 12), "___________ ");
  EXPECT_EQ(fit.at(13, 3 + 35, 12), " _____ _____");
}

TEST(FitScreen, RoundsCorrelationsToWholePerCentWithTiesToEven) {
  DrivenScreen fit("y", parameters(3), 3);
  fit.start();
  CorrelationMatrix correlation(3);
  correlation.set(2, 1, 0.125);
  correlation.set(3, 1, 0.375);
  correlation.set(3, 2, 0.001);
  const Array<double> errors = fromOne({1, 1, 1});
  fit.screen.finished({fit.progress(), errors, correlation, true, false});
  EXPECT_EQ(fit.at(12, 3 + 35, 18), "    12 _____ _____");
  EXPECT_EQ(fit.at(13, 3 + 35, 18), "    38       _____");
}

TEST(FitScreen, ClosesTheWindowOfAFailedFitAndBuildsANewOneFromNothing) {
  DrivenScreen fit("y", {"a"}, 1);
  fit.start();
  fit.screen.progress(fit.progress());
  fit.screen.failed({MinimiseEnd::kResidualsFailed, 0});
  EXPECT_FALSE(fit.output.isOpen());
  fit.start();
  EXPECT_TRUE(fit.output.isOpen());
  EXPECT_EQ(fit.at(6, 3, 9), "Sec. ####");
}

}  // namespace
}  // namespace vk
