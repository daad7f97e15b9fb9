#pragma once

#include "batch/FigureMaker.h"

namespace vk {

/// The program that draws figures; it stands in the folder of `vor_kel_batch` and takes the same commands.
inline constexpr const char* kFigureProgram = "vor_kel_figures";

/// Runs the command of a command line and gives the exit code: 0 done, 1 the computation failed, 2 bad input
/// or usage, or a result that could not be written. Nothing is thrown. Without `figures`, a command that draws goes
/// on in the other program: so a fit starts without the toolkit.
int runCommandLine(int argc, char** argv, FigureMaker* figures);

}  // namespace vk
