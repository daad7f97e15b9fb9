#include "grafile/PlotSheet.h"

#include <algorithm>
#include <cmath>

#include "base/NumberMasks.h"
#include "base/Text.h"
#include "data/FigureText.h"
#include "grafile/FigureStyle.h"
#include "grafile/GraphicFile.h"
#include "grafile/LineText.h"
#include "grafile/SheetLayout.h"

namespace vk {
namespace {

constexpr FigureStyle kLook;
constexpr double kPatchPen = 12;  // of a band in the key, tenths of a mm
constexpr int kSolidLine = 1, kLevelLine = 3;
constexpr double kFarLevel = 2;
const Colour kLevelColour = Colour::fromRgb(0x606060);

std::string hexadecimal(Colour colour) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  std::string text;
  for (int shift = 20; shift >= 0; shift -= 4) text += kDigits[colour.rgb() >> shift & 0xF];
  return text;
}

std::string fieldText(double number) {
  return FormatPattern(number);
}
const std::string& fieldText(const std::string& text) {
  return text;
}

/// A command with fields.
template <class... Fields>
std::string command(const std::string& name, const Fields&... fields) {
  std::string list;
  const auto add = [&](const auto& field) {
    if (!list.empty()) list += ", ";
    list += fieldText(field);
  };
  (add(fields), ...);
  return "\\" + name + "(" + list + ")";
}

/// Of the marks, so that those of many points do not cover one another.
double radiusOfMarks(int count) {
  constexpr double kSmallest = 0.12, kFewPoints = 200;
  return std::clamp(kLook.markRadius * std::sqrt(kFewPoints / std::max(count, 1)), kSmallest,
                    kLook.markRadius);
}

class SheetWriter {
 public:
  SheetWriter(const PlotSheet& sheet, GralCls& drawing)
      : sheet_(sheet), layout_(layOut(sheet, drawing)), width_(drawing.XrLog), height_(drawing.YtLog) {}

  std::string text();

 private:
  void writeBox();
  void writeBands();
  void writeCurves();
  void writeKey();
  void writeResiduals();
  void scale(const PlotBox& box);
  void frame(const RoundRange& y, const std::string& titleX, const std::string& titleY, int numbers);
  void area(const PlotBox& box);
  void wholePage(const PlotBox& box);
  void choosePen(Colour colour, double width, int line);
  void choosePoints(const SheetData& set, int index);
  void chooseCurve(int index);
  Colour tintOf(const SheetData& band) const;
  SetLook lookOfCurve(int index) const { return lookOfSet(static_cast<int>(sheet_.points.size()) + index); }

