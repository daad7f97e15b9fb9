#include <algorithm>

#include "base/NumberText.h"
#include "base/Text.h"
#include "expr/CmpMod.h"
#include "expr/GenerateCode.h"
#include "expr/Opcodes.h"
#include "expr/Tokens.h"

namespace vk {
namespace {

// Characters of a literal or of the value of a named constant.
constexpr int kValueWidth = 20;

/// The fields of a definition text. The first one, the name of the result, nobody reads.
struct Definition {
  std::string variables, parameters, constants, expression;
};

Definition cutFields(const std::string& definition) {
  std::string result = definition;
  Definition fields;
  SplitAtMark(result, fields.variables, '@');
  SplitAtMark(fields.variables, fields.parameters, '@');
  SplitAtMark(fields.parameters, fields.constants, '@');
  SplitAtMark(fields.constants, fields.expression, '@');
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
  const char* start;
  const char* kind;
  const char* other;
};
constexpr ClashTexts kVariableClash{"* ERR. Nome ", " della Variabile ", " Eguale Nome del Parametro "};
constexpr ClashTexts kConstantClash{"* Nome ", " della Costante ", " Eguale Nome di Var. o Par."};

/// One compilation, from the fields to the code.
class Compilation {
 public:
  Compilation(Session& session, CompiledExpression& compiled, Int16 report, Int16& flag)
      : session_(session), asked_(report), report_(session, report), compiled_(compiled), flag_(flag) {}

  void run(const Definition& definition) {
    declareVariables(definition.variables);
    declareParameters(definition.parameters);
    declareConstants(definition.constants);
    text_.nameTable = variables_ + parameters_ + constants_;
    checkParentheses(definition.expression);
    if (!tokenise(prepareExpression(definition.expression), text_, report_)) flag_ = kTrue;
    text_.tokens = "##" + numberDigits(kWrapper) + text_.tokens;
    if (flag_ == kFalse) checkGrammar();
    if (flag_ == kFalse) generate();
    if (flag_ != kFalse) compiled_.Code.clear();
  }

 private:
  std::string checkedTable(const std::string& names, int count) {
    std::string table;
    if (count == 0) return table;
    BuildNameTable(session_, names, table, kNameWidth, asked_, flag_);
    CheckNames(session_, table, count, kNameWidth, asked_, flag_);
    return table;
  }

  void declareVariables(const std::string& field) {
    report_.line("*** Controllo Sintattico delle Variabili...");
    const std::string names = StripBlanks(field);
    compiled_.nVar = CountItems(names);
    report_.line("# Variabili:" + signedText(compiled_.nVar));
    variables_ = checkedTable(names, compiled_.nVar);
  }

  void declareParameters(const std::string& field) {
    report_.line("*** Controllo Sintattico dei Parametri...");
    const std::string names = StripBlanks(field);
    compiled_.nPar = CountItems(names);
    report_.line("# Parametri:" + signedText(compiled_.nPar));
    parameters_ = checkedTable(names, compiled_.nPar);
    reportClashes(variables_, parameters_, kVariableClash);
  }

  void declareConstants(const std::string& field) {
    report_.line("*** Controllo Sintattico delle Costanti...");
    std::string names = StripBlanks(field);
    SplitAtMark(names, text_.values, '/');
    namedConstants_ = CountItems(names);
    report_.line("# Costanti: " + std::to_string(namedConstants_));
    constants_ = checkedTable(names, namedConstants_);
    reportClashes(constants_, variables_ + parameters_, kConstantClash);
  }

  /// A line and an error for each name of a table that another table has too.
  void reportClashes(const std::string& names, const std::string& others, const ClashTexts& texts) {
    for (int i = 0; i < length(names) / kNameWidth; ++i) {
      const std::string entry = mid(names, i * kNameWidth + 1, kNameWidth);
      const int found = entryPosition(others, entry);
      if (found == 0) continue;
      report_.line(texts.start + trim(entry) + texts.kind + signedText(i) + texts.other + signedText(found));
      flag_ = kTrue;
    }
  }

  void checkParentheses(const std::string& expression) {
    report_.line("*** Controllo della Funzione");
    const auto opened = static_cast<int>(std::count(expression.begin(), expression.end(), '('));
    const auto closed = static_cast<int>(std::count(expression.begin(), expression.end(), ')'));
    if (opened == closed) return;
    report_.line("* ERR.: " + signedText(opened) + "Parentesi Aperte e " + signedText(closed) + " Chiuse");
    flag_ = kTrue;
  }

  void checkGrammar() {
    if (isGrammatical(text_.tokens)) return;
    report_.line("* ERR. Scrittura dell'Espressione Errata");
    flag_ = kTrue;
  }

  void generate() {
    if (!text_.mapFits) flag_ = kTrue;
    compiled_.Values.dim(length(text_.nameTable) / kNameWidth);
    storeConstants();
    compiled_.LastSlot = text_.lastOperand;
    compiled_.OperandMap = text_.operandMap;
    if (text_.lastOperand >= 0) compiled_.Slots.dim(text_.lastOperand);
    GenerateCode(text_.tokens, compiled_.Code, flag_);
  }

  // QUIRK: the values stand in one list, named constants before literals. With fewer values than names the
  // literals move forward and the last ones are 0; with more, the literals take the surplus values.
  void storeConstants() {
    std::string table;
    BuildNameTable(session_, text_.values, table, kValueWidth, asked_, flag_);
    for (int i = 1; i <= namedConstants_ + text_.literals; ++i) {
      compiled_.Values[compiled_.nVar + compiled_.nPar + i] =
          scanNumber(mid(table, (i - 1) * kValueWidth + 1, kValueWidth));
    }
  }

  Session& session_;
  Int16 asked_;
  Report report_;
  CompiledExpression& compiled_;
  Int16& flag_;
  std::string variables_, parameters_, constants_;
  int namedConstants_ = 0;
  TokenText text_;
};

}  // namespace

void CompileExpression(Session& session, const std::string& definition, CompiledExpression& compiled,
                       Int16& flag) {
  const Int16 report = flag;
  flag = kFalse;
  const Definition fields = cutFields(definition);
  compiled = CompiledExpression();
  Compilation(session, compiled, report, flag).run(fields);
}

}  // namespace vk
