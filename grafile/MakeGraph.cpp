#include <algorithm>
#include <cmath>

#include "base/CheckedMath.h"
#include "base/Guard.h"
#include "base/NumberMasks.h"
#include "base/Text.h"
#include "data/DataFiles.h"
#include "expr/CmpMod.h"
#include "grafile/FunctionLines.h"
#include "grafile/GralFrm.h"
#include "grafile/GralPlt.h"
#include "gral/GralCls.h"
#include "session/Msg.h"
#include "session/Refusals.h"
#include "session/SoundSignal.h"

namespace vk {
namespace {

constexpr const char* kNumberMask = "#.####^^^^";
constexpr int kMostFailedPoints = 5;
constexpr double kTickLength = 3;  // mm
constexpr double kMarkRadius = 1.5;
constexpr int kMarkType = 5;
constexpr Int16 kErrorSound = 1;

std::string nameOfFigure(int kind) {
  switch (kind) {
    case kDataFigure:
      return "Dati";
    case kFunctionFigure:
      return "Dati e Funzione";
    default:
      return "Differenze Dati-Funzione";
  }
}

/// A range of zero has no scale, nor has one that holds nothing but the rounding of its values and could not
/// be told with 15 digits: it is opened around its value.
void openRange(double& low, double& high) {
  constexpr double kRounding = 1E-13;
  if (high - low > kRounding * std::max(std::abs(low), std::abs(high))) return;
  const double d = low == 0 ? 1 : std::abs(low) / 2;
  low -= d;
  high += d;
}

/// A text of lines that end in CR LF.
class LineText {
 public:
  LineText& operator<<(const std::string& line) {
    text_ += line;
    text_ += kCrLf;
    return *this;
  }
  void append(const LineText& other) { text_ += other.text_; }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

/// One standard figure: it is drawn and described line by line, side by side.
class StandardFigure {
 public:
  StandardFigure(Session& session, FigurePorts& ports, int kind)
      : session_(session),
        ports_(ports),
        data_(session.loaded.data),
        kind_(kind),
        drawing_(ports.printer, ports.screen) {}

  /// False when the function could not be computed; nothing has been opened then.
  bool draw();
  const std::string& graphText() const { return graph_.text(); }
  const std::string& differencesText() const { return differencesFile_.text(); }

 private:
  bool hasFunction() const { return kind_ != kDataFigure; }
  bool ofDifferences() const { return kind_ == kDifferencesFigure; }

  /// Runs one statement under the guard of the figure.
  template <class Statement>
  void step(Statement&& statement) {
    guard(session_.ErrFlag, std::forward<Statement>(statement));
  }

  void describeOrigin();
  void findXLimits();
  bool findYLimits();
  bool sampleFunction();
  bool computeDifferences();
  void openWindow();
  void placePlotBox();
  void drawAxes();
  void drawFunction();
  void drawData();
  void drawDifferences();

