#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "memory/ScarceMemory.h"
#include "ui_qt/Desktop.h"

/// The windows while large blocks of memory are refused: data, texts and pixels, which only this program asks for. What
/// is smaller the toolkit asks for in places that nobody can guard.
namespace vk {
namespace {

constexpr std::size_t kLargeBlock = 64 * 1024;
constexpr int kPoints = 9000;  // their numbers fill a block
constexpr int kCopyPlace = 2, kPrintPlace = 3;

/// Points on a line, with errors.
std::string manyPoints(int count, double slope) {
  std::ostringstream text;
  text << "x\r\ny\r\n" << count << "\r\n";
  for (int i = 0; i < count; ++i) text << i << ' ' << slope * i + i % 2 << " .5\r\n";
  return text.str();
}

/// A square grid of values.
std::string wideGrid(int side) {
  std::ostringstream text;
  text << "x\ny\nz\n" << side << ' ' << side << '\n';
  for (int line = 0; line < side + 2; ++line) {
    for (int i = 0; i < side; ++i) text << (line < 2 ? i : (i * line) % 7) << ' ';
    text << '\n';
  }
  return text.str();
}

/// Somebody who answers whatever window waits for him, and keeps what he was told.
class Answerer {
 public:
  Answerer() {
    QObject::connect(&clock_, &QTimer::timeout, [this] { look(); });
  }
  void begin() { clock_.start(1); }
  QString file;
  std::vector<QString> fields;
  int button = 0;  ///< of the message dialog
  std::vector<std::string> boxes;

 private:
  void look() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible()) return;
    const QString name = modal->objectName();
    if (name == "PlainBox") {
      boxes.push_back(qobject_cast<QMessageBox*>(modal)->text().toStdString());
      QTest::keyClick(modal, Qt::Key_Return);
    } else if (name == "FileDialog") {
      auto* edit = control<QLineEdit>(modal, "fileNameEdit");
      edit->setText(file);
      QTest::keyClick(edit, Qt::Key_Return);
    } else if (name == "InpFrm") {
      fill(modal);
    } else if (name == "FrmMsg") {
      QTest::mouseClick(control<QPushButton>(modal, QString("CmdMsg(%1)").arg(button)), Qt::LeftButton);
    }
  }
  void fill(QWidget* form) {
    for (const QString& text : fields) {
      auto* box = control<QLineEdit>(form, "txtGet");
      box->setText(text);
      QTest::keyClick(box, Qt::Key_Return);
    }
    QTest::mouseClick(control<QPushButton>(form, "cmdEse"), Qt::LeftButton);
  }

  QTimer clock_;
};

/// What the toolkit says of errors that its events have let through.
bool leaked = false;

void noteLeak(QtMsgType, const QMessageLogContext&, const QString& text) {
  if (text.contains("exception thrown from an event handler")) leaked = true;
}

/// A command, and what comes before it.
struct LargeCommand {
  std::string name;
  std::function<void()> run;
  std::function<void()> prepare = [] {};
};

class LargeBlocks : public Desktop {
 protected:
  void SetUp() override {
    start();
    folder.make("A.DAT", manyPoints(kPoints, 2));
    folder.make("B.DAT", manyPoints(kPoints + 1, 3));
    folder.make("C.DAT", manyPoints(kPoints / 10, 2));
    folder.make("piano.grd", wideGrid(100));
    folder.make("piano.gra", "\\XSCALA(5,25,0,99)\r\n\\YSCALA(5,15,0,99)\r\n\\CONTORNI(8,2,1," +
                                 folder / "piano.grd" + ")\r\n");
    chooseFunction(0, 1);
    application.open({folder / "A.DAT"});
    user.choose("MenAdaPar");
    fillForm({"1", "0", "1", "1"});
    act();
    user_.begin();
  }
  void run(Control control) { application.mainMod().run(control); }
  LargeCommand menu(const std::string& name, Control control, std::vector<QString> fields = {}) {
    return {name, [this, control] { run(control); }, [this, fields] { user_.fields = fields; }};
  }
  std::vector<LargeCommand> commands();
  void onFigure(int button) {
    user_.button = button;
    QTest::mouseClick(windowNamed("GralFrm"), Qt::LeftButton, {}, QPoint(200, 150));
    user_.button = 0;
  }
  /// The program as it was before every command.
  void goBack() {
    for (const char* name : {"FrmOut", "FrmDia"}) {
      if (QWidget* shown = windowNamed(name)) shown->close();
    }
    if (QWidget* editor = windowNamed("FrmEdi")) {
      control<QAction>(editor, "MnuFilRin")->trigger();
    }
    while (QWidget* figure = windowNamed("GralFrm")) figure->close();
    user_.fields = {"1", "0", "1", "1"};
    application.open({folder / "A.DAT"});
    run(Control::MenAdaPar);
    user_.fields.clear();
    user_.boxes.clear();
    QCoreApplication::processEvents();
  }
  void showReport() {
    run(Control::MenAdaAda);
    application.mainMod().diagnose();
    windowNamed("FrmDia")->resize(700, 500);
    QCoreApplication::processEvents();
  }
  static void resizeReport() {
    windowNamed("FrmDia")->resize(760, 560);
    QCoreApplication::processEvents();
  }
  std::string state();
  std::string figures();
  int refuseOneByOne(const LargeCommand& command);

