#pragma once

#include <array>

#include "base/EncodedText.h"
#include "platform/Texts.h"
#include "ui/layout/Geometry.h"
#include "ui/layout/TextMeasure.h"

namespace vk {

inline constexpr const char* kScreenFrameCaption = "Sfondo Schermo";
inline constexpr const char* kPaperFrameCaption = "Orientazione Carta";
inline constexpr const char* kScaleFrameCaption = "Ingrandimento Figure";
inline constexpr std::array<const char*, 4> kScaleLegends{kDataWord, kDataAndFunction, "Differenze",
                                                          "File Grafico"};
inline constexpr std::array<const char*, 2> kPaperOptions{"Orizzontale", "Verticale"};
inline const std::array<WindowText, 2> kGraphicButtons{kGiveUpButton, kAcceptButton};

/// Where everything stands in the graphic options panel, in twips. Places are within the frame that holds the
/// control. The sizes follow from the texts, so that the panel fits its content.
struct GraphicPanelLayout {
  Size FraGra;
  Rect FraGraScr, FraGraOri, FraGraIng;
  Rect Image1;  ///< each of the pictures
  std::array<Rect, 2> OptOri;
  std::array<Rect, 4> LblFctLeg, VScFct, LblFctVal;
  std::array<Rect, 2> CmdImpGra;
};

GraphicPanelLayout layoutGraphicPanel(const TextMeasure& font);

}  // namespace vk
