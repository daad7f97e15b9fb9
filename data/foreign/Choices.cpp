#include "data/foreign/Choices.h"

#include <array>

namespace vk {
namespace {

struct ChoiceName {
  std::string_view option;
  const char* field;
};

// In the order of `Choice`.
constexpr std::array kChoiceNames{
    ChoiceName{"--encoding", "Codifica"}, ChoiceName{"--separator", "Separatore"},
    ChoiceName{"--decimal", "Decimali"},  ChoiceName{"--header", "Intestazione"},
    ChoiceName{"--columns", "Colonne"},   ChoiceName{"--dy", "dy"},
    ChoiceName{"--every", "Uno ogni"},    ChoiceName{"--average", "Media di"},
};

}  // namespace

const char* fieldOf(Choice choice) {
  return kChoiceNames.at(static_cast<std::size_t>(choice)).field;
}

std::string inWindowWords(std::string message) {
  for (const ChoiceName& name : kChoiceNames) {
    for (auto at = message.find(name.option); at != std::string::npos; at = message.find(name.option, at))
      message.replace(at, name.option.size(), name.field);
  }
  return message;
}

}  // namespace vk
