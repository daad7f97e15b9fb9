#pragma once

#include <QWidget>

#include "tabulo/Calculator.h"
#include "ui/qt/widgets/HelpKey.h"

class QLabel;
class QLineEdit;
class QTreeWidget;

namespace vk {

class AccessButton;

/// The calculator's window: the history above, the named values beside it, the line for the next formula and
/// an error line below. Enter calculates, the arrows bring earlier lines back, Esc empties the line.
class Tabulo : public QWidget {
  Q_OBJECT

 public:
  /// F1 opens the manual of these files by this process.
  Tabulo(Files& files, Process& process);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildLists();
  void buildLine();
  void layOut();
  void calculate();
  void clearAll();
  void recall(int step);
  void putBack(const QString& line);
  void showState();

  Calculator calculator_;
  int recalled_ = 0;  // entry of the history that stands in the line; the history's size for none
  QTreeWidget* history_;
  QTreeWidget* values_;
  QLineEdit* line_;
  QLabel* error_;
  AccessButton* calculate_;
  AccessButton* clear_;
  HelpKey helpKey_;
};

}  // namespace vk
