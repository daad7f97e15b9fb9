#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/NumberMasks.h"
#include "data/DataSet.h"
#include "platform/Files.h"

/// Data files: two titles, a count line and a table of points; UTF-8 or 8-bit text (`FileText`) with CR LF line ends.
/// Lines that are empty or begin with "%" are comments. A file without any carriage return is read as if each line feed
/// were the pair; its last line may lack the line end.
namespace vk {

/// What the parser of lines made of a data file.
struct DataReading {
  std::string errors;   ///< all errors in line order, CR LF ended lines; empty for a good file
  Int16 declaredCount;  ///< the number of points that line 3 tells
  DataSet data;         ///< the titles and the good points, at most 32767
};

/// Checks every line of the text of a data file and takes what is good.
DataReading parseLines(std::string_view text);

/// The same for a file, which is read once. A file that cannot be read is a run-time error (`Files::readAll`).
DataReading readData(Files& files, const std::string& fileName);

/// What the parser of free fields made of a text.
struct FreeFieldReading {
  int count = 0;          ///< points; 0 when the text has no usable count, and then there are no data
  bool complete = false;  ///< every value could be read
  DataSet data;           ///< values that could not be read are 0
};

/// The plain parser of figures: it counts values, not lines. A text that it cannot read is read once more without
/// comments and with tabs as blanks.
FreeFieldReading parseFreeFields(std::string_view text);

/// The first tokens of a line, which blanks and tabs separate: as many as there is place for in `tokens`, where they
/// stand.
std::span<const std::string_view> SplitBlanks(std::string_view line, std::span<std::string_view> tokens);

/// A title that a data file can hold, so that what is shown is what will be read back: without blanks at its ends
/// and with tabs as blanks. A blank one is "-", and "- " stands before one that begins with "%".
std::string dataTitle(std::string_view text);

/// A number of a data file: as `FormatMask` gives it, with one decimal less where a three-digit exponent needs its
/// place, so that every finite number can be read back.
std::string dataField(double value, const NumberMask& mask);

/// A number of a data file with 1 to 17 significant digits, between blanks.
std::string dataField(double value, int digits);

/// Significant digits of the numbers of a data file, unless more or fewer are wanted.
inline constexpr int kDataDigits = 6;
/// So many bring every number back exactly.
inline constexpr int kMostDataDigits = 17;

/// The data set as the text of a data file, UTF-8 with CR LF line ends, with 1 to 17 digits.
std::string dataFileText(const DataSet& data, int digits = kDataDigits);

/// True when that text does not bring every number back.
bool losesDigits(const DataSet& data);

}  // namespace vk
