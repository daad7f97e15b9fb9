#include <gmock/gmock.h>

#include <rapidjson/document.h>
#include <rapidjson/schema.h>

#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "analysis/FitWarnings.h"
#include "batch/BatchRun.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

using Document = nlohmann::json;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAreArray;

/// The published schema, or what it says of one command.
Document schemaOf(const std::string& command = "") {
  Document schema = Document::parse(fileContent(sourcePath("docs/json.schema.json")));
  if (!command.empty()) {
    schema.erase("anyOf");
    schema["allOf"] = {{{"$ref", "#/definitions/" + command}}};
  }
  return schema;
}

bool fits(const Document& object, const Document& schema) {
  rapidjson::Document rules, values;
  rules.Parse(schema.dump().c_str());
  values.Parse(object.dump().c_str());
  const rapidjson::SchemaDocument compiled(rules);
  rapidjson::SchemaValidator validator(compiled);
  return !values.HasParseError() && values.Accept(validator);
}

/// A run that prints an object, its command first.
Document objectOf(const std::string& words, int exitCode = 0) {
  const BatchRun run = batch(words + " --json");
  EXPECT_EQ(run.exitCode, exitCode) << words << run.errors;
  Document object = Document::parse(run.output, nullptr, false);
  EXPECT_TRUE(fits(object, schemaOf(words.substr(0, words.find(' '))))) << words << '\n' << run.output;
  EXPECT_TRUE(fits(object, schemaOf())) << words;
  return object;
}

std::string measured(const std::string& points) {
  return "'" + temporaryFile("D.DAT", "t\r\ns\r\n" + points) + "' ";
}

const std::string kDecayFit =
    "fit examples/decay.dat --file examples/lab.fcn --entry 1 --par A=400 --par k=0.2 --fixed b=22 ";

std::string threePoints() {
  return "fit " + measured(" 3\r\n1 2.1 .1\r\n2 3.9 .1\r\n3 6.2 .1\r\n");
}

// ---- What the commands print

TEST(JsonSchema, HoldsForAFit) {
  const Document fit = objectOf(kDecayFit);
  EXPECT_EQ(fit["schema_version"], 1);
  EXPECT_EQ(fit["data_file"], "examples/decay.dat");
  EXPECT_EQ(fit["function"], "y = Decadimento esponenziale con fondo");
  EXPECT_EQ(fit["formula"], "A*EXP(-k*x)+b");
  EXPECT_EQ(fit["parameters"][1]["start"], 0.2);
  EXPECT_EQ(fit["parameters"][2]["start"], 22);
  EXPECT_EQ(fit["parameters"][2]["error_linearised"], nullptr);
  EXPECT_EQ(fit["correlation_linearised"].size(), 2u);
  EXPECT_EQ(fit["correlation_linearised"][0][0], 1);
  EXPECT_FALSE(fit.contains("refined"));
  EXPECT_FALSE(fit.contains("warnings"));
}

TEST(JsonSchema, HoldsForEachLine) {
  const std::string points = measured(" 3\r\n1 2.1 .1\r\n2 3.9 .1\r\n3 6.2 .1\r\n");
  const std::string model = "--catalogue 1,2 --par b=1 --par c=0 ";
  const BatchRun run = batch("fit " + points + "none.dat " + points + model + "--json-lines");
  EXPECT_EQ(run.exitCode, 1);
  const Document alone = Document::parse(batch("fit " + points + model + "--json").output);
  std::vector<Document> objects;
  std::istringstream lines(run.output);
  for (std::string line; std::getline(lines, line);) objects.push_back(Document::parse(line));
  ASSERT_EQ(objects.size(), 3u);
  EXPECT_EQ(objects[0], alone);
  EXPECT_EQ(objects[1], Document({{"schema_version", 1},
                                  {"data_file", "none.dat"},
                                  {"status", "refused"},
                                  {"reason", "Impossibile trovare il file"}}));
  EXPECT_TRUE(fits(objects[1], schemaOf("file_without_fit")));
  EXPECT_FALSE(fits(objects[1], schemaOf("fit")));
  EXPECT_TRUE(fits(objects[1], schemaOf()));
  EXPECT_EQ(objects[2], alone);
}

