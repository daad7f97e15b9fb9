#include <cmath>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>

#include "analysis/LinearisedErrors.h"
#include "base/TextLines.h"
#include "batch/Assignment.h"
#include "batch/DataInput.h"
#include "batch/FitCommand.h"
#include "batch/FitCsv.h"
#include "batch/FitFigures.h"
#include "batch/RoundedFit.h"
#include "fuzz/FinitePlaces.h"
#include "fuzz/Input.h"
#include "fuzz/OneFile.h"
#include "fuzz/StreamText.h"
#include "grafile/FigureKind.h"
#include "gral/sinks/RecorderDevice.h"
#include "session/Session.h"

namespace vk {
namespace {

// What keeps a run short.
constexpr int kMostPoints = 24;
constexpr std::size_t kLongestFormula = 60;

/// Three lines, and behind them the data file: letters of what is wanted besides, the formula, and its parameters as
/// "A=1 !B=2", of which the second one is constant.
struct WantedFit {
  explicit WantedFit(std::string_view bytes) {
    TextLines lines(bytes);
    const std::string_view letters = lines.next().value_or("");
    formula = lines.next().value_or("");
    std::istringstream words{std::string(lines.next().value_or(""))};
    for (std::string word; words >> word;) parameters.push_back(word);
    std::string data;
    while (const auto line = lines.next()) data += std::string(*line) + "\r\n";
    file = data;
    const auto asked = [&](char letter) { return letters.find(letter) != letters.npos; };
    refine = asked('r');
    profile = asked('p');
    band = asked('b');
    differences = asked('d');
  }

  std::string formula, file;
  std::vector<std::string> parameters;
  bool refine = false, profile = false, band = false, differences = false;
};

FitArguments argumentsOf(const WantedFit& wanted) {
  FitArguments arguments;
  arguments.model.function = wanted.formula;
  for (const std::string& word : wanted.parameters) {
    const bool constant = word.starts_with('!');
    arguments.parameters.push_back({parseAssignment(word.substr(constant ? 1 : 0)), constant ? 0.0 : 1.0});
  }
  arguments.refine = wanted.refine || wanted.profile;
  arguments.profile = wanted.profile;
  arguments.form = FitForm::kJson;
  if (wanted.band) {
    arguments.figures.band = "68";
    arguments.figures.graphicFile = "grafico.gra";  // which a band needs; nothing is written
  }
  return arguments;
}

void requireFinite(const ParameterSet& par) {
  for (int i = 1; i <= par.ParCount; ++i) require(std::isfinite(par.ParValues[i]), "finite values");
}

/// What a fit tells is a number, or is missing.
void requireNumbers(const FitFindings& found) {
  const FitResult& result = found.result;
  if (found.fitted()) {
    requireFinite(result.par);
    for (int k = 1; k <= result.N; ++k)
      require(std::isfinite(result.par.ParDeltas[result.par.FreeIndex[k]]), "finite errors");
    require(std::isfinite(result.chi_square) && result.chi_square >= 0, "a chi-square");
    for (int a = 1; a <= result.correlation.size(); ++a) {
      for (int b = 1; b <= a; ++b)
        require(std::abs(result.correlation.at(a, b)) <= 1 + 1E-9, "a correlation");
    }
  } else {
    require(!result.reason.empty(), "a reason of a failure");
  }
  if (found.refined.converged()) {
    requireFinite(found.refined.par);
    require(std::isfinite(found.refined.chiSquare) && found.refined.chiSquare >= 0, "the least chi-square");
  }
}

/// The drawing, and the same once more from its list.
std::string drawn(Session& session, int kind) {
  RecorderDevice form;
  NoListener listener;
  drawFigure(session, kind, form, listener);
  FinitePlaces places;
  form.list().replay(places);
  DisplayList again;
  form.list().replay(again);
  std::string text;
  for (const std::string& line : form.lines()) text += line + "\n";
  require(again.lines() == form.lines(), "the same drawing again");
  text += session.figures.GraphText.at(static_cast<std::size_t>(kind));
  return kind == kDifferencesFigure ? text + session.figures.DiffText : text;
}

/// All that a fit of this session gives to read, whatever was fitted before; empty where the words are refused.
std::string fitted(Session& session, const WantedFit& wanted) {
  const StreamText errors(std::cerr), notes(std::clog);
  OneFile files(wanted.file);
  FitOutcome outcome;
  try {
    const FitArguments arguments = argumentsOf(wanted);
    loadData(session, files, "dati.dat");
    if (session.loaded.data.NumPnt > kMostPoints) return "";
    chooseFitModel(session, files, arguments);
    outcome = fitLoaded(session, arguments, "dati.dat");
  } catch (const UsageError& refusal) {
    require(*refusal.what() != '\0', "a refusal in words");
    return "";
  }
  requireNumbers(outcome.found);
  std::string told = errors.text() + notes.text() + outcome.screen + outcome.report.text() +
                     roundedLines(outcome.found) + latexTable(outcome.found, outcome.dataFile) +
                     csvLine(outcome.dataFile, outcome.found);
  if (outcome.fitted()) told += drawn(session, wanted.differences ? kDifferencesFigure : kFunctionFigure);
  session.figures.band.reset();
  return told;
}

/// A line through three points.
std::string fittedLine(Session& session) {
  static const WantedFit line("\na*x+b\na=1 b=0\nx\ny\n3\n0 1 .1\n1 3 .1\n2 5.5 .2\n");
  return fitted(session, line);
}

/// Any data, formula and starting values are refused in words or fitted. Everything told is a number, the same fit
/// tells the same again, and a session that has seen it fits as a fresh one does.
void probe(Input input) {
  const WantedFit wanted(input.rest());
  if (wanted.formula.size() > kLongestFormula) return;
  Session session;
  const std::string told = fitted(session, wanted);
  static const std::string expected = [] {
    Session fresh;
    return fittedLine(fresh);
  }();
  require(fittedLine(session) == expected, "a session that goes on");
  if (!told.empty()) require(fitted(session, wanted) == told, "the same fit again");
}

}  // namespace
}  // namespace vk

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vk::probe({data, size});
  return 0;
}
