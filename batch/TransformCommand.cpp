#include "batch/TransformCommand.h"

#include <iostream>

#include "analysis/Transformation.h"
#include "base/CodePage.h"
#include "batch/DataInput.h"
#include "batch/Json.h"
#include "batch/TerminalPorts.h"
#include "session/DataFiles.h"

namespace vk {
namespace {

/// The form of the transformation, filled in from the command line.
class TransformationForm : public InputForm {
 public:
  TransformationForm(Session& session, Dialogs& dialogs, const TransformArguments& arguments)
      : session_(session), dialogs_(dialogs), arguments_(arguments) {}

  void InpShow(InputTables& tables, Form) override {
    const bool hasXErrors = session_.data.kXpntErr != kFalse;
    if (!arguments_.dx.empty() && !hasXErrors) throw UsageError("--dx: i dati non hanno errori di x");
    const auto enter = [&](int field, const std::string& text) {
      if (!text.empty()) tables.InpValues[field] = textOfWord(text);
    };
    enter(1, arguments_.titleX);
    enter(2, arguments_.titleY);
    enter(3, arguments_.x);
    enter(4, arguments_.y);
    if (hasXErrors) enter(5, arguments_.dx);
    enter(tables.InpFieldCount, arguments_.dy);
    session_.ErrFlag = 0;
    NoMainWindow window;
    replaced_ = TransformData(session_, dialogs_, window);
  }

  bool replaced() const { return replaced_; }

 private:
  Session& session_;
  Dialogs& dialogs_;
  const TransformArguments& arguments_;
  bool replaced_ = false;
};

Json column(const Array<double>& values, int count) {
  Json::List list;
  for (const double value : values.span(1, count)) list.emplace_back(value);
  return list;
}

Json report(const DataSet& data) {
  return Json::Object{
      {"title_x", toUtf8(data.TitleX, CodePage::kCp437)},
      {"title_y", toUtf8(data.TitleY, CodePage::kCp437)},
      {"x", column(data.Xpnt, data.NumPnt)},
      {"y", column(data.Ypnt, data.NumPnt)},
      {"dx", data.kXpntErr ? column(data.ErrXpnt, data.NumPnt) : Json()},
      {"dy", column(data.ErrYpnt, data.NumPnt)},
  };
}

}  // namespace

int runTransform(const TransformArguments& arguments) {
  Session session;
  TerminalFiles files;
  TerminalDialogs dialogs;
  readData(session, files, dialogs, arguments.dataFile);
  TransformationForm form(session, dialogs, arguments);
  MenDatTra(session, form);
  if (!form.replaced()) return kExitBadInput;
  const std::string text = dataFileText(session.data);
  if (!arguments.outputFile.empty()) writeFile(files, arguments.outputFile, text);
  if (arguments.json) {
    std::cout << report(session.data).text() << '\n';
  } else if (arguments.outputFile.empty()) {
    std::cout << terminalText(text);
  }
  return kExitDone;
}

}  // namespace vk
