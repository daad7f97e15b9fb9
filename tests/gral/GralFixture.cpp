#include "GralFixture.h"

#include "base/NumberText.h"

namespace vk {

std::vector<double> numbersOf(const std::string& line) {
  std::vector<double> numbers;
  std::string word;
  for (const char c : line + " ") {
    if (c != ' ' && c != ',') {
      word += c;
      continue;
    }
    if (isNumeric(word)) numbers.push_back(scanNumber(word));
    word.clear();
  }
  return numbers;
}

std::vector<TextRun> GralFixture::firstLetters(const std::vector<TextRun>& letters,
                                               const std::vector<std::string>& texts) {
  std::vector<TextRun> firsts;
  std::string printed, expected;
  for (const TextRun& letter : letters) printed += letter.text;
  for (const std::string& text : texts) {
    if (expected.size() < letters.size()) firsts.push_back(letters[expected.size()]);
    expected += text;
  }
  EXPECT_EQ(printed, expected);
  return firsts;
}

}  // namespace vk
