// vor_kel_batch: the commands of the program from a terminal.

#include "batch/CommandLine.h"

int main(int argc, char** argv) {
  return vk::runCommandLine(argc, argv, nullptr);
}
