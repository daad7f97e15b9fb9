#pragma once

#include <QGroupBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

#include "ui/LoadFunction.h"
#include "ui/qt/ModalLoop.h"
#include "ui/qt/Windows.h"

namespace vk {

/// The load form: the functions of the file read, with definition and parameters of the selected one.
class Loa_Fun : public QWidget {
 public:
  Loa_Fun(LoadFunction& engine, const Windows& windows);

  /// Fills the list from the engine and selects its first entry.
  void refill();
  /// Shows the form modally; the chosen entry from 1, or 0 for "&Rinuncia".
  int ask();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void arrange();
  void changed();
  void end(bool accepted);

  LoadFunction& engine_;
  const Windows& windows_;
  ModalLoop loop_;
  QListWidget* LstFun_;
  QPlainTextEdit* TxtDef_;
  QPlainTextEdit* TxtPar_;
  QPushButton* CmdAcc_;
  QPushButton* CmdRin_;
  bool accepted_ = false;
};

}  // namespace vk
