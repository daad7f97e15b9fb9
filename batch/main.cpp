// vor_kel_batch: the commands of the program from a terminal.
// Exit codes: 0 done, 1 the computation failed, 2 bad input or usage.

#include <CLI/CLI.hpp>
#include <functional>
#include <iostream>
#include <map>

#include "base/CodePage.h"
#include "base/RuntimeError.h"
#include "batch/CheckCommand.h"
#include "batch/EvalCommand.h"
#include "batch/FitCommand.h"
#include "batch/TerminalPorts.h"

namespace {

using namespace vk;

constexpr int kFailed = 1;
constexpr int kBadInput = 2;

/// A subcommand and what it runs once the command line is read.
using Commands = std::map<CLI::App*, std::function<int()>>;

/// The values of `--par` and `--fixed` in the order in which they were typed, since with a formula of the
/// command line this order is the order of the parameters.
std::vector<StartValue> startValues(const CLI::App& command, const CLI::Option* par,
                                    const CLI::Option* fixed) {
  std::map<const CLI::Option*, std::size_t> taken;
  std::vector<StartValue> values;
  for (const CLI::Option* option : command.parse_order()) {
    if (option != par && option != fixed) continue;
    values.push_back({parseAssignment(option->results().at(taken[option]++)), option == fixed});
  }
  return values;
}

void addFit(CLI::App& app, Commands& commands) {
  CLI::App* fit = app.add_subcommand("fit", "Adatta una funzione ai dati di un file e stampa il risultato");
  auto args = std::make_shared<FitArguments>();
  fit->add_option("DATI", args->dataFile, "File dati (.DAT)")->required();
  CLI::Option* function =
      fit->add_option("--function", args->function, "Formula in x, per esempio 'A*EXP(-B*x)+C'");
  CLI::Option* catalogue =
      fit->add_option("--catalogue", args->catalogue, "Numeri f,g delle funzioni f[g(x)] del catalogo");
  CLI::Option* file = fit->add_option("--file", args->functionFile, "File funzioni (.FCN)");
  CLI::Option* entry = fit->add_option("--entry", args->entry, "Numero della funzione nel file funzioni");
  function->excludes(catalogue)->excludes(file);
  catalogue->excludes(file);
  file->needs(entry);
  entry->needs(file);
  // Bound to nothing: `startValues` reads both back in their common order.
  const auto repeated = [&](const char* name, const std::string& help) {
    return fit->add_option(name, help)->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  };
  CLI::Option* par = repeated("--par", "NOME=VALORE: parametro variabile");
  CLI::Option* fixed = repeated("--fixed", "NOME=VALORE: parametro costante");
  fit->add_flag("--json", args->json, "Stampa il risultato come oggetto JSON");
  commands[fit] = [=] {
    args->parameters = startValues(*fit, par, fixed);
    return runFit(*args);
  };
}

void addCheck(CLI::App& app, Commands& commands) {
  CLI::App* check =
      app.add_subcommand("check", "Controlla un file dati o funzioni e stampa l'elenco degli errori");
  auto fileName = std::make_shared<std::string>();
  check->add_option("FILE", *fileName, "File .DAT o .FCN")->required();
  commands[check] = [=] { return runCheck(*fileName); };
}

// A formula may begin with a sign, which the option reader would take for an option: the words are left to us.
void addEval(CLI::App& app, Commands& commands) {
  CLI::App* eval = app.add_subcommand("eval", "Calcola una formula: eval FORMULA [NOME=VALORE ...]");
  auto args = std::make_shared<EvalArguments>();
  eval->add_flag("--list", args->list, "Stampa il codice compilato");
  eval->allow_extras();
  commands[eval] = [=] {
    std::vector<std::string> words = eval->remaining();
    if (words.empty()) throw UsageError("eval: manca la formula");
    args->expression = words.front();
    args->assignments.assign(words.begin() + 1, words.end());
    return runEval(*args);
  };
}

int run(int argc, char** argv) {
  CLI::App app("Vor_Kel da terminale: analisi di dati misurati", "vor_kel_batch");
  app.set_help_flag("--help", "Mostra questo aiuto");
  app.require_subcommand(1);
  Commands commands;
  addFit(app, commands);
  addCheck(app, commands);
  addEval(app, commands);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kBadInput;
  }
  return commands.at(app.get_subcommands().front())();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const UsageError& error) {
    std::cerr << error.what() << '\n';
    return kBadInput;
  } catch (const RuntimeError& error) {
    std::cerr << toUtf8(error.message(), CodePage::kWindows1252) << '\n';
    return kFailed;
  }
}
