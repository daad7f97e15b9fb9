#include <QXmlStreamReader>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "fuzz/FinitePlaces.h"
#include "fuzz/Input.h"
#include "fuzz/OneFile.h"
#include "grafile/FigureDescription.h"
#include "grafile/GraphicFile.h"
#include "gral/NoPrinter.h"
#include "gral/ObserverDevice.h"
#include "gral/sinks/FloodPictures.h"
#include "gral/sinks/SvgWriter.h"
#include "gral/sinks/TeeSink.h"
#include "ui/qt/devices/QtGraphics.h"
#include "ui/qt/devices/QtLetters.h"

namespace vk {
namespace {

// A bitmap of 136 x 95 pixels.
constexpr double kScale = 0.25;
// What keeps a run short, beside it.
constexpr std::size_t kLongest = 1400;
constexpr std::size_t kLargestSvg = 1 << 16;
constexpr std::size_t kObserved = 4;  ///< one input in so many is drawn on another device

QtLetters& realLetters() {
  static QtGraphics graphics;
  return graphics.letters();
}

struct PageParts {
  PageParts() : pixels(1, realLetters()) {}
  DisplayList list;
  RasterSink pixels;
};

/// A form that keeps what is drawn as a list, and as pixels.
class Page : private PageParts, private TeeSink, public Device {
 public:
  Page() : TeeSink(PageParts::list, PageParts::pixels), Device(FormMetrics{}, *this, realLetters()) {}

  using PageParts::list;
  const std::vector<std::uint32_t>& pixels() const { return PageParts::pixels.raster().pixels(); }
};

/// A form that draws nothing. Labels are placed by their letters, and remarks tell of their places.
class BlankPage : private CountingSink, public Device {
 public:
  BlankPage() : Device(FormMetrics{}, *this, realLetters()) {}
};

/// What a graphic file leaves beside the drawing.
struct Remarks {
  std::string errors;
  std::vector<std::string> warnings, doubts;
  bool operator==(const Remarks&) const = default;
};

Remarks drawOn(Device& page, std::string_view text, Files& files) {
  NoListener listener;
  NoPrinter printer;
  GralCls drawing(printer);
  drawing.GralGrStr(page, "LANDSCAPE", kScale);
  GraphicRun run(files, drawing, listener);
  try {
    run.runText(text);
  } catch (const RuntimeError& error) {
    require(error.number() == kInputPastEnd, "no failure but of a last line that asks for one behind it");
  }
  drawing.GralGrEnd();
  return {run.errors(), run.warnings(), run.doubts()};
}

std::string svgOf(const DisplayList& list, const FigureWords& words) {
  SvgWriter writer(1, realLetters());
  replayAsVectors(list, writer, realLetters(), {1, 1});
  FigureSheet sheet;
  sheet.words = words;
  return writer.document(sheet);
}

void requireWellFormed(const std::string& svg) {
  QXmlStreamReader reader(QByteArray::fromRawData(svg.data(), static_cast<qsizetype>(svg.size())));
  while (!reader.atEnd()) {
    reader.readNext();
    for (const QXmlStreamAttribute& attribute : reader.attributes()) {
      require(!attribute.value().contains(u"nan") && !attribute.value().contains(u"inf"), "places in an SVG");
    }
  }
  require(!reader.hasError(), "an SVG that can be read");
}

}  // namespace

/// Any bytes are drawn or listed as errors: the same remarks on each device with these letters, and the same pixels
/// when the list of the drawing is drawn again. What stands behind a line of two percent signs is the file that all
/// commands find under the name they look for.
void probe(Input input) {
  if (input.size() > kLongest) return;
  const std::string_view text = input.part();
  OneFile files(input.rest());
  Page page;
  const Remarks remarks = drawOn(page, text, files);
  if (text.size() % kObserved == 0) {
    BlankPage blank;
    require(drawOn(blank, text, files) == remarks, "the same remarks on each device");
  }
  RasterSink again(1, realLetters());
  page.list.replay(again);
  require(again.raster().pixels() == page.pixels(), "the same pixels again");
  FinitePlaces places;
  page.list.replay(places);
  const FigureWords words = describeFigure(text, "figura.gra");
  if (const std::string svg = svgOf(page.list, words); svg.size() <= kLargestSvg) requireWellFormed(svg);
}

}  // namespace vk
