#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "base/CodePage.h"
#include "expr/CompositeFunction.h"
#include "expr/FunctionFile.h"
#include "expr/Model.h"
#include "fuzz/DefinitionProbe.h"
#include "fuzz/Input.h"

namespace vk {
namespace {

using Entry = FunctionFile::Entry;

/// A record as a file has it, in UTF-8 for code page 437.
std::string recordLine(const std::string& record) {
  std::string line;
  for (const char c : record) {
    const auto byte = static_cast<unsigned char>(c);
    appendUtf8(line, byte < 0x80 ? byte : toUnicode(c, CodePage::kCp437));
  }
  return line + "\r\n";
}

/// True for a record that stands by itself on a line: blanks at its ends are left out there, a sign of comments at its
/// start makes it one, and a line end that two joined lines make in it divides it.
bool isLine(const std::string& record) {
  return !record.empty() && record.front() != ' ' && record.back() != ' ' && record.front() != '%' &&
         record.front() != '#' && record.find("\r\n") == std::string::npos;
}

bool areEqual(const std::vector<Entry>& one, const std::vector<Entry>& other) {
  const auto same = [](const Entry& a, const Entry& b) {
    return a.parameters == b.parameters && a.definition == b.definition && a.description == b.description;
  };
  return std::ranges::equal(one, other, same);
}

void probeWritten(const ParsedFunctionFile& parsed) {
  std::string text;
  for (const Entry& entry : parsed.file.entries) {
    for (const std::string* record : {&entry.parameters, &entry.definition, &entry.description}) {
      if (!isLine(*record)) return;
      text += recordLine(*record);
    }
  }
  const ParsedFunctionFile back = parseFunctionFile(text, {.compile = false, .trace = false});
  require((back.ok || !parsed.ok) && areEqual(back.file.entries, parsed.file.entries), "the same functions");
}

/// Each function as the inner one of the model, at points that are numbers: no reader gives others.
void probeModel(const Entry& entry, int outer, const std::vector<double>& points) {
  Model model(kLastPlainInner + 1, outer, entry.code);
  Array<double> parameters(entry.code.nPar + 2);
  for (int i = 1; i <= parameters.upper(); ++i)
    parameters[i] = points[static_cast<std::size_t>(i) % points.size()];
  NoListener nobody;
  std::vector<double> block(points.size());
  std::vector<Fault> faults(points.size());
  model.at(points, parameters, block, nobody, faults);
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Evaluation single = model.at(points[i], parameters, nobody);
    require(isSame(block[i], single.value) && faults[i] == single.fault, "the block form of the model");
  }
}

std::vector<double> pointsOf(Input& input) {
  std::vector<double> points(1 + input.choice(5));
  for (double& point : points) point = input.number();
  // Long columns are run in blocks.
  if (input.choice(64) == 1) {
    points.reserve(300);
    for (std::size_t i = 0; points.size() < points.capacity(); ++i) points.push_back(points[i]);
  }
  return points;
}

}  // namespace

void probe(Input input) {
  const FunctionFileChecks checks{input.choice(2) == 0, input.choice(2) == 0};
  const int outer = 1 + static_cast<int>(input.choice(9));
  const std::vector<double> points = pointsOf(input);
  const std::string_view text = input.rest();
  const ParsedFunctionFile parsed = parseFunctionFile(text), quick = parseFunctionFile(text, checks);
  require(!parsed.ok || !parsed.file.entries.empty(), "a function in a good file");
  require(parsed.report.empty() || parsed.report.ends_with("\r\n"), "a report in lines");
  require(areEqual(parsed.file.entries, quick.file.entries), "the same functions however closely looked at");
  require(checks.compile ? quick.ok == parsed.ok : quick.ok || !parsed.ok, "no error from looking less");
  require(parsed.doubtful.size() <= parsed.file.entries.size(), "doubts on functions only");
  probeWritten(parsed);
  const bool finite = std::ranges::all_of(points, [](double x) { return std::isfinite(x); });
  for (const Entry& entry : parsed.file.entries) {
    const bool compiles =
        DefinitionProbe(points).probe(functionDefinition(entry.parameters, entry.definition));
    require(compiles == !entry.code.Code.empty() && (compiles || !parsed.ok), "one compiler");
    if (compiles && finite) probeModel(entry, outer, points);
  }
}

}  // namespace vk
