#pragma once

#include <QFont>
#include <QFontMetricsF>

#include "platform/FontSpec.h"
#include "ui/layout/CharFrame.h"
#include "ui/layout/TextMeasure.h"

namespace vk {

/// Which font of the system stands for a face of the program.
QString systemFace(const std::string& face);

QFont toolkitFont(const FontSpec& font);

/// Fonts of the lists of functions and of the input form ("Terminal"), and of the latter's buttons ("Fixedsys").
QFont listFont();
QFont formFont();
QFont formButtonFont();

/// Text sizes in a toolkit font. Texts are those of windows, or of grids.
class FontMeasure : public TextMeasure {
 public:
  enum class Texts { kWindow, kGrid };
  explicit FontMeasure(const QFont& font, Texts texts = Texts::kWindow) : metrics_(font), texts_(texts) {}
  Twips width(std::string_view text) const override;
  Twips height() const override;

 private:
  QFontMetricsF metrics_;
  Texts texts_;
};

/// The cell of a fixed-width font: whole pixels, measured on the letter "A".
CellSize cellOf(const QFont& font);

}  // namespace vk
