#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <new>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "batch/CommandFolder.h"
#include "data/DataFiles.h"
#include "data/foreign/ForeignFile.h"
#include "expr/FunctionFile.h"
#include "memory/ScarceMemory.h"
#include "ui/DesktopOnDisk.h"

namespace vk {
namespace {

/// Request after request grows sparser, as fast as one in so many; the long run leaves out few.
long nextRequest(long request) {
  const long share = std::getenv("VOR_ALL_FAULTS") != nullptr ? 100 : 4;
  return request + 1 + request / share;
}

/// Those of so many requests that fail, the last with which a command ends among them.
std::set<long> requestsOutOf(long count) {
  constexpr long kLast = 5;
  std::set<long> all;
  for (long request = 1; request <= count; request = nextRequest(request)) all.insert(request);
  for (long request = std::max(count - kLast, 0L); ++request <= count;) all.insert(request);
  return all;
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
  /// Runs a command while requests fail.
  BatchRun run(const std::string& line, const MemoryFault& fault = {}) {
    return folder.run(line, [&](const std::function<int()>& command) {
      const ScarceMemory scarce(fault);
      const int code = command();
      failed = scarce.failed();
      requests = scarce.requests();
      return code;
    });
  }
  /// Each request fails in its turn, alone or with all behind it.
  void failOneByOne(const std::string& line, bool lasts);

  CommandFolder folder;
  bool failed = false;
  long requests = 0;
  int runs = 0;
};

/// The files that are no figures. What draws a figure are guarded statements, of which one that fails is left out.
std::map<std::string, std::string> texts(std::map<std::string, std::string> files) {
  std::erase_if(files,
                [](const auto& file) { return file.first.starts_with("OUT.") && file.first != "OUT.DAT"; });
  return files;
}

void OutOfMemory::failOneByOne(const std::string& line, bool lasts) {
  run(line);  // what is made once and stays
  folder.lay(folder.inputs());
  const BatchRun good = run(line);
  const auto after = texts(folder.files());
  const int before = runs;
  for (const long request : requestsOutOf(requests)) {
    folder.lay(folder.inputs());
    const BatchRun broken = run(line, {request, lasts});
    if (!failed) continue;
    ++runs;
    SCOPED_TRACE(line + (lasts ? ", from request " : ", request ") + std::to_string(request));
    const auto left = texts(folder.files());
    for (const auto& [name, bytes] : left)
      EXPECT_TRUE(after.contains(name) && bytes == after.at(name)) << name;
    const bool asEver = broken.exitCode == good.exitCode && broken.errors == good.errors;
    EXPECT_TRUE(asEver ? broken.output == good.output && left == after
                       : broken.exitCode != 0 && !broken.errors.empty())
        << broken.exitCode << ' ' << broken.errors;
  }
  // The options of all commands, with which any line is read, alone ask for memory more than a hundred times.
  constexpr int kFewestRuns = 20;
  EXPECT_GE(runs - before, kFewestRuns) << line;
}

TEST_F(OutOfMemory, EndsACommandWithAMessageAndWithoutHalfAFile) {
  for (const std::string& line : terminalCommands()) failOneByOne(line, false);
  RecordProperty("runs", runs);
}

TEST_F(OutOfMemory, EndsACommandInTheSameWayWhereItLasts) {
  for (const std::string& line : terminalCommands()) {
    // The reader of JSON asks for memory when it gives up what it has read, and nobody can catch that.
    if (line.find("--from-fit") == std::string::npos) failOneByOne(line, true);
  }
  RecordProperty("runs", runs);
}

/// Reads while each request fails in its turn: the reader throws, or gives what it ever gives.
template <class Reader>
int failReading(const Reader& reader) {
  const auto good = reader();
  for (long request = 1;; ++request) {
    const ScarceMemory scarce({request});
    try {
      const auto read = reader();
      if (!scarce.failed()) return static_cast<int>(request - 1);
      EXPECT_EQ(read, good) << request;
    } catch (const std::bad_alloc&) {
    }
  }
}

TEST_F(OutOfMemory, IsNeverTakenForAnErrorInAFile) {
  const std::string data = folder.bytesOf("ohm.dat"), functions = folder.bytesOf("lab.fcn"),
                    table = folder.bytesOf("A.CSV");
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
      const ScarceMemory scarce({request});
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
