#include "ui/qt/widgets/TextConversion.h"

#include <QFile>
#include <QStringDecoder>
#include <array>
#include <span>

#include "base/CodePage.h"

namespace vk {
namespace {

/// Signs of the two codes that a text of lines keeps for its line ends.
constexpr char16_t kSignOfCr = 0x266A;
constexpr char16_t kSignOfLf = 0x25D9;

struct StandIn {
  char16_t character, shown;
};

constexpr std::array kOf437{StandIn{u'\r', kSignOfCr}, StandIn{u'\n', kSignOfLf}};
/// The toolkit makes line breaks of these characters. CR and LF show the signs of their names; the others are stood for
/// by one half of a pair of 16 bits, which by itself no text in UTF-8 holds.
constexpr std::array kOfUtf8{
    StandIn{u'\r', 0x240D},  StandIn{u'\n', 0x240A},  StandIn{0x240D, 0xDC0D}, StandIn{0x240A, 0xDC0A},
    StandIn{0x2028, 0xDC28}, StandIn{0x2029, 0xDC29}, StandIn{0xFDD0, 0xDCD0}, StandIn{0xFDD1, 0xDCD1},
};

std::span<const StandIn> standIns(bool isUtf8) {
  if (isUtf8) return kOfUtf8;
  return kOf437;
}

QChar shownFor(QChar c, bool isUtf8) {
  for (const StandIn& one : standIns(isUtf8)) {
    if (c == one.character) return one.shown;
  }
  return c;
}

QChar characterOf(QChar shown, bool isUtf8) {
  for (const StandIn& one : standIns(isUtf8)) {
    if (shown == one.shown) return one.character;
  }
  return shown;
}

bool isLineBreak(QChar c) {
  return c == '\n' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

bool hasPlace(char32_t c) {
  return c == kSignOfCr || c == kSignOfLf || fromUnicode(c, CodePage::kCp437).has_value();
}

QString fromPage(std::string_view text, CodePage page) {
  return QString::fromStdU32String(toUnicode(text, page));
}

QString decoded(const PlainText& text) {
  if (!text.isUtf8()) return fromPage(text.bytes(), CodePage::kCp437);
  const std::string_view bytes = text.bytes();
  QStringDecoder utf8(QStringDecoder::Utf8,
                      QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
  return utf8(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
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

QString fromLines(const PlainText& text) {
  QStringList lines = decoded(text).split("\r\n");
  for (QString& line : lines) {
    for (QChar& c : line) c = shownFor(c, text.isUtf8());
  }
  return lines.join('\n');
}

PlainText toLines(const QString& text, bool isUtf8) {
  QString lines;
  bool isPair = false;
  for (const QChar c : text) {
    if (isLineBreak(c)) {
      lines += "\r\n";
    } else {
      lines += isPair ? c : characterOf(c, isUtf8);
    }
    isPair = c.isHighSurrogate();
  }
  if (isUtf8) return {lines.toStdString(), true};
  return toCp437(lines);
}

QString withLineFeeds(const QString& text) {
  QString unified = text.normalized(QString::NormalizationForm_C);
  unified.replace("\r\n", "\n").replace('\r', '\n');
  return unified.replace(QChar::LineSeparator, '\n').replace(QChar::ParagraphSeparator, '\n');
}

TakenText takeForCp437(const QString& text) {
  TakenText taken;
  for (const char32_t c : withLineFeeds(text).toStdU32String()) {
    const char32_t known = unifiedForCp437(c);
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
