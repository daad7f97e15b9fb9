#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "batch/BatchRun.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"
#include "doubles/Tolerances.h"

// Data with the objects that belong to them, every member of them. The lines of both come from GoldenObjectsTest.py but
// for what fails and the catalogue, which hold no computed figure.

namespace vk {
namespace {

using OrderedObject = nlohmann::ordered_json;

constexpr const char* kLineData = "1 3.1 0.1;2 4.8 0.2;3 7.3 0.1;4 8.7 0.4;5 11.2 0.2;6 12.9 0.1";
constexpr const char* kArcData = "-3 9.9 1;-2 5.2 1;-1 0.4 1;0 -1.3 1;1 -0.6 1;2 3.8 1;3 8.1 1";
constexpr const char* kBothData = "1 2.9 0.1 0.2;2 5.3 0.1 0.1;3 6.8 0.2 0.3;4 9.2 0.1 0.2;5 10.7 0.2 0.1";
constexpr const char* kCertifiedData =
    "77.6 10.07 1;114.9 14.73 1;141.1 17.94 1;190.8 23.93 1;239.9 29.61 1;289 35.18 1;332.8 40.02 1;"
    "378.4 44.82 1;434.8 50.76 1;477.3 55.05 1;536.8 61.01 1;593.1 66.4 1;689.1 75.47 1;760 81.78 1";

constexpr const char* kFitOfLine = R"object(
{"schema_version": 1, "data_file": "D.DAT", "function": "y = bx+c", "formula": "b*x+c", "points": 6,
"parameters": [{"name": "b", "value": 1.96584205519, "error": 0.0257449900637,
"error_linearised": 0.0268909062193, "free": true, "start": 1}, {"name": "c", "value": 1.19400570885,
"error": 0.104682806192, "error_linearised": 0.104936813634, "free": true, "start": 0.5}],
"correlation": [[1.0, -0.849641780792], [-0.849641780792, 1.0]], "correlation_linearised": [[1.0,
-0.863185106319], [-0.863185106319, 1.0]], "chi_square": 9.72859181732, "degrees_of_freedom": 4,
"reduced_chi_square": 2.43214795433, "confidence_percent": 4.52562958624, "iterations": 1, "evaluations": 28,
"passes": 4, "status": "completed", "reason": "", "refined": {"parameters": [{"name": "b",
"value": 1.96584205519, "error": 0.0268909062193, "error_scaled": 0.0419372968271, "free": true},
{"name": "c", "value": 1.19400570885, "error": 0.104936813634, "error_scaled": 0.163652584467, "free": true}],
"correlation": [[1.0, -0.863185106319], [-0.863185106319, 1.0]], "chi_square": 9.72859181732,
"confidence_percent": 4.52562958624, "x_errors": null, "stop_reason": "converged"}, "warnings": [],
"profile": [{"name": "b", "intervals": [{"percent": 68.27, "low": 1.93895114897, "high": 1.9927329614},
{"percent": 95, "low": 1.91313684748, "high": 2.01854726289}]}, {"name": "c", "intervals": [{"percent": 68.27,
"low": 1.08906889521, "high": 1.29894252248}, {"percent": 95, "low": 0.988333333473,
"high": 1.39967808422}]}], "derived": [{"name": "T", "formula": "b/c", "value": 1.64642601004,
"error": 0.164532079603, "error_scaled": 0.256593459648}]})object";

constexpr const char* kFitWithConstant = R"object(
{"schema_version": 1, "data_file": "D.DAT", "function": "y = bx+c", "formula": "b*x+c", "points": 6,
"parameters": [{"name": "b", "value": 2.00875576037, "error": 0.0192451704931,
"error_linearised": 0.013576884666, "free": true, "start": 1}, {"name": "c", "value": 1, "error": null,
"error_linearised": null, "free": false, "start": 1}], "correlation": [[1.0]],
"correlation_linearised": [[1.0]], "chi_square": 13.1466013825, "degrees_of_freedom": 5,
"reduced_chi_square": 2.6293202765, "confidence_percent": 2.20430097882, "iterations": 1, "evaluations": 11,
"passes": 2, "status": "completed", "reason": "", "derived": [{"name": "R", "formula": "1/b",
"value": 0.497820601055, "error": 0.00336469620561}]})object";

