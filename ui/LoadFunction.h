/// Unit Loa_Fun: the choice from the function file.
#pragma once

#include <string>
#include <vector>

#include "expr/Catalogue.h"

/// The logic of the form `Loa_Fun`, by which the user takes a function of the file read into the catalogue.
namespace vk {

inline constexpr const char* kLoadCaption = "VOR_KEL: Carica Funzione";
inline constexpr const char* kDescriptionFrame = "Descrizione";
inline constexpr const char* kDefinitionFrame = "Definizione";
inline constexpr const char* kParametersFrame = "Parametri";

class LoadFunction {
 public:
  explicit LoadFunction(const FunctionFile& file) : file_(file) {}

  /// Takes the descriptions of the function file, code page 437, into the list and selects the first.
  void refill();
  const std::vector<std::string>& list() const { return list_; }

  /// Entry selected by click or key, from 1; 0 when the list is empty.
  void select(int entry) { selected_ = entry; }
  int selected() const { return selected_; }

  /// The selected entry, of which `TxtDef` and `TxtPar` show definition and parameters; empty without one.
  FunctionFile::Entry entry() const;

 private:
  const FunctionFile& file_;
  std::vector<std::string> list_;
  int selected_ = 0;
};

}  // namespace vk
