#pragma once

#include <vector>

#include "gral/GralCls.h"

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

}  // namespace vk
