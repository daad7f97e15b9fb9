#include "grafile/GraphicFile.h"

#include "base/Guard.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "data/DataFiles.h"
#include "data/FigureText.h"
#include "grafile/GraphicCommand.h"

namespace vk {

GraphicRun::GraphicRun(Files& files, GralCls& drawing, EvaluationListener& listener, Int16 errorFlag)
    : files_(files), drawing_(drawing), listener_(listener), errorFlag_(errorFlag) {
  const double width = drawing.XrLog, height = drawing.YtLog;
  box_ = {{0, width, 0, width}, {0, height, 0, height}};
}

void GraphicRun::runText(std::string_view text) {
  file_ = FileText(text);
  TextLines lines(file_.text());
  while (const auto first = lines.next()) {
    std::string line(trimmedLine(*first));
    while (line.ends_with('&')) {
      const auto more = lines.next();
      if (!more) throw RuntimeError(kInputPastEnd);
      line.pop_back();
      line += trimmedLine(*more);
    }
    runLine(line);
  }
}

void GraphicRun::runLine(const std::string& line) {
  lastPointFailed_ = false;
  if (!line.starts_with('\\')) return;
  failure_.clear();
  obey(line);
  if (!failure_.empty()) errors_.add(failure_);
}

void GraphicRun::obey(const std::string& line) {
  const int open = position(line, "(");
  const bool closed = open > 0 && line.ends_with(')');
  const GraphicCommand* command = closed ? findGraphicCommand(upper(trim(mid(line, 2, open - 2)))) : nullptr;
  if (command == nullptr) return fail("***" + line + " Comando Errato");

  Int16 flag = errorFlag_;
  const bool done = guard([&] {
    CommandFields fields;
    ParseFields(parameters_, mid(line, open + 1, length(line) - open - 1), fields.numbers, fields.integers,
                fields.text, command->numericFields(), command->integerFields, flag, &fields.doubles);
    keepDoubles(command->numericKinds, fields);
    if (command->text == TextField::kFigureText) fields.text = figureText(file_, fields.text);
    if (flag == 0) (this->*command->handler)(fields);
  });
  if (!done || flag != 0) fail("*** Parametri di " + std::string(command->name) + " Errati");
}

/// On an axis that singles cannot resolve, coordinates are the doubles of their parameters.
void GraphicRun::keepDoubles(std::string_view kinds, CommandFields& fields) const {
  int i = 0;
  for (const char axis : kinds) {
    ++i;
    if (isNarrow(axis)) fields.numbers[i] = fields.doubles[i];
  }
}

}  // namespace vk
