#include <random>

#include "commands/DataCommands.h"
#include "commands/DisplayRefresh.h"
#include "commands/FilePicking.h"
#include "commands/Preconditions.h"
#include "commands/ServiceCommands.h"
#include "commands/StartUp.h"
#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "doubles/ScriptedDialogs.h"
#include "doubles/ScriptedForms.h"
#include "doubles/TestPorts.h"

/// What holds over whole runs of commands.
namespace vk {
namespace {

/// A program with its window, for one user.
struct Desk {
  explicit Desk(MemoryFiles& files) {
    setFirstFolders(session, files);
    setFirstMenus(window);
    Msg(session, window);
  }
  void read(MemoryFiles& files, const std::string& name) {
    dialogs.pick(name);
    MenDatLet(session, TestPorts(files, dialogs, output, window));
  }

  Session session;
  ScriptedDialogs dialogs;
  RecordingOutput output;
  RecordingMainWindow window;
};

TEST(TwoSessions, LiveSideBySide) {
  MemoryFiles files;
  files.content["/a/A.DAT"] = "t\r\ns\r\n2\r\n1 2 .1\r\n2 4 .2\r\n";
  files.content["/b/B.TXT"] = "u\r\nv\r\n3 1\r\n1 2 .1 .1\r\n2 4 .2 .1\r\n3 6 .2 .1\r\n";
  Desk first(files), second(files);
  first.read(files, "/a/A.DAT");
  second.read(files, "/b/B.TXT");
  MenSerErr(second.session, TestPorts(second.window));

  EXPECT_EQ(first.session.loaded.data.NumPnt, 2);
  EXPECT_EQ(second.session.loaded.data.NumPnt, 3);
  EXPECT_EQ(first.session.loaded.data.kXpntErr, 0);
  EXPECT_EQ(second.session.loaded.data.kXpntErr, -1);
  EXPECT_EQ(first.session.files.DataDir, "/a");
  EXPECT_EQ(second.session.files.DataExt, "TXT");
  EXPECT_EQ(first.session.settings.ShowErrors, 0);
  EXPECT_EQ(first.window.panels[1], "Dati: A.DAT");
  EXPECT_EQ(second.window.panels[1], "Dati: B.TXT");
  EXPECT_EQ(first.session.files.RecentData.files[1], "/a/A.DAT");
  EXPECT_EQ(second.session.files.RecentData.files[1], "/b/B.TXT");
}

/// A user who answers by chance.
class RandomDialogs : public Dialogs {
 public:
  RandomDialogs(std::mt19937& chance, std::vector<std::string> names)
      : chance_(chance), names_(std::move(names)) {}
  int Get_Msg(const MessageRequest& request) override {
    return 1 + below(static_cast<int>(request.captions.size()));
  }
  void plainBox(const WindowText&, const WindowText&) override {}
  std::optional<std::string> fileDialog(const FileRequest&) override {
    const int which = below(static_cast<int>(names_.size()) + 1);
    if (which == 0) return std::nullopt;
    return names_[static_cast<std::size_t>(which - 1)];
  }
  int below(int limit) { return static_cast<int>(chance_() % static_cast<unsigned>(limit)); }

 private:
  std::mt19937& chance_;
  std::vector<std::string> names_;
};

void expectFlags(const Session& session) {
  for (const Flag flag :
       {session.loaded.DataDefined, session.loaded.FunFileRead, session.analysis.FunDefined,
        session.analysis.ParametersSet, session.analysis.ParVar, session.loaded.GraDefined,
        session.settings.ShowErrors, session.analysis.PropagationMode, session.figures.Landscape,
        session.settings.BeepOn, session.loaded.data.kXpntErr, session.analysis.SimFirstTime}) {
    ASSERT_TRUE(flag == -1 || flag == 0) << flag;
  }
}

TEST(Flags, AreExactlyMinusOneOrZeroAfterEveryCommand) {
  std::mt19937 chance(1);
  MemoryFiles files;
  files.content = {{"/GOOD.DAT", "t\r\ns\r\n2 1\r\n1 2 .1 .1\r\n2 4 .2 .1\r\n"},
                   {"/MORE.DAT", "t\ns\n9\n1 2 .1\n2 4 .2\n3 3 3\n"},
                   {"/BAD.DAT", "t\r\ns\r\nx\r\n1 2 .1\r\n"},
                   {"/A.GRA", ""}};
  files.notWritable.insert("/LOCKED.DAT");
  RandomDialogs dialogs(chance, {"/good.dat", "/MORE.DAT", "/BAD.DAT", "/A.GRA", "/NONE.DAT", "/LOCKED.DAT"});
  Session session;
  RecordingOutput output;
  RecordingMainWindow window;
  RecordingProcess process;
  const std::vector<std::function<void()>> commands{
      [&] { MenDatLet(session, TestPorts(files, dialogs, output, window)); },
      [&] { MenDatSav(session, TestPorts(files, dialogs)); },
      [&] { MenGraLetFil(session, TestPorts(files, dialogs, window)); },
      [&] { MenSerErr(session, TestPorts(window)); },
      [&] { MenSerCal(session, TestPorts(files, process, dialogs)); },
      [&] { canDrawFigure(session, dialogs, 1 + dialogs.below(3)); },
      [&] { canFit(session, TestPorts(dialogs)); },
      [&] {
        // A user can click only the entries that are shown.
        const int kind = 1 + 2 * dialogs.below(2);
        RecentList& list = recentList(session, kind);
        list.pick = dialogs.below(list.RecentCount + 1);
      },
  };
  for (int step = 0; step < 3000; ++step) {
    commands[static_cast<std::size_t>(dialogs.below(static_cast<int>(commands.size())))]();
    expectFlags(session);
    ASSERT_EQ(session.loaded.data.Xpnt.upper(), session.loaded.data.NumPnt);
    ASSERT_LE(session.files.RecentData.RecentCount, 4);
  }
  EXPECT_EQ(session.loaded.DataDefined, -1);
}

}  // namespace
}  // namespace vk
