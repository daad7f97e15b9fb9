#include "batch/BatchRun.h"

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

/// A folder for each test, within one that no other run has and that goes with the program.
std::filesystem::path testFolder() {
  static const TemporaryFolder ofTheRun;
  const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
  const auto folder =
      std::filesystem::path(ofTheRun.path()) / (std::string(test->test_suite_name()) + "_" + test->name());
  std::filesystem::create_directories(folder);
  return folder;
}

}  // namespace

std::string temporaryFile(const std::string& name, const std::string& content) {
  const std::string path = (testFolder() / name).string();
  std::ofstream(path, std::ios::binary) << content;
  return path;
}

std::string freshPath(const std::string& name) {
  const std::string path = temporaryFile(name, "");
  std::filesystem::remove(path);
  return path;
}

BatchRun batch(const std::string& words, const std::string& piped, const std::string& output) {
  const std::string out = output.empty() ? temporaryFile("stdout", "") : output;
  const std::string err = temporaryFile("stderr", "");
  const std::string command = "cd '" + sourcePath("") + "' && " +
                              (piped.empty() ? "" : "cat '" + piped + "' | ") + "env -u XDG_RUNTIME_DIR '" +
                              builtPath("batch/vor_kel_batch") + "' " + words + " > '" + out + "' 2> '" +
                              err + "'";
  const int status = std::system(command.c_str());
  return {WEXITSTATUS(status), output.empty() ? fileContent(out) : "", fileContent(err)};
}

BatchRun shell(std::string line) {
  const std::string program = "'" + builtPath("batch/vor_kel_batch") + "' ";
  for (std::size_t at = 0; (at = line.find("VOR ", at)) != std::string::npos;) line.replace(at, 4, program);
  const std::string script = temporaryFile("script", "cd '" + sourcePath("") + "'\n" + line + "\n");
  const std::string out = temporaryFile("out", ""), err = temporaryFile("err", "");
  const int status =
      std::system(("bash '" + script + "' > '" + out + "' 2> '" + err + "' < /dev/null").c_str());
  return {WEXITSTATUS(status), fileContent(out), fileContent(err)};
}

}  // namespace vk
