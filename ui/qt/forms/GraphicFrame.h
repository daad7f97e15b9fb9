/// Form FraGra: the graphic options panel of the main window.
#pragma once

#include <QFrame>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <array>
#include <functional>

#include "ui/GraphicPanel.h"
#include "ui/layout/GraphicPanelLayout.h"
#include "ui/qt/forms/Windows.h"
#include "ui/qt/widgets/ClickLabel.h"
#include "ui/qt/widgets/Pictures.h"

namespace vk {

/// The graphic options panel of the main window.
class FraGra : public QFrame {
 public:
  /// `button` gets the index of the pressed button.
  FraGra(QWidget* parent, GraphicPanel& panel, const QFont& font, EventRunner run,
         std::function<void(int)> button);

  /// Shows what stands in the engine.
  void sync();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void buildPictures(const GraphicPanelLayout& layout);
  /// Shows the present picture alone; the frame's focus goes to it.
  void showPicture();
  void buildOptions(const GraphicPanelLayout& layout);
  void buildScales(const GraphicPanelLayout& layout);
  void buildButtons(const GraphicPanelLayout& layout, std::function<void(int)> button);
  QGroupBox* group(const char* name, const char* caption, const Rect& place);
  void handle(const std::function<void()>& change);

  GraphicPanel& panel_;
  EventRunner run_;
  std::array<ClickLabel*, kBackgrounds> Image1_{};
  std::array<QRadioButton*, 2> OptOri_{};
  std::array<QScrollBar*, 4> VScFct_{};
  std::array<QLabel*, 4> LblFctVal_{};
  bool syncing_ = false;
};

}  // namespace vk
