#include "VectorReader.h"

#include <QByteArray>
#include <QTransform>
#include <QXmlStreamReader>
#include <cmath>
#include <map>
#include <numbers>

#include "base/NumberText.h"

namespace vk {
namespace {

constexpr int kSteps = 32;

using Points = std::vector<QPointF>;

void addCurve(Points& points, QPointF b, QPointF c, QPointF d) {
  const QPointF a = points.back();
  for (int i = 1; i <= kSteps; ++i) {
    const double s = static_cast<double>(i) / kSteps, r = 1 - s;
    points.push_back(a * r * r * r + b * 3 * r * r * s + c * 3 * r * s * s + d * s * s * s);
  }
}

/// The words of a path description: letters and numbers.
std::vector<std::string> pathWords(const std::string& text) {
  std::vector<std::string> words;
  for (const char c : text) {
    const bool letter = std::isalpha(static_cast<unsigned char>(c)) != 0;
    if (letter) words.emplace_back(1, c);
    if (letter || c == ' ' || c == '-') words.emplace_back();
    if (!letter && c != ' ') words.back() += c;
  }
  std::erase(words, "");
  return words;
}

/// Reads the path descriptions that the writer uses: M, H, V, C, Z and m, l, h, v, z, a letter standing once for
/// those that repeat it.
class PathReader {
 public:
  PathReader(const std::string& text, double penWidth, std::vector<VectorContent::Shape>& shapes)
      : words_(pathWords(text)), penWidth_(penWidth), shapes_(shapes) {}

  void read() {
    char name = 0;
    while (at_ < words_.size()) {
      if (std::isalpha(static_cast<unsigned char>(words_[at_][0])) != 0) name = words_[at_++][0];
      command(name);
      if (name == 'm') name = 'l';  // more places after a move are lines
    }
    finish();
  }

 private:
  double number() { return scanNumber(words_.at(at_++)); }
  QPointF point() {
    const double x = number();
    return {x, number()};
  }
  /// Where the way that is told next leads to.
  QPointF endOfWay() { return points_.back() + point(); }
  void command(char c) {
    switch (c) {
      case 'M':
        finish();
        points_.push_back(point());
        break;
      case 'm': {
        const QPointF start = endOfWay();
        finish();
        points_.push_back(start);
        break;
      }
      case 'l':
        points_.push_back(endOfWay());
        break;
      case 'H':
        points_.emplace_back(number(), points_.back().y());
        break;
      case 'V':
        points_.emplace_back(points_.back().x(), number());
        break;
      case 'h':
        points_.emplace_back(points_.back().x() + number(), points_.back().y());
        break;
      case 'v':
        points_.emplace_back(points_.back().x(), points_.back().y() + number());
        break;
      case 'C': {
        const QPointF b = point(), control = point();
        addCurve(points_, b, control, point());
        break;
      }
      default:
        points_.push_back(points_.front());
    }
  }
  void finish() {
    if (!points_.empty()) shapes_.push_back({points_, penWidth_});
    points_.clear();
  }

