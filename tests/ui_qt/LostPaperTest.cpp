#include <array>
#include <cerrno>
#include <filesystem>
#include <optional>

#include "base/RuntimeError.h"
#include "doubles/ScriptedDialogs.h"
#include "doubles/TemporaryFolder.h"
#include "faults/SystemCalls.h"
#include "platform/system/SystemFiles.h"
#include "ui/qt/ports/QtPrinter.h"

/// What happens to a document whose paper goes away: the disk under a PDF file, or the printer.
namespace vk {
namespace {

constexpr const char* kSheetFace = "Courier New";
constexpr double kSheetPoints = 10;

/// A user who names the same file until he is told that it cannot be written, and then gives up.
class OneNameDialogs : public Dialogs {
 public:
  std::string file;
  std::vector<std::string> told;
  std::function<void()> onChoice = [] {};

  int Get_Msg(const MessageRequest& request) override {
    const bool asks = request.icon == kQuestion;
    if (!asks) told.emplace_back(request.text.bytes());
    return asks ? 1 : 2;
  }
  void plainBox(const WindowText&, const WindowText& text) override { told.emplace_back(text.bytes()); }
  std::optional<std::string> fileDialog(const FileRequest&) override { return onChoice(), file; }
};

bool isWholePdf(const std::string& bytes) {
  return bytes.starts_with("%PDF") && bytes.ends_with("%%EOF\n");
}

class PrintedOnFaultyDisk : public testing::Test {
 protected:
  void print() {
    printer.printText(Cp437Text(std::string("riga")), kSheetFace, kSheetPoints);
    printer.EndDoc();
  }

  TemporaryFolder folder{folderInMemory()};
  SystemFiles files;
  OneNameDialogs dialogs;
  QtPrinter printer{files, dialogs, [] { return false; }};
};

TEST_F(PrintedOnFaultyDisk, AFileIsTheOldOneOrTheNewOneAndTheUserIsTold) {
  constexpr std::array kErrors{EIO, ENOSPC, EACCES, EINTR};
  const std::string old = "vecchio";
  int runs = 0;
  const auto failCall = [&](int number, int error, bool replaces) {
    dialogs.file = folder.make("foglio.pdf", old);
    if (!replaces) std::filesystem::remove(dialogs.file);
    dialogs.told.clear();
    const SystemCalls calls(folder.path(), {{number, error}});
    print();
    if (calls.failed().empty()) return false;
    ++runs;
    const SystemCall& failed = calls.failed()[0];
    SCOPED_TRACE(failed.name + ", error " + std::to_string(error));
    const auto left = folder.files();
    const bool stops = !dialogs.told.empty();
    EXPECT_EQ(stops, stopsASave(failed, error, replaces));
    for (const auto& [name, bytes] : left) {
      EXPECT_EQ(name, "foglio.pdf") << "nothing is left over";
      EXPECT_TRUE(isWholePdf(bytes) || (stops && bytes == old)) << bytes.size();
    }
    if (!stops || replaces) {
      EXPECT_EQ(left.size(), 1U);
    }
    return true;
  };
  for (const bool replaces : {true, false}) {
    for (const int error : kErrors) {
      for (int number = 1; failCall(number, error, replaces);) ++number;
    }
  }
  EXPECT_GT(runs, 20);
}

TEST_F(PrintedOnFaultyDisk, AFolderThatIsGoneIsTold) {
  dialogs.file = folder / "via/foglio.pdf";
  std::filesystem::create_directory(folder / "via");
  EXPECT_NE(printer.page(), nullptr);
  std::filesystem::remove(folder / "via");
  print();
  EXPECT_EQ(dialogs.told,
            std::vector<std::string>{"Il File: " + dialogs.file +
                                     " NON e` stato Scritto: Impossibile trovare il percorso!"});
  EXPECT_EQ(folder.count(), 0);
  dialogs.file = folder / "foglio.pdf";
  print();
  EXPECT_TRUE(isWholePdf(folder.bytesOf("foglio.pdf"))) << "the next document is printed";
}

TEST_F(PrintedOnFaultyDisk, APrinterThatIsGoneIsToldAndTheNextDocumentBecomesAFile) {
  bool there = true;  // but none that the system knows
  QtPrinter losable(files, dialogs, [&] { return there; });
  const auto print = [&] {
    losable.printText(Cp437Text(std::string("riga")), kSheetFace, kSheetPoints);
    losable.EndDoc();
  };
  losable.setOrientation(kLandscape);
  for (const bool known : {true, false}) {
    EXPECT_GT(losable.Width().value(), losable.Height().value());
    there = known;
    try {
      print();
      ADD_FAILURE() << "printed";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), kPrinterError);
    }
    there = true;
  }
  there = false;
  dialogs.file = folder / "foglio.pdf";
  print();
  EXPECT_TRUE(isWholePdf(folder.bytesOf("foglio.pdf")));
  EXPECT_GT(losable.Width().value(), losable.Height().value());
}

}  // namespace
}  // namespace vk
