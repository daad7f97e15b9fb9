#include "data/ErrorList.h"

#include "base/Text.h"

namespace vk {

void ErrorList::add(std::string_view entry) {
  if (++count_ > kMostEntries) return;
  entries_ += entry;
  entries_ += kCrLf;
}

std::string ErrorList::text() const {
  if (count_ <= kMostEntries) return entries_;
  const std::string others = std::to_string(count_ - kMostEntries);
  return entries_ + "***ERR. ... e altri " + others + " errori" + std::string(kCrLf);
}

}  // namespace vk
