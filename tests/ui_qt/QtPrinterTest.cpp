#include "ui/qt/ports/QtPrinter.h"

#include <QProcess>

#include "base/RuntimeError.h"
#include "doubles/ScriptedDialogs.h"
#include "doubles/TemporaryFolder.h"
#include "platform/system/SystemFiles.h"
#include "ui/OutputModel.h"

namespace vk {
namespace {

using testing::HasSubstr;

const FontSpec kFont{"Courier New", 10};

/// A disk that is full for the next few files.
class FullDisk : public SystemFiles {
 public:
  void writeAll(const std::string& path, std::string_view bytes) override {
    if (failures-- > 0) throw RuntimeError(kDeviceIoError);
    SystemFiles::writeAll(path, bytes);
  }
  int failures = 0;
};

class QtPrinterTest : public testing::Test {
 protected:
  /// The text of a PDF file, with its layout.
  static std::string textOf(const std::string& file) {
    QProcess reader;
    reader.start("pdftotext", {"-layout", QString::fromStdString(file), "-"});
    EXPECT_TRUE(reader.waitForFinished());
    return reader.readAllStandardOutput().toStdString();
  }
  void show(int rows, int cols, const std::string& text = "") {
    model.OutShow({Form::kMain, rows, cols, kReportButtons, "Titolo", Cp437Text(text)});
    model.layout({120, 225}, {});
  }

