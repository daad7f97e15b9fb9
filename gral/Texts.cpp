// Unit GralCls: texts.

#include <cmath>

#include "base/CheckedMath.h"
#include "base/Guard.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "gral/Markup.h"
#include "gral/Plotting.h"

namespace vk {
namespace {

constexpr double kRadiansPerDegree = 3.1415926 / 180;
constexpr double kScriptScale = 0.75;
constexpr int kFirstLetter = 32;
constexpr int kLastLetter = 128;
constexpr int kTextFont = 1;
constexpr int kSymbolFont = 2;
constexpr const char* kSymbolName = "Symbol";
constexpr int kNormalWeight = 400;

double scaleOf(const MarkupLetter& letter) {
  return letter.level == MarkupLetter::Level::kNormal ? 1 : kScriptScale;
}

/// The part of the width of a text that lies before its anchor.
double anchorShare(double iCentr) {
  if (iCentr == 1) return 0.5;
  return iCentr == 2 ? 1 : 0;
}

}  // namespace

void GralCls::GralWPrint(double x, double y, double iCentr, Int16 iRot, double iPunti,
                         std::string_view Text) {
  GralWinPrintString(xUsr2Scr(x), yUsr2Scr(y), iCentr, iRot, iPunti, 0, Text);
}

void GralCls::MakLenLett() {
  LetterWidths.dim(kLastLetter);
  const auto measure = [this](int font, const std::string& name) {
    GralDev->setFontName(name);
    for (int c = kFirstLetter; c <= kLastLetter; ++c) {
      const char letter = static_cast<char>(c);
      LetterWidths[c][static_cast<std::size_t>(font)] = toInt16(GralDev->TextWidth({&letter, 1}));
    }
  };
  measure(kTextFont, FontName);
  measure(kSymbolFont, kSymbolName);
  GralDev->setFontName(FontName);
}

Int16 GralCls::LetterWidth(int c, int font) const {
  if (font < 0 || font > kSymbolFont) throw RuntimeError(kIndexOutOfRange);
  return LetterWidths[c][static_cast<std::size_t>(font)];
}

/// The width of each letter at its own size. Letters of the text font behind the table are measured where there are
/// any; a sign of the Symbol font keeps the width of the letter before it.
std::vector<double> GralCls::letterAdvances(const std::vector<MarkupLetter>& letters) const {
  std::vector<double> advances;
  Int16 width = 0;
  for (const MarkupLetter& letter : letters) {
    guard([&] {
      const int c = code(letter.character);
      if (c > kLastLetter && !letter.symbol)
        width = toInt16(GralDev->TextWidth({&letter.character, 1}));
      else
        width = LetterWidth(c, letter.symbol ? kSymbolFont : kTextFont);
    });
    advances.push_back(scaleOf(letter) * width);
  }
  return advances;
}

TextExtent GralCls::GralTextExtent(double iPointIn, std::string_view b) {
  GralDev->setFontSize(iPointIn * static_cast<double>(fScaleEff));
  MakLenLett();
  double width = 0;
  for (const double advance : letterAdvances(readMarkup(b))) width += advance;
  const double height = std::abs(GralDev->TextHeight("A"));
  return {std::abs(width / static_cast<double>(xScaleL2S)),
          std::abs(height / static_cast<double>(yScaleL2S))};
}

void GralCls::GralWinPrintString(double xxx, double yyy, double iCentr, Int16 iRot, double iPointIn, double,
                                 std::string_view b) {
  const double size = iPointIn * static_cast<double>(fScaleEff);
  guard([&] { GralDev->setFontSize(size); });
  guard([&] { MakLenLett(); });
  const std::vector<MarkupLetter> letters = readMarkup(b);
  const std::vector<double> advances = letterAdvances(letters);
  const double a = iRot * kRadiansPerDegree;
  const double cs = std::cos(a), sn = std::sin(a);
  double w = 0;
  for (const double advance : advances) w += advance;
  w -= letters.empty() ? 1 : scaleOf(letters.back());
  double h = 0;
  guard([&] { h = std::abs(GralDev->TextHeight("A")) / 2; });
  const double d = -w * anchorShare(iCentr);
  const double x0 = xxx - h * sn + cs * d;
  const double y0 = yyy - h * cs - sn * d;
  double pos = 0;
  float x = 0, y = 0;
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const double off = -h / 2 * static_cast<int>(letters[i].level);
    const bool placed = guard([&] {
      x = toSingle(x0 + pos * cs + off * sn);
      y = toSingle(y0 - pos * sn + off * cs);
    });
    // A place beyond single precision is out of sight, and not that of the letter before.
    if (placed) {
      guard([&] {
        DrawTextRun(iRot, *GralDev, letters[i].symbol ? kSymbolName : FontName,
                    toSingle(size * scaleOf(letters[i])), x, y, {&letters[i].character, 1});
      });
    }
    pos += advances[i];
  }
  guard([&] { GralDev->setFontName(FontName); });
}

void GralCls::DrawTextRun(Int16 iRot, Device& device, const std::string& font, double size, double x,
                          double y, std::string_view text) {
  if (iRot != 0) return drawRotatedRun(iRot, device, font, size, x, y, text);
  device.setFontName(font);
  device.setFontSize(size);
  device.setCurrentX(x);
  device.setCurrentY(y);
  device.Print(text);
}

void GralCls::drawRotatedRun(Int16 iRot, Device& device, const std::string& font, double size, double x,
                             double y, std::string_view text) {
  const double tp = IsPrinter ? printer_.TwipsPerPixelY() : kNominalTwipsPerPixel;
  FontRecord record;
  record.escapement = iRot * 10;
  record.weight = kNormalWeight;
  font.copy(record.faceName.data(), record.faceName.size() - 1);
  record.height = toInt32(checked::divide(size * -kTwipsPerPoint, tp));
  const std::int32_t created = device.CreateFontIndirect(record);
  const std::int32_t previous = device.SelectObject(created);
  if (IsPrinter) {
    device.TextOut(xUsr2Pixel(xScr2Usr(x)), yUsr2Pixel(yScr2Usr(y)), text);
  } else {
    device.setCurrentX(x);
    device.setCurrentY(y);
    device.Print(text);
  }
  device.SelectObject(previous);
  device.DeleteObject(created);
}

}  // namespace vk
