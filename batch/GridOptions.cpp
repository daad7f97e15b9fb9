#include "batch/GridOptions.h"

namespace vk {

void addGridFigure(CLI::App& draw, FileOptions& files, DrawArguments& args) {
  CLI::Option* grid = draw.add_option("--grid", args.gridFile, "Disegna una griglia con linee di livello");
  files.reads(grid, "GRD");
  const auto ofGrid = [&](CLI::Option* option) { return option->needs(grid); };
  CLI::Option* surface = ofGrid(draw.add_flag("--surface", args.surface, "La griglia come superficie"));
  CLI::Option* columns = ofGrid(draw.add_flag("--columns", args.columns, "La griglia come colonne"));
  surface->excludes(columns);
  ofGrid(draw.add_option("--theta", args.theta,
                         "Angolo in gradi attorno alla verticale, con --surface o --columns"));
  ofGrid(draw.add_option("--phi", args.phi, "Angolo in gradi da cui si guarda, fra 0 e 180"));
  ofGrid(draw.add_option("--levels", args.levels, "Circa quanti livelli, da 1 a 50")
             ->check(CLI::Range(1, 50).description("")));
}

void addSheet(CLI::App& draw, FileOptions& files, DrawArguments& args) {
  const auto repeated = [&](const char* name, std::vector<std::string>& words, const char* help) {
    return draw.add_option(name, words, help)->type_size(1)->allow_extra_args(false);
  };
  files.reads(repeated("--data", args.sheet.dataFiles, "In sua vece: un file dati, anche piu` volte"), "DAT");
  repeated("--function", args.sheet.functions, "In sua vece: una formula in x, anche piu` volte");
  draw.add_option("--xmin", args.sheet.xmin, "x minimo, senza dati (0)");
  draw.add_option("--xmax", args.sheet.xmax, "x massimo, senza dati (10)");
  files.writes(draw.add_option("--save-gra", args.savedFile, "Griglia o dati come file grafico"), "GRA");
}

}  // namespace vk
