#include <QApplication>
#include <QHashFunctions>
#include <QTemporaryFile>

#include "ui/qt/widgets/ToolkitSetup.h"

namespace {

/// The screen of the platform without one has 800 x 800 points of the device. At a larger scale windows would not fit
/// on it, and stand elsewhere than on the screens that people have: it grows with the scale.
void scaleScreen(QTemporaryFile& description) {
  const double scale = qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble();
  if (scale == 1 || qEnvironmentVariable("QT_QPA_PLATFORM") != "offscreen" || !description.open()) return;
  description.write(QString(R"({"screens": [{"name": "scaled", "x": 0, "y": 0, "width": %1, "height": %1,
    "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                        .arg(qRound(800 * scale))
                        .toUtf8());
  description.flush();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + description.fileName().toUtf8());
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("CUPS_SERVER", "localhost:1");    // nothing may reach the printers of the machine
  QHashSeed::setDeterministicGlobalSeed();  // walks at random come the same way again
  QTemporaryFile description;
  scaleScreen(description);
  QApplication toolkit(argc, argv);
  vk::setUpToolkit(toolkit);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
