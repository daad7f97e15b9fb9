#include "grafile/NamedParameters.h"

#include "base/NumberText.h"
#include "doubles/ErrorOf.h"

namespace vk {
namespace {

class NamedParametersTest : public ::testing::Test {
 protected:
  /// The text that a field becomes; "?" in front when its name is unknown.
  std::string substituted(std::string field) {
    Int16 flag;
    SubstituteName(parameters, field, flag);
    return (flag == 0 ? "" : "?") + field;
  }
  std::string expression(std::string text) {
    Int16 flag;
    SubstituteExpression(parameters, text, flag);
    return (flag == 0 ? "" : "?") + text;
  }

  NamedParameters parameters;
};

TEST_F(NamedParametersTest, OnlyWhatIsADefinitionDefines) {
  DefineParameters(parameters, "a1=2.5, toolong=1, 9z=3, b=");
  EXPECT_EQ(parameters.ParamNames, "*   a1");
  EXPECT_EQ(parameters.ParamCount, 1);
  EXPECT_EQ(parameters.ParamValues[1], 2.5F);
}

TEST_F(NamedParametersTest, PiecesThatAreNoDefinitionAreIgnored) {
  DefineParameters(parameters, "");
  DefineParameters(parameters, " , a, =1, b=c, c=2*3, _d=1, e=1 2, f=--1");
  EXPECT_EQ(parameters.ParamNames, "");
  EXPECT_EQ(parameters.ParamCount, 0);
}

TEST_F(NamedParametersTest, KeysHaveSixCharacters) {
  DefineParameters(parameters, " nDivX = 10 ,Xi=-1E2, z=.5");
  EXPECT_EQ(parameters.ParamNames, "*nDivX*   Xi*    z");
  EXPECT_EQ(parameters.ParamCount, 3);
  EXPECT_EQ(parameters.ParamValues[2], -100.0F);
}

TEST_F(NamedParametersTest, ANewDefinitionReplacesTheOld) {
  DefineParameters(parameters, "a=1,b=2,a=3");
  EXPECT_EQ(parameters.ParamCount, 2);
  EXPECT_EQ(parameters.ParamValues[1], 3.0F);
  EXPECT_EQ(substituted("a"), "3");
}

TEST_F(NamedParametersTest, ValuesAreSinglesAndComeBackWithSevenDigits) {
  DefineParameter(parameters, "a=0.1234567891");
  EXPECT_EQ(substituted("a"), ".1234568");
  DefineParameter(parameters, "b=123456789");
  EXPECT_EQ(substituted("b"), "123456800");
  DefineParameter(parameters, "c=1E-20");
  EXPECT_EQ(substituted("c"), "1E-20");
}

TEST_F(NamedParametersTest, TheDoublesStandBesideTheSingles) {
  DefineParameters(parameters, "a=0.1234567891,b=1700000123.5,b=1700000124.5");
  EXPECT_EQ(parameters.ParamDoubles[1], .1234567891);
  EXPECT_EQ(parameters.ParamDoubles[2], 1700000124.5);
  EXPECT_EQ(parameters.ParamValues[2], 1700000124.5F);
  Int16 flag;
  std::string field = "-b", expression = "a*x-b";
  SubstituteName(parameters, field, flag, Precision::kDouble);
  SubstituteExpression(parameters, expression, flag, Precision::kDouble);
  EXPECT_EQ(field, "-1700000124.5");
  EXPECT_EQ(expression, ".1234567891*x-1700000124.5");
  EXPECT_EQ(flag, 0);
}

TEST_F(NamedParametersTest, AValueBeyondSinglePrecisionIsAnOverflowAndDefinesNothing) {
  EXPECT_EQ(errorOf([&] { DefineParameters(parameters, "a=1,b=1E300"); }), kOverflow);
  EXPECT_EQ(parameters.ParamCount, 1);
}

TEST_F(NamedParametersTest, NumbersAndXAndTheEmptyFieldStay) {
  for (const char* field : {"12", "-1.5E3", ".5", "x", ""}) EXPECT_EQ(substituted(field), field);
  EXPECT_EQ(substituted("  7 "), "7");
}

TEST_F(NamedParametersTest, ANameMayHaveAMinusAndKeepsItsCase) {
  DefineParameters(parameters, "a1=2.5,n=-4");
  EXPECT_EQ(substituted(" a1 "), "2.5");
  EXPECT_EQ(substituted("-a1"), "-2.5");
  EXPECT_EQ(substituted("-n"), "4");
  EXPECT_EQ(substituted("A1"), "?A1");
  EXPECT_EQ(substituted("-A1"), "?-A1");
  EXPECT_EQ(substituted("X"), "?X");
  EXPECT_EQ(substituted("3cm"), "?3cm");
  EXPECT_EQ(substituted("-"), "?-");
}

TEST_F(NamedParametersTest, ExpressionsKeepFunctionsAndX) {
  DefineParameters(parameters, "a1=2.5,n=-4");
  EXPECT_EQ(expression("a1*x+SIN(x)"), "2.5*x+SIN(x)");
  EXPECT_EQ(expression("n*x"), "(-4)*x");
  EXPECT_EQ(expression(" a1 * sin( n , x ) ^ 2 "), "2.5*sin((-4),x)^2");
  EXPECT_EQ(expression("-(a1/n-x)"), "-(2.5/(-4)-x)");
  EXPECT_EQ(expression("x"), "x");
  EXPECT_EQ(expression("a1"), "2.5");
  EXPECT_EQ(expression(""), "");
  EXPECT_EQ(expression("3"), "3");
}

TEST_F(NamedParametersTest, AFunctionMayBearTheNameOfAParameter) {
  DefineParameters(parameters, "A=3,P=.5");
  EXPECT_EQ(expression("A*A(x)+P*P(x)"), "3*A(x)+.5*P(x)");
}

TEST_F(NamedParametersTest, UnknownNamesInExpressionsStayAndSetTheFlag) {
  EXPECT_EQ(expression("q*x+1"), "?q*x+1");
  EXPECT_EQ(expression("X"), "?X");
}

TEST_F(NamedParametersTest, TheExponentBelongsToItsNumber) {
  DefineParameters(parameters, "E=9,E5=7");
  for (const char* text : {"1E-3*x", "2.5E5+x", "x*1e+3", ".5E2"}) EXPECT_EQ(expression(text), text);
  EXPECT_EQ(expression("2*E5+E"), "2*7+9");
  EXPECT_EQ(expression("2E+x"), "29+x");
}

class ParseFieldsTest : public NamedParametersTest {
 protected:
  void parse(const std::string& text, int numericCount, int integerCount) {
    flag = 0;
    ParseFields(parameters, text, numbers, integers, rest, numericCount, integerCount, flag);
  }

