#include "ui/TableImport.h"

#include <algorithm>
#include <span>

#include "base/NumberText.h"
#include "data/DataFiles.h"
#include "data/foreign/Choices.h"

namespace vk {
namespace {

constexpr std::size_t kShownLines = 30;

constexpr const char* kFoundOut = "auto";
constexpr const char* kNone = "nessuna";
constexpr const char* kWrongValue = ": si attende un numero positivo";
constexpr const char* kRounded = "; dati arrotondati a 6 cifre";
constexpr const char* kThinningCaption = "Punti";
constexpr const char* kAllPoints = "tutti";

constexpr std::array kEncodings{Encoding::kUtf8,   Encoding::kUtf16Le,     Encoding::kUtf16Be,
                                Encoding::kLatin1, Encoding::kWindows1252, Encoding::kCp437};

struct Sign {
  char sign;
  const char* name;
};
constexpr std::array kSeparators{Sign{';', "';'"}, Sign{',', "','"}, Sign{'\t', "tabulazione"},
                                 Sign{' ', "spazio"}, Sign{'|', "'|'"}};
constexpr std::array kDecimals{Sign{',', "virgola"}, Sign{'.', "punto"}};

/// Where the errors of y come from, if from no column.
struct OtherErrors {
  const char* name;
  ErrorRule rule;
  bool takesValue;
};
constexpr std::array kOtherErrors{OtherErrors{"valore", {ErrorRule::Kind::kValue, 0}, true},
                                  OtherErrors{"% di y", {ErrorRule::Kind::kPercent, 0}, true},
                                  OtherErrors{"radice di y", {ErrorRule::Kind::kRoot, 0}, false},
                                  OtherErrors{"1", {ErrorRule::Kind::kValue, 1}, false}};

const char* nameOf(std::span<const Sign> signs, char sign) {
  return std::ranges::find(signs, sign, &Sign::sign)->name;
}

std::vector<std::string> namesOf(std::span<const Sign> signs) {
  std::vector<std::string> names;
  for (const Sign& sign : signs) names.emplace_back(sign.name);
  return names;
}

std::optional<char> signOf(std::span<const Sign> signs, int entry) {
  if (entry == 0) return std::nullopt;
  return signs[static_cast<std::size_t>(entry) - 1].sign;
}

constexpr std::array kRoles{"x", "y", "dx", "dy"};  // from `kX` on

/// What the errors of y follow, if no column.
const OtherErrors* otherErrors(int chosen) {
  return chosen < 0 ? &kOtherErrors.at(static_cast<std::size_t>(-chosen) - 1) : nullptr;
}

std::size_t columnOf(const Roles& roles, int field) {
  return std::array{roles.x, roles.y, roles.dx, roles.dy}.at(
      static_cast<std::size_t>(field - TableImport::kX));
}

}  // namespace

void TableImport::open(std::string bytes) {
  *this = TableImport();
  bytes_ = std::move(bytes);
  errorValue_ = 1;
  readAnew();
}

const char* TableImport::caption(Field field) {
  switch (field) {
    case kEncoding:
      return fieldOf(Choice::kEncoding);
    case kSeparator:
      return fieldOf(Choice::kSeparator);
    case kDecimal:
      return fieldOf(Choice::kDecimal);
    case kThinning:
      return kThinningCaption;
    default:
      return kRoles.at(static_cast<std::size_t>(field - kX));
  }
}

// ---- The entries ------------------------------------------------------------------------------------------

/// "1 (t)".
std::string TableImport::columnName(std::size_t column) const {
  const std::vector<std::string>& names = reading_.header.names;
  const bool named = column < names.size() && !names[column].empty();
  return std::to_string(column + 1) + (named ? " (" + names[column] + ")" : "");
}

/// What was found out for a field; empty where nothing was.
std::string TableImport::found(Field field) const {
  if (field == kEncoding) return std::string(encodingName(reading_.encoding));
  if (columnCount() == 0) return {};
  if (field == kSeparator) return nameOf(kSeparators, reading_.dialect.separator);
  if (field == kDecimal) return reading_.hasDecimals ? nameOf(kDecimals, reading_.dialect.decimal) : "";
  if (!understood_) return {};
  const std::size_t column = columnOf(reading_.roles, field);
  if (column != Roles::kNone) return columnName(column);
  return field == kDx ? kNone : kOtherErrors.back().name;
}

/// The entries behind the first one.
std::vector<std::string> TableImport::choices(Field field) const {
  std::vector<std::string> names;
  switch (field) {
    case kEncoding:
      for (const Encoding encoding : kEncodings) names.emplace_back(encodingName(encoding));
      return names;
    case kSeparator:
      return namesOf(kSeparators);
    case kDecimal:
      return namesOf(kDecimals);
    case kThinning:
      return {fieldOf(Choice::kEvery), fieldOf(Choice::kAverage)};
    default:
      break;
  }
  for (std::size_t i = 0; i < reading_.shape.cells; ++i) names.push_back(columnName(i));
  if (field == kDx) names.emplace_back(kNone);
  if (field == kDy) {
    for (const OtherErrors& other : kOtherErrors) names.emplace_back(other.name);
  }
  return names;
}

std::vector<std::string> TableImport::entries(Field field) const {
  std::vector<std::string> entries = choices(field);
  const std::string known = chosen(field) == 0 && field != kThinning ? found(field) : "";
  const std::string first = field == kThinning ? kAllPoints : kFoundOut;
  entries.insert(entries.begin(), known.empty() ? first : first + ": " + known);
  return entries;
}

int TableImport::chosen(Field field) const {
  const int choice = chosen_.at(static_cast<std::size_t>(field));
  return choice < 0 ? columnCount() - choice : choice;
}

void TableImport::choose(Field field, int entry) {
  const bool behind = isColumn(field) && entry > columnCount();
  chosen_.at(static_cast<std::size_t>(field)) = behind ? columnCount() - entry : entry;
  readAnew();
}

void TableImport::setHeaderLines(std::optional<int> lines) {
  headerLines_ = lines;
  readAnew();
}

void TableImport::setErrorValue(const std::string& text) {
  errorValue_ = numberIn(text);
  if (errorValue_ && *errorValue_ <= 0) errorValue_.reset();
  readAnew();
}

bool TableImport::takesErrorValue() const {
  const OtherErrors* other = otherErrors(chosen_[kDy]);
  return other != nullptr && other->takesValue;
}

void TableImport::setThinning(int points) {
  thinning_ = points;
  readAnew();
}

// ---- The reading ------------------------------------------------------------------------------------------

std::optional<ErrorRule> TableImport::errorRule() const {
  const OtherErrors* other = otherErrors(chosen_[kDy]);
  if (other == nullptr) return std::nullopt;
  return ErrorRule{other->rule.kind, other->takesValue ? errorValue_.value_or(1) : other->rule.value};
}

/// The options but for the columns.
ForeignOptions TableImport::plainOptions() const {
  ForeignOptions options;
  if (const int entry = chosen_[kEncoding]; entry > 0)
    options.encoding = kEncodings.at(static_cast<std::size_t>(entry) - 1);
  options.dialect = {signOf(kSeparators, chosen_[kSeparator]), signOf(kDecimals, chosen_[kDecimal])};
  options.headerLines = headerLines_;
  options.dy = errorRule();
  const auto points = static_cast<std::size_t>(thinning_);
  if (chosen_[kThinning] == 1) options.every = points;
  if (chosen_[kThinning] == 2) options.average = points;
  return options;
}

/// The columns, where one of them was chosen: the others are the usual ones that are left.
std::optional<Roles> TableImport::roles(const TableShape& shape) const {
  const auto chosen = std::span(chosen_).subspan(kX, kRoles.size());
  if (std::ranges::count(chosen, 0) == std::ssize(chosen)) return std::nullopt;
  const bool tooMany = shape.numbered.size() > kRoles.size();
  if (tooMany && (chosen_[kX] == 0 || chosen_[kY] == 0)) return std::nullopt;
  const Roles usual = usualRoles(shape);
  std::vector<std::size_t> left = shape.numbered;
  for (const int entry : chosen) {
    if (entry > 0) std::erase(left, static_cast<std::size_t>(entry) - 1);
  }
  const auto take = [&](Field field) {
    const int entry = chosen_.at(static_cast<std::size_t>(field));
    if (entry != 0) return entry > 0 ? static_cast<std::size_t>(entry) - 1 : Roles::kNone;
    const bool needed = field == kX || field == kY;
    auto at = std::ranges::find(left, columnOf(usual, field));
    if (at == left.end() && needed) at = left.begin();
    if (at == left.end()) return Roles::kNone;
    const std::size_t column = *at;
    left.erase(at);
    return column;
  };
  const Roles roles{take(kX), take(kY), take(kDx), take(kDy)};
  return roles.x == Roles::kNone || roles.y == Roles::kNone ? std::nullopt : std::optional(roles);
}

void TableImport::readAnew() {
  options_ = plainOptions();
  reading_ = readForeign(bytes_, options_);
  for (int field = kX; field <= kDy; ++field) {
    if (chosen_[field] > columnCount()) chosen_[field] = 0;  // the table has fewer columns now
  }
  options_.roles = roles(reading_.shape);
  if (options_.roles) reading_ = readForeign(bytes_, options_);
  const bool wrongValue = takesErrorValue() && !errorValue_;
  understood_ = reading_.refusal.empty() && !wrongValue;
  message_ = !reading_.refusal.empty() ? inWindowWords(reading_.refusal)
             : wrongValue              ? std::string(caption(kDy)) + kWrongValue
                                       : descriptionOf(reading_);
  if (understood_ && !keepsText(reading_, options_) && losesDigits(reading_.data)) message_ += kRounded;
}

// ---- What is shown ----------------------------------------------------------------------------------------

std::vector<TableLine> TableImport::lines() const {
  return tableLines(bytes_, reading_, kShownLines);
}

bool TableImport::usesColumn(std::size_t column) const {
  const std::vector<std::size_t> columns = reading_.roles.columns();
  return reading_.refusal.empty() && columnCount() > 0 && std::ranges::count(columns, column) > 0;
}

std::string TableImport::columnHead(std::size_t column) const {
  std::string head = std::to_string(column + 1);
  if (!usesColumn(column)) return head;
  int field = kX;
  while (columnOf(reading_.roles, field) != column) ++field;
  return head + ": " + caption(static_cast<Field>(field));
}

std::string TableImport::firstPoints() const {
  return understood_ ? importPreview(reading_) : std::string();
}

std::string TableImport::text() const {
  if (!understood_) return {};
  return keepsText(reading_, options_) ? bytes_ : dataFileText(reading_.data);
}

}  // namespace vk
