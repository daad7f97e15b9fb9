#include <algorithm>
#include <optional>
#include <string>

#include "base/NumberText.h"
#include "base/Text.h"
#include "data/DataFiles.h"
#include "data/foreign/ForeignFile.h"
#include "data/foreign/TableLines.h"
#include "fuzz/Input.h"
#include "fuzz/SameData.h"
#include "ui/TableImport.h"

namespace vk {
namespace {

/// The options that say what was found out.
ForeignOptions toldOptions(const ForeignReading& reading) {
  ForeignOptions told;
  told.encoding = reading.encoding;
  told.dialect = {reading.dialect.separator, reading.dialect.decimal};
  told.headerLines = reading.firstLine - 1;
  told.roles = reading.roles;
  // By their numbers as well, unless some column bears such a name.
  const auto hasDigit = [](const std::string& name) { return std::ranges::any_of(name, isDigit); };
  if (std::ranges::any_of(reading.header.names, hasDigit)) return told;
  told.roles.reset();
  for (const std::size_t column : reading.roles.columns()) told.columns.push_back(std::to_string(column + 1));
  return told;
}

/// Told what it found out, the reader takes the same table.
void probeTold(std::string_view bytes, const ForeignReading& reading) {
  const ForeignReading told = readForeign(bytes, toldOptions(reading));
  // The lines of the header have no say any more in how those below them are written.
  if (told.dialect != reading.dialect || told.shape.cells != reading.shape.cells) return;
  require(told.refusal.empty(), "what was found out can be told");
  require(areEqual(told.data, reading.data), "the same table when told");
}

void probeReading(std::string_view bytes) {
  const ForeignReading reading = readForeign(bytes);
  const LikelyCause cause = likelyCause(reading);
  require(!cause.cured || !cause.text.empty(), "a cause that is cured has a text");
  for (const TableLine& line : tableLines(bytes, reading, 20))
    require((line.kind == TableLine::Kind::kLeftOut) == !line.reason.empty(),
            "a reason for what is left out");
  if (!reading.refusal.empty()) {
    require(reading.refusal.find('\n') == std::string::npos, "a refusal in one line");
    return require(whyNoText(bytes).empty() || reading.refusal == whyNoText(bytes), "one reason for no text");
  }
  require(dataFileText(reading.data).starts_with(importPreview(reading)), "a preview of the data file");
  if (!reading.isDataFile) probeTold(bytes, reading);
}

/// The window, after each choice: what can be saved is a data file, and the fields show entries that they have.
void probeShown(const TableImport& table) {
  require(!table.message().empty() && table.isUnderstood() != table.text().empty(),
          "a text where it is understood");
  for (int i = 0; i < TableImport::kFields; ++i) {
    const auto field = static_cast<TableImport::Field>(i);
    const int chosen = table.chosen(field);
    require(chosen >= 0 && chosen < static_cast<int>(table.entries(field).size()), "an entry of the field");
  }
  table.lines();
  if (!table.isUnderstood()) return;
  const DataReading reading = parseLines(table.text());
  require(reading.errors.empty() && reading.data.NumPnt >= 2, "a data file that can be read");
  require(!table.firstPoints().empty() && !table.columnHead(0).empty(), "a preview and a head");
}

void choose(Input& input, TableImport& table) {
  const unsigned action = input.choice(TableImport::kFields + 3);
  if (action < TableImport::kFields) {
    const auto field = static_cast<TableImport::Field>(action);
    table.choose(field, static_cast<int>(input.choice(static_cast<unsigned>(table.entries(field).size()))));
  } else if (action == TableImport::kFields) {
    const int lines = static_cast<int>(input.choice(12));
    table.setHeaderLines(lines == 11 ? std::nullopt : std::optional(lines));
  } else if (action == TableImport::kFields + 1) {
    table.setErrorValue(generalText(input.number()));
  } else {
    table.setThinning(2 + static_cast<int>(input.choice(9)));
  }
}

}  // namespace

void probe(Input input) {
  const unsigned choices = input.choice(4);
  const std::string_view bytes = input.part();
  probeReading(bytes);
  TableImport window;
  window.open(std::string(bytes));
  probeShown(window);
  for (unsigned i = 0; i < choices; ++i) {
    choose(input, window);
    probeShown(window);
  }
}

}  // namespace vk
