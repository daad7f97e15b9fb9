#include "batch/ImportCommand.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <map>
#include <optional>
#include <span>

#include "base/NumberText.h"
#include "base/Text.h"
#include "batch/DataInput.h"
#include "batch/TerminalPorts.h"
#include "data/DataFiles.h"
#include "data/foreign/ForeignFile.h"

namespace vk {
namespace {

[[noreturn]] void refuseWord(const char* option, const std::string& word, const char* expected) {
  throw UsageError(std::string("import: ") + option + " \"" + word + "\": si attende " + expected);
}

/// A sign and a word for it, for shells that have a use for the sign.
struct SignName {
  const char* word;
  char sign;
};

template <std::size_t n>
std::optional<char> signNamed(const std::array<SignName, n>& names, const std::string& word) {
  for (const SignName& name : names) {
    if (word == std::string(1, name.sign) || equalIgnoringCase(word, name.word)) return name.sign;
  }
  return std::nullopt;
}

std::optional<char> separatorOf(const std::string& word) {
  constexpr std::array<SignName, 5> kSeparators{
      {{"tab", '\t'}, {"virgola", ','}, {"punto-e-virgola", ';'}, {"barra", '|'}, {"spazio", ' '}}};
  const auto sign = signNamed(kSeparators, word);
  if (!sign && !word.empty()) refuseWord("--separator", word, "tab, spazio, ',', ';' o '|'");
  return sign;
}

std::optional<char> decimalOf(const std::string& word) {
  constexpr std::array<SignName, 2> kDecimals{{{"virgola", ','}, {"punto", '.'}}};
  const auto sign = signNamed(kDecimals, word);
  if (!sign && !word.empty()) refuseWord("--decimal", word, "',' o '.'");
  return sign;
}

std::optional<Encoding> encodingOf(const std::string& word) {
  const auto encoding = encodingNamed(word);
  if (!encoding && !word.empty()) {
    refuseWord("--encoding", word, "utf-8, utf-16le, utf-16be, latin-1, windows-1252 o cp437");
  }
  return encoding;
}

std::optional<ErrorRule> errorsOf(const std::string& word) {
  if (word.empty()) return std::nullopt;
  if (equalIgnoringCase(word, "sqrt")) return ErrorRule{ErrorRule::Kind::kRoot};
  const bool percent = word.ends_with('%');
  const auto value = numberIn(percent ? word.substr(0, word.size() - 1) : word);
  if (!value || *value <= 0) refuseWord("--dy", word, "un numero positivo, una percentuale (2%) o sqrt");
  return ErrorRule{percent ? ErrorRule::Kind::kPercent : ErrorRule::Kind::kValue, *value};
}

std::vector<std::string> columnsOf(std::string_view words) {
  std::vector<std::string> columns;
  while (!words.empty()) {
    const auto end = std::min(words.find(','), words.size());
    columns.push_back(trim(words.substr(0, end)));
    words.remove_prefix(std::min(end + 1, words.size()));
  }
  return columns;
}

std::size_t countOf(const char* option, int count) {
  if (count < 1) refuseWord(option, std::to_string(count), "un numero da 1 in su");
  return static_cast<std::size_t>(count);
}

ForeignOptions optionsOf(const ImportArguments& arguments) {
  ForeignOptions options;
  options.encoding = encodingOf(arguments.encoding);
  options.dialect = {separatorOf(arguments.separator), decimalOf(arguments.decimal)};
  if (arguments.header >= 0) options.headerLines = arguments.header;
  options.columns = columnsOf(arguments.columns);
  options.dy = errorsOf(arguments.dy);
  options.every = countOf("--every", arguments.every);
  options.average = countOf("--average", arguments.average);
  return options;
}

/// True when both names mean one place, where the case of letters does not matter. Pipes have none.
bool areSame(const std::string& one, const std::string& other) {
  const auto place = [](const std::string& name) {
    std::error_code ignored;
    return upper(std::filesystem::weakly_canonical(name, ignored).string());
  };
  return !place(one).empty() && place(one) == place(other);
}

/// The names of the data files, one for each file; empty for standard output.
std::vector<std::string> outputsOf(const ImportArguments& arguments, Files& files) {
  if (arguments.preview) return std::vector<std::string>(arguments.files.size());
  const bool folder = !arguments.output.empty() && files.isWritableFolder(arguments.output);
  if (!folder && arguments.files.size() > 1)
    throw UsageError("import: per piu` file -o deve essere una cartella");
  const auto refuseItself = [](const std::string& file, const std::string& output) {
    if (file != kStandardStream && areSame(file, output))
      throw UsageError("import: " + shownName(file) + " andrebbe su se stesso");
  };
  if (!folder) {
    refuseItself(arguments.files.front(), arguments.output);
    return {arguments.output};
  }
  std::vector<std::string> outputs;
  std::map<std::string, std::string> taken;
  for (const std::string& file : arguments.files) {
    const std::string name = GetFileName(file);
    outputs.push_back(joinPath(arguments.output, name.substr(0, name.find_last_of('.')) + ".DAT"));
    refuseItself(file, outputs.back());
    const auto [other, isNew] = taken.emplace(upper(outputs.back()), file);
    if (!isNew) {
      throw UsageError("import: " + shownName(other->second) + " e " + shownName(file) +
                       " darebbero lo stesso file dati");
    }
  }
  return outputs;
}

void tellLeftOut(const std::string& name, const std::vector<LeftOutLine>& lines) {
  constexpr std::size_t kMostTold = 20;
  for (const LeftOutLine& line : std::span(lines).first(std::min(lines.size(), kMostTold))) {
    std::clog << name << ": riga " << line.number << " tralasciata: " << shownName(line.reason) << '\n';
  }
  if (lines.size() > kMostTold)
    std::clog << name << ": altre righe tralasciate: " << lines.size() - kMostTold << '\n';
}

void importFile(Files& files, const std::string& file, const std::string& output,
                const ForeignOptions& options, const ImportArguments& arguments) {
  std::string bytes;
  usingFile(file, [&] { bytes = files.readAll(file); });
  const ForeignReading reading = readForeign(bytes, options);
  const std::string name = shownName(file);
  if (!reading.refusal.empty()) throw UsageError(name + ": " + shownName(reading.refusal));
  const int digits = dataDigits(arguments.digits);
  const bool unchanged = keepsText(reading, options) && !arguments.digits;
  if (arguments.preview) {
    std::cout << terminalFile(importPreview(reading, digits));
  } else {
    const std::string text = unchanged ? bytes : dataFileText(reading.data, digits);
    output.empty() ? void(std::cout << terminalFile(text)) : writeFile(files, output, text);
    if (!unchanged) tellLostDigits(output.empty() ? file : output, reading.data, arguments.digits);
  }
  tellLeftOut(name, reading.leftOut);
  std::clog << name << ": " << descriptionOf(reading) << '\n';
}

}  // namespace

int runImport(const ImportArguments& arguments) {
  dataDigits(arguments.digits);
  const ForeignOptions options = optionsOf(arguments);
  TerminalFiles files;
  const std::vector<std::string> outputs = outputsOf(arguments, files);
  int code = kExitDone;
  for (std::size_t i = 0; i < outputs.size(); ++i) {
    try {
      importFile(files, arguments.files[i], outputs[i], options, arguments);
    } catch (const UsageError& error) {
      std::cerr << error.what() << '\n';
      code = kExitBadInput;
    }
  }
  return code;
}

}  // namespace vk
