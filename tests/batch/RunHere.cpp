#include "batch/RunHere.h"

#include <iostream>
#include <memory>
#include <sstream>
#include <streambuf>
#include <vector>

#include "batch/CommandLine.h"
#include "gral/sinks/RecorderDevice.h"

namespace vk {
namespace {

class RecordedFigures : public FigureMaker {
 public:
  FigureForm formFor(const std::string&, const FigureOptions&) override {
    auto device = std::make_unique<RecorderDevice>();
    const RecorderDevice* form = device.get();
    return {std::move(device), [form](const FigureWords&) {
              std::string bytes;
              for (const std::string& line : form->lines()) bytes += line + "\n";
              return bytes;
            }};
  }
};

/// What goes into a stream while it lives, in a place that it has from the start.
class Caught : private std::streambuf {
 public:
  explicit Caught(std::ostream& stream) : stream_(stream), before_(stream.rdbuf(this)) {
    setp(bytes_.get(), bytes_.get() + kMostBytes);
  }
  ~Caught() override {
    stream_.rdbuf(before_);
    stream_.clear();
  }
  Caught(const Caught&) = delete;
  Caught& operator=(const Caught&) = delete;
  std::string text() const { return {pbase(), pptr()}; }

 private:
  static constexpr std::size_t kMostBytes = 1 << 20;
  std::unique_ptr<char[]> bytes_{new char[kMostBytes]};
  std::ostream& stream_;
  std::streambuf* before_;
};

}  // namespace

BatchRun runHere(const std::string& line, const AroundCommand& around) {
  std::vector<std::string> words{"vor_kel_batch"};
  std::istringstream rest(line);
  for (std::string word; rest >> word;) words.push_back(word);
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  RecordedFigures figures;
  const Caught output(std::cout), errors(std::cerr), notes(std::clog);
  const std::function<int()> command = [&] {
    return runCommandLine(static_cast<int>(arguments.size()), arguments.data(), &figures);
  };
  const int exitCode = around(command);
  return {exitCode, output.text(), errors.text()};
}

}  // namespace vk
