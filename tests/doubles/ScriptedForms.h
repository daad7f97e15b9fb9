#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "doubles/TextComparison.h"
#include "platform/FunctionForms.h"
#include "platform/GridOutput.h"
#include "platform/InputForm.h"
#include "session/Session.h"

namespace vk {

/// The selection and load forms with answers written down beforehand. An unexpected showing, or an answer left
/// over at the end, fails the test.
class ScriptedFunctionForms : public FunctionForms {
 public:
  explicit ScriptedFunctionForms(Session& session) : session_(session) {}
  ~ScriptedFunctionForms() override;

  /// Answers the next `Sel_Fun` by "&Accetta" on these entries.
  void select(int inner, int outer) { pairs_.push_back({true, {inner, outer}}); }
  /// Answers the next `Sel_Fun` by "&Rinuncia".
  void giveUpSelection() { pairs_.push_back({false, {}}); }
  /// Answers the next `Loa_Fun` with this entry; 0 is "&Rinuncia".
  void load(int entry) { entries_.push_back(entry); }
  /// Runs while a form is open.
  std::function<void()> whileOpen;

  bool selectFunction() override;
  int chooseLoadedFunction() override;
  void refillSelection() override { calls.emplace_back("refill selection"); }
  void refillLoadList() override { calls.emplace_back("refill load list"); }

  std::vector<std::string> calls;  ///< refills in order

 private:
  struct Answer {
    bool accepted;
    std::pair<int, int> pair;
  };
  Session& session_;
  std::deque<Answer> pairs_;
  std::deque<int> entries_;
};

/// The input form with answers written down beforehand; what each showing was given is kept in `shown`. An
/// unexpected showing, or an answer left over at the end, fails the test.
class ScriptedInputForm : public InputForm {
 public:
  ~ScriptedInputForm() override;

  /// Answers the next showing by "&Esegui" with these field texts, as many as there are fields.
  void execute(std::vector<std::string> fields) { answers_.push_back({true, std::move(fields)}); }
  /// Answers the next showing by "&Rinuncia".
  void giveUp() { answers_.push_back({false, {}}); }

  bool InpShow(InputTables& tables, Form caller) override;

  std::vector<InputTables> shown;
  std::vector<Form> callers;

 private:
  struct Answer {
    bool executed;
    std::vector<std::string> fields;
  };
  std::deque<Answer> answers_;
};

/// An output window that keeps the requests of all windows opened, and what each refresh showed.
class RecordingOutput : public GridOutput {
 public:
  std::vector<OutputRequest> requests;
  std::vector<CharGrid> refreshed;
  void refresh() override { refreshed.push_back(grid()); }
  void OutShow(const OutputRequest& request) override {
    requests.push_back(request);
    GridOutput::OutShow(request);
  }
};

}  // namespace vk
