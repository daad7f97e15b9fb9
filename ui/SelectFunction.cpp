#include "ui/SelectFunction.h"

#include "expr/Catalogue.h"
#include "session/Session.h"

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
  inner_ = displayTexts(session_.loaded.catalogue.inner);
  outer_ = displayTexts(session_.loaded.catalogue.outer);
}

void SelectFunction::open() {
  innerBefore_ = session_.analysis.fun.InnerIndex;
  outerBefore_ = session_.analysis.fun.OuterIndex;
  textBefore_ = text_;
  session_.analysis.fun.InnerIndex = 1;
  session_.analysis.fun.OuterIndex = 1;
  ShowCompositeText();
}

void SelectFunction::selectInner(int entry) {
  session_.analysis.fun.InnerIndex = entry;
  ShowCompositeText();
}

void SelectFunction::selectOuter(int entry) {
  session_.analysis.fun.OuterIndex = entry;
  ShowCompositeText();
}

void SelectFunction::giveUp() {
  session_.analysis.fun.InnerIndex = innerBefore_;
  session_.analysis.fun.OuterIndex = outerBefore_;
  text_ = textBefore_;
}

void SelectFunction::ShowCompositeText() {
  text_ = shownCompositeText(compositeText(session_.loaded.catalogue, session_.analysis.fun));
}

}  // namespace vk
