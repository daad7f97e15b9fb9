#pragma once

#include <limits>
#include <string>
#include <vector>

#include "data/DataSet.h"
#include "numeric/Fault.h"

/// Formulas over the columns of a data set.
namespace vk {

/// The names of the columns of a data set, each of two characters: " x", " y", "dx" where there are errors of x, "dy".
std::string columnNames(const DataSet& data);

/// The definition of a formula of the columns, for the compiler.
std::string columnDefinition(const DataSet& data, const std::string& formula);

/// What shall become of a data set.
struct TransformFormulas {
  std::string TitleX, TitleY;
  std::vector<std::string> columns;  ///< one for each column, in their order
};

/// Rows of a new column whose formula could not be computed.
struct FailedRows {
  std::string column;
  std::vector<int> rows;  ///< from 1, rising
};

/// "formula di y NON calcolabile nelle righe 3, 7-9; ...": of each column at most so many rows or ranges of rows.
std::string failedRowsText(const std::vector<FailedRows>& failed,
                           std::size_t most = std::numeric_limits<std::size_t>::max());

/// What a transformation did.
struct TransformResult {
  bool replaced() const { return badColumn.empty(); }

  DataSet data;                    ///< the new ones, or the old ones where a formula is bad
  std::string badColumn;           ///< the name, of two characters, of the first column whose formula is bad
  std::vector<FailedRows> failed;  ///< the columns that have such rows, in their order
};

/// The data with other titles and columns. All formulas see the old columns; when one of them is bad nothing is
/// changed. A value that cannot be computed is what the evaluation left, and only the result tells of it.
TransformResult transform(DataSet data, const TransformFormulas& formulas, EvaluationListener& listener);

}  // namespace vk
