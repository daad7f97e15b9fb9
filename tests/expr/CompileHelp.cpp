#include "expr/CompileHelp.h"

namespace vk {

std::vector<std::string> reportLines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t begin = 0;
  for (std::size_t end; (end = text.find("\r\n", begin)) != std::string::npos; begin = end + 2) {
    lines.push_back(text.substr(begin, end - begin));
  }
  EXPECT_EQ(begin, text.size()) << "the last line has no CR LF: " << text;
  return lines;
}

Compiled compiled(const std::string& definition) {
  Compilation result = compile(definition);
  EXPECT_EQ(result.ok, result.faults.empty()) << definition;
  return {std::move(result.code), result.faults, toFlag(!result.ok), reportLines(result.report)};
}

std::string codeOf(const std::string& definition) {
  const Compiled result = compiled(definition);
  if (result.flag != 0) {
    EXPECT_EQ(result.expression.Code, "") << "code after a failure: " << definition;
    return "failed";
  }
  const std::string listing = listCode(result.expression);
  const std::size_t code = listing.find('\n');
  const std::size_t map = listing.find('\n', code + 1);
  const std::size_t last = listing.find('\n', map + 1);
  return listing.substr(0, code) + "; " + listing.substr(code + 1, map - code - 1) + "; " +
         listing.substr(map + 1, last - map - 1);
}

bool compiles(const std::string& definition) {
  return codeOf(definition) != "failed";
}

}  // namespace vk
