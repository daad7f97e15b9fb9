#include "batch/DataInput.h"

#include "session/DataFiles.h"

namespace vk {
namespace {

void checkAndLoad(Session& session, Files& files, Dialogs& dialogs, const std::string& fileName) {
  std::string errors;
  Int16 declared, valid;
  Flag hasXErrors;
  CheckDataFile(session, files, fileName, errors, declared, valid, hasXErrors);
  if (session.ErrFlag != 0) {
    throw UsageError(fileName + ":\n" + terminalText(errors));
  }
  if (declared != valid) {
    dialogs.Get_Msg({.caption = "VOR_KEL: Lettura File Dati",
                     .text = "Numero Dati Dichiarati Diverso da Numero Dati Trovati!",
                     .captions = {"&Continua"}});
  }
  LoadDataFile(session, files, fileName, valid, hasXErrors);
}

}  // namespace

void readData(Session& session, Files& files, Dialogs& dialogs, const std::string& fileName) {
  usingFile(fileName, [&] { checkAndLoad(session, files, dialogs, fileName); });
}

void writeFile(Files& files, const std::string& fileName, const std::string& bytes) {
  usingFile(fileName, [&] { files.writeAll(fileName, bytes); });
}

}  // namespace vk
