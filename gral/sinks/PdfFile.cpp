#include "gral/sinks/PdfFile.h"

#include <charconv>
#include <cmath>
#include <utility>

#include "base/CodePage.h"
#include "gral/sinks/SvgMarkup.h"

namespace vk {
namespace {

/// The first whole number behind a word.
std::size_t numberBehind(std::string_view text, std::string_view word) {
  std::size_t number = 0;
  const std::size_t at = text.find_first_of("0123456789", text.find(word) + word.size());
  std::from_chars(text.data() + at, text.data() + text.size(), number);
  return number;
}

std::string reference(std::size_t object) {
  return std::to_string(object) + " 0 R";
}

std::string streamOf(const std::string& operators) {
  return "<< /Length " + std::to_string(operators.size()) + " >>\nstream\n" + operators + "endstream";
}

/// A text of the format: hexadecimal digits of UTF-16.
std::string textOf(const std::string& utf8) {
  std::string text = "<FEFF";
  const auto append = [&](std::uint32_t unit) {
    for (int shift = 12; shift >= 0; shift -= 4) text += "0123456789ABCDEF"[unit >> shift & 15];
  };
  for (const char32_t c : decodeUtf8(utf8).value_or(U"")) {
    constexpr char32_t kPairs = 0x10000;
    if (c >= kPairs) append(0xD800 + ((c - kPairs) >> 10));
    append(c >= kPairs ? 0xDC00 + ((c - kPairs) & 0x3FF) : c);
  }
  return text + ">";
}

/// Changes are written behind the file, which keeps what it had.
class PdfUpdate {
 public:
  explicit PdfUpdate(std::string file)
      : file_(std::move(file)), table_(numberBehind(tail(), "startxref")), count_(numberIn("/Size")) {}

  std::size_t numberIn(std::string_view name) const { return numberBehind(tail(), name); }
  /// What stands in an object.
  std::string content(std::size_t object) const {
    constexpr std::size_t kLine = 20;
    const std::size_t lines = file_.find('\n', file_.find('\n', table_) + 1) + 1;
    std::size_t start = 0;
    const char* const digits = file_.data() + lines + object * kLine;
    std::from_chars(digits, digits + 10, start);
    start = file_.find("obj", start) + 3;
    return file_.substr(start, file_.find("endobj", start) - start);
  }
  std::size_t newObject() { return count_++; }
  void write(std::size_t object, const std::string& content) {
    const std::string offset = std::to_string(file_.size());
    entries_ +=
        std::to_string(object) + " 1\n" + std::string(10 - offset.size(), '0') + offset + " 00000 n \n";
    file_ += std::to_string(object) + " 0 obj\n" + content + "\nendobj\n";
  }
  std::string finished() {
    const std::string trailer = tail().substr(0, tail().find("startxref"));
    const std::size_t id = trailer.find("/ID");
    const std::string identity =
        id == std::string::npos ? "" : trailer.substr(id, trailer.find(']', id) + 1 - id);
    const std::string table = std::to_string(file_.size());
    return file_ + "xref\n" + entries_ + "trailer\n<< /Size " + std::to_string(count_) + " /Root " +
           reference(root()) + " /Info " + reference(numberIn("/Info")) + " /Prev " + std::to_string(table_) +
           " " + identity + " >>\nstartxref\n" + table + "\n%%EOF\n";
  }
  std::size_t root() const { return numberIn("/Root"); }

 private:
  /// From the last trailer on.
  std::string tail() const { return file_.substr(file_.rfind("trailer")); }

  std::string file_;
  std::size_t table_, count_;
  std::string entries_;
};

void insert(std::string& dictionary, const std::string& entries) {
  dictionary.insert(dictionary.find("<<") + 2, " " + entries);
}

/// Puts something for the value of an entry, one in brackets or a reference, and gives what stood there.
std::string exchange(std::string& dictionary, const std::string& name, const std::string& value) {
  const std::size_t start = dictionary.find_first_not_of(" \n", dictionary.find(name) + name.size());
  const std::size_t end = dictionary.find(dictionary[start] == '[' ? ']' : 'R', start) + 1;
  const std::string before = dictionary.substr(start, end - start);
  dictionary.replace(start, end - start, value);
  return before[0] == '[' ? before.substr(1, before.size() - 2) : before;
}

/// The page as one figure with a text in its place.
void describe(PdfUpdate& file, std::string& page, std::size_t pageObject, const FigureWords& words) {
  const std::size_t tree = file.newObject(), figure = file.newObject(), begin = file.newObject(),
                    end = file.newObject();
  file.write(tree, "<< /Type /StructTreeRoot /K " + reference(figure) + " /ParentTree << /Nums [0 [" +
                       reference(figure) + "]] >> /ParentTreeNextKey 1 >>");
  file.write(figure, "<< /Type /StructElem /S /Figure /P " + reference(tree) + " /Pg " +
                         reference(pageObject) + " /K 0 /Alt " + textOf(words.description) + " >>");
  file.write(begin, streamOf("/Figure << /MCID 0 >> BDC\n"));
  file.write(end, streamOf("EMC\n"));
  const std::string contents = exchange(page, "/Contents", "[]");
  exchange(page, "/Contents", "[" + reference(begin) + " " + contents + " " + reference(end) + "]");
  insert(page, "/StructParents 0");
  std::string catalogue = file.content(file.root());
  insert(catalogue, "/Lang (it) /MarkInfo << /Marked true >> /StructTreeRoot " + reference(tree));
  file.write(file.root(), catalogue);
}

}  // namespace

void dropCreationDate(std::string& file) {
  const std::size_t start = file.find("/CreationDate");
  if (start == std::string::npos) return;
  const std::size_t length = file.find(')', start) + 1 - start;
  file.replace(start, length, length, ' ');
}

std::string withSheet(std::string file, const FigureSheet& sheet) {
  const FigureWords& words = sheet.words;
  const bool sized = sheet.sized(), told = !words.title.empty() || !words.description.empty();
  if (!sized && !told) return file;
  PdfUpdate update(std::move(file));
  const std::string pages = update.content(numberBehind(update.content(update.root()), "/Pages"));
  const std::size_t pageObject = numberBehind(pages, "/Kids");
  std::string page = update.content(pageObject);
  if (sized) {
    const double width = sheet.size.width / kTwipsPerPoint, height = sheet.size.height / kTwipsPerPoint;
    const double top = std::ceil(height);
    exchange(page, "/MediaBox",
             "[0 " + svgNumber(top - height) + " " + svgNumber(width) + " " + svgNumber(top) + "]");
  }
  if (!words.description.empty()) describe(update, page, pageObject, words);
  update.write(pageObject, page);
  if (told) {
    update.write(update.numberIn("/Info"), "<< /Title " + textOf(words.title) + " /Subject " +
                                               textOf(words.description) + " /Creator (Vor_Kel) >>");
  }
  return update.finished();
}

}  // namespace vk
