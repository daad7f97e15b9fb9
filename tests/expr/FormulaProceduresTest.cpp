#include "doubles/ScriptedDialogs.h"
#include "expr/CmpMod.h"
#include "expr/CompileHelp.h"

namespace vk {
namespace {

const ScriptedDialogs::Box kExhaustedBox{"D_X2", "Errori nel Calcolo della Funzione"};

struct FormulaProcedures : testing::Test {
  double run(const std::string& expression) {
    CompiledExpression compiled;
    Int16 flag;
    CompileExpression(session, "y@@@@" + expression, compiled, flag);
    EXPECT_EQ(flag, 0) << expression;
    loadSlots(compiled);
    return EvaluateCode(session, dialogs, compiled.Code, compiled.Slots);
  }

  Session session;
  ScriptedDialogs dialogs;
};

TEST_F(FormulaProcedures, ClearTheFlagOnEntry) {
  session.ErrFlag = 7;
  EXPECT_EQ(run("1+1"), 2);
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(run("LOG(-1)+5"), 4);
  EXPECT_EQ(session.ErrFlag, -1);
}

TEST_F(FormulaProcedures, ShowTheBoxOfTheGammaFunctionOnceInACommand) {
  dialogs.expectBox();
  EXPECT_EQ(run("C_X2(800,800)"), 800);
  EXPECT_EQ(session.ErrFlag, -1);
  EXPECT_EQ(run("C_X2(20004,20000)"), 20004);
  EXPECT_EQ(session.ErrFlag, -1) << "told by the flag all the same";
  session.GammaTold = kFalse;  // the next command
  dialogs.expectBox();
  run("C_X2(800,800)");
  EXPECT_EQ(dialogs.boxes, std::vector(2, kExhaustedBox));
}

TEST_F(FormulaProcedures, ShowNoBoxForTheBetaFunction) {
  EXPECT_EQ(run("C_F(1,200000,200000)"), 1);
  EXPECT_EQ(session.ErrFlag, -1);
}

TEST_F(FormulaProcedures, EvaluateTheFunctionOfTheSession) {
  session.analysis.fun.InnerIndex = 2;
  session.analysis.fun.OuterIndex = 3;
  session.analysis.par.ParCount = 2;
  session.analysis.par.ParValues.dim(2);
  session.analysis.par.ParValues[1] = 2;
  EXPECT_EQ(EvaluateFunction(session, dialogs, 0.25), 2);
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(EvaluateFunction(session, dialogs, 0), 0);
  EXPECT_EQ(session.ErrFlag, -1);
  const std::vector<double> x{0, 1, 0.25};
  std::vector<double> y(3);
  std::vector<Int16> flags(3, 7);
  evaluateFunctionAt(session, dialogs, x, y, flags);
  EXPECT_EQ(y, (std::vector<double>{0, 0.5, 2}));
  EXPECT_EQ(flags, (std::vector<Int16>{-1, 0, 0}));
  EXPECT_EQ(session.ErrFlag, 0) << "that of the last point";
}

TEST_F(FormulaProcedures, LeaveTheFlagAloneWithoutPoints) {
  session.ErrFlag = 7;
  evaluateFunctionAt(session, dialogs, {}, {});
  EXPECT_EQ(session.ErrFlag, 7);
}

}  // namespace
}  // namespace vk
