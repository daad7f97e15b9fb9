#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>
#include <vector>

#include "base/CheckedMath.h"
#include "base/Guard.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "data/DataFiles.h"
#include "expr/Compiler.h"
#include "expr/FormulaAdvice.h"
#include "grafile/FineCurve.h"
#include "grafile/FrameTexts.h"
#include "grafile/GraphicFile.h"
#include "gral/PixelPath.h"
#include "gral/SavedDrawing.h"

namespace vk {
namespace {

constexpr int kCurvePoints = 200;
constexpr const char* kWrong = " Errato";
constexpr const char* kNowhere = " NON Calcolabile";

/// The values 1..count as an axis takes them: on a logarithmic one the decimal logarithms of the absolute
/// values. That of 0 is run-time error 5.
Array<double> onAxis(const Array<double>& values, int count, Int16 logarithmic) {
  Array<double> result(count);
  for (int i = 1; i <= count; ++i) {
    result[i] = logarithmic != 0 ? checked::log10(std::abs(values[i])) : values[i];
  }
  return result;
}

/// The same for one point of a curve; not finite where the axis has no place for it.
double placeOnAxis(double value, Int16 logarithmic) {
  return logarithmic != 0 ? std::log10(std::abs(value)) : value;
}

/// Calls `draw(first, last)` for each row of at least two points of 1..count that `has` tells of.
template <class Has, class Draw>
void eachPiece(int count, Has has, Draw draw) {
  int first = 1;
  for (int i = 1; i <= count + 1; ++i) {
    if (i <= count && has(i)) continue;
    if (i - first > 1) draw(first, i - 1);
    first = i + 1;
  }
}

/// Elements first..last as 1..
Array<double> pieceOf(const Array<double>& values, int first, int last) {
  Array<double> piece(last - first + 1);
  std::ranges::copy(values.span(first, last), piece.span(1, piece.upper()).begin());
  return piece;
}

std::string describedFile(const std::string& name) {
  return "*** File Dati " + upper(name);
}

std::string describedFormula(const std::string& formula) {
  return "*** Funzione " + formula;
}

/// Six hexadecimal digits and nothing else, else run-time error 5.
Colour colourOf(const std::string& digits) {
  std::uint32_t rgb = 0;
  const char* const end = digits.data() + digits.size();
  const auto [behind, error] = std::from_chars(digits.data(), end, rgb, 16);
  if (digits.size() != 6 || error != std::errc() || behind != end) throw RuntimeError(kInvalidCall);
  return Colour::fromRgb(rgb);
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
  box_.x = {fields.numbers[1], fields.numbers[2], user[3], user[4]};
}

void GraphicRun::scaleY(const CommandFields& fields) {
  const bool narrow = needsDoubles(fields.doubles[3], fields.doubles[4]);
  const auto& user = narrow ? fields.doubles : fields.numbers;
  drawing_.GralYMap(fields.numbers[1], fields.numbers[2], user[3], user[4]);
  yNarrow_ = narrow;
  box_.y = {fields.numbers[1], fields.numbers[2], user[3], user[4]};
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
  linesSeen_ = fields.numbers[1] > 0;
}

void GraphicRun::drawMark(const CommandFields& fields) {
  drawing_.GralMark(fields.numbers[1], fields.numbers[2]);
}

/// The data of a file; nothing when the line has failed.
std::optional<DataSet> GraphicRun::readData(const std::string& name) {
  if (const auto found = known_.find(name); found != known_.end()) return found->second;
  std::string text;
  if (guard([&] { text = files_.readAll(placeOf(name)); })) {
    FreeFieldReading reading = parseFreeFields(text);
    if (reading.complete) return std::move(reading.data);
  }
  fail(describedFile(name) + kWrong);
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

std::optional<Formula> GraphicRun::readFormula(const std::string& formula) {
  const std::string described = describedFormula(formula);
  const auto refuse = [&](const char* reason) {
    fail(described + reason);
    return std::nullopt;
  };
  if (FunXMax_ - FunXMin_ == 0) return refuse(" NON Calcolabile (Intervallo x NON Definito)");

  std::string expression = formula;
  Int16 flag;
  SubstituteExpression(parameters_, expression, flag,
                       xNarrow_ || yNarrow_ ? Precision::kDouble : Precision::kSingle);
  Compilation compiled;
  if (flag == 0) compiled = compile("y@x@ @ @" + expression);
  doubt(formula);
  if (!compiled.ok) return refuse(" Errata");
  return Formula(std::move(compiled.code));
}

/// Keeps the advice on a formula. Its names are parameters, which may be longer than those of other formulas.
void GraphicRun::doubt(const std::string& formula) {
  std::vector<std::string> names{"x"};
  for (const auto& [key, place] : parameters_.places) names.push_back(trimLeft(key.substr(1)));
  std::vector<FormulaAdvice> advice = adviseOn(formula, names);
  std::erase_if(advice, [](const FormulaAdvice& piece) { return piece.kind == AdviceKind::kLongName; });
  if (!advice.empty()) doubts_.push_back(file_.gridText(adviceLines(formula, advice)));
}

std::optional<FormulaCurve> GraphicRun::sampleFormula(const std::string& text) {
  auto formula = readFormula(text);
  if (!formula) return std::nullopt;
  FormulaCurve curve{Array<double>(kCurvePoints), Array<double>(kCurvePoints)};
  const double step = checked::finite((FunXMax_ - FunXMin_) / (kCurvePoints - 1));
  for (int i = 1; i <= kCurvePoints; ++i) {
    const double place = FunXMin_ + (i - 1) * step;
    curve.x[i] = framed_ && xLog_ != 0 ? std::pow(10, place) : place;
  }
  const std::vector<double> y = formula->valuesAt(curve.x.span(1, kCurvePoints), listener_);
  std::ranges::copy(y, curve.y.span(1, kCurvePoints).begin());
  lastPointFailed_ = lastPointFailed_ || std::isnan(y.back());
  return curve;
}

/// A curve in a frame with numbers, in user coordinates: even along the axis and finer where it bends.
std::optional<FormulaCurve> GraphicRun::sampleFinely(const std::string& text) {
  auto formula = readFormula(text);
  if (!formula) return std::nullopt;
  const auto values = [&](std::span<const double> places) {
    std::vector<double> x(places.begin(), places.end());
    if (xLog_ != 0) std::ranges::transform(x, x.begin(), [](double u) { return std::pow(10, u); });
    std::vector<double> y = formula->valuesAt(x, listener_);
    if (yLog_ != 0) std::ranges::transform(y, y.begin(), [](double v) { return std::log10(v); });
    return y;
  };
  const FineCurve fine =
      vk::sampleFinely({box_.x.lower(), box_.x.upper(), box_.x.cmPerUnit(), box_.y.cmPerUnit()}, values);
  lastPointFailed_ = lastPointFailed_ || std::isnan(fine.y.back());
  const int count = static_cast<int>(fine.x.size());
  FormulaCurve curve{Array<double>(count), Array<double>(count)};
  std::ranges::copy(fine.x, curve.x.span(1, count).begin());
  std::ranges::copy(fine.y, curve.y.span(1, count).begin());
  return curve;
}

void GraphicRun::plotFunction(const CommandFields& fields) {
  auto curve = framed_ ? sampleFinely(fields.text) : sampleFormula(fields.text);
  if (!curve) return;
  Array<double>&x = curve->x, &y = curve->y;
  const int count = x.upper();
  for (int i = 1; !framed_ && i <= count; ++i) {
    x[i] = placeOnAxis(x[i], xLog_);
    y[i] = placeOnAxis(y[i], yLog_);
  }
  bool hasPoints = false;
  const auto has = [&](int i) {
    const bool finite = std::isfinite(x[i]) && std::isfinite(y[i]);
    hasPoints = hasPoints || finite;
    return finite;
  };
  // Each piece between two gaps is a line of its own, which begins its dashes anew.
  eachPiece(count, has, [&](int first, int last) {
    drawing_.GralDraw(pieceOf(x, first, last), pieceOf(y, first, last), last - first + 1);
  });
  if (!hasPoints) fail(describedFormula(fields.text) + kNowhere);
}

void GraphicRun::chooseColour(const CommandFields& fields) {
  const Colour colour = colourOf(trim(fields.text));
  drawing_.GralColor(colour);
  drawing_.GralMarkColor = colour;
}

void GraphicRun::writeTitle(const CommandFields& fields) {
  drawTitle(drawing_, box_, trim(fields.text));
}

void GraphicRun::addKey(const CommandFields& fields) {
  drawKey(drawing_, fields.numbers[1], fields.numbers[2], linesSeen_, trim(fields.text));
}

void GraphicRun::frameBox(const CommandFields& fields) {
  constexpr int kOnlyY = 2;
  const auto& n = fields.integers;
  const LogAxes logarithmic{xLog_ != 0, yLog_ != 0};
  drawFrame(drawing_, box_, n[1], n[2], logarithmic);
  framed_ = n[3] != 0;
  if (!framed_) return;
  FunXMin_ = box_.x.lower();
  FunXMax_ = box_.x.upper();
  drawTexts(
      drawing_, box_,
      frameTexts(drawing_, box_, {n[1], n[2], logarithmic, n[3] != kOnlyY, trim(xLegend_), trim(yLegend_)}));
}

void GraphicRun::know(const std::string& name, DataSet data) {
  known_.insert_or_assign(name, std::move(data));
}

/// The columns of a band stand in place of x, y and its error. Nothing when the line has failed.
std::optional<DataSet> GraphicRun::readBand(const std::string& name) {
  if (const auto found = known_.find(name); found != known_.end()) return found->second;
  DataReading reading;
  if (!guard([&] { reading = vk::readData(files_, placeOf(name)); })) {
    fail(describedFile(name) + kWrong);
  } else if (!reading.errors.empty() || reading.data.kXpntErr != kFalse) {
    fail(describedFile(name) + kWrong + " (Servono 3 Colonne: x, Minimo, Massimo)");
  } else {
    return std::move(reading.data);
  }
  return std::nullopt;
}

void GraphicRun::fillBand(const CommandFields& fields) {
  const auto semicolon = fields.text.find(';');
  if (semicolon == std::string::npos) {
    if (const auto data = readBand(fields.text)) {
      fillBetween(data->Xpnt, data->Ypnt, data->ErrYpnt, describedFile(fields.text));
    }
    return;
  }
  const auto low = sampleFormula(trim(fields.text.substr(0, semicolon)));
  if (!low) return;
  const auto high = sampleFormula(trim(fields.text.substr(semicolon + 1)));
  if (high) fillBetween(low->x, low->y, high->y, describedFormula(fields.text));
}

/// Where a border has no place the band has a gap; one that is not above 0 leaves a logarithmic scale at its lower end.
void GraphicRun::fillBetween(const Array<double>& x, const Array<double>& low, const Array<double>& high,
                             const std::string& described) {
  const auto atX = [&](int i) { return placeOnAxis(x[i], xLog_); };
  const auto border = [&](double value) {
    return yLog_ != 0 && value <= 0 ? box_.y.lower() : placeOnAxis(value, yLog_);
  };
  const auto has = [&](int i) {
    return std::isfinite(atX(i)) && std::isfinite(border(low[i])) && std::isfinite(border(high[i]));
  };
  const SavedDrawing saved(*drawing_.GralDev);
  drawing_.GralDev->setFillStyle(kFillSolid);
  drawing_.GralDev->setFillColor(lightTint(drawing_.GralDev->ForeColor()));
  bool filled = false;
  eachPiece(x.upper(), has, [&](int first, int last) {
    std::vector<PixelPlace> outline;
    for (int i = first; i <= last; ++i) outline.push_back(drawing_.pixelOfUsr(atX(i), border(low[i])));
    for (int i = last; i >= first; --i) outline.push_back(drawing_.pixelOfUsr(atX(i), border(high[i])));
    makePath(*drawing_.GralDev, outline);
    drawing_.GralDev->FillPath();
    filled = true;
  });
  if (!filled) fail(described + kNowhere);
}

}  // namespace vk
