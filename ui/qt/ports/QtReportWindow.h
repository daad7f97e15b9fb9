/// Form FrmDia: the window of a report with a figure.
#pragma once

#include <QScrollArea>
#include <QWidget>
#include <functional>

#include "gral/Device.h"
#include "gral/ReportWindow.h"
#include "platform/FontSpec.h"
#include "platform/Printer.h"
#include "ui/qt/forms/OutputSurface.h"
#include "ui/qt/forms/Windows.h"
#include "ui/qt/ports/FigureView.h"

namespace vk {

/// What the window of a report works with.
struct ReportServices {
  const FontSpec& FontEdit;
  const FontSpec& FontLabel;
  const Windows& windows;
  QtGraphics& graphics;
  Printer& printer;
  std::function<Device&()> figurePrinter;
  EventRunner runEvent;
};

/// The window `FrmDia`: the characters at the left, which are scrolled where there are too many, the figure beside
/// them, which takes all other room, and the buttons `CmdDia` below. Modeless; Esc and Enter close it.
class QtReportWindow : public QWidget, public ReportWindow {
 public:
  explicit QtReportWindow(const ReportServices& services);

  void show(FigureReport report) override;
  void close() override { hide(); }

 private:
  void addButtons();
  void fitText();
  void placeFirst();
  void print();
  /// The text, a bitmap of text and figure, and the figure as SVG.
  void copy();

  ReportServices services_;
  FigureReport report_;
  QScrollArea* scroll_;
  OutputSurface* surface_;
  FigureView* figure_;
};

}  // namespace vk
