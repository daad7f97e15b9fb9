#pragma once

#include "analysis/Transformation.h"
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

/// The action of the form's "&Esegui": replaces titles and columns by what its fields say. When a formula is bad a box
/// tells, and nothing is changed. The compiled model is that of the model function again afterwards.
void TransformData(Session& session, Dialogs& dialogs, MainWindow& window);

/// Tells which column's formula is bad.
void tellBadFormula(Dialogs& dialogs, const TransformResult& result);

}  // namespace vk
