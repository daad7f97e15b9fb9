#include "expr/CompileHelp.h"

namespace vk {
namespace {

TEST(Lister, TellsBytesInstructionsAndValues) {
  EXPECT_EQ(listCode(compiled("y@x@A@G/9.8@A*SIN(x)+SUM(G,2,x)").expression),
            "code 17 1 1 | 23 3 2 3 4 | 2 0 1 | 4 0 2 | 108 1 0\n"
            "map 2 1 3 4 1\n"
            "LastSlot 4\n"
            "s1 = SIN(s1)\n"
            "s2 = SUM(s2,s3,s4)\n"
            "s0 = s0 * s1\n"
            "s0 = s0 + s2\n"
            "s0 = value(s0)\n"
            "v1 variable\n"
            "v2 parameter\n"
            "v3 = 9.8\n"
            "v4 = 2\n");
}

TEST(Lister, TellsOfCodeThatIsNotThereOrNotOurs) {
  EXPECT_EQ(listCode(CompiledExpression()), "code\nmap\nLastSlot -1\n");
  CompiledExpression foreign;
  foreign.Code = {7, 1, 2, 77, 1, 3, 109, 2, 4};
  EXPECT_EQ(listCode(foreign),
            "code 7 1 2 | 77 1 3 | 109 2 4 0\nmap\nLastSlot -1\n"
            "s1 = s1 ? s2\n"
            "s3 = ?(s3)\n"
            "s4 = negate(s4,s0)\n");
}

}  // namespace
}  // namespace vk
