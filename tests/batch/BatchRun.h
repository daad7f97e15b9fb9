#pragma once

#include <string>

namespace vk {

/// What a run of the terminal program left.
struct BatchRun {
  int exitCode = 0;
  std::string output;
  std::string errors;
};

/// A fit of the sample of Ohm's law; options may follow.
inline constexpr const char* kFitOhm = "fit examples/ohm.dat --catalogue 1,2 --par b=40 --par c=0 ";

/// Runs vor_kel_batch with these shell words, from the root of the sources, without the
/// folder of a session, as timed jobs and containers have none. A file `piped` comes in through a pipe; with
/// `output`, what is printed goes to that file.
BatchRun batch(const std::string& words, const std::string& piped = "", const std::string& output = "");

/// Runs a line of bash from the root of the sources, with nothing on standard input; "VOR" in it is the program.
BatchRun shell(std::string line);

/// A file of the test's own with this content; gives its path.
std::string temporaryFile(const std::string& name, const std::string& content);

/// A path in the folder of the test's own files, where nothing stands yet.
std::string freshPath(const std::string& name);

}  // namespace vk
