#include "base/Text.h"
#include "expr/Opcodes.h"

namespace vk {
namespace {

TEST(Opcodes, KeepNamesAndAritiesInTheirOrder) {
  std::string names;
  for (int i = 0; i < kFunctionCount; ++i) {
    const std::string name(functionOf(i).name);
    names += repeat(5 - length(name), ' ') + name;
  }
  EXPECT_EQ(
      names,
      "  ABS  SQR  EXP  LOG ASIN ACOS ATAN  SIN  COS  TAN  SGNLNGAM  GAM  SUM  AVG  STD  D_B  C_B  D_P  C_P"
      "  D_N  C_N D_X2 C_X2  D_T  C_T  D_F  C_F    P    Q    A  INT");
  EXPECT_EQ(arityDigits(), "11111111111110003322332222331111");
}

TEST(Opcodes, HaveOneRowForEachNumber) {
  for (int opcode = 0; opcode < 256; ++opcode) {
    const bool known =
        (opcode >= 1 && opcode <= 5) || (opcode >= 10 && opcode <= 41) || opcode == 108 || opcode == 109;
    EXPECT_EQ(operationOf(opcode).opcode, known ? opcode : -1);
    EXPECT_EQ(kKinds[static_cast<std::size_t>(opcode)], operationOf(opcode).kind);
  }
}

}  // namespace
}  // namespace vk
