#include <QPlainTextEdit>

#include "base/RuntimeError.h"
#include "platform/Files.h"
#include "ui_qt/Desktop.h"
#include "ui_qt/Walker.h"

namespace vk {
namespace {

// Of 2,000 steps under the sanitizers one half is plain and one meets faults; without them the second is cheaper.
#ifdef VOR_SANITIZED
constexpr int kSteps = 1'000, kStepsWithFaults = 1'000;
#else
constexpr int kSteps = 1'000, kStepsWithFaults = 2'000;
#endif
/// Another length of the walk with faults is asked for by the environment, as checks/full does: VOR_WALK_STEPS=20000.
int faultySteps() {
  const int wanted = qEnvironmentVariableIntValue("VOR_WALK_STEPS");
  return wanted > 0 ? wanted : kStepsWithFaults;
}

/// A mood that soon saves texts and meets faults; the usual one does neither in its first 2000 steps.
constexpr unsigned kBusyMood = 27;

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
  /// Signs that are entered in a file of ASCII are saved in UTF-8.
  bool isSavedAs(const std::string& bytes) const {
    const std::string text = withoutTail(text_);
    return bytes == text || bytes == toUtf8(text, CodePage::kCp437);
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

class RandomWalkTest : public Desktop {
 protected:
  void SetUp() override { start(); }
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
            QString::fromStdString(folder / "salvata.dat"),
            QString::fromStdString(folder / "stampa.pdf"),
            QString::fromStdString(folder / "manca.dat")};
  }
  void expectUsable(const Walker& walker, int steps) {
    EXPECT_TRUE(exitCodes.empty()) << "ended by itself";
    EXPECT_TRUE(window().isEnabled());
    EXPECT_TRUE(window().isVisible());
    EXPECT_GT(walker.commands, steps / 20);
    EXPECT_GT(walker.figures, steps / 1000);
    user.choose("MenSerErr");
    act();
  }
};

/// The steps of the plain walk are taken in two halves, which can run side by side.
class RandomHalfTest : public RandomWalkTest, public testing::WithParamInterface<unsigned> {};

TEST_P(RandomHalfTest, ClicksKeysAndAnswersAtRandomLeaveTheProgramUsable) {
  Walker walker(&window(), names(), GetParam());
  walker.walk(kSteps / 2);
  expectUsable(walker, kSteps / 2);
}

INSTANTIATE_TEST_SUITE_P(Moods, RandomHalfTest, testing::Values(20U, 21U));

TEST_F(RandomWalkTest, ErrorsReportsAndMinimisedWindowsShutNobodyOutAndLoseNoText) {
  std::vector<QString> known = names();
  known.push_back(file("grande.gra", std::string(40001, 'a')));
  Walker walker(&window(), known, kBusyMood);
  walker.tidiness = 8;
  walker.minimises = true;
  WatchedText text(walker, files);
  walker.beforeStep = [&text] { text.look(); };
  int faults = 0;
  std::mt19937 generator{12};
  files.onAccess = [&] {
    static constexpr int kErrors[]{57, 62, 70, 75, 76};
    if (generator() % 100 >= kFaults) return;
    ++faults;
    throw RuntimeError(kErrors[generator() % std::size(kErrors)]);
  };
  const int steps = faultySteps();
  walker.walk(steps);
  files.onAccess = nullptr;
  text.look();
  window().showNormal();
  EXPECT_THAT(text.losses, testing::IsEmpty());
  EXPECT_GE(text.saved, 2 + steps / 2000);
  EXPECT_GE(faults, 1 + steps / 2000);
  expectUsable(walker, steps);
}

}  // namespace
}  // namespace vk
