#pragma once

#include <string>
#include <vector>

#include "gral/Plotting.h"

namespace vk {

/// One page of the gallery: what a subject of the drawing library looks like.
struct Sheet {
  const char* name;         ///< of its files
  const char* orientation;  ///< "LANDSCAPE" or "PORTRAIT"
  void (*draw)(GralCls& drawing);
};

/// The pages in order: axes, curves and data, and after them contours and surfaces.
const std::vector<Sheet>& gallerySheets();
/// Those of contours and surfaces, which `gallerySheets` ends with.
const std::vector<Sheet>& surfaceSheets();

/// Scale at which the sheets are drawn on forms.
inline constexpr double kGalleryScale = 1.6;

/// Heights of the titles of sheets and of the texts on them, in points.
inline constexpr double kTitlePoints = 18, kTextPoints = 11;

/// Usr is Log again, with a title in the middle of the top.
void beginSheet(GralCls& drawing, const std::string& title);

}  // namespace vk
