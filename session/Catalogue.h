#pragma once

#include <string>
#include <vector>

#include "base/Int16.h"

namespace vk {

/// One function of the catalogue.
struct CatalogueEntry {
  std::string display;  ///< text of lists and reports, code page 437
  std::string machine;  ///< formula of the expression language; for an outer function T stands for the inner
  std::string names;    ///< parameter names, 5 characters each, right-aligned
};

/// The functions of the function file read last, at most 10; index 0 is the first.
struct FunctionFile {
  struct Entry {
    std::string parameters;   ///< comma list
    std::string definition;   ///< formula in x
    std::string description;  ///< free text
  };
  std::vector<Entry> entries;
  Int16 DescriptionWidth;  ///< longest description, at most 56
};

/// The lists from which a model function is composed. Entries count from 1 for the user and the session's
/// indices: entry i is element i - 1.
struct Catalogue {
  std::vector<CatalogueEntry> inner;  ///< g: five built in, up to four loaded from function files
  std::vector<CatalogueEntry> outer;  ///< f: nine
  FunctionFile file;
};

}  // namespace vk
