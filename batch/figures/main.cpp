// vor_kel_figures: vor_kel_batch with the toolkit that draws. It is started by that program when a figure is
// asked for.

#include "batch/CommandLine.h"
#include "batch/figures/ToolkitFigures.h"

int main(int argc, char** argv) {
  vk::ToolkitFigures figures;
  return vk::runCommandLine(argc, argv, &figures);
}
