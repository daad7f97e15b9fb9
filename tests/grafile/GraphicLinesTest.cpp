#include "tests/commands/FigureFixture.h"

namespace vk {
namespace {

class GraphicLinesTest : public FigureFixture {};

const Calls kOneMark = [](GralCls& drawing) { drawing.GralMark(3, 4); };
const Calls kNothing = [](GralCls&) {};

TEST_F(GraphicLinesTest, BlanksAroundALineAndInsideACommandDoNotCount) {
  expectDraws("   \\ simbolo  (3,4)   \r\n", kOneMark);
  expectDraws("\\SIMBOLO( 3 , 4 )\r\n", kOneMark);
}

TEST_F(GraphicLinesTest, NamesAreFoundInAnyCase) {
  for (const char* name : {"SIMBOLO", "simbolo", "Simbolo"}) {
    expectDraws("\\" + std::string(name) + "(3,4)\r\n", kOneMark);
  }
}

TEST_F(GraphicLinesTest, OtherLinesAreSkippedSilently) {
  expectDraws(lines({"% \\SIMBOLO(1,1)", "", "una nota", "XSCALA(0,1,0,1)", "\t\\SIMBOLO(2,2)"}), kNothing);
}

TEST_F(GraphicLinesTest, AnAmpersandAtTheEndContinuesTheLine) {
  expectDraws(lines({"\\SIM&", "   BOLO(3  &   ", " ,4)"}), kOneMark);
  expectDraws(lines({"\\SIMBOLO(&", "&", "3,&", "4)"}), kOneMark);
}

TEST_F(GraphicLinesTest, ACommentContinuesToo) {
  expectDraws(lines({"% a comment &", "\\SIMBOLO(1,1)", "\\SIMBOLO(3,4)"}), kOneMark);
}

TEST_F(GraphicLinesTest, ALastLineThatEndsInAnAmpersandReadsPastTheEnd) {
  EXPECT_EQ(errorOf([&] { run("\\SIMBOLO(3,4)\r\n\\SIMBOLO(1,&\r\n"); }), kInputPastEnd);
  EXPECT_EQ(errorOf([&] { run("\\SIMBOLO(3,4)&"); }), kInputPastEnd);
}

TEST_F(GraphicLinesTest, TheLastLineNeedsNoLineEnd) {
  expectDraws("\\SIMBOLO(3,4)", kOneMark);
}

TEST_F(GraphicLinesTest, LineFeedsAloneEndTheLinesOfAFileWithoutCarriageReturns) {
  expectDraws("% comment\n\\SIMBOLO(3,&\n4)\n", kOneMark);
}

TEST_F(GraphicLinesTest, ArgumentsReachToTheLastParenthesis) {
  expectDraws("\\XASSE(0, 10, 2, 5, 3, 1,Tempo (s))\r\n",
              [](GralCls& d) { d.GralOaxis(0, 10, 2, 5, 3, false, true, "Tempo (s)"); });
}

TEST_F(GraphicLinesTest, CommandsWithoutParenthesesOrWithUnknownNamesAreListed) {
  EXPECT_EQ(
      errorsOf(lines({"\\SIMBOLO", "  \\SIMBOLO 3,4) ", "\\SIMBOLO(3,4", "\\SIMBOLO(3,4) !", "\\",
                      "\\CERCHIO(3,4)", "\\SIM&", "BOLI(1,2)"})),
      lines({"***\\SIMBOLO Comando Errato", "***\\SIMBOLO 3,4) Comando Errato",
             "***\\SIMBOLO(3,4 Comando Errato", "***\\SIMBOLO(3,4) ! Comando Errato", "***\\ Comando Errato",
             "***\\CERCHIO(3,4) Comando Errato", "***\\SIMBOLI(1,2) Comando Errato"}));
}

TEST_F(GraphicLinesTest, AnUnknownParameterIsListedAndTheRunGoesOn) {
  EXPECT_EQ(run(lines({"\\simbolo(q,1)", "\\SIMBOLO(3,4)"})), drawing(kOneMark));
  EXPECT_EQ(output.request().text, "*** Parametri di SIMBOLO Errati\r\n");
}

TEST_F(GraphicLinesTest, AFailingDrawingDoesNotStopTheRun) {
  EXPECT_EQ(run(lines({"\\XSCALA(1,2,5,5)", "\\XASSE(0,10,1,0,3,1,x)", "\\SIMBOLO(3,4)"})),
            drawing(kOneMark));
  EXPECT_EQ(output.request().text,
            lines({"*** Parametri di XSCALA Errati", "*** Parametri di XASSE Errati"}));
}

TEST_F(GraphicLinesTest, AnErrorFlagAtTheStartFailsEveryCommand) {
  files.content["A.GRA"] = lines({"\\SIMBOLO(3,4)", "\\Xlog(1)", "% comment", "\\PARAMETRI(a=1)", "\\NO()"});
  RunGraphicFile(session, ports, "A.GRA", "Form", -1);
  EXPECT_EQ(lastWindow().form.lines(), drawing(kNothing));
  EXPECT_EQ(output.request().text, lines({"*** Parametri di SIMBOLO Errati", "*** Parametri di XLOG Errati",
                                          "*** Parametri di PARAMETRI Errati", "***\\NO() Comando Errato"}));
}

TEST_F(GraphicLinesTest, DepartureAListEndsAfterAThousandErrors) {
  std::string text, expected;
  for (int i = 0; i < 1003; ++i) text += "\\X\r\n";
  for (int i = 0; i < 1000; ++i) expected += "***\\X Comando Errato\r\n";
  EXPECT_EQ(errorsOf(text), expected + "***ERR. ... e altri 3 errori\r\n");
}

}  // namespace
}  // namespace vk
