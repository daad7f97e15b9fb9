#include "commands/FunctionChoice.h"
#include "doubles/Choices.h"
#include "tests/commands/FunctionFileFixture.h"

namespace vk {
namespace {

using testing::HasSubstr;

const std::string kStructureReport =
    "*** ERR. Struttura del File Funzioni NON Corretta!\r\n"
    "***      Successione: #\r\n"
    "***                   Definizione Parametri\r\n"
    "***                   Definizione Funzione\r\n"
    "***                   Descrizione Funzione\r\n"
    "***      Errata!\r\n";

TEST_F(FunctionFileTest, AFileWithAContinuedDefinition) {
  read(lines({"% a comment", "A,B", "A*SIN(x)+&", "B", "a free text describing the function"}));
  EXPECT_EQ(session.ErrFlag, 0);
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].parameters, "A,B");
  EXPECT_EQ(entries()[0].definition, "A*SIN(x)+B");
  EXPECT_EQ(entries()[0].description, "a free text describing the function");
  EXPECT_EQ(session.loaded.catalogue.file.DescriptionWidth, 35);
}

TEST_F(FunctionFileTest, CommentsAndEmptyLinesAreSkippedEverywhereAlsoInsideARecord) {
  read(lines({"", "# first", "   % indented", "  A  ", "A*&", "% in the middle of a record", "   ", "x", "",
              "retta", "%"}));
  EXPECT_EQ(session.ErrFlag, 0);
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].parameters, "A");
  EXPECT_EQ(entries()[0].definition, "A*x");
  EXPECT_EQ(entries()[0].description, "retta");
}

TEST_F(FunctionFileTest, ContinuedLinesAreJoinedDirectly) {
  read(lines({"A", "A*x", "due &", "   parole"}));
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].description, "due parole");
}

TEST_F(FunctionFileTest, AContinuationOnTheLastLineLeavesTheRecordOut) {
  EXPECT_EQ(report(lines({"A", "A*x", "descrizione &"})), kStructureReport + kNoFunctionReport);
  EXPECT_EQ(session.ErrFlag, kTrue);
}

TEST_F(FunctionFileTest, AnIncompleteTripleIsReportedAndTheCompleteOnesAreRead) {
  const std::string text = report(lines({"A", "A*x", "retta", "B"}));
  EXPECT_EQ(session.ErrFlag, kTrue);
  EXPECT_EQ(text.substr(0, kStructureReport.size()), kStructureReport);
  EXPECT_THAT(text, HasSubstr("\r\nO.K.\r\n*********** Fine Funzione: 1\r\n"));
}

TEST_F(FunctionFileTest, AnIncompleteTripleChangesNoField) {
  read(lines({"A", "A*x", "retta"}));
  read(lines({"A", "A*x*x", "una parabola", "B"}));
  EXPECT_EQ(session.ErrFlag, kTrue);
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].description, "retta");
  EXPECT_EQ(session.loaded.catalogue.file.DescriptionWidth, 5);
}

TEST_F(FunctionFileTest, AFileOfCommentsContainsNoFunctions) {
  EXPECT_EQ(report(lines({"% one", "# two", ""})), kNoFunctionReport);
  EXPECT_EQ(session.ErrFlag, kTrue);
}

TEST_F(FunctionFileTest, AnEmptyFileContainsNoFunctions) {
  EXPECT_EQ(report(""), kNoFunctionReport);
  EXPECT_EQ(session.ErrFlag, kTrue);
}