constexpr const char* kFitOfParabola = R"object(
{"schema_version": 1, "data_file": "D.DAT", "function": "y = ax²+bx+c", "formula": "a*x*x+b*x+c", "points": 7,
"parameters": [{"name": "a", "value": 1.14047619048, "error": 0.0879416213828,
"error_linearised": 0.109108945118, "free": true, "start": 2}, {"name": "b", "value": -0.328571428571,
"error": 0.210334784771, "error_linearised": 0.188982236505, "free": true, "start": -1}, {"name": "c",
"value": -0.919047619048, "error": 0.620795358495, "error_linearised": 0.57735026919, "free": true,
"start": -2}], "correlation": [[1.0, -0.439008234193, -0.793293752932], [-0.439008234193, 1.0,
0.348262489671], [-0.793293752932, 0.348262489671, 1.0]], "correlation_linearised": [[1.0, 0.0,
-0.755928946018], [0.0, 1.0, 0.0], [-0.755928946018, 0.0, 1.0]], "chi_square": 2.13666666667,
"degrees_of_freedom": 4, "reduced_chi_square": 0.534166666667, "confidence_percent": 71.0639362681,
"iterations": 1, "evaluations": 31, "passes": 4, "status": "completed", "reason": "",
"refined": {"parameters": [{"name": "a", "value": 1.14047619048, "error": 0.109108945118,
"error_scaled": 0.079744134481, "free": true}, {"name": "b", "value": -0.328571428571,
"error": 0.188982236505, "error_scaled": 0.138120892527, "free": true}, {"name": "c",
"value": -0.919047619048, "error": 0.57735026919, "error_scaled": 0.421966296706, "free": true}],
"correlation": [[1.0, 0.0, -0.755928946018], [0.0, 1.0, 0.0], [-0.755928946018, 0.0, 1.0]],
"chi_square": 2.13666666667, "confidence_percent": 71.0639362681, "x_errors": null,
"stop_reason": "converged"}, "warnings": ["errors_invented"], "derived": [{"name": "V", "formula": "-b/(2*a)",
"value": 0.144050104384, "error": 0.0839906655226, "error_scaled": 0.0613860111959}]})object";

constexpr const char* kFitWithErrorsInX = R"object(
{"schema_version": 1, "data_file": "D.DAT", "function": "y = bx+c", "formula": "b*x+c", "points": 5,
"parameters": [{"name": "b", "value": 1.96792358185, "error": 0.0964233684668,
"error_linearised": 0.096413611447, "free": true, "start": 1}, {"name": "c", "value": 1.16998833372,
"error": 0.282501723242, "error_linearised": 0.284450979266, "free": true, "start": 0.5}],
"correlation": [[1.0, -0.895655303358], [-0.895655303358, 1.0]], "correlation_linearised": [[1.0,
-0.891170521918], [-0.891170521918, 1.0]], "chi_square": 2.89893429004, "degrees_of_freedom": 3,
"reduced_chi_square": 0.966311430013, "confidence_percent": 40.7471429295, "iterations": 2, "evaluations": 36,
"passes": 1, "status": "completed", "reason": "", "refined": {"parameters": [{"name": "b",
"value": 1.98117948663, "error": 0.101891748464, "error_scaled": 0.0963353815418, "free": true}, {"name": "c",
"value": 1.13478140496, "error": 0.299191308792, "error_scaled": 0.282875790444, "free": true}],
"correlation": [[1.0, -0.89386536156], [-0.89386536156, 1.0]], "chi_square": 2.68172887773,
"confidence_percent": 44.3341215358, "x_errors": "effective", "stop_reason": "converged"},
"warnings": ["fit_off_minimum"]})object";