  std::vector<std::string> words_;
  double penWidth_;
  std::vector<VectorContent::Shape>& shapes_;
  Points points_;
  std::size_t at_ = 0;
};

double attribute(const QXmlStreamReader& xml, const char* name) {
  return scanNumber(xml.attributes().value(QLatin1String(name)).toString().toStdString());
}

/// The numbers in "translate(1 2)rotate(-30)".
std::vector<double> numbersIn(const std::string& text) {
  std::vector<double> numbers;
  std::string word;
  for (const char c : text + " ") {
    if (std::isdigit(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '.') {
      word += c;
    } else {
      if (isNumeric(word)) numbers.push_back(scanNumber(word));
      word.clear();
    }
  }
  return numbers;
}

/// The letters of a text and of the pieces in it, each of which tells what differs.
class SvgTextReader {
 public:
  explicit SvgTextReader(std::vector<VectorContent::Letter>& letters) : letters_(letters) {}

  void text(const QXmlStreamReader& xml) {
    const auto place = numbersIn(textOf(xml, "transform"));
    angle_ = place.size() > 2 ? -place[2] : 0;
    toPage_ = QTransform::fromTranslate(place[0], place[1]);
    toPage_.rotate(-angle_);
    size_ = attribute(xml, "font-size");
    piece(xml);
  }
  void piece(const QXmlStreamReader& xml) {
    const double size = xml.attributes().hasAttribute("font-size") ? attribute(xml, "font-size") : size_;
    for (const double x : numbersIn(textOf(xml, "x"))) {
      letters_.push_back({toPage_.map(QPointF(x, attribute(xml, "y"))), size, angle_});
    }
  }

 private:
  static std::string textOf(const QXmlStreamReader& xml, const char* name) {
    return xml.attributes().value(QLatin1String(name)).toString().toStdString();
  }

  std::vector<VectorContent::Letter>& letters_;
  QTransform toPage_;
  double angle_ = 0, size_ = 0;
};

/// The unpacked stream of an object of a PDF file.
std::string streamOf(const std::string& bytes, const std::string& number) {
  const std::size_t object = bytes.find("\n" + number + " 0 obj");
  const std::size_t start = bytes.find("stream\n", object) + 7, end = bytes.find("endstream", start);
  QByteArray packed(4, '\x7F');  // the most that may come out
  packed[0] = 0x01;
  packed += QByteArray(bytes.data() + start, static_cast<qsizetype>(end - start));
  return qUncompress(packed).toStdString();
}

/// The numbers of the objects that an entry refers to: one, or several in brackets.
std::vector<std::string> objectsOf(const std::string& bytes, const std::string& entry) {
  const std::size_t start = bytes.find(entry + " ") + entry.size() + 1;
  const std::size_t end = bytes[start] == '[' ? bytes.find(']', start) : bytes.find('R', start);
  std::vector<std::string> numbers{""};
  for (const char c : bytes.substr(start, end - start)) {
    if (std::isdigit(static_cast<unsigned char>(c)) != 0) {
      numbers.back() += c;
    } else if (!numbers.back().empty()) {
      numbers.emplace_back();
    }
  }
  std::erase(numbers, "");
  std::erase(numbers, "0");
  return numbers;
}

/// Runs the operators of a page.
class PdfOperators {
 public:
  /// `pageHeight` in points. The file counts from the bottom of the page.
  PdfOperators(VectorContent& content, const std::string& bytes, double pageHeight)
      : content_(content), bytes_(bytes) {
    now_.toTwips = QTransform(20, 0, 0, -20, 0, 20 * pageHeight);
  }

  void run(const std::string& stream) {
    std::string word;
    for (const char c : stream + " ") {
      const bool blank = c == ' ' || c == '\n' || c == '\r';
      if ((blank || c == '/') && !word.empty()) {
        take(word);
        word.clear();
      }
      if (!blank) word += c;
    }
  }

 private:
  struct State {
    QTransform toTwips;
    double penWidth = 1;
  };

  void take(const std::string& word) {
    if (isNumeric(word)) {
      numbers_.push_back(scanNumber(word));
      return;
    }
    if (word[0] == '/') {
      name_ = word;
      return;
    }
    if (word == "Do") return object();
    if (!state(word) && !path(word) && !paint(word)) text(word);
    numbers_.clear();
  }
  void object() {
    const State before = now_;
    run(streamOf(bytes_, objectsOf(bytes_, name_).at(0)));
    now_ = before;
  }
  double n(std::size_t i) const { return numbers_.at(i); }
  QPointF mapped(std::size_t i) const { return now_.toTwips.map(QPointF(n(i), n(i + 1))); }

  bool state(const std::string& op) {
    if (op == "q") {
      saved_.push_back(now_);
    } else if (op == "Q") {
      now_ = saved_.back();
      saved_.pop_back();
    } else if (op == "cm") {
      now_.toTwips = QTransform(n(0), n(1), n(2), n(3), n(4), n(5)) * now_.toTwips;
    } else if (op == "w") {
      now_.penWidth = n(0);
    } else {
      return false;
    }
    return true;
  }
  bool path(const std::string& op) {
    if (op == "m") {
      shapes_.push_back({{mapped(0)}, 0});
    } else if (op == "l") {
      shapes_.back().points.push_back(mapped(0));
    } else if (op == "c") {
      addCurve(shapes_.back().points, mapped(0), mapped(2), mapped(4));
    } else if (op == "h") {
      shapes_.back().points.push_back(shapes_.back().points.front());
    } else if (op == "re") {
      box_ = now_.toTwips.mapRect(QRectF(n(0), n(1), n(2), n(3)));
    } else {
      return false;
    }
    return true;
  }
  bool paint(const std::string& op) {
    const bool stroke = op == "S" || op[0] == 'B' || op[0] == 'b';
    if (op == "BT") return false;
    if (op == "W" || op == "W*") {
      content_.clips.push_back(shapes_.empty() ? box_ : boxOf(shapes_.back().points));
      shapes_.clear();
      return true;
    }
    if (!stroke && op != "f" && op != "f*" && op != "n") return false;
    const double scale = std::hypot(now_.toTwips.m11(), now_.toTwips.m12());
    for (VectorContent::Shape& shape : shapes_) {
      shape.penWidth = stroke ? now_.penWidth * scale : 0;
      if (op != "n") content_.shapes.push_back(shape);
    }
    shapes_.clear();
    return true;
  }
  static QRectF boxOf(const Points& points) {
    QRectF box(points[0], QSizeF(0, 0));
    for (const QPointF& point : points) {
      box = QRectF(QPointF(std::min(box.left(), point.x()), std::min(box.top(), point.y())),
                   QPointF(std::max(box.right(), point.x()), std::max(box.bottom(), point.y())));
    }
    return box;
  }
  void text(const std::string& op) {
    if (op == "Tf") size_ = n(0);
    if (op == "Tm") textMatrix_ = QTransform(n(0), n(1), n(2), n(3), n(4), n(5));
    if (op == "Td") textMatrix_ = QTransform::fromTranslate(n(0), n(1)) * textMatrix_;
    if (op != "Tj") return;
    const QTransform all = textMatrix_ * now_.toTwips;
    const QPointF along = all.map(QPointF(1, 0)) - all.map(QPointF(0, 0));
    content_.letters.push_back({all.map(QPointF(0, 0)), size_ * std::hypot(along.x(), along.y()),
                                std::atan2(-along.y(), along.x()) * 180 / std::numbers::pi});
  }

  VectorContent& content_;
  const std::string& bytes_;
  std::string name_;
  std::vector<double> numbers_;
  State now_;
  std::vector<State> saved_;
  std::vector<VectorContent::Shape> shapes_;
  QRectF box_;
  QTransform textMatrix_;
  double size_ = 0;
};

}  // namespace

VectorContent readSvg(const std::string& bytes) {
  VectorContent content;
  QXmlStreamReader xml(QByteArray::fromStdString(bytes));
  SvgTextReader texts(content.letters);
  double penWidth = 0;
  bool inDefinitions = false;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.name() == QLatin1String("defs")) inDefinitions = xml.isStartElement();
    if (!xml.isStartElement()) continue;
    const auto name = xml.name().toString();
    if (inDefinitions) {
      if (name == "rect") {
        content.clips.emplace_back(attribute(xml, "x"), attribute(xml, "y"), attribute(xml, "width"),
                                   attribute(xml, "height"));
      }
    } else if (name == "g") {
      penWidth = attribute(xml, "stroke-width");
    } else if (name == "path") {
      const bool stroked = xml.attributes().value(QLatin1String("stroke")) != QLatin1String("none");
      PathReader(xml.attributes().value(QLatin1String("d")).toString().toStdString(), stroked ? penWidth : 0,
                 content.shapes)
          .read();
    } else if (name == "circle") {
      const double x = attribute(xml, "cx"), y = attribute(xml, "cy"), r = attribute(xml, "r");
      VectorContent::Shape circle{{}, penWidth};
      for (int i = 0; i <= 4 * kSteps; ++i) {
        const double a = std::numbers::pi * i / (2 * kSteps);
        circle.points.emplace_back(x + r * std::cos(a), y + r * std::sin(a));
      }
      content.shapes.push_back(circle);
    } else if (name == "text") {
      texts.text(xml);
    } else if (name == "tspan") {
      texts.piece(xml);
    }
  }
  if (xml.hasError()) throw std::runtime_error("the SVG file is not well formed");
  return content;
}

VectorContent readPdf(const std::string& bytes) {
  VectorContent content;
  const std::size_t box = bytes.find("/MediaBox [");
  const auto size = numbersIn(bytes.substr(box, bytes.find(']', box) - box));
  PdfOperators page(content, bytes, size.at(3));
  for (const std::string& object : objectsOf(bytes, "/Contents")) page.run(streamOf(bytes, object));
  return content;
}

QRectF inkBox(const VectorContent& content) {
  double left = 1E9, top = 1E9, right = -1E9, bottom = -1E9;
  for (const VectorContent::Shape& shape : content.shapes) {
    const double half = shape.penWidth / 2;
    for (const QPointF& point : shape.points) {
      left = std::min(left, point.x() - half);
      right = std::max(right, point.x() + half);
      top = std::min(top, point.y() - half);
      bottom = std::max(bottom, point.y() + half);
    }
  }
  return {QPointF(left, top), QPointF(right, bottom)};
}

}  // namespace vk
