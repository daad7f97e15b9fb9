#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "commands/CommandTable.h"
#include "commands/DisplayRefresh.h"
#include "doubles/ControlNames.h"
#include "session/Session.h"
#include "ui/Editor.h"
#include "ui/FaultyDesktop.h"

namespace vk {
namespace {

/// The program with data, a function and a figure, on ports of which one fails.
class BrokenProgram : public FaultyDesktop<FaultyFiles, FaultyDialogs> {
 public:
  BrokenProgram();

  /// Opens the editor on the data file and types something good.
  void edit();
};

BrokenProgram::BrokenProgram() {
  files.content["/a.dat"] = "x\r\ny\r\n3\r\n0 1 .1\r\n1 3 .1\r\n2 5.1 .1\r\n";
  files.content["/b.dat"] = "p\r\nq\r\n4 1\r\n0 1 .3 .2\r\n1 2 .3 .2\r\n2 3.1 .3 .2\r\n3 4 .3 .2\r\n";
  files.content["/bad.dat"] = "p\r\nq\r\n4\r\n0 uno .1\r\n";
  files.content["/f.fcn"] = "A,B\r\nA*x+B\r\nretta\r\n";
  files.content["/g.fcn"] = "C\r\nC*x\r\nuna\r\nD\r\nD/x\r\ndue\r\n";
  files.content["/bad.fcn"] = "C\r\nC*(x\r\nerrata\r\n";
  files.content["/g.gra"] =
      "\\XSCALA(5,25,0,8)\r\n\\DATI(/b.dat)\r\n\\SCRIVI(5,5,0,0,20,abc)\r\n\\FUNZIONE(x/2)\r\n";
  files.content["/h.gra"] = "%\r\n";
  mainMod.StartUp([] {});
  const auto read = [&](Control control, const char* file) {
    dialogs.file = file;
    run(control);
  };
  read(Control::MenDatLet, "/a.dat");
  read(Control::MenFunLet, "/f.fcn");
  read(Control::MenGraLetFil, "/g.gra");
  fitAndDraw();
  input.fields.clear();
  for (const Control control : {Control::MenDatOld0, Control::MenGraOld0}) run(control);
}

void BrokenProgram::edit() {
  dialogs.file = "/a.dat";
  run(Control::MenDatMod);
  editorForm.text = "x\r\ny\r\n2\r\n0 1 .1\r\n1 3 .1\r\n";
}

/// A command, and what comes before it.
struct BrokenCommand {
  std::string name;
  std::function<void(BrokenProgram&)> run;
  std::function<void(BrokenProgram&)> prepare = [](BrokenProgram&) {};
};

BrokenCommand menuCommand(Control control, const std::string& file = "/neu",
                          std::vector<std::string> fields = {}, bool lists = false) {
  return {std::string(commandOf(control).name), [control](BrokenProgram& program) { program.run(control); },
          [=](BrokenProgram& program) {
            program.dialogs.file = file;
            program.input.fields = fields;
            if (lists) program.run(Control::MenSerErr);
          }};
}

/// A command that reads: it asks for its file, while the entry of the other list stays picked.
BrokenCommand readingCommand(Control control, RecentList FileSettings::*list,
                             const std::string& file = "/neu", bool lists = false) {
  BrokenCommand command = menuCommand(control, file, {}, lists);
  command.prepare = [list, prepare = command.prepare](BrokenProgram& program) {
    prepare(program);
    (program.session.files.*list).pick = 0;
  };
  return command;
}

/// What no menu of the main window runs: the editor, at work on a file.
BrokenCommand editorCommand(const char* name, void (Editor::*handler)()) {
  return {
      name,
      [handler](BrokenProgram& program) { program.mainMod.guarded([&] { (program.editor.*handler)(); }); },
      [](BrokenProgram& program) {
        program.clipboard.held = "5 6 .1";
        program.edit();
      }};
}

/// A button of the output window, under a drawing or under a list of errors.
BrokenCommand outputCommandOn(const char* name, bool drawing, std::function<void(BrokenProgram&)> press) {
  return {name,
          [press = std::move(press)](BrokenProgram& program) {
            program.mainMod.guarded([&] { press(program); });
          },
          [drawing](BrokenProgram& program) {
            if (!drawing) program.run(Control::MenSerErr);
            program.dialogs.file = "/bad.dat";
            program.session.files.RecentData.pick = 0;
            program.input.fields = {"1", "1", "1", "0", "-.5", "0"};
            program.run(drawing ? Control::MenSerPro : Control::MenDatLet);
          }};
}

/// Every command of the menus.
std::vector<BrokenCommand> brokenMenus() {
  std::vector<BrokenCommand> all{
      readingCommand(Control::MenDatLet, &FileSettings::RecentData, "/b.dat"),
      readingCommand(Control::MenDatLet, &FileSettings::RecentData, "/bad.dat"),
      readingCommand(Control::MenDatLet, &FileSettings::RecentData, "/bad.dat", true),
      readingCommand(Control::MenDatOld0, &FileSettings::RecentData),
      menuCommand(Control::MenDatMod, "/b.dat"),
      menuCommand(Control::MenDatMod, "/neu.dat"),
      menuCommand(Control::MenDatSav, "/b.dat"),
      menuCommand(Control::MenDatTra, "", {"t", "s", "x*2", "y"}),
      menuCommand(Control::MenDatSim, "", {"0", "10", "11", "1", "1", "1", "1"}),
      menuCommand(Control::MenFunLet, "/g.fcn"),
      menuCommand(Control::MenFunLet, "/bad.fcn"),
      menuCommand(Control::MenFunLet, "/bad.fcn", {}, true),
      menuCommand(Control::MenFunOld0),
      menuCommand(Control::MenFunMod, "/f.fcn"),
      menuCommand(Control::MenFunCar),
      menuCommand(Control::MenGraDatVis),
      menuCommand(Control::MenGraFunVis),
      menuCommand(Control::MenGraDifVis),
      menuCommand(Control::MenGraFunGra, "/g.gra"),
      menuCommand(Control::MenGraDifSav),
      readingCommand(Control::MenGraLetFil, &FileSettings::RecentGra, "/h.gra"),
      readingCommand(Control::MenGraOld0, &FileSettings::RecentGra),
      menuCommand(Control::MenGraVisFil),
      menuCommand(Control::MenGraPriFil),
      menuCommand(Control::MenAdaPar),
      menuCommand(Control::MenAdaAda),
      menuCommand(Control::MenSerCal),
      menuCommand(Control::MenSerPro, "", {"1", "1", "1", "0", "-.5", "0"}),
      menuCommand(Control::MenSerImpDir),
      menuCommand(Control::MenSerImpGra),
      menuCommand(Control::MenSerErr),
  };
  all.push_back({"MenFunSel", [](BrokenProgram& program) { program.run(Control::MenFunSel); },
                 [](BrokenProgram& program) { program.functions.outer = 2; }});
  all.push_back({"MenGraFunVis with beeps",
                 [](BrokenProgram& program) { program.run(Control::MenGraFunVis); },
                 [](BrokenProgram& program) {
                   constexpr int kLogarithm = 6;
                   program.functions.outer = kLogarithm;
                   program.run(Control::MenFunSel);
                   program.input.fields = {"-1", "1", "1", "1", "1", "1"};
                   program.run(Control::MenAdaPar);
                 }});
  return all;
}

/// Every command of the menus, and what the editor and the output window do.
std::vector<BrokenCommand> brokenCommands() {
  const auto print = [](BrokenProgram& program) {
    program.output.printOn(program.textPrinter, program.session.settings.FontEdit);
  };
  const auto copy = [](BrokenProgram& program) { program.output.copyTo(program.clipboard); };
  const auto save = [](BrokenProgram& program) { program.output.saveRoutine()(); };
  std::vector<BrokenCommand> all = brokenMenus();
  all.push_back(editorCommand("MnuFilSav", &Editor::MnuFilSav));
  all.push_back(editorCommand("MnuModCop", &Editor::MnuModCop));
  all.push_back(editorCommand("MnuModInc", &Editor::MnuModInc));
  all.push_back(editorCommand("MnuPri", &Editor::MnuPri));
  all.push_back(outputCommandOn("Salva File", true, save));
  all.push_back(outputCommandOn("Stampa of a drawing", true, print));
  all.push_back(outputCommandOn("Stampa of a list", false, print));
  all.push_back(outputCommandOn("Copia of a drawing", true, copy));
  all.push_back(outputCommandOn("Copia of a list", false, copy));
  return all;
}

template <class T>
std::ostream& operator<<(std::ostream& text, const Array<T>& items) {
  for (int i = 0; i <= items.upper(); ++i) text << ' ' << items[i];
  return text;
}

std::string dataState(const Session& s) {
  std::ostringstream text;
  text << "data " << s.loaded.DataFile << ' ' << s.loaded.DataPath << ' ' << s.loaded.DataDefined << ' '
       << s.loaded.data.TitleX << ' ' << s.loaded.data.TitleY << ' ' << s.loaded.data.NumPnt << ' '
       << s.loaded.data.kXpntErr << "\nx" << s.loaded.data.Xpnt << "\ny" << s.loaded.data.Ypnt << "\ndx"
       << s.loaded.data.ErrXpnt << "\ndy" << s.loaded.data.ErrYpnt << "\neffective" << s.loaded.data.ErrEff;
  return text.str();
}

std::string modelState(const Session& s) {
  std::ostringstream text;
  text << "\nfunctions " << s.loaded.FunFile << ' ' << s.loaded.FunFileRead << ' '
       << s.loaded.catalogue.inner.size();
  for (const auto& entry : s.loaded.catalogue.file.entries) text << ' ' << entry.description;
  text << "\nmodel " << s.analysis.FunDefined << ' ' << s.analysis.fun.FunctionText << ' '
       << s.analysis.fun.InnerIndex << ',' << s.analysis.fun.OuterIndex << ' ' << s.analysis.par.ParNames
       << ' ' << s.analysis.par.FreeCount << ' ' << s.analysis.ParVar << ' ' << s.analysis.ParametersSet
       << ':' << s.analysis.par.ParValues << ',' << s.analysis.par.ParDeltas << "\ncompiled "
       << s.analysis.model.loaded().nVar << ',' << s.analysis.model.loaded().nPar << ' '
       << s.analysis.model.loaded().LastSlot << ' ' << s.analysis.model.loaded().Code << ' '
       << s.analysis.model.loaded().OperandMap << s.analysis.model.loaded().Values << ','
       << s.analysis.model.loaded().Slots;
  return text.str();
}

std::string recentState(const Session& s) {
  std::ostringstream text;
  text << "\nrecent";
  for (const RecentList* list : {&s.files.RecentData, &s.files.RecentFun, &s.files.RecentGra}) {
    text << ' ' << list->RecentCount << list->files << ',' << list->paths << " picked " << list->pick << ';';
  }
  return text.str();
}

/// The session and its windows as a text, line by line.
std::string brokenState(const BrokenProgram& program) {
  const Session& s = program.session;
  std::ostringstream text;
  text << dataState(s) << modelState(s) << recentState(s);
  text << "\ngraphics " << s.loaded.GraFile << ' ' << s.loaded.GraDefined;
  for (const std::string& figure : s.figures.GraphText) text << ' ' << figure.size();
  text << ' ' << s.figures.DiffText.size();
  text << "\nswitches " << s.analysis.PropagationMode << s.settings.ShowErrors << s.analysis.SimFirstTime
       << ' ' << s.files.DataDir << ' ' << s.files.GraDir << ' ' << s.analysis.monteCarlo.McBinCount;
  text << "\nwindows " << program.output.isOpen() << ' ' << program.plots.made() << ' '
       << program.editorForm.visible << ' ' << (program.editorForm.visible ? program.editorForm.text : "")
       << ' ' << program.panels.isOpen() << ' ' << program.window.enabled << ' ' << program.window.caption;
  for (const auto& [control, on] : program.window.menuEnabled) text << '\n' << control << ' ' << on;
  for (const auto& [control, shown] : program.window.menuVisible) {
    text << '\n' << control << ' ' << shown;
    if (shown && program.window.menuCaption.contains(control))
      text << ' ' << program.window.menuCaption.at(control);
  }
  for (const auto& [control, checked] : program.window.menuChecked) text << '\n' << control << ' ' << checked;
  for (const auto& [number, panel] : program.window.panels) text << '\n' << number << ' ' << panel;
  return text.str();
}

/// Whether the last box told the end of a command.
bool toldRuntimeError(const FaultyDialogs& dialogs) {
  return !dialogs.boxes.empty() && dialogs.boxes.back().starts_with("Errore di run-time '");
}

/// The program after a fault: it goes on, nothing is half done.
void expectUsable(BrokenProgram& program) {
  EXPECT_EQ(program.window.enabled, !program.editorForm.visible);
  if (program.panels.isOpen()) program.panels.CmdWrkDir(0);
  const SessionDisplay display = sessionDisplay(program.session);
  for (int panel = 1; panel <= 5; ++panel) {
    EXPECT_EQ(program.window.panels[panel], display.panels[static_cast<std::size_t>(panel - 1)]);
  }
  const int shown = program.session.settings.ShowErrors;
  program.run(Control::MenSerErr);
  EXPECT_NE(program.session.settings.ShowErrors, shown);
}

/// Calls of a hot port are tried more and more sparsely.
int nextCall(int call) {
  constexpr int kEachOfTheFirst = 16;
  return call + 1 + (call > kEachOfTheFirst ? call / 4 : 0);
}

/// Lets call after call of one port fail until the command comes to its end without meeting the fault; gives how
/// often that ended the command.
int breakCommand(const BrokenCommand& command, std::size_t port) {
  // What each file may hold in the end: what it held before, or what an unbroken command writes.
  BrokenProgram unbroken;
  command.prepare(unbroken);
  command.run(unbroken);
  int ended = 0;
  for (int call = 1;; call = nextCall(call)) {
    BrokenProgram program;
    command.prepare(program);
    const std::string before = brokenState(program);
    const auto filesBefore = program.files.content;
    const bool editing = program.editorForm.visible;
    program.dialogs.boxes.clear();
    const auto [name, fault] = program.faults.all().at(port);
    SCOPED_TRACE(command.name + ", " + name + ", call " + std::to_string(call));
    fault->arm(call, call % 2 == 0 ? int{kOutOfMemory} : int{kDeviceIoError});
    command.run(program);
    if (!fault->fired()) return ended;
    if (toldRuntimeError(program.dialogs)) {
      ++ended;
      const bool editorHasClosed = editing && !program.editorForm.visible;
      if (!editorHasClosed) {
        EXPECT_EQ(brokenState(program), before);
      }
    }
    for (const auto& [path, bytes] : program.files.content) {
      const bool old = filesBefore.contains(path) && filesBefore.at(path) == bytes;
      EXPECT_TRUE(old || bytes == unbroken.files.content[path]) << path;
    }
    fault->arm(0, 0);
    expectUsable(program);
    if (testing::Test::HasFailure()) return ended;
  }
}

class BrokenPorts : public testing::TestWithParam<std::size_t> {};

TEST_P(BrokenPorts, EndTheCommandAndNeverTheProgram) {
  int ended = 0;
  for (const BrokenCommand& command : brokenCommands()) ended += breakCommand(command, GetParam());
  EXPECT_GT(ended, 0) << "the port has never failed outside a guard";
}

INSTANTIATE_TEST_SUITE_P(OneByOne, BrokenPorts, testing::Range(std::size_t{0}, Faults().all().size()),
                         [](const auto& tested) { return Faults().all().at(tested.param).first; });

}  // namespace
}  // namespace vk
