#include "data/ErrorList.h"

#include "base/NumberMasks.h"
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

std::string lineError(int line, std::string_view text, const std::string& reason, std::size_t token) {
  const std::string place = token == 0 ? "" : "; Dato " + std::to_string(token);
  return "***ERR. Linea " + FormatPattern(line, "####") + place + ": " + std::string(text) +
         std::string(kCrLf) + reason;
}

}  // namespace vk
