#include "ui/InputEngine.h"

#include "doubles/Doubles.h"
#include "doubles/ScriptedDialogs.h"
#include "session/Session.h"
#include "ui/FixedMeasure.h"

namespace vk {
namespace {

using testing::ElementsAre;

class InpModTest : public testing::Test {
 protected:
  void SetUp() override {
    tables.InpRows = 10;
    tables.InpCols = 40;
    tables.InpFrameCount = 1;
    tables.InpFrames.dim(1);
    tables.InpFrames[1] = {1, 1, 10, 40, 3};
    setFields(
        {{"1", "#Number", {4, 10, -8}}, {"  due ", "#String", {5, 10, 8}}, {"x", kFormula, {6, 10, 12}}});
  }

  struct Field {
    std::string value, kind;
    std::array<Int16, 3> position;
  };
  void setFields(const std::vector<Field>& fields) {
    const int n = static_cast<int>(fields.size());
    tables.InpFieldCount = n;
    tables.InpValues.dim(n);
    tables.InpFieldKinds.dim(n);
    tables.InpFieldPos.dim(n);
    tables.InpLabels.dim(n);
    tables.InpLabelPos.dim(n);
    for (int i = 1; i <= n; ++i) {
      const Field& field = fields[static_cast<std::size_t>(i) - 1];
      tables.InpValues[i] = Cp437Text(field.value);
      tables.InpFieldKinds[i] = field.kind;
      tables.InpFieldPos[i] = field.position;
      tables.InpLabels[i] = "Campo";
      tables.InpLabelPos[i] = {field.position[0], 2, 5};
    }
  }
  void open() { engine.open(tables, around); }
  void type(const std::string& text) { engine.setEditText(Cp437Text(text)); }
  std::string_view box() const { return engine.editBox().text.bytes(); }