constexpr const char* kCertifiedFit = R"object(
{"schema_version": 1, "data_file": "D.DAT", "function": "y = b1*b2*x/(1+b2*x)", "formula": "b1*b2*x/(1+b2*x)",
"points": 14, "parameters": [{"name": "b1", "value": 438.831855883, "error": 51.4197495375,
"error_linearised": 53.6308737325, "free": true, "start": 450}, {"name": "b2", "value": 0.000300944352403,
"error": 4.02616780203e-05, "error_linearised": 4.27571070526e-05, "free": true, "start": 0.0003}],
"correlation": [[1.0, -0.998734678325], [-0.998734678325, 1.0]], "correlation_linearised": [[1.0,
-0.998985975926], [-0.998985975926, 1.0]], "chi_square": 0.0640016961205, "degrees_of_freedom": 12,
"reduced_chi_square": 0.00533347467671, "confidence_percent": 99.9999999999, "iterations": 2,
"evaluations": 10, "passes": 1, "status": "completed", "reason": "", "refined": {"parameters": [{"name": "b1",
"value": 437.36970754, "error": 53.2158288697, "error_scaled": 3.6489174345, "free": true}, {"name": "b2",
"value": 0.00030227324449, "error": 4.27812362429e-05, "error_scaled": 2.9334354479e-06, "free": true}],
"correlation": [[1.0, -0.998977859806], [-0.998977859806, 1.0]], "chi_square": 0.056419295283,
"confidence_percent": 99.9999999999, "x_errors": null, "stop_reason": "converged"},
"warnings": ["chi_square_low", "correlation_high", "fit_off_minimum", "errors_invented"],
"derived": [{"name": "I", "formula": "b1*b2", "value": 0.13220516054, "error": 0.0027401681137,
"error_scaled": 0.000187888592849}]})object";

constexpr const char* kPropagation = R"object(
{"schema_version": 1, "function": "y = a*x", "variables": [{"name": "x", "value": 3, "error": 0.25,
"error_kind": "maximum", "derivative": 2}, {"name": "a", "value": 2, "error": 0.5, "error_kind": "sigma",
"derivative": 3}], "value": 6, "error_maximum": 5.0, "error_sigma": 1.52752523165, "samples": {"count": 10000,
"mean": 6.0080290842, "spread": 1.53120403661, "mean_error": 0.0153120403661}, "seed": 7,
"status": "completed"})object";

constexpr const char* kPropagationFromFit = R"object(
{"schema_version": 1, "function": "y = b+c", "variables": [{"name": "x", "value": 0, "error": 0,
"error_kind": "sigma", "derivative": 0}, {"name": "b", "value": 1.96584205519, "error": 0.0268909062193,
"error_kind": "sigma", "derivative": 1}, {"name": "c", "value": 1.19400570885, "error": 0.104936813634,
"error_kind": "sigma", "derivative": 1}], "value": 3.15984776403, "error_maximum": 0.248535194896,
"error_sigma": 0.0828450649652, "samples": {"count": 10000, "mean": 3.1589335798, "spread": 0.0829985913578,
"mean_error": 0.000829985913578}, "seed": 7, "status": "completed", "fit_file": "F.JSON"})object";

constexpr const char* kSimulation = R"object(
{"schema_version": 1, "settings": {"x_min": 0, "x_max": 4, "points": 5, "error_y": 0.5,
"error_y_absolute": true, "error_x": 0, "error_x_absolute": false, "seed": 3}, "truth": [{"name": "b",
"value": 2}, {"name": "c", "value": 1}], "fit": {"schema_version": 1, "data_file": null,
"function": "y = bx+c", "formula": "b*x+c", "points": 5, "parameters": [{"name": "b", "value": 1.99795814788,
"error": 0.0753102790088, "error_linearised": 0.0912870929175, "free": true, "start": 2}, {"name": "c",
"value": 1, "error": null, "error_linearised": null, "free": false, "start": 1}], "correlation": [[1.0]],
"correlation_linearised": [[1.0]], "chi_square": 1.61010810571, "degrees_of_freedom": 4,
"reduced_chi_square": 0.402527026427, "confidence_percent": 80.6974253378, "iterations": 1, "evaluations": 21,
"passes": 2, "status": "completed", "reason": ""}})object";

constexpr const char* kTransformation = R"object(
{"schema_version": 1, "title_x": "t^2", "title_y": "ln s", "x": [1, 4, 9, 16, 25], "y": [1.06471073699,
1.66770682056, 1.91692261218, 2.21920348405, 2.37024374147], "dx": [0.2, 0.4, 1.2, 0.8, 2.0],
"dy": [0.0689655172414, 0.0188679245283, 0.0441176470588, 0.0217391304348, 0.00934579439252]})object";

// A logarithm that fails leaves its argument, from which no chi-square is made.
constexpr const char* kFailure = R"object({
 "schema_version": 1, "data_file": "D.DAT", "function": "y = LOG(a)*x", "formula": "LOG(a)*x", "points": 6,
 "parameters": [
  {"name": "a", "value": -1, "error": null, "error_linearised": null, "free": true, "start": -1}
 ],
 "correlation": [], "correlation_linearised": null, "chi_square": null, "degrees_of_freedom": 5,
 "reduced_chi_square": null, "confidence_percent": null, "iterations": 0, "evaluations": 1, "passes": 1,
 "status": "failed", "reason": "il residuo dell'ultimo punto NON e` calcolabile",
 "refined": {
  "parameters": [{"name": "a", "value": null, "error": null, "error_scaled": null, "free": true}],
  "correlation": null, "chi_square": null, "confidence_percent": null, "x_errors": null, "stop_reason": "failed",
  "failed_point": 1
 },
 "warnings": []
})object";

