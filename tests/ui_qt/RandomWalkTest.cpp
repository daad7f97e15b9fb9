#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QScreen>
#include <algorithm>
#include <fstream>
#include <iostream>
#include <set>
#include <sstream>

#include "base/CodePage.h"
#include "base/RuntimeError.h"
#include "platform/Files.h"
#include "ui_qt/Desktop.h"
#include "ui_qt/ScriptedTime.h"
#include "ui_qt/Walker.h"

namespace vk {
namespace {

// 2,000 steps in all.
constexpr int kPlainSteps = 400, kRepeatedSteps = 100, kFaultySteps = 1'000;

/// Another length of the walk with faults is asked for by the environment, as checks/walk does: VOR_WALK_STEPS=20000;
/// another way by VOR_WALK_SEED, and a log of it by VOR_WALK_LOG.
int faultySteps() {
  const int wanted = qEnvironmentVariableIntValue("VOR_WALK_STEPS");
  return wanted > 0 ? wanted : kFaultySteps;
}

/// A seed that soon saves texts and meets faults.
constexpr unsigned kBusySeed = 27;

/// What cannot be read or written now and then, in per cent of the accesses.
constexpr int kFaults = 8;

std::string withoutTail(const std::string& text) {
  return text.substr(0, text.find_last_not_of(" \r\n") + 1);
}

/// Watches the text of the editor from step to step: it changes by the user's hand only, and goes only into its file
/// or because the user gives it up.
class WatchedText {
 public:
  WatchedText(Walker& walker, DesktopFiles& files) : walker_(walker), files_(files) {}

  std::vector<std::string> losses;
  int saved = 0;  ///< texts that went into their files

  void look() {
    auto* editor = dynamic_cast<FrmEdi*>(windowNamed("FrmEdi"));
    const bool open = editor != nullptr;
    const std::string title = open ? editor->windowTitle().toStdString() : "";
    const std::string text = open ? textOf(*editor) : "";
    if (open_ && !open) closed();
    if (open_ && open) stayed(title, text);
    open_ = open, title_ = title, text_ = text;
    walker_.edited = walker_.gaveUp = false;
  }

 private:
  /// Reading a large text takes longer than the step.
  std::string textOf(FrmEdi& editor) {
    int revision = 0;
    for (const auto* box : editor.findChildren<QPlainTextEdit*>()) revision += box->document()->revision();
    if (open_ && revision == revision_) return text_;
    revision_ = revision;
    return std::string(editor.editorText().bytes());
  }
  void closed() {
    if (walker_.gaveUp) return;
    // All files that the walker knows are in the folder of the program, and their names have no blanks.
    const std::string name = joinPath(files_.programFolder(), title_.substr(title_.rfind(' ') + 1));
    if (files_.FileExists(name) && isSavedAs(withoutTail(files_.SystemFiles::readAll(name)))) {
      ++saved;
    } else {
      losses.push_back("closed: " + title_);
    }
  }
  /// Signs that are entered in a file of ASCII are saved in UTF-8, control characters as they are.
  bool isSavedAs(const std::string& bytes) const {
    const std::string text = withoutTail(text_);
    std::string utf8;
    for (const char c : text)
      appendUtf8(utf8, static_cast<unsigned char>(c) < 0x80 ? static_cast<unsigned char>(c)
                                                            : toUnicode(c, CodePage::kCp437));
    return bytes == text || bytes == utf8;
  }
  void stayed(const std::string& title, const std::string& text) {
    if (title != title_) losses.push_back(title_ + " has become " + title);
    if (text != text_ && !walker_.edited) losses.push_back("changed: " + title_);
  }