  Session& session_;
  FigurePorts& ports_;
  DataSet& data_;
  int kind_;
  GralCls drawing_;
  LineText graph_;
  LineText differencesFile_;
  Array<double> differences_;
  double Xi = 0, Xf = 0, Yi = 0, Yf = 0;  // limits in user coordinates
  Int16 nDivX, nDivY;
};

bool StandardFigure::draw() {
  describeOrigin();
  findXLimits();
  if (!findYLimits()) return false;
  openWindow();
  placePlotBox();
  drawAxes();
  if (kind_ == kFunctionFigure) drawFunction();
  step([&] { drawing_.GralMakeMark(kMarkRadius, kMarkType); });
  graph_ << "%Seleziona il Simbolo"
         << "\\TIPO_SIMBOLO(1.5,5)";
  if (ofDifferences()) {
    drawDifferences();
  } else {
    drawData();
  }
  return true;
}

void StandardFigure::describeOrigin() {
  const ParameterSet& par = session_.analysis.par;
  LineText header;
  header << "%File Dati: " + session_.loaded.DataFile;
  if (hasFunction()) {
    header << "%Funzione : " + session_.analysis.fun.FunctionText << "%Parametri: ";
    for (int i = 1; i <= par.ParCount; ++i) {
      const std::string name = par.name(i);
      const std::string margin = repeat(par.ParNameWidth - length(name), ' ');
      header << "%          " + margin + name + " = " + FormatMask(par.ParValues[i], kNumberMask);
    }
  }
  graph_ << "%File Grafico " + nameOfFigure(kind_);
  graph_.append(header);
  if (!ofDifferences()) return;
  differencesFile_ << "%File Dati Differenze Dati-Funzione";
  differencesFile_.append(header);
  differencesFile_ << "" << dataTitle(data_.TitleX) << dataTitle(data_.TitleY) << signedText(data_.NumPnt);
}

void StandardFigure::findXLimits() {
  step([&] { RangeOf(Xi, Xf, data_.Xpnt, data_.NumPnt); });
  openRange(Xi, Xf);
  step([&] { NiceLimits(Xi, Xf, nDivX); });
}

bool StandardFigure::findYLimits() {
  step([&] { RangeOf(Yi, Yf, data_.Ypnt, data_.NumPnt); });
  if (kind_ == kFunctionFigure && !sampleFunction()) return false;
  if (ofDifferences() && !computeDifferences()) return false;
  openRange(Yi, Yf);
  step([&] { NiceLimits(Yi, Yf, nDivY); });
  return true;
}

/// The curve of the function over the range of x. A point that cannot be computed gives a beep and no ordinate.
bool StandardFigure::sampleFunction() {
  int failed = 0;
  double distance = 0;
  step([&] { distance = checked::finite((Xf - Xi) / data_.NumFunPnt); });
  for (int i = 0; i <= data_.NumFunPnt; ++i) {
    const double x = Xi + i * distance;
    const double y = EvaluateFunction(session_, ports_.dialogs, x);
    data_.FunX[i] = x;
    data_.FunFailed[i] = session_.ErrFlag;
    if (session_.ErrFlag != 0) {
      session_.ErrFlag = 0;
      SoundSignal(session_, ports_.sound, kErrorSound);
      if (++failed > kMostFailedPoints) {
        ports_.dialogs.plainBox(kProgramTitle, "Errori nel Calcolo della Funzione  <*> per Continuare");
        return false;
      }
      continue;
    }
    data_.FunY[i] = y;
    Yi = std::min(Yi, y);
    Yf = std::max(Yf, y);
  }
  return true;
}

/// The differences of data and function; the range of y becomes that of their error bars.
bool StandardFigure::computeDifferences() {
  differences_.dim(data_.NumPnt);
  for (int i = 1; i <= data_.NumPnt; ++i) {
    const double y = EvaluateFunction(session_, ports_.dialogs, data_.Xpnt[i]);
    if (session_.ErrFlag != 0) {
      SoundSignal(session_, ports_.sound, kErrorSound);
      return false;
    }
    const double e = data_.ErrYpnt[i];
    double& d = differences_[i];
    step([&] { d = checked::finite(data_.Ypnt[i] - y); });
    Yi = i == 1 ? d - e : std::min(Yi, d - e);
    Yf = i == 1 ? d + e : std::max(Yf, d + e);
  }
  return true;
}

void StandardFigure::openWindow() {
  PlotWindow& window = newPlotWindow(ports_);
  drawing_.GralCaption = "VOR_KEL: Grafico " + nameOfFigure(kind_);
  const auto scale = static_cast<double>(session_.figures.GraphScale.at(static_cast<std::size_t>(kind_ - 1)));
  step([&] { drawing_.GralGrStr(window.device(), paperOrientation(session_), scale); });
}

void StandardFigure::placePlotBox() {
  const double Xcmi = drawing_.XlLog + 5.0, Xcmf = drawing_.XrLog - 2.0;
  const double Ycmi = drawing_.YbLog + 4.0, Ycmf = drawing_.YtLog - 2.0;
  step([&] { drawing_.GralXMap(Xcmi, Xcmf, Xi, Xf); });
  step([&] { drawing_.GralYMap(Ycmi, Ycmf, Yi, Yf); });
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
         << "\\PARAMETRI(nDivX=" + FormatPattern(nDivX) + ", nDivY=" + FormatPattern(nDivY) + ")";
}

void StandardFigure::drawAxes() {
  const std::string legend = data_.TitleY + (ofDifferences() ? " (Mis.-Calc.)" : "");
  step([&] { drawing_.GralOaxis(Xi, Xf, Yi, nDivX, kTickLength, false, true, data_.TitleX); });
  step([&] { drawing_.GralOaxis(Xi, Xf, Yf, nDivX, -kTickLength, false, false, ""); });
  step([&] { drawing_.GralVaxis(Yi, Yf, Xi, nDivY, kTickLength, false, true, legend); });
  step([&] { drawing_.GralVaxis(Yi, Yf, Xf, nDivY, -kTickLength, false, false, ""); });
  graph_ << "%Disegna gli Assi"
         << "\\XASSE(Xi, Xf, Yi, nDivX, 3, 1," + data_.TitleX + ")"
         << "\\XASSE(Xi, Xf, Yf, nDivX, -3, 0)"
         << "\\YASSE(Yi, Yf, Xi, nDivY, 3, 1," + legend + ")"
         << "\\YASSE(Yi, Yf, Xf, nDivY, -3, 0)"
         << "%Limita l'Area del Disegno"
         << "\\AREA(Xi, Yi, Xf, Yf)";
}

void StandardFigure::drawFunction() {
  const Array<double>&x = data_.FunX, &y = data_.FunY;
  const auto& failed = data_.FunFailed;
  for (int i = 1; i <= data_.NumFunPnt; ++i) {
    if (failed[i - 1] != kFalse || failed[i] != kFalse) continue;
    step([&] { drawing_.GralLine(x[i - 1], y[i - 1], x[i], y[i]); });
  }
  const FunctionLines lines = functionLines(session_, ports_.dialogs, Yf - Yi);
  graph_ << "%Disegna la Funzione"
         << "\\PARAMETRI(" + lines.parameters + ")"
         << "\\FUNZIONE(" + lines.expression + ")";
}

void StandardFigure::drawData() {
  step([&] { drawing_.GralClip(Xi, Yi, Xf, Yf); });
  step([&] {
    drawing_.PlotData(data_.Xpnt, data_.ErrXpnt, data_.Ypnt, data_.ErrYpnt, data_.NumPnt,
                      data_.kXpntErr != kFalse, false, false);
  });
  graph_ << "%Disegna i Dati"
         << "\\Dati(" + session_.loaded.DataPath + ")";
}

void StandardFigure::drawDifferences() {
  // QUIRK: the differences file has no name yet, so that the saved figure shows the axes until it has got one.
  graph_ << "%Disegna la Linea dello Zero "
         << "\\LINEA(Xi, 0, Xf, 0)"
         << "%Attenzione: per Disegnare i Dati"
         << "%1) Salvare il File Dati delle Differenze"
         << "%2) Inserire nella Riga Successiva il Nome del File"
         << "%\\DATI(inserire il nome del File Differenze)"
         << "%3) e Rimuovere il %";
  step([&] { drawing_.GralLine(Xi, 0, Xf, 0); });
  step([&] { drawing_.GralClip(Xi, Yi, Xf, Yf); });
  const Array<double>& errors = data_.kXpntErr != kFalse ? data_.ErrEff : data_.ErrYpnt;
  step([&] {
    drawing_.PlotData(data_.Xpnt, data_.ErrXpnt, differences_, errors, data_.NumPnt, false, false, false);
  });
  for (int i = 1; i <= data_.NumPnt; ++i) {
    differencesFile_ << dataField(data_.Xpnt[i], kNumberMask) + " " +
                            dataField(differences_[i], kNumberMask) + " " + dataField(errors[i], kNumberMask);
  }
}

/// The curve of the figure becomes the curve before. QUIRK: its first point, with index 0, is left out.
void keepCurve(DataSet& data) {
  for (int i = 1; i <= data.NumFunPnt; ++i) {
    data.OldFunX[i] = data.FunX[i];
    data.OldFunY[i] = data.FunY[i];
    data.OldFunFailed[i] = data.FunFailed[i];
  }
  data.NumOldFun = data.NumFunPnt;
}

}  // namespace

void MakeGraph(Session& session, FigurePorts& ports, Int16 kind) {
  StandardFigure figure(session, ports, kind);
  const bool drawn = figure.draw();
  session.figures.GraphText.at(static_cast<std::size_t>(kind)) = drawn ? figure.graphText() : "";
  if (!drawn || kind == kDifferencesFigure) session.figures.DiffText = drawn ? figure.differencesText() : "";
  Msg(session, ports.window);
  if (drawn && kind == kFunctionFigure) keepCurve(session.loaded.data);
}

}  // namespace vk
