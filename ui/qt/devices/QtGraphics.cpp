#include "ui/qt/devices/QtGraphics.h"

#include <QGuiApplication>
#include <clocale>

namespace vk {
namespace {

std::unique_ptr<QGuiApplication> screenlessApplication() {
  static char name[] = "vor_kel";
  static char platformOption[] = "-platform";
  static char platformName[] = "offscreen";
  static char* arguments[] = {name, platformOption, platformName, nullptr};
  static int count = 3;
  auto application = std::make_unique<QGuiApplication>(count, arguments);
  // The toolkit takes over the user's decimal comma for the whole program.
  std::setlocale(LC_NUMERIC, "C");
  return application;
}

}  // namespace

QtGraphics::QtGraphics() {
  if (QCoreApplication::instance() == nullptr) application_ = screenlessApplication();
  letters_ = std::make_unique<QtLetters>();
}

// Letters hold fonts, which must be gone before the application object is.
QtGraphics::~QtGraphics() {
  letters_.reset();
}

}  // namespace vk
