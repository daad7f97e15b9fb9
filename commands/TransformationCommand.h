#pragma once

#include "analysis/Transformation.h"
#include "commands/Ports.h"
#include "session/Session.h"

/// Formulas over the columns of the data set.
namespace vk {

/// Command: shows the form with a title for each axis and a formula for each column, and transforms the data unless
/// the user gives up.
void MenDatTra(Session& session, Ports& ports);

/// Replaces titles and columns by what the fields of the form say. When a formula is bad a box tells, and nothing is
/// changed.
void TransformData(Session& session, Ports& ports);

/// Tells which column's formula is bad.
void tellBadFormula(Dialogs& dialogs, const TransformResult& result);

}  // namespace vk
