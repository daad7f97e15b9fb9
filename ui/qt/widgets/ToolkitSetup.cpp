#include "ui/qt/widgets/ToolkitSetup.h"

#include <QApplication>
#include <QPalette>
#include <QSettings>
#include <clocale>

#include "ui/qt/widgets/ControlStyle.h"
#include "ui/qt/widgets/DialogRole.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/ItalianTexts.h"
#include "ui/qt/widgets/Pictures.h"

namespace vk {
namespace {

QPalette colours() {
  QPalette palette(QColor(236, 240, 244));
  palette.setColor(QPalette::Window, QColor(236, 240, 244));
  palette.setColor(QPalette::Button, QColor(228, 234, 240));
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::AlternateBase, QColor(244, 247, 250));
  palette.setColor(QPalette::Highlight, QColor(46, 92, 138));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(196, 208, 220));
  palette.setColor(QPalette::Inactive, QPalette::HighlightedText, QColor(24, 32, 40));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, QColor(24, 32, 40));
    palette.setColor(QPalette::Disabled, role, QColor(140, 150, 160));
  }
  return palette;
}

}  // namespace

void setUpToolkit(QApplication& toolkit) {
  std::setlocale(LC_NUMERIC, "C");
  // Nothing is kept between two runs, the toolkit's file dialog included: its settings go nowhere.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
  toolkit.setApplicationName("vor_kel");
  toolkit.setApplicationDisplayName("");
  toolkit.setWindowIcon(applicationIcon());
  // One look everywhere: fields and grids have fixed colours, which must suit what surrounds them.
  toolkit.setStyle(new ControlStyle);
  toolkit.setPalette(colours());
  toolkit.setFont(toolkitFont({"Arial", 10}));
  installDialogRole();
  toolkit.installTranslator(new ItalianTexts(&toolkit));
  toolkit.setQuitOnLastWindowClosed(false);
}

}  // namespace vk