constexpr const char* kRefusal = R"object({
 "schema_version": 1, "data_file": "D.DAT", "status": "refused", "reason": 
 "***ERR. un File Dati DEVE Contenere almeno 5 Linee\n***ERR. un File Dati DEVE Contenere almeno 2 Linee di Dati"
})object";

constexpr const char* kCatalogue = R"object({
 "schema_version": 1,
 "outer": [
  {"number": 1, "function": "u", "formula": "u", "parameters": []},
  {"number": 2, "function": "u²", "formula": "(u)^2", "parameters": []},
  {"number": 3, "function": "1/u", "formula": "1/(u)", "parameters": []},
  {"number": 4, "function": "√u", "formula": "SQR(u)", "parameters": []},
  {"number": 5, "function": "(x+A)/u", "formula": "(x+A)/(u)", "parameters": ["A"]},
  {"number": 6, "function": "A ln(u)", "formula": "A*LOG(u)", "parameters": ["A"]},
  {"number": 7, "function": "A exp(u)", "formula": "A*EXP(u)", "parameters": ["A"]},
  {"number": 8, "function": "A sin(u)", "formula": "A*SIN(u)", "parameters": ["A"]},
  {"number": 9, "function": "A exp[-Bx] sin(u)", "formula": "A*EXP(-B*x)*SIN(u)", "parameters": ["A", "B"]}
 ],
 "inner": [
  {"number": 1, "function": "c", "formula": "c", "parameters": ["c"]},
  {"number": 2, "function": "bx+c", "formula": "b*x+c", "parameters": ["b", "c"]},
  {"number": 3, "function": "ax²+bx+c", "formula": "a*x*x+b*x+c", "parameters": ["a", "b", "c"]},
  {"number": 4, "function": "[(x-m)²+a]/b", "formula": "((x-m)^2+a)/b", "parameters": ["m", "a", "b"]},
  {"number": 5, "function": "a/[(x²-m²)²+b²x²]", "formula": "a/((x*x-m*m)^2+(b*x)^2)", "parameters": ["a", "m", "b"]}
 ]
})object";

struct Golden {
  const char* definition;  ///< of the schema
  const char* words;       ///< those that end in .DAT and .JSON stand for files
  const char* data;
  const char* object;
  int exitCode = 0;
};

constexpr const char* kAllOfALine =
    "fit D.DAT --catalogue 1,2 --par b=1 --par c=.5 --refine --profile --derive 'T=b/c' ";

const Golden kGoldens[] = {
    {"fit", kAllOfALine, kLineData, kFitOfLine},
    {"fit", "fit D.DAT --catalogue 1,2 --par b=1 --fixed c=1 --derive 'R=1/b'", kLineData, kFitWithConstant},
    {"fit", "fit D.DAT --catalogue 1,3 --par a=2 --par b=-1 --par c=-2 --refine --derive 'V=-b/(2*a)'",
     kArcData, kFitOfParabola},
    {"fit", "fit D.DAT --catalogue 1,2 --par b=1 --par c=.5 --refine", kBothData, kFitWithErrorsInX},
    {"fit", "fit D.DAT --function 'b1*b2*x/(1+b2*x)' --par b1=450 --par b2=.0003 --refine --derive 'I=b1*b2'",
     kCertifiedData, kCertifiedFit},
    {"fit", "fit D.DAT --function 'LOG(a)*x' --par a=-1 --refine", kLineData, kFailure, 1},
    {"file_without_fit", "fit D.DAT --catalogue 1,2 --par b=1 --par c=.5 --json-lines", "1 2 3", kRefusal, 1},
    {"propagate", "propagate --function 'a*x' --par a=2,.5 --par x=3,-.25 --seed 7", "", kPropagation},
    {"propagate", "propagate --from-fit F.JSON --function 'b+c' --seed 7", "", kPropagationFromFit},
    {"simulate",
     "simulate --catalogue 1,2 --par b=2 --fixed c=1 --xmax 4 --points 5 --dy .5 --dy-absolute --seed 3", "",
     kSimulation},
    {"transform",
     "transform D.DAT --x 'x^2' --y 'LOG(y)' --dx '2*x*dx' --dy 'dy/y' --title-x 't^2' --title-y 'ln s'",
     kBothData, kTransformation},
    {"catalogue", "catalogue", "", kCatalogue},
};

