#include <algorithm>

#include "base/Text.h"
#include "expr/CmpMod.h"
#include "expr/FunMod.h"

namespace vk {
namespace {

constexpr const char* kVariableNames = "    y    x";

template <class Use>
void forEachName(const std::string& field, Use use) {
  for (int start = 1; start <= length(field); start += kNameSlot) use(trim(mid(field, start, kNameSlot)));
}

std::string commaList(const std::string& field) {
  std::string list;
  forEachName(field, [&](const std::string& name) { list += (list.empty() ? "" : ",") + name; });
  return list;
}

int longestName(const std::string& field) {
  int longest = 1;
  forEachName(field, [&](const std::string& name) { longest = std::max(longest, length(name)); });
  return longest;
}

const CatalogueEntry& chosen(const std::vector<CatalogueEntry>& list, int index) {
  if (index < 1 || index > static_cast<int>(list.size())) throw RuntimeError(kIndexOutOfRange);
  return list[static_cast<std::size_t>(index - 1)];
}

/// Tables for as many parameters as the names tell, all zero.
void sizeTables(ParameterSet& par) {
  par.ParValues.dim(par.ParCount);
  par.ParDeltas.dim(par.ParCount);
  par.FreeValues.dim(par.ParCount + 1);
  par.FreeSteps.dim(par.ParCount + 1);
  par.FreeIndex.dim(par.ParCount + 1);
  par.FreeCount = 0;
}

}  // namespace

void TakeFunction(Session& session, Int16 innerBefore, Int16 outerBefore) {
  const FunctionDef& fun = session.analysis.fun;
  const bool same =
      session.analysis.FunDefined && fun.InnerIndex == innerBefore && fun.OuterIndex == outerBefore;
  session.analysis.FunDefined = kTrue;
  session.analysis.SimFirstTime = toFlag(!same);
  if (same) return;

  session.analysis.ParVar = kFalse;
  session.analysis.ParametersSet = kFalse;
  restoreModel(session);
  ParameterSet& par = session.analysis.par;
  const std::string names = chosen(session.loaded.catalogue.inner, fun.InnerIndex).names +
                            chosen(session.loaded.catalogue.outer, fun.OuterIndex).names;
  par.ParNames = kVariableNames + names;
  par.ParCount = length(names) / kNameSlot;
  par.ParNameWidth = longestName(names);
  session.analysis.fun.FunctionText = compositeText(session);
  sizeTables(par);
}

void restoreModel(Session& session) {
  if (!session.analysis.FunDefined || session.analysis.fun.InnerIndex <= kBuiltInInner) return;
  const CatalogueEntry& g = chosen(session.loaded.catalogue.inner, session.analysis.fun.InnerIndex);
  Int16 flag;
  CompileExpression(session, "y@x@" + commaList(g.names) + "@ @" + g.machine, session.analysis.model, flag);
}

}  // namespace vk
