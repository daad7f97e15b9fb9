#pragma once

#include <QApplication>
#include <optional>

#include "base/RuntimeError.h"
#include "doubles/Doubles.h"
#include "doubles/ScriptedDialogs.h"
#include "session/Session.h"
#include "ui/qt/forms/InputForm.h"
#include "ui/qt/ports/QtDialogs.h"
#include "ui_qt/User.h"

namespace vk {

/// An input form with a field of each kind, in front of a window.
class InputFormFixture : public testing::Test {
 protected:
  struct Field {
    std::string value, kind;
    int width;
  };

  void SetUp() override {
    owner.resize(700, 500);
    owner.move(60, 40);
    bringToFront(&owner);
    windows.add(Form::kMain, &owner);
    setFields({{"1", "#Number", -8}, {"due", "#String", 8}, {"x", "#Function@y@x@ @ @", 12}});
  }

  void setFields(const std::vector<Field>& fields) {
    const int n = static_cast<int>(fields.size());
    tables = InputTables();
    tables.caption = "VOR_KEL: Parametri Iniziali";
    tables.InpRows = 10;
    tables.InpCols = 44;
    tables.InpFieldCount = n;
    tables.InpFrameCount = 1;
    tables.InpFrames.dim(1);
    tables.InpFrames[1] = {1, 1, 10, 44, 3};
    tables.InpValues.dim(n);
    tables.InpFieldKinds.dim(n);
    tables.InpFieldPos.dim(n);
    tables.InpLabels.dim(n);
    tables.InpLabelPos.dim(n);
    for (int i = 1; i <= n; ++i) {
      const Field& field = fields[static_cast<std::size_t>(i) - 1];
      tables.InpValues[i] = Cp437Text(field.value);
      tables.InpFieldKinds[i] = field.kind;
      tables.InpFieldPos[i] = {3 + i, 10, field.width};
      tables.InpLabels[i] = Cp437Text(std::string("\xEB") + "a");
      tables.InpLabelPos[i] = {3 + i, 2, 5};
    }
  }
  void show() { executed = form.InpShow(tables, Form::kMain); }
  QLineEdit* box() { return control<QLineEdit>(&form, "txtGet"); }
  QWidget* field(int i) { return control<QWidget>(&form, QString("lblVal(%1)").arg(i)); }
  /// A step while the form is open.
  void then(std::function<void()> step) {
    user.at("InpFrm", [step](QWidget*) { step(); });
  }
  void replace(const QString& text) {
    box()->selectAll();
    typeText(box(), text);
  }
  void giveUp() { user.press("InpFrm", "cmdRin"); }
  void execute() { user.press("InpFrm", "cmdEse"); }

  QWidget owner;
  RecordingMainWindow window;
  Windows windows;
  Session session;
  FrmMsg message{windows, session.settings.FontLabel};
  QtDialogs dialogs{windows, message};
  RecordingSound sound;
  bool compiles = true;
  bool breaks = false;
  InpMod engine{dialogs, sound, [this](const std::string&) {
                  if (breaks) throw RuntimeError(kOverflow);
                  return compiles;
                }};
  InputTables tables;
  std::optional<bool> executed;  ///< what the last showing gave
  InpFrm form{engine, windows, window};
  User user;
};

}  // namespace vk