/// A data file of these lines, its errors of x before those of y.
std::string fileOf(const std::string& lines) {
  const auto blanks = std::ranges::count(lines.substr(0, lines.find(';')), ' ');
  std::string text = "t\ns\n " + std::to_string(std::ranges::count(lines, ';') + 1) +
                     (blanks == 3 ? " 1;" : ";") + lines + ";";
  std::ranges::replace(text, ';', '\n');
  return text;
}

/// The text with the names of files in place of those that stand for them.
std::string withFiles(std::string text, const std::string& data) {
  const std::map<std::string, std::string> files{{"D.DAT", temporaryFile("D.DAT", fileOf(data))},
                                                 {"F.JSON", temporaryFile("F.JSON", kFitOfLine)}};
  for (const auto& [name, path] : files) {
    if (const auto at = text.find(name); at != std::string::npos) text.replace(at, name.size(), path);
  }
  return text;
}

void expectSame(const OrderedObject& found, const OrderedObject& expected, const std::string& place) {
  if (expected.is_number()) {
    ASSERT_TRUE(found.is_number()) << place;
    const double number = expected;
    const bool confidence = place.ends_with("confidence_percent");
    EXPECT_NEAR(found.get<double>(), number,
                confidence ? 100 * kKernelAccuracy : kByDifferences * std::abs(number) + kManyRoundings)
        << place;
    return;
  }
  ASSERT_EQ(found.type(), expected.type()) << place;
  ASSERT_EQ(found.size(), expected.size()) << place << found;
  if (!expected.is_structured()) {
    EXPECT_EQ(found, expected) << place;
    return;
  }
  const auto names = expected.items();
  auto inner = found.items().begin();
  for (auto member = names.begin(); member != names.end(); ++member, ++inner) {
    EXPECT_EQ(inner.key(), member.key()) << place;
    expectSame(inner.value(), member.value(), place + "/" + member.key());
  }
}

TEST(GoldenObjects, HaveTheFiguresOfOtherWays) {
  for (const auto& [definition, words, data, object, exitCode] : kGoldens) {
    const bool line = std::string(words).ends_with("--json-lines");
    const BatchRun run = batch(withFiles(words, data) + (line ? "" : " --json"));
    EXPECT_EQ(run.exitCode, exitCode) << words << run.errors;
    expectSame(OrderedObject::parse(run.output, nullptr, false),
               OrderedObject::parse(withFiles(object, data)), words);
  }
}

// On a straight line the distance from it has the same minimum as the variance that follows the slope.
TEST(GoldenObjects, CountErrorsInXByTheDistance) {
  const BatchRun run = batch(withFiles(
      "fit D.DAT --catalogue 1,2 --par b=1 --par c=.5 --refine --x-errors orthogonal --json", kBothData));
  OrderedObject expected = OrderedObject::parse(withFiles(kFitWithErrorsInX, kBothData));
  expected["refined"]["x_errors"] = "orthogonal";
  expectSame(OrderedObject::parse(run.output, nullptr, false), expected, "orthogonal");
}

// ---- The same in other forms

TEST(GoldenObjects, HaveTheSameFiguresOnOneLine) {
  const BatchRun run = batch(withFiles(kAllOfALine, kLineData) + "--json-lines");
  EXPECT_EQ(std::ranges::count(run.output, '\n'), 1);
  expectSame(OrderedObject::parse(run.output, nullptr, false),
             OrderedObject::parse(withFiles(kFitOfLine, kLineData)), "line");
}

