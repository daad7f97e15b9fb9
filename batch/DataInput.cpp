#include "batch/DataInput.h"

#include <utility>

#include "commands/DataCommands.h"
#include "data/DataFiles.h"
#include "session/Session.h"

namespace vk {
namespace {

void checkAndLoad(Session& session, Files& files, Dialogs& dialogs, const std::string& fileName) {
  DataReading reading = readData(files, fileName);
  if (!reading.errors.empty()) {
    throw UsageError(shownName(fileName) + ":\n" + terminalText(reading.errors));
  }
  if (reading.declaredCount != reading.data.NumPnt) {
    dialogs.Get_Msg({.caption = kReadCaption + WindowText(kDataWord),
                     .text = kCountsDiffer,
                     .captions = {kContinueButton}});
  }
  LoadDataFile(session.loaded, fileName, std::move(reading.data));
}

}  // namespace

void loadData(Session& session, Files& files, Dialogs& dialogs, const std::string& fileName) {
  usingFile(fileName, [&] { checkAndLoad(session, files, dialogs, fileName); });
}

void writeFile(Files& files, const std::string& fileName, const std::string& bytes) {
  usingFile(fileName, [&] { files.writeAll(fileName, bytes); });
}

}  // namespace vk
