#pragma once

#include <span>
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

/// All commands.
std::span<const GraphicCommand> graphicCommands();

/// The command of a name in capitals; nothing for an unknown one.
const GraphicCommand* findGraphicCommand(std::string_view name);

}  // namespace vk
