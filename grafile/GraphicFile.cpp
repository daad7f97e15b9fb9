#include "grafile/GraphicFile.h"

#include "base/Guard.h"
#include "grafile/GraphicCommand.h"

namespace vk {

GraphicRun::GraphicRun(Files& files, GralCls& drawing, EvaluationListener& listener, Int16 errorFlag)
    : files_(files), drawing_(drawing), listener_(listener), errorFlag_(errorFlag) {
  const double width = drawing.XrLog, height = drawing.YtLog;
  box_ = {{0, width, 0, width}, {0, height, 0, height}};
}

void GraphicRun::runText(std::string_view text) {
  file_ = FileText(text);
  eachGraphicLine(file_.text(), [this](const std::string& line) { runLine(line); });
}

void GraphicRun::runLine(const std::string& line) {
  lastPointFailed_ = false;
  if (!line.starts_with('\\')) return;
  failure_.clear();
  obey(line);
  if (!failure_.empty()) errors_.add(failure_);
}

void GraphicRun::obey(const std::string& line) {
  const GraphicLine read = readGraphicLine(line);
  const GraphicCommand* command = read.command;
  if (command == nullptr) return fail("***" + line + " Comando Errato");

  Int16 flag = errorFlag_;
  const bool done = guard([&] {
    CommandFields fields;
    readFields(parameters_, file_, read, fields, flag);
    keepDoubles(command->numericKinds, fields);
    if (flag == 0) (this->*command->handler)(fields);
  });
  if (!done || flag != 0) fail("*** Parametri di " + std::string(command->name) + " Errati");
}

/// The path of a file that a command names. A name that leads nowhere stays, to be told.
std::string GraphicRun::placeOf(const std::string& name) const {
  const bool full = name.starts_with('/') || name.starts_with('\\');
  if (full || files_.FileExists(name)) return name;
  for (const std::string& folder : folders_) {
    if (std::string path = joinPath(folder, name); files_.FileExists(path)) return path;
  }
  return name;
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
