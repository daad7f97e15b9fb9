#pragma once

#include <QLabel>

namespace vk {

/// A label for names. Lines too long for it are shortened in the middle; the tool tip has them whole.
class NameLabel : public QLabel {
 public:
  /// It may become as narrow as `leastWidth` pixels where its text is longer.
  explicit NameLabel(QWidget* parent, int leastWidth = 0);

  void setName(const QString& text);
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int leastWidth_;
};

}  // namespace vk