TEST(JsonSchema, HoldsForAMinimum) {
  const Document fit = objectOf(kDecayFit + "--refine --profile --derive 'T=LOG(2)/k'");
  ASSERT_EQ(fit["profile"].size(), 2u);
  EXPECT_EQ(fit["profile"][0]["intervals"][1]["percent"], 95);
  const Document& refined = fit["refined"];
  EXPECT_EQ(refined["stop_reason"], "converged");
  EXPECT_EQ(refined["x_errors"], nullptr);
  EXPECT_FALSE(refined.contains("failed_point"));
  EXPECT_NEAR(refined["parameters"][1]["value"], fit["parameters"][1]["value"], 1e-3);
  EXPECT_EQ(refined["parameters"][2]["value"], 22);
  EXPECT_EQ(refined["parameters"][2]["error"], nullptr);
  EXPECT_EQ(refined["parameters"][2]["error_scaled"], nullptr);
  EXPECT_EQ(refined["parameters"][2]["free"], false);
  EXPECT_EQ(refined["correlation"].size(), 2u);
  EXPECT_NEAR(refined["correlation"][0][1], fit["correlation_linearised"][0][1], 1e-3);
}

TEST(JsonSchema, HoldsWhereErrorsInXCount) {
  const std::string words = "fit " + measured(" 3 1\r\n1 2.1 .1 .1\r\n2 3.9 .1 .1\r\n3 6.2 .1 .1\r\n") +
                            "--catalogue 1,2 --par b=1 --par c=0 --refine";
  EXPECT_EQ(objectOf(words)["refined"]["x_errors"], "effective");
  EXPECT_EQ(objectOf(words + " --x-errors orthogonal")["refined"]["x_errors"], "orthogonal");
}

TEST(JsonSchema, HoldsForAFitThatFails) {
  const std::string far = threePoints() + "--catalogue 1,2 --par b=2E200 --par c=1 ";
  const Document failed = objectOf(far, 1);
  EXPECT_EQ(failed["status"], "failed");
  EXPECT_EQ(failed["parameters"][0]["error_linearised"], nullptr);
  EXPECT_EQ(failed["correlation_linearised"], nullptr);
  EXPECT_EQ(failed["correlation"], Document::array());
  const Document refined = objectOf(far + "--refine");
  EXPECT_EQ(refined["status"], "failed");
  EXPECT_EQ(refined["refined"]["stop_reason"], "converged");
}

TEST(JsonSchema, HoldsWhereTheMinimumFails) {
  // The fit goes on without a first point that cannot be computed.
  const Document left = objectOf(threePoints() + "--function 'a*LOG(x-1)' --par a=1 --refine");
  EXPECT_EQ(left["status"], "completed");
  EXPECT_EQ(left["refined"]["failed_point"], 1);
  const Document refined =
      objectOf(threePoints() + "--function 'LOG(a)*x' --par a=-1 --refine", 1)["refined"];
  EXPECT_EQ(refined["stop_reason"], "failed");
  EXPECT_EQ(refined["failed_point"], 1);
  EXPECT_EQ(refined["chi_square"], nullptr);
  EXPECT_EQ(refined["confidence_percent"], nullptr);
  EXPECT_EQ(refined["correlation"], nullptr);
  EXPECT_EQ(refined["parameters"][0]["value"], nullptr);
  EXPECT_EQ(refined["parameters"][0]["error"], nullptr);
}

TEST(JsonSchema, HoldsWithoutADegreeOfFreedom) {
  const Document fit = objectOf("fit " + measured(" 2\r\n1 2 1\r\n2 5 1\r\n") +
                                "--catalogue 1,2 --par b=1 --par c=0 --refine");
  EXPECT_EQ(fit["reduced_chi_square"], nullptr);
  EXPECT_EQ(fit["refined"]["confidence_percent"], nullptr);
  EXPECT_EQ(fit["refined"]["parameters"][0]["error_scaled"], nullptr);
  EXPECT_THAT(fit["warnings"], Contains("errors_invented"));
}

TEST(JsonSchema, HoldsForPropagation) {
  EXPECT_EQ(objectOf("propagate --function 'a*x' --par a=2,.5 --par x=3,-.25 --seed 7")["schema_version"], 1);
  const std::string fit = temporaryFile("FIT.JSON", objectOf(kDecayFit).dump());
  EXPECT_EQ(objectOf("propagate --from-fit '" + fit + "' --function 'LOG(2)/k' --seed 7")["fit_file"], fit);
  EXPECT_EQ(objectOf("propagate --catalogue 1,1 --par c=3", 1)["samples"], nullptr);
  EXPECT_EQ(objectOf("propagate --function 'SQR(a)' --par a=0,1", 1)["value"], nullptr);
}

