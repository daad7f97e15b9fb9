#include "ui/InputEngine.h"

#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Text.h"

namespace vk {
namespace {

constexpr int kRefusalBeeps = 3;

}  // namespace

void InpMod::open(InputTables& tables, const InputSurroundings& around) {
  tables_ = &tables;
  layout_ = layoutInput(tables, around);
  captions_.dim(fieldCount());
  for (int i = 1; i <= fieldCount(); ++i) captions_[i] = tables.InpValues[i];
  InpValid = kTrue;
  InpExecuted = kFalse;
  InpFirstRight = toFlag(fieldCount() > 0 && flushRight(1));
  InpCurrent = fieldCount() > 0 ? 1 : 0;
  edit_ = EditBox();
  // QUIRK: only this first placement is white for a right-aligned field; a return to it finds the common grey.
  if (fieldCount() > 0) placeEditBox(1, InpFirstRight ? InpColorWhite : InpColorEdit);
}

bool InpMod::flushRight(int i) const {
  return tables_->InpFieldPos[i == 0 ? 1 : i][2] < 0;
}

void InpMod::placeEditBox(int field, Colour background) {
  edit_.visible = true;
  edit_.text = Cp437Text(trim(captions_[field].bytes()));
  edit_.place = editBoxOn(layout_.lblVal[static_cast<std::size_t>(field)], layout_.cell);
  edit_.background = background;
  edit_.flushRight = flushRight(field);
}

void InpMod::validateNumber() {
  InpValid = toFlag(isNumeric(edit_.text.bytes()));
  if (InpValid) edit_.text = Cp437Text(FormatCompact(scanNumber(edit_.text.bytes())));
}

void InpMod::validateFunction(const std::string& remainder) {
  if (compiler_(std::string(remainder).append(edit_.text.bytes()))) return;
  // QUIRK: nothing follows the words, no name of a field.
  dialogs_.plainBox(kProgramTitle, kBadDefinition);
  InpValid = kFalse;
}

void InpMod::validate() {
  InpValid = kTrue;
  if (InpCurrent == 0) return;
  const std::string& spec = tables_->InpFieldKinds[InpCurrent];
  const std::size_t mark = spec.find('@');
  const std::string kind = spec.substr(0, mark);
  if (kind == "#Number") validateNumber();
  if (kind == "#Function") validateFunction(mark == std::string::npos ? "" : spec.substr(mark + 1));
}

void InpMod::GoToField(Int16 target) {
  validate();
  if (!InpValid) {
    for (int i = 0; i < kRefusalBeeps; ++i) sound_.beep();
    return;
  }
  if (fieldCount() == 0) return;
  captions_[InpCurrent] = edit_.text;
  placeEditBox(target, InpColorEdit);
  InpCurrent = target;
}

bool InpMod::keyDown(int keyCode) {
  if (keyCode == kKeyDown || keyCode == kKeyEnter) {
    GoToField(InpCurrent + 1 > fieldCount() ? 1 : InpCurrent + 1);
    return true;
  }
  if (keyCode == kKeyUp) {
    GoToField(InpCurrent - 1 < 1 ? fieldCount() : InpCurrent - 1);
    return true;
  }
  return false;
}

bool InpMod::lostFocus() {
  GoToField(0);
  return InpValid != kFalse;
}

bool InpMod::execute() {
  GoToField(0);
  if (!InpValid) return false;
  InpExecuted = kTrue;
  for (int i = 1; i <= fieldCount(); ++i) tables_->InpValues[i] = captions_[i];
  return true;
}

}  // namespace vk
