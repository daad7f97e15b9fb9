#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "base/EncodedText.h"

/// Tests compare what crossed a port with the bytes they expect.
namespace vk {

template <CodePage page>
bool operator==(const EncodedText<page>& text, const char* bytes) {
  return text.bytes() == bytes;
}
template <CodePage page>
bool operator==(const EncodedText<page>& text, const std::string& bytes) {
  return text.bytes() == bytes;
}
template <CodePage page>
void PrintTo(const EncodedText<page>& text, std::ostream* out) {
  *out << testing::PrintToString(text.bytes());
}

}  // namespace vk
