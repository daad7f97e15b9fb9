#pragma once

#include <string>
#include <vector>

#include "base/Array.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "session/Session.h"

/// Data files: two titles, a count line and a table of points; 8-bit text with CR LF line ends. Lines that are
/// empty or begin with "%" are comments. A file without any carriage return is read as if each line feed were
/// the pair.
namespace vk {

/// The lines of a file, 1..count: what stands before each CR LF pair. Text behind the last pair is not seen.
/// A file that cannot be read is a run-time error (`Files::readAll`).
void ReadTextLines(Files& files, const std::string& fileName, Array<std::string>& lines, int& count);

/// The blank-separated tokens of a text, 1..count.
void SplitBlanks(const std::string& text, Array<std::string>& tokens, Int16& count);

/// The text with the characters above 127 of the old 8-bit code as text markup; unknown ones become "??".
std::string TranslateDosText(const std::string& text);

/// Checks a data file and lists all its errors, CR LF ended, in line order. `ErrFlag` is 0 at the start and -1
/// after an error; nothing else of the session changes. `declaredCount` is what line 3 says, `validCount` the
/// number of good point lines, `hasXErrors` the mark of line 3. More than 32767 good lines, or numbers in a
/// line, are run-time error 6.
void CheckDataFile(Session& session, Files& files, const std::string& fileName, std::string& errorText,
                   Int16& declaredCount, Int16& validCount, Flag& hasXErrors);

/// Loads a file that has passed the check into the session's data set, and sets `DataFile` and `DataDefined`.
/// A point beyond `count` is run-time error 9, a count above 32767 run-time error 6.
void LoadDataFile(Session& session, Files& files, const std::string& fileName, int count, Flag hasXErrors);

/// The plain reader of figures and of the restored session: it counts values, not lines. Folds `fileName` to
/// capitals. A text that it cannot read is read once more without comments and with tabs as blanks.
///
/// Runs under a guard: after a failure `ErrFlag` is -1. Without a count above 0 the data stay as they were, and
/// with `showMessage` a box says so; a value that cannot be read is 0.
void ReadDataPlain(Session& session, Files& files, Dialogs& dialogs, std::string& fileName, Flag showMessage);

/// The text of the session's data set as a data file, CR LF line ends.
std::string dataFileText(const DataSet& data);

}  // namespace vk
