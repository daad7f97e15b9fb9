#include "expr/NameTable.h"

#include "base/Text.h"

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

void checkName(const std::string& name, const TracedText& item, CompilerReport& report) {
  // QUIRK: an empty name is an error without a line; the line went to a report file that nobody opens.
  if (name.empty()) return report.silentFault(CompileFaultKind::kNameMissing, item.placeOf(0, 0));
  bool good = isLetter(name[0]);
  if (!good) {
    report.fault(CompileFaultKind::kNameStart, item.placeOf(0, 1), kErrorMark,
                 padded(name, kNameColumns) + "il Nome NON Inizia con una Lettera");
  }
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (isNameCharacter(name[i])) continue;
    good = false;
    report.fault(CompileFaultKind::kNameCharacter, item.placeOf(i, 1), kErrorMark,
                 padded(name, kNameColumns) + padded(std::string(1, name[i]), kCharacterColumns) +
                     "Carattere NON Valido");
  }
  if (good) report.line("* " + padded(name, kGoodNameColumns) + " O.K.");
}

}  // namespace

std::string BuildNameTable(const std::vector<TracedText>& items, int width, CompileFaultKind tooLong,
                           CompilerReport& report) {
  std::string table;
  for (const TracedText& item : items) {
    const std::string cut = left(item.text(), width);
    if (length(item.text()) > width) {
      report.fault(
          tooLong, item.placeOf(0, item.size()), kErrorMark,
          item.text() + "Nome piu` Lungo di " + std::to_string(width) + " Caratteri, Troncato a " + cut);
    }
    table += padded(cut, width);
  }
  return table;
}

void CheckNames(const std::vector<TracedText>& names, int width, CompilerReport& report) {
  for (const TracedText& name : names) checkName(trim(left(name.text(), width)), name, report);
}

}  // namespace vk
