#pragma once

#include <string>
#include <vector>

#include "base/CodePage.h"
#include "commands/FunctionChoice.h"
#include "doubles/Choices.h"
#include "doubles/EvaluateFunction.h"
#include "doubles/ScriptedDialogs.h"
#include "expr/Catalogue.h"

namespace vk {

/// A session with its catalogue, and two ways to choose from it.
class CatalogueTest : public testing::Test {
 protected:
  CatalogueTest() { BuildCatalogue(session.loaded.catalogue); }

  void take(int inner, int outer) { choose(session, inner, outer); }
  std::string composite(int inner, int outer) {
    session.analysis.fun.InnerIndex = inner;
    session.analysis.fun.OuterIndex = outer;
    return toUtf8(compositeText(session.loaded.catalogue, session.analysis.fun), CodePage::kCp437);
  }
  std::string machine(int inner, int outer) {
    session.analysis.fun.InnerIndex = inner;
    session.analysis.fun.OuterIndex = outer;
    return ComposeFunctionText(session.loaded.catalogue, session.analysis.fun);
  }
  void addToFile(const std::string& parameters, const std::string& definition,
                 const std::string& description) {
    session.loaded.catalogue.file.entries.push_back(compiledEntry(parameters, definition, description));
  }
  /// A file of five functions p*x, p*x*2, ...; `load` takes one of them into the catalogue.
  void readFiveFunctions() {
    for (const char* factor : {"1", "2", "3", "4", "5"}) {
      addToFile("p", std::string("p*x*") + factor, std::string("times ") + factor);
    }
  }
  void load(int from, int to) {
    for (int entry = from; entry <= to; ++entry) loadFunction(session, entry);
  }
  std::vector<std::string> innerTexts() const {
    std::vector<std::string> texts;
    for (const CatalogueEntry& entry : session.loaded.catalogue.inner) texts.push_back(entry.display);
    return texts;
  }

  Session session;
  ScriptedDialogs dialogs;
};

}  // namespace vk
