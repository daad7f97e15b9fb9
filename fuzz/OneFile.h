#pragma once

#include <string>
#include <string_view>

#include "platform/Files.h"

namespace vk {

/// A disk on which each file has the same bytes, and on which nothing stays that is written.
class OneFile : public Files {
 public:
  explicit OneFile(std::string_view bytes) : bytes_(bytes) {}

  bool FileExists(const std::string&) override { return true; }
  std::int64_t size(const std::string&) override { return static_cast<std::int64_t>(bytes_.size()); }
  std::string readAll(const std::string&) override { return bytes_; }
  void writeAll(const std::string&, std::string_view) override {}
  bool canWrite(const std::string&) override { return false; }
  std::string programFolder() override { return "/"; }
  std::string documentsFolder() override { return "/"; }
  std::string currentFolder() override { return "/"; }
  bool startedAtTerminal() override { return false; }
  bool isWritableFolder(const std::string&) override { return false; }
  std::vector<std::string> drives() override { return {}; }
  std::vector<std::string> subfolders(const std::string&) override { return {}; }

 private:
  std::string bytes_;
};

}  // namespace vk
