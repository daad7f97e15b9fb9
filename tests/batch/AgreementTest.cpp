#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

#include "batch/BatchRun.h"
#include "commands/DataCommands.h"
#include "commands/FilePicking.h"
#include "doubles/Doubles.h"
#include "doubles/ErrorOf.h"
#include "doubles/ScriptedForms.h"
#include "doubles/TemporaryFolder.h"
#include "doubles/TestPorts.h"
#include "platform/system/SystemFiles.h"

/// One file, one judgement: `check`, `fit` and the reading command of the window take and refuse the same files.
namespace vk {
namespace {

namespace fs = std::filesystem;

/// Somebody who picks a file and answers every box with its first button.
class Reader : public Dialogs {
 public:
  explicit Reader(std::string file) : file_(std::move(file)) {}
  int Get_Msg(const MessageRequest&) override { return 1; }
  void plainBox(const WindowText&, const WindowText&) override {}
  std::optional<std::string> fileDialog(const FileRequest&) override {
    return std::exchange(file_, std::nullopt);
  }

 private:
  std::optional<std::string> file_;
};

bool windowTakes(const std::string& path) {
  Session session;
  SystemFiles files;
  Reader reader(path);
  RecordingOutput output;
  RecordingMainWindow window;
  const int error = errorOf([&] { MenDatLet(session, TestPorts(files, reader, output, window)); });
  return error == 0 && session.loaded.DataDefined != kFalse;
}

bool checkTakes(const std::string& path) {
  return batch("check '" + path + "'").exitCode == 0;
}

/// A fit may fail with data that were taken; only bad input is a refusal.
bool fitTakes(const std::string& path) {
  return batch("fit '" + path + "' --catalogue 1,1 --par c=1").exitCode != 2;
}

void expectAgreement(const std::string& path) {
  const bool taken = windowTakes(path);
  EXPECT_EQ(checkTakes(path), taken) << path;
  EXPECT_EQ(fitTakes(path), taken) << path;
}

std::string points(int count, const std::string& lineEnd = "\r\n") {
  std::string text = "x" + lineEnd + "y" + lineEnd + std::to_string(std::min(count, 32767)) + lineEnd;
  for (int i = 1; i <= count; ++i) text += std::to_string(i) + " 2 .1" + lineEnd;
  return text;
}

std::string repeated(const std::string& text, int times) {
  std::string result;
  for (int i = 0; i < times; ++i) result += text;
  return result;
}

struct OddFile {
  const char* name;
  std::string bytes;
  bool good;
};

const std::string kHead = "x\r\ny\r\n2\r\n";
const std::string kPair = "1 2 .1\r\n2 4 .1\r\n";
const std::string kNul(1, '\0');

std::vector<OddFile> oddFiles() {
  constexpr int kTenMegabytes = 10000000;
  return {
      {"plain", kHead + kPair, true},
      {"line_feeds", points(3, "\n"), true},
      {"no_last_line_end", kHead + "1 2 .1\r\n2 4 .1", true},
      {"no_last_line_feed", "x\ny\n2\n1 2 .1\n2 4 .1", true},
      {"half_a_last_line_end", kHead + "1 2 .1\r\n2 4 .1\r", false},
      {"no_last_point", kHead + "1 2 .1\r\n2 4", false},
      {"carriage_returns_only", points(3, "\r"), false},
      {"mixed_line_ends", "x\r\ny\r\n2\r\n1 2 .1\n2 4 .1\n", false},
      {"backward_line_ends", points(3, "\n\r"), false},
      {"empty", "", false},
      {"one_byte", "1", false},
      {"one_line_end", "\r\n", false},
      {"line_ends_only", repeated("\r\n", 100000), false},
      {"comments_only", repeated("% nota\r\n", 100), false},
      {"comments_everywhere", "%\r\nx\r\n%\r\ny\r\n\r\n2\r\n%\r\n" + kPair + "%", true},
      {"byte_order_mark", "\xEF\xBB\xBF" + kHead + kPair, true},
      {"mark_before_a_comment", "\xEF\xBB\xBF% nota\r\n" + kHead + kPair, true},
      {"two_byte_characters", "\xFF\xFEx" + kNul + "\r" + kNul + "\n" + kNul, false},
      {"nul_in_a_title", "x" + kNul + "\r\ny\r\n2\r\n" + kPair, true},
      {"nul_in_a_number", kHead + "1" + kNul + " 2 .1\r\n2 4 .1\r\n", false},
      {"nul_bytes_only", repeated(kNul, 1000), false},
      {"end_of_file_sign", kHead + kPair + "\x1A", false},
      {"form_feed", kHead + kPair + "\f\r\n", false},
      {"tabs", "x\ty\r\n\ty\r\n2\t\r\n\t1\t2\t.1\r\n2\t4\t.1\t\r\n", true},
      {"hard_blanks", kHead + "1\xFF" + "2 .1\r\n" + kPair, false},
      {"commas", kHead + "1,2,.1\r\n2,4,.1\r\n", false},
      {"decimal_commas", kHead + "1,5 2 .1\r\n2 4 .1\r\n", false},
      {"letters_d", kHead + "1D0 2d+1 .1\r\n2 4 1E-1\r\n", true},
      {"not_finite", kHead + "inf nan .1\r\n2 4 .1\r\n", false},
      {"too_large", kHead + "1E400 2 .1\r\n2 4 .1\r\n", false},
      {"too_small", kHead + "1E-400 2 .1\r\n2 4 .1\r\n", true},
      {"hexadecimal", kHead + "0x10 2 .1\r\n2 4 .1\r\n", false},
      {"four_columns", "x\r\ny\r\n2 1\r\n1 2 .1 .1\r\n2 4 .1 .1\r\n", true},
      {"one_column_too_many", kHead + "1 2 .1 .1\r\n2 4 .1 .1\r\n", false},
      {"wrong_count", "x\r\ny\r\n77\r\n" + kPair, true},
      {"negative_count", "x\r\ny\r\n-2\r\n" + kPair, true},
      {"count_beyond_a_counter", "x\r\ny\r\n32768\r\n" + kPair, false},
      {"no_count", "x\r\ny\r\ndue\r\n" + kPair, false},
      {"one_point", kHead + "1 2 .1\r\n", false},
      {"most_points", points(32767), true},
      {"one_point_too_many", points(32768), false},
      {"very_many_numbers", kHead + repeated("1 ", 40000) + "\r\n" + kPair, false},
      {"very_many_errors", kHead + repeated("?\r\n", 5000), false},
      {"title_of_ten_megabytes", std::string(kTenMegabytes, 't') + "\r\ny\r\n2\r\n" + kPair, true},
      {"number_of_a_megabyte", kHead + std::string(1000000, '1') + " 2 .1\r\n" + kPair, false},
      {"blanks_of_ten_megabytes", kHead + "1 " + std::string(kTenMegabytes, ' ') + "2 .1\r\n2 4 .1\r\n",
       true},
      {"line_of_ten_megabytes", std::string(kTenMegabytes, '%'), false},
      {"binary",
       repeated("\x7F"
                "ELF\x02\x01\x01" +
                    kNul,
                500),
       false},
  };
}

TEST(OddDataFiles, AreTakenOrRefusedByAllProgramsAlike) {
  const TemporaryFolder folder;
  for (const OddFile& file : oddFiles()) {
    const std::string path = folder.make(std::string(file.name) + ".DAT", file.bytes);
    EXPECT_EQ(windowTakes(path), file.good) << file.name;
    expectAgreement(path);
  }
}

TEST(OddDataFiles, AreRefusedByAllProgramsWhereTheyAreNoFiles) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "folder.dat");
  fs::create_symlink("nowhere", folder / "dangling.dat");
  fs::create_symlink("circle.dat", folder / "circle.dat");
  fs::create_symlink("/dev/null", folder / "device.dat");
  for (const char* name :
       {"folder.dat", "dangling.dat", "circle.dat", "device.dat", "missing.dat", "none/a.dat"}) {
    EXPECT_FALSE(windowTakes(folder / name)) << name;
    expectAgreement(folder / name);
  }
}

// Somebody with all rights reads it all the same, on every road.
TEST(OddDataFiles, WithoutTheRightToReadThemAreTakenOrRefusedByAllProgramsAlike) {
  const TemporaryFolder folder;
  const std::string path = folder.make("unreadable.dat", kHead + kPair);
  ASSERT_EQ(::chmod(path.c_str(), 0), 0);
  expectAgreement(path);
}

TEST(OddDataFiles, APipeIsRefusedByTheWindowAtOnce) {
  const TemporaryFolder folder;
  const std::string pipe = folder / "pipe.dat";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(windowTakes(pipe));
}

}  // namespace
}  // namespace vk
