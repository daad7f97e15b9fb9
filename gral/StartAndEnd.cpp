// Unit GralCls: the start and the end of a drawing.

#include <algorithm>

#include "base/CheckedMath.h"
#include "base/Guard.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "gral/Plotting.h"

namespace vk {
namespace {

constexpr double kFormPlace = 500;
constexpr int kPenCount = 5;

}  // namespace

void GralCls::GralGrStr(Device& GralOut, std::string_view GralOri, double scale) {
  releaseClip();
  FontName = "Arial";
  GralMarkDim = 1.5F;
  GralMarkTyp = 5;
  GralMarkColor = kBlack;
  fScale = toSingle(scale);
  const PageSize sides = pageSize();
  Orientation = equalIgnoringCase(GralOri, "LANDSCAPE") ? kLandscape : kPortrait;
  const PageSize page = Orientation == kLandscape ? sides : PageSize{sides.height, sides.width};
  IsPrinter = &GralOut == &printer_;
  if (IsPrinter) {
    openPrinter();
  } else {
    openForm(GralOut, page);
  }
  GralDev->setForeColor(kBlack);
  GralDev->setFontName(FontName);
  GralDev->setFontTransparent(true);
  readDeviceSize();
  resetScales(page);
  PenPatterns.dim(kPenCount - 1);
  GralUseTra = true;
  GralPenTra.clear();
  GralPen(1, 1);
}

/// The longer side of the printer's page as the width.
GralCls::PageSize GralCls::pageSize() const {
  const SheetSize& area = printer_.area();
  const auto side = [](double twips) { return toCentimetres(Twips(twips)).value(); };
  return {side(std::max(area.width, area.height)), side(std::min(area.width, area.height))};
}

void GralCls::openPrinter() {
  GralDev = &printer_;
  fScaleEff = fScale;
  SavedPrinter = {printer_.Orientation(), printer_.ScaleMode(), printer_.ScaleWidth(),
                  printer_.ScaleHeight(), printer_.ScaleTop(),  printer_.ScaleLeft()};
  printer_.setOrientation(Orientation);
  printer_.setScaleMode(kScaleTwips);
}

void GralCls::openForm(Device& form, const PageSize& page) {
  const double TwipsPerCm = static_cast<float>(kTwipsPerInch / kCmPerInch);
  GralDev = &form;
  form.setCaption(GralCaption);
  form.setAutoRedraw(true);
  const double borderWidth = form.Width() - form.ScaleWidth();
  const double borderHeight = form.Height() - form.ScaleHeight();
  fScaleEff = fScale / 2;
  const double twipsPerCm = static_cast<double>(fScaleEff) * TwipsPerCm;
  form.setHeight(borderHeight + twipsPerCm * page.height);
  form.setWidth(borderWidth + twipsPerCm * page.width);
  form.setLeft(kFormPlace);
  form.setTop(kFormPlace);
  form.Cls();
  form.setVisible(true);
  form.setAutoRedraw(true);
  form.setBackColor(kWhite);
  form.Refresh();
}

void GralCls::readDeviceSize() {
  GralDev->setScaleMode(kScalePixels);
  PixHeight = toInt32(GralDev->ScaleHeight());
  PixWidth = toInt32(GralDev->ScaleWidth());
  GralDev->setScaleMode(kScaleTwips);
  ScrHeight = GralDev->ScaleHeight();
  ScrWidth = GralDev->ScaleWidth();
}

void GralCls::resetScales(const PageSize& page) {
  ScrLeft = ScrTop = 0;
  ScrRight = ScrWidth;
  ScrBottom = ScrHeight;
  xNarrow_ = yNarrow_ = {};
  XlLog = XlUsr = YbLog = YbUsr = 0;
  XrLog = XrUsr = toSingle(page.width);
  YtLog = YtUsr = toSingle(page.height);
  const auto slope = [](double a, double b, double c, double d) {
    return toSingle(checked::divide(a - b, c - d));
  };
  xScaleL2S = slope(ScrLeft, ScrRight, XlLog, XrLog);
  xScaleU2L = slope(XlLog, XrLog, XlUsr, XrUsr);
  yScaleL2S = slope(ScrTop, ScrBottom, YtLog, YbLog);
  yScaleU2L = slope(YtLog, YbLog, YtUsr, YbUsr);
}

void GralCls::releaseClip() {
  if (hClipRgn == 0) return;
  GralDev->DeleteObject(hClipRgn);
  hClipRgn = 0;
}

void GralCls::GralGrEnd() {
  releaseClip();
  if (!IsPrinter) return;
  printer_.EndDoc();
  restorePrinter();
}

void GralCls::GralGrAbort() {
  guard([&] { releaseClip(); });
  if (!IsPrinter) return;
  printer_.KillDoc();
  guard([&] { restorePrinter(); });
}

void GralCls::restorePrinter() {
  printer_.setOrientation(SavedPrinter.orientation);
  printer_.setScaleMode(SavedPrinter.scaleMode);
  printer_.setScaleWidth(SavedPrinter.scaleWidth);
  printer_.setScaleHeight(SavedPrinter.scaleHeight);
  printer_.setScaleTop(SavedPrinter.scaleTop);
  printer_.setScaleLeft(SavedPrinter.scaleLeft);
}

void GralCls::GralClear() {
  if (!IsPrinter) GralDev->Cls();
}

void GralCls::GralRefresh() {
  if (!IsPrinter) GralDev->Refresh();
}

void GralCls::GralHide() {
  if (!IsPrinter) GralDev->Hide();
}

void GralCls::GralShow() {
  if (!IsPrinter) GralDev->Show();
}

}  // namespace vk
