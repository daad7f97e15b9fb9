#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "batch/CommandFolder.h"
#include "faults/SystemCalls.h"
#include "platform/Files.h"

/// Every command that writes files, while calls of the system fail.
namespace vk {
namespace {

using Contents = std::map<std::string, std::string>;

/// A command, with "@" for the folder, and the files that it writes.
struct WritingCommand {
  std::string line;
  std::vector<std::string> written;
};

const std::vector<WritingCommand>& writingCommands() {
  static const std::string fit = "fit @/ohm.dat --catalogue 1,2 --par b=40 --par c=0 ";
  static const std::vector<WritingCommand> commands{
      {"transform @/ohm.dat --y 2*y -o @/OUT.DAT", {"OUT.DAT"}},
      {"transform @/ohm.dat --y 2*y -o @/ohm.dat --json", {"ohm.dat"}},
      {"import @/A.CSV -o @/OUT.DAT", {"OUT.DAT"}},
      {"import @/A.CSV @/B.CSV -o @", {"A.DAT", "B.DAT"}},
      {"simulate --file @/lab.fcn --entry 1 --par A=400 --par k=.2 --par b=5 --seed 1 -o @/OUT.DAT",
       {"OUT.DAT"}},
      {"propagate --function b*2+c --from-fit @/FIT.JSON --seed 1 --histogram @/OUT.DAT", {"OUT.DAT"}},
      {fit + "--save-gra @/OUT.GRA --differences @/OUT.DAT", {"OUT.GRA", "OUT.DAT"}},
      {fit + "--figure @/OUT.PNG --save-gra @/OUT.GRA --style modern --residuals",
       {"OUT.PNG", "OUT.GRA", "OUT_scarti.dat"}},
      {"draw @/ohm.gra -o @/OUT.SVG", {"OUT.SVG"}},
      {"draw --grid @/plane.grd -o @/OUT.PDF --save-gra @/OUT.GRA", {"OUT.PDF", "OUT.GRA"}},
      {"draw --data @/ohm.dat --function x -o @/OUT.EPS --save-gra @/OUT.GRA", {"OUT.EPS", "OUT.GRA"}},
  };
  return commands;
}

constexpr std::array kErrors{EIO, ENOSPC, EACCES, EINTR};

/// The long run: every call fails with every error. Else each with one, in turn.
bool wantsAll() {
  return std::getenv("VOR_ALL_FAULTS") != nullptr;
}

/// What a failed call makes of a command.
struct Consequence {
  bool none = false;  ///< all is done and told as if the call had not failed
  std::string told;   ///< in the last line of the errors otherwise
};

class FaultyDisk : public testing::Test {
 protected:
  /// Begins with a command: on old files, or where there are none.
  void begin(const WritingCommand& command, bool replaces);
  /// Runs the command while these calls fail. False when it does not make that many.
  bool survives(const std::vector<CallFault>& faults);
  void failOneByOne();
  Consequence consequenceOf(const SystemCall& call, int error) const;
  /// Every file is the old one or the new one, or has never come to be.
  void expectWholeFiles() const;

