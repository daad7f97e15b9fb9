#include "ui/layout/GraphicPanelLayout.h"

#include <algorithm>

namespace vk {
namespace {

/// All margins are this unit or half of it.
constexpr double kUnit = 400;
constexpr double kHalf = kUnit / 2;
constexpr double kScrollWidth = 270;
constexpr double kScrollHeight = 1080;
constexpr double kOptionMark = 360;
constexpr double kButtonHeight = 405;
constexpr double kPictureAspect = 2.0 / 3;  // of the main window's client area

template <class Texts>
double widest(const TextMeasure& font, const Texts& texts) {
  Twips width;
  for (const char* text : texts) width = std::max(width, font.width(text));
  return width.value();
}

void placeScales(GraphicPanelLayout& layout, const TextMeasure& font, double captionHeight) {
  const double legend = widest(font, kScaleLegends), value = 2 * font.width("2.0").value();
  const double textHeight = font.height().value();
  for (std::size_t i = 0; i < kScaleLegends.size(); ++i) {
    const double top = captionHeight + kHalf + static_cast<double>(i) * (kScrollHeight + kHalf / 2);
    const double textTop = top + (kScrollHeight - textHeight) / 2;
    layout.LblFctLeg[i] = {kHalf, textTop, legend, textHeight};
    layout.VScFct[i] = {layout.LblFctLeg[i].right() + kUnit, top, kScrollWidth, kScrollHeight};
    layout.LblFctVal[i] = {layout.VScFct[i].right() + kHalf, textTop, value, textHeight};
  }
  layout.FraGraIng.width =
      std::max(layout.LblFctVal[0].right() + kHalf, font.width(kScaleFrameCaption).value() + kUnit);
  layout.FraGraIng.height = layout.VScFct[3].bottom() + kHalf;
}

void placeOptions(GraphicPanelLayout& layout, const TextMeasure& font, double captionHeight) {
  const double width = widest(font, kPaperOptions) + kOptionMark, height = font.height().value() + 60;
  for (std::size_t i = 0; i < kPaperOptions.size(); ++i) {
    const double top = captionHeight + kHalf + static_cast<double>(i) * (height + kHalf / 2);
    layout.OptOri[i] = {kHalf, top, width, height};
  }
  layout.FraGraOri.height = layout.OptOri[1].bottom() + kHalf;
}

}  // namespace

GraphicPanelLayout layoutGraphicPanel(const TextMeasure& font) {
  GraphicPanelLayout layout;
  const double captionHeight = font.height().value();
  placeScales(layout, font, captionHeight);
  placeOptions(layout, font, captionHeight);

  // Left the picture above the orientation, as high together as the magnifications and buttons on the right.
  const double height = layout.FraGraIng.height + kHalf + kButtonHeight;
  Rect& screen = layout.FraGraScr;
  screen.left = kUnit;
  screen.top = kUnit;
  screen.height = height - layout.FraGraOri.height - kHalf;
  screen.width = std::max(screen.height / kPictureAspect, font.width(kPaperFrameCaption).value() + kUnit);
  layout.Image1 = {0.1 * screen.width, 0.15 * screen.height, 0.8 * screen.width, 0.8 * screen.height};
  layout.FraGraOri.left = screen.left;
  layout.FraGraOri.top = screen.bottom() + kHalf;
  layout.FraGraOri.width = screen.width;
  layout.FraGraIng.left = screen.right() + kUnit;
  layout.FraGraIng.top = screen.top;

  const double buttonWidth = (layout.FraGraIng.width - kHalf) / 2;
  const double buttonTop = layout.FraGraIng.bottom() + kHalf;
  layout.CmdImpGra[0] = {layout.FraGraIng.left, buttonTop, buttonWidth, kButtonHeight};
  layout.CmdImpGra[1] = {layout.CmdImpGra[0].right() + kHalf, buttonTop, buttonWidth, kButtonHeight};
  layout.FraGra = {layout.FraGraIng.right() + kUnit, buttonTop + kButtonHeight + kUnit};
  return layout;
}

}  // namespace vk
