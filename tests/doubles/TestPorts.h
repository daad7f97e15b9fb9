#pragma once

#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>

#include "commands/Ports.h"
#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "doubles/RecordingReport.h"
#include "doubles/ScriptedDialogs.h"
#include "gral/NoPrinter.h"
#include "platform/GridOutput.h"

namespace vk {

/// Forms that nobody may show.
class UnexpectedForms : public InputForm,
                        public FunctionForms,
                        public ImportForm,
                        public TextEditor,
                        public SettingsPanels {
 public:
  bool InpShow(InputTables&, Form) override { return ADD_FAILURE() << "unexpected input form", false; }
  bool selectFunction() override { return ADD_FAILURE() << "unexpected selection form", false; }
  int chooseLoadedFunction() override { return ADD_FAILURE() << "unexpected load form", 0; }
  void show(const std::string&, std::string, const std::function<bool(const std::string&)>&) override {
    ADD_FAILURE() << "unexpected import form";
  }
  void refillSelection() override {}
  void refillLoadList() override {}
  void OpenEditor(const std::string&, Int16) override { ADD_FAILURE() << "unexpected editor"; }
  void MnuFilRin() override {}
  void MenSerImpDir() override { ADD_FAILURE() << "unexpected panel"; }
  void MenSerImpGra() override { ADD_FAILURE() << "unexpected panel"; }
  bool isOpen() const override { return false; }
  void shut() override {}
};

/// Plot windows of a command that draws none.
class UnexpectedPlots : public PlotWindows {
 public:
  PlotWindow& create() override { throw std::logic_error("unexpected figure"); }
  PlotWindow* active() override { return nullptr; }
  int made() const override { return 0; }
  void closeSince(int) override {}
  void closeAll() override {}
};

/// The ports of a command: the doubles that a test gives, and for the others some that expect nothing.
class TestPorts {
 public:
  template <class... Given>
  explicit TestPorts(Given&... given)
      : ports_{pick<Files>(files_, given...),
               pick<Dialogs>(dialogs_, given...),
               pick<MainWindow>(window_, given...),
               pick<InputForm>(forms_, given...),
               pick<OutputWindow>(output_, given...),
               pick<FunctionForms>(forms_, given...),
               pick<ImportForm>(forms_, given...),
               pick<Clock>(clock_, given...),
               pick<Sound>(sound_, given...),
               pick<Process>(process_, given...),
               pick<Random>(random_, given...),
               pick<TextEditor>(forms_, given...),
               pick<SettingsPanels>(forms_, given...),
               pick<PlotWindows>(plots_, given...),
               pick<ReportWindow>(report_, given...),
               [&printer = pick<Device>(printer_, given...)]() -> Device& { return printer; }} {}
  TestPorts(const TestPorts&) = delete;
  TestPorts& operator=(const TestPorts&) = delete;

  operator Ports&() { return ports_; }

 private:
  /// The one among those given that is such a port.
  template <class Port, class... Given>
  static Port& pick(Port& otherwise, Given&... given) {
    Port* found = &otherwise;
    const auto take = [&](auto& one) {
      if constexpr (std::is_base_of_v<Port, std::remove_reference_t<decltype(one)>>) found = &one;
    };
    (take(given), ...);
    return *found;
  }

  MemoryFiles files_;
  ScriptedDialogs dialogs_;
  RecordingMainWindow window_;
  UnexpectedForms forms_;
  GridOutput output_;
  StillClock clock_;
  RecordingSound sound_;
  RecordingProcess process_;
  ScriptedRandom random_{};
  UnexpectedPlots plots_;
  RecordingReport report_;
  NoPrinter printer_;
  Ports ports_;
};

}  // namespace vk
