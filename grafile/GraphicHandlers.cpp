#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "base/CheckedMath.h"
#include "base/Guard.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "data/DataFiles.h"
#include "expr/Compiler.h"
#include "expr/Formula.h"
#include "grafile/GraphicFile.h"

namespace vk {
namespace {

constexpr int kCurvePoints = 200;

/// The values 1..count as an axis takes them: on a logarithmic one the decimal logarithms of the absolute
/// values. That of 0 is run-time error 5.
Array<double> onAxis(const Array<double>& values, int count, Int16 logarithmic) {
  Array<double> result(count);
  for (int i = 1; i <= count; ++i) {
    result[i] = logarithmic != 0 ? checked::log10(std::abs(values[i])) : values[i];
  }
  return result;
}

/// The same for one point of a curve, where it stands; false when the axis has no place for it.
bool placeOnAxis(double& value, Int16 logarithmic) {
  if (logarithmic != 0) value = std::log10(std::abs(value));
  return std::isfinite(value);
}

/// A curve with gaps where its function cannot be computed.
struct CurveWithGaps {
  Array<double> x{kCurvePoints}, y{kCurvePoints};
  Array<Fault> faults{kCurvePoints};

  bool has(int point) const { return faults[point] == Fault::kNone; }
  bool hasPoints() const { return std::ranges::count(faults.span(1, kCurvePoints), Fault::kNone) > 0; }
  /// Takes the points to the axes; those that have no place there fall out.
  void placeOn(Int16 xLogarithmic, Int16 yLogarithmic);
  /// Each piece between two gaps is a line of its own, which begins its dashes anew. A point alone makes none.
  void draw(GralCls& drawing) const;
};

void CurveWithGaps::placeOn(Int16 xLogarithmic, Int16 yLogarithmic) {
  for (int i = 1; i <= kCurvePoints; ++i) {
    if (!placeOnAxis(x[i], xLogarithmic) || !placeOnAxis(y[i], yLogarithmic)) faults[i] = Fault::kDomain;
  }
}

void CurveWithGaps::draw(GralCls& drawing) const {
  Array<double> pieceX(kCurvePoints), pieceY(kCurvePoints);
  int count = 0;
  for (int i = 1; i <= kCurvePoints; ++i) {
    if (has(i)) {
      ++count;
      pieceX[count] = x[i];
      pieceY[count] = y[i];
    }
    if (has(i) && i < kCurvePoints) continue;
    if (count > 1) drawing.GralDraw(pieceX, pieceY, count);
    count = 0;
  }
}

}  // namespace

void GraphicRun::defineParameters(const CommandFields& fields) {
  DefineParameters(parameters_, fields.text);
}

void GraphicRun::setXLog(const CommandFields& fields) {
  xLog_ = toInt16(scanNumber(fields.text));
}

void GraphicRun::setYLog(const CommandFields& fields) {
  yLog_ = toInt16(scanNumber(fields.text));
}

void GraphicRun::scaleX(const CommandFields& fields) {
  const bool narrow = needsDoubles(fields.doubles[3], fields.doubles[4]);
  const auto& user = narrow ? fields.doubles : fields.numbers;
  drawing_.GralXMap(fields.numbers[1], fields.numbers[2], user[3], user[4]);
  xNarrow_ = narrow;
}

void GraphicRun::scaleY(const CommandFields& fields) {
  const bool narrow = needsDoubles(fields.doubles[3], fields.doubles[4]);
  const auto& user = narrow ? fields.doubles : fields.numbers;
  drawing_.GralYMap(fields.numbers[1], fields.numbers[2], user[3], user[4]);
  yNarrow_ = narrow;
}

void GraphicRun::limitArea(const CommandFields& fields) {
  const auto& n = fields.numbers;
  drawing_.GralClip(n[1], n[2], n[3], n[4]);
}

void GraphicRun::drawLine(const CommandFields& fields) {
  const auto& n = fields.numbers;
  if (drawing_.GralUseTra && drawing_.kGralPen > 0) {
    std::string pattern = drawing_.GralPenTra;
    drawing_.GralTraLine(n[1], n[2], n[3], n[4], pattern);
  } else {
    drawing_.GralLine(n[1], n[2], n[3], n[4]);
  }
}

void GraphicRun::drawXAxis(const CommandFields& fields) {
  const auto& n = fields.numbers;
  // QUIRK: an empty legend field empties the legend as well, so that the one of XLEGENDA is never seen.
  xLegend_ = fields.text;
  FunXMin_ = std::min(n[1], n[2]);
  FunXMax_ = std::max(n[1], n[2]);
  drawing_.GralOaxis(n[1], n[2], n[3], toInt16(n[4]), n[5], xLog_ != 0, fields.integers[1] != 0, xLegend_);
}

void GraphicRun::drawYAxis(const CommandFields& fields) {
  const auto& n = fields.numbers;
  yLegend_ = fields.text;
  drawing_.GralVaxis(n[1], n[2], n[3], toInt16(n[4]), n[5], yLog_ != 0, fields.integers[1] != 0, yLegend_);
}

void GraphicRun::setXLegend(const CommandFields& fields) {
  xLegend_ = fields.text;
}

void GraphicRun::setYLegend(const CommandFields& fields) {
  yLegend_ = fields.text;
}

void GraphicRun::write(const CommandFields& fields) {
  const auto& i = fields.integers;
  drawing_.GralWPrint(fields.numbers[1], fields.numbers[2], i[1], i[2], i[3], fields.text);
}

void GraphicRun::chooseMark(const CommandFields& fields) {
  drawing_.GralMakeMark(fields.numbers[1], fields.integers[1]);
}

void GraphicRun::chooseLine(const CommandFields& fields) {
  drawing_.GralPen(fields.numbers[1], fields.integers[1]);
}

void GraphicRun::drawMark(const CommandFields& fields) {
  drawing_.GralMark(fields.numbers[1], fields.numbers[2]);
}

/// The data of a file; nothing when the line has failed.
std::optional<DataSet> GraphicRun::readData(const std::string& name) {
  std::string text;
  if (guard([&] { text = files_.readAll(name); })) {
    FreeFieldReading reading = parseFreeFields(text);
    if (reading.complete) return std::move(reading.data);
  }
  fail("*** File Dati " + upper(name) + " Errato");
  return std::nullopt;
}

void GraphicRun::plotFile(const CommandFields& fields) {
  const auto data = readData(fields.text);
  if (!data) return;
  drawing_.PlotData(data->Xpnt, data->ErrXpnt, data->Ypnt, data->ErrYpnt, data->NumPnt,
                    data->kXpntErr != kFalse, xLog_ != 0, yLog_ != 0);
}

void GraphicRun::joinFile(const CommandFields& fields) {
  const auto data = readData(fields.text);
  if (!data) return;
  drawing_.GralDraw(onAxis(data->Xpnt, data->NumPnt, xLog_), onAxis(data->Ypnt, data->NumPnt, yLog_),
                    data->NumPnt);
}

void GraphicRun::curveFile(const CommandFields& fields) {
  const auto data = readData(fields.text);
  if (!data) return;
  drawing_.GralCurve(onAxis(data->Xpnt, data->NumPnt, xLog_), onAxis(data->Ypnt, data->NumPnt, yLog_),
                     data->NumPnt);
}

void GraphicRun::plotFunction(const CommandFields& fields) {
  const std::string described = "*** Funzione " + fields.text;
  if (FunXMax_ - FunXMin_ == 0) return fail(described + " NON Calcolabile (Intervallo x NON Definito)");

  std::string expression = fields.text;
  Int16 flag;
  SubstituteExpression(parameters_, expression, flag,
                       xNarrow_ || yNarrow_ ? Precision::kDouble : Precision::kSingle);
  Compilation compiled;
  if (flag == 0) compiled = compile("y@x@ @ @" + expression);
  if (!compiled.ok) return fail(described + " Errata");

  CurveWithGaps curve;
  auto& [x, y, faults] = curve;
  const double step = checked::finite((FunXMax_ - FunXMin_) / (kCurvePoints - 1));
  for (int i = 1; i <= kCurvePoints; ++i) x[i] = FunXMin_ + (i - 1) * step;
  const std::array<std::span<const double>, 1> columns{x.span(1, kCurvePoints)};
  const Fault last = Formula(std::move(compiled.code))
                         .values(columns, y.span(1, kCurvePoints), listener_, faults.span(1, kCurvePoints));
  lastPointFailed_ = last != Fault::kNone;
  curve.placeOn(xLog_, yLog_);
  if (!curve.hasPoints()) return fail(described + " NON Calcolabile");
  curve.draw(drawing_);
}

}  // namespace vk
