#pragma once

#include <string>
#include <vector>

#include "platform/Dialogs.h"
#include "platform/InputForm.h"
#include "platform/MainWindow.h"
#include "session/Session.h"

/// Formulas over the columns of the data set.
namespace vk {

/// Command: shows the form with a title for each axis and a formula for each column. Leaving a formula's field
/// compiles it into the session's compiled model, which is that of the model function again afterwards, whether
/// the user runs the transformation or gives up.
void MenDatTra(Session& session, InputForm& form);

/// Rows of a new column whose formula could not be computed.
struct FailedRows {
  std::string column;
  std::vector<int> rows;  ///< from 1, rising
};

/// What a transformation did.
struct TransformResult {
  bool replaced = false;           ///< titles and columns are new
  std::vector<FailedRows> failed;  ///< the columns that have such rows, in their order
};

/// The action of the form's "&Esegui": replaces titles and columns by what its fields say. All formulas see the
/// old columns; when one of them is bad a box tells, and nothing is changed. A value that cannot be computed is
/// what the evaluation left, and only the result tells of it. The compiled model is that of the model function
/// again afterwards.
TransformResult TransformData(Session& session, Dialogs& dialogs, MainWindow& window);

}  // namespace vk
