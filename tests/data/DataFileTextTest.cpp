#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "base/CodePage.h"
#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "data/DataFiles.h"
#include "data/FigureText.h"

namespace vk {
namespace {

TEST(DataFileText, HasTwoTitlesTheCountAndALineForEachPoint) {
  DataSet data;
  data.allocate(2, 0);
  data.TitleX = "t (s)";
  data.TitleY = "s (m)";
  data.Xpnt[1] = 1234.5;
  data.Ypnt[1] = -0.00123;
  data.ErrYpnt[1] = 0.1;
  EXPECT_EQ(dataFileText(data),
            "t (s)\r\ns (m)\r\n 2\r\n"
            "  1.23450E+03  -1.23000E-03   1.00000E-01 \r\n"
            "  0.00000E+00   0.00000E+00   0.00000E+00 \r\n");
}

/// The same point twice, since no file may have less.
DataSet equalPoints(double x, double y, double error) {
  DataSet data;
  data.allocate(2, kFalse);
  for (int i = 1; i <= 2; ++i) {
    data.Xpnt[i] = x;
    data.Ypnt[i] = y;
    data.ErrYpnt[i] = error;
  }
  return data;
}

TEST(DataFileText, HasAsManyDigitsAsAreWanted) {
  const DataSet data = equalPoints(2. / 3, -1.5, 0);
  const std::string head = "-\r\n-\r\n 2\r\n";
  const auto twice = [](const std::string& line) { return line + line; };
  EXPECT_EQ(dataFileText(data, 6), dataFileText(data));
  EXPECT_EQ(dataFileText(data, 1), head + twice("  7E-01  -2E+00   0E+00 \r\n"));
  EXPECT_EQ(dataFileText(data, 9), head + twice("  6.66666667E-01  -1.50000000E+00   0.00000000E+00 \r\n"));
}

TEST(DataFileText, BringsEveryNumberBackWithSeventeenDigits) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  const DataSet data = equalPoints(kLargest, -0.1, std::numeric_limits<double>::denorm_min());
  const DataReading reading = parseLines(dataFileText(data, kMostDataDigits));
  EXPECT_EQ(reading.errors, "");
  EXPECT_EQ(reading.data.Xpnt[1], kLargest);
  EXPECT_EQ(reading.data.Ypnt[1], -0.1);
  EXPECT_EQ(reading.data.ErrYpnt[1], std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(parseLines(dataFileText(data, 3)).errors, "");
}

TEST(DataFileText, WithFewDigitsTheLargestNumbersStayNumbers) {
  for (const double value : {1.5E308, 1.75E308, -1.79E308, 1.7976931348623157E308}) {
    for (int digits = 1; digits <= kMostDataDigits; ++digits) {
      const DataReading reading = parseLines(dataFileText(equalPoints(value, 1, 1), digits));
      ASSERT_EQ(reading.errors, "") << value << " with " << digits;
      const double share = digits == 1 ? 0.45 : digits == 2 ? 0.06 : 5.1E-3;
      EXPECT_NEAR(reading.data.Xpnt[1] / value, 1, share) << digits;
    }
  }
}

TEST(DataFileText, LosesDigitsWhereANumberHasMoreThanSix) {
  EXPECT_FALSE(losesDigits(equalPoints(1.23456, -2e10, 0.1)));
  EXPECT_TRUE(losesDigits(equalPoints(1.234567, 1, 1)));
  EXPECT_TRUE(losesDigits(equalPoints(1, 1, 1. / 3)));
  EXPECT_FALSE(losesDigits(DataSet()));
}

TEST(DataFileText, WithXErrorsHasAMarkAndAColumnMore) {
  DataSet data;
  data.allocate(1, kTrue);
  data.Xpnt[1] = 1;
  data.Ypnt[1] = 2;
  data.ErrXpnt[1] = 3;
  data.ErrYpnt[1] = 4;
  EXPECT_EQ(dataFileText(data),
            "-\r\n-\r\n 1 1\r\n"
            "  1.00000E+00   2.00000E+00   3.00000E+00   4.00000E+00 \r\n");
}

TEST(DataFileText, LinesAreFortyTwoOrFiftySixLong) {
  for (const bool hasXErrors : {false, true}) {
    DataSet data;
    data.allocate(3, toFlag(hasXErrors));
    data.Xpnt[2] = -1E100;
    const std::string text = dataFileText(data);
    TextLines lines(text);
    for (int i = 1; i <= 3; ++i) lines.next();
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(lines.next()->size(), hasXErrors ? 56U : 42U);
    EXPECT_FALSE(lines.next());
  }
}

TEST(DataTitle, DepartureABlankOneIsAHyphenAndOneThatWouldBeACommentStandsBehindOne) {
  for (const char* blank : {"", "   ", "\t"}) EXPECT_EQ(dataTitle(blank), "-");
  EXPECT_EQ(dataTitle("% di umidita`"), "- % di umidita`");
  EXPECT_EQ(dataTitle("  %"), "- %");
  EXPECT_EQ(dataTitle(" \t% x"), "- % x");
  EXPECT_EQ(dataTitle("  t (s) "), "t (s)");
  EXPECT_EQ(dataTitle("a\tb"), "a b");
}

TEST(DataField, IsTheMasksWhereItTakesTheNumber) {
  for (const double value : {0.0, 1.0, -1.5, 1E99, -9.99999E99, 1E-99, 2.5E120}) {
    EXPECT_EQ(dataField(value, " ##.#####^^^^ "), FormatMask(value, " ##.#####^^^^ "));
  }
}

TEST(DataField, OfSixDigitsIsTheMasksForNumbersOfAnyLength) {
  std::mt19937_64 chance(3);
  for (int i = 0; i < 2500; ++i) {
    std::string digits = std::to_string(chance());
    digits.resize(1 + chance() % 9);
    const int exponent = static_cast<int>(chance() % 81) - 40;
    const double value = std::stod((chance() % 2 == 0 ? "-" : "") + digits + "E" + std::to_string(exponent));
    for (const double near : {value, std::nextafter(value, 0), std::nextafter(value, 2 * value)}) {
      const std::string field = FormatMask(near, " ##.#####^^^^ ");
      ASSERT_EQ(dataField(near, kDataDigits), field) << near;
      ASSERT_EQ(losesDigits(equalPoints(near, 1, 1)), scanNumber(field) != near) << near;
    }
  }
}

TEST(DataField, DepartureGivesADecimalForTheThirdDigitOfAnExponent) {
  EXPECT_EQ(dataField(-1E-120, " ##.#####^^^^ "), " -1.0000E-120 ");
  EXPECT_EQ(dataField(-1E-120, "  ##.####^^^^"), "  -1.000E-120");
  EXPECT_EQ(dataField(2.5E120, "#.####^^^^"), "0.250E+121");
  EXPECT_EQ(dataField(-2.5E120, "#.####^^^^"), "-.250E+121");
  EXPECT_EQ(dataField(-9.99999E99, "#.####^^^^"), "-.100E+101");
}

TEST(DataField, TheLargestNumbersStayNumbers) {
  for (const char* mask : {" ##.#####^^^^ ", "  ##.####^^^^", "#.####^^^^"}) {
    for (const double value : {1.7976931348623157E308, -1.7976931348623157E308, -1.7951E308}) {
      const std::string field = dataField(value, mask);
      EXPECT_TRUE(isNumeric(trim(field))) << field;
      EXPECT_NEAR(scanNumber(field) / value, 1, 5.1E-3) << field;
    }
  }
}

/// Any bit pattern that is a number, all sizes alike.
double anyNumber(std::mt19937_64& chance) {
  for (;;) {
    const double value = std::bit_cast<double>(chance());
    if (value != 0 && std::abs(value) < 1.79E308) return value;
  }
}

/// The share of a number that half a unit of its last written digit comes to at most, and a trifle more: `accuracy`,
/// ten times as much where the exponent takes the place of a decimal.
double writtenAccuracy(const std::string& field, double accuracy) {
  constexpr std::size_t kShortExponent = 4;
  const std::string text = trim(field);
  return text.size() - text.find('E') > kShortExponent ? 10 * accuracy : accuracy;
}

TEST(DataField, EveryNumberReadsBackToTheDigitsWritten) {
  struct Mask {
    const char* text;
    double accuracy;
  };
  std::mt19937_64 chance(1);
  for (const Mask& mask :
       {Mask{" ##.#####^^^^ ", 5.1E-6}, Mask{"  ##.####^^^^", 5.1E-5}, Mask{"#.####^^^^", 5.1E-4}}) {
    for (int i = 0; i < 20000; ++i) {
      const double value = anyNumber(chance);
      const std::string field = dataField(value, mask.text);
      ASSERT_EQ(field.size(), std::string(mask.text).size()) << value;
      ASSERT_TRUE(isNumeric(trim(field))) << field;
      ASSERT_NEAR(scanNumber(field) / value, 1, writtenAccuracy(field, mask.accuracy)) << field;
    }
  }
}

/// A title of any bytes but line ends, which no road into the session lets through; CR and LF by themselves are none.
/// Signs of the old code come back as markup, so that here they do so before.
std::string anyTitle(std::mt19937_64& chance) {
  const std::string often = "% \t-\r\n";
  std::string title;
  for (auto size = chance() % 9; size > 0; --size) {
    const char c = chance() % 2 == 0 ? often[chance() % often.size()] : static_cast<char>(chance() % 256);
    if (c != '\n' || !title.ends_with('\r')) title += c;
  }
  const std::string utf8 = toUtf8(title, CodePage::kWindows1252);
  return dataTitle(chance() % 2 == 0 ? TranslateDosText(title) : figureTextOfUtf8(utf8));
}

/// Points of a data file come back as their fields tell them.
void expectAsWritten(const Array<double>& read, const Array<double>& source, int points) {
  const char* const mask = " ##.#####^^^^ ";
  for (int i = 1; i <= points; ++i) {
    const std::string field = dataField(source[i], mask);
    ASSERT_NEAR(read[i] / source[i], 1, writtenAccuracy(field, 5.1E-6)) << field;
  }
}

TEST(DataFileText, LoneLineFeedsAndReturnsStayInTheirTitle) {
  const DataReading reading = parseLines("a\nb\r\n\rc\r\r\n2\r\n1 2 3\r\n4 5 6\r\n");
  EXPECT_EQ(reading.errors, "");
  EXPECT_EQ(reading.data.TitleX, "a\nb");
  EXPECT_EQ(reading.data.TitleY, "\rc\r");
  EXPECT_TRUE(dataFileText(reading.data).starts_with("a\nb\r\n\rc\r\r\n 2\r\n"));
}

TEST(DataFileText, WhatIsWrittenReadsBackEqual) {
  std::mt19937_64 chance(2);
  for (int run = 0; run < 3000; ++run) {
    DataSet data;
    data.TitleX = anyTitle(chance);
    data.TitleY = anyTitle(chance);
    data.allocate(2 + static_cast<int>(chance() % 4), toFlag(chance() % 2 == 0));
    for (int i = 1; i <= data.NumPnt; ++i) {
      for (Array<double>* column : {&data.Xpnt, &data.Ypnt, &data.ErrXpnt, &data.ErrYpnt}) {
        (*column)[i] = anyNumber(chance);
      }
    }
    const std::string text = dataFileText(data);
    const DataReading reading = parseLines(text);
    ASSERT_EQ(reading.errors, "") << text;
    ASSERT_EQ(reading.declaredCount, data.NumPnt);
    ASSERT_EQ(reading.data.NumPnt, data.NumPnt);
    ASSERT_EQ(reading.data.kXpntErr, data.kXpntErr);
    ASSERT_EQ(reading.data.TitleX, trim(data.TitleX));
    ASSERT_EQ(reading.data.TitleY, trim(data.TitleY));
    const auto columns = [](const DataSet& set) {
      return std::array{&set.Xpnt, &set.Ypnt, &set.ErrYpnt, &set.ErrXpnt};
    };
    const std::size_t written = data.kXpntErr != kFalse ? 4 : 3;
    for (std::size_t i = 0; i < written; ++i) {
      expectAsWritten(*columns(reading.data)[i], *columns(data)[i], data.NumPnt);
    }
    if (HasFatalFailure()) return;
    ASSERT_EQ(dataFileText(reading.data), text);
  }
}

TEST(DataFileText, FieldsAreThoseOfTheMask) {
  const NumberMask mask(" ##.#####^^^^ ");
  std::mt19937_64 chance(5);
  std::vector<double> values{0.0,      -0.0,  1.0,     9.9999995, 9.999995, -9.999985,
                             1.000005, 1E100, -1E-100, 5E-324,    1.7E308,  999999.5};
  for (int i = 0; i < 20000; ++i) values.push_back(std::bit_cast<double>(chance()));
  for (int i = 0; i < 20000; ++i) values.push_back(static_cast<double>(chance() % 20000000) / 1E7 - 1);
  std::erase_if(values, [](double value) { return std::isnan(value); });
  DataSet data;
  data.allocate(2, kFalse);
  for (const double value : values) {
    data.Xpnt[1] = value;
    const std::string line = dataField(value, mask) + dataField(0, mask) + dataField(0, mask) + "\r\n";
    ASSERT_EQ(dataFileText(data).substr(10, line.size()), line) << value;
  }
}

}  // namespace
}  // namespace vk
