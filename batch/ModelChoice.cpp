#include "batch/ModelChoice.h"

#include <iostream>

#include "base/NumberText.h"
#include "base/Text.h"
#include "batch/DataInput.h"
#include "batch/TerminalPorts.h"
#include "batch/TypedFormula.h"
#include "commands/FunctionChoice.h"
#include "expr/Catalogue.h"
#include "expr/Compiler.h"
#include "session/Session.h"

namespace vk {
namespace {

void take(Session& session, int inner, int outer) {
  session.analysis.fun.InnerIndex = inner;
  session.analysis.fun.OuterIndex = outer;
  TakeFunction(session, 0, 0);
}

void takeLastInner(Session& session) {
  take(session, static_cast<int>(session.loaded.catalogue.inner.size()), 1);
}

int catalogueIndex(const std::string& text, const std::vector<CatalogueEntry>& list, const char* what) {
  const double index = numberIn(text).value_or(0);
  if (!(index >= 1 && index <= static_cast<double>(list.size())) || index != static_cast<int>(index)) {
    throw UsageError("--catalogue: la funzione " + std::string(what) + " va da 1 a " +
                     std::to_string(list.size()));
  }
  return static_cast<int>(index);
}

void useFormula(Session& session, const std::string& formula, const std::string& names, bool trace) {
  CompiledExpression code = compileTyped(functionDefinition(names, formula), trace);
  session.loaded.catalogue.inner.push_back(innerEntry({names, formula, formula, std::move(code)}));
  takeLastInner(session);
}

void useCatalogue(Session& session, const std::string& pair) {
  const int comma = position(pair, ",");
  const int outer = catalogueIndex(trim(left(pair, comma - 1)), session.loaded.catalogue.outer, "f");
  take(session, catalogueIndex(trim(mid(pair, comma + 1)), session.loaded.catalogue.inner, "g"), outer);
}

void useFunctionFile(Session& session, Files& files, const ModelArguments& model) {
  const std::string& fileName = model.functionFile;
  const int entry = model.entry;
  ParsedFunctionFile parsed = parseFunctionFile(files.readAll(fileName), {.trace = model.trace});
  if (!parsed.ok) throw UsageError(shownName(fileName) + ":\n" + terminalText(parsed.report));
  if (model.trace) std::cerr << terminalText(parsed.report);
  session.loaded.catalogue.file = std::move(parsed.file);
  const auto count = static_cast<int>(session.loaded.catalogue.file.entries.size());
  if (entry < 1 || entry > count) {
    throw UsageError("--entry: il file " + shownName(fileName) + " contiene le funzioni da 1 a " +
                     std::to_string(count));
  }
  for (const DoubtfulFunction& function : parsed.doubtful) {
    if (function.number == entry) std::clog << warningLine(fileName, doubtText(function));
  }
  loadFunction(session, entry);
  takeLastInner(session);
}

}  // namespace

void chooseModel(Session& session, Files& files, const ModelArguments& model, const std::string& names) {
  BuildCatalogue(session.loaded.catalogue);
  if (!model.function.empty()) {
    useFormula(session, textOfWord(model.function), names, model.trace);
  } else if (!model.catalogue.empty()) {
    useCatalogue(session, model.catalogue);
  } else if (!model.functionFile.empty()) {
    usingFile(model.functionFile, [&] { useFunctionFile(session, files, model); });
  } else {
    throw UsageError("Si attende --function, --catalogue o --file");
  }
}

}  // namespace vk
