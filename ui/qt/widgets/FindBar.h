#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace vk {

/// A line below a text control in which a text to be found is typed. Return finds the next place, Shift with
/// Return the one before, going round at the ends; Escape closes the line.
class FindBar : public QWidget {
 public:
  explicit FindBar(QWidget* form);

  /// Shows the line for a control, with what is selected there as the first proposal.
  void open(QPlainTextEdit& text);
  void close();
  /// Selects the next, or the previous, place in the control of the last `open`; tells when there is none.
  void find(bool backward);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QPlainTextEdit* text_ = nullptr;
  QLineEdit* entry_;
  QLabel* outcome_;
};

}  // namespace vk
