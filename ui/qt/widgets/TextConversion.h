#pragma once

#include <QString>
#include <string>

#include "base/EncodedText.h"

/// The border between the 8-bit texts of the program and the toolkit's strings.
namespace vk {

/// A text of grids, lists and the editor, code page 437. Control characters with a sign of their own become it.
QString fromText(const Cp437Text& text);
/// Back again; a character without a place in the code page becomes "?".
Cp437Text toCp437(const QString& text);
/// A text of several lines: each pair of CR and LF becomes "\n". A CR or LF of its own becomes a sign: in code page
/// 437 that of its code on character screens, in UTF-8 that of its name.
QString fromLines(const PlainText& text);
/// Back again; every line break of the toolkit becomes the pair.
PlainText toLines(const QString& text, bool isUtf8);

/// A text from outside: letters and their accents are one, line breaks of any kind "\n".
QString withLineFeeds(const QString& text);

/// What code page 437 takes of a text from outside.
struct TakenText {
  QString text;
  bool complete = true;  ///< false when characters without a place were left out
};
/// The text `withLineFeeds`; letters that the code page keeps under a lookalike become that one.
TakenText takeForCp437(const QString& text);

/// True when every character of the text has a place in code page 437.
bool fitsCp437(const QString& text);

/// A text of menus, captions and boxes: Windows-1252. File names in it are the system's own bytes, so a text
/// that is valid UTF-8 is read as that.
QString fromText(const WindowText& text);

/// A caption in which the first "&" marks the access key; every other "&", of a path say, is shown as it is.
QString fromCaption(const WindowText& caption);

/// A caption of a menu in which "&&" is the sign itself, as plain text.
QString plainCaption(const QString& caption);
/// The same caption with at most so many characters: the middle of a longer one is left out.
QString shortenedCaption(const QString& caption, int most);

/// A file name: the bytes that the system uses.
QString fromFileName(const std::string& name);
std::string toFileName(const QString& name);

}  // namespace vk
