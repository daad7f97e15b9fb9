#include "ui/qt/main/Run.h"

int main(int argc, char** argv) {
  return vk::runDesktop(argc, argv);
}