  TemporaryFolder folder;
  FullDisk files;
  ScriptedDialogs dialogs;
  QtPrinter printer{files, dialogs, [] { return false; }};
  OutputModel model;
};

TEST_F(QtPrinterTest, WithoutAPrinterThePageIsA4) {
  EXPECT_FALSE(printer.present());
  EXPECT_NEAR(printer.Width().value(), 11426, 30);
  EXPECT_NEAR(printer.Height().value(), 16358, 30);
  printer.setOrientation(kLandscape);
  EXPECT_NEAR(printer.Width().value(), 16358, 30);
  EXPECT_EQ(printer.Orientation(), kLandscape);
}

TEST_F(QtPrinterTest, ADrawingBecomesAFileWhoseTextCanBeRead) {
  show(6, 40);
  model.CharFrame(1, 1, 6, 40, 3, "");
  model.CharLocate(3, 4);
  model.print(Cp437Text(std::string("X\xFD/\xE6       0.1420E+01")));
  dialogs.pick(folder / "foglio.pdf");
  model.printOn(printer, kFont);
  EXPECT_THAT(textOf(folder / "foglio.pdf"), HasSubstr("X²/µ"));
  EXPECT_THAT(textOf(folder / "foglio.pdf"), HasSubstr("0.1420E+01"));
  EXPECT_EQ(dialogs.fileRequests[0].filter, "Tutti i File (*.*)|*.*|File PDF (*.pdf)|*.pdf|");
  EXPECT_TRUE(dialogs.fileRequests[0].save);
}

TEST_F(QtPrinterTest, ALongTextGoesOverSeveralPages) {
  std::string text;
  for (int i = 1; i <= 150; ++i) text += "riga " + std::to_string(i) + "\r\n";
  show(25, 80, text);
  dialogs.pick(folder / "testo.pdf");
  model.printOn(printer, kFont);
  const std::string printed = textOf(folder / "testo.pdf");
  EXPECT_THAT(printed, HasSubstr("riga 1\n"));
  EXPECT_THAT(printed, HasSubstr("riga 150"));
  EXPECT_EQ(std::count(printed.begin(), printed.end(), '\f'), 3) << "pages";
}

TEST_F(QtPrinterTest, AUserWhoGivesNoNamePrintsNothing) {
  show(6, 40);
  dialogs.pick(std::nullopt);
  model.printOn(printer, kFont);
  EXPECT_EQ(folder.count(), 0);
  dialogs.pick(folder / "poi.pdf");
  model.printOn(printer, kFont);
  EXPECT_EQ(folder.count(), 1) << "the next document asks again";
}

TEST_F(QtPrinterTest, TheQuestionProposesANameAndRemembersItsFolder) {
  show(6, 40);
  folder.make("altra/x.dat");
  printer.setProposal([this] { return folder / "RETTA.pdf"; });
  for (const char* name : {"altra/a.pdf", "altra/b.pdf"}) {
    dialogs.pick(folder / name);
    model.printOn(printer, kFont);
  }
  EXPECT_EQ(dialogs.fileRequests[0].folder, folder.path());
  EXPECT_EQ(dialogs.fileRequests[0].proposedName, "RETTA.pdf");
  EXPECT_EQ(dialogs.fileRequests[1].folder, folder / "altra");
  EXPECT_EQ(dialogs.fileRequests[1].proposedName, "RETTA.pdf");
}

TEST_F(QtPrinterTest, ACancelledQuestionRemembersNothing) {
  show(6, 40);
  printer.setProposal([this] { return folder / "RETTA.pdf"; });
  for (int i = 0; i < 2; ++i) {
    dialogs.pick(std::nullopt);
    model.printOn(printer, kFont);
  }
  EXPECT_EQ(dialogs.fileRequests[1].folder, folder.path());
}

TEST_F(QtPrinterTest, AFullDiskIsToldAndAnotherNameMayBeGiven) {
  const std::string full = folder.make("piena.pdf", "vecchio");
  files.failures = 1;
  show(6, 40);
  dialogs.pick(full);
  dialogs.press(1);
  dialogs.press(1);
  dialogs.pick(folder / "c.pdf");
  model.printOn(printer, kFont);
  EXPECT_EQ(dialogs.messages[1].text, "Il File: " + full + " NON e` stato Scritto: Disco Pieno!");
  EXPECT_EQ(dialogs.messages[1].captions, (std::vector<WindowText>{"&Riprova", "&Continua"}));
  EXPECT_EQ(folder.bytesOf("piena.pdf"), "vecchio");
  EXPECT_EQ(folder.bytesOf("c.pdf").substr(0, 4), "%PDF");
}

TEST_F(QtPrinterTest, AUserMayGiveUpOnAFullDiskAndPrintAgain) {
  files.failures = 1;
  show(6, 40);
  dialogs.pick(folder / "a.pdf");
  dialogs.press(2);
  model.printOn(printer, kFont);
  EXPECT_EQ(folder.count(), 0);
  dialogs.pick(folder / "b.pdf");
  model.printOn(printer, kFont);
  EXPECT_EQ(folder.bytesOf("b.pdf").substr(0, 4), "%PDF");
}

TEST_F(QtPrinterTest, AnExistingFileIsReplacedAfterAQuestion) {
  const std::string there = folder.make("c.pdf", "vecchio");
  show(6, 40);
  dialogs.pick(there);
  dialogs.press(2);
  dialogs.pick(there);
  dialogs.press(1);
  model.printOn(printer, kFont);
  EXPECT_EQ(dialogs.messages[0].text, "Il File: " + there + " Esiste: lo Sostituisco?");
  EXPECT_EQ(folder.bytesOf("c.pdf").substr(0, 4), "%PDF");
}

TEST_F(QtPrinterTest, ANameThatCannotBeWrittenIsAskedForAgain) {
  show(6, 40);
  const std::string bad = folder / "manca/c.pdf";
  dialogs.pick(bad);
  dialogs.press(1);
  dialogs.pick(folder / "c.pdf");
  model.printOn(printer, kFont);
  EXPECT_EQ(dialogs.messages[0].text, "Specificazione File: " + bad + " ERRATA!");
  EXPECT_EQ(dialogs.messages[0].captions, (std::vector<WindowText>{"&Riprova", "&Continua"}));
  EXPECT_EQ(folder.bytesOf("c.pdf").substr(0, 4), "%PDF");
}

TEST_F(QtPrinterTest, AUserMayGiveUpAfterANameThatCannotBeWritten) {
  show(6, 40);
  dialogs.pick(folder / "manca/c.pdf");
  dialogs.press(2);
  model.printOn(printer, kFont);
  EXPECT_EQ(folder.count(), 0);
}

}  // namespace
}  // namespace vk
