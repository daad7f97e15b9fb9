#include "commands/TransformationCommand.h"

#include "base/Text.h"
#include "commands/DataCommands.h"
#include "commands/ParameterCommands.h"
#include "data/DataFiles.h"
#include "doubles/EvaluateFunction.h"
#include "doubles/TestPorts.h"
#include "expr/Compiler.h"
#include "tests/commands/FormText.h"
#include "tests/commands/PropagationHelp.h"

namespace vk {
namespace {

using testing::Each;
using testing::ElementsAre;
using Fields = std::vector<std::string>;

/// Three points (1, 4), (2, 5), (3, 6) with errors of y 0.1, 0.2, 0.3, and of x 0.01, 0.02, 0.03 where wanted.
class TransformationTest : public PropagationTest {
 protected:
  TransformationTest() { setData(kFalse); }
  void setData(Flag hasXErrors) {
    DataSet& data = session.loaded.data;
    data.allocate(3, hasXErrors);
    data.TitleX = "tempo";
    data.TitleY = "spazio";
    for (int i = 1; i <= 3; ++i) {
      data.Xpnt[i] = i;
      data.Ypnt[i] = i + 3;
      data.ErrYpnt[i] = i / 10.0;
      data.ErrXpnt[i] = hasXErrors ? i / 100.0 : 0;
    }
    session.loaded.DataDefined = kTrue;
    session.loaded.DataFile = "/data/dir/PROVA.DAT";
  }
  void transform(const Fields& fields) {
    form.execute(fields);
    MenDatTra(session, TestPorts(form, dialogs, window));
  }
  /// A transformation that ends with a box.
  void expectRefusal(const Fields& fields, const std::string& text) {
    const DataSet before = session.loaded.data;
    dialogs.expectBox();
    transform(fields);
    EXPECT_EQ(dialogs.boxes.back(), (ScriptedDialogs::Box{"VOR_KEL", text}));
    EXPECT_EQ(session.loaded.data.Xpnt, before.Xpnt);
    EXPECT_EQ(session.loaded.data.Ypnt, before.Ypnt);
    EXPECT_EQ(session.loaded.data.ErrXpnt, before.ErrXpnt);
    EXPECT_EQ(session.loaded.data.ErrYpnt, before.ErrYpnt);
    EXPECT_EQ(session.loaded.data.TitleX, before.TitleX);
    EXPECT_EQ(session.loaded.data.TitleY, before.TitleY);
  }
  std::vector<double> column(const Array<double>& values) const {
    const auto part = values.span(1, 3);
    return {part.begin(), part.end()};
  }
  /// What leaving a formula's field does.
  static void validate(const std::string& formula) { compile("y@x,y,dx,dy@ @ @" + formula); }

