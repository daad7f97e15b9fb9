#include <algorithm>
#include <string_view>

#include "base/NumberText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "expr/CmpMod.h"
#include "expr/FunMod.h"

namespace vk {
namespace {

constexpr std::size_t kRecordsPerFunction = 3;
constexpr std::size_t kMostFunctions = 10;
/// A file of more records is no function file.
constexpr std::size_t kMostRecords = 32767;
constexpr int kWidestDescription = 56;
constexpr char kJoin = '&';

/// The records of a file one behind the other, each closed by `kJoin`.
struct Records {
  std::string text;
  std::size_t count = 0;
};

void addRecordLine(Records& records, std::string_view line) {
  if (line.empty() || line.front() == '%' || line.front() == '#') return;
  const bool ends = line.back() != kJoin;
  records.text += line.substr(0, line.size() - (ends ? 0 : 1));
  if (!ends) return;
  records.text += kJoin;
  ++records.count;
}

Records collectRecords(std::string_view text) {
  Records records;
  records.text.reserve(text.size() + 1);
  TextLines lines(text);
  while (const auto line = lines.next()) addRecordLine(records, trimmedLine(*line));
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
  if (records.count > kMostRecords) return file;
  const std::size_t functions = std::min(records.count / kRecordsPerFunction, kMostFunctions);
  for (std::size_t i = 0; i < functions; ++i) {
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
bool checkStructure(Session& session, std::size_t records) {
  const bool whole = records % kRecordsPerFunction == 0 && records <= kMostRecords;
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
  CompileExpression(session, "y@x@" + entry.parameters + "@ @" + entry.definition, session.analysis.model,
                    flag);
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

/// The functions of a text, checked; `ErrFlag` tells whether it is good.
FunctionFile checkedFunctions(Session& session, std::string_view text) {
  session.TraceText.clear();
  const Records records = collectRecords(text);
  const bool structured = checkStructure(session, records.count);
  FunctionFile file = splitFunctions(records);
  const bool good = checkFunctions(session, file) && structured;
  restoreModel(session);  // the checks have used its place
  session.ErrFlag = toFlag(!good);
  return file;
}

}  // namespace

void CheckFunctionText(Session& session, std::string_view text) {
  checkedFunctions(session, text);
}

void ReadFunctionFile(Session& session, Files& files, OutputWindow& output, std::string& name,
                      Flag checkOnly) {
  session.TraceText.clear();
  const std::string text = files.readAll(name);
  name = upper(name);
  FunctionFile file = checkedFunctions(session, text);
  if (checkOnly) return;

  const bool good = session.ErrFlag == 0;
  if (!good && session.CheckFunctions && session.TraceEnabled) {
    output.OutShow(reportRequest("VOR_KEL: Lettura File Funzioni - Controllo File", session.TraceText));
  }
  if (good) session.loaded.catalogue.file = std::move(file);
  session.TraceText.clear();
}

}  // namespace vk
