#pragma once

#include "base/CheckedMath.h"
#include "gral/NarrowMapping.h"

namespace vk {

/// How one coordinate passes through the four systems. From a system to the next by its scale: an edge of the
/// page is mapped to its image.
struct AxisMapping {
  double usr, log, scr;           ///< the left or the top edge
  double usrToLog, logToScr;      ///< scales
  const NarrowMapping* narrow;    ///< Usr to Log where singles do not resolve it
  double scrLength, pixelLength;  ///< of the page

  double usr2Log(double v) const { return narrow ? narrow->toLog(v) : log + (v - usr) * usrToLog; }
  double log2Usr(double v) const {
    return narrow ? narrow->toUsr(v) : usr + checked::divide(v - log, usrToLog);
  }
  double log2Scr(double v) const { return scr + (v - log) * logToScr; }
  double scr2Log(double v) const { return log + checked::divide(v - scr, logToScr); }
  double usr2Scr(double v) const { return log2Scr(usr2Log(v)); }
  double scr2Usr(double v) const { return log2Usr(scr2Log(v)); }
  double scr2Pixel(double v) const { return pixelLength * checked::divide(v, scrLength); }
  double pixel2Usr(double v) const { return scr2Usr(scrLength * checked::divide(v, pixelLength)); }
};

}  // namespace vk
