/// Form FrmOut: the output window.
#pragma once

#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QWidget>
#include <vector>

#include "platform/Clipboard.h"
#include "platform/FontSpec.h"
#include "platform/Printer.h"
#include "ui/OutputModel.h"
#include "ui/qt/forms/OutputSurface.h"
#include "ui/qt/forms/Windows.h"

namespace vk {

/// What the buttons of an output window work with.
struct OutputServices {
  const FontSpec& FontEdit;
  const FontSpec& FontLabel;
  const Windows& windows;
  Printer& printer;
  Clipboard& clipboard;
  EventRunner runEvent;
};

/// The output window: a grid that a command draws on, or a text in `TxtOut`, and the buttons `CmdOut`.
class FrmOut : public QWidget {
 public:
  explicit FrmOut(const OutputServices& services);

  void OutShow(const OutputRequest& request);
  void FrmOut_Exit();
  /// Tells the user of the keys that open more, and takes them.
  void setDetail(OutputDetail detail);
  /// Marks the surface as changed.
  void changed();

  OutputModel& model() { return model_; }
  const OutputModel& model() const { return model_; }
  CellSize cell() const { return cell_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void showDetail();
  void showContent();
  void showButtons(const OutputLayout& layout);
  void addButton();
  void pressed(int index);
  void pressFirst();

  OutputServices services_;
  OutputModel model_;
  CellSize cell_;
  OutputSurface* surface_;
  QPlainTextEdit* text_;
  std::vector<QPushButton*> buttons_;
  std::vector<QShortcut*> detailKeys_;  ///< on where there is a detail
};

}  // namespace vk
