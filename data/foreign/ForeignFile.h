#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/DataFiles.h"
#include "data/DataSet.h"
#include "data/foreign/Cells.h"
#include "data/foreign/Columns.h"
#include "data/foreign/Encoding.h"
#include "data/foreign/Guess.h"
#include "data/foreign/Header.h"
#include "data/foreign/Points.h"

/// Tables as spreadsheets, instruments and text editors write them: what a file holds is found out, and told, so that
/// every guess can be overruled.
namespace vk {

/// What is known beforehand, and what becomes of the points.
struct ForeignOptions {
  std::optional<Encoding> encoding;
  KnownDialect dialect;
  std::optional<int> headerLines;  ///< lines of the file above the points, comments and blank ones included
  std::vector<std::string>
      columns;                  ///< x, y[, dx][, dy], by number, from 1, or name; empty for the usual order
  std::optional<Roles> roles;   ///< the same, settled; wins over `columns`
  std::optional<ErrorRule> dy;  ///< wins over a column of errors
  std::size_t every = 1;        ///< one point of so many is kept
  std::size_t average = 1;      ///< so many points become their mean

  bool changesPoints() const { return dy || every > 1 || average > 1; }
};

/// A line below the header that gave no point.
struct LeftOutLine {
  int number = 0;
  std::string reason;  ///< UTF-8
};

/// What was found out about a file.
struct ForeignReading {
  std::string
      refusal;  ///< why there are no points, in one line of UTF-8; empty for a file that is understood
  bool isDataFile =
      false;  ///< it is a data file as it stands; what follows but for the data is not looked at then
  Encoding encoding = Encoding::kAscii;
  Dialect dialect;
  bool hasDecimals = false;    ///< some number has the decimal sign
  bool mixedLineEnds = false;  ///< the lines do not end as those of data files, all with CR LF or all with LF
  TableShape shape;            ///< no cells as long as the table has not been made out
  int firstLine = 0;           ///< of the points, in the file; 0 if unknown
  ForeignHeader header;
  bool counted = false;  ///< the last line of the header is a count of points
  Roles roles;
  bool errorsMissing = false;  ///< of y, which are 1 then
  std::vector<LeftOutLine> leftOut;
  DataSet data;
};

/// Reads the bytes of any file. A data file is taken as such, unless an option says how it is to be read.
ForeignReading readForeign(std::string_view bytes, const ForeignOptions& options = {});

/// True for a data file of which no option changes the points: an import takes its text as it stands.
bool keepsText(const ForeignReading& reading, const ForeignOptions& options);

/// The titles and the first ten points as the text of a data file, with 1 to 17 digits.
std::string importPreview(const ForeignReading& reading, int digits = kDataDigits);

/// Why a file is no text, and the way out, in one line of UTF-8; empty for a text.
std::string whyNoText(std::string_view bytes);

/// What was taken, in one line of UTF-8: "UTF-8, separatore ';', virgola decimale, 2 righe di intestazione, ...".
std::string descriptionOf(const ForeignReading& reading);

/// Why a file is no data file.
struct LikelyCause {
  std::string text;    ///< one line of UTF-8: "sembra un file CSV con virgola decimale"; empty if unknown
  bool cured = false;  ///< by an import
};

/// The likely cause, as far as it can be told from how the file was read. Unknown for a data file and for one with
/// faults in single lines.
LikelyCause likelyCause(const ForeignReading& reading);

}  // namespace vk
