#include "batch/ProfileTable.h"

#include "base/CodePage.h"
#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "commands/ColumnTable.h"
#include "commands/FitScreenTexts.h"

namespace vk {
namespace {

const std::string kProfileTitle = "Intervalli di Confidenza dal Profilo di X\xFD";

std::string endText(const std::optional<double>& end) {
  return end ? FormatMask(*end, kNumberMask) : kNoError;
}

}  // namespace

std::string profileScreen(const ParameterSet& par, const std::vector<ProfileIntervals>& intervals) {
  std::vector<TableColumn> columns{{kParameterHead}};
  for (const ProfileLevel& level : kProfileLevels) {
    columns.push_back({numberHead(generalText(level.percent) + " % da")});
    columns.push_back({numberHead("a")});
  }
  for (std::size_t k = 0; k < intervals.size(); ++k) {
    columns[0].push_back(par.name(par.FreeIndex[static_cast<int>(k) + 1]));
    for (std::size_t level = 0; level < kProfileLevels.size(); ++level) {
      columns[2 * level + 1].push_back(endText(intervals[k][level].low));
      columns[2 * level + 2].push_back(endText(intervals[k][level].high));
    }
  }
  return columnTable(kProfileTitle, columns).toUtf8();
}

Json profileReport(const ParameterSet& par, const std::vector<ProfileIntervals>& intervals) {
  const auto orNull = [](const std::optional<double>& end) { return end ? Json(*end) : Json(); };
  Json::List list;
  for (std::size_t k = 0; k < intervals.size(); ++k) {
    Json::List levels;
    for (std::size_t level = 0; level < kProfileLevels.size(); ++level) {
      levels.push_back(Json::Object{{"percent", kProfileLevels[level].percent},
                                    {"low", orNull(intervals[k][level].low)},
                                    {"high", orNull(intervals[k][level].high)}});
    }
    const std::string name = par.name(par.FreeIndex[static_cast<int>(k) + 1]);
    list.push_back(Json::Object{{"name", toUtf8(name, CodePage::kCp437)}, {"intervals", std::move(levels)}});
  }
  return list;
}

}  // namespace vk
