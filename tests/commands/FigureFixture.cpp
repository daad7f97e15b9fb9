#include "tests/commands/FigureFixture.h"

#include "doubles/Choices.h"
#include "expr/Catalogue.h"

namespace vk {

std::string lines(std::initializer_list<std::string> content) {
  std::string text;
  for (const std::string& line : content) {
    text += line;
    text += kCrLf;
  }
  return text;
}

FigureFixture::FigureFixture() {
  BuildCatalogue(session.loaded.catalogue);
  session.settings.ShowErrors = kTrue;
}

std::vector<std::string> FigureFixture::run(const std::string& text, const std::string& device) {
  files.content["/FIGURE.GRA"] = text;
  RunGraphicFile(session, ports, "/FIGURE.GRA", device, 0);
  return device == "Printer" ? printer.lines() : lastWindow().form.lines();
}

std::vector<std::string> FigureFixture::drawing(const Calls& calls) {
  RecorderDevice form;
  GralCls drawing(printer);
  drawing.GralCaption = "VOR_KEL: Visualizza File Grafico";
  drawing.GralGrStr(form, "LANDSCAPE", static_cast<double>(session.figures.GraphScale[3]));
  calls(drawing);
  drawing.GralGrEnd();
  return form.lines();
}

void FigureFixture::expectDraws(const std::string& text, const Calls& calls) {
  EXPECT_EQ(run(text), drawing(calls)) << text;
  EXPECT_EQ(output.requests.size(), 0U) << text << output.request().text.bytes();
}

std::string FigureFixture::errorsOf(const std::string& text) {
  output.requests.clear();
  run(text);
  return output.requests.empty() ? "" : std::string(output.requests.back().text.bytes());
}

void FigureFixture::loadData(const std::string& name, const std::vector<std::array<double, 4>>& points,
                             bool xErrors) {
  session.loaded.DataFile = session.loaded.DataPath = name;
  session.loaded.DataDefined = kTrue;
  DataSet& data = session.loaded.data;
  data.allocate(static_cast<int>(points.size()), toFlag(xErrors));
  data.TitleX = "Tempo (s)";
  data.TitleY = "Corsa (m)";
  int i = 0;
  for (const auto& [x, y, dx, dy] : points) {
    ++i;
    data.Xpnt[i] = x;
    data.Ypnt[i] = y;
    data.ErrXpnt[i] = dx;
    data.ErrYpnt[i] = dy;
  }
}

void FigureFixture::takeFunction(int inner, int outer, const std::vector<double>& parameters) {
  choose(session, inner, outer);
  ASSERT_EQ(static_cast<std::size_t>(session.analysis.par.ParCount), parameters.size());
  int i = 0;
  for (const double value : parameters) session.analysis.par.ParValues[++i] = value;
  session.analysis.ParametersSet = kTrue;
  session.analysis.ParVar = kTrue;
}

SampledCurve FigureFixture::curveOfFigure() const {
  NoListener nobody;
  Model model = session.analysis.model;
  const FigureSource source{.kind = kFunctionFigure,
                            .data = session.loaded.data,
                            .dataName = "",
                            .dataPath = "",
                            .functionText = "",
                            .expression = "",
                            .model = model,
                            .parameters = session.analysis.par};
  return computeFigure(source, nobody, [] {}).value().curve;
}

}  // namespace vk
