#include <QAbstractItemView>
#include <QAbstractProxyModel>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QToolButton>
#include <QTreeView>

#include "doubles/TemporaryFolder.h"
#include "session/Session.h"
#include "ui/qt/ports/FileDialog.h"
#include "ui/qt/ports/QtDialogs.h"
#include "ui_qt/User.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

TEST(FileFilter, IsSplitIntoPairs) {
  EXPECT_THAT(splitFilter("Tutti i File (*.*)|*.*|File Dati (*.DAT)|*.DAT|"),
              ElementsAre(FileFilter{"Tutti i File (*.*)", "*.*"}, FileFilter{"File Dati (*.DAT)", "*.DAT"}));
  EXPECT_THAT(splitFilter(""), IsEmpty());
}

class DialogsTest : public testing::Test {
 protected:
  void SetUp() override {
    owner.resize(600, 400);
    bringToFront(&owner);
    windows.add(Form::kMain, &owner);
    request.caption = "VOR_KEL: Lettura File Dati";
    request.folder = folder.path();
    request.filter = "Tutti i File (*.*)|*.*|File Dati (*.DAT)|*.DAT|";
    request.filterIndex = 2;
    request.defaultExtension = "DAT";
  }
  std::optional<std::string> ask() { return dialogs.fileDialog(request); }
  /// What the dialog lists, once it knows the whole folder.
  QStringList namesIn(QWidget* shown) const {
    const auto* view = control<QAbstractItemView>(shown, "listView");
    const auto* list = qobject_cast<const QAbstractProxyModel*>(view->model());
    const auto known = [&] { return list->sourceModel()->rowCount(list->mapToSource(view->rootIndex())); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return known() == folder.count(); }));
    QStringList names;
    for (int row = 0; row < list->rowCount(view->rootIndex()); ++row) {
      names << list->index(row, 0, view->rootIndex()).data().toString();
    }
    names.sort(Qt::CaseInsensitive);
    return names;
  }
  QStringList shownNames() {
    QStringList names;
    look([&](QFileDialog* shown) { names = namesIn(shown); });
    ask();
    return names;
  }
  void look(std::function<void(QFileDialog*)> at) {
    user.at("FileDialog", [at](QWidget* shown) { at(qobject_cast<QFileDialog*>(shown)); });
    user.cancelFile();
  }

  TemporaryFolder folder;
  QWidget owner;
  Windows windows;
  FrmMsg message{windows, Session().settings.FontLabel};
  QtDialogs dialogs{windows, message};
  FileRequest request;
  User user;
};

TEST_F(DialogsTest, ThePlainBoxShowsItsTextAsItIs) {
  QString title, text;
  user.at("PlainBox", [&](QWidget* shown) {
    title = shown->windowTitle();
    text = qobject_cast<QMessageBox*>(shown)->text();
    EXPECT_EQ(qobject_cast<QMessageBox*>(shown)->textFormat(), Qt::PlainText);
    QTest::keyClick(shown, Qt::Key_Escape);
  });
  dialogs.plainBox("ERRORE !", "Dati NON Definiti!  <*> per Continuare");
  EXPECT_EQ(title, "ERRORE !");
  EXPECT_EQ(text, "Dati NON Definiti!  <*> per Continuare");
}

