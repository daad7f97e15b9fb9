#include "ui/qt/forms/CharacterPalette.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {

class LblChr : public QLabel {
 public:
  LblChr(QWidget* palette, int cell, const Rect& place) : QLabel(palette) {
    const int code = cell + kFirstPaletteCode;
    setObjectName(QString("LblChr(%1)").arg(cell));
    setTextFormat(Qt::PlainText);
    setText(fromText(Cp437Text(std::string(1, static_cast<char>(code)))));
    setAccessibleName(QString("Carattere %1: %2").arg(code).arg(text()));
    setToolTip(QString("Carattere %1").arg(code));
    setAlignment(Qt::AlignCenter);
    setGeometry(toPixels(place));
    setAutoFillBackground(true);
    setSelected(false);
  }

  void setSelected(bool on) {
    setBackgroundRole(on ? QPalette::Highlight : QPalette::Base);
    setForegroundRole(on ? QPalette::HighlightedText : QPalette::Text);
  }

  std::function<void()> entered, clicked;

 protected:
  void enterEvent(QEnterEvent*) override { entered(); }
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton) clicked();
  }
};

namespace {

constexpr const char* kCaption = "Inserisci Carattere";
constexpr int kCaptionLeft = 10;  // pixels
constexpr int kNoCell = kPaletteCells - 1;

class SignMeasure : public TextMeasure {
 public:
  explicit SignMeasure(const QFont& font) : metrics_(font) {}
  Twips width(std::string_view text) const override {
    return toTwips(metrics_.horizontalAdvance(fromText(Cp437Text(std::string(text)))));
  }
  Twips height() const override { return toTwips(metrics_.height()); }

 private:
  QFontMetrics metrics_;
};

/// How far a key moves the selection.
int stepOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return -1;
    case Qt::Key_Right:
      return 1;
    case Qt::Key_Up:
      return -kPaletteColumns;
    case Qt::Key_Down:
      return kPaletteColumns;
    default:
      return 0;
  }
}

}  // namespace

FraIns::FraIns(QWidget* form, const QFont& font, const QFont& captionFont)
    : QWidget(form), captionFont_(captionFont) {
  setObjectName("FraIns");
  setAccessibleName(kCaption);
  setFont(font);
  setAutoFillBackground(true);
  setFocusPolicy(Qt::StrongFocus);
  buildCells(layoutPalette(SignMeasure(font)));
  hide();
}

void FraIns::buildCells(const PaletteLayout& layout) {
  setFixedSize(toPixels(layout.FraIns));
  for (std::size_t i = 0; i < LblChr_.size(); ++i) {
    const int cell = static_cast<int>(i);
    LblChr_[i] = new LblChr(this, cell, layout.LblChr[i]);
    LblChr_[i]->entered = [this, cell] { select(cell); };
    LblChr_[i]->clicked = [this, cell] { choose(cell); };
  }
}

void FraIns::select(int cell) {
  LblChr_.at(static_cast<std::size_t>(selected_))->setSelected(false);
  selected_ = cell;
  LblChr_.at(static_cast<std::size_t>(selected_))->setSelected(true);
}

void FraIns::choose(int cell) {
  if (chosen) chosen(cell);
}

void FraIns::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  select(0);
}

void FraIns::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Dark));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.setFont(captionFont_);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(kCaptionLeft, painter.fontMetrics().ascent(), kCaption);
}

void FraIns::keyPressEvent(QKeyEvent* event) {
  const int step = stepOf(event->key());
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      return choose(selected_);
    case Qt::Key_Escape:
      return choose(kNoCell);
    default:
      if (step == 0) return QWidget::keyPressEvent(event);
      select((selected_ + step + kPaletteCells) % kPaletteCells);
  }
}

}  // namespace vk
