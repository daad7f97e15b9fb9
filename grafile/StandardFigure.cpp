#include "grafile/StandardFigure.h"

#include <cmath>

#include "base/CodePage.h"
#include "base/Guard.h"
#include "base/NumberMasks.h"
#include "base/Text.h"
#include "data/DataFiles.h"
#include "data/FigureText.h"
#include "grafile/FunctionLines.h"
#include "platform/Texts.h"

namespace vk {
namespace {

constexpr const char* kNumberMask = "#.####^^^^";
constexpr double kTickLength = 3;  // mm
constexpr double kMarkRadius = 1.5;
constexpr int kMarkType = 5;
constexpr double kBandPen = 1;  // tenths of a mm
constexpr int kSolid = 1;
constexpr std::size_t kDashes = 2, kDots = 4;  // one piece of so many is drawn

/// One figure while it is drawn.
class FigureDrawing {
 public:
  FigureDrawing(const FigureSource& source, const FigureValues& values, GralCls& drawing,
                EvaluationListener& listener)
      : source_(source), data_(source.data), values_(values), drawing_(drawing), listener_(listener) {}

  FigureTexts draw();

 private:
  bool ofDifferences() const { return source_.kind == kDifferencesFigure; }

  void describeOrigin();
  void placePlotBox();
  void drawAxes();
  void drawFunction();
  void drawData();
  void drawBand();
  void drawBeside(const std::vector<double>& widths, std::size_t every);
  void drawDifferences();

