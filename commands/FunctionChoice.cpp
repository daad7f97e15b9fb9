#include "commands/FunctionChoice.h"

#include <algorithm>

#include "base/Text.h"
#include "expr/Catalogue.h"

namespace vk {
namespace {

// Slots of y and x in front of the parameters' names.
constexpr int kSlotsOfVariables = 2;

/// Tables for as many parameters as the names tell, all zero.
void nameParameters(ParameterSet& par, const std::string& names) {
  par.ParNames = names;
  par.ParCount = length(names) / kNameSlot - kSlotsOfVariables;
  par.ParNameWidth = 1;
  for (int i = 1; i <= par.ParCount; ++i) {
    par.ParNameWidth = std::max(int(par.ParNameWidth), length(par.name(i)));
  }
  par.ParValues.dim(par.ParCount);
  par.ParDeltas.dim(par.ParCount);
  par.FreeValues.dim(par.ParCount + 1);
  par.FreeSteps.dim(par.ParCount + 1);
  par.FreeIndex.dim(par.ParCount + 1);
  par.FreeCount = 0;
}

/// The function in use is none of the catalogue any more.
void forgetFunction(AnalysisState& analysis) {
  analysis.FunDefined = kFalse;
  analysis.ParVar = kFalse;
}

}  // namespace

void TakeFunction(Session& session, Int16 innerBefore, Int16 outerBefore) {
  AnalysisState& analysis = session.analysis;
  const bool same =
      analysis.FunDefined && analysis.fun.InnerIndex == innerBefore && analysis.fun.OuterIndex == outerBefore;
  if (same) {
    analysis.SimFirstTime = kFalse;
    return;
  }
  ChosenFunction chosen = chosenFunction(session.loaded.catalogue, analysis.fun);
  analysis.FunDefined = kTrue;
  analysis.SimFirstTime = kTrue;
  analysis.ParVar = kFalse;
  analysis.ParametersSet = kFalse;
  analysis.model = std::move(chosen.model);
  analysis.fun.FunctionText = chosen.text;
  nameParameters(analysis.par, chosen.names);
}

bool loadFunction(Session& session, int index) {
  const bool lost = loadFunction(session.loaded.catalogue, session.analysis.fun, index);
  if (lost) forgetFunction(session.analysis);
  return lost;
}

bool dropLoadedFunctions(Session& session) {
  const bool lost = dropLoadedFunctions(session.loaded.catalogue, session.analysis.fun);
  if (lost) forgetFunction(session.analysis);
  return lost;
}

}  // namespace vk
