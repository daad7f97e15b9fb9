#include "commands/ParameterCommands.h"

#include <algorithm>
#include <vector>

#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "commands/DisplayRefresh.h"
#include "commands/FormDescription.h"
#include "commands/PropagationCommand.h"

namespace vk {
namespace {

constexpr const char* kParametersCaption = "VOR_KEL: Parametri Iniziali";
constexpr const char* kDeltaSign = "\xEB";  ///< shows as a small delta

/// What stands above the two columns of the form.
struct Heads {
  const char* value[2];
  const char* change[2];
};
constexpr Heads kParameterHeads{{kValueHead, " Iniziale "}, {"  Variazione  ", "0 Cost. 1 Var."}};
// \xE5 shows as a small sigma.
constexpr Heads kErrorHeads{{"Valore ", "Parametro"}, {" Errore ", "\xE5>0, Err.Max.<0 "}};

constexpr int kLeastHalfWidth = 22;
constexpr int kFirstRow = 7;

/// Half the columns of the form, an even number: wide enough for the text of the function.
int halfWidth(const std::string& functionText) {
  const int wanted = toInt16(length(trim(functionText)) / 2.0 + 1);
  const int least = std::max(wanted, kLeastHalfWidth);
  return 2 * ((least + 1) / 2);
}

/// The two columns of fields: values on the left, second numbers on the right.
void describeFields(InputTables& form, int half, const ParameterSet& par, int first) {
  const int rows = form.InpFieldCount / 2;
  const int width = par.ParNameWidth;
  const auto add = [&](int field, int row, int column, const std::string& prompt, double value) {
    describeField(form, field,
                  {.row = row,
                   .promptColumn = column + 2,
                   .prompt = prompt,
                   .promptLength = width + 2,
                   .column = column + width + 4,
                   .width = 3 - (half - width),
                   .kind = "#Number",
                   .value = FormatCompact(value)});
  };
  for (int field = 1; field <= rows; ++field) {
    const int i = first + field - 1;
    const int row = kFirstRow + field - 1;
    add(field, row, 0, par.name(i), par.ParValues[i]);
    add(field + rows, row, half, kDeltaSign + par.name(i), par.ParDeltas[i]);
  }
}

void describeHeads(InputTables& form, int half, const std::string& functionText, bool propagation) {
  const int right = 3 * half / 2;
  const Heads& heads = propagation ? kErrorHeads : kParameterHeads;
  describeTexts(form, {{1, half, kFunctionHead},
                       {2, half, functionText},
                       {4, half / 2, heads.value[0]},
                       {5, half / 2, heads.value[1]},
                       {4, right, heads.change[0]},
                       {5, right, heads.change[1]}});
}

/// Fills the tables of the input form from the session's parameters and asks. For a propagation the independent
/// variable is listed first and the second numbers are errors.
bool EnterParameters(Session& session, InputForm& form) {
  const ParameterSet& par = session.analysis.par;
  const std::string& functionText = session.analysis.fun.FunctionText;
  const int half = halfWidth(functionText);
  InputTables& tables = session.input;
  const Flag mode = session.analysis.PropagationMode;
  tables.caption = mode ? WindowText(kPropagationCaption) : kParametersCaption;
  tables.topic = mode ? ManualTopic::kPropagation : ManualTopic::kParameters;
  tables.InpCols = 2 * half;
  tables.InpRows = par.ParCount + kFirstRow - mode;
  describeFrames(tables,
                 {{1, 1, tables.InpRows, tables.InpCols}, {3, 1, 6, half}, {3, half, 6, tables.InpCols}});
  describeHeads(tables, half, functionText, mode);
  describeFieldCount(tables, (par.ParCount - mode) * 2);
  describeFields(tables, half, par, mode + 1);
  return askForm(session, form);
}

}  // namespace

void markParametersSet(Session& session) {
  session.analysis.ParametersSet = kTrue;
  session.analysis.ParVar = toFlag(session.analysis.par.FreeCount >= 1) & ~session.analysis.PropagationMode;
}

void StoreParameters(Session& session) {
  const InputTables& fields = session.input;
  const int half = fields.InpFieldCount / 2;
  const auto numbers = [&](int before) {
    std::vector<double> column;
    for (int j = 1; j <= half; ++j) column.push_back(scanNumber(fields.InpValues[before + j].bytes()));
    return column;
  };
  StoreParameters(session.analysis.par, numbers(0), numbers(half), 1 + session.analysis.PropagationMode);
  markParametersSet(session);
}

void StoreParameters(Session& session, MainWindow& window) {
  StoreParameters(session);
  window.refresh();
  Msg(session, window);
}

void MenAdaPar(Session& session, Ports& ports) {
  session.analysis.PropagationMode = kFalse;
  if (EnterParameters(session, ports.input)) {
    StoreParameters(session, ports.window);
  }
}

void MenSerPro(Session& session, Ports& ports) {
  if (session.analysis.FunDefined) {
    session.analysis.PropagationMode = kTrue;
    if (EnterParameters(session, ports.input)) {
      StoreParameters(session, ports.window);
      PropagateErrors(session, ports);
    }
  }
  session.ErrFlag = 0;
}

}  // namespace vk
