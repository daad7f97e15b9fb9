#include "base/Text.h"
#include "expr/CmpMod.h"
#include "expr/Report.h"

namespace vk {
namespace {

// Columns of the lines on names.
constexpr int kNameColumns = 10;
constexpr int kGoodNameColumns = 13;
constexpr int kCharacterColumns = 5;

std::string padded(const std::string& text, int width) {
  return text + repeat(width - length(text), ' ');
}

bool isNameCharacter(char c) {
  return isLetter(c) || isDigit(c) || c == '_';
}

bool checkFirstCharacter(const std::string& name, Report& report) {
  if (isLetter(name[0])) return true;
  report.line("* ERR. " + padded(name, kNameColumns) + "il Nome NON Inizia con una Lettera");
  return false;
}

bool checkCharacters(const std::string& name, Report& report) {
  bool good = true;
  for (const char c : name) {
    if (isNameCharacter(c)) continue;
    report.line("* ERR. " + padded(name, kNameColumns) + padded(std::string(1, c), kCharacterColumns) +
                "Carattere NON Valido");
    good = false;
  }
  return good;
}

bool checkName(const std::string& name, Report& report) {
  // QUIRK: an empty name is an error without a line; the line went to a report file that nobody opens.
  if (name.empty()) return false;
  const bool startsWell = checkFirstCharacter(name, report);
  const bool allValid = checkCharacters(name, report);
  if (!startsWell || !allValid) return false;
  report.line("* " + padded(name, kGoodNameColumns) + " O.K.");
  return true;
}

/// The item as it goes into the table: cut to the width, which is an error.
std::string fittingItem(const std::string& item, int width, Report& report, Int16& flag) {
  if (length(item) <= width) return item;
  const std::string cut = left(item, width);
  report.line("* ERR. " + item + "Nome piu` Lungo di " + std::to_string(width) + " Caratteri, Troncato a " +
              cut);
  flag = kTrue;
  return cut;
}

}  // namespace

void BuildNameTable(Session& session, const std::string& list, std::string& table, int width, Int16 report,
                    Int16& flag) {
  Report lines(session, report);
  table.clear();
  for (const std::string& item : splitItems(list)) {
    table += padded(fittingItem(item, width, lines, flag), width);
  }
}

void CheckNames(Session& session, const std::string& table, int count, int width, Int16 report, Int16& flag) {
  Report lines(session, report);
  for (int i = 0; i < count; ++i) {
    if (!checkName(trim(mid(table, i * width + 1, width)), lines)) flag = kTrue;
  }
}

}  // namespace vk
