#include "batch/DataInput.h"

#include <iostream>
#include <utility>

#include "commands/DataCommands.h"
#include "data/DataFiles.h"
#include "session/Session.h"

namespace vk {

void loadData(Session& session, Files& files, const std::string& fileName) {
  usingFile(fileName, [&] {
    DataReading reading = readData(files, fileName);
    if (!reading.errors.empty()) {
      throw UsageError(shownName(fileName) + ":\n" + terminalText(reading.errors));
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
