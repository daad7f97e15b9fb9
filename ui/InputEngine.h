/// Unit InpMod: the engine of the input form.
#pragma once

#include <functional>
#include <string>

#include "platform/Dialogs.h"
#include "platform/InputForm.h"
#include "platform/Sound.h"
#include "ui/layout/InputLayout.h"

/// The engine of the input form: one edit box hops over the fields, each is validated as it is left. The form
/// `InpFrm` shows what stands here and passes its events on.
namespace vk {

inline constexpr Colour InpColorWhite = Colour::fromChannels(255, 255, 255);
inline constexpr Colour kInpColorField = Colour::fromChannels(230, 230, 230);

class InpMod {
 public:
  /// Tells whether a definition text compiles.
  using Compiler = std::function<bool(const std::string& definition)>;

  InpMod(Dialogs& dialogs, Sound& sound, Compiler compiler)
      : dialogs_(dialogs), sound_(sound), compiler_(std::move(compiler)) {}

  /// Starts a showing: sizes, fields with their initial contents, the edit box on field 1. The tables must live
  /// until the form is closed.
  void open(InputTables& tables, const InputSurroundings& around);

  /// Leaves the present field for `target`; 0 is the template, which has no content of its own. A bad content
  /// is refused with three beeps and the box stays.
  void GoToField(Int16 target);

  /// Arrows and Enter move to the neighbours, from the last field to the first and back. Gives false for keys
  /// that edit.
  bool keyDown(int keyCode);

  /// The focus goes to another control of the form. Gives false when it must return to the edit box.
  bool lostFocus();

  /// "&Esegui": false when the present field is bad and the form must stay; else the contents are in the
  /// tables, and the caller closes the form.
  bool execute();

  /// What the user has typed.
  void setEditText(const Cp437Text& text) { edit_.text = text; }

  const EditBox& editBox() const { return edit_; }
  const InputLayout& layout() const { return layout_; }
  /// Content of `lblVal`(i).
  const Cp437Text& caption(int i) const { return captions_[i]; }
  bool flushRight(int i) const;
  int fieldCount() const { return tables_ == nullptr ? 0 : int{tables_->InpFieldCount}; }

  Int16 InpCurrent;
  Flag InpValid;
  Flag InpExecuted;
  Flag InpFirstRight;

 private:
  void placeEditBox(int field, Colour background);
  void validate();
  void validateNumber();
  void validateFunction(const std::string& remainder);

  Dialogs& dialogs_;
  Sound& sound_;
  Compiler compiler_;
  InputTables* tables_ = nullptr;
  InputLayout layout_;
  Array<Cp437Text> captions_;
  EditBox edit_;
};

}  // namespace vk
