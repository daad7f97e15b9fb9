#include "batch/DataInput.h"

#include <algorithm>
#include <iostream>
#include <utility>

#include "base/Text.h"
#include "batch/FileKind.h"
#include "commands/DataCommands.h"
#include "data/DataFiles.h"
#include "data/foreign/Choices.h"
#include "data/foreign/ForeignFile.h"
#include "session/Session.h"

namespace vk {
namespace {

/// The name as a word of the shell.
std::string shellWord(const std::string& fileName) {
  const auto plain = [](char c) { return isLetter(c) || isDigit(c) || position("._/-+", {&c, 1}) > 0; };
  std::string name = shownName(fileName);
  if (std::all_of(name.begin(), name.end(), plain)) return name;
  std::string word = "'";
  for (const char c : name) word += c == '\'' ? "'\\''" : std::string{c};
  return word + "'";
}

}  // namespace

std::string causeOf(const std::string& fileName, const std::string& bytes) {
  const LikelyCause cause = likelyCause(readForeign(bytes));
  const auto content = kindOfContent(bytes);
  if (content == FileKind::kGraphic || (content == FileKind::kFunctions && !cause.cured))
    return whyNot(FileKind::kData, bytes);
  return shownName(cause.text) + (cause.cured ? kTerminalCure + shellWord(fileName) : "");
}

void loadData(Session& session, Files& files, const std::string& fileName) {
  usingFile(fileName, [&] {
    const std::string bytes = files.readAll(fileName);
    DataReading reading = parseLines(bytes);
    if (!reading.errors.empty()) {
      throw UsageError(shownName(fileName) + ":\n" + terminalText(reading.errors) + causeOf(fileName, bytes));
    }
    TerminalDialogs notes(shownName(fileName), std::clog);
    compareCounts(notes, reading.declaredCount, reading.data.NumPnt);
    LoadDataFile(session.loaded, fileName, std::move(reading.data));
  });
}

void writeFile(Files& files, const std::string& fileName, const std::string& bytes) {
  usingFile(fileName, [&] { files.writeAll(fileName, bytes); });
}

int dataDigits(const std::optional<int>& wanted) {
  const int digits = wanted.value_or(kDataDigits);
  if (digits < 1 || digits > kMostDataDigits)
    throw UsageError("--digits: si attende un numero da 1 a " + std::to_string(kMostDataDigits));
  return digits;
}

void tellLostDigits(const std::string& fileName, const DataSet& data, const std::optional<int>& digits) {
  if (digits || !losesDigits(data)) return;
  std::clog << shownName(fileName) << ": dati arrotondati a " << kDataDigits
            << " cifre (--digits ne scrive fino a " << kMostDataDigits << ")\n";
}

void writeData(Files& files, const std::string& fileName, const DataSet& data,
               const std::optional<int>& digits) {
  writeFile(files, fileName, dataFileText(data, dataDigits(digits)));
  tellLostDigits(fileName, data, digits);
}

}  // namespace vk
