#pragma once

#include <string>
#include <string_view>

#include "base/Text.h"
#include "session/Session.h"

namespace vk {

/// The compiler's report: lines of `TraceText`, written only when a caller asked for it and the session's
/// switch is on.
class Report {
 public:
  Report(Session& session, Int16 asked)
      : text_(session.TraceText), on_(asked != kFalse && session.TraceEnabled != kFalse) {}

  void line(std::string_view text) {
    if (on_) text_.append(text).append(kCrLf);
  }

 private:
  std::string& text_;
  bool on_;
};

}  // namespace vk
