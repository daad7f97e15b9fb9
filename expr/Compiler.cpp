#include "expr/Compiler.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/NumberText.h"
#include "base/Text.h"
#include "expr/CompilerReport.h"
#include "expr/GenerateCode.h"
#include "expr/NameTable.h"
#include "expr/Opcodes.h"
#include "expr/Tokens.h"

namespace vk {
namespace {

// Characters of a literal or of the value of a named constant.
constexpr int kValueWidth = 20;
// Characters of a report without faults, as a rule.
constexpr std::size_t kUsualReport = 500;

/// The fields of a definition text. The first one, the name of the result, nobody reads.
enum Field { kResult, kVariables, kParameters, kConstants, kExpression, kFields };
using Fields = std::array<TracedText, kFields>;

/// The text begin..end of a definition without the blanks around it.
TracedText trimmedPart(std::string_view definition, std::size_t begin, std::size_t end) {
  while (begin < end && definition[begin] == ' ') ++begin;
  while (begin < end && definition[end - 1] == ' ') --end;
  return {definition.substr(begin, end - begin), static_cast<int>(begin)};
}

/// The last field takes all that is left.
Fields cutFields(std::string_view definition) {
  Fields fields;
  std::size_t begin = 0;
  for (std::size_t i = kResult; i < kFields; ++i) {
    const std::size_t mark = i == kExpression ? definition.size() : definition.find('@', begin);
    const std::size_t end = std::min(mark, definition.size());
    fields[i] = trimmedPart(definition, begin, end);
    begin = std::min(end + 1, definition.size());
  }
  return fields;
}

/// Position of an entry among the entries of a table, a hit across two entries not counting; 0 without one.
int entryPosition(const std::string& table, const std::string& entry) {
  int found = position(table, entry);
  while (found != 0 && (found - 1) % kNameWidth != 0) found = position(table, entry, found + 1);
  return found;
}

/// Texts of the line on a name that is taken already.
struct ClashTexts {
  std::string_view mark;
  const char* kind;
  const char* other;
};
constexpr ClashTexts kVariableClash{kErrorMark, " della Variabile ", " Eguale Nome del Parametro "};
constexpr ClashTexts kConstantClash{"* ", " della Costante ", " Eguale Nome di Var. o Par."};

/// Names that are declared together.
struct Names {
  std::vector<TracedText> items;
  std::string table;
};

/// One compilation, from the fields to the code.
class CompilerRun {
 public:
  explicit CompilerRun(Compilation& result)
      : compiled_(result.code), faults_(result.faults), report_(result) {
    result.report.reserve(kUsualReport);
  }

  /// True when the code is complete.
  bool run(const Fields& fields) {
    declareVariables(fields[kVariables]);
    declareParameters(fields[kParameters]);
    declareConstants(fields[kConstants]);
    text_.nameTable = variables_.table + parameters_.table + constants_.table;
    checkParentheses(fields[kExpression]);
    text_.tokens.append("##" + numberDigits(kWrapper), fields[kExpression].placeOf(0, 1).first);
    tokenise(prepareExpression(fields[kExpression]), text_, report_);
    if (faults_.empty()) checkGrammar();
    if (faults_.empty()) generate(fields[kExpression]);
    if (!faults_.empty()) compiled_.Code.clear();
    return faults_.empty();
  }

 private:
  Names checkedNames(std::vector<TracedText> items) {
    Names names{std::move(items), {}};
    names.table = BuildNameTable(names.items, kNameWidth, CompileFaultKind::kNameTooLong, report_);
    CheckNames(names.items, kNameWidth, report_);
    return names;
  }

  void declareVariables(const TracedText& field) {
    report_.line("*** Controllo Sintattico delle Variabili...");
    std::vector<TracedText> names = field.withoutBlanks().items();
    compiled_.nVar = static_cast<int>(names.size());
    report_.line("# Variabili:" + signedText(compiled_.nVar));
    variables_ = checkedNames(std::move(names));
  }

  void declareParameters(const TracedText& field) {
    report_.line("*** Controllo Sintattico dei Parametri...");
    std::vector<TracedText> names = field.withoutBlanks().items();
    compiled_.nPar = static_cast<int>(names.size());
    report_.line("# Parametri:" + signedText(compiled_.nPar));
    parameters_ = checkedNames(std::move(names));
    reportClashes(variables_, parameters_.table, kVariableClash);
  }

