#include "tests/numeric/NistProblem.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <sstream>
#include <stdexcept>

namespace vk {
namespace {

const std::string kExponentials = "b1*EXP(-b2*x)+b3*EXP(-b4*x)+b5*EXP(-b6*x)";
const std::string kPeaks = "b1*EXP(-b2*x)+b3*EXP(-((x-b4)/b5)^2)+b6*EXP(-((x-b7)/b8)^2)";
const std::string kCubics = "(b1+b2*x+b3*x^2+b4*x^3)/(1+b5*x+b6*x^2+b7*x^3)";
const std::string kSaturation = "b1*(1-EXP(-b2*x))";
const std::string kDamping = "EXP(-b1*x)/(b2+b3*x)";
const std::string kCycles =
    "b1+b2*COS(3.14159265358979324*x/6)+b3*SIN(3.14159265358979324*x/6)"
    "+b5*COS(6.28318530717958648*x/b4)+b6*SIN(6.28318530717958648*x/b4)"
    "+b8*COS(6.28318530717958648*x/b7)+b9*SIN(6.28318530717958648*x/b7)";

/// What a file says and what its sum of squares shows to be meant.
struct Misprint {
  std::string_view problem, line, printed, meant;
};

constexpr std::array kMisprints{
    Misprint{"Roszman1", "b1 =", "1.20196866396E-0", "2.0196866396E-01"},
    Misprint{"Rat43", "Degrees of Freedom:", "9", "11"},
};

constexpr double kCertifiedDigits = 11;

/// The largest difference of values from others in units of a third row; infinite where one is no number.
double largestDifference(std::span<const double> values, std::span<const double> others,
                         std::span<const double> units) {
  double largest = 0;
  for (std::size_t i = 0; i < others.size(); ++i) {
    const double difference = std::abs((values[i] - others[i]) / units[i]);
    if (std::isnan(difference)) return std::numeric_limits<double>::infinity();
    largest = std::max(largest, difference);
  }
  return largest;
}

/// The lines of a published file, and its faults with their numbers.
class NistText {
 public:
  explicit NistText(std::string_view text) {
    std::istringstream in{std::string(text)};
    for (std::string line; std::getline(in, line);) lines_.push_back(line);
  }

  [[noreturn]] void fail(std::size_t line, const std::string& what) const {
    throw std::runtime_error(name + ", line " + std::to_string(line) + ": " + what);
  }

  /// Number of the first line from `from` on that begins so, blanks apart.
  std::size_t find(std::string_view begin, std::size_t from = 1) const {
    for (std::size_t at = from; at <= lines_.size(); ++at) {
      if (begins(at, begin)) return at;
    }
    fail(lines_.size(), "there is no line " + std::string(begin));
  }

  bool begins(std::size_t line, std::string_view begin) const {
    const std::size_t first = lines_[line - 1].find_first_not_of(' ');
    return first != std::string::npos && lines_[line - 1].compare(first, begin.size(), begin) == 0;
  }

  /// The words behind this beginning of the line.
  std::vector<std::string> words(std::size_t line, std::string_view begin = "") const {
    const std::string& text = lines_[line - 1];
    std::istringstream in(text.substr(text.find(begin) + begin.size()));
    std::vector<std::string> result;
    for (std::string word; in >> word;) {
      for (const Misprint& misprint : kMisprints) {
        if (misprint.problem == name && misprint.line == begin && misprint.printed == word)
          word = misprint.meant;
      }
      result.push_back(word);
    }
    return result;
  }

  /// So many numbers behind the beginning, and nothing else.
  std::vector<double> numbers(std::size_t line, std::size_t count, std::string_view begin = "") const {
    const std::vector<std::string> found = words(line, begin);
    if (found.size() != count) fail(line, std::to_string(count) + " numbers were expected");
    std::vector<double> result;
    for (const std::string& word : found) {
      const char* end = word.data() + word.size();
      double value = 0;
      const auto read = std::from_chars(word.data(), end, value);
      if (read.ec != std::errc() || read.ptr != end) fail(line, word + " is no number");
      result.push_back(value);
    }
    return result;
  }

  double number(std::string_view begin) const { return numbers(find(begin), 1, begin)[0]; }

  /// The number behind the beginning, which must be this one.
  int count(std::string_view begin, int expected) const {
    if (number(begin) != expected) fail(find(begin), "not " + std::to_string(expected));
    return expected;
  }

