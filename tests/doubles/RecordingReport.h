#pragma once

#include <utility>
#include <vector>

#include "gral/ReportWindow.h"

namespace vk {

/// Keeps the reports that were shown.
class RecordingReport : public ReportWindow {
 public:
  std::vector<FigureReport> reports;
  bool open = false;
  void show(FigureReport report) override { open = true, reports.push_back(std::move(report)); }
  void close() override { open = false; }
};

}  // namespace vk
