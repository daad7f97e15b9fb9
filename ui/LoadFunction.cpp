#include "ui/LoadFunction.h"

namespace vk {

void LoadFunction::refill() {
  list_.clear();
  for (const FunctionFile::Entry& entry : file_.entries) list_.push_back(entry.description);
  selected_ = list_.empty() ? 0 : 1;
}

FunctionFile::Entry LoadFunction::entry() const {
  const std::vector<FunctionFile::Entry>& entries = file_.entries;
  const bool there = selected_ >= 1 && selected_ <= static_cast<int>(entries.size());
  return there ? entries[static_cast<std::size_t>(selected_ - 1)] : FunctionFile::Entry{};
}

}  // namespace vk