/// Where a column of the table stands in the object of the fit.
const std::map<std::string, std::string> kColumns{
    {"file", "/data_file"},
    {"status", "/status"},
    {"points", "/points"},
    {"b", "/parameters/0/value"},
    {"b_error", "/parameters/0/error"},
    {"b_error_linearised", "/parameters/0/error_linearised"},
    {"c", "/parameters/1/value"},
    {"c_error", "/parameters/1/error"},
    {"c_error_linearised", "/parameters/1/error_linearised"},
    {"chi_square", "/chi_square"},
    {"degrees_of_freedom", "/degrees_of_freedom"},
    {"reduced_chi_square", "/reduced_chi_square"},
    {"confidence_percent", "/confidence_percent"},
    {"b_refined", "/refined/parameters/0/value"},
    {"b_refined_error", "/refined/parameters/0/error"},
    {"b_refined_error_scaled", "/refined/parameters/0/error_scaled"},
    {"c_refined", "/refined/parameters/1/value"},
    {"c_refined_error", "/refined/parameters/1/error"},
    {"c_refined_error_scaled", "/refined/parameters/1/error_scaled"},
    {"refined_chi_square", "/refined/chi_square"},
    {"refined_confidence_percent", "/refined/confidence_percent"},
    {"refined_stop_reason", "/refined/stop_reason"},
    {"b_low_68.27", "/profile/0/intervals/0/low"},
    {"b_high_68.27", "/profile/0/intervals/0/high"},
    {"b_low_95", "/profile/0/intervals/1/low"},
    {"b_high_95", "/profile/0/intervals/1/high"},
    {"c_low_68.27", "/profile/1/intervals/0/low"},
    {"c_high_68.27", "/profile/1/intervals/0/high"},
    {"c_low_95", "/profile/1/intervals/1/low"},
    {"c_high_95", "/profile/1/intervals/1/high"},
    {"T", "/derived/0/value"},
    {"T_error", "/derived/0/error"},
    {"T_error_scaled", "/derived/0/error_scaled"},
    {"reason", "/reason"},
};

TEST(GoldenObjects, HaveTheSameFiguresInATable) {
  const OrderedObject expected = OrderedObject::parse(withFiles(kFitOfLine, kLineData));
  std::istringstream lines(batch(withFiles(kAllOfALine, kLineData) + "--csv").output);
  std::string header, cells, name, cell;
  std::getline(lines, header);
  std::getline(lines, cells);
  std::istringstream names(header), values(cells + ",");
  std::set<std::string> seen;
  while (std::getline(names, name, ',') && std::getline(values, cell, ',')) {
    ASSERT_TRUE(kColumns.contains(name)) << name;
    seen.insert(name);
    const OrderedObject& value = expected[OrderedObject::json_pointer(kColumns.at(name))];
    expectSame(value.is_string() ? OrderedObject(cell) : OrderedObject::parse(cell, nullptr, false), value,
               name);
  }
  EXPECT_EQ(seen.size(), kColumns.size());
}

// ---- What they leave out

/// Marks the members of the schema that a value has and that are no null in it.
void cover(const OrderedObject& schema, const OrderedObject& part, const OrderedObject& value,
           std::set<const OrderedObject*>& seen) {
  if (part.contains("$ref"))
    cover(schema, schema[OrderedObject::json_pointer(part["$ref"].get<std::string>().substr(1))], value,
          seen);
  if (part.contains("anyOf")) {
    for (const OrderedObject& choice : part["anyOf"]) cover(schema, choice, value, seen);
  }
  if (part.contains("items") && value.is_array()) {
    for (const OrderedObject& item : value) cover(schema, part["items"], item, seen);
  }
  if (!part.contains("properties") || !value.is_object()) return;
  for (const auto& [name, property] : part["properties"].items()) {
    if (!value.contains(name) || value[name].is_null()) continue;
    seen.insert(&property);
    cover(schema, property, value[name], seen);
  }
}

TEST(GoldenObjects, HoldEveryMemberOfTheSchema) {
  const OrderedObject schema = OrderedObject::parse(fileContent(sourcePath("docs/json.schema.json")));
  const OrderedObject& definitions = schema["definitions"];
  std::set<const OrderedObject*> seen;
  for (const Golden& golden : kGoldens)
    cover(schema, definitions[golden.definition], OrderedObject::parse(golden.object), seen);
  int members = 0;
  const auto expectSeen = [&](const std::string& name, const OrderedObject& part) {
    for (const auto& [key, property] : part["properties"].items()) {
      EXPECT_TRUE(seen.contains(&property)) << name << ": " << key;
      ++members;
    }
  };
  for (const auto& [name, definition] : definitions.items()) {
    if (definition.contains("properties")) expectSeen(name, definition);
  }
  expectSeen("interval", definitions["profile"]["properties"]["intervals"]["items"]);
  expectSeen("samples", definitions["samples"]["anyOf"][0]);
  EXPECT_GT(members, 80);
}

}  // namespace
}  // namespace vk