TEST(JsonSchema, HoldsForSimulation) {
  const Document simulation =
      objectOf("simulate --catalogue 1,2 --par b=2 --fixed c=1 --points 4 --dx .5 --seed 3");
  EXPECT_EQ(simulation["schema_version"], 1);
  EXPECT_EQ(simulation["fit"]["data_file"], nullptr);
  EXPECT_FALSE(simulation["fit"].contains("refined"));
}

TEST(JsonSchema, HoldsForTransformation) {
  EXPECT_EQ(objectOf("transform " + measured(" 2\r\n1 2 .1\r\n2 5 .1\r\n"))["dx"], nullptr);
  const Document data = objectOf("transform " + measured(" 2 1\r\n1 2 .1 .3\r\n2 5 .1 .3\r\n"));
  EXPECT_EQ(data["schema_version"], 1);
  EXPECT_EQ(data["dx"].size(), 2u);
}

// ---- What it refuses

TEST(JsonSchema, RefusesBrokenObjects) {
  const Document fit = objectOf(kDecayFit + "--refine"), schema = schemaOf();
  const auto refused = [&](const std::string& place, const Document& value) {
    Document broken = fit;
    broken[Document::json_pointer(place)] = value;
    EXPECT_FALSE(fits(broken, schema)) << place;
  };
  refused("/schema_version", 2);
  refused("/points", "40");
  refused("/points", 1.5);
  refused("/status", "done");
  refused("/parameters/0/free", nullptr);
  refused("/parameters/0/value", "1");
  refused("/parameters/0/sigma", 1);
  refused("/correlation", nullptr);
  refused("/correlation_linearised/0", 1);
  refused("/refined/stop_reason", "stopped");
  refused("/refined/x_errors", "both");
  refused("/refined/failed_point", 0);
  refused("/warnings", {"chi_square"});
  refused("/more", 1);
  for (const auto& member : fit.items()) {
    Document broken = fit;
    broken.erase(member.key());
    EXPECT_FALSE(fits(broken, schema)) << member.key();
  }
}

TEST(JsonSchema, HoldsForTheCatalogue) {
  const Document catalogue = objectOf("catalogue");
  ASSERT_EQ(catalogue["outer"].size(), 9u);
  ASSERT_EQ(catalogue["inner"].size(), 5u);
  EXPECT_EQ(catalogue["outer"][8], Document({{"number", 9},
                                             {"function", "A exp[-Bx] sin(u)"},
                                             {"formula", "A*EXP(-B*x)*SIN(u)"},
                                             {"parameters", {"A", "B"}}}));
  EXPECT_EQ(catalogue["inner"][2]["function"], "ax\u00B2+bx+c");
}

// ---- What else knows the keys and words

TEST(JsonSchema, KnowsAllWords) {
  const Document definitions = schemaOf()["definitions"];
  std::vector<std::string> warnings, ends;
  for (int kind = 0; kind <= static_cast<int>(FitWarningKind::kErrorsInvented); ++kind)
    warnings.emplace_back(textOf(static_cast<FitWarningKind>(kind)).word);
  for (int end = 0; end <= static_cast<int>(LeastSquaresEnd::kFailed); ++end)
    ends.emplace_back(textOf(static_cast<LeastSquaresEnd>(end)).word);
  EXPECT_THAT(definitions["warning"]["enum"], UnorderedElementsAreArray(warnings));
  EXPECT_THAT(definitions["refined"]["properties"]["stop_reason"]["enum"], UnorderedElementsAreArray(ends));
}

/// The names of the members and the words that a part of the schema allows.
void collect(const Document& part, std::set<std::string>& names) {
  if (part.is_object() && part.contains("properties")) {
    for (const auto& member : part["properties"].items()) names.insert(member.key());
  }
  if (part.is_object() && part.contains("enum")) {
    for (const Document& word : part["enum"]) {
      if (word.is_string()) names.insert(word);
    }
  }
  if (part.is_structured()) {
    for (const Document& inner : part) collect(inner, names);
  }
}

TEST(JsonPage, ExplainsEveryKeyAndWord) {
  const std::string page = fileContent(sourcePath("docs/json.md"));
  std::set<std::string> names;
  collect(schemaOf(), names);
  EXPECT_GT(names.size(), 60u);
  for (const std::string& name : names) EXPECT_THAT(page, HasSubstr("`" + name + "`"));
}

}  // namespace
}  // namespace vk
