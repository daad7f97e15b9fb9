#include "commands/ExhaustedBox.h"

#include <optional>

#include "doubles/EvaluateFunction.h"
#include "doubles/ScriptedDialogs.h"
#include "expr/Compiler.h"

namespace vk {
namespace {

const ScriptedDialogs::Box kExhaustedBox{"D_X2", "Errori nel Calcolo della Funzione"};

struct ExhaustedBoxTest : testing::Test {
  /// The value of a formula as the session's function.
  double run(const std::string& formula) {
    session.analysis.model = Model(6, 1, compile("y@x@@ @" + formula).code);
    return EvaluateFunction(session, *box, 0);
  }

  Session session;
  ScriptedDialogs dialogs;
  std::optional<ExhaustedBox> box{std::in_place, dialogs};
};

TEST_F(ExhaustedBoxTest, ClearTheFlagOnEntry) {
  session.ErrFlag = 7;
  EXPECT_EQ(run("1+1"), 2);
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(run("LOG(-1)+5"), 4);
  EXPECT_EQ(session.ErrFlag, -1);
}

TEST_F(ExhaustedBoxTest, ShowTheBoxOfTheGammaFunctionOnceInACommand) {
  dialogs.expectBox();
  EXPECT_EQ(run("C_X2(800,800)"), 800);
  EXPECT_EQ(session.ErrFlag, -1);
  EXPECT_EQ(run("C_X2(20004,20000)"), 20004);
  EXPECT_EQ(session.ErrFlag, -1) << "told by the flag all the same";
  box.emplace(dialogs);  // the next command
  dialogs.expectBox();
  run("C_X2(800,800)");
  EXPECT_EQ(dialogs.boxes, std::vector(2, kExhaustedBox));
}

TEST_F(ExhaustedBoxTest, ShowNoBoxForTheBetaFunction) {
  EXPECT_EQ(run("C_F(1,200000,200000)"), 1);
  EXPECT_EQ(session.ErrFlag, -1);
}

TEST_F(ExhaustedBoxTest, EvaluateTheFunctionOfTheSession) {
  session.analysis.model = Model(2, 3);
  session.analysis.par.ParValues.dim(2);
  session.analysis.par.ParValues[1] = 2;
  EXPECT_EQ(EvaluateFunction(session, dialogs, 0.25), 2);
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(EvaluateFunction(session, dialogs, 0), 0);
  EXPECT_EQ(session.ErrFlag, -1);
}

}  // namespace
}  // namespace vk
