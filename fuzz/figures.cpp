#include <cstdint>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "grafile/GraphicFile.h"
#include "gral/NoPrinter.h"
#include "gral/ObserverDevice.h"

namespace vk {
namespace {

/// A disk on which each file has the same bytes.
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

/// Any bytes are drawn or listed as errors. What stands behind a line of two percent signs is the file that all
/// commands find under the name they look for.
void probe(std::string_view bytes) {
  constexpr std::string_view kSeparator = "\n%%\n";
  const auto at = bytes.find(kSeparator);
  OneFile files(at == bytes.npos ? std::string_view() : bytes.substr(at + kSeparator.size()));
  NoListener listener;
  ObserverDevice page;
  NoPrinter printer;
  GralCls drawing(printer);
  drawing.GralGrStr(page, "LANDSCAPE", 1);
  GraphicRun run(files, drawing, listener);
  try {
    run.runText(bytes.substr(0, at));
  } catch (const RuntimeError&) {
    // The last line asked for one behind it.
  }
  drawing.GralGrEnd();
}

}  // namespace
}  // namespace vk

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vk::probe({reinterpret_cast<const char*>(data), size});
  return 0;
}