  CommandFolder folder_;
  std::string line_;         ///< the command at hand
  int callsOfItsSaves_ = 0;  ///< at least
  bool replaces_ = true;
  Contents old_, new_;
  BatchRun good_;
  std::size_t turn_ = 0;  ///< of the errors
  int runs_ = 0;
};

void FaultyDisk::begin(const WritingCommand& command, bool replaces) {
  line_ = command.line;
  callsOfItsSaves_ = kCallsOfASave * static_cast<int>(command.written.size());
  old_ = folder_.inputs();
  for (const std::string& name : command.written) {
    if (replaces) old_.emplace(name, "old");
  }
  replaces_ =
      std::ranges::all_of(command.written, [&](const std::string& name) { return old_.contains(name); });
  folder_.lay(old_);
  good_ = folder_.run(line_);
  new_ = folder_.files();
  ASSERT_EQ(good_.exitCode, 0) << line_ << ": " << good_.errors;
  for (const std::string& name : command.written) {
    ASSERT_TRUE(new_.contains(name)) << line_ << ": " << name;
    ASSERT_FALSE(old_.contains(name) && old_.at(name) == new_.at(name)) << line_ << ": " << name;
  }
}

Consequence FaultyDisk::consequenceOf(const SystemCall& call, int error) const {
  if (!stopsASave(call, error, replaces_)) return {true, ""};
  const bool reads = folder_.inputs().contains(GetFileName(call.path)) && call.name != "rename",
             opens = call.name == "open";
  const bool full = error == ENOSPC && !(reads && opens);
  const char* reason = error == EACCES ? "accesso negato"
                       : full          ? "Disco pieno"
                                       : "Errore di I/O della periferica";
  return {false, (reads ? call.path : "") + ": " + reason + "\n"};
}

void FaultyDisk::expectWholeFiles() const {
  const Contents now = folder_.files();
  for (const auto& [name, bytes] : now) {
    const bool isOld = old_.contains(name) && bytes == old_.at(name);
    EXPECT_TRUE(isOld || (new_.contains(name) && bytes == new_.at(name))) << name;
  }
  for (const auto& [name, bytes] : old_) EXPECT_TRUE(now.contains(name)) << name;
}

bool FaultyDisk::survives(const std::vector<CallFault>& faults) {
  folder_.lay(old_);
  const SystemCalls calls(folder_.path(), faults);
  const BatchRun broken = folder_.run(line_);
  if (calls.failed().size() < faults.size()) return false;
  ++runs_;
  std::string what = line_;
  for (const SystemCall& call : calls.failed()) what += ", " + call.name + " " + GetFileName(call.path);
  for (const CallFault& fault : faults) what += ", error " + std::to_string(fault.error);
  SCOPED_TRACE(what);
  expectWholeFiles();
  if (broken.exitCode == 0) {
    EXPECT_EQ(folder_.files(), new_);
    EXPECT_EQ(broken.output, good_.output);
    EXPECT_EQ(broken.errors, good_.errors);
  } else {
    EXPECT_EQ(broken.exitCode, 2);
    EXPECT_NE(broken.errors, "");
  }
  if (faults.size() > 1) return true;
  const Consequence consequence = consequenceOf(calls.failed().front(), faults.front().error);
  EXPECT_EQ(broken.exitCode == 0, consequence.none);
  // A figure tells of the files that it reads in words of its own.
  const bool figure = line_.starts_with("draw") && broken.errors.ends_with(" Errato\n");
  EXPECT_TRUE(figure || broken.errors.find(consequence.told) != std::string::npos) << broken.errors;
  return true;
}

void FaultyDisk::failOneByOne() {
  for (int call = 1;; ++call) {
    const int runs = runs_;
    if (wantsAll()) {
      for (const int error : kErrors) survives({{call, error}});
    } else {
      survives({{call, kErrors[turn_++ % kErrors.size()]}});
    }
    if (runs_ == runs) {
      EXPECT_GT(call, callsOfItsSaves_) << line_;
      return;
    }
  }
}

TEST_F(FaultyDisk, AFailedCallIsToldAndLeavesOldFilesOrNewOnes) {
  for (const bool replaces : {true, false}) {
    for (const WritingCommand& command : writingCommands()) {
      begin(command, replaces);
      failOneByOne();
    }
  }
  RecordProperty("runs", runs_);
}

TEST_F(FaultyDisk, TwoFailedCallsLeaveOldFilesOrNewOnes) {
  for (const WritingCommand& command : writingCommands()) {
    begin(command, true);
    const int before = runs_;
    for (int first = 1; survives({{first, EIO}}); ++first) {
      for (int second = first + 1; survives({{first, EIO}, {second, EIO}}); ++second) {
      }
    }
    // Each call alone; and where a file cannot be made or given its name, all those that write over the old one.
    EXPECT_GE(runs_ - before, 3 * callsOfItsSaves_) << line_;
    if (!wantsAll()) break;
  }
  RecordProperty("runs", runs_);
}

TEST_F(FaultyDisk, BytesThatGoOneByOneAreAllWritten) {
  begin(writingCommands().front(), true);
  EXPECT_TRUE(survives({{1, kOneByte, "write"}}));
  EXPECT_TRUE(survives({{1, kOneByte, "read"}}));
}

TEST_F(FaultyDisk, WhatHasNotComeToTheDiskIsToldInTheWordsOfItsCause) {
  struct Case {
    std::vector<CallFault> faults;
    const char* told;
  };
  constexpr const char *kBroken = "Errore di I/O della periferica", *kFull = "Disco pieno";
  begin(writingCommands().front(), true);
  for (const Case& c : {
           Case{{{1, EIO, "fsync"}}, kBroken},
           Case{{{1, ENOSPC, "fsync"}}, kFull},
           Case{{{1, EDQUOT, "fsync"}}, kFull},
           Case{{{2, EIO, "fsync"}}, kBroken},  // of the folder
           Case{{{2, EIO, "close"}}, kBroken},  // the first one is of the data
           Case{{{2, ENOSPC, "close"}}, kFull},
           Case{{{2, EDQUOT, "close"}}, kFull},
           // A file that nothing can be put in the place of is written itself.
           Case{{{1, EBUSY, "rename"}, {1, EIO, "ftruncate"}}, kBroken},
           Case{{{1, EBUSY, "rename"}, {1, ENOSPC, "ftruncate"}}, kFull},
           Case{{{1, EBUSY, "rename"}, {1, EPERM, "ftruncate"}}, "accesso negato"},
           Case{{{1, EBUSY, "rename"}, {2, EIO, "fsync"}}, kBroken},
           Case{{{1, EBUSY, "rename"}, {4, EIO, "close"}}, kBroken},
       }) {
    folder_.lay(old_);
    const SystemCalls calls(folder_.path(), c.faults);
    const BatchRun broken = folder_.run(line_);
    const std::string what = c.faults.back().name + " " + std::to_string(c.faults.back().error);
    EXPECT_EQ(calls.failed().size(), c.faults.size()) << what;
    EXPECT_EQ(broken.exitCode, 2) << what;
    EXPECT_EQ(broken.errors, folder_ / "OUT.DAT" + ": " + c.told + "\n") << what;
    EXPECT_EQ(broken.output, "") << what;
    expectWholeFiles();
  }
}

}  // namespace
}  // namespace vk
