#include "grafile/FigureDescription.h"

#include <algorithm>
#include <array>

#include "base/CodePage.h"
#include "base/Guard.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "grafile/GraphicCommand.h"
#include "gral/Markup.h"
#include "platform/Files.h"

namespace vk {
namespace {

/// Commands that show what their text names.
struct DescribedCommand {
  std::string_view command;
  const char* word;
  bool file = false;
};
constexpr std::array kDescribed{DescribedCommand{"DATI", "Dati", true},
                                DescribedCommand{"SPEZZATA", "Spezzata", true},
                                DescribedCommand{"CURVA", "Curva", true},
                                DescribedCommand{"CONTORNI", "Contorni", true},
                                DescribedCommand{"SUPERFICIE", "Superficie", true},
                                DescribedCommand{"COLONNE", "Colonne", true},
                                DescribedCommand{"BANDA", "Banda"},
                                DescribedCommand{"FUNZIONE", "Funzione"},
                                DescribedCommand{"CHIAVE", "Chiave"}};

/// The letters of a text with markup, in UTF-8.
std::string lettersOf(const std::string& text) {
  std::string letters;
  for (const MarkupLetter& letter : readMarkup(text)) {
    letters += toUtf8({&letter.character, 1}, letter.symbol ? CodePage::kSymbol : CodePage::kWindows1252);
  }
  return letters;
}

/// Names of files are in UTF-8 nearly always.
std::string plainText(const std::string& text) {
  return decodeUtf8(text) ? text : toUtf8(text, CodePage::kCp437);
}

class Description {
 public:
  Description(const FileText& file, const std::string& title) : file_(file), words_{title, {}} {}

  void take(const std::string& line) {
    const GraphicLine read = readGraphicLine(line);
    if (read.command == nullptr) return;
    CommandFields fields;
    Int16 flag = 0;
    guard([&] {
      readFields(parameters_, file_, read, fields, flag);
      describe(*read.command, fields);
    });
  }
  const FigureWords& words() const { return words_; }

 private:
  void describe(const GraphicCommand& command, const CommandFields& fields) {
    const std::string text =
        command.text == TextField::kFigureText ? lettersOf(fields.text) : plainText(fields.text);
    const std::string_view name = command.name;
    if (name == "PARAMETRI") {
      DefineParameters(parameters_, fields.text);
    } else if (name == "XLOG") {
      xLog_ = scanNumber(fields.text) != 0;
    } else if (name == "YLOG") {
      yLog_ = scanNumber(fields.text) != 0;
    } else if (name == "XASSE") {
      if (fields.integers[1] != 0) axis("Asse x", text, fields, xLog_);
    } else if (name == "YASSE") {
      if (fields.integers[1] != 0) axis("Asse y", text, fields, yLog_);
    } else if (name == "TITOLO") {
      words_.title = text;
    } else if (const auto* shown = std::ranges::find(kDescribed, name, &DescribedCommand::command);
               shown != kDescribed.end()) {
      say(shown->word, trim(shown->file ? GetFileName(text) : text));
    }
  }
  void axis(const char* word, const std::string& title, const CommandFields& fields, bool logarithmic) {
    const char* const power = logarithmic ? "10^" : "";
    say(word, title + (title.empty() ? "" : ", ") + "da " + power + generalText(fields.doubles[1]) + " a " +
                  power + generalText(fields.doubles[2]));
  }
  void say(const char* word, const std::string& text) {
    if (!words_.description.empty()) words_.description += ' ';
    words_.description += std::string(word) + ": " + text + '.';
  }

  const FileText& file_;
  NamedParameters parameters_;
  bool xLog_ = false, yLog_ = false;
  FigureWords words_;
};

}  // namespace

FigureWords describeFigure(std::string_view text, const std::string& title) {
  const FileText file(text);
  Description description(file, title);
  guard([&] { eachGraphicLine(file.text(), [&](const std::string& line) { description.take(line); }); });
  return description.words();
}

}  // namespace vk
