#pragma once

#include <ostream>
#include <sstream>
#include <string>

namespace vk {

/// Takes what is printed on a stream as long as it lives.
class StreamText {
 public:
  explicit StreamText(std::ostream& stream) : stream_(stream), before_(stream.rdbuf(text_.rdbuf())) {}
  ~StreamText() { stream_.rdbuf(before_); }
  StreamText(const StreamText&) = delete;
  StreamText& operator=(const StreamText&) = delete;

  std::string text() const { return text_.str(); }

 private:
  std::ostringstream text_;
  std::ostream& stream_;
  std::streambuf* before_;
};

}  // namespace vk
