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
  ofGrid(draw.add_option("--levels", args.levels, "Circa quanti livelli")->check(CLI::Range(1, 50)));
  files.writes(ofGrid(draw.add_option("--save-gra", args.savedFile, "Lo stesso come file grafico")), "GRA");
}

}  // namespace vk
