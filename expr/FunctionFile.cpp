#include <algorithm>
#include <string_view>

#include "base/NumberText.h"
#include "base/Text.h"
#include "expr/CmpMod.h"
#include "expr/FunMod.h"
#include "session/TextLines.h"

namespace vk {
namespace {

constexpr int kRecordsPerFunction = 3;
constexpr int kMostFunctions = 10;
constexpr int kWidestDescription = 56;
constexpr char kJoin = '&';

/// The records of a file one behind the other, each closed by `kJoin`.
struct Records {
  std::string text;
  Int16 count;
};

void addRecordLine(Records& records, const std::string& line) {
  if (line.empty() || line.front() == '%' || line.front() == '#') return;
  if (line.back() == kJoin) {
    records.text.append(line, 0, line.size() - 1);
  } else {
    records.text += line + kJoin;
    ++records.count;
  }
}

Records collectRecords(const std::string& bytes) {
  const TextLines file = splitLines(bytes);
  Records records;
  for (const std::string_view line : file.lines) addRecordLine(records, trim(line));
  addRecordLine(records, trim(file.rest));
  return records;
}

// QUIRK: a "&" inside a record splits it, because the records are kept in one text with "&" between them.
FunctionFile splitFunctions(const Records& records) {
  std::size_t start = 0;
  const auto nextRecord = [&] {
    const std::size_t end = records.text.find(kJoin, start);
    std::string record = records.text.substr(start, end - start);
    start = end + 1;
    return record;
  };

  FunctionFile file;
  int widest = 0;
  const int functions = std::min(records.count / kRecordsPerFunction, kMostFunctions);
  for (int i = 0; i < functions; ++i) {
    FunctionFile::Entry& entry = file.entries.emplace_back();
    entry.parameters = nextRecord();
    entry.definition = nextRecord();
    entry.description = nextRecord();
    widest = std::max(widest, length(entry.description));
  }
  file.DescriptionWidth = std::min(widest, kWidestDescription);
  return file;
}

void addLine(Session& session, const std::string& line) {
  session.TraceText += line;
  session.TraceText += kCrLf;
}

/// Gives whether the records make whole functions, at least one.
bool checkStructure(Session& session, int records) {
  const bool whole = records % kRecordsPerFunction == 0;
  if (!whole) {
    for (const char* line :
         {"*** ERR. Struttura del File Funzioni NON Corretta!", "***      Successione: #",
          "***                   Definizione Parametri", "***                   Definizione Funzione",
          "***                   Descrizione Funzione", "***      Errata!"}) {
      addLine(session, line);
    }
  }
  const bool some = records >= kRecordsPerFunction;
  if (!some) addLine(session, "*** ERR. Il File NON Contiene Funzioni!");
  return whole && some;
}

void reportFunction(Session& session, int number, const FunctionFile::Entry& entry) {
  addLine(session, "");
  addLine(session, "*********** Funzione:     " + signedText(number));
  addLine(session, "Parametri:   " + entry.parameters);
  addLine(session, "Definizione: " + entry.definition);
  addLine(session, "Descrizione: " + entry.description);
}

/// Compiles the function into the session's model area; gives whether it is good.
bool checkFunction(Session& session, int number, const FunctionFile::Entry& entry) {
  addLine(session, "Controllo Funzione:");
  Int16 flag = kTrue;
  CompileExpression(session, "y@x@" + entry.parameters + "@ @" + entry.definition, session.model, flag);
  const bool good = flag == 0;
  addLine(session, good ? "O.K." : "* ERR. Errori nella Compilazione");
  addLine(session, "*********** Fine Funzione: " + generalText(number));
  addLine(session, "");
  return good;
}

/// Gives whether all functions are good, as far as the session's switches ask for it.
bool checkFunctions(Session& session, const FunctionFile& file) {
  bool good = true;
  int number = 0;
  for (const FunctionFile::Entry& entry : file.entries) {
    ++number;
    if (session.TraceEnabled) reportFunction(session, number, entry);
    if (session.CheckFunctions && !checkFunction(session, number, entry)) good = false;
  }
  return good;
}

}  // namespace

void ReadFunctionFile(Session& session, Files& files, OutputWindow& output, std::string& name,
                      Flag checkOnly) {
  session.TraceText.clear();
  const Records records = collectRecords(files.readAll(name));
  name = upper(name);

  const bool structured = checkStructure(session, records.count);
  FunctionFile file = splitFunctions(records);
  const bool good = checkFunctions(session, file) && structured;
  restoreModel(session);  // the checks have used its place
  session.ErrFlag = toFlag(!good);
  if (checkOnly) return;

  if (!good && session.CheckFunctions && session.TraceEnabled) {
    output.OutShow(reportRequest("VOR_KEL: Lettura File Funzioni - Controllo File", session.TraceText));
  }
  if (good) session.catalogue.file = std::move(file);
  session.TraceText.clear();
}

}  // namespace vk
