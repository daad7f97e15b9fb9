/// Unit FunMod: the catalogue of composite functions f[g(x)] and the choice from it.
#pragma once

#include <string>
#include <vector>

#include "base/Int16.h"
#include "expr/FunctionDef.h"
#include "expr/FunctionFile.h"
#include "expr/Model.h"

namespace vk {

/// Number of built-in inner functions; entries above are loaded ones.
inline constexpr int kBuiltInInner = 5;
/// The inner list never grows beyond this.
inline constexpr int kMostInner = 9;

/// What stands for the inner function in the formulas of the outer ones.
inline constexpr char kInnerMark = 'T';

/// One function of the catalogue.
struct CatalogueEntry {
  std::string display;  ///< text of lists and reports, code page 437
  std::string
      machine;  ///< formula of the expression language; for an outer function with the mark of the inner
  std::string names;          ///< parameter names, 5 characters each, right-aligned
  CompiledExpression code{};  ///< of a loaded function
};

/// The lists from which a model function is composed. Entries count from 1 for the user and the indices of a
/// choice: entry i is element i - 1.
struct Catalogue {
  std::vector<CatalogueEntry> inner;  ///< g: five built in, up to four loaded from function files
  std::vector<CatalogueEntry> outer;  ///< f: nine
  FunctionFile file;
};

/// Sets both lists of the catalogue to what is built in.
void BuildCatalogue(Catalogue& catalogue);

/// Display text of the composite of the indices, "y = ..." with a blank on each side, code page 437. An index
/// outside its list counts as an empty entry.
std::string compositeText(const Catalogue& catalogue, const FunctionDef& fun);
/// The same as the dialog shows it: the first and last 28 characters when it is longer than 60.
std::string shownCompositeText(const std::string& text);

/// Formula of the composite in the expression language, without blanks.
std::string ComposeFunctionText(const Catalogue& catalogue, const FunctionDef& fun);

/// What a choice stands for.
struct ChosenFunction {
  std::string text;   ///< as `compositeText`
  std::string names;  ///< of y, x and the parameters, 5 characters each, right-aligned
  Model model;
};

/// The function of the indices; an index outside its list is run-time error 9.
ChosenFunction chosenFunction(const Catalogue& catalogue, const FunctionDef& fun);

/// A compiled function of a file as an entry of the inner list.
CatalogueEntry innerEntry(const FunctionFile::Entry& entry);

/// Adds entry `index` (from 1) of the file read to the inner list; the oldest loaded one leaves a full list, and the
/// indices of the choice follow. True when the choice was that one; both indices are 0 then. An entry that the file
/// has not is run-time error 9.
bool loadFunction(Catalogue& catalogue, FunctionDef& fun, int index);

/// Drops the loaded functions. True when the choice was one of them; the inner index is 1 then.
bool dropLoadedFunctions(Catalogue& catalogue, FunctionDef& fun);

}  // namespace vk
