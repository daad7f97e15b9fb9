#pragma once

namespace vk {

/// The two forms by which a model function is chosen. Both work on the session's catalogue.
class FunctionForms {
 public:
  virtual ~FunctionForms() = default;

  /// `Sel_Fun`: lists of f and g. Gives true for "&Accetta", with the session's indices as chosen.
  virtual bool selectFunction() = 0;

  /// `Loa_Fun`: the functions of the file read. Gives the chosen entry from 1, or 0 for "&Rinuncia".
  virtual int chooseLoadedFunction() = 0;

  /// The lists of both forms are filled anew from the session, the first entries selected.
  virtual void refillLists() = 0;
};

}  // namespace vk