  Array<double> numbers{5};
  Array<Int16> integers{5};
  std::string rest;
  Int16 flag;
};

TEST_F(ParseFieldsTest, TakesNumbersThenIntegersThenTheRest) {
  DefineParameters(parameters, "a=2.5");
  parse("1, -a ,3, 4, two, (and) more ", 2, 2);
  EXPECT_EQ(numbers[1], 1);
  EXPECT_EQ(numbers[2], -2.5);
  EXPECT_EQ(integers[1], 3);
  EXPECT_EQ(integers[2], 4);
  EXPECT_EQ(rest, " two, (and) more ");
  EXPECT_EQ(flag, 0);
}

TEST_F(ParseFieldsTest, GivesTheDoublesOfParametersBesideTheirSingles) {
  DefineParameters(parameters, "a=1700000123.5");
  Array<double> doubles(5);
  ParseFields(parameters, "a,-a,.1234567891,b", numbers, integers, rest, 3, 0, flag, &doubles);
  EXPECT_EQ(numbers[1], 1700000000);
  EXPECT_EQ(numbers[3], .1234567891);
  EXPECT_EQ(doubles[1], 1700000123.5);
  EXPECT_EQ(doubles[2], -1700000123.5);
  EXPECT_EQ(doubles[3], .1234567891);
  EXPECT_EQ(rest, "b");
  EXPECT_EQ(flag, 0);
}

TEST_F(ParseFieldsTest, MissingAndEmptyFieldsAndXAreZero) {
  numbers[1] = numbers[2] = numbers[3] = 9;
  integers[1] = 9;
  parse("x,,", 3, 1);
  EXPECT_EQ(numbers[1], 0);
  EXPECT_EQ(numbers[2], 0);
  EXPECT_EQ(numbers[3], 0);
  EXPECT_EQ(integers[1], 0);
  EXPECT_EQ(rest, "");
  EXPECT_EQ(flag, 0);
  parse("", 2, 1);
  EXPECT_EQ(flag, 0);
}

TEST_F(ParseFieldsTest, IntegersAreRoundedHalfToEven) {
  parse("0.5,1.5,2.5,-2.5,-0.6", 0, 5);
  EXPECT_EQ(integers[1], 0);
  EXPECT_EQ(integers[2], 2);
  EXPECT_EQ(integers[3], 2);
  EXPECT_EQ(integers[4], -2);
  EXPECT_EQ(integers[5], -1);
  EXPECT_EQ(errorOf([&] { parse("40000", 0, 1); }), kOverflow);
}

TEST_F(ParseFieldsTest, AnUnknownNameSetsTheFlag) {
  parse("1,q,2", 3, 0);
  EXPECT_EQ(flag, -1);
  parse("1,2,q", 2, 0);
  EXPECT_EQ(flag, 0);
  EXPECT_EQ(rest, "q");
}

TEST_F(ParseFieldsTest, AFlagThatIsSetStaysSet) {
  flag = 5;
  ParseFields(parameters, "1", numbers, integers, rest, 1, 0, flag);
  EXPECT_EQ(flag, 5);
}

TEST_F(NamedParametersTest, AKeyAcrossTwoNamesStandsForTheFirst) {
  DefineParameters(parameters, "x*b=7,abcde=8");
  EXPECT_EQ(substituted("b*abc"), "7");
  EXPECT_EQ(substituted("abcde"), "8");
  EXPECT_EQ(substituted("b"), "?b");
}

// Looking through all names for each one would not come to its end.
TEST_F(NamedParametersTest, AnyNumberOfDefinitionsIsRead) {
  constexpr int kNames = 32767, kDefinitions = 1000000;
  const auto nameOf = [](int i) {
    std::string name = "n";
    for (int divisor = 17576; divisor > 0; divisor /= 26) name += static_cast<char>('a' + i / divisor % 26);
    return name;
  };
  std::string line;
  for (int i = 0; i < kNames; ++i) line += nameOf(i) + "=" + std::to_string(i) + ",";
  const std::string last = nameOf(kNames - 1);
  for (int i = kNames; i < kDefinitions; ++i) line += last + "=1,";
  DefineParameters(parameters, line + last + "=2");
  EXPECT_EQ(parameters.ParamCount, kNames);
  EXPECT_EQ(substituted(nameOf(kNames - 2)), "32765");
  EXPECT_EQ(substituted(last), "2");
}

}  // namespace
}  // namespace vk
