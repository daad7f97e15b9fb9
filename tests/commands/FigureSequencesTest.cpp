#include <cmath>

#include "base/NumberText.h"
#include "commands/DataCommands.h"
#include "commands/ExhaustedBox.h"
#include "commands/FitCommand.h"
#include "commands/ParameterCommands.h"
#include "commands/SimulationCommand.h"
#include "commands/TransformationCommand.h"
#include "doubles/DrawingLines.h"
#include "doubles/EvaluateFunction.h"
#include "doubles/ExampleFolder.h"
#include "doubles/TestPorts.h"
#include "examples/ExampleFits.h"
#include "expr/FormulaText.h"
#include "grafile/NamedParameters.h"
#include "platform/system/SystemRandom.h"
#include "tests/commands/FigureFixture.h"

namespace vk {
namespace {

// How far the single precision of parameters can move a line.
constexpr double kTwips = 0.02;
// The differences file has four digits.
constexpr double kTwipsOfFourDigits = 1;

/// A user's way through several commands, from the data of a sample to a figure.
class FigureSequence : public FigureFixture {
 protected:
  FigureSequence() { files.content = exampleFiles(); }

  void fitExample(const ExampleFit& example) {
    prepareExample(session, files, example);
    MenAdaAda(session, TestPorts(dialogs, window, output, clock));
  }
  /// Saves a text of the last figure under a name.
  void save(void (*command)(Session&, Ports&), const std::string& name) {
    dialogs.pick(name);
    command(session, TestPorts(files, dialogs));
  }
  /// Chooses a graphic file and runs it without an error.
  std::vector<std::string> runFile(const std::string& name) {
    dialogs.pick(name);
    MenGraLetFil(session, TestPorts(files, dialogs, window));
    const std::size_t shown = output.requests.size();
    MenGraVisFil(session, ports);
    EXPECT_EQ(output.requests.size(), shown) << output.request().text.bytes();
    return lastWindow().form.lines();
  }
  std::vector<std::string> lastFigure() { return lastWindow().form.lines(); }

  StillClock clock;
};

class FunctionFigureSequence : public FigureSequence, public ::testing::WithParamInterface<ExampleFit> {
 protected:
  /// A drawing with the scales of the figure that is described in a text.
  void openLike(GralCls& scales, Device& form, const std::string& text) {
    for (const std::string& line : commandsOf(text, "PARAMETRI")) DefineParameters(parameters, line);
    scales.GralGrStr(form, "LANDSCAPE", 1);
    scales.GralXMap(value("Xcmi"), value("Xcmf"), value("Xi"), value("Xf"));
    scales.GralYMap(value("Ycmi"), value("Ycmf"), value("Yi"), value("Yf"));
  }
  double value(std::string name) {
    Int16 flag;
    SubstituteName(parameters, name, flag);
    EXPECT_EQ(flag, 0) << name;
    return scanNumber(name);
  }
  double model(double x) { return EvaluateFunction(session, dialogs, x); }

