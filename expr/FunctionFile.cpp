#include "expr/FunctionFile.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/FileText.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "expr/Compiler.h"
#include "expr/FormulaAdvice.h"
#include "expr/FormulaText.h"

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
  std::vector<std::pair<std::size_t, int>>
      lines{};  ///< where each line of the file begins in the text, and its number

  /// The line of a place in the text.
  int lineOf(std::size_t at) const {
    const auto behind = std::ranges::upper_bound(lines, at, {}, &std::pair<std::size_t, int>::first);
    return std::prev(behind)->second;
  }
};

void addRecordLine(Records& records, std::string_view line, int number) {
  if (line.empty() || line.front() == '%' || line.front() == '#') return;
  const bool ends = line.back() != kJoin;
  records.lines.emplace_back(records.text.size(), number);
  records.text += line.substr(0, line.size() - (ends ? 0 : 1));
  if (!ends) return;
  records.text += kJoin;
  ++records.count;
}

Records collectRecords(std::string_view text) {
  Records records;
  records.text.reserve(text.size() + 1);
  TextLines lines(text);
  int number = 0;
  while (const auto line = lines.next()) addRecordLine(records, trimmedLine(*line), ++number);
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

/// One check of a file, which writes its report.
class FunctionFileCheck {
 public:
  FunctionFileCheck(FunctionFileChecks checks, const Records& records, ParsedFunctionFile& result)
      : checks_(checks), records_(records), report_(result.report), doubtful_(result.doubtful) {}

  /// Gives whether the records make whole functions, at least one.
  bool structure() {
    const bool whole = records_.count % kRecordsPerFunction == 0 && records_.count <= kMostRecords;
    if (!whole) {
      for (const char* line :
           {"*** ERR. Struttura del File Funzioni NON Corretta!", "***      Successione: #",
            "***                   Definizione Parametri", "***                   Definizione Funzione",
            "***                   Descrizione Funzione", "***      Errata!"}) {
        addLine(line);
      }
    }
    const bool some = records_.count >= kRecordsPerFunction;
    if (!some) addLine("*** ERR. Il File NON Contiene Funzioni!");
    return whole && some;
  }

  /// Gives whether all functions are good, as far as they are compiled.
  bool functions(FunctionFile& file) {
    bool good = true;
    int number = 0;
    std::size_t begin = 0;
    for (FunctionFile::Entry& entry : file.entries) {
      ++number;
      if (checks_.trace) show(number, entry);
      if (checks_.compile && !compiles(number, entry)) good = false;
      if (!entry.code.Code.empty()) doubt(number, entry, begin + entry.parameters.size() + 1);
      begin +=
          entry.parameters.size() + entry.definition.size() + entry.description.size() + kRecordsPerFunction;
    }
    return good;
  }

 private:
  void addLine(const std::string& line) { report_.append(line).append(kCrLf); }

  void show(int number, const FunctionFile::Entry& entry) {
    addLine("");
    addLine("*********** Funzione:     " + signedText(number));
    addLine("Parametri:   " + entry.parameters);
    addLine("Definizione: " + entry.definition);
    addLine("Descrizione: " + entry.description);
  }

  bool compiles(int number, FunctionFile::Entry& entry) {
    addLine("Controllo Funzione:");
    Compilation compiled = compileFunction(entry.parameters, entry.definition);
    entry.code = std::move(compiled.code);
    if (checks_.trace) report_ += compiled.report;
    addLine(compiled.ok ? "O.K." : "* ERR. Errori nella Compilazione");
    if (!compiled.ok)
      report_ += adviceLines(functionDefinition(entry.parameters, entry.definition), compiled);
    addLine("*********** Fine Funzione: " + generalText(number));
    addLine("");
    return compiled.ok;
  }

  /// `begin` is the place of the formula among the records.
  void doubt(int number, const FunctionFile::Entry& entry, std::size_t begin) {
    const auto advice = adviseOn(entry.definition, splitItems(StripBlanks("x," + entry.parameters)));
    if (advice.empty()) return;
    const int line = records_.lineOf(begin + static_cast<std::size_t>(advice.front().first));
    doubtful_.push_back({number, line, adviceLines(entry.definition, advice)});
  }

  FunctionFileChecks checks_;
  const Records& records_;
  std::string& report_;
  std::vector<DoubtfulFunction>& doubtful_;
};

}  // namespace

ParsedFunctionFile parseFunctionFile(std::string_view text, FunctionFileChecks checks) {
  ParsedFunctionFile result;
  const FileText file(text);
  const Records records = collectRecords(file.gridText(file.text()));
  FunctionFileCheck check(checks, records, result);
  const bool structured = check.structure();
  result.file = splitFunctions(records);
  result.ok = check.functions(result.file) && structured;
  return result;
}

}  // namespace vk
