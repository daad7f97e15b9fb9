#pragma once

#include <utility>
#include <vector>

#include "gral/ReportWindow.h"

namespace vk {

/// Keeps the reports that were shown.
class RecordingReport : public ReportWindow {
 public:
  std::vector<FigureReport> reports;
  void show(FigureReport report) override { reports.push_back(std::move(report)); }
};

}  // namespace vk