  Answerer user_;
};

std::vector<LargeCommand> LargeBlocks::commands() {
  const auto draw = [this] {
    application.open({folder / "C.DAT"});
    run(Control::MenGraFunVis);
  };
  return {
      {"open", [this] { application.open({folder / "B.DAT"}); }},
      menu("fit", Control::MenAdaAda),
      menu("simulate", Control::MenDatSim, {"0", "10", "9000", ".25", "1", "0", "0"}),
      menu("transform", Control::MenDatTra, {"a", "b", "x*2", "y", "dy"}),
      menu("propagate", Control::MenSerPro, {"1", "1", "1", "0", "-.5", ".1"}),
      menu("figure", Control::MenGraFunVis),
      {"copy", [this] { onFigure(kCopyPlace); }, draw},
      {"print", [this] { onFigure(kPrintPlace); },
       [this, draw] {
         std::filesystem::remove(folder / "stampa.pdf");
         user_.file = QString::fromStdString(folder / "stampa.pdf");
         draw();
       }},
      {"paint", [] { windowNamed("GralFrm")->repaint(); }, draw},
      {"report", [] { resizeReport(); }, [this] { showReport(); }},
      {"grid", [this] { run(Control::MenGraVisFil); }, [this] { application.open({folder / "piano.gra"}); }},
      {"edit", [this] { run(Control::MenDatMod); },
       [this] { user_.file = QString::fromStdString(folder / "A.DAT"); }},
  };
}

std::string LargeBlocks::state() {
  std::ostringstream text;
  const DataSet& data = session().loaded.data;
  double sum = 0;
  for (int i = 1; i <= data.NumPnt; ++i) sum += data.Xpnt[i] + data.Ypnt[i];
  text << session().loaded.DataFile << ' ' << session().loaded.GraFile << ' ' << data.NumPnt << ' ' << sum
       << ' ' << data.TitleX << ' ' << session().analysis.fun.FunctionText << ' '
       << session().analysis.ParametersSet;
  text << '\n';
  for (int number = 1; number <= 5; ++number) text << panel(number).toStdString() << '\n';
  for (const QAction* entry : window().findChildren<QAction*>()) {
    if (entry->isEnabled())
      text << entry->objectName().toStdString() << ' ' << entry->text().toStdString() << '\n';
  }
  return text.str();
}

std::string LargeBlocks::figures() {
  std::string text = session().figures.DiffText;
  for (const std::string& figure : session().figures.GraphText) text += figure;
  return text;
}

/// Gives how often the user was told.
int LargeBlocks::refuseOneByOne(const LargeCommand& command) {
  const auto goTo = [&] {
    goBack();
    command.prepare();
  };
  for (int i = 0; i < RecentList::kCapacity; ++i)
    goTo();  // until the lists of recent files come the same again
  command.run();
  const std::string after = state();
  EXPECT_TRUE(user_.boxes.empty()) << command.name << ": " << user_.boxes.front();
  int told = 0;
  // They grow sparser; the long run leaves out few.
  const long share = std::getenv("VOR_ALL_FAULTS") != nullptr ? 100 : 2;
  for (long request = 1;; request += 1 + request / share) {
    goTo();
    const std::string before = state(), figuresBefore = figures();
    SCOPED_TRACE(command.name + ", block " + std::to_string(request));
    bool failed = false;
    {
      const ScarceMemory scarce({.request = request, .least = kLargeBlock, .own = true});
      command.run();
      QCoreApplication::processEvents();
      failed = scarce.failed();
    }
    if (!failed) return told;
    if (!user_.boxes.empty()) {
      ++told;
      EXPECT_EQ(user_.boxes, std::vector<std::string>{"Errore di run-time '7':\n\nMemoria esaurita"});
      EXPECT_EQ(state(), before);
      EXPECT_EQ(figures(), figuresBefore);
    } else {
      // What draws a figure are guarded statements, of which one that fails is left out.
      EXPECT_EQ(state(), after);
    }
    EXPECT_TRUE(exitCodes.empty());
    if (HasFailure()) return told;
  }
}

TEST_F(LargeBlocks, ThatAreRefusedEndTheCommandAndLeaveTheProgramAsItWas) {
  int told = 0;
  leaked = false;
  const auto before = qInstallMessageHandler(noteLeak);
  for (const LargeCommand& command : commands()) {
    told += refuseOneByOne(command);
    EXPECT_FALSE(leaked) << command.name;
  }
  qInstallMessageHandler(before);
  EXPECT_GT(told, 20);
}

}  // namespace
}  // namespace vk