  ScriptedInputForm form;
};

// ---- The form ---------------------------------------------------------------------------------------------

TEST_F(TransformationTest, TheFormWithoutErrorsOfX) {
  form.giveUp();
  MenDatTra(session, TestPorts(form, dialogs, window));
  ASSERT_EQ(form.shown.size(), 1U);
  EXPECT_EQ(form.callers[0], Form::kMain);
  EXPECT_EQ(describe(form.shown[0]),
            "VOR_KEL: Trasformazione Dati\n"
            "rows 9, cols 45, fields 5, frames 3, texts 2\n"
            "frame 1 1 9 45 3\n"
            "frame 3 1 9 45 3\n"
            "frame 3 11 9 45 3\n"
            "text 1 22 1 [File Dati]\n"
            "text 2 22 1 [PROVA.DAT]\n"
            "field 4 12 33 [tempo] #String label 4 2 9 [Legenda x]\n"
            "field 5 12 33 [spazio] #String label 5 2 9 [Legenda y]\n"
            "field 6 12 33 [x] #Function@y@x,y,dx,dy@ @ @ label 6 2 9 [        x]\n"
            "field 7 12 33 [y] #Function@y@x,y,dx,dy@ @ @ label 7 2 9 [        y]\n"
            "field 8 12 33 [dy] #Function@y@x,y,dx,dy@ @ @ label 8 2 9 [       dy]\n");
}

TEST_F(TransformationTest, TheFormWithErrorsOfX) {
  setData(kTrue);
  form.giveUp();
  MenDatTra(session, TestPorts(form, dialogs, window));
  EXPECT_EQ(describe(form.shown[0]),
            "VOR_KEL: Trasformazione Dati\n"
            "rows 10, cols 45, fields 6, frames 3, texts 2\n"
            "frame 1 1 10 45 3\n"
            "frame 3 1 10 45 3\n"
            "frame 3 11 10 45 3\n"
            "text 1 22 1 [File Dati]\n"
            "text 2 22 1 [PROVA.DAT]\n"
            "field 4 12 33 [tempo] #String label 4 2 9 [Legenda x]\n"
            "field 5 12 33 [spazio] #String label 5 2 9 [Legenda y]\n"
            "field 6 12 33 [x] #Function@y@x,y,dx,dy@ @ @ label 6 2 9 [        x]\n"
            "field 7 12 33 [y] #Function@y@x,y,dx,dy@ @ @ label 7 2 9 [        y]\n"
            "field 8 12 33 [dx] #Function@y@x,y,dx,dy@ @ @ label 8 2 9 [       dx]\n"
            "field 9 12 33 [dy] #Function@y@x,y,dx,dy@ @ @ label 9 2 9 [       dy]\n");
}

// ---- The columns ------------------------------------------------------------------------------------------

TEST_F(TransformationTest, UnchangedFieldsCopyTheColumnsWithoutCompiling) {
  transform({"t", "s", "x", "y", "dy"});
  EXPECT_THAT(column(session.loaded.data.Xpnt), ElementsAre(1, 2, 3));
  EXPECT_THAT(column(session.loaded.data.Ypnt), ElementsAre(4, 5, 6));
  EXPECT_THAT(column(session.loaded.data.ErrYpnt), ElementsAre(0.1, 0.2, 0.3));
  EXPECT_EQ(session.loaded.data.TitleX, "t");
  EXPECT_EQ(session.loaded.data.TitleY, "s");
}

TEST_F(TransformationTest, ColumnsCanBeExchanged) {
  transform({"s", "t", "y", "x", "dy"});
  EXPECT_THAT(column(session.loaded.data.Xpnt), ElementsAre(4, 5, 6));
  EXPECT_THAT(column(session.loaded.data.Ypnt), ElementsAre(1, 2, 3));
}

TEST_F(TransformationTest, AllFormulasSeeTheOldColumns) {
  transform({"t", "s", "x*2", "x+y", "dy*x"});
  EXPECT_THAT(column(session.loaded.data.Xpnt), ElementsAre(2, 4, 6));
  EXPECT_THAT(column(session.loaded.data.Ypnt), ElementsAre(5, 7, 9));
  EXPECT_THAT(column(session.loaded.data.ErrYpnt), ElementsAre(0.1, 0.2 * 2, 0.3 * 3));
}

TEST_F(TransformationTest, FormulasUseAndReplaceTheErrorsOfX) {
  setData(kTrue);
  transform({"t", "s", "x+dx", "y", "2*dx", "dy+dx"});
  EXPECT_THAT(column(session.loaded.data.Xpnt), ElementsAre(1.01, 2.02, 3.03));
  EXPECT_THAT(column(session.loaded.data.Ypnt), ElementsAre(4, 5, 6));
  EXPECT_THAT(column(session.loaded.data.ErrXpnt), ElementsAre(0.02, 0.04, 0.06));
  EXPECT_THAT(column(session.loaded.data.ErrYpnt), ElementsAre(0.1 + 0.01, 0.2 + 0.02, 0.3 + 0.03));
}

TEST_F(TransformationTest, ErrorColumnsAreFoundByTheirNames) {
  setData(kTrue);
  transform({"t", "s", "dy", "dx", "y", "x"});
  EXPECT_THAT(column(session.loaded.data.Xpnt), ElementsAre(0.1, 0.2, 0.3));
  EXPECT_THAT(column(session.loaded.data.Ypnt), ElementsAre(0.01, 0.02, 0.03));
  EXPECT_THAT(column(session.loaded.data.ErrXpnt), ElementsAre(4, 5, 6));
  EXPECT_THAT(column(session.loaded.data.ErrYpnt), ElementsAre(1, 2, 3));
}

TEST_F(TransformationTest, BlanksAroundAFormulaDoNotMatter) {
  transform({"t", "s", " y ", "  x * 2", "dy "});
  EXPECT_THAT(column(session.loaded.data.Xpnt), ElementsAre(4, 5, 6));
  EXPECT_THAT(column(session.loaded.data.Ypnt), ElementsAre(2, 4, 6));
}

TEST_F(TransformationTest, QUIRK_ATextAcrossTwoNamesTakesTheValueCopiedLast) {
  transform({"t", "s", "y", "yd", "dy"});
  EXPECT_THAT(column(session.loaded.data.Xpnt), ElementsAre(4, 5, 6));
  EXPECT_THAT(column(session.loaded.data.Ypnt), Each(6));
  EXPECT_THAT(column(session.loaded.data.ErrYpnt), ElementsAre(0.1, 0.2, 0.3));
}

TEST_F(TransformationTest, QUIRK_BeforeAnyCopyThatValueIsZero) {
  transform({"t", "s", "x*2", "yd", "x y"});
  EXPECT_THAT(column(session.loaded.data.Ypnt), Each(0));
  EXPECT_THAT(column(session.loaded.data.ErrYpnt), Each(0));
}

TEST_F(TransformationTest, AHitAcrossNamesCountsWithErrorsOfXToo) {
  setData(kTrue);
  // "dxdy" begins with the name dx; "xd" lies across dx and dy.
  transform({"t", "s", "dxdy", "xd", "dx", "dy"});
  EXPECT_THAT(column(session.loaded.data.Xpnt), ElementsAre(0.01, 0.02, 0.03));
  EXPECT_THAT(column(session.loaded.data.Ypnt), Each(0.03));
}

TEST_F(TransformationTest, DepartureValuesThatCannotBeComputedAreToldAndStandAsTheEvaluationLeftThem) {
  dialogs.expectBox();
  transform({"t", "s", "x", "LOG(x-2)", "dy"});
  EXPECT_EQ(
      dialogs.boxes.back(),
      (ScriptedDialogs::Box{"VOR_KEL", "formula di y NON calcolabile nelle righe 1, 2  <*> per Continuare"}));
  EXPECT_THAT(column(session.loaded.data.Ypnt), ElementsAre(-1, 0, 0));
}

// ---- Bad formulas -----------------------------------------------------------------------------------------

TEST_F(TransformationTest, ABadFormulaIsToldWithItsColumnAndNothingChanges) {
  expectRefusal({"t", "s", "x+", "y", "dy"}, "Errore nella Definizione di  x  <*> per Continuare");
  expectRefusal({"t", "s", "x*2", "q", "dy"}, "Errore nella Definizione di  y  <*> per Continuare");
  expectRefusal({"t", "s", "x*2", "y*2", ""}, "Errore nella Definizione di dy  <*> per Continuare");
}

TEST_F(TransformationTest, QUIRK_ErrorsOfXThatAreNotThereFailInTheEnd) {
  expectRefusal({"t", "s", "x", "y+dx", "dy"}, "Errore nella Definizione di  y  <*> per Continuare");
  expectRefusal({"t", "s", "x", "y", "dx"}, "Errore nella Definizione di dy  <*> per Continuare");
}

TEST_F(TransformationTest, ABadErrorOfXIsToldByItsName) {
  setData(kTrue);
  expectRefusal({"t", "s", "x", "y", "dz", "dy"}, "Errore nella Definizione di dx  <*> per Continuare");
}

// ---- The end ----------------------------------------------------------------------------------------------

TEST_F(TransformationTest, TheMenusFollowAndWhoeverHoldsTheMainWindowKeepsIt) {
  window.shut(Form::kEditor);
  window.calls.clear();
  transform({"t", "s", "x", "y", "dy"});
  EXPECT_THAT(window.calls, ElementsAre("refresh"));
  EXPECT_EQ(window.panels[1], "Dati: PROVA.DAT");
}

TEST_F(TransformationTest, ALoadedModelEvaluatesAsBefore) {
  load("p,q", "p*x^2+q");
  set(1, 3, 1);
  set(2, 0.5, 1);
  const ParameterSet before = session.analysis.par;
  validate("x*y*dy");
  transform({"t", "s", "x*2", "x+y", "dy"});
  EXPECT_EQ(EvaluateFunction(session, dialogs, 2), 12.5);
  validate("x*y*dy");
  expectRefusal({"t", "s", "x*2", "q", "dy"}, "Errore nella Definizione di  y  <*> per Continuare");
  EXPECT_EQ(EvaluateFunction(session, dialogs, 2), 12.5);
  EXPECT_EQ(session.analysis.par.ParNames, before.ParNames);
  EXPECT_EQ(session.analysis.par.ParCount, before.ParCount);
  EXPECT_EQ(session.analysis.par.ParNameWidth, before.ParNameWidth);
}

TEST_F(TransformationTest, AFunctionOfTheCatalogueEvaluatesAsBefore) {
  choose(session, 2, 7);
  for (int i = 1; i <= 3; ++i) set(i, 0.5 * i, 1);
  const double before = EvaluateFunction(session, dialogs, 1.25);
  const std::string names = session.analysis.par.ParNames;
  validate("x*y*dy");
  transform({"t", "s", "x*2", "x+y", "dy"});
  EXPECT_EQ(EvaluateFunction(session, dialogs, 1.25), before);
  EXPECT_EQ(session.analysis.par.ParNames, names);
}

TEST_F(TransformationTest, GivingUpLeavesTheDataAndGivesTheModelItsPlaceBack) {
  load("p,q", "p*x^2+q");
  set(1, 3, 1);
  set(2, 0.5, 1);
  validate("x*10");
  form.giveUp();
  MenDatTra(session, TestPorts(form, dialogs, window));
  EXPECT_EQ(session.ErrFlag, kTrue);
  EXPECT_THAT(column(session.loaded.data.Xpnt), ElementsAre(1, 2, 3));
  EXPECT_EQ(session.loaded.data.TitleX, "tempo");
  EXPECT_EQ(EvaluateFunction(session, dialogs, 2), 12.5);
}

TEST_F(TransformationTest, AFormThatFailsGivesTheModelItsPlaceBackToo) {
  struct : InputForm {
    std::function<void()> validate;
    bool InpShow(InputTables&, Form) override {
      validate();
      throw RuntimeError(kOverflow);
    }
  } failing;
  load("p,q", "p*x^2+q");
  set(1, 3, 1);
  set(2, 0.5, 1);
  failing.validate = [] { validate("x*10"); };
  EXPECT_THROW(MenDatTra(session, TestPorts(failing, dialogs, window)), RuntimeError);
  EXPECT_EQ(EvaluateFunction(session, dialogs, 2), 12.5);
}

TEST_F(TransformationTest, TransformedDataAreSavedAndReadBack) {
  transform({"t2", "s2", "x*2", "x+y", "dy"});
  dialogs.pick("/data/NEW.DAT");
  MenDatSav(session, TestPorts(files, dialogs));
  LoadDataFile(session.loaded, "/data/NEW.DAT", readData(files, "/data/NEW.DAT").data);
  EXPECT_EQ(session.loaded.data.TitleX, "t2");
  EXPECT_EQ(session.loaded.data.TitleY, "s2");
  EXPECT_THAT(column(session.loaded.data.Xpnt), ElementsAre(2, 4, 6));
  EXPECT_THAT(column(session.loaded.data.Ypnt), ElementsAre(5, 7, 9));
}

TEST_F(TransformationTest, TitlesAreShownAndTakenInTheCodePageOfTheFields) {
  session.loaded.data.TitleX = "Velocit\xE0 \xB1 \\\\m";
  transform({"Velocit\x85 \xF1 \\\\m", "\x8A \xF1 \xE6m (\xF8\x43)", "x", "y", "dy"});
  EXPECT_EQ(form.shown.back().InpValues[1].bytes(), "Velocit\x85 \xF1 \\\\m");
  EXPECT_EQ(session.loaded.data.TitleX, "Velocit\xE0 \xB1 \\\\m");
  EXPECT_EQ(session.loaded.data.TitleY, "\xE8 \xB1 \\\\mm (^oC)");
}

TEST_F(TransformationTest, ATitleThatIsNotTouchedKeepsWhatItsFieldCannotShow) {
  session.loaded.data.TitleX = session.loaded.data.TitleY = "\xC8 \x80";
  transform({"E` EUR", "E` EUR!", "x", "y", "dy"});
  EXPECT_EQ(session.loaded.data.TitleX, "\xC8 \x80");
  EXPECT_EQ(session.loaded.data.TitleY, "E` EUR!");
}

TEST_F(TransformationTest, DepartureTitlesThatNoFileCanHoldAreChangedInTheSessionToo) {
  transform({"", "% di luce", "x", "y", "dy"});
  EXPECT_EQ(session.loaded.data.TitleX, "-");
  EXPECT_EQ(session.loaded.data.TitleY, "- % di luce");
}

}  // namespace
}  // namespace vk
