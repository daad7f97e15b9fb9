#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "session/DataSet.h"
#include "session/Session.h"

/// Data files: two titles, a count line and a table of points; 8-bit text with CR LF line ends. Lines that are
/// empty or begin with "%" are comments. A file without any carriage return is read as if each line feed were
/// the pair; its last line may lack the line end.
namespace vk {

/// What one reading of a data file gave.
struct DataReading {
  std::string errors;   ///< all errors in line order, CR LF ended lines; empty for a good file
  Int16 declaredCount;  ///< the number of points that line 3 tells
  DataSet data;         ///< the titles and the good points, at most 32767
};

/// Reads the text of a data file: checks every line and takes what is good.
DataReading readDataText(std::string_view text);

/// Reads a data file, once, and lists its errors. `ErrFlag` is 0 at the start and -1 after an error; nothing else
/// of the session changes. A file that cannot be read is a run-time error (`Files::readAll`).
DataReading CheckDataFile(Session& session, Files& files, const std::string& fileName);

/// Takes a reading without errors into the session, and sets `DataFile`, `DataPath` and `DataDefined`.
void LoadDataFile(Session& session, const std::string& fileName, DataReading&& reading);

/// The first tokens of a line, at most `most`, which blanks and tabs separate.
std::vector<std::string_view> SplitBlanks(std::string_view line, std::size_t most);

/// The text with the characters above 127 of the old 8-bit code as text markup; unknown ones become "??".
std::string TranslateDosText(std::string_view text);

/// A title that a data file can hold, so that what is shown is what will be read back: without blanks at its ends
/// and with tabs as blanks. A blank one is "-", and "- " stands before one that begins with "%".
std::string dataTitle(std::string_view text);

/// The plain reader of figures: it counts values, not lines. Folds `fileName` to capitals, once the file is open. A
/// text that it cannot read is read once more without comments and with tabs as blanks.
///
/// Runs under a guard: after a failure `ErrFlag` is -1. Without a count above 0 the data stay as they were, and
/// with `showMessage` a box says so; a value that cannot be read is 0.
void ReadDataPlain(Session& session, Files& files, Dialogs& dialogs, std::string& fileName, Flag showMessage);

/// A number of a data file: as `FormatMask` gives it, with one decimal less where a three-digit exponent needs its
/// place, so that every finite number can be read back.
std::string dataField(double value, const std::string& mask);

/// The text of the session's data set as a data file, CR LF line ends.
std::string dataFileText(const DataSet& data);

}  // namespace vk