  Walker& walker_;
  DesktopFiles& files_;
  bool open_ = false;
  int revision_ = 0;
  std::string title_, text_;
};

/// The program from its start in a time of its own, with a walker in front of it.
class RandomWalkTest : private ScriptedTime, public Desktop {
 protected:
  void SetUp() override {
    QGuiApplication::clipboard()->clear();
    start();
  }
  QString file(const std::string& name, const std::string& bytes) {
    return QString::fromStdString(folder.make(name, bytes));
  }
  std::vector<QString> names() {
    return {file("retta.dat", lineData()),
            file("x.dat", "x\r\ny\r\n3 1\r\n0 1 .1 .1\r\n1 3 .1 .1\r\n2 5 .1 .2\r\n"),
            file("errori.dat", "x\r\ny\r\n3\r\n0 uno .1\r\n1\r\n"),
            file("uno.dat", "x\r\ny\r\n1\r\n0 1 .1\r\n"),
            file("due.fcn", "A,B\r\nA*x+B\r\nretta\r\nC\r\nC*x^2\r\nparabola\r\n"),
            file("errori.fcn", "A\r\nA*(x\r\nerrata\r\n"),
            file("figura.gra",
                 "\\XSCALA(5,25,0,8)\r\n\\XASSE(0,8,4,4,3,1,x)\r\n\\SEGNO()\r\n\\FUNZIONE(x/2)\r\n"),
            file("grande.gra", std::string(40001, 'a')),
            QString::fromStdString(folder / "salvata.dat"),
            QString::fromStdString(folder / "stampa.pdf"),
            QString::fromStdString(folder / "manca.dat")};
  }
  /// Walks while windows are upset, files cannot be read or written now and then, and printers come and go; no text
  /// may be lost.
  void walkWithFaults(Walker& walker, unsigned seed, int steps) {
    walker.tidiness = 8;
    walker.unruly = true;
    WatchedText text(walker, files);
    walker.beforeStep = [this, &text] {
      text.look();
      lookAtBox();
    };
    std::mt19937 generator{seed};
    files.onAccess = [&] {
      static constexpr int kErrors[]{57, 61, 62, 70, 75, 76};
      if (generator() % 100 >= kFaults) return;
      ++faults;
      throw RuntimeError(kErrors[generator() % std::size(kErrors)]);
    };
    std::mt19937 printers{seed};
    hasPrinter = [&] { return printers() % 2 == 0 && ++lostPrinters > 0; };
    walker.walk(steps);
    files.onAccess = nullptr;
    hasPrinter = [] { return false; };
    text.look();
    saved = text.saved;
    EXPECT_THAT(text.losses, testing::IsEmpty());
    EXPECT_THAT(unreachable, testing::IsEmpty());
    window().showNormal();
  }
  void expectUsable(const Walker& walker) {
    EXPECT_FALSE(walker.stuck);
    EXPECT_TRUE(exitCodes.empty()) << "ended by itself";
    EXPECT_TRUE(window().isEnabled());
    EXPECT_TRUE(window().isVisible());
    user.choose("MenSerErr");
    act();
    window().close();
    EXPECT_THAT(exitCodes, testing::ElementsAre(0));
  }

  int faults = 0, saved = 0;
  int lostPrinters = 0;  ///< how often a document was to be printed on a printer that was there no more
  std::set<QString> unreachable;  ///< boxes that waited where nobody could answer them

 private:
  /// A box that waits stands on the screen.
  void lookAtBox() {
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr) return;
    const bool onScreen = modal->frameGeometry().intersects(modal->screen()->geometry());
    if (!modal->isVisible() || !modal->isEnabled() || modal->isMinimized() || !onScreen)
      unreachable.insert(modal->objectName());
  }
};

/// The steps of the plain walk are taken in two halves, which can run side by side.
class RandomHalfTest : public RandomWalkTest, public testing::WithParamInterface<unsigned> {};

TEST_P(RandomHalfTest, ClicksKeysAndAnswersAtRandomLeaveTheProgramUsable) {
  Walker walker(&window(), names(), GetParam());
  walker.walk(kPlainSteps);
  EXPECT_GT(walker.commands, kPlainSteps / 20);
  expectUsable(walker);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomHalfTest, testing::Values(20U, 21U));

TEST_F(RandomWalkTest, ErrorsReportsAndUpsetWindowsShutNobodyOutAndLoseNoText) {
  const int seed = qEnvironmentVariableIntValue("VOR_WALK_SEED");
  const unsigned mood = seed > 0 ? static_cast<unsigned>(seed) : kBusySeed;
  std::ofstream log(qEnvironmentVariable("VOR_WALK_LOG").toStdString());
  Walker walker(&window(), names(), mood);
  walker.log = &log;
  walkWithFaults(walker, mood, faultySteps());
  expectUsable(walker);
  EXPECT_GT(walker.commands, faultySteps() / 20);
  if (seed == 0) {
    EXPECT_GE(saved, 2);
    EXPECT_GE(faults, 1);
    EXPECT_GE(lostPrinters, 1);
  }
  std::cout << "commands " << walker.commands << ", figures " << walker.figures << ", faults " << faults
            << ", texts saved " << saved << ", printers lost " << lostPrinters << '\n';
}

/// A walk of its own, for a test that compares several.
class RepeatedWalk : public RandomWalkTest {
 public:
  std::string log() {
    SetUp();
    std::ostringstream lines;
    Walker walker(&window(), names(), 3);
    walker.log = &lines;
    walkWithFaults(walker, 3, kRepeatedSteps);
    return lines.str();
  }
  void TestBody() override {}
};

TEST(RandomWalksTest, ASeedTellsTheWholeWalk) {
  const std::string first = RepeatedWalk().log();
  EXPECT_GE(std::ranges::count(first, '\n'), kRepeatedSteps);
  EXPECT_EQ(RepeatedWalk().log(), first);
}

}  // namespace
}  // namespace vk
