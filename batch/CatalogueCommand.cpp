#include "batch/CatalogueCommand.h"

#include <algorithm>
#include <iostream>

#include "base/CodePage.h"
#include "base/Text.h"
#include "batch/Json.h"
#include "expr/Catalogue.h"
#include "expr/FunctionDef.h"

namespace vk {
namespace {

constexpr const char* kCatalogueHead = "Funzioni f[g(x)] per --catalogue f,g: nelle f sta u per g(x)";
constexpr int kNumberWidth = 3, kColumnWidth = 25;

struct CatalogueRow {
  std::string number, shown, formula;  ///< code page 437
  std::vector<std::string> names;
};

Catalogue builtIn() {
  Catalogue catalogue;
  BuildCatalogue(catalogue);
  return catalogue;
}

// Formulas of the outer functions have a mark of their own for the inner one.
std::vector<CatalogueRow> rowsOf(const std::vector<CatalogueEntry>& list) {
  std::vector<CatalogueRow> rows;
  for (const CatalogueEntry& entry : list) {
    std::string formula = entry.machine;
    std::vector<std::string> names;
    if (const auto mark = formula.find(kInnerMark); mark != std::string::npos) formula[mark] = 'u';
    for (int at = 1; at <= length(entry.names); at += kNameSlot)
      names.push_back(trim(mid(entry.names, at, kNameSlot)));
    rows.push_back({std::to_string(rows.size() + 1), entry.display, formula, names});
  }
  return rows;
}

std::string padded(const std::string& text, int width) {
  return text + repeat(std::max(width - length(text), 1), ' ');
}

std::string line(const CatalogueRow& row) {
  const std::string number = repeat(kNumberWidth - length(row.number), ' ') + row.number + "  ";
  std::string text = number + padded(row.shown, kColumnWidth) + padded(row.formula, kColumnWidth);
  for (const std::string& name : row.names) text += name + " ";
  return text.substr(0, text.find_last_not_of(' ') + 1) + "\n";
}

std::string table(const char* letter, const std::vector<CatalogueEntry>& list) {
  std::string text = "\n" + line({letter, "Funzione", "Formula", {"Parametri"}});
  for (const CatalogueRow& row : rowsOf(list)) text += line(row);
  return text;
}

Json listed(const std::vector<CatalogueEntry>& list) {
  Json::List objects;
  for (const CatalogueRow& row : rowsOf(list)) {
    Json::List names;
    for (const std::string& name : row.names) names.emplace_back(name);
    objects.push_back(Json::Object{{"number", std::stoi(row.number)},
                                   {"function", toUtf8(row.shown, CodePage::kCp437)},
                                   {"formula", row.formula},
                                   {"parameters", names}});
  }
  return objects;
}

}  // namespace

int runCatalogue(bool json) {
  const Catalogue catalogue = builtIn();
  if (json) {
    const Json object = Json::Object{{"schema_version", kSchemaVersion},
                                     {"outer", listed(catalogue.outer)},
                                     {"inner", listed(catalogue.inner)}};
    std::cout << object.text() << '\n';
  } else {
    const std::string text = table("f", catalogue.outer) + table("g", catalogue.inner);
    std::cout << kCatalogueHead << '\n' << toUtf8(text, CodePage::kCp437);
  }
  return 0;
}

std::vector<std::string> cataloguePairs() {
  const Catalogue catalogue = builtIn();
  std::vector<std::string> pairs;
  for (std::size_t f = 1; f <= catalogue.outer.size(); ++f)
    for (std::size_t g = 1; g <= catalogue.inner.size(); ++g)
      pairs.push_back(std::to_string(f) + "," + std::to_string(g));
  return pairs;
}

}  // namespace vk
