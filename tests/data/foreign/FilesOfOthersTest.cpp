#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <locale>
#include <set>
#include <sstream>

#include "data/DataFiles.h"
#include "data/FigureText.h"
#include "data/foreign/ForeignFile.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

/// A file of tests/files and what must come out of it.
struct Expected {
  std::string file, line, titles, points;
};

std::string bytesOf(const std::string& name) {
  return fileContent(sourcePath("tests/files/" + name));
}

std::vector<Expected> table() {
  std::vector<Expected> entries;
  std::istringstream lines(bytesOf("table.txt"));
  std::vector<std::string> entry;
  for (std::string line; !lines.eof();) {
    std::getline(lines, line);
    if (line.starts_with("#")) continue;
    if (!line.empty()) {
      entry.push_back(line);
      continue;
    }
    entry.resize(entry.empty() ? 0 : 4);
    if (!entry.empty()) entries.push_back({entry[0], entry[1], entry[2], entry[3]});
    entry.clear();
  }
  return entries;
}

/// "0 1.5 0.1; 1 2.5 0.1".
std::string shownPoints(const DataSet& data) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text.precision(10);
  for (int i = 1; i <= data.NumPnt; ++i) {
    text << (i > 1 ? "; " : "") << data.Xpnt[i] << ' ' << data.Ypnt[i] << ' ';
    if (data.kXpntErr) text << data.ErrXpnt[i] << ' ';
    text << data.ErrYpnt[i];
  }
  return text.str();
}

TEST(FilesOfOthers, EachIsUnderstoodOrRefusedWithItsCause) {
  for (const Expected& expected : table()) {
    SCOPED_TRACE(expected.file);
    const ForeignReading reading = readForeign(bytesOf(expected.file));
    const bool refused = expected.points.empty();
    EXPECT_EQ(refused ? reading.refusal : descriptionOf(reading), expected.line);
    EXPECT_EQ(reading.refusal.empty(), !refused);
    if (refused) continue;
    EXPECT_EQ(utf8OfFigureText(reading.data.TitleX + " | " + reading.data.TitleY), expected.titles);
    EXPECT_EQ(shownPoints(reading.data), expected.points);
  }
}

TEST(FilesOfOthers, EachFileHasItsEntry) {
  std::set<std::string> files, entries;
  for (const auto& file : std::filesystem::directory_iterator(sourcePath("tests/files"))) {
    if (file.path().filename() != "table.txt") files.insert(file.path().filename().string());
  }
  for (const Expected& expected : table()) entries.insert(expected.file);
  EXPECT_EQ(files, entries);
  EXPECT_GE(entries.size(), 60U);
}

TEST(FilesOfOthers, WhatIsWrittenIsADataFileWithTheSamePoints) {
  for (const Expected& expected : table()) {
    SCOPED_TRACE(expected.file);
    const ForeignReading reading = readForeign(bytesOf(expected.file));
    if (!reading.refusal.empty()) continue;
    const std::string text = dataFileText(reading.data);
    const DataReading back = parseLines(text);
    constexpr double kRounding = 5E-6;  // of six digits
    EXPECT_EQ(back.errors, "");
    EXPECT_EQ(back.data.TitleX, reading.data.TitleX);
    EXPECT_EQ(back.data.TitleY, reading.data.TitleY);
    EXPECT_EQ(dataFileText(back.data), text);
    for (int i = 1; i <= reading.data.NumPnt; ++i) {
      EXPECT_NEAR(back.data.Xpnt[i], reading.data.Xpnt[i], kRounding * std::abs(reading.data.Xpnt[i]));
      EXPECT_NEAR(back.data.Ypnt[i], reading.data.Ypnt[i], kRounding * std::abs(reading.data.Ypnt[i]));
      EXPECT_NEAR(back.data.ErrXpnt[i], reading.data.ErrXpnt[i], kRounding * reading.data.ErrXpnt[i]);
      EXPECT_NEAR(back.data.ErrYpnt[i], reading.data.ErrYpnt[i], kRounding * reading.data.ErrYpnt[i]);
    }
    EXPECT_TRUE(readForeign(text).isDataFile);
  }
}

}  // namespace
}  // namespace vk
