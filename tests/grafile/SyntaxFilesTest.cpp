// The words that editors colour, in packaging/syntax/, are those of the language.
#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <vector>

#include "doubles/Places.h"
#include "expr/FormulaWords.h"
#include "grafile/GraphicCommand.h"
#include "platform/system/SystemFiles.h"

namespace vk {
namespace {

using testing::UnorderedElementsAreArray;
using Words = std::vector<std::string>;

/// The words of the list "A|B|..." that stands first behind the name of the list.
Words wordsOf(const std::string& file, const std::string& list) {
  constexpr const char* kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_|";
  const std::string text = SystemFiles().readAll(sourcePath("packaging/syntax/" + file));
  const std::size_t bar = text.find('|', text.find(list));
  if (bar == std::string::npos) return {};
  const std::size_t begin = text.find_last_not_of(kLetters, bar) + 1;
  std::istringstream words(text.substr(begin, text.find_first_not_of(kLetters, bar) - begin));
  Words all;
  for (std::string word; std::getline(words, word, '|');) all.push_back(word);
  return all;
}

Words commandsWith(bool figureText) {
  Words names;
  for (const GraphicCommand& command : graphicCommands()) {
    if ((command.text == TextField::kFigureText) == figureText) names.emplace_back(command.name);
  }
  return names;
}

TEST(SyntaxFiles, NameTheFunctionsOfTheLanguage) {
  for (const char* ending : {".lang", ".xml"}) {
    EXPECT_THAT(wordsOf(std::string("vor_kel_formula") + ending, "functions"),
                UnorderedElementsAreArray(functionNames()))
        << ending;
  }
}

TEST(SyntaxFiles, NameTheCommandsOfGraphicFilesByWhatStandsInThem) {
  for (const char* ending : {".lang", ".xml"}) {
    const std::string file = std::string("vor_kel_figure") + ending;
    EXPECT_THAT(wordsOf(file, "textCommands"), UnorderedElementsAreArray(commandsWith(true))) << ending;
    Words others = wordsOf(file, "otherCommands");
    for (const std::string& command : wordsOf(file, "formulaCommands")) others.push_back(command);
    EXPECT_THAT(others, UnorderedElementsAreArray(commandsWith(false))) << ending;
  }
}

}  // namespace
}  // namespace vk
