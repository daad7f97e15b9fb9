#include "batch/OptionTexts.h"

#include <array>
#include <string_view>
#include <vector>

#include "base/NearWord.h"
#include "batch/TerminalPorts.h"

namespace vk {
namespace {

/// A text of the option reader and the program's own for it.
struct Phrase {
  const char* theirs;
  const char* ours;
};

constexpr std::array kLabels{
    Phrase{"Usage", "Uso"},           Phrase{"OPTIONS", "OPZIONI"},
    Phrase{"SUBCOMMAND", "COMANDO"},  Phrase{"Positionals", "Argomenti"},
    Phrase{"REQUIRED", "NECESSARIO"}, Phrase{"TEXT", "TESTO"},
    Phrase{"INT", "NUMERO"},          Phrase{"FLOAT", "NUMERO"},
    Phrase{"Needs", "Con"},           Phrase{"Excludes", "Senza"},
};

constexpr std::array kComplaints{
    Phrase{"A subcommand is required", "Si attende un comando"},
    Phrase{" is required", ": manca"},
    Phrase{"The following argument was not expected", "Argomento sconosciuto"},
    Phrase{"The following arguments were not expected", "Argomenti sconosciuti"},
    Phrase{"Could not convert", "Valore errato"},
    Phrase{" requires ", " richiede "},
    Phrase{" excludes ", " esclude "},
};

constexpr const char* kOptionGroup = "Opzioni";
constexpr const char* kCommandGroup = "Comandi";
constexpr const char* kUnknownOption = "Opzione sconosciuta: ";
constexpr const char* kUnknownCommand = "Comando sconosciuto: ";

std::string translated(std::string text) {
  for (const Phrase& phrase : kComplaints) {
    const auto at = text.find(phrase.theirs);
    if (at != std::string::npos) text.replace(at, std::string_view(phrase.theirs).size(), phrase.ours);
  }
  if (const auto at = text.find("1 required "); at != std::string::npos)
    text.replace(at, std::string::npos,
                 text.ends_with("INT missing") ? "manca il numero" : "manca il valore");
  return text;
}

std::vector<std::string> optionsOf(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  return names;
}

std::vector<std::string> commandsOf(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands({})) names.push_back(command->get_name());
  return names;
}

std::string unknown(const char* what, const std::string& word, const std::vector<std::string>& known) {
  const std::string near = nearWord(word, known);
  return what + shownName(word) + (near.empty() ? "" : " (forse " + near + ")");
}

/// What no command knows, the first such word; empty without one. Bare words behind a command are left to the reader.
std::string unknownWord(const CLI::App& app) {
  const std::vector<CLI::App*> named = app.get_subcommands();
  const CLI::App& command = named.empty() ? app : *named.front();
  for (const std::string& word : app.remaining(true)) {
    if (word.starts_with('-') && word != "-")
      return unknown(kUnknownOption, word.substr(0, word.find('=')), optionsOf(command));
    if (named.empty()) return unknown(kUnknownCommand, word, commandsOf(app));
  }
  return {};
}

}  // namespace

void speakItalian(CLI::App& app) {
  for (const Phrase& label : kLabels) app.get_formatter()->label(label.theirs, label.ours);
  app.option_defaults()->group(kOptionGroup);
}

// The reader has put its own options into groups of its own.
void nameGroups(CLI::App& command) {
  command.group(kCommandGroup);
  command.get_help_ptr()->group(kOptionGroup);
}

std::string complaintAbout(const CLI::App& app, const CLI::ParseError& error) {
  const std::string word = unknownWord(app);
  return (word.empty() ? translated(error.what()) : word) + "\nL'opzione --help elenca comandi e argomenti.";
}

}  // namespace vk