TEST_F(FunctionFileTest, ElevenFunctionsAreCutToTenWithoutAWord) {
  std::string text;
  for (const char* number : {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11"}) {
    text += lines({"A", std::string("A*x+") + number, std::string("funzione ") + number});
  }
  checks.trace = true;
  read(text);
  EXPECT_EQ(session.ErrFlag, 0);
  ASSERT_EQ(entries().size(), 10U);
  EXPECT_EQ(entries()[9].description, "funzione 10");
  EXPECT_TRUE(output.requests.empty());
}

TEST_F(FunctionFileTest, AnEleventhFunctionThatIsWrongIsNotLookedAt) {
  std::string text;
  for (int i = 1; i <= 10; ++i) text += lines({"A", "A*x", "una descrizione"});
  read(text + lines({"A", "B*", "la descrizione piu` lunga di tutte"}));
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(session.loaded.catalogue.file.DescriptionWidth, 15);
}

TEST_F(FunctionFileTest, ADescriptionOfSixtyCharactersIsKeptWholeAndTheWidthStopsAt56) {
  const std::string description(60, 'd');
  read(lines({"A", "A*x", "corta", "A", "A*x", description}));
  ASSERT_EQ(entries().size(), 2U);
  EXPECT_EQ(entries()[1].description, description);
  EXPECT_EQ(session.loaded.catalogue.file.DescriptionWidth, 56);
}

TEST_F(FunctionFileTest, ABlankDescriptionLineIsSkippedSoThatTheTriplesShift) {
  EXPECT_THAT(report(lines({"A", "A*x", "   ", "B", "B*x", "retta"})), HasSubstr(kStructureReport));
  EXPECT_EQ(session.ErrFlag, kTrue);
}

TEST_F(FunctionFileTest, TheNameIsFoldedToCapitalsAndFindsTheFileAgain) {
  files.content["/home/lab/onde.fcn"] = lines({"A", "A*x", "retta"});
  std::string name = "/home/lab/onde.fcn";
  ReadFunctionFile(session, files, output, name, checks);
  EXPECT_EQ(name, "/HOME/LAB/ONDE.FCN");
  ReadFunctionFile(session, files, output, name, checks);
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(FunctionFileTest, OfTwoFilesThatDifferInCaseTheNamedOneIsRead) {
  files.content["LIB.FCN"] = lines({"A", "A*x", "grande"});
  files.content["lib.fcn"] = lines({"A", "A*x", "piccola"});
  std::string name = "lib.fcn";
  ReadFunctionFile(session, files, output, name, checks);
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].description, "piccola");
}

TEST_F(FunctionFileTest, AFileThatCannotBeOpenedIsARuntimeError) {
  std::string name = "missing.fcn";
  try {
    ReadFunctionFile(session, files, output, name, checks);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), kFileNotFound);
  }
  files.readError["locked.fcn"] = kPermissionDenied;
  name = "locked.fcn";
  EXPECT_THROW(ReadFunctionFile(session, files, output, name, checks), RuntimeError);
}

TEST_F(FunctionFileTest, AFileWithLineFeedsAloneReadsLikeItsTwin) {
  read("% a comment\nA,B\nA*x+&\nB\nuna retta\n");
  EXPECT_EQ(session.ErrFlag, 0);
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].definition, "A*x+B");
  EXPECT_EQ(entries()[0].description, "una retta");
}

TEST_F(FunctionFileTest, TheLastLineNeedsNoLineEnd) {
  read("A\r\nA*x\r\nuna retta");
  EXPECT_EQ(session.ErrFlag, 0);
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].description, "una retta");
}

TEST_F(FunctionFileTest, ALoneLineFeedInAFileOfPairsIsAnOrdinaryCharacter) {
  read("A\r\nA*x\r\nuna\nretta\r\n");
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].description, "una\nretta");
}

TEST_F(FunctionFileTest, TabsAreNotTrimmedAndALineWithATabIsARecord) {
  read("A\r\nA*x\r\n\t\r\n");
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].description, "\t");
  read("A\r\n\tA*x\r\nretta\r\n");
  EXPECT_EQ(session.ErrFlag, kTrue);
}

// QUIRK: a "&" inside a record splits it.
TEST_F(FunctionFileTest, QuirkAnAmpersandInsideARecordSplitsItAndTheCountDoesNotSeeIt) {
  read(lines({"A", "A*x", "Rossi & Bianchi", "B", "B+x", "seconda"}));
  EXPECT_EQ(session.ErrFlag, kTrue);  // " Bianchi" has become the parameter list of the second function
  read(lines({"A", "A*x", "Rossi & Bianchi"}));
  EXPECT_EQ(session.ErrFlag, 0);
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].description, "Rossi ");
}

TEST_F(FunctionFileTest, QuirkAnAmpersandInFrontGivesAnEmptyParameterList) {
  read(lines({"&2*x", "il doppio", "ignorata"}));
  EXPECT_EQ(session.ErrFlag, 0);
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].parameters, "");
  EXPECT_EQ(entries()[0].definition, "2*x");
  EXPECT_EQ(entries()[0].description, "il doppio");
}

TEST_F(FunctionFileTest, TwoAmpersandsAtTheEndContinueTheLineAndSplitIt) {
  read(lines({"A", "A*x", "uno&&", "due"}));
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].description, "uno");
}

