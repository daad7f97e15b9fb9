#include "tabulo/Calculator.h"

namespace vk {
namespace {

using ::testing::HasSubstr;

TEST(Calculator, CalculatesAFormula) {
  Calculator calculator;
  EXPECT_TRUE(calculator.enter(" 2*(3+4) "));
  ASSERT_EQ(calculator.history().size(), 1U);
  EXPECT_EQ(calculator.history()[0].line, "2*(3+4)");
  EXPECT_EQ(calculator.history()[0].result, "14");
  EXPECT_EQ(calculator.error(), "");
}

TEST(Calculator, NamesAValueAndUsesIt) {
  Calculator calculator;
  EXPECT_TRUE(calculator.enter("A=2.5"));
  EXPECT_TRUE(calculator.enter("B = A*2"));
  EXPECT_TRUE(calculator.enter("A+B"));
  EXPECT_EQ(calculator.history().back().result, "7.5");
  EXPECT_EQ(calculator.values(), (std::vector<Calculator::NamedValue>{{"A", 2.5}, {"B", 5}}));
}

TEST(Calculator, ANewValueReplacesTheOldOneInItsPlace) {
  Calculator calculator;
  calculator.enter("A=1");
  calculator.enter("B=2");
  calculator.enter("A=A+10");
  EXPECT_EQ(calculator.values(), (std::vector<Calculator::NamedValue>{{"A", 11}, {"B", 2}}));
}

TEST(Calculator, KeepsTheLastResult) {
  Calculator calculator;
  EXPECT_FALSE(calculator.enter("ris+1"));
  EXPECT_TRUE(calculator.enter("3"));
  EXPECT_TRUE(calculator.enter("ris^2"));
  EXPECT_EQ(calculator.history().back().result, "9");
  EXPECT_FALSE(calculator.enter("ris=4"));
}

TEST(Calculator, AWrongLineChangesNothingButTheError) {
  Calculator calculator;
  calculator.enter("A=1");
  for (const char* line :
       {"", "  ", "A+", "q*2", "(1", "SIN(1,2)", "LOG(-1)", "1/0", "1A=2", "=3", "ABCDE=1", "A B=1", "A="}) {
    EXPECT_FALSE(calculator.enter(line)) << line;
    EXPECT_NE(calculator.error(), "") << line;
  }
  EXPECT_EQ(calculator.history().size(), 1U);
  EXPECT_EQ(calculator.values().size(), 1U);
}

TEST(Calculator, TellsWhatIsWrong) {
  Calculator calculator;
  calculator.enter("q*2");
  EXPECT_EQ(calculator.error(), "Variabile q NON definita");
  calculator.enter("(1");
  EXPECT_THAT(calculator.error(), HasSubstr("Parentesi Aperte"));
  calculator.enter("SIN(1,2)");
  EXPECT_EQ(calculator.error(), "Numero di Argomenti Errato");
  calculator.enter("D_X2");
  EXPECT_EQ(calculator.error(), "Variabile D_X2 NON definita");
  calculator.enter("C_X2(800,800)");
  EXPECT_EQ(calculator.error(), "D_X2: Errori nel Calcolo della Funzione");
}

TEST(Calculator, AGoodLineTakesTheErrorAway) {
  Calculator calculator;
  calculator.enter("1/0");
  calculator.enter("1/2");
  EXPECT_EQ(calculator.error(), "");
}

TEST(Calculator, ForgetsEverythingWhenCleared) {
  Calculator calculator;
  calculator.enter("A=1");
  calculator.clear();
  EXPECT_TRUE(calculator.history().empty());
  EXPECT_TRUE(calculator.values().empty());
  EXPECT_FALSE(calculator.enter("ris"));
}

}  // namespace
}  // namespace vk
