#include "ui/qt/Text8.h"

#include <QFile>
#include <QStringDecoder>

#include "base/CodePage.h"

namespace vk {
namespace {

QString fromPage(std::string_view text, CodePage page) {
  return QString::fromStdU32String(toUnicode(text, page));
}

}  // namespace

QString fromCp437(std::string_view text) {
  return fromPage(text, CodePage::kCp437);
}

std::string toCp437(const QString& text) {
  std::string result;
  for (const char32_t c : text.toStdU32String()) result += fromUnicode(c, CodePage::kCp437).value_or('?');
  return result;
}

bool fitsCp437(const QString& text) {
  for (const char32_t c : text.toStdU32String()) {
    if (!fromUnicode(c, CodePage::kCp437)) return false;
  }
  return true;
}

QString fromWindowText(std::string_view text) {
  QStringDecoder utf8(QStringDecoder::Utf8);
  QString decoded = utf8(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  return utf8.hasError() ? fromPage(text, CodePage::kWindows1252) : decoded;
}

QString fromCaption(std::string_view caption) {
  QString text = fromWindowText(caption);
  const qsizetype access = text.indexOf('&');
  for (qsizetype i = text.lastIndexOf('&'); i > access; i = text.lastIndexOf('&', i - 1)) text.insert(i, '&');
  return text.replace('\t', ' ');
}

QString fromFileName(const std::string& name) {
  return QFile::decodeName(QByteArray::fromStdString(name));
}

std::string toFileName(const QString& name) {
  return QFile::encodeName(name).toStdString();
}

}  // namespace vk
