#include "grafile/GraphicCommand.h"

#include <algorithm>
#include <array>

#include "base/Text.h"
#include "base/TextLines.h"
#include "data/FigureText.h"

namespace vk {
namespace {

using enum TextField;

constexpr std::array kCommands{
    GraphicCommand{"PARAMETRI", "", 0, kPlain, &GraphicRun::defineParameters},
    GraphicCommand{"XLOG", "", 0, kPlain, &GraphicRun::setXLog},
    GraphicCommand{"YLOG", "", 0, kPlain, &GraphicRun::setYLog},
    GraphicCommand{"XSCALA", "....", 0, kNone, &GraphicRun::scaleX},
    GraphicCommand{"YSCALA", "....", 0, kNone, &GraphicRun::scaleY},
    GraphicCommand{"AREA", "xyxy", 0, kNone, &GraphicRun::limitArea},
    GraphicCommand{"LINEA", "xyxy", 0, kNone, &GraphicRun::drawLine},
    GraphicCommand{"XASSE", "xxy..", 1, kFigureText, &GraphicRun::drawXAxis},
    GraphicCommand{"YASSE", "yyx..", 1, kFigureText, &GraphicRun::drawYAxis},
    GraphicCommand{"XLEGENDA", "", 0, kFigureText, &GraphicRun::setXLegend},
    GraphicCommand{"YLEGENDA", "", 0, kFigureText, &GraphicRun::setYLegend},
    GraphicCommand{"SCRIVI", "xy", 3, kFigureText, &GraphicRun::write},
    GraphicCommand{"TIPO_SIMBOLO", ".", 1, kNone, &GraphicRun::chooseMark},
    GraphicCommand{"TIPO_LINEA", ".", 1, kNone, &GraphicRun::chooseLine},
    GraphicCommand{"SIMBOLO", "xy", 0, kNone, &GraphicRun::drawMark},
    GraphicCommand{"DATI", "", 0, kPlain, &GraphicRun::plotFile},
    GraphicCommand{"SPEZZATA", "", 0, kPlain, &GraphicRun::joinFile},
    GraphicCommand{"CURVA", "", 0, kPlain, &GraphicRun::curveFile},
    GraphicCommand{"FUNZIONE", "", 0, kPlain, &GraphicRun::plotFunction},
    GraphicCommand{"COLORE", "", 0, kPlain, &GraphicRun::chooseColour},
    GraphicCommand{"TITOLO", "", 0, kFigureText, &GraphicRun::writeTitle},
    GraphicCommand{"CHIAVE", "xy", 0, kFigureText, &GraphicRun::addKey},
    GraphicCommand{"BANDA", "", 0, kPlain, &GraphicRun::fillBand},
    GraphicCommand{"RIQUADRO", "", 3, kNone, &GraphicRun::frameBox},
    GraphicCommand{"CONTORNI", "", 3, kPlain, &GraphicRun::drawContourLines},
    GraphicCommand{"RIQUADRO3D", ".....", 2, kPlain, &GraphicRun::drawSpaceFrame},
    GraphicCommand{"SUPERFICIE", ".....", 2, kPlain, &GraphicRun::drawSurface},
    GraphicCommand{"COLONNE", ".....", 1, kPlain, &GraphicRun::drawColumns},
};

}  // namespace

std::span<const GraphicCommand> graphicCommands() {
  return kCommands;
}

const GraphicCommand* findGraphicCommand(std::string_view name) {
  const auto found = std::find_if(kCommands.begin(), kCommands.end(),
                                  [&](const GraphicCommand& command) { return command.name == name; });
  return found == kCommands.end() ? nullptr : &*found;
}

GraphicLine readGraphicLine(const std::string& line) {
  const int open = position(line, "(");
  if (!line.starts_with('\\') || open == 0 || !line.ends_with(')')) return {nullptr, {}};
  return {findGraphicCommand(upper(trim(mid(line, 2, open - 2)))),
          mid(line, open + 1, length(line) - open - 1)};
}

void readFields(const NamedParameters& parameters, const FileText& file, const GraphicLine& line,
                CommandFields& fields, Int16& flag) {
  ParseFields(parameters, line.arguments, fields.numbers, fields.integers, fields.text,
              line.command->numericFields(), line.command->integerFields, flag, &fields.doubles);
  if (line.command->text == TextField::kFigureText) fields.text = figureText(file, fields.text);
}

void eachGraphicLine(std::string_view text, const std::function<void(const std::string&)>& take) {
  TextLines lines(text);
  while (const auto first = lines.next()) {
    std::string line(trimmedLine(*first));
    while (line.ends_with('&')) {
      const auto more = lines.next();
      if (!more) throw RuntimeError(kInputPastEnd);
      line.pop_back();
      line += trimmedLine(*more);
    }
    take(line);
  }
}

}  // namespace vk
