#include "ui/SelectFunction.h"

#include "expr/FunMod.h"

namespace vk {
namespace {

constexpr double kIndent = 600;

std::vector<std::string> displayTexts(const std::vector<CatalogueEntry>& entries) {
  std::vector<std::string> texts;
  for (const CatalogueEntry& entry : entries) texts.push_back(entry.display);
  return texts;
}

}  // namespace

Rect placeBeside(const Rect& owner, Size form) {
  return {owner.left + kIndent, owner.top + (owner.height - form.height) / 2, form.width, form.height};
}

void SelectFunction::refill() {
  inner_ = displayTexts(session_.catalogue.inner);
  outer_ = displayTexts(session_.catalogue.outer);
}

void SelectFunction::open() {
  innerBefore_ = session_.fun.InnerIndex;
  outerBefore_ = session_.fun.OuterIndex;
  textBefore_ = text_;
  session_.fun.InnerIndex = 1;
  session_.fun.OuterIndex = 1;
  ShowCompositeText();
}

void SelectFunction::selectInner(int entry) {
  session_.fun.InnerIndex = entry;
  ShowCompositeText();
}

void SelectFunction::selectOuter(int entry) {
  session_.fun.OuterIndex = entry;
  ShowCompositeText();
}

void SelectFunction::giveUp() {
  session_.fun.InnerIndex = innerBefore_;
  session_.fun.OuterIndex = outerBefore_;
  text_ = textBefore_;
}

void SelectFunction::ShowCompositeText() {
  text_ = shownCompositeText(compositeText(session_));
}

}  // namespace vk
