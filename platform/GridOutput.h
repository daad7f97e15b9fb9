#pragma once

#include <functional>

#include "platform/OutputWindow.h"

namespace vk {

/// An output window without a screen: it keeps its grid as a value. The terminal program prints it, tests
/// compare it, and the real window paints it.
class GridOutput : public OutputWindow {
 public:
  void OutShow(const OutputRequest& request) override;
  void CharLocate(int row, int col) override;
  void print(const Cp437Text& text) override;
  void CharFrame(int row1, int col1, int row2, int col2, int style, const Cp437Text& title) override;
  void refresh() override {}
  void setSaveRoutine(std::function<void()> routine) override { saveRoutine_ = std::move(routine); }
  void setDetail(OutputDetail detail) override { detail_ = std::move(detail); }
  void FrmOut_Exit() override { open_ = false; }
  int opened() const override { return opened_; }
  void closeSince(int opened) override {
    if (opened_ > opened) FrmOut_Exit();
  }

  bool isOpen() const { return open_; }
  bool isTextMode() const { return textMode_; }
  const OutputRequest& request() const { return request_; }
  const CharGrid& grid() const { return grid_; }
  const std::function<void()>& saveRoutine() const { return saveRoutine_; }
  const OutputDetail& detail() const { return detail_; }

 private:
  OutputRequest request_;
  CharGrid grid_;
  int row_ = 1;
  int col_ = 1;
  int opened_ = 0;
  bool open_ = false;
  bool textMode_ = false;
  std::function<void()> saveRoutine_;
  OutputDetail detail_;
};

}  // namespace vk
