#include "batch/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <streambuf>
#include <string>
#include <vector>

#include "batch/CatalogueCommand.h"
#include "batch/CheckCommand.h"
#include "batch/CompletionCommand.h"
#include "batch/DrawCommand.h"
#include "batch/EvalCommand.h"
#include "batch/ExitCode.h"
#include "batch/FigureArguments.h"
#include "batch/FileOptions.h"
#include "batch/FitCommand.h"
#include "batch/GridOptions.h"
#include "batch/ImportCommand.h"
#include "batch/OptionTexts.h"
#include "batch/PropagateCommand.h"
#include "batch/SimulateCommand.h"
#include "batch/TerminalPorts.h"
#include "batch/TransformCommand.h"
#include "platform/system/HandOver.h"
#include "platform/system/SystemFiles.h"
#include "platform/system/Terminal.h"

namespace vk {
namespace {

constexpr const char *kProgramName = "vor_kel_batch", *kCompletion = "completion";

// What several subcommands take.
constexpr const char* kJsonHelp = "Stampa il risultato come oggetto JSON";
constexpr const char* kHelpHelp = "Mostra questo aiuto";
constexpr const char* kTraceHelp = "Mostra anche quello che riferisce il compilatore delle formule";
constexpr const char* kDigitsHelp = "Cifre significative dei dati scritti, da 1 a 17 (6)";
constexpr const char* kSeedHelp = "Seme del generatore di numeri casuali";

/// What a command runs once the command line is read.
using Action = std::function<int()>;

/// What commands share.
struct Setup {
  FigureMaker* maker;  ///< the toolkit where this program has it; else the program beside it draws
  char** argv;
  FileOptions files{};
};

/// The maker of figures. A program without one goes on as the one that has it.
FigureMaker& figureMaker(const Setup& setup) {
  if (setup.maker == nullptr) {
    const std::string program = joinPath(SystemFiles().programFolder(), kFigureProgram);
    handOver(program, setup.argv);
    throw UsageError("Per disegnare serve il programma " + program);
  }
  return *setup.maker;
}

/// The options that name the model function.
void addModel(CLI::App& command, Setup& setup, ModelArguments& model) {
  CLI::Option* function =
      command.add_option("--function", model.function, "Formula in x, per esempio 'A*EXP(-B*x)+C'");
  CLI::Option* catalogue =
      command.add_option("--catalogue", model.catalogue, "Numeri f,g delle funzioni f[g(x)] del catalogo");
  CLI::Option* file =
      setup.files.reads(command.add_option("--file", model.functionFile, "File funzioni"), "FCN");
  CLI::Option* entry = command.add_option("--entry", model.entry, "Numero della funzione nel file funzioni");
  command.add_flag("--trace", model.trace, kTraceHelp);
  function->excludes(catalogue)->excludes(file);
  catalogue->excludes(file);
  file->needs(entry);
  entry->needs(file);
}

/// An option that may be repeated and is read back by its results.
CLI::Option* addRepeated(CLI::App& command, const char* name, const std::string& help) {
  return command.add_option(name, help)->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

/// Adds `--par` and `--fixed`. The values come in the order in which they were typed, since with a formula of
/// the command line this order is the order of the parameters.
std::function<std::vector<EnteredValue>()> addStart(CLI::App& command) {
  CLI::Option* par = addRepeated(command, "--par", "NOME=VALORE: parametro variabile");
  CLI::Option* fixed = addRepeated(command, "--fixed", "NOME=VALORE: parametro costante");
  return [&command, par, fixed] {
    std::map<const CLI::Option*, std::size_t> taken;
    std::vector<EnteredValue> values;
    for (const CLI::Option* option : command.parse_order()) {
      if (option != par && option != fixed) continue;
      values.push_back({parseAssignment(option->results().at(taken[option]++)), option == fixed ? 0.0 : 1.0});
    }
    return values;
  };
}

void addJson(CLI::App& command, bool& json) {
  command.add_flag("--json", json, kJsonHelp);
}

void addDataOutput(CLI::App& command, Setup& setup, std::string& file, std::optional<int>& digits) {
  setup.files.writes(command.add_option("-o,--output", file, "Scrive i dati in questo file"), "DAT");
  command.add_option("--digits", digits, kDigitsHelp);
}

/// The forms of a fit; one at most.
void addForms(CLI::App& fit, FitForm& form) {
  struct FormOption {
    FitForm form;
    const char *name, *help;
  };
  constexpr std::array kForms{
      FormOption{FitForm::kJson, "--json", kJsonHelp},
      FormOption{FitForm::kRounded, "--rounded", "Stampa solo valori ed errori, arrotondati insieme"},
      FormOption{FitForm::kLatex, "--latex", "Tabella LaTeX di valori arrotondati e correlazioni"},
      FormOption{FitForm::kJsonLines, "--json-lines", "Un oggetto JSON su una riga per ogni file"},
      FormOption{FitForm::kCsv, "--csv", "Una riga di valori separati da virgole per ogni file"},
  };
  std::vector<CLI::Option*> others;
  for (const FormOption& option : kForms) {
    CLI::Option* flag = fit.add_flag_callback(
        option.name, [&form, option] { form = option.form; }, option.help);
    for (CLI::Option* other : others) flag->excludes(other);
    others.push_back(flag);
  }
}

Action addFit(CLI::App& fit, Setup& setup) {
  auto args = std::make_shared<FitArguments>();
  setup.files.reads(fit.add_option("DATI", args->dataFiles, "File dati, anche piu` di uno"), "DAT")
      ->required();
  addModel(fit, setup, args->model);
  const auto start = addStart(fit);
  CLI::Option* derive = addRepeated(
      fit, "--derive", "NOME=FORMULA: grandezza derivata dai parametri, per esempio 'T=LOG(2)/k'");
  CLI::Option* refine =
      fit.add_flag("--refine", args->refine, "Cerca anche il minimo esatto, con gli errori lineari");
  fit.add_option("--x-errors", args->xErrors,
                 "Errori di x nel minimo esatto: con la varianza efficace o con la distanza")
      ->type_name("effective|orthogonal")
      ->needs(refine);
  fit.add_flag("--profile", args->profile,
               "Intervalli di confidenza al 68.27 e al 95 % dal profilo di chi quadro")
      ->needs(refine);
  addForms(fit, args->form);
  fit.add_option("--jobs", args->jobs, "Quanti file alla volta (1)");
  setup.files.writes(fit.add_option("--figure", args->figures.figure, "Grafico di dati e funzione"),
                     "PNG|SVG|PDF|EPS");
  addFigureOptions(fit, args->figures.options, SizeWithout::kPortrait);
  setup.files.writes(fit.add_option("--save-gra", args->figures.graphicFile, "Lo stesso come file grafico"),
                     "GRA");
  CLI::Option* band = fit.add_option("--band", args->figures.band,
                                     "Banda di confidenza della funzione nel grafico, in per cento")
                          ->type_name("68|95");
  fit.add_flag("--prediction", args->figures.prediction, "Anche la banda di previsione di un'altra misura")
      ->needs(band);
  addShow(fit, args->figures.show);
  fit.add_option("--style", args->figures.style, "Grafico a colori, con chiave, che riempie la pagina")
      ->type_name(kModernStyle);
  fit.add_flag("--residuals", args->figures.residuals,
               "Sotto il grafico gli scarti divisi per i loro errori, nello stile modern");
  CLI::Option* differences =
      fit.add_option("--differences", args->figures.differences, "Differenze dati-funzione");
  setup.files.writes(differences, "DAT");
  fit.add_option("--digits", args->figures.digits, "Cifre significative delle differenze, da 1 a 17 (6)")
      ->needs(differences);
  return [=, &setup] {
    args->parameters = start();
    args->derived = derive->results();
    const bool draws = !args->figures.figure.empty() || !args->figures.show.empty();
    return runFit(*args, draws ? &figureMaker(setup) : nullptr);
  };
}

Action addPropagate(CLI::App& propagate, Setup& setup) {
  auto args = std::make_shared<PropagateArguments>();
  addModel(propagate, setup, args->model);
  CLI::Option* par = addRepeated(propagate, "--par",
                                 "NOME=VALORE[,ERRORE] di x o di un parametro: deviazione standard se "
                                 "positivo, errore massimo se negativo");
  setup.files.reads(
      propagate.add_option("--from-fit", args->fitResult,
                           "Valori, errori e correlazioni dei parametri da un risultato di fit --json"),
      "JSON");
  propagate.add_option("--seed", args->seed, kSeedHelp);
  CLI::Option* histogram =
      propagate.add_option("--histogram", args->histogramFile, "Scrive l'istogramma come file dati");
  setup.files.writes(histogram, "DAT");
  propagate.add_option("--digits", args->digits, "Cifre significative dell'istogramma, da 1 a 17 (5)")
      ->needs(histogram);
  addJson(propagate, args->json);
  return [=] {
    for (const std::string& word : par->results()) args->variables.push_back(parseValueWithError(word));
    return runPropagate(*args);
  };
}

Action addSimulate(CLI::App& simulate, Setup& setup) {
  auto args = std::make_shared<SimulateArguments>();
  addModel(simulate, setup, args->model);
  const auto start = addStart(simulate);
  simulate.add_option("--xmin", args->xmin, "x minimo (0)");
  simulate.add_option("--xmax", args->xmax, "x massimo (10)");
  simulate.add_option("--points", args->points, "Numero dei punti (11)");
  simulate.add_option("--dy", args->dy, "Incertezza di y, in percentuale (1)");
  simulate.add_flag("--dy-absolute", args->dyAbsolute, "L'incertezza di y e` assoluta");
  simulate.add_option("--dx", args->dx, "Incertezza di x, in percentuale (0: nessuna)");
  simulate.add_flag("--dx-absolute", args->dxAbsolute, "L'incertezza di x e` assoluta");
  simulate.add_option("--seed", args->seed, kSeedHelp);
  addDataOutput(simulate, setup, args->outputFile, args->digits);
  addJson(simulate, args->json);
  return [=] {
    args->parameters = start();
    return runSimulate(*args);
  };
}

Action addTransform(CLI::App& transform, Setup& setup) {
  auto args = std::make_shared<TransformArguments>();
  setup.files.reads(transform.add_option("DATI", args->dataFile, "File dati"), "DAT")->required();
  transform.add_option("--x", args->x, "Formula in x, y, dx, dy per la colonna x");
  transform.add_option("--y", args->y, "Formula per la colonna y");
  transform.add_option("--dx", args->dx, "Formula per gli errori di x");
  transform.add_option("--dy", args->dy, "Formula per gli errori di y");
  transform.add_option("--title-x", args->titleX, "Legenda di x");
  transform.add_option("--title-y", args->titleY, "Legenda di y");
  addDataOutput(transform, setup, args->outputFile, args->digits);
  transform.add_flag("--anyway", args->anyway,
                     "Scrive i dati anche se una formula NON e` calcolabile ovunque");
  addJson(transform, args->json);
  transform.add_flag("--trace", args->trace, kTraceHelp);
  return [=] { return runTransform(*args); };
}

Action addCheck(CLI::App& check, Setup& setup) {
  auto fileName = std::make_shared<std::string>();
  setup.files.reads(check.add_option("FILE", *fileName, "File da controllare"), "DAT|GRD|FCN|GRA")
      ->required();
  return [=] { return runCheck(*fileName); };
}

Action addImport(CLI::App& import, Setup& setup) {
  auto args = std::make_shared<ImportArguments>();
  setup.files.reads(import.add_option("FILE", args->files, "Tabelle da leggere"), "")->required();
  setup.files.writes(
      import.add_option("-o,--output", args->output, "File dati da scrivere; per piu` tabelle una cartella"),
      "DAT");
  import.add_option("--encoding", args->encoding, "Codifica dei caratteri, per esempio utf-8 o windows-1252")
      ->type_name("utf-8|utf-16le|utf-16be|latin-1|windows-1252|cp437");
  import.add_option("--separator", args->separator, "Separatore: tab, spazio, ',', ';' o '|'")
      ->type_name("tab|virgola|punto-e-virgola|barra|spazio");
  import.add_option("--decimal", args->decimal, "Segno decimale: ',' o '.'")->type_name("virgola|punto");
  import.add_option("--header", args->header, "Numero delle righe sopra i punti");
  import.add_option("--columns", args->columns, "x,y[,dx],dy: colonne da usare, per numero o nome");
  import.add_option("--dy", args->dy, "Errori di y: un valore, una percentuale (2%) o sqrt");
  import.add_option("--digits", args->digits, kDigitsHelp);
  import.add_option("--every", args->every, "Tiene un punto ogni tanti");
  import.add_option("--average", args->average, "Sostituisce tanti punti con la loro media");
  import.add_flag("--preview", args->preview, "Mostra i primi dieci punti e non scrive nulla");
  return [=] { return runImport(*args); };
}

// A formula may begin with a sign, which the option reader would take for an option: the words are left to us.
Action addEval(CLI::App& eval, Setup&) {
  auto args = std::make_shared<EvalArguments>();
  eval.set_help_flag("--help", kHelpHelp);
  eval.add_flag("--list", args->list, "Stampa il codice compilato");
  eval.add_flag("--trace", args->trace, kTraceHelp);
  eval.allow_extras();
  return [args, &eval] {
    std::vector<std::string> words = eval.remaining();
    if (words.empty()) throw UsageError("eval: manca la formula");
    args->expression = words.front();
    args->assignments.assign(words.begin() + 1, words.end());
    return runEval(*args);
  };
}

Action addDraw(CLI::App& draw, Setup& setup) {
  auto args = std::make_shared<DrawArguments>();
  setup.files.reads(draw.add_option("GRAFICO", args->graphicFile, "File grafico"), "GRA");
  setup.files.writes(draw.add_option("-o,--output", args->figure, "Grafico"), "PNG|SVG|PDF|EPS");
  addShow(draw, args->show);
  addFigureOptions(draw, args->options, SizeWithout::kScale);
  draw.add_flag("--anyway", args->anyway, "Disegna quello che si puo` anche con righe errate");
  addGridFigure(draw, setup.files, *args);
  addSheet(draw, setup.files, *args);
  return [=, &setup] { return runDraw(*args, figureMaker(setup)); };
}

/// The words of the command line. "eval" takes all of its words as they are, so a "--" in front of them says
/// nothing new; the option reader would give what follows it to nobody. A formula may begin with "-h".
std::vector<std::string> commandLine(int argc, char** argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  if (!words.empty() && words.front() == "eval") std::erase(words, "--");
  if (words == std::vector<std::string>{"eval", "-h"}) words.back() = "--help";
  if (!words.empty() && words.front() != "eval") nameShownForm(words);
  return words;
}

Action addCatalogue(CLI::App& catalogue, Setup&) {
  auto json = std::make_shared<bool>(false);
  addJson(catalogue, *json);
  return [=] { return runCatalogue(*json); };
}

Action addCompletion(CLI::App& completion, Setup&) {
  return [&completion] { return runCompletion(*completion.get_parent()); };
}

struct Command {
  const char *name, *help;
  Action (*add)(CLI::App& command, Setup& setup);  ///< adds its options
};

constexpr std::array kCommands{
    Command{"fit", "Adatta una funzione ai dati di un file e stampa il risultato", addFit},
    Command{"draw", "Disegna un file grafico, un file griglia, o dati e formule", addDraw},
    Command{"check", "Controlla un file dati, griglia, funzioni o grafico e stampa l'elenco degli errori",
            addCheck},
    Command{"import", "Legge tabelle di altri programmi (CSV, testo) e scrive file dati", addImport},
    Command{"eval", "Calcola una formula: eval FORMULA [NOME=VALORE ...]", addEval},
    Command{"propagate", "Propaga gli errori attraverso una funzione, anche per simulazione", addPropagate},
    Command{"simulate", "Simula dati da una funzione e li adatta", addSimulate},
    Command{"transform", "Trasforma le colonne di un file dati con formule", addTransform},
    Command{"catalogue", "Elenca le funzioni del catalogo", addCatalogue},
    Command{kCompletion, "Stampa il completamento dei comandi per bash: source <(vor_kel_batch completion)",
            addCompletion},
};

/// Takes what nobody wants to read.
class Silence : public std::streambuf {
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
};

// It serves the stream of notes to the very end of the program, so nobody deletes it.
void silenceNotes() {
  static auto* silence = new Silence;  // NOLINT: nobody else sees it
  std::clog.rdbuf(silence);
}

/// Adds what every command takes.
void addCommon(CLI::App& command) {
  command.set_version_flag("--version", std::string(kProgramName) + " " VOR_VERSION, "Mostra la versione");
  command.add_flag_callback("--quiet", silenceNotes, "Nessuna nota: soltanto gli errori");
}

/// True for a command that may be meant. To make the options of the others would take a good part of a short run; only
/// the completion needs them all.
bool isNamed(const std::vector<std::string>& words, const std::string& command) {
  return std::ranges::any_of(words,
                             [&](const std::string& word) { return word == command || word == kCompletion; });
}

/// Runs the command that the words name; `name` becomes its name.
int run(std::vector<std::string> words, Setup setup, std::string& name) {
  CLI::App app("Vor_Kel da terminale: analisi di dati misurati", kProgramName);
  speakItalian(app);
  app.set_help_flag("-h,--help", kHelpHelp);
  app.require_subcommand(1);
  addCommon(app);
  std::map<const CLI::App*, Action> actions;
  for (const Command& entry : kCommands) {
    CLI::App* command = app.add_subcommand(entry.name, entry.help);
    if (isNamed(words, entry.name)) {
      actions[command] = entry.add(*command, setup);
      addCommon(*command);
    }
    nameGroups(*command);
  }
  try {
    std::ranges::reverse(words);  // the reader takes them from the end
    app.parse(words);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() != 0) throw UsageError(complaintAbout(app, error));
    return app.exit(error);
  }
  setup.files.claimStreams();
  const CLI::App* command = app.get_subcommands().front();
  name = command->get_name();
  return actions.at(command)();
}

}  // namespace

int runCommandLine(int argc, char** argv, FigureMaker* figures) {
  endWithReader();
  std::string name = kProgramName;
  const auto command = [&] { return run(commandLine(argc, argv), {figures, argv}, name); };
  return exitCodeOf(name, std::ref(command));  // which needs no memory, where nobody takes its exception
}

}  // namespace vk
