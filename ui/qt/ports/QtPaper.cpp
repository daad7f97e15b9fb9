#include "ui/qt/ports/QtPaper.h"

#include <algorithm>

namespace vk {

PrinterMetrics QtPaper::metrics() {
  const Twips width = printer_.Width(), height = printer_.Height();
  return {std::min(width, height), std::max(width, height), printer_.resolution()};
}

}  // namespace vk
