#include <cctype>
#include <cmath>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/LinearisedErrors.h"
#include "base/TextLines.h"
#include "batch/Assignment.h"
#include "batch/DataInput.h"
#include "batch/FitCommand.h"
#include "batch/FitCsv.h"
#include "batch/FitFigures.h"
#include "batch/RoundedFit.h"
#include "data/DataFiles.h"
#include "fuzz/FinitePlaces.h"
#include "fuzz/Input.h"
#include "fuzz/OneFile.h"
#include "fuzz/StreamText.h"
#include "grafile/FigureKind.h"
#include "grafile/GraphicFile.h"
#include "gral/NoPrinter.h"
#include "gral/sinks/RecorderDevice.h"
#include "session/Session.h"

namespace vk {
namespace {

// What keeps a run short.
constexpr int kMostPoints = 24;
constexpr std::size_t kLongestFormula = 60;
constexpr std::size_t kUntold = 8;  ///< one in so many that were refused has another fit behind it

constexpr std::string_view kNames = "abcd";  ///< of parameters

/// True where the letter stands in a formula by itself.
bool standsIn(std::string_view formula, char letter) {
  const auto isPart = [&](std::size_t at) {
    return at < formula.size() && std::isalnum(static_cast<unsigned char>(formula[at])) != 0;
  };
  for (auto at = formula.find(letter); at != formula.npos; at = formula.find(letter, at + 1)) {
    if ((at == 0 || !isPart(at - 1)) && !isPart(at + 1)) return true;
  }
  return false;
}

/// Three lines, and behind them the points: letters of what is wanted besides, the formula, and starting values of
/// the parameters in it, of which those behind an exclamation mark are constant.
struct WantedFit {
  explicit WantedFit(std::string_view bytes) {
    TextLines lines(bytes);
    const std::string_view letters = lines.next().value_or("");
    formula = lines.next().value_or("");
    std::istringstream words{std::string(lines.next().value_or(""))};
    for (const char name : kNames) {
      std::string word = "1";
      words >> word;
      if (standsIn(formula, name)) parameters.emplace_back(name, word);
    }
    std::string points;
    int count = 0;
    for (; const auto line = lines.next(); ++count) points += std::string(*line) + "\r\n";
    file = "x\r\ny\r\n" + std::to_string(count) + "\r\n" + points;
    const auto asked = [&](char letter) { return letters.find(letter) != letters.npos; };
    refine = asked('r');
    profile = asked('p');
    band = asked('b');
    differences = asked('d');
  }

  std::string formula, file;
  std::vector<std::pair<char, std::string>> parameters;
  bool refine = false, profile = false, band = false, differences = false;
};

FitArguments argumentsOf(const WantedFit& wanted) {
  FitArguments arguments;
  arguments.model.function = wanted.formula;
  for (const auto& [name, word] : wanted.parameters) {
    const bool constant = word.starts_with('!');
    const std::string value = word.substr(constant ? 1 : 0);
    arguments.parameters.push_back({parseAssignment(std::string{name, '='} + value), constant ? 0.0 : 1.0});
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
    require(result.chi_square && std::isfinite(*result.chi_square) && *result.chi_square >= 0,
            "a chi-square");
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

/// The graphic file of the figure can be run. Its reader takes as many points as the data file announces, where loading
/// takes those that there are and tells of the difference.
void requireFile(const std::string& graph, Files& files) {
  RecorderDevice form;
  NoPrinter printer;
  GralCls drawing(printer);
  drawing.GralGrStr(form, "LANDSCAPE", 1);
  NoListener listener;
  GraphicRun run(files, drawing, listener);
  run.runText(graph);
  drawing.GralGrEnd();
  require(run.errors().empty() || !parseFreeFields(files.readAll("dati.dat")).complete,
          "a graphic file without errors");
  FinitePlaces places;
  form.list().replay(places);
}

/// The figure as its text and the sum of what was drawn.
std::string drawn(Session& session, Files& files, int kind) {
  RecorderDevice form;
  NoListener listener;
  drawFigure(session, kind, form, listener);
  FinitePlaces places;
  form.list().replay(places);
  const std::string& graph = session.figures.GraphText.at(static_cast<std::size_t>(kind));
  if (session.ErrFlag == kFalse) requireFile(graph, files);
  const std::string text = std::to_string(places.sum()) + "\n" + graph;
  return kind == kDifferencesFigure ? text + session.figures.DiffText : text;
}

/// The screen of a fit without the seconds that it took: on a busy machine the same fit takes longer.
std::string withoutSeconds(std::string screen) {
  constexpr std::string_view kSeconds = "Sec. ";
  const auto at = screen.find(kSeconds);
  if (at == screen.npos) return screen;
  const auto end = screen.find_first_not_of(" 0123456789", at + kSeconds.size());
  return screen.erase(at, end - at);
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
  std::string told = errors.text() + notes.text() + withoutSeconds(outcome.screen) + outcome.report.text() +
                     roundedLines(outcome.found) + latexTable(outcome.found, outcome.dataFile) +
                     csvLine(outcome.dataFile, outcome.found);
  if (outcome.fitted())
    told += drawn(session, files, wanted.differences ? kDifferencesFigure : kFunctionFigure);
  session.figures.band.reset();
  return told;
}

/// A line through three points.
std::string fittedLine(Session& session) {
  static const WantedFit line("\na*x+b\n1 0\n0 1 .1\n1 3 .1\n2 5.5 .2\n");
  return fitted(session, line);
}

}  // namespace

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
  if (told.empty() && wanted.file.size() % kUntold != 0) return;
  require(fittedLine(session) == expected, "a session that goes on");
  if (!told.empty()) require(fitted(session, wanted) == told, "the same fit again");
}

}  // namespace vk
