#pragma once

#include "analysis/Transformation.h"
#include "commands/Ports.h"
#include "session/Session.h"

/// Formulas over the columns of the data set.
namespace vk {

/// Command: shows the form with a title for each axis and a formula for each column, and transforms the data unless
/// the user gives up.
void MenDatTra(Session& session, Ports& ports);

/// Replaces titles and columns by what the fields of the form say.
void TransformData(Session& session, Ports& ports);

/// Transforms data; when a formula is bad a box tells of which column, and nothing is changed. A box names the rows
/// that could not be computed, in which stands what the evaluation left.
TransformResult TransformData(const DataSet& data, const TransformFormulas& formulas, Dialogs& dialogs);

}  // namespace vk
