/// Form InpFrm: the input form.
#pragma once

#include <QPushButton>
#include <QWidget>
#include <vector>

#include "platform/InputForm.h"
#include "platform/MainWindow.h"
#include "ui/InputEngine.h"
#include "ui/qt/forms/ModalLoop.h"
#include "ui/qt/forms/Windows.h"
#include "ui/qt/widgets/EntryBox.h"
#include "ui/qt/widgets/ValueCell.h"

namespace vk {

/// The input form: a grid of cells with clickable fields, one edit box that hops over them, two buttons. All
/// rules are in the engine `InpMod`; the form shows its state and passes events on.
class InpFrm : public QWidget, public InputForm {
 public:
  InpFrm(InpMod& engine, const Windows& windows, MainWindow& window);

  bool InpShow(InputTables& tables, Form caller) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void build(InputTables& tables, Form caller);
  void buildFields(const InputTables& tables);
  void askShut(InputTables& tables, Form caller);
  void sync();
  void esegui();
  void rinuncia();
  void focusMoved(QWidget* from, QWidget* to);

  InpMod& engine_;
  const Windows& windows_;
  MainWindow& window_;
  ModalLoop loop_;
  EntryBox* txtGet_;
  QPushButton* cmdRin_;
  QPushButton* cmdEse_;
  std::vector<ValueCell*> lblVal_;  ///< 0 the template, hidden
  QSize size_;                      ///< of the content, enforced
  bool executed_ = false;
};

}  // namespace vk
