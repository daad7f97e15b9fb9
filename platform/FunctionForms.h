#pragma once

namespace vk {

/// The two forms by which a model function is chosen. Both work on the session's catalogue.
class FunctionForms {
 public:
  virtual ~FunctionForms() = default;

  /// `Sel_Fun`: lists of f and g, open on their first entries with the session's indices both 1. True for
  /// "&Accetta", with the indices as chosen; false for "&Rinuncia", with the indices as they were before.
  virtual bool selectFunction() = 0;

  /// `Loa_Fun`: the functions of the file read. Gives the chosen entry from 1, or 0 for "&Rinuncia".
  virtual int chooseLoadedFunction() = 0;

  /// Fills the lists of `Sel_Fun` anew from the catalogue.
  virtual void refillSelection() = 0;

  /// Fills the list of `Loa_Fun` anew from the function file and selects its first entry.
  virtual void refillLoadList() = 0;
};

}  // namespace vk
