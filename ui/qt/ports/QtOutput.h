#pragma once

#include <map>
#include <memory>
#include <vector>

#include "platform/OutputWindow.h"
#include "ui/qt/forms/OutputForm.h"
#include "ui/qt/widgets/EventPump.h"

namespace vk {

/// The output window of the screen. Normally there is one; a request that must not take its place gets a window
/// of its own beside it.
class QtOutput : public OutputWindow {
 public:
  QtOutput(const OutputServices& services, EventPump& pump);

  void OutShow(const OutputRequest& request) override;
  void CharLocate(int row, int col) override { model().CharLocate(row, col); }
  void print(const Cp437Text& text) override;
  void CharFrame(int row1, int col1, int row2, int col2, int style, const Cp437Text& title) override;
  void refresh() override;
  void setSaveRoutine(std::function<void()> routine) override { model().setSaveRoutine(std::move(routine)); }
  void setDetail(OutputDetail detail) override { form().setDetail(std::move(detail)); }
  void FrmOut_Exit() override { present_->FrmOut_Exit(); }
  int opened() const override { return opened_; }
  void closeSince(int opened) override;

  /// The window that commands draw on.
  FrmOut& form() { return *present_; }
  /// At the end of the program.
  void hideAll();

 private:
  OutputModel& model() { return present_->model(); }
  void takeFreeForm();

  OutputServices services_;
  EventPump& pump_;
  std::vector<std::unique_ptr<FrmOut>> forms_;  ///< the first one lasts
  std::map<const FrmOut*, int> openings_;       ///< the number that each had when it was opened last
  int opened_ = 0;
  FrmOut* present_ = nullptr;
};

}  // namespace vk
