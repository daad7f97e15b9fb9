#pragma once

#include <string>

#include "base/Text.h"

namespace vk {

/// A text of lines that end in CR LF.
class LineText {
 public:
  LineText& operator<<(const std::string& line) {
    text_ += line;
    text_ += kCrLf;
    return *this;
  }
  void append(const LineText& other) { text_ += other.text_; }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace vk
