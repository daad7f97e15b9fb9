#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/Files.h"

namespace vk {

/// A disk in memory. Names are found ignoring case after the exact name, folders are not modelled. Failures
/// are set by name.
class MemoryFiles : public Files {
 public:
  std::map<std::string, std::string> content;
  std::map<std::string, int> readError;   ///< run-time error that reading this file raises
  std::map<std::string, int> writeError;  ///< run-time error that writing this file raises
  std::set<std::string> notWritable;      ///< files for which `canWrite` is false
  bool atTerminal = false;                ///< where the program was started
  std::vector<std::string> read;          ///< names in the order in which they were read
  std::vector<std::string> written;       ///< names in the order in which they were written

  bool FileExists(const std::string& path) override { return !find(path).empty(); }
  std::int64_t size(const std::string& path) override;
  std::string readAll(const std::string& path) override;
  void writeAll(const std::string& path, std::string_view bytes) override;
  bool canWrite(const std::string& path) override;
  std::string programFolder() override { return "/program"; }
  std::string documentsFolder() override { return "/documents"; }
  std::string currentFolder() override { return "/current"; }
  bool startedAtTerminal() override { return atTerminal; }
  bool isWritableFolder(const std::string& folder) override { return !notWritable.contains(folder); }
  std::vector<std::string> drives() override { return {"/"}; }
  std::vector<std::string> subfolders(const std::string&) override { return {}; }

 private:
  std::string find(const std::string& path) const;
  const std::string& bytesOf(const std::string& path) const;
};

}  // namespace vk
