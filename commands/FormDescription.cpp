#include "commands/FormDescription.h"

#include "session/Session.h"

namespace vk {
namespace {

constexpr int kEngraved = 3;
constexpr int kCentred = 1;

}  // namespace

void describeFieldCount(InputTables& form, int count) {
  form.InpFieldCount = count;
  for (auto* texts : {&form.InpValues, &form.InpLabels}) texts->dim(count);
  form.InpFieldKinds.dim(count);
  for (auto* places : {&form.InpFieldPos, &form.InpLabelPos}) places->dim(count);
}

void describeField(InputTables& form, int i, const FormField& field) {
  form.InpLabels[i] = Cp437Text(field.prompt);
  form.InpLabelPos[i] = {field.row, field.promptColumn, field.promptLength};
  form.InpValues[i] = Cp437Text(field.value);
  form.InpFieldKinds[i] = field.kind;
  form.InpFieldPos[i] = {field.row, field.column, field.width};
}

void describeFrames(InputTables& form, std::initializer_list<FormRectangle> frames) {
  form.InpFrameCount = static_cast<int>(frames.size());
  form.InpFrames.dim(form.InpFrameCount);
  int i = 0;
  for (const FormRectangle& f : frames) form.InpFrames[++i] = {f.top, f.left, f.bottom, f.right, kEngraved};
}

void describeTexts(InputTables& form, std::initializer_list<FormText> texts) {
  form.InpTextCount = static_cast<int>(texts.size());
  form.InpTexts.dim(form.InpTextCount);
  form.InpTextPos.dim(form.InpTextCount);
  int i = 0;
  for (const FormText& t : texts) {
    form.InpTexts[++i] = Cp437Text(t.text);
    form.InpTextPos[i] = {t.row, t.column, kCentred};
  }
}

bool askForm(Session& session, InputForm& form) {
  const bool executed = form.InpShow(session.input, Form::kMain);
  session.ErrFlag = executed ? 0 : kTrue;
  return executed;
}

}  // namespace vk
