#pragma once

#include "gral/Device.h"

namespace vk {

/// A sink that cannot be drawn on: run-time error 482.
class RefusingSink : public DrawingSink {
 public:
  void clear(const SheetSize&, Colour) override { refuse(); }
  void pen(const Pen&) override { refuse(); }
  void filling(const Filling&) override { refuse(); }
  void line(const TwipPoint&, const TwipPoint&) override { refuse(); }
  void box(const TwipPoint&, const TwipPoint&) override { refuse(); }
  void filledBox(const TwipPoint&, const TwipPoint&, Colour) override { refuse(); }
  void circle(const TwipPoint&, Twips) override { refuse(); }
  void polyline(std::span<const PixelPoint>) override { refuse(); }
  void bezier(std::span<const PixelPoint>) override { refuse(); }
  void figure(std::span<const PixelPoint>, bool, bool) override { refuse(); }
  void floodFill(const PixelPoint&, Colour) override { refuse(); }
  void text(const TextRun&) override { refuse(); }
  void clip(const PixelRect*) override { refuse(); }
  void picture(const Picture&, const TwipPoint&) override { refuse(); }
  void refresh() override { refuse(); }
  void endDocument() override { refuse(); }

 protected:
  [[noreturn]] static void refuse() { throw RuntimeError(kPrinterError); }
};

/// The printer of a system that has none: it tells the size of a page, which screen drawings need, and
/// refuses to draw with run-time error 482.
class NoPrinter : private RefusingSink, private LetterMetrics, public Device {
 public:
  /// An A4 page, or one of other sides.
  explicit NoPrinter(const PrinterMetrics& page = {}) : Device(page, *this, *this) {}

 private:
  double advance(bool, unsigned char) override { refuse(); }
  double lineHeight(bool) override { refuse(); }
  double ascent(bool) override { refuse(); }
};

}  // namespace vk
