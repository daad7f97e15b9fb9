#include "ui/qt/devices/QtGraphics.h"

#include <QGuiApplication>
#include <clocale>
#include <iostream>

namespace vk {
namespace {

/// What the toolkit says of its surroundings says nothing about the user's files and is not for the error stream of a
/// program without a screen; only why it ends the program is told.
void hearToolkit(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg) std::cerr << text.toStdString() << '\n';
}

}  // namespace

/// An application object without a screen. The toolkit changes its arguments, which must outlive it.
struct QtGraphics::Application {
  char name[8] = "vor_kel";
  char option[10] = "-platform";
  char platform[10] = "offscreen";
  char* arguments[4] = {name, option, platform, nullptr};
  int count = 3;
  QGuiApplication application{count, arguments};
};

QtGraphics::QtGraphics() {
  if (QCoreApplication::instance() == nullptr) {
    qInstallMessageHandler(hearToolkit);
    application_ = std::make_unique<Application>();
    // The toolkit takes over the user's decimal comma for the whole program.
    std::setlocale(LC_NUMERIC, "C");
  }
}

QtLetters& QtGraphics::letters() {
  if (!letters_) letters_ = std::make_unique<QtLetters>();
  return *letters_;
}

// Letters hold fonts, which must be gone before the application object is.
QtGraphics::~QtGraphics() {
  letters_.reset();
}

}  // namespace vk
