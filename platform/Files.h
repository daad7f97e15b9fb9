#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The disk. File names are 8-bit texts; either "/" or "\" separates folders in them.
///
/// Names are case-insensitive for the user: every operation takes the exact name where it exists, and else,
/// folder by folder along the path, the entry that is equal ignoring case. A name that leads nowhere is used
/// as it stands when a file is written.
class Files {
 public:
  virtual ~Files() = default;

  /// True for a file that exists; a folder is no file. Never fails.
  virtual bool FileExists(const std::string& path) = 0;

  /// Size in bytes. Missing file: run-time error 53; missing folder: 76; a folder or no permission: 75, 70.
  virtual std::int64_t size(const std::string& path) = 0;

  /// All bytes of the file. Errors as for `size`; a read that breaks off is run-time error 57.
  virtual std::string readAll(const std::string& path) = 0;

  /// Replaces the file by these bytes as a whole: a failed write leaves the old file as it was.
  /// Missing folder: run-time error 76; no permission: 70 or 75; full disk: 57.
  virtual void writeAll(const std::string& path, std::string_view bytes) = 0;

  /// True when a file of this name could be written now: the test that comes before a file is opened for
  /// output. Creates nothing. Never fails.
  virtual bool canWrite(const std::string& path) = 0;

  /// Folder of the running program, the user's documents, and the folder in which relative names start;
  /// without a final separator.
  virtual std::string programFolder() = 0;
  virtual std::string documentsFolder() = 0;
  virtual std::string currentFolder() = 0;

  /// True when the user has started the program at a terminal: the current folder is of his choice then.
  virtual bool startedAtTerminal() = 0;

  /// True when files can be made in the folder.
  virtual bool isWritableFolder(const std::string& folder) = 0;

  /// The places the user can start from, "/" first, then mounted volumes.
  virtual std::vector<std::string> drives() = 0;

  /// Names of the folders inside a folder, sorted; hidden ones are left out.
  /// A folder that cannot be listed: run-time error 76.
  virtual std::vector<std::string> subfolders(const std::string& folder) = 0;
};

/// The part of a path behind its last separator; empty when the path ends in one.
std::string GetFileName(std::string_view path);
/// The part of the file name behind its last point, without the point; empty when there is none.
std::string GetExtensionName(std::string_view path);
/// The part before the last separator: the root for an entry of the root, "." for a bare name.
std::string folderOf(std::string_view path);
/// Folder and name with one separator between.
std::string joinPath(std::string_view folder, std::string_view name);

}  // namespace vk
