#include "batch/CompletionCommand.h"

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "batch/CatalogueCommand.h"
#include "batch/FileOptions.h"

namespace vk {
namespace {

// bash counts "=" as a word of its own.
constexpr const char* kScriptHead = R"(# bash: source <(vor_kel_batch completion)
_vor_kel_batch() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command= options= words= files= i
  if [[ $before == = ]]; then before=${COMP_WORDS[COMP_CWORD - 2]}; fi
  if [[ $word == = ]]; then word=; fi
  for ((i = 1; i < COMP_CWORD; i++)); do
    if [[ ${COMP_WORDS[i]} != -* ]]; then
      command=${COMP_WORDS[i]}
      break
    fi
  done
  COMPREPLY=()
  case $command in
)";

constexpr const char* kScriptTail = R"(  esac
  if [[ -n $words || $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "${words:-$options}" -- "$word")
  elif [[ -n $files ]]; then
    local name ending
    compopt -o filenames 2> /dev/null
    while IFS= read -r name; do
      ending=${name##*.}
      if [[ -d $name || ${ending^^} == @($files) ]]; then COMPREPLY+=("$name"); fi
    done < <(compgen -f -- "$word")
  fi
}
complete -F _vor_kel_batch vor_kel_batch
)";

std::string joined(const std::vector<std::string>& words, const char* between) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
  return text;
}

std::vector<std::string> namesOf(const CLI::Option& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  return names;
}

/// What may stand for the value of an option, as the script is told.
std::string valuesOf(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  if (type.starts_with(kFileType)) {
    const std::string endings = endingsOf(option);
    return "files='" + (endings.empty() ? "*" : endings) + "'";
  }
  if (option.check_name("--catalogue")) return "words='" + joined(cataloguePairs(), " ") + "'";
  std::string words = type;
  std::ranges::replace(words, '|', ' ');
  return words == type ? "return" : "words='" + words + "'";
}

/// What the script does behind the name of a command; `bare` is for words that are no options.
std::string caseOf(const CLI::App& command, std::string bare) {
  std::vector<std::string> options;
  std::string values;
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_positional()) {
      bare = valuesOf(*option);
      continue;
    }
    options.push_back("--" + option->get_lnames().front());
    if (option->get_items_expected_max() > 0)
      values += "        " + joined(namesOf(*option), " | ") + ") " + valuesOf(*option) + " ;;\n";
  }
  const std::string name = command.get_parent() == nullptr ? "" : command.get_name();
  return "    '" + name + "')\n      options='" + joined(options, " ") + "'\n      case $before in\n" +
         values + "        *) [[ $word == -* ]] || " + bare + " ;;\n      esac\n      ;;\n";
}

}  // namespace

int runCompletion(const CLI::App& app) {
  std::vector<std::string> names;
  std::string cases;
  for (const CLI::App* command : app.get_subcommands({})) {
    names.push_back(command->get_name());
    cases += caseOf(*command, "return");
  }
  std::cout << kScriptHead << caseOf(app, "words='" + joined(names, " ") + "'") << cases << kScriptTail;
  return 0;
}

}  // namespace vk