TEST_F(DialogsTest, TheFileDialogOpensAsAsked) {
  request.proposedName = "prova.DAT";
  look([this](QFileDialog* shown) {
    EXPECT_EQ(shown->windowTitle(), "VOR_KEL: Lettura File Dati");
    EXPECT_EQ(shown->acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(shown->directory().absolutePath().toStdString(), folder.path());
    EXPECT_TRUE(shown->selectedNameFilter().startsWith("File Dati (*.DAT)"));
    EXPECT_EQ(control<QLineEdit>(shown, "fileNameEdit")->text(), "prova.DAT");
  });
  EXPECT_EQ(ask(), std::nullopt);
}

TEST_F(DialogsTest, ACancelGivesNothing) {
  user.cancelFile();
  EXPECT_EQ(ask(), std::nullopt);
  user.close("FileDialog");
  EXPECT_EQ(ask(), std::nullopt);
}

TEST_F(DialogsTest, AnyNameIsTakenWithoutQuestion) {
  user.file("manca.dat");
  EXPECT_THAT(ask(), Optional(folder / "manca.dat"));
  const std::string there = folder.make("c'e.DAT");
  request.save = true;
  user.file("c'e.DAT");
  EXPECT_THAT(ask(), Optional(there));
}

TEST_F(DialogsTest, ANameToBeSavedGetsTheExtensionOfTheSelectedFilter) {
  request.save = true;
  user.file("nuovo");
  EXPECT_THAT(ask(), Optional(folder / "nuovo.DAT"));
  user.file("nuovo.txt");
  EXPECT_THAT(ask(), Optional(folder / "nuovo.txt"));
  request.filterIndex = 1;
  user.file("nuovo");
  EXPECT_THAT(ask(), Optional(folder / "nuovo"));
}

TEST_F(DialogsTest, ANameToBeOpenedGetsNoExtension) {
  user.file("senza");
  EXPECT_THAT(ask(), Optional(folder / "senza"));
}

TEST_F(DialogsTest, PatternsMatchInAnyCaseAndAllFilesMeansAll) {
  for (const char* name : {"a.dat", "B.DAT", "senza", "altro/x.dat"}) folder.make(name);
  EXPECT_EQ(shownNames(), (QStringList{"a.dat", "altro", "B.DAT"}));
  request.filterIndex = 1;
  EXPECT_EQ(shownNames(), (QStringList{"a.dat", "altro", "B.DAT", "senza"}));
}

TEST_F(DialogsTest, TheFilterOfAnEmptyExtensionShowsTheFilesWithoutOne) {
  for (const char* name : {"a.dat", "senza", "punto."}) folder.make(name);
  request.filter = "Tutti i File (*.*)|*.*|File Dati (*.)|*.|";
  EXPECT_EQ(shownNames(), (QStringList{"punto.", "senza"}));
  request.save = true;
  user.file("nuovo");
  EXPECT_THAT(ask(), Optional(folder / "nuovo"));
}

TEST_F(DialogsTest, SignsOfAnExtensionAreNoPattern) {
  for (const char* name : {"a.d[1]", "a.d1", "b.x y", "c.y"}) folder.make(name);
  request.filter = "Tutti i File (*.*)|*.*|File Dati (*.d[1])|*.d[1]|";
  EXPECT_EQ(shownNames(), QStringList{"a.d[1]"});
  request.filter = "Tutti i File (*.*)|*.*|File Dati (*.x y)|*.x y|";
  EXPECT_EQ(shownNames(), QStringList{"b.x y"});
}

TEST_F(DialogsTest, TheListFollowsTheFilterThatTheUserSelects) {
  for (const char* name : {"a.dat", "b.txt"}) folder.make(name);
  user.at("FileDialog", [this](QWidget* shown) {
    EXPECT_EQ(namesIn(shown), QStringList{"a.dat"});
    QTest::keyClick(control<QComboBox>(shown, "fileTypeCombo"), Qt::Key_Up);
    EXPECT_EQ(namesIn(shown), (QStringList{"a.dat", "b.txt"}));
  });
  user.cancelFile();
  ask();
}

TEST_F(DialogsTest, FoldersStandApartFromFilesAndSizesAreSortedByTheirValues) {
  folder.make("a.dat", std::string(20'000, 'x'));
  folder.make("b.dat", std::string(3'000, 'x'));
  folder.make("c.dat", std::string(9'000, 'x'));
  folder.make("z/x.dat");
  user.at("FileDialog", [](QWidget* shown) {
    QTest::mouseClick(control<QToolButton>(shown, "detailModeButton"), Qt::LeftButton);
    auto* view = control<QTreeView>(shown, "treeView");
    const auto cell = [view](int row, int column) {
      return view->model()->index(row, column, view->rootIndex()).data().toString();
    };
    // The disk is read, and its list put in order, a little later.
    const auto comeTo = [&cell](const QStringList& expected) {
      const auto names = [&cell] { return QStringList{cell(0, 0), cell(1, 0), cell(2, 0), cell(3, 0)}; };
      EXPECT_TRUE(QTest::qWaitFor([&] { return names() == expected; })) << names().join(' ').toStdString();
    };
    comeTo({"z", "a.dat", "b.dat", "c.dat"});
    EXPECT_EQ(cell(2, 1), "2,93 KiB");
    EXPECT_THAT(cell(2, 3).toStdString(), testing::MatchesRegex("[0-9]+/[0-9]+/[0-9]+ [0-9]+:[0-9]+"));
    view->sortByColumn(1, Qt::AscendingOrder);
    comeTo({"z", "b.dat", "c.dat", "a.dat"});
    view->sortByColumn(1, Qt::DescendingOrder);
    comeTo({"a.dat", "c.dat", "b.dat", "z"});
  });
  user.cancelFile();
  ask();
}

TEST_F(DialogsTest, TheFileDialogKeepsNothingForTheNextRun) {
  user.file("a.dat");
  ask();
  const QSettings settings(QSettings::UserScope, "QtProject");
  EXPECT_TRUE(settings.allKeys().isEmpty());
  EXPECT_FALSE(QFile::exists(settings.fileName()));
}

TEST_F(DialogsTest, NamesBeyondAsciiKeepTheirBytes) {
  const std::string name = folder.make("perch\xC3\xA9.dat");
  user.file(QString::fromUtf8("perch\xC3\xA9.dat"));
  EXPECT_THAT(ask(), Optional(name));
}

}  // namespace
}  // namespace vk
