#pragma once

#include <QEventLoop>
#include <QWidget>
#include <exception>

namespace vk {

/// The wait of a command for a modal form. What an event handler of the form throws ends the wait and is thrown
/// again behind it, in the command: no exception crosses the toolkit's dispatch.
class ModalLoop {
 public:
  /// Runs until `finish` and hides the form, then throws what a handler threw.
  void run(QWidget& form) {
    error_ = nullptr;
    loop_.exec();
    form.hide();
    if (error_) std::rethrow_exception(error_);
  }
  void finish() { loop_.quit(); }
  bool isRunning() const { return loop_.isRunning(); }

  /// Runs an event handler.
  template <class Handler>
  void handle(Handler&& handler) {
    try {
      handler();
    } catch (...) {
      error_ = std::current_exception();
      loop_.quit();
    }
  }

 private:
  QEventLoop loop_;
  std::exception_ptr error_;
};

}  // namespace vk
