#include "batch/TransformCommand.h"

#include <iostream>

#include "base/CodePage.h"
#include "batch/DataInput.h"
#include "batch/Json.h"
#include "batch/TerminalPorts.h"
#include "commands/TransformationCommand.h"
#include "data/DataFiles.h"

namespace vk {
namespace {

/// The form of the transformation, filled in from the command line.
class TransformationForm : public InputForm {
 public:
  TransformationForm(Session& session, Dialogs& dialogs, const TransformArguments& arguments)
      : session_(session), dialogs_(dialogs), arguments_(arguments) {}

  void InpShow(InputTables& tables, Form) override {
    const bool hasXErrors = session_.loaded.data.kXpntErr != kFalse;
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
    result_ = TransformData(session_, dialogs_, window);
  }

  const TransformResult& result() const { return result_; }

 private:
  Session& session_;
  Dialogs& dialogs_;
  const TransformArguments& arguments_;
  TransformResult result_;
};

/// "3, 7-9, 12": row numbers, three or more that follow one another as a range.
std::string rowList(const std::vector<int>& rows) {
  std::string list;
  for (std::size_t i = 0; i < rows.size();) {
    std::size_t last = i;
    while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1) ++last;
    if (last < i + 2) last = i;
    list += (list.empty() ? "" : ", ") + std::to_string(rows[i]);
    if (last > i) list += "-" + std::to_string(rows[last]);
    i = last + 1;
  }
  return list;
}

void tellFailedRows(const std::vector<FailedRows>& failed) {
  std::string line;
  for (const FailedRows& column : failed) {
    line += (line.empty() ? "transform: " : "; ") + ("formula di " + column.column) +
            " NON calcolabile nelle righe " + rowList(column.rows);
  }
  std::cerr << line << '\n';
}

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
  loadData(session, files, dialogs, arguments.dataFile);
  TransformationForm form(session, dialogs, arguments);
  MenDatTra(session, form);
  const TransformResult& result = form.result();
  if (!result.replaced) return kExitBadInput;
  if (!result.failed.empty()) {
    tellFailedRows(result.failed);
    if (!arguments.anyway) return kExitFailed;
  }
  const std::string text = dataFileText(session.loaded.data);
  if (!arguments.outputFile.empty()) writeFile(files, arguments.outputFile, text);
  if (arguments.json) {
    std::cout << report(session.loaded.data).text() << '\n';
  } else if (arguments.outputFile.empty()) {
    std::cout << terminalText(text);
  }
  return result.failed.empty() ? kExitDone : kExitFailed;
}

}  // namespace vk
