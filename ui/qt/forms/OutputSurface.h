#pragma once

#include <QWidget>

#include "ui/OutputModel.h"

namespace vk {

/// What an output window draws its grid on. Assistive tools read the grid as the description of the surface.
class OutputSurface : public QWidget {
 public:
  OutputSurface(QWidget* form, const OutputModel& model);

  /// Cells of this size, in the font of the form.
  void setCell(CellSize cell);
  /// The grid as text.
  QString gridText() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const OutputModel& model_;
  CellSize cell_;
};

}  // namespace vk