  void declareConstants(const TracedText& field) {
    report_.line("*** Controllo Sintattico delle Costanti...");
    const TracedText bare = field.withoutBlanks();
    const std::size_t mark = std::min(bare.text().find('/'), bare.size());
    std::vector<TracedText> names = bare.part(0, mark).items();
    if (mark < bare.size()) text_.values = bare.part(mark + 1, bare.size()).items();
    namedConstants_ = static_cast<int>(names.size());
    report_.line("# Costanti: " + std::to_string(namedConstants_));
    constants_ = checkedNames(std::move(names));
    reportClashes(constants_, variables_.table + parameters_.table, kConstantClash);
  }

  /// A fault for each of the names that another table has too.
  void reportClashes(const Names& names, const std::string& others, const ClashTexts& texts) {
    for (int i = 0; i < static_cast<int>(names.items.size()); ++i) {
      const std::string entry = mid(names.table, i * kNameWidth + 1, kNameWidth);
      const int found = entryPosition(others, entry);
      if (found == 0) continue;
      const TracedText& item = names.items[static_cast<std::size_t>(i)];
      report_.fault(CompileFaultKind::kNameTaken, item.placeOf(0, item.size()), texts.mark,
                    "Nome " + trim(entry) + texts.kind + signedText(i) + texts.other + signedText(found));
    }
  }

  void checkParentheses(const TracedText& expression) {
    report_.line("*** Controllo della Funzione");
    const auto opened = static_cast<int>(std::ranges::count(expression.text(), '('));
    const auto closed = static_cast<int>(std::ranges::count(expression.text(), ')'));
    if (opened == closed) return;
    report_.fault(CompileFaultKind::kParentheses, expression.placeOf(0, expression.size()),
                  "* ERR.: ", signedText(opened) + "Parentesi Aperte e " + signedText(closed) + " Chiuse");
  }

  void checkGrammar() {
    const std::size_t wrong = ungrammaticalToken(text_.tokens.text());
    if (wrong == std::string::npos) return;
    report_.fault(CompileFaultKind::kGrammar, text_.tokens.placeOf(wrong, 1), kErrorMark,
                  "Scrittura dell'Espressione Errata");
  }

  void generate(const TracedText& expression) {
    const Place whole = expression.placeOf(0, expression.size());
    if (!text_.mapFits) report_.silentFault(CompileFaultKind::kTooManyOperands, whole);
    compiled_.Values.dim(length(text_.nameTable) / kNameWidth);
    storeConstants();
    compiled_.LastSlot = text_.lastOperand;
    compiled_.OperandMap = text_.operandMap;
    if (text_.lastOperand >= 0) compiled_.Slots.dim(text_.lastOperand);
    if (!GenerateCode(text_.tokens.text(), compiled_.Code)) {
      report_.silentFault(CompileFaultKind::kArguments, whole);
    }
  }

  // QUIRK: the values stand in one list, named constants before literals. With fewer values than names the
  // literals move forward and the last ones are 0; with more, the literals take the surplus values.
  void storeConstants() {
    const std::string table =
        BuildNameTable(text_.values, kValueWidth, CompileFaultKind::kNumberTooLong, report_);
    for (int i = 1; i <= namedConstants_ + text_.literals; ++i) {
      compiled_.Values[compiled_.nVar + compiled_.nPar + i] =
          scanNumber(mid(table, (i - 1) * kValueWidth + 1, kValueWidth));
    }
  }

  CompiledExpression& compiled_;
  const std::vector<CompileFault>& faults_;
  CompilerReport report_;
  Names variables_, parameters_, constants_;
  int namedConstants_ = 0;
  TokenText text_;
};

}  // namespace

Compilation compile(const std::string& definition) {
  Compilation result;
  result.ok = CompilerRun(result).run(cutFields(definition));
  // A definition that ends before its expression has no character that the fault could point at.
  const int size = length(definition);
  for (CompileFault& fault : result.faults) {
    fault.first = std::min(fault.first, size);
    fault.length = std::min(fault.length, size - fault.first);
  }
  return result;
}

bool isOfNames(CompileFaultKind kind) {
  return kind <= CompileFaultKind::kNameTaken;
}

std::string functionDefinition(const std::string& parameters, const std::string& formula) {
  return "y@x@" + parameters + "@ @" + formula;
}

Compilation compileFunction(const std::string& parameters, const std::string& definition) {
  return compile(functionDefinition(parameters, definition));
}

}  // namespace vk
