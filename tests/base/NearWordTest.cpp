#include "base/NearWord.h"

#include <gtest/gtest.h>

#include <vector>

namespace vk {
namespace {

const std::vector<std::string> kWords{"propagate", "fit", "check", "Tau", "SQR", "--json"};

TEST(NearWord, IsTheCandidateWithTheFewestMistakes) {
  EXPECT_EQ(nearWord("propagte", kWords), "propagate");    // a letter missing
  EXPECT_EQ(nearWord("propaggate", kWords), "propagate");  // one too many
  EXPECT_EQ(nearWord("porpagate", kWords), "propagate");   // two exchanged
  EXPECT_EQ(nearWord("pripagatr", kWords), "propagate");   // two wrong
  EXPECT_EQ(nearWord("chekc", kWords), "check");
  EXPECT_EQ(nearWord("--jsno", kWords), "--json");
  EXPECT_EQ(nearWord("SQT", kWords), "SQR");
}

TEST(NearWord, TakesCapitalsForSmallLetters) {
  EXPECT_EQ(nearWord("tau", kWords), "Tau");
  EXPECT_EQ(nearWord("FIT", kWords), "fit");
}

TEST(NearWord, IsEmptyWhereNothingIsNear) {
  EXPECT_EQ(nearWord("nonsense", kWords), "");
  EXPECT_EQ(nearWord("ft", kWords), "");  // of two letters none may be wrong
  EXPECT_EQ(nearWord("", kWords), "");
  EXPECT_EQ(nearWord("fit", {}), "");
  EXPECT_EQ(nearWord("cheque", kWords), "");
}

TEST(NearWord, TheFirstOfEquallyNearOnesIsTaken) {
  const std::vector<std::string> words{"SIN", "SUN"};
  EXPECT_EQ(nearWord("SON", words), "SIN");
}

}  // namespace
}  // namespace vk
