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

}  // namespace
}  // namespace vk