  static constexpr const char* kFormula = "#Function@y@x,y,dx,dy@ @ @";
  Session session;
  ScriptedDialogs dialogs;
  RecordingSound sound;
  std::vector<std::string> compiled;
  bool compiles = true;
  InputTables tables;
  FixedMeasure font{120, 240}, buttonFont{110, 220};
  InputSurroundings around{{1000, 500, 12000, 8000}, {60, 300}, &font, &buttonFont};
  InpMod engine{dialogs, sound, [this](const std::string& definition) {
                  compiled.push_back(definition);
                  return compiles;
                }};
};

TEST_F(InpModTest, TheFormHasTwoRowsMoreForItsButtonsAndStandsCentredOnItsCaller) {
  open();
  EXPECT_EQ(engine.layout().InpFormH, 300 + 12 * 240);
  EXPECT_EQ(engine.layout().InpFormW, 60 + 40 * 120);
  EXPECT_EQ(engine.layout().form, (Rect{1000 + (12000 - 4860) / 2.0, 500 + 600, 4860, 3180}));
}

TEST_F(InpModTest, ButtonsAreCentredAtAQuarterAndThreeQuarters) {
  open();
  const double width = 1.2 * 9 * 110;
  const Rect rin = engine.layout().cmdRin, ese = engine.layout().cmdEse;
  for (const Rect& button : {rin, ese}) {
    EXPECT_DOUBLE_EQ(button.width, width);
    EXPECT_EQ(button.height, 360);
    EXPECT_EQ(button.top, 2400);
  }
  EXPECT_DOUBLE_EQ(rin.left + width / 2, 1200);
  EXPECT_DOUBLE_EQ(ese.left + width / 2, 3600);
}

TEST_F(InpModTest, FieldsAndTemplateHaveTheToldGeometry) {
  open();
  const auto& fields = engine.layout().lblVal;
  ASSERT_EQ(fields.size(), 4u);
  EXPECT_EQ(fields[1], (Rect{9 * 120, 3 * 240 + 5, 7 * 120, 280}));
  EXPECT_EQ(fields[0], fields[1]);
  EXPECT_EQ(fields[3], (Rect{9 * 120, 5 * 240 + 5, 11 * 120, 280}));
  EXPECT_TRUE(engine.flushRight(1));
  EXPECT_FALSE(engine.flushRight(2));
}

TEST_F(InpModTest, PromptsStandOnTheirCells) {
  open();
  EXPECT_EQ(engine.layout().prompts[1], (PlacedText{120, 960, "Campo"}));
}

TEST_F(InpModTest, FixedTextsAreTrimmedAndAlignedOnTheirColumn) {
  tables.InpTextCount = 3;
  tables.InpTexts.dim(3);
  tables.InpTextPos.dim(3);
  for (int i = 1; i <= 3; ++i) {
    tables.InpTexts[i] = " abcd ";
    tables.InpTextPos[i] = {2, 11, i};
  }
  open();
  EXPECT_THAT(engine.layout().texts,
              ElementsAre(PlacedText{1200 - 240, 240, "abcd"}, PlacedText{1200 - 480, 240, "abcd"},
                          PlacedText{1200, 240, "abcd"}));
}

TEST_F(InpModTest, ATextWiderThanTheFormIsShortenedInItsMiddle) {
  tables.InpTextCount = 2;
  tables.InpTexts.dim(2);
  tables.InpTextPos.dim(2);
  tables.InpTexts[1] = Cp437Text(std::string(20, 'a') + std::string(20, 'b'));  // as wide as the form
  tables.InpTexts[2] = Cp437Text(std::string(20, 'a') + std::string(21, 'b'));
  for (int i = 1; i <= 2; ++i) tables.InpTextPos[i] = {2, 20, 1};
  open();
  EXPECT_EQ(engine.layout().texts[0].text, tables.InpTexts[1]);
  const Cp437Text shown(std::string(16, 'a') + "..." + std::string(16, 'b'));
  EXPECT_EQ(engine.layout().texts[1], (PlacedText{19 * 120 - 35 * 60, 240, shown}));
}

TEST_F(InpModTest, AShortenedTextLeavesFourColumnsToTheFrames) {
  tables.InpTextCount = 1;
  tables.InpTexts.dim(1);
  tables.InpTextPos.dim(1);
  tables.InpTexts[1] = Cp437Text(std::string(60, 'a'));
  for (const Int16 columns : {40, 41}) {  // as many letters stand on both sides of the gap
    tables.InpCols = columns;
    open();
    EXPECT_EQ(engine.layout().texts[0].text.bytes().size(), columns == 40 ? 35U : 37U);
  }
}

TEST_F(InpModTest, FramesAreThoseOfTheTables) {
  open();
  EXPECT_THAT(engine.layout().frames, ElementsAre(GridFrame{1, 1, 10, 40, 3}));
}

TEST_F(InpModTest, TheEditBoxStartsOnFieldOne) {
  open();
  EXPECT_EQ(engine.InpCurrent, 1);
  EXPECT_EQ(box(), "1");
  EXPECT_EQ(engine.editBox().place, (Rect{1080 + 20, 725 + 20, 840 - 40, 240 - 17}));
  EXPECT_TRUE(engine.editBox().visible);
}

TEST_F(InpModTest, ARightAlignedFirstFieldStartsWhiteAndIsGreyWhenRevisited) {
  // QUIRK: only the first placement looks at the alignment.
  open();
  EXPECT_EQ(engine.InpFirstRight, kTrue);
  EXPECT_EQ(engine.editBox().background, Colour::fromChannels(255, 255, 255));
  engine.GoToField(2);
  EXPECT_EQ(engine.editBox().background, Colour::fromChannels(240, 240, 240));
  engine.GoToField(1);
  EXPECT_EQ(engine.editBox().background, Colour::fromChannels(240, 240, 240));
}

TEST_F(InpModTest, ALeftAlignedFirstFieldIsGreyFromTheStart) {
  tables.InpFieldPos[1][2] = 8;
  open();
  EXPECT_EQ(engine.InpFirstRight, kFalse);
  EXPECT_EQ(engine.editBox().background, Colour::fromChannels(240, 240, 240));
}

TEST_F(InpModTest, TheBoxShowsTheTrimmedContent) {
  open();
  engine.GoToField(2);
  EXPECT_EQ(box(), "due");
  EXPECT_EQ(engine.caption(2).bytes(), "  due ");
}

TEST_F(InpModTest, EnterAndArrowDownGoOnAndWrapToFieldOne) {
  open();
  EXPECT_TRUE(engine.keyDown(kKeyEnter));
  EXPECT_EQ(engine.InpCurrent, 2);
  EXPECT_TRUE(engine.keyDown(kKeyDown));
  EXPECT_EQ(engine.InpCurrent, 3);
  EXPECT_TRUE(engine.keyDown(kKeyEnter));
  EXPECT_EQ(engine.InpCurrent, 1);
  EXPECT_EQ(compiled.size(), 1u) << "the last field is validated on leaving";
}

TEST_F(InpModTest, ArrowUpGoesBackAndWrapsToTheLastField) {
  open();
  EXPECT_TRUE(engine.keyDown(kKeyUp));
  EXPECT_EQ(engine.InpCurrent, 3);
  EXPECT_TRUE(engine.keyDown(kKeyUp));
  EXPECT_EQ(engine.InpCurrent, 2);
}

TEST_F(InpModTest, OtherKeysEditAndEscapeDoesNothing) {
  open();
  for (int key : {27, 9, 37, 39, 65}) EXPECT_FALSE(engine.keyDown(key)) << key;
  EXPECT_EQ(engine.InpCurrent, 1);
}

TEST_F(InpModTest, ANumberIsRewrittenByItsShortText) {
  open();
  type("1e3");
  engine.GoToField(2);
  EXPECT_EQ(engine.caption(1).bytes(), "1000");
  engine.GoToField(1);
  type("0.333333333333333333");
  engine.GoToField(2);
  EXPECT_EQ(engine.caption(1).bytes(), "0.333333E+00");
  EXPECT_TRUE(sound.tones.empty());
  EXPECT_EQ(sound.beeps, 0);
}

TEST_F(InpModTest, ATextThatIsNoNumberGivesThreeBeepsAndTheBoxStays) {
  open();
  for (const char* bad : {"abc", "", "1,5", "1 2", "nan", "1e400"}) {
    sound.beeps = 0;
    type(bad);
    engine.GoToField(2);
    EXPECT_EQ(sound.beeps, 3) << bad;
    EXPECT_EQ(engine.InpCurrent, 1);
    EXPECT_EQ(box(), bad);
    EXPECT_EQ(engine.InpValid, kFalse);
  }
  EXPECT_EQ(engine.caption(1).bytes(), "1");
}

TEST_F(InpModTest, AFormulaIsCompiledBehindTheRemainderOfItsKind) {
  open();
  engine.GoToField(3);
  type("x+y");
  engine.GoToField(1);
  EXPECT_THAT(compiled, ElementsAre("y@x,y,dx,dy@ @ @x+y"));
  EXPECT_EQ(engine.caption(3).bytes(), "x+y");
}

TEST_F(InpModTest, AFormulaWhoseKindHasNoRemainderIsCompiledAlone) {
  tables.InpFieldKinds[3] = "#Function";
  open();
  engine.GoToField(3);
  type("x+1");
  engine.GoToField(1);
  EXPECT_THAT(compiled, ElementsAre("x+1"));
}

TEST_F(InpModTest, NothingShownHasNoFields) {
  EXPECT_EQ(engine.fieldCount(), 0);
}

TEST_F(InpModTest, ABadFormulaShowsTheBoxAndThenBeepsThreeTimes) {
  // QUIRK: the text ends behind "di ", no field is named.
  open();
  engine.GoToField(3);
  compiles = false;
  dialogs.expectBox();
  engine.GoToField(1);
  EXPECT_EQ(dialogs.boxes.at(0), (ScriptedDialogs::Box{"VOR_KEL", "Errore nella Definizione di "}));
  EXPECT_EQ(sound.beeps, 3);
  EXPECT_EQ(engine.InpCurrent, 3);
  EXPECT_EQ(box(), "x");
}

TEST_F(InpModTest, OtherKindsAreNotTested) {
  for (const char* kind : {"#File", "#String", "", "Number"}) {
    tables.InpFieldKinds[1] = kind;
    open();
    type("??");
    engine.GoToField(2);
    EXPECT_EQ(engine.InpCurrent, 2) << kind;
    EXPECT_EQ(engine.caption(1).bytes(), "??");
  }
}

TEST_F(InpModTest, Target0ShowsAnEmptyTextOverFieldOneAndWhatIsTypedThereIsLost) {
  open();
  engine.GoToField(2);
  EXPECT_TRUE(engine.lostFocus());
  EXPECT_EQ(engine.InpCurrent, 0);
  EXPECT_EQ(box(), "");
  EXPECT_EQ(engine.editBox().place, editBoxOn(engine.layout().lblVal[1], engine.layout().cell));
  EXPECT_EQ(engine.caption(1).bytes(), "1");
  type("perso");
  engine.keyDown(kKeyEnter);
  EXPECT_EQ(engine.InpCurrent, 1);
  EXPECT_EQ(box(), "1");
  EXPECT_EQ(engine.caption(1).bytes(), "1");
}

TEST_F(InpModTest, ArrowUpFromTheTemplateGoesToTheLastField) {
  open();
  engine.GoToField(0);
  engine.keyDown(kKeyUp);
  EXPECT_EQ(engine.InpCurrent, 3);
}

TEST_F(InpModTest, LosingTheFocusOnABadFieldAsksForItBack) {
  open();
  type("abc");
  EXPECT_FALSE(engine.lostFocus());
  EXPECT_EQ(engine.InpCurrent, 1);
}

TEST_F(InpModTest, EseguiHandsTheContentsOver) {
  open();
  type("1e3");
  EXPECT_TRUE(engine.execute());
  EXPECT_EQ(engine.InpExecuted, kTrue);
  EXPECT_EQ(tables.InpValues[1].bytes(), "1000");
  EXPECT_EQ(tables.InpValues[2].bytes(), "  due ");
  EXPECT_EQ(tables.InpValues[3].bytes(), "x");
}

TEST_F(InpModTest, EseguiWithABadFieldLeavesEverythingAsItWas) {
  open();
  type("abc");
  EXPECT_FALSE(engine.execute());
  EXPECT_EQ(engine.InpExecuted, kFalse);
  EXPECT_EQ(tables.InpValues[1].bytes(), "1");
  EXPECT_EQ(box(), "abc");
}

TEST_F(InpModTest, ABadFieldThatIsGivenUpLeavesTheTables) {
  open();
  engine.GoToField(2);
  type("nuovo");
  engine.GoToField(1);
  type("abc");
  EXPECT_EQ(tables.InpValues[1].bytes(), "1");
  EXPECT_EQ(tables.InpValues[2].bytes(), "  due ");
}

TEST_F(InpModTest, AFormWithOneFieldValidatesItAndStays) {
  setFields({{"2", "#Number", {4, 10, -8}}});
  open();
  type("1e3");
  engine.keyDown(kKeyEnter);
  EXPECT_EQ(engine.InpCurrent, 1);
  EXPECT_EQ(box(), "1000");
  type("abc");
  engine.keyDown(kKeyUp);
  EXPECT_EQ(sound.beeps, 3);
  EXPECT_EQ(box(), "abc");
}

TEST_F(InpModTest, AFormWithoutFieldsHasNoBoxAndExecutes) {
  setFields({});
  open();
  EXPECT_FALSE(engine.editBox().visible);
  EXPECT_TRUE(engine.lostFocus());
  engine.keyDown(kKeyEnter);
  EXPECT_TRUE(engine.execute());
}

TEST_F(InpModTest, ANewShowingForgetsTheOneBefore) {
  open();
  engine.GoToField(0);
  type("vecchio");
  engine.GoToField(2);
  EXPECT_TRUE(engine.execute());
  open();
  engine.GoToField(0);
  EXPECT_EQ(box(), "");
  EXPECT_EQ(engine.InpExecuted, kFalse);
}

TEST_F(InpModTest, AFormTooWideFor16BitsIsARunTimeError) {
  tables.InpCols = 300;
  EXPECT_THROW(open(), RuntimeError);
}

}  // namespace
}  // namespace vk
