#include <QApplication>

#include "ui/qt/widgets/ToolkitSetup.h"

int main(int argc, char** argv) {
  QApplication toolkit(argc, argv);
  vk::setUpToolkit(toolkit);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
