#include <algorithm>

#include "base/Text.h"
#include "expr/CmpMod.h"
#include "expr/FunMod.h"

namespace vk {
namespace {

constexpr int kShownLength = 60;
constexpr int kShownPart = 28;
constexpr char kInnerMark = 'T';

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
std::string nameField(Session& session, const std::string& list) {
  const std::string names = StripBlanks(list);
  std::string table;
  Int16 flag;
  if (!names.empty()) BuildNameTable(session, names, table, kNameSlot, kFalse, flag);
  std::string field;
  for (int start = 1; start <= length(table); start += kNameSlot) {
    const std::string name = trim(mid(table, start, kNameSlot));
    field += repeat(kNameSlot - length(name), ' ') + name;
  }
  return field;
}

/// The function in use is none of the catalogue any more.
void forgetFunction(Session& session) {
  session.analysis.FunDefined = kFalse;
  session.analysis.ParVar = kFalse;
}

/// Makes room in the full list by dropping the oldest loaded function; true when it was the current one.
bool dropOldest(Session& session) {
  session.loaded.catalogue.inner.erase(session.loaded.catalogue.inner.begin() + kBuiltInInner);
  if (session.analysis.fun.InnerIndex <= kBuiltInInner) return false;
  session.analysis.fun.InnerIndex -= 1;
  if (session.analysis.fun.InnerIndex != kBuiltInInner) return false;
  forgetFunction(session);
  session.analysis.fun.InnerIndex = 0;
  session.analysis.fun.OuterIndex = 0;
  return true;
}

}  // namespace

void BuildCatalogue(Session& session) {
  // \xFD is the square and \xFB the root in code page 437.
  session.loaded.catalogue.inner = {
      {"c", "c", "    c"},
      {"bx+c", "b*x+c", "    b    c"},
      {"ax\xFD+bx+c", "a*x*x+b*x+c", "    a    b    c"},
      {"[(x-m)\xFD+a]/b", "((x-m)^2+a)/b", "    m    a    b"},
      {"a/[(x\xFD-m\xFD)\xFD+b\xFDx\xFD]", "a/((x*x-m*m)^2+(b*x)^2)", "    a    m    b"},
  };
  session.loaded.catalogue.outer = {
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

std::string compositeText(const Session& session) {
  const int inner = session.analysis.fun.InnerIndex;
  const int outer = session.analysis.fun.OuterIndex;
  const std::string& f = entryAt(session.loaded.catalogue.outer, outer).display;
  const std::string& g = entryAt(session.loaded.catalogue.inner, inner).display;
  const int slashF = position(f, "/");
  const int slashG = position(g, "/");
  const bool twoDivisions = slashF > 0 && slashG > 0;
  return " y = " + (twoDivisions ? flattened(f, slashF, g, slashG, outer) : inserted(f, g, outer, inner)) +
         " ";
}

std::string shownCompositeText(const std::string& text) {
  return length(text) <= kShownLength ? text : left(text, kShownPart) + "..." + right(text, kShownPart);
}

std::string ComposeFunctionText(const Session& session) {
  const std::string& g = entryAt(session.loaded.catalogue.inner, session.analysis.fun.InnerIndex).machine;
  std::string text = entryAt(session.loaded.catalogue.outer, session.analysis.fun.OuterIndex).machine;
  const auto mark = text.find(kInnerMark);
  if (mark == std::string::npos) return StripBlanks(g);
  return StripBlanks(text.replace(mark, 1, g));
}

bool loadFunction(Session& session, int index) {
  const std::vector<FunctionFile::Entry>& read = session.loaded.catalogue.file.entries;
  if (index < 1 || index > static_cast<int>(read.size())) throw RuntimeError(kIndexOutOfRange);
  const FunctionFile::Entry& entry = read[static_cast<std::size_t>(index - 1)];
  std::vector<CatalogueEntry>& inner = session.loaded.catalogue.inner;
  const bool lost = static_cast<int>(inner.size()) >= kMostInner && dropOldest(session);
  inner.push_back({entry.description, entry.definition, nameField(session, entry.parameters)});
  return lost;
}

bool dropLoadedFunctions(Session& session) {
  if (static_cast<int>(session.loaded.catalogue.inner.size()) > kBuiltInInner) {
    session.loaded.catalogue.inner.resize(kBuiltInInner);
  }
  if (session.analysis.fun.InnerIndex <= kBuiltInInner) return false;
  forgetFunction(session);
  session.analysis.fun.InnerIndex = 1;
  return true;
}

}  // namespace vk
