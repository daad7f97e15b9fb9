#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "expr/Compiler.h"
#include "expr/TracedText.h"

namespace vk {

/// What a compilation has to say: the lines of its report and its faults, which have lines of their own.
class CompilerReport {
 public:
  explicit CompilerReport(Compilation& into) : into_(into) {}

  void line(std::string_view text) { into_.report.append(text).append(kCrLf); }
  /// A fault whose line is its text behind a mark.
  void fault(CompileFaultKind kind, Place place, std::string_view mark, const std::string& text) {
    line(std::string(mark) + text);
    into_.faults.push_back({kind, place.first, place.length, text});
  }
  /// A fault without a line.
  void silentFault(CompileFaultKind kind, Place place) {
    into_.faults.push_back({kind, place.first, place.length, {}});
  }

 private:
  Compilation& into_;
};

inline constexpr std::string_view kErrorMark = "* ERR. ";

}  // namespace vk