  const FigureSource& source_;
  const DataSet& data_;
  const FigureValues& values_;
  GralCls& drawing_;
  EvaluationListener& listener_;
  LineText graph_;
  LineText differencesFile_;
  bool failed_ = values_.failed;
  const double Xi = values_.Xi, Xf = values_.Xf, Yi = values_.Yi, Yf = values_.Yf;
};

FigureTexts FigureDrawing::draw() {
  describeOrigin();
  placePlotBox();
  drawAxes();
  if (source_.kind == kFunctionFigure) drawFunction();
  guard(failed_, [&] { drawing_.GralMakeMark(kMarkRadius, kMarkType); });
  graph_ << "%Seleziona il Simbolo"
         << "\\TIPO_SIMBOLO(1.5,5)";
  if (ofDifferences()) {
    drawDifferences();
  } else {
    drawData();
    drawBand();
  }
  return {.graph = graph_.text(), .differences = differencesFile_.text(), .failed = failed_};
}

/// Which data and which function a figure shows, as notes.
LineText originOf(const FigureSource& source) {
  const ParameterSet& par = source.parameters;
  LineText header;
  header << "%File Dati: " + source.dataName;
  if (source.kind == kDataFigure) return header;
  header << "%Funzione : " + toUtf8(source.functionText, CodePage::kCp437) << "%Parametri: ";
  for (int i = 1; i <= par.ParCount; ++i) {
    const std::string name = par.name(i);
    const std::string margin = repeat(par.ParNameWidth - length(name), ' ');
    header << "%          " + margin + name + " = " + FormatMask(par.ParValues[i], kNumberMask);
  }
  return header;
}

void FigureDrawing::describeOrigin() {
  graph_.append(headingOf(source_));
  if (!ofDifferences()) return;
  differencesFile_ << "%File Dati " + nameOfFigure(source_.kind);
  differencesFile_.append(originOf(source_));
  differencesFile_ << "" << utf8OfFigureText(dataTitle(data_.TitleX))
                   << utf8OfFigureText(dataTitle(data_.TitleY)) << signedText(data_.NumPnt);
}

void FigureDrawing::placePlotBox() {
  const double XlLog = drawing_.XlLog, XrLog = drawing_.XrLog, YbLog = drawing_.YbLog, YtLog = drawing_.YtLog;
  const double Xcmi = XlLog + 5, Xcmf = XrLog - 2;
  const double Ycmi = YbLog + 4, Ycmf = YtLog - 2;
  guard(failed_, [&] { drawing_.GralXMap(Xcmi, Xcmf, Xi, Xf); });
  guard(failed_, [&] { drawing_.GralYMap(Ycmi, Ycmf, Yi, Yf); });
  const auto box = [](const char* xi, double left, const char* yi, double bottom, const char* xf,
                      double right, const char* yf, double top) {
    return std::string("\\PARAMETRI(") + xi + "=" + FormatPattern(left) + ", " + yi + "=" +
           FormatPattern(bottom) + ", " + xf + "=" + FormatPattern(right) + ", " + yf + "=" +
           FormatPattern(top) + ")";
  };
  graph_ << "%Coordinate Fisiche" << box("Xcmi", Xcmi, "Ycmi", Ycmi, "Xcmf", Xcmf, "Ycmf", Ycmf)
         << "%Coordinate Logiche" << box("Xi", Xi, "Yi", Yi, "Xf", Xf, "Yf", Yf)
         << "%Scala le Coordinate Fisiche in Coordinate Logiche"
         << "\\XSCALA(Xcmi, Xcmf, Xi, Xf)"
         << "\\YSCALA(Ycmi, Ycmf, Yi, Yf)"
         << "%Divisioni degli Assi"
         << "\\PARAMETRI(nDivX=" + FormatPattern(values_.nDivX) + ", nDivY=" + FormatPattern(values_.nDivY) +
                ")";
}

void FigureDrawing::drawAxes() {
  const std::string legend = data_.TitleY + (ofDifferences() ? " (Mis.-Calc.)" : "");
  guard(failed_,
        [&] { drawing_.GralOaxis(Xi, Xf, Yi, values_.nDivX, kTickLength, false, true, data_.TitleX); });
  guard(failed_, [&] { drawing_.GralOaxis(Xi, Xf, Yf, values_.nDivX, -kTickLength, false, false, ""); });
  guard(failed_, [&] { drawing_.GralVaxis(Yi, Yf, Xi, values_.nDivY, kTickLength, false, true, legend); });
  guard(failed_, [&] { drawing_.GralVaxis(Yi, Yf, Xf, values_.nDivY, -kTickLength, false, false, ""); });
  graph_ << "%Disegna gli Assi"
         << "\\XASSE(Xi, Xf, Yi, nDivX, 3, 1," + utf8OfFigureText(data_.TitleX) + ")"
         << "\\XASSE(Xi, Xf, Yf, nDivX, -3, 0)"
         << "\\YASSE(Yi, Yf, Xi, nDivY, 3, 1," + utf8OfFigureText(legend) + ")"
         << "\\YASSE(Yi, Yf, Xf, nDivY, -3, 0)"
         << "%Limita l'Area del Disegno"
         << "\\AREA(Xi, Yi, Xf, Yf)";
}

void FigureDrawing::drawFunction() {
  const SampledCurve& curve = values_.curve;
  const Array<double>&x = curve.x, &y = curve.y;
  for (int i = 1; i <= curve.segments; ++i) {
    if (curve.failed[i - 1] != kFalse || curve.failed[i] != kFalse) continue;
    guard(failed_, [&] { drawing_.GralLine(x[i - 1], y[i - 1], x[i], y[i]); });
  }
  const FunctionLines lines = functionLines(source_, values_, listener_);
  graph_ << "%Disegna la Funzione"
         << "\\PARAMETRI(" + lines.parameters + ")"
         << "\\FUNZIONE(" + lines.expression + ")";
}

void FigureDrawing::drawData() {
  guard(failed_, [&] { drawing_.GralClip(Xi, Yi, Xf, Yf); });
  guard(failed_, [&] {
    drawing_.PlotData(data_.Xpnt, data_.ErrXpnt, data_.Ypnt, data_.ErrYpnt, data_.NumPnt,
                      data_.kXpntErr != kFalse, false, false);
  });
  graph_ << "%Disegna i Dati"
         << "\\Dati(" + source_.dataPath + ")";
}

void FigureDrawing::drawBand() {
  const BandWidths& band = values_.band;
  if (band.values.empty()) return;
  guard(failed_, [&] { drawing_.GralPen(kBandPen, kSolid); });
  graph_ << "%Disegna la Banda di Confidenza"
         << "\\TIPO_LINEA(1,1)";
  drawBeside(band.confidence, kDashes);
  if (band.prediction.empty()) return;
  graph_ << "%Disegna la Banda di Previsione";
  drawBeside(band.prediction, kDots);
}

// Below and above the function, of `every` pieces one. The dashes of a line type would begin anew with each piece, and
// those of a file of points would need the file.
void FigureDrawing::drawBeside(const std::vector<double>& widths, std::size_t every) {
  const std::vector<double>& x = values_.bandX;
  for (const int sign : {-1, 1}) {
    const auto y = [&](std::size_t i) { return values_.band.values[i] + sign * widths[i]; };
    for (std::size_t i = 0; i + 1 < x.size(); i += every) {
      if (!std::isfinite(y(i)) || !std::isfinite(y(i + 1))) continue;
      guard(failed_, [&] { drawing_.GralLine(x[i], y(i), x[i + 1], y(i + 1)); });
      graph_ << "\\LINEA(" + FormatPattern(x[i]) + ", " + FormatPattern(y(i)) + ", " +
                    FormatPattern(x[i + 1]) + ", " + FormatPattern(y(i + 1)) + ")";
    }
  }
}

void FigureDrawing::drawDifferences() {
  // QUIRK: the differences file has no name yet, so that the saved figure shows the axes until it has got one.
  graph_ << "%Disegna la Linea dello Zero "
         << "\\LINEA(Xi, 0, Xf, 0)"
         << "%Attenzione: per Disegnare i Dati"
         << "%1) Salvare il File Dati delle Differenze"
         << "%2) Inserire nella Riga Successiva il Nome del File"
         << "%\\DATI(inserire il nome del File Differenze)"
         << "%3) e Rimuovere il %";
  guard(failed_, [&] { drawing_.GralLine(Xi, 0, Xf, 0); });
  guard(failed_, [&] { drawing_.GralClip(Xi, Yi, Xf, Yf); });
  const Array<double>& errors = data_.kXpntErr != kFalse ? data_.ErrEff : data_.ErrYpnt;
  guard(failed_, [&] {
    drawing_.PlotData(data_.Xpnt, data_.ErrXpnt, values_.differences, errors, data_.NumPnt, false, false,
                      false);
  });
  const auto field = [this](double value) {
    return source_.digits ? dataField(value, *source_.digits) : dataField(value, kNumberMask);
  };
  for (int i = 1; i <= data_.NumPnt; ++i) {
    differencesFile_ << field(data_.Xpnt[i]) + " " + field(values_.differences[i]) + " " + field(errors[i]);
  }
}

}  // namespace

std::string nameOfFigure(int kind) {
  switch (kind) {
    case kDataFigure:
      return kDataWord;
    case kFunctionFigure:
      return kDataAndFunction;
    default:
      return "Differenze Dati-Funzione";
  }
}

LineText headingOf(const FigureSource& source) {
  LineText heading;
  heading << "%File Grafico " + nameOfFigure(source.kind);
  heading.append(originOf(source));
  return heading;
}

FigureTexts drawFigure(const FigureSource& source, const FigureValues& values, GralCls& drawing,
                       EvaluationListener& listener) {
  return FigureDrawing(source, values, drawing, listener).draw();
}

}  // namespace vk
