#include <gmock/gmock.h>

#include "expr/Compiler.h"
#include "expr/FunctionFile.h"

namespace vk {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(ParseFunctionFile, GivesTheFunctionsOfATextWithTheReportOnThem) {
  const ParsedFunctionFile parsed = parseFunctionFile("% a comment\nA,B\nA*SIN(x)+&\nB\nonda\n");
  EXPECT_TRUE(parsed.ok);
  ASSERT_EQ(parsed.file.entries.size(), 1U);
  EXPECT_EQ(parsed.file.entries[0].definition, "A*SIN(x)+B");
  EXPECT_EQ(parsed.file.DescriptionWidth, 4);
  EXPECT_THAT(parsed.report,
              HasSubstr("Controllo Funzione:\r\n" + compile("y@x@A,B@ @A*SIN(x)+B").report + "O.K.\r\n"));
}

TEST(ParseFunctionFile, TakesTextsInUtf8AsThoseOfItsListsAndReports) {
  const ParsedFunctionFile utf8 = parseFunctionFile("\xEF\xBB\xBF% È\na\na*x\nVelocità (µm²), È λ\n");
  ASSERT_EQ(utf8.file.entries.size(), 1U);
  EXPECT_TRUE(utf8.ok);
  EXPECT_EQ(utf8.file.entries[0].description, "Velocit\x85 (\xE6m\xFD), E` ?");
  EXPECT_EQ(utf8.file.DescriptionWidth, 20);
  EXPECT_THAT(utf8.report, HasSubstr("Descrizione: Velocit\x85 (\xE6m\xFD), E` ?\r\n"));
  const ParsedFunctionFile old = parseFunctionFile("a\na*x\nVelocità \x85\n");
  EXPECT_EQ(old.file.entries[0].description, "Velocità \x85");
}

TEST(ParseFunctionFile, GivesTheFunctionsOfAFileWithErrorsAsWell) {
  const ParsedFunctionFile parsed = parseFunctionFile("A\nA*C\nprima\nB\n");
  EXPECT_FALSE(parsed.ok);
  EXPECT_EQ(parsed.file.entries.size(), 1U);
  EXPECT_THAT(parsed.report, HasSubstr("* ERR. Variabile C NON definita"));
}

TEST(ParseFunctionFile, CompilesAndTracesOnlyWhenAsked) {
  const std::string text = "A\nA*C\nprima\n";
  const ParsedFunctionFile unchecked = parseFunctionFile(text, {.compile = false, .trace = false});
  EXPECT_TRUE(unchecked.ok);
  EXPECT_EQ(unchecked.report, "");
  const ParsedFunctionFile untraced = parseFunctionFile(text, {.compile = true, .trace = false});
  EXPECT_FALSE(untraced.ok);
  EXPECT_THAT(untraced.report, Not(HasSubstr("Variabile")));
  EXPECT_THAT(untraced.report, HasSubstr("* ERR. Errori nella Compilazione\r\n"));
}

TEST(ParseFunctionFile, TellsFunctionsThatPassInASenseThatNobodyMeans) {
  const ParsedFunctionFile parsed = parseFunctionFile(
      "# two good ones and two doubtful ones\n"
      "a, b\n\n  a*x+b\nretta\n"
      "a\na*x+&\n  2a+2,5\ndue\n"
      "a\na*SIN(x)\nonda\n"
      "a\n  a*3A\nquattro\n");
  EXPECT_TRUE(parsed.ok);
  ASSERT_EQ(parsed.doubtful.size(), 2U);
  EXPECT_EQ(parsed.doubtful[0].number, 2);
  EXPECT_EQ(parsed.doubtful[0].line, 8);
  EXPECT_EQ(parsed.doubtful[0].text,
            "a*x+2a+2,5\r\n"
            "    ^ \"2a\" non e` un numero: forse 2*a\r\n"
            "        ^ la virgola separa solo gli argomenti di una funzione: forse 2.5\r\n");
  EXPECT_EQ(parsed.doubtful[1].number, 4);
  EXPECT_EQ(parsed.doubtful[1].line, 14);
}

TEST(ParseFunctionFile, DoubtsOnlyWhatItHasCompiled) {
  const std::string text = "a\n2a\nprima\na\n2a+q\nseconda\n";
  EXPECT_EQ(parseFunctionFile(text, {.compile = false}).doubtful.size(), 0U);
  EXPECT_EQ(parseFunctionFile(text).doubtful.size(), 1U);
}

}  // namespace
}  // namespace vk
