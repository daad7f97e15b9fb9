#include "ui/qt/widgets/TextConversion.h"

#include <QFile>
#include <QStringDecoder>

#include "base/CodePage.h"
#include "base/Text.h"

namespace vk {
namespace {

/// Signs of the two codes that a text of lines keeps for its line ends.
constexpr char32_t kSignOfCr = 0x266A;
constexpr char32_t kSignOfLf = 0x25D9;

constexpr char32_t kLineSeparator = 0x2028;
constexpr char32_t kParagraphSeparator = 0x2029;

bool isLineBreak(char32_t c) {
  return c == '\n' || c == kLineSeparator || c == kParagraphSeparator;
}

char32_t fromLineCharacter(char c) {
  switch (c) {
    case '\r':
      return kSignOfCr;
    case '\n':
      return kSignOfLf;
    default:
      return toUnicode(c, CodePage::kCp437);
  }
}

char toLineCharacter(char32_t c) {
  switch (c) {
    case kSignOfCr:
      return '\r';
    case kSignOfLf:
      return '\n';
    default:
      return fromUnicode(c, CodePage::kCp437).value_or('?');
  }
}

bool hasPlace(char32_t c) {
  return c == kSignOfCr || c == kSignOfLf || fromUnicode(c, CodePage::kCp437).has_value();
}

QString fromPage(std::string_view text, CodePage page) {
  return QString::fromStdU32String(toUnicode(text, page));
}

/// Stands for a doubled "&" while a caption is worked on; no text of ours holds it.
const QString kDoubled(QChar(0xE000));

}  // namespace

QString fromText(const Cp437Text& text) {
  return fromPage(text.bytes(), CodePage::kCp437);
}

Cp437Text toCp437(const QString& text) {
  std::string result;
  for (const char32_t c : text.toStdU32String()) result += fromUnicode(c, CodePage::kCp437).value_or('?');
  return Cp437Text(result);
}

QString fromLines437(const Cp437Text& lines) {
  const std::string_view text = lines.bytes();
  std::u32string shown;
  shown.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i, 2) == kCrLf) {
      shown += U'\n';
      ++i;
    } else {
      shown += fromLineCharacter(text[i]);
    }
  }
  return QString::fromStdU32String(shown);
}

Cp437Text toLines437(const QString& text) {
  std::string result;
  for (const char32_t c : text.toStdU32String()) {
    if (isLineBreak(c)) {
      result += kCrLf;
    } else {
      result += toLineCharacter(c);
    }
  }
  return Cp437Text(result);
}

TakenText takeForCp437(const QString& text) {
  TakenText taken;
  QString unified = text.normalized(QString::NormalizationForm_C);
  unified.replace("\r\n", "\n").replace('\r', '\n');
  for (const char32_t c : unified.toStdU32String()) {
    const char32_t known = isLineBreak(c) ? U'\n' : unifiedForCp437(c);
    if (hasPlace(known)) {
      taken.text += QString::fromUcs4(&known, 1);
    } else {
      taken.complete = false;
    }
  }
  return taken;
}

bool fitsCp437(const QString& text) {
  for (const char32_t c : text.toStdU32String()) {
    if (!fromUnicode(c, CodePage::kCp437)) return false;
  }
  return true;
}

QString fromText(const WindowText& text) {
  const std::string_view bytes = text.bytes();
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  QString decoded = utf8(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
  return utf8.hasError() ? fromPage(bytes, CodePage::kWindows1252) : decoded;
}

QString fromCaption(const WindowText& caption) {
  QString text = fromText(caption);
  const qsizetype access = text.indexOf('&');
  for (qsizetype i = text.lastIndexOf('&'); i > access; i = text.lastIndexOf('&', i - 1)) text.insert(i, '&');
  return text.replace('\t', ' ');
}

QString plainCaption(const QString& caption) {
  return QString(caption).replace("&&", kDoubled).remove('&').replace(kDoubled, "&");
}

QString shortenedCaption(const QString& caption, int most) {
  const QString single = QString(caption).replace("&&", kDoubled);
  if (single.size() <= most) return caption;
  const int head = (most - 1) / 2;
  const QString shortened = single.left(head) + QChar(0x2026) + single.right(most - 1 - head);
  return QString(shortened).replace(kDoubled, "&&");
}

QString fromFileName(const std::string& name) {
  return QFile::decodeName(QByteArray::fromStdString(name));
}

std::string toFileName(const QString& name) {
  return QFile::encodeName(name).toStdString();
}

}  // namespace vk