  NamedParameters parameters;
};

TEST_P(FunctionFigureSequence, AFittedFigureThatIsSavedReadAndRunIsTheSame) {
  fitExample(GetParam());
  MenGraFunVis(session, ports);
  const FigureWithCurve generated = splitCurve(lastFigure());
  save(MenGraFunGra, "FIT_FUN.GRA");
  const FigureWithCurve replayed = splitCurve(runFile("FIT_FUN.GRA"));
  expectSameLines(replayed.rest, generated.rest, kTwips);

  RecorderDevice form;
  GralCls scales(printer);
  openLike(scales, form, session.figures.GraphText[kFunctionFigure]);

  ASSERT_EQ(generated.curve.size(), static_cast<std::size_t>(curveOfFigure().segments));
  for (const std::string& segment : generated.curve) {
    const auto place = numbersOf(segment);
    ASSERT_EQ(place.size(), 4U) << segment;
    for (const std::size_t end : {0U, 2U}) {
      EXPECT_NEAR(place[end + 1], scales.yUsr2Scr(model(scales.xScr2Usr(place[end]))), 0.2) << segment;
    }
  }
  ASSERT_EQ(replayed.curve.size(), 1U);
  const auto pixels = numbersOf(replayed.curve[0]);
  ASSERT_EQ(pixels.size(), 400U);
  for (int i = 0; i < 200; ++i) {
    const double x = value("Xi") + i * ((value("Xf") - value("Xi")) / 199);
    EXPECT_NEAR(pixels[static_cast<std::size_t>(2 * i)], scales.xUsr2Pixel(x), 1);
    EXPECT_NEAR(pixels[static_cast<std::size_t>(2 * i + 1)], scales.yUsr2Pixel(model(x)), 1);
  }
}

TEST_P(FunctionFigureSequence, DifferencesThatAreSavedAndPutInAsTheCommentsSayAppear) {
  fitExample(GetParam());
  MenGraDifVis(session, ports);
  const auto generated = lastFigure();
  save(MenGraDifSav, "FIT_DIF.DAT");
  save(MenGraDifGra, "FIT_DIF.GRA");

  // As saved it shows the axes and the line of zero.
  const auto axes = runFile("FIT_DIF.GRA");
  EXPECT_LT(axes.size(), generated.size());
  EXPECT_FALSE(contains(axes, "circle "));

  ReplaceAll(files.content["FIT_DIF.GRA"], "%\\DATI(inserire il nome del File Differenze)",
             "\\DATI(FIT_DIF.DAT)");
  auto drawn = runFile("FIT_DIF.GRA");
  // The file limits the area before the line of zero, the generator after it; the file ends the clipping.
  EXPECT_EQ(withoutClip(drawn).size(), withoutClip(generated).size());
  expectSameLines(withoutClip(drawn), withoutClip(generated), kTwipsOfFourDigits);
  EXPECT_TRUE(contains(drawn, "circle "));
}

TEST_P(FunctionFigureSequence, AGraphicFileBetweenTwoFitsChangesNeither) {
  fitExample(GetParam());
  const DataSet data = session.loaded.data;
  const ParameterSet par = session.analysis.par;
  files.content["BETWEEN.GRA"] = lines({"\\XASSE(0,1,2,2,3,0)", "\\FUNZIONE(SIN(x)^2-x)", "\\DATI(ohm.dat)",
                                        "\\SPEZZATA(decay.dat)", "\\CURVA(pendulum.dat)"});
  runFile("BETWEEN.GRA");
  EXPECT_EQ(session.analysis.par.ParValues, par.ParValues);
  EXPECT_EQ(session.analysis.par.ParDeltas, par.ParDeltas);
  EXPECT_EQ(session.analysis.par.ParNames, par.ParNames);
  EXPECT_EQ(session.loaded.data.Xpnt, data.Xpnt);
  EXPECT_EQ(session.loaded.data.ErrEff, data.ErrEff);
  EXPECT_EQ(session.loaded.data.NumPnt, data.NumPnt);
  EXPECT_EQ(session.loaded.DataFile, upper(GetParam().name) + ".DAT");

  MenAdaAda(session, TestPorts(dialogs, window, output, clock));
  const Array<double> withFileBetween = session.analysis.par.ParValues;
  session.loaded.data = data;
  session.analysis.par = par;
  MenAdaAda(session, TestPorts(dialogs, window, output, clock));
  EXPECT_EQ(withFileBetween, session.analysis.par.ParValues);
}

std::string exampleName(const ::testing::TestParamInfo<ExampleFit>& example) {
  return example.param.name;
}

INSTANTIATE_TEST_SUITE_P(Samples, FunctionFigureSequence, ::testing::ValuesIn(exampleFits()), exampleName);

/// Data that no file holds.
class DataFigureSequence : public FigureSequence {
 protected:
  DataFigureSequence() {
    files.content["OTHER.GRA"] = lines({"\\DATI(ohm.dat)", "\\XASSE(0,1,2,2,3,0)", "\\FUNZIONE(x*x)"});
  }
  void expectTheSameFitAfterAGraphicFile() {
    const DataSet data = session.loaded.data;
    const std::string name = session.loaded.DataFile;
    const ParameterSet start = session.analysis.par;
    MenAdaAda(session, TestPorts(dialogs, window, output, clock));
    const Array<double> wanted = session.analysis.par.ParValues;
    session.analysis.par = start;
    runFile("OTHER.GRA");
    EXPECT_EQ(session.loaded.data.Xpnt, data.Xpnt);
    EXPECT_EQ(session.loaded.data.Ypnt, data.Ypnt);
    EXPECT_EQ(session.loaded.data.ErrYpnt, data.ErrYpnt);
    EXPECT_EQ(session.loaded.data.TitleX, data.TitleX);
    EXPECT_EQ(session.loaded.DataFile, upper(name));
    MenAdaAda(session, TestPorts(dialogs, window, output, clock));
    EXPECT_EQ(session.analysis.par.ParValues, wanted);
  }
};

TEST_F(DataFigureSequence, SimulatedDataSurviveAGraphicFile) {
  takeFunction(2, 1, {2, 1});
  session.analysis.par.ParDeltas[1] = session.analysis.par.ParDeltas[2] = 1;
  classifyParameters(session.analysis.par);
  markParametersSet(session);
  SystemRandom random;
  random.seed(1);
  ScriptedInputForm form;
  form.execute({"0", "10", "20", "0.5", "1", "0", "1"});
  ExhaustedBox listener(dialogs);
  const auto fields = askSimulation(session, form);
  ASSERT_TRUE(fields);
  ASSERT_TRUE(SimulateData(session, *fields, dialogs, random, listener));
  ASSERT_EQ(session.loaded.DataFile, "SIMULA.DAT");
  ASSERT_EQ(session.loaded.data.NumPnt, 20);
  expectTheSameFitAfterAGraphicFile();
}

TEST_F(DataFigureSequence, TransformedDataSurviveAGraphicFile) {
  prepareExample(session, files, exampleFits().at(4));
  ScriptedInputForm form;
  form.execute({"2 T", "U/2", "2*x", "y/2", "dy/2"});
  MenDatTra(session, TestPorts(form, dialogs, window));
  ASSERT_EQ(session.loaded.data.TitleX, "2 T");
  expectTheSameFitAfterAGraphicFile();
}

TEST_F(DataFigureSequence, TransformedDataAreDrawnAsTheyAreSaved) {
  prepareExample(session, files, exampleFits().at(4));
  MenGraDatVis(session, ports);
  const auto before = lastFigure();
  ScriptedInputForm form;
  form.execute({"2 T", "U/2", "2*x", "y/2", "dy/2"});
  MenDatTra(session, TestPorts(form, dialogs, window));
  MenGraDatVis(session, ports);
  const auto transformed = lastFigure();
  EXPECT_NE(transformed, before);

  dialogs.pick("NEW.DAT");
  MenDatSav(session, TestPorts(files, dialogs));
  dialogs.pick("NEW.DAT");
  MenDatLet(session, TestPorts(files, dialogs, output, window));
  MenGraDatVis(session, ports);
  expectSameLines(lastFigure(), transformed, kTwips);
}

TEST_F(DataFigureSequence, AFileWithCommentsSurvivesAGraphicFile) {
  files.content["NOTED.DAT"] =
      lines({"% a comment", "x", "", "y", "% another", "3", "1 2 .5", "% between", "2 3.5 .5", "4 4 .5"});
  dialogs.pick("NOTED.DAT");
  MenDatLet(session, TestPorts(files, dialogs, output, window));
  takeFunction(2, 1, {1, 1});
  session.analysis.par.ParDeltas[1] = session.analysis.par.ParDeltas[2] = 1;
  classifyParameters(session.analysis.par);
  markParametersSet(session);
  expectTheSameFitAfterAGraphicFile();
}

}  // namespace
}  // namespace vk
