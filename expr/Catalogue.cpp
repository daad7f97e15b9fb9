#include "expr/Catalogue.h"

#include <algorithm>

#include "base/Text.h"
#include "expr/FormulaText.h"

namespace vk {
namespace {

constexpr int kShownLength = 60;
constexpr int kShownPart = 28;

// The outer functions that the rules of the texts name.
constexpr int kReciprocal = 3;
constexpr int kFirstWithoutOwnParentheses = 2;
constexpr int kLastWithoutOwnParentheses = 5;

const CatalogueEntry& entryAt(const std::vector<CatalogueEntry>& list, int index) {
  static const CatalogueEntry none;
  return index >= 1 && index <= static_cast<int>(list.size()) ? list[static_cast<std::size_t>(index - 1)]
                                                              : none;
}

/// f[g] where both are divisions: g's denominator moves up.
std::string flattened(const std::string& f, int slashF, const std::string& g, int slashG, int outer) {
  const std::string numerator = outer == kReciprocal ? "" : left(f, slashF - 1);
  return numerator + mid(g, slashG + 1) + "/" + left(g, slashG - 1);
}

std::string inserted(const std::string& f, std::string g, int outer, int inner) {
  const bool bare = outer >= kFirstWithoutOwnParentheses && outer <= kLastWithoutOwnParentheses;
  if (bare && inner >= 2) g = "(" + g + ")";
  const int mark = position(f, "u");
  return left(f, mark - 1) + g + mid(f, mark + 1);
}

/// The comma list of a file as a table of right-aligned names.
std::string nameField(const std::string& list) {
  std::string field;
  for (const std::string& item : splitItems(StripBlanks(list))) {
    const std::string name = left(item, kNameSlot);
    field += repeat(kNameSlot - length(name), ' ') + name;
  }
  return field;
}

/// Makes room in the full list by dropping the oldest loaded function; true when it was the chosen one.
bool dropOldest(Catalogue& catalogue, FunctionDef& fun) {
  catalogue.inner.erase(catalogue.inner.begin() + kBuiltInInner);
  if (fun.InnerIndex <= kBuiltInInner) return false;
  fun.InnerIndex -= 1;
  if (fun.InnerIndex != kBuiltInInner) return false;
  fun.InnerIndex = 0;
  fun.OuterIndex = 0;
  return true;
}

constexpr const char* kVariableNames = "    y    x";

template <class Entry>
const Entry& chosen(const std::vector<Entry>& list, int index) {
  if (index < 1 || index > static_cast<int>(list.size())) throw RuntimeError(kIndexOutOfRange);
  return list[static_cast<std::size_t>(index - 1)];
}

}  // namespace

void BuildCatalogue(Catalogue& catalogue) {
  // \xFD is the square and \xFB the root in code page 437.
  catalogue.inner = {
      {"c", "c", "    c"},
      {"bx+c", "b*x+c", "    b    c"},
      {"ax\xFD+bx+c", "a*x*x+b*x+c", "    a    b    c"},
      {"[(x-m)\xFD+a]/b", "((x-m)^2+a)/b", "    m    a    b"},
      {"a/[(x\xFD-m\xFD)\xFD+b\xFDx\xFD]", "a/((x*x-m*m)^2+(b*x)^2)", "    a    m    b"},
  };
  catalogue.outer = {
      {"u", "T", ""},
      {"u\xFD", "(T)^2", ""},
      {"1/u", "1/(T)", ""},
      {"\xFBu", "SQR(T)", ""},
      {"(x+A)/u", "(x+A)/(T)", "    A"},
      {"A ln(u)", "A*LOG(T)", "    A"},
      {"A exp(u)", "A*EXP(T)", "    A"},
      {"A sin(u)", "A*SIN(T)", "    A"},
      {"A exp[-Bx] sin(u)", "A*EXP(-B*x)*SIN(T)", "    A    B"},
  };
}

std::string compositeText(const Catalogue& catalogue, const FunctionDef& fun) {
  const int inner = fun.InnerIndex;
  const int outer = fun.OuterIndex;
  const std::string& f = entryAt(catalogue.outer, outer).display;
  const std::string& g = entryAt(catalogue.inner, inner).display;
  const int slashF = position(f, "/");
  const int slashG = position(g, "/");
  const bool twoDivisions = slashF > 0 && slashG > 0;
  return " y = " + (twoDivisions ? flattened(f, slashF, g, slashG, outer) : inserted(f, g, outer, inner)) +
         " ";
}

std::string shownCompositeText(const std::string& text) {
  return length(text) <= kShownLength ? text : left(text, kShownPart) + "..." + right(text, kShownPart);
}

std::string ComposeFunctionText(const Catalogue& catalogue, const FunctionDef& fun) {
  const std::string& g = entryAt(catalogue.inner, fun.InnerIndex).machine;
  std::string text = entryAt(catalogue.outer, fun.OuterIndex).machine;
  const auto mark = text.find(kInnerMark);
  if (mark == std::string::npos) return StripBlanks(g);
  return StripBlanks(text.replace(mark, 1, g));
}

ChosenFunction chosenFunction(const Catalogue& catalogue, const FunctionDef& fun) {
  const CatalogueEntry& g = chosen(catalogue.inner, fun.InnerIndex);
  const CatalogueEntry& f = chosen(catalogue.outer, fun.OuterIndex);
  ChosenFunction result;
  result.names = kVariableNames + g.names + f.names;
  result.text = compositeText(catalogue, fun);
  result.model = Model(fun.InnerIndex, fun.OuterIndex, g.code);
  return result;
}

CatalogueEntry innerEntry(const FunctionFile::Entry& entry) {
  return {entry.description, entry.definition, nameField(entry.parameters), entry.code};
}

bool loadFunction(Catalogue& catalogue, FunctionDef& fun, int index) {
  const FunctionFile::Entry& entry = chosen(catalogue.file.entries, index);
  const bool full = static_cast<int>(catalogue.inner.size()) >= kMostInner;
  const bool lost = full && dropOldest(catalogue, fun);
  catalogue.inner.push_back(innerEntry(entry));
  return lost;
}

bool dropLoadedFunctions(Catalogue& catalogue, FunctionDef& fun) {
  if (static_cast<int>(catalogue.inner.size()) > kBuiltInInner) catalogue.inner.resize(kBuiltInInner);
  if (fun.InnerIndex <= kBuiltInInner) return false;
  fun.InnerIndex = 1;
  return true;
}

}  // namespace vk