  std::size_t last() const { return lines_.size(); }

  std::string name = "problem without a name";

 private:
  std::vector<std::string> lines_;
};

void readParameters(const NistText& text, NistProblem& problem) {
  std::size_t line = text.find("Start 1") + 1;
  for (;; ++line) {
    const std::string begin = "b" + std::to_string(problem.certified.size() + 1) + " =";
    if (line > text.last() || !text.begins(line, begin)) break;
    const std::vector<double> row = text.numbers(line, 4, begin);
    problem.starts[0].push_back(row[0]);
    problem.starts[1].push_back(row[1]);
    problem.certified.push_back(row[2]);
    problem.deviations.push_back(row[3]);
  }
  if (problem.certified.empty()) text.fail(line, "a parameter was expected");
}

void readPoints(const NistText& text, NistProblem& problem) {
  const std::string heading = "Data:";
  const std::size_t first = text.find(heading, text.find(heading) + 1) + 1;
  for (std::size_t line = first; line <= text.last(); ++line) {
    if (text.words(line).empty()) continue;
    const std::vector<double> row = text.numbers(line, 2);
    problem.y.push_back(row[0]);
    problem.x.push_back(row[1]);
  }
}

}  // namespace

std::string NistProblem::names() const {
  std::string result;
  for (int i = 1; i <= parameters(); ++i) result += (i > 1 ? ",b" : "b") + std::to_string(i);
  return result;
}

double NistProblem::digits(std::span<const double> values) const {
  return std::clamp(-std::log10(largestDifference(values, certified, certified)), 0.0, kCertifiedDigits);
}

double NistProblem::deviationsOff(std::span<const double> values) const {
  return largestDifference(values, certified, deviations);
}

NistProblem parseNist(std::string_view published) {
  NistText text(published);
  const std::string heading = "Dataset Name:";
  const std::size_t line = text.find(heading);
  const std::vector<std::string> title = text.words(line, heading);
  if (title.empty()) text.fail(line, "a name was expected");
  NistProblem problem;
  problem.name = text.name = title.front();
  readParameters(text, problem);
  problem.sumOfSquares = text.number("Residual Sum of Squares:");
  problem.residualDeviation = text.number("Residual Standard Deviation:");
  readPoints(text, problem);
  text.count("Number of Observations:", problem.points());
  problem.degreesOfFreedom = text.count("Degrees of Freedom:", problem.points() - problem.parameters());
  return problem;
}

const std::vector<NistFormula>& nistFormulas() {
  static const std::vector<NistFormula> formulas{
      {"Misra1a", kSaturation},
      {"Chwirut2", kDamping},
      {"Chwirut1", kDamping},
      {"Lanczos3", kExponentials},
      {"Gauss1", kPeaks},
      {"Gauss2", kPeaks},
      {"DanWood", "b1*x^b2"},
      {"Misra1b", "b1*(1-(1+b2*x/2)^(-2))"},
      {"Kirby2", "(b1+b2*x+b3*x^2)/(1+b4*x+b5*x^2)"},
      {"Hahn1", kCubics},
      {"MGH17", "b1+b2*EXP(-x*b4)+b3*EXP(-x*b5)"},
      {"Lanczos1", kExponentials},
      {"Lanczos2", kExponentials},
      {"Gauss3", kPeaks},
      {"Misra1c", "b1*(1-(1+2*b2*x)^(-0.5))"},
      {"Misra1d", "b1*b2*x/(1+b2*x)"},
      {"Roszman1", "b1-b2*x-ATAN(b3/(x-b4))/3.14159265358979324"},
      {"ENSO", kCycles},
      {"MGH09", "b1*(x^2+x*b2)/(x^2+x*b3+b4)"},
      {"Thurber", kCubics},
      {"BoxBOD", kSaturation},
      {"Rat42", "b1/(1+EXP(b2-b3*x))"},
      {"MGH10", "b1*EXP(b2/(x+b3))"},
      {"Eckerle4", "(b1/b2)*EXP(-0.5*((x-b3)/b2)^2)"},
      {"Rat43", "b1/((1+EXP(b2-b3*x))^(1/b4))"},
      {"Bennett5", "b1*(b2+x)^(-1/b3)"},
  };
  return formulas;
}

}  // namespace vk