  const PlotSheet& sheet_;
  const SheetLayout layout_;
  double width_, height_;  // of the page
  LineText text_;
};

std::string SheetWriter::text() {
  writeBox();
  if (sheet_.residuals) writeResiduals();
  return sheet_.heading + text_.text();
}

void SheetWriter::scale(const PlotBox& box) {
  text_ << command("XSCALA", box.x.fromCm, box.x.toCm, box.x.from, box.x.to)
        << command("YSCALA", box.y.fromCm, box.y.toCm, box.y.from, box.y.to);
}

void SheetWriter::frame(const RoundRange& y, const std::string& titleX, const std::string& titleY,
                        int numbers) {
  choosePen(kBlack, kLook.framePen, kSolidLine);
  text_ << command("XLEGENDA", utf8OfFigureText(titleX)) << command("YLEGENDA", utf8OfFigureText(titleY))
        << command("RIQUADRO", static_cast<int>(layout_.x.divisions), static_cast<int>(y.divisions), numbers);
}

void SheetWriter::area(const PlotBox& box) {
  text_ << command("AREA", box.x.from, box.y.from, box.x.to, box.y.to);
}

/// Marks at the frame are drawn whole.
void SheetWriter::wholePage(const PlotBox& box) {
  const auto at = [](const PlotSide& side, double cm) {
    return side.from + (cm - side.fromCm) / side.cmPerUnit();
  };
  text_ << command("AREA", at(box.x, 0), at(box.y, 0), at(box.x, width_), at(box.y, height_));
}

void SheetWriter::choosePen(Colour colour, double width, int line) {
  text_ << command("COLORE", hexadecimal(colour)) << command("TIPO_LINEA", width, line);
}

void SheetWriter::choosePoints(const SheetData& set, int index) {
  const SetLook look = lookOfSet(index);
  choosePen(look.colour, kLook.framePen, kSolidLine);
  text_ << command("TIPO_SIMBOLO", radiusOfMarks(set.data.NumPnt), look.mark);
}

void SheetWriter::chooseCurve(int index) {
  const SetLook look = lookOfCurve(index);
  choosePen(look.colour, kLook.curvePen, sheet_.curves.size() > 1 ? look.line : kSolidLine);
}

/// The tint of the first curve; a band under another one is halfway to white.
Colour SheetWriter::tintOf(const SheetData& band) const {
  const Colour tint = lightTint(lookOfCurve(0).colour);
  const auto paler = [](int channel) { return (channel + 255) / 2; };
  if (&band == &sheet_.bands.back()) return tint;
  return Colour::fromChannels(paler(tint.red()), paler(tint.green()), paler(tint.blue()));
}

void SheetWriter::writeBands() {
  text_ << "%Bande";
  area(layout_.box);
  for (const SheetData& band : sheet_.bands)
    text_ << command("COLORE", hexadecimal(tintOf(band))) << command("BANDA", band.file);
  wholePage(layout_.box);
}

void SheetWriter::writeCurves() {
  text_ << "%Funzioni";
  area(layout_.box);
  int index = 0;
  for (const SheetCurve& curve : sheet_.curves) {
    chooseCurve(index++);
    if (!curve.lines.parameters.empty()) text_ << command("PARAMETRI", curve.lines.parameters);
    text_ << command("FUNZIONE", curve.lines.expression);
  }
  wholePage(layout_.box);
}

void SheetWriter::writeBox() {
  text_ << "%Scale";
  scale(layout_.box);
  if (!sheet_.bands.empty()) writeBands();
  text_ << "%Riquadro";
  frame(layout_.y, sheet_.titleX, sheet_.titleY, sheet_.residuals ? 2 : 1);
  if (!sheet_.curves.empty()) writeCurves();
  if (!sheet_.points.empty()) text_ << "%Dati";
  int index = 0;
  for (const SheetData& set : sheet_.points) {
    choosePoints(set, index++);
    text_ << command("DATI", set.file);
  }
  if (!layout_.key.empty()) writeKey();
}

void SheetWriter::writeKey() {
  text_ << "%Chiave";
  double y = layout_.keyY;
  auto text = layout_.key.begin();
  const auto entry = [&](const std::string& name) {
    if (name.empty()) return;
    text_ << command("CHIAVE", layout_.keyX, y, utf8OfFigureText(*text++));
    y -= layout_.keyStep;
  };
  int index = 0;
  for (const SheetData& set : sheet_.points) {
    choosePoints(set, index++);
    text_ << command("TIPO_LINEA", 0, kSolidLine);
    entry(set.name);
  }
  text_ << command("TIPO_SIMBOLO", 0, 1);
  index = 0;
  for (const SheetCurve& curve : sheet_.curves) {
    chooseCurve(index++);
    entry(curve.name);
  }
  for (const SheetData& band : sheet_.bands) {
    choosePen(tintOf(band), kPatchPen, kSolidLine);
    entry(band.name);
  }
}

void SheetWriter::writeResiduals() {
  const PlotBox& box = layout_.lower;
  text_ << "%Scarti";
  scale(box);
  frame(layout_.residuals, sheet_.titleX, kResidualTitle, 1);
  const auto level = [&](double y) { text_ << command("LINEA", box.x.from, y, box.x.to, y); };
  choosePen(kLevelColour, kLook.framePen, kLevelLine);
  level(-kFarLevel);
  level(kFarLevel);
  choosePen(lookOfCurve(0).colour, kLook.curvePen, kSolidLine);
  level(0);
  choosePoints(*sheet_.residuals, 0);
  text_ << command("DATI", sheet_.residuals->file);
}

/// Signs of the old 8-bit code as markup; the root, for which old texts have none, is that of the Greek font.
std::string drawnSigns(std::string_view text) {
  constexpr char kRoot = '\xFB';
  std::string drawn;
  for (const char& c : text) drawn += c == kRoot ? "\\\\\xD6" : TranslateDosText({&c, 1});
  return drawn;
}

}  // namespace

std::string nameInKey(std::string name) {
  constexpr std::string_view kMarkup = "_^{}\\";
  std::ranges::replace_if(
      name, [&](char c) { return kMarkup.find(c) != std::string_view::npos; }, ' ');
  return name;
}

std::string formulaInKey(const std::string& formula) {
  std::string text;
  for (std::size_t i = 0; i < formula.size(); ++i) {
    if (formula[i] != '^') {
      text += nameInKey({formula[i]});
      continue;
    }
    std::size_t end = i + 1;
    int open = 0;
    while (end < formula.size()) {
      const char c = formula[end];
      if (open == 0 && !isLetter(c) && !isDigit(c) && c != '.' && c != '(') break;
      open += c == '(' ? 1 : c == ')' ? -1 : 0;
      ++end;
    }
    text += "^{" + nameInKey(formula.substr(i + 1, end - i - 1)) + "}";
    i = end - 1;
  }
  return drawnSigns(text);
}

std::string sheetText(const PlotSheet& sheet, GralCls& drawing) {
  return SheetWriter(sheet, drawing).text();
}

std::string drawSheet(const PlotSheet& sheet, const std::string& text, Files& files, GralCls& drawing,
                      EvaluationListener& listener) {
  GraphicRun run(files, drawing, listener);
  for (const auto* sets : {&sheet.points, &sheet.bands}) {
    for (const SheetData& set : *sets) run.know(set.file, set.data);
  }
  if (sheet.residuals) run.know(sheet.residuals->file, sheet.residuals->data);
  run.runText(text);
  return run.errors();
}

}  // namespace vk
