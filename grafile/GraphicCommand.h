#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "grafile/GraphicFile.h"

namespace vk {

/// What stands behind the counted fields of a command.
enum class TextField {
  kNone,
  kPlain,       ///< taken as it stands
  kFigureText,  ///< shown in the figure: signs of the old 8-bit code become markup
};

/// One command of the language of graphic files.
struct GraphicCommand {
  std::string_view name;
  /// A letter for each numeric field: "x" or "y" for a coordinate of the user on that axis, else ".".
  std::string_view numericKinds;
  int integerFields;
  TextField text;
  void (GraphicRun::*handler)(const CommandFields& fields);

  int numericFields() const { return static_cast<int>(numericKinds.size()); }
};

/// A line of a graphic file that is a command: where it is none, `command` is.
struct GraphicLine {
  const GraphicCommand* command;
  std::string arguments;
};
GraphicLine readGraphicLine(const std::string& line);

/// The fields of a line of a file with a command. An unknown name of a parameter sets the flag to -1.
void readFields(const NamedParameters& parameters, const FileText& file, const GraphicLine& line,
                CommandFields& fields, Int16& flag);

/// Calls `take` with each line of a graphic file, those that are continued as one. A last line that asks for a
/// continuation is run-time error 62.
void eachGraphicLine(std::string_view text, const std::function<void(const std::string&)>& take);

/// All commands.
std::span<const GraphicCommand> graphicCommands();

/// The command of a name in capitals; nothing for an unknown one.
const GraphicCommand* findGraphicCommand(std::string_view name);

}  // namespace vk