TEST_F(FunctionFileTest, BytesAbove127AreKept) {
  read(lines({"A", "A*x", "gi\x85 \xFD"}));
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].description, "gi\x85 \xFD");
}

TEST_F(FunctionFileTest, BinaryRubbishIsRefusedAndChangesNothing) {
  std::string bytes;
  for (unsigned i = 0, state = 12345; i < 20000; ++i) {
    state = state * 1103515245U + 12345U;
    bytes += static_cast<char>(state >> 16);
  }
  read(bytes);
  EXPECT_EQ(session.ErrFlag, kTrue);
  read(std::string(1000, '\0'));
  EXPECT_EQ(session.ErrFlag, kTrue);
  read("@@@@\r\n@@\r\n@\r\n");
  EXPECT_EQ(session.ErrFlag, kTrue);
  EXPECT_TRUE(entries().empty());
}

// What passes the check can be loaded and taken: the compiled model and the tables agree on the parameters.
TEST_F(FunctionFileTest, EveryRandomFileIsEitherRefusedOrCanBeTaken) {
  const std::vector<std::string> pieces{"A", "B",    "x",  "p1",   ",",   ",",   "+",  "*",
                                        "(", ")",    "@",  "/",    "2.5", "&",   "%",  "#",
                                        " ", "SIN(", "\t", "\xFD", "A,B", "A*x", "A@B"};
  unsigned state = 4711;
  const auto next = [&](std::size_t range) {
    state = state * 1664525U + 1013904223U;
    return (state >> 16) % range;
  };
  int taken = 0;
  for (int file = 0; file < 10000; ++file) {
    const bool good = next(2) == 0;  // half of the files begin well
    std::string bytes = good ? "A,B\r\n" : "";
    for (std::size_t line = good ? 2 : 3 + next(4) / 3; line > 0; --line) {
      for (std::size_t piece = 1 + next(3); piece > 0; --piece) bytes += pieces[next(pieces.size())];
      bytes += "\r\n";
    }
    read(bytes);
    if (session.ErrFlag != 0) continue;
    BuildCatalogue(session.loaded.catalogue);
    loadFunction(session, 1);
    session.analysis.FunDefined = kFalse;
    choose(session, 6, 1);
    ASSERT_EQ(session.analysis.model.loaded().nPar, session.analysis.par.ParCount) << bytes;
    ASSERT_GT(session.analysis.model.loaded().Values.upper(), session.analysis.model.loaded().nPar) << bytes;
    ASSERT_FALSE(session.analysis.model.loaded().Code.empty()) << bytes;
    ++taken;
  }
  EXPECT_GT(taken, 100);
}

TEST_F(FunctionFileTest, TheCheckLeavesTheModelOfALoadedFunctionAsItWas) {
  read(lines({"p,q", "p*x+q", "retta"}));
  loadFunction(session, 1);
  choose(session, 6, 1);
  const std::string code = session.analysis.model.loaded().Code;
  read(lines({"A", "A*", "cattiva"}));
  EXPECT_EQ(session.analysis.model.loaded().Code, code);
  EXPECT_EQ(session.analysis.model.loaded().nPar, 2);
  report(lines({"A,B,C", "A*x*x+B*x+C", "buona"}));
  EXPECT_EQ(session.analysis.model.loaded().Code, code);
  EXPECT_EQ(session.analysis.model.loaded().nPar, 2);
}

TEST_F(FunctionFileTest, DepartureTooManyLinesAreAWrongStructureAndNothingIsCompiled) {
  std::string text;
  for (int i = 0; i < 10923; ++i) text += "A\r\nA*x\r\nretta\r\n";  // 32769 lines
  EXPECT_EQ(report(text), kStructureReport);
  EXPECT_EQ(session.ErrFlag, -1);
  read(text);
  EXPECT_TRUE(entries().empty());
}

TEST_F(FunctionFileTest, ATextIsCheckedAsItsFileIs) {
  for (const char* bytes : {"A\r\nA*x\r\nretta\r\n", "A\r\nA*\r\nretta\r\n", "A\nA*x"}) {
    const std::string expected = report(bytes);
    const Int16 flag = session.ErrFlag;
    checks.trace = true;
    output.requests.clear();
    read(bytes);
    EXPECT_EQ(session.ErrFlag, flag);
    EXPECT_EQ(output.requests.empty() ? "" : output.requests[0].text, flag == 0 ? "" : expected);
  }
}

}  // namespace
}  // namespace vk
