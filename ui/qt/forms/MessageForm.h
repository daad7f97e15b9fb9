/// Form FrmMsg: the message dialog.
#pragma once

#include <QDialog>
#include <QLabel>
#include <array>
#include <vector>

#include "platform/FontSpec.h"
#include "ui/layout/MessageLayout.h"
#include "ui/qt/forms/ModalLoop.h"
#include "ui/qt/forms/Windows.h"

namespace vk {

/// The message dialog of the program: built anew for each question from its layout, ended by its buttons only.
class FrmMsg : public QDialog {
 public:
  FrmMsg(const Windows& windows, const FontSpec& font);

  /// Shows the question and gives the number of the pressed button, from 1.
  int ask(const MessageRequest& request);

  Int16 Pressed;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void reject() override {}

 private:
  void addButton();
  void build(const MessageRequest& request);
  void showButtons(const MessageRequest& request);
  void showIcon(int icon);
  MessageSurroundings surroundings(const MessageRequest& request) const;

  const Windows& windows_;
  MessageLayout layout_;
  std::array<QLabel*, 4> icons_;
  std::vector<QPushButton*> buttons_;  ///< `CmdMsg`; elements 0 and 1 live as long as the form
  ModalLoop loop_;
};

}  // namespace vk
