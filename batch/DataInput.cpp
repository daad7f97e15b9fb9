#include "batch/DataInput.h"

#include <utility>

#include "commands/DataCommands.h"
#include "data/DataFiles.h"
#include "session/Session.h"

namespace vk {

void loadData(Session& session, Files& files, Dialogs& dialogs, const std::string& fileName) {
  usingFile(fileName, [&] {
    DataReading reading = readData(files, fileName);
    if (!reading.errors.empty()) {
      throw UsageError(shownName(fileName) + ":\n" + terminalText(reading.errors));
    }
    compareCounts(dialogs, reading.declaredCount, reading.data.NumPnt);
    LoadDataFile(session.loaded, fileName, std::move(reading.data));
  });
}

void writeFile(Files& files, const std::string& fileName, const std::string& bytes) {
  usingFile(fileName, [&] { files.writeAll(fileName, bytes); });
}

}  // namespace vk
