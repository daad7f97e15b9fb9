/// Unit Sel_Fun: the choice of the model function.
#pragma once

#include <string>
#include <vector>

#include "base/Int16.h"
#include "ui/layout/Geometry.h"

/// The logic of the form `Sel_Fun`, by which the user composes the model function f[g(x)].
namespace vk {

struct Session;

inline constexpr const char* kSelectCaption = "VOR_KEL: Selezione Funzione";
inline constexpr const char* kSelectHeading = "F(x)=f[u], u=g(x)";
inline constexpr const char* kOuterHeading = "f[u]";
inline constexpr const char* kInnerHeading = "g(x)";

/// Where both function forms open: to the right of the owner's left edge and centred on it in height.
Rect placeBeside(const Rect& owner, Size form);

class SelectFunction {
 public:
  explicit SelectFunction(Session& session) : session_(session) {}

  /// Takes the display texts of the catalogue, code page 437, into the lists.
  void refill();
  const std::vector<std::string>& innerList() const { return inner_; }
  const std::vector<std::string>& outerList() const { return outer_; }

  /// A showing begins: the first entries are selected, and the session's indices are both 1.
  void open();

  /// Entry of a list selected by click or key, from 1. The text follows.
  void selectInner(int entry);
  void selectOuter(int entry);

  /// What the read-only text field shows, code page 437.
  const std::string& text() const { return text_; }

  /// "&Rinuncia": indices and text are as before the showing. ("&Accetta" leaves both as they are.)
  void giveUp();

 private:
  void ShowCompositeText();

  Session& session_;
  std::vector<std::string> inner_, outer_;
  std::string text_;
  Int16 innerBefore_, outerBefore_;
  std::string textBefore_;
};

}  // namespace vk
