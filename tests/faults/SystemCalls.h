#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// The linker puts these functions in the place of calls of the system that the libraries of a test program make, so
/// that each can fail; what the libraries of the system and the toolkit call among themselves goes on as it is.
namespace vk {

/// What a call does that is to move bytes, instead of failing: it moves only the first.
inline constexpr int kOneByte = 0;

/// A call that fails.
struct CallFault {
  int number;             ///< from 1, among the calls of that name
  int error;              ///< what the call says, or `kOneByte`
  std::string name = "";  ///< of the call; empty: the number counts all calls
};

/// A call that was made, and the file or the folder that it was made on.
struct SystemCall {
  std::string name, path;
};

/// How many of the calls that are watched one file needs that is written whole: open, write, fsync, close and rename
/// of its bytes, open, fsync and close of its folder.
inline constexpr int kCallsOfASave = 8;

/// True where a command that writes files whole does not come to its end behind this failure of one call. `replaces`:
/// there was a file before.
bool stopsASave(const SystemCall& call, int error, bool replaces);

/// Watches, as long as it lives, the calls of `open`, `read`, `write`, `fsync`, `ftruncate`, `rename` and `close` on
/// files below a folder, and on the folder; there is one at a time. A call that fails does nothing; but a file is
/// closed also where its closing fails, as the system does. Nobody waits for the disk.
class SystemCalls {
 public:
  /// In the place of a folder: all pipes.
  static constexpr const char* kPipes = "pipe:";

  explicit SystemCalls(std::string folder, std::vector<CallFault> faults = {});
  ~SystemCalls();
  SystemCalls(const SystemCalls&) = delete;
  SystemCalls& operator=(const SystemCalls&) = delete;

  /// Those so far, failed ones included.
  const std::vector<SystemCall>& made() const { return made_; }
  /// The names of those so far, with blanks between.
  std::string names() const;
  /// Those that failed, in the order in which they did.
  const std::vector<SystemCall>& failed() const { return failed_; }

  /// Notes a call; gives the fault that it has, null when it is to be made as it is.
  const CallFault* note(const char* name, const std::string& path);

 private:
  std::string folder_;
  std::vector<CallFault> faults_;
  std::vector<SystemCall> made_, failed_;
};

}  // namespace vk
