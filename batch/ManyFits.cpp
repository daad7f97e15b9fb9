#include "batch/ManyFits.h"

#include <iostream>
#include <sstream>

#include "base/RuntimeError.h"
#include "batch/DataInput.h"
#include "batch/FitCommand.h"
#include "batch/FitCsv.h"
#include "batch/TerminalPorts.h"
#include "platform/system/Processes.h"
#include "platform/system/Terminal.h"
#include "session/Session.h"

namespace vk {
namespace {

// The states of a file without a fit.
constexpr const char* kRefused = "refused";       // by its own fault
constexpr const char* kBrokenOff = "broken_off";  // its process broke down

/// How far the work is, shown where a person looks on.
class Progress {
 public:
  explicit Progress(std::size_t count) : count_(count), visible_(errorStreamIsTerminal()) {}
  ~Progress() { clear(); }

  void show(int done) const {
    if (visible_) std::clog << '\r' << done << '/' << count_ << std::flush;
  }
  void clear() const {
    if (visible_) std::clog << "\r\x1B[K" << std::flush;
  }

 private:
  std::size_t count_;
  bool visible_;
};

class ManyFits {
 public:
  explicit ManyFits(const FitArguments& arguments) : arguments_(arguments) {
    chooseFitModel(session_, files_, arguments);
    wanted_ = wantedFindings(session_, arguments);
  }

  int run() {
    const Progress progress(arguments_.dataFiles.size());
    if (arguments_.form == FitForm::kCsv) std::cout << csvHeader(wanted_) << std::endl;
    runInProcesses(
        static_cast<int>(arguments_.dataFiles.size()), arguments_.jobs, [&](int i) { return fit(i); },
        [&](int i, const ProcessEnd& end) {
          const SignalHold wholeLines;
          progress.clear();
          take(i, end);
          progress.show(i + 1);
          return std::cout.good();
        });
    return failed_ ? kExitFailed : kExitDone;
  }

 private:
  int fit(int i);
  void take(int i, const ProcessEnd& end);
  std::string lineWithout(int i, const char* status, const std::string& reason) const;
  const std::string& file(int i) const { return arguments_.dataFiles[static_cast<std::size_t>(i)]; }

  const FitArguments& arguments_;
  Session session_;
  TerminalFiles files_;
  FitFindings wanted_;
  bool failed_ = false;
};

/// In a process of its own: what it does to the session is of no other one.
int ManyFits::fit(int i) {
  const auto refuse = [&](std::string reason, int code) {
    const std::string name = shownName(file(i)) + ":";
    if (reason.starts_with(name)) reason.erase(0, reason.find_first_not_of(" \n", name.size()));
    reason.erase(reason.find_last_not_of('\n') + 1);
    std::cout << lineWithout(i, kRefused, reason);
    std::cerr << reason;
    return code;
  };
  try {
    loadData(session_, files_, file(i));
    const FitOutcome outcome = fitLoaded(session_, arguments_, file(i));
    printOutcome(outcome, arguments_.form);
    return outcome.done() ? kExitDone : kExitFailed;
  } catch (const UsageError& error) {
    return refuse(error.what(), kExitBadInput);
  } catch (...) {
    return refuse(presentRuntimeError().reason(), kExitFailed);
  }
}

/// The line of a file without a fit; empty where fits have no line.
std::string ManyFits::lineWithout(int i, const char* status, const std::string& reason) const {
  const std::string name = shownName(file(i));
  if (arguments_.form == FitForm::kCsv) return csvLine(name, wanted_, status, reason) + "\n";
  if (arguments_.form != FitForm::kJsonLines) return "";
  const Json object = Json::Object{
      {"schema_version", kSchemaVersion}, {"data_file", name}, {"status", status}, {"reason", reason}};
  return object.line() + "\n";
}

void ManyFits::take(int i, const ProcessEnd& end) {
  const std::string name = shownName(file(i));

  std::string output = end.output, errors = end.errors;
  if (end.signal != 0) {
    const std::string reason = "processo terminato dal segnale " + std::to_string(end.signal);
    output = lineWithout(i, kBrokenOff, reason);
    errors += (errors.empty() || errors.ends_with('\n') ? "" : "\n") + reason;
  }
  failed_ |= end.signal != 0 || end.exitCode != kExitDone;
  const bool named = arguments_.form == FitForm::kScreen || arguments_.form == FitForm::kRounded;
  if (named && !output.empty()) std::cout << name << ":\n";
  std::cout << output << std::flush;
  std::istringstream lines(errors);
  for (std::string line; std::getline(lines, line);) std::cerr << name << ": " << line << '\n';
}

}  // namespace

int runManyFits(const FitArguments& arguments) {
  return ManyFits(arguments).run();
}

}  // namespace vk
