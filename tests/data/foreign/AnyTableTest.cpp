#include <gtest/gtest.h>

#include <random>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "data/DataFiles.h"
#include "data/foreign/ForeignFile.h"

namespace vk {
namespace {

using Chance = std::mt19937;

/// A number with few digits, as it would be typed, with a point.
std::string anyNumber(Chance& chance) {
  std::string text =
      std::to_string(static_cast<int>(chance() % 2000) - 1000) + "." + std::to_string(chance() % 90 + 10);
  if (chance() % 5 == 0) text += "E-0" + std::to_string(chance() % 9);
  return text;
}

struct Written {
  std::string text;  ///< UTF-8
  std::vector<std::vector<double>> rows;
};

/// A table as some program may write it: any separator with any decimal sign that goes with it.
Written anyTable(Chance& chance, std::size_t columns) {
  const std::vector<std::string> separators{";", "\t", " ", "  ", " | ", "; ", ","};
  const std::vector<std::string> lineEnds{"\r\n", "\n", "\r"};
  const std::string separator = separators[chance() % separators.size()];
  const std::string lineEnd = lineEnds[chance() % lineEnds.size()];
  const bool comma = separator != "," && chance() % 2 == 0;
  Written table;
  const auto addLine = [&](const std::vector<std::string>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) table.text += (i > 0 ? separator : "") + cells[i];
    table.text += lineEnd;
  };
  if (chance() % 2 == 0) addLine(std::vector<std::string>(columns, "Velocit\u00E0"));
  for (int row = 0; row < 5; ++row) {
    std::vector<std::string> cells;
    table.rows.emplace_back();
    for (std::size_t i = 0; i < columns; ++i) {
      cells.push_back(anyNumber(chance));
      table.rows.back().push_back(*numberIn(cells.back()));
      if (comma) cells.back().replace(cells.back().find('.'), 1, ",");
      if (chance() % 8 == 0) cells.back() = "\"" + cells.back() + "\"";
    }
    addLine(cells);
  }
  return table;
}

/// The text in an encoding that programs write.
std::string encoded(const std::string& utf8, unsigned kind) {
  if (kind == 0) return utf8;
  if (kind == 1) return "\xEF\xBB\xBF" + utf8;
  std::string bytes = kind == 2 ? "\xFF\xFE" : "";
  const std::u32string characters = decodeUtf8(utf8).value();
  for (const char32_t c : characters) {
    bytes += static_cast<char>(c);
    if (kind == 2) bytes += '\0';
  }
  return bytes;
}

TEST(AnyTable, GivesItsPointsInWhateverWayItIsWritten) {
  Chance chance(7);
  for (int run = 0; run < 1500; ++run) {
    const std::size_t columns = 2 + chance() % 3;
    const Written table = anyTable(chance, columns);
    const std::string bytes = encoded(table.text, static_cast<unsigned>(chance() % 4));
    const ForeignReading reading = readForeign(bytes);
    ASSERT_EQ(reading.refusal, "") << table.text;
    ASSERT_TRUE(reading.leftOut.empty()) << table.text << reading.leftOut.front().reason;
    ASSERT_EQ(reading.data.NumPnt, 5) << table.text << descriptionOf(reading);
    for (int i = 1; i <= 5; ++i) {
      const std::vector<double>& row = table.rows[static_cast<std::size_t>(i - 1)];
      ASSERT_EQ(reading.data.Xpnt[i], row[0]) << table.text;
      ASSERT_EQ(reading.data.Ypnt[i], row[1]) << table.text;
      ASSERT_EQ(reading.data.ErrXpnt[i], columns == 4 ? row[2] : 0) << table.text;
      ASSERT_EQ(reading.data.ErrYpnt[i], columns == 2 ? 1 : row.back()) << table.text;
    }
  }
}

std::string anyText(Chance& chance) {
  const std::vector<std::string> pieces{"1",
                                        "2,5",
                                        "3.25",
                                        "1.234",
                                        "1,234",
                                        ";",
                                        ";",
                                        ",",
                                        "\t",
                                        " ",
                                        "|",
                                        "\"",
                                        "\"\"",
                                        "\n",
                                        "\n",
                                        "\r\n",
                                        "\r",
                                        "x",
                                        "# t",
                                        "%",
                                        "//",
                                        "-",
                                        "+1E5",
                                        "\xE0",
                                        "\xC3\xA0",
                                        "\xEF\xBB\xBF",
                                        std::string(1, '\0'),
                                        "\xFF",
                                        "(s)",
                                        "1'234",
                                        "sep=;",
                                        "\x1A"};
  std::string text;
  for (auto size = chance() % 30; size > 0; --size) {
    text += chance() % 3 == 0 ? pieces[chance() % pieces.size()] : "1,5;-2;7,25\n";
  }
  return text;
}

TEST(AnyTable, IsRefusedOrGivesADataFileThatCanBeReadBack) {
  Chance chance(3);
  int understood = 0;
  for (int run = 0; run < 6000; ++run) {
    const std::string bytes = anyText(chance);
    ForeignOptions options;
    if (chance() % 4 == 0) options.headerLines = static_cast<int>(chance() % 4);
    if (chance() % 4 == 0) options.columns = {"1", "2"};
    if (chance() % 4 == 0) options.average = 1 + chance() % 3;
    const ForeignReading reading = readForeign(bytes, options);
    if (!reading.refusal.empty()) continue;
    ++understood;
    const DataReading back = parseLines(dataFileText(reading.data));
    ASSERT_EQ(back.errors, "") << bytes;
    ASSERT_EQ(back.data.TitleX, reading.data.TitleX) << bytes;
    ASSERT_EQ(back.data.TitleY, reading.data.TitleY) << bytes;
    ASSERT_EQ(back.data.NumPnt, reading.data.NumPnt) << bytes;
  }
  EXPECT_GT(understood, 500);
}

}  // namespace
}  // namespace vk
