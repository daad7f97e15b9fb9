#include <cstdlib>
#include <map>
#include <new>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "batch/RunHere.h"
#include "data/DataFiles.h"
#include "data/foreign/ForeignFile.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"
#include "expr/FunctionFile.h"
#include "memory/ScarceMemory.h"
#include "ui/DesktopOnDisk.h"

namespace vk {
namespace {

std::string bytesOfFile(const std::string& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

/// The requests grow sparser, as fast as one in so many; the long run leaves out few.
long nextRequest(long request) {
  const long share = std::getenv("VOR_ALL_FAULTS") != nullptr ? 100 : 4;
  return request + 1 + request / share;
}

/// Every command of the terminal; "@" is the folder.
const std::vector<std::string>& terminalCommands() {
  static const std::string fit = "fit @/ohm.dat --catalogue 1,2 --par b=40 --par c=0 ";
  static const std::vector<std::string> commands{
      fit + "--differences @/OUT.DAT --save-gra @/OUT.GRA",
      fit + "--refine --profile --derive R=1/b --json",
      fit + "--figure @/OUT.PNG --style modern --residuals --band 95 --latex",
      "fit @/ohm.dat --file @/lab.fcn --entry 1 --par A=40 --par k=.2 --par b=5 --rounded",
      "fit @/nothing.dat --function a*x --par a=1",
      "draw @/ohm.gra -o @/OUT.SVG",
      "draw --grid @/plane.grd -o @/OUT.PDF --save-gra @/OUT.GRA",
      "draw --data @/ohm.dat --function x -o @/OUT.SVG",
      "check @/ohm.dat",
      "check @/lab.fcn",
      "check @/ohm.gra",
      "check @/A.CSV",
      "import @/A.CSV -o @/OUT.DAT --preview",
      "import @/A.CSV -o @/OUT.DAT",
      "eval C_X2(x,n) x=3 n=4",
      "propagate --function b*2+c --from-fit @/FIT.JSON --seed 1 --histogram @/OUT.DAT --json",
      "simulate --function a*x --par a=2 --seed 1 -o @/OUT.DAT --json",
      "transform @/ohm.dat --y 2*y -o @/OUT.DAT --json",
      "catalogue --json",
      "completion",
      "fit --nothing",
  };
  return commands;
}

class OutOfMemory : public testing::Test {
 protected:
  OutOfMemory() {
    for (const char* name : {"ohm.dat", "lab.fcn"})
      folder.make(name, bytesOfFile(sourcePath(std::string("examples/") + name)));
    folder.make("A.CSV", "x;y;dy\n1;2,5;0,1\n2;4,5;0,1\n3;6,6;0,1\n");
    folder.make("ohm.gra", "\\XSCALA(5,25,0,8)\n\\YSCALA(5,15,0,300)\n\\DATI(" + folder / "ohm.dat" + ")\n");
    folder.make("plane.grd", "x\ny\nz\n3 3\n0 1 2\n0 1 2\n0 1 2\n1 2 3\n2 3 4\n");
    folder.make("FIT.JSON", run("fit @/ohm.dat --catalogue 1,2 --par b=40 --par c=0 --json").output);
    before = folder.files();
  }

  /// Runs a command; `request` fails.
  BatchRun run(std::string line, long request = 0) {
    for (std::size_t at = 0; (at = line.find('@', at)) != std::string::npos;)
      line.replace(at, 1, folder.path());
    return runHere(line, [&](const std::function<int()>& command) {
      const ScarceMemory scarce(request);
      const int code = command();
      failed = scarce.failed();
      return code;
    });
  }
  void empty() {
    for (const auto& [name, bytes] : folder.files()) {
      if (!before.contains(name)) std::filesystem::remove(folder / name);
    }
  }

  TemporaryFolder folder{folderInMemory()};
  std::map<std::string, std::string> before;
  bool failed = false;
  int runs = 0;
};

/// The files that are no figures. What draws a figure are guarded statements, of which one that fails is left out.
std::map<std::string, std::string> texts(std::map<std::string, std::string> files) {
  std::erase_if(files,
                [](const auto& file) { return file.first.starts_with("OUT.") && file.first != "OUT.DAT"; });
  return files;
}

TEST_F(OutOfMemory, EndsACommandWithAMessageAndWithoutHalfAFile) {
  for (const std::string& line : terminalCommands()) {
    empty();
    const BatchRun good = run(line);
    const auto after = texts(folder.files());
    for (long request = 1;; request = nextRequest(request)) {
      empty();
      const BatchRun broken = run(line, request);
      if (!failed) break;
      ++runs;
      SCOPED_TRACE(line + ", request " + std::to_string(request));
      const auto left = texts(folder.files());
      for (const auto& [name, bytes] : left)
        EXPECT_TRUE(after.contains(name) && bytes == after.at(name)) << name;
      const bool asEver = broken.exitCode == good.exitCode && broken.errors == good.errors;
      EXPECT_TRUE(asEver ? broken.output == good.output && left == after
                         : broken.exitCode != 0 && !broken.errors.empty())
          << broken.exitCode << ' ' << broken.errors;
    }
  }
  RecordProperty("runs", runs);
}

/// Reads while each request fails in its turn: the reader throws, or gives what it ever gives.
template <class Reader>
int failReading(const Reader& reader) {
  const auto good = reader();
  for (long request = 1;; ++request) {
    const ScarceMemory scarce(request);
    try {
      const auto read = reader();
      if (!scarce.failed()) return static_cast<int>(request - 1);
      EXPECT_EQ(read, good) << request;
    } catch (const std::bad_alloc&) {
    }
  }
}

TEST_F(OutOfMemory, IsNeverTakenForAnErrorInAFile) {
  const std::string data = before["ohm.dat"], functions = before["lab.fcn"], table = before["A.CSV"];
  EXPECT_GT(failReading([&] {
              const DataReading reading = parseLines(data);
              return std::pair(reading.errors, int{reading.data.NumPnt});
            }),
            0);
  EXPECT_GT(failReading([&] {
              const FreeFieldReading reading = parseFreeFields(data);
              return std::pair(reading.complete, reading.count);
            }),
            0);
  EXPECT_GT(failReading([&] {
              const ParsedFunctionFile file = parseFunctionFile(functions);
              return std::tuple(file.ok, file.report, file.file.entries.size());
            }),
            0);
  EXPECT_GT(failReading([&] { return int{readForeign(table).data.NumPnt}; }), 0);
}

TEST(OutOfMemoryOfTheDesktop, IsRunTimeErrorSevenAndLeavesTheSession) {
  DesktopOnDisk desktop;
  const std::string first = desktop.dialogs.file;
  const std::string second = desktop.folder.make("B.DAT", "x\r\ny\r\n2\r\n0 1 .1\r\n1 3 .1\r\n");
  int told = 0;
  for (long request = 1;; request = nextRequest(request)) {
    desktop.dialogs.file = first;
    desktop.run(Control::MenDatLet);
    ASSERT_EQ(desktop.session.loaded.data.NumPnt, 3);
    desktop.dialogs.file = second;
    desktop.dialogs.boxes.clear();
    desktop.dialogs.boxes.reserve(10);
    bool failed = false;
    {
      const ScarceMemory scarce(request);
      desktop.run(Control::MenDatLet);
      failed = scarce.failed();
    }
    if (!failed) break;
    if (desktop.dialogs.boxes.empty()) continue;
    ++told;
    EXPECT_EQ(desktop.dialogs.boxes.back(), "Errore di run-time '7':\n\nMemoria esaurita") << request;
    EXPECT_EQ(desktop.session.loaded.data.NumPnt, 3) << request;
  }
  EXPECT_GT(told, 5);
  EXPECT_EQ(desktop.session.loaded.data.NumPnt, 2);
}

}  // namespace
}  // namespace vk
