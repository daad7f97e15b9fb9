#include <algorithm>
#include <iterator>

#include "base/Text.h"
#include "expr/FormulaAdvice.h"
#include "expr/FormulaText.h"

namespace vk {
namespace {

constexpr const char* kNotCompiled = "la formula NON si compila";

/// What is at fault: the whole name where it is one of the lists.
std::string culpritOf(const std::string& definition, const CompileFault& fault) {
  constexpr const char* kSeparators = " ,@/";
  const auto at = static_cast<std::size_t>(fault.first);
  if (!isOfNames(fault.kind)) return definition.substr(at, static_cast<std::size_t>(fault.length));
  const std::size_t begin = definition.find_last_of(kSeparators, at) + 1;
  return definition.substr(begin, definition.find_first_of(kSeparators, begin) - begin);
}

/// A definition as the advice needs it.
struct DefinitionParts {
  std::string formula;
  int first = 0;  ///< character of the definition where the formula begins
  std::vector<std::string> names;
};

DefinitionParts partsOf(const std::string& definition) {
  constexpr int kNameFields = 4;  // the result's among them, which no formula can use
  DefinitionParts parts;
  std::size_t begin = 0;
  for (int field = 0; field < kNameFields; ++field) {
    const std::size_t mark = std::min(definition.find('@', begin), definition.size());
    const std::string list = StripBlanks(definition.substr(begin, mark - begin));
    if (field > 0)
      std::ranges::copy(splitItems(list.substr(0, list.find('/'))), std::back_inserter(parts.names));
    begin = std::min(mark + 1, definition.size());
  }
  begin = std::min(definition.find_first_not_of(' ', begin), definition.size());
  parts.formula = trimRight(definition.substr(begin));
  parts.first = static_cast<int>(begin);
  return parts;
}

}  // namespace

std::string adviceLines(const std::string& definition, const Compilation& compiled) {
  const DefinitionParts parts = partsOf(definition);
  std::vector<FormulaAdvice> advice = adviseOn(parts.formula, parts.names);
  if (advice.empty()) {
    for (const CompileFault& fault : compiled.faults) {
      if (isOfNames(fault.kind)) continue;
      advice.push_back(
          {AdviceKind::kRefused, std::max(fault.first - parts.first, 0), faultText(definition, fault)});
    }
  }
  return adviceLines(parts.formula, advice);
}

std::string faultText(const std::string& definition, const CompileFault& fault) {
  if (fault.text.empty()) return kNotCompiled;
  const std::string culprit = culpritOf(definition, fault);
  // The report has no blank behind some names.
  if (culprit.empty() || !fault.text.starts_with(culprit)) return fault.text;
  return "\"" + culprit + "\": " + trim(fault.text.substr(culprit.size()));
}

}  // namespace vk
