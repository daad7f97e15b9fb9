#include "ui/qt/forms/GraphicFrame.h"

#include "ui/qt/widgets/AccessButton.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/HelpKey.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

/// A background picture in the size of its frame.
QPixmap picturePixmap(int picture, const QSize& size, double ratio) {
  QPixmap pixmap(size * ratio);
  pixmap.setDevicePixelRatio(ratio);
  QPainter painter(&pixmap);
  paintBackground(painter, QRectF(QPointF(0, 0), QSizeF(size)), picture);
  return pixmap;
}

QString indexed(const char* name, std::size_t index) {
  return QString("%1(%2)").arg(name).arg(index);
}

}  // namespace

FraGra::FraGra(QWidget* parent, GraphicPanel& panel, const QFont& font, EventRunner run,
               std::function<void(int)> button)
    : QFrame(parent), panel_(panel), run_(std::move(run)) {
  setObjectName("FraGra");
  setManualTopic(*this, ManualTopic::kGraphicSettings);
  setAccessibleName("Impostazioni Grafiche");
  setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  setAutoFillBackground(true);
  setFont(font);
  const GraphicPanelLayout layout = layoutGraphicPanel(FontMeasure(font));
  setFixedSize(toPixels(layout.FraGra));
  buildPictures(layout);
  buildOptions(layout);
  buildScales(layout);
  buildButtons(layout, std::move(button));
  hide();
}

QGroupBox* FraGra::group(const char* name, const char* caption, const Rect& place) {
  auto* box = new QGroupBox(caption, this);
  box->setObjectName(name);
  box->setGeometry(toPixels(place));
  return box;
}

void FraGra::buildPictures(const GraphicPanelLayout& layout) {
  QGroupBox* frame = group("FraGraScr", kScreenFrameCaption, layout.FraGraScr);
  const QRect place = toPixels(layout.Image1);
  for (std::size_t i = 0; i < Image1_.size(); ++i) {
    const int picture = static_cast<int>(i);
    auto* image = new ClickLabel(frame);
    image->setObjectName(indexed("Image1", i));
    image->setAccessibleName(QString("Sfondo %1").arg(picture + 1));
    image->setGeometry(place);
    image->clicked = [this] {
      handle([this] { panel_.stepPicture(); });
      setFocus();
    };
    Image1_[i] = image;
  }
  showPicture();
}

/// The pictures are drawn when they are seen first, which is not at the start of the program.
void FraGra::showEvent(QShowEvent* event) {
  for (std::size_t i = 0; i < Image1_.size(); ++i) {
    ClickLabel& image = *Image1_[i];
    if (image.pixmap().isNull())
      image.setPixmap(picturePixmap(static_cast<int>(i), image.size(), devicePixelRatioF()));
  }
  QFrame::showEvent(event);
}

void FraGra::showPicture() {
  ClickLabel* shown = Image1_.at(static_cast<std::size_t>(panel_.picture()));
  const bool focused = hasFocus();
  setFocusProxy(shown);
  shown->show();
  if (focused) setFocus();
  for (ClickLabel* image : Image1_) image->setVisible(image == shown);
}

void FraGra::buildOptions(const GraphicPanelLayout& layout) {
  QGroupBox* frame = group("FraGraOri", kPaperFrameCaption, layout.FraGraOri);
  for (std::size_t i = 0; i < OptOri_.size(); ++i) {
    OptOri_[i] = new QRadioButton(kPaperOptions[i], frame);
    OptOri_[i]->setObjectName(indexed("OptOri", i));
    OptOri_[i]->setGeometry(toPixels(layout.OptOri[i]));
    connect(OptOri_[i], &QRadioButton::toggled, this, [this, i](bool on) {
      if (on && !syncing_) handle([&] { panel_.choosePaper(static_cast<int>(i)); });
    });
  }
}

void FraGra::buildScales(const GraphicPanelLayout& layout) {
  QGroupBox* frame = group("FraGraIng", kScaleFrameCaption, layout.FraGraIng);
  for (std::size_t i = 0; i < VScFct_.size(); ++i) {
    auto* legend = new QLabel(kScaleLegends[i], frame);
    legend->setObjectName(indexed("LblFctLeg", i));
    legend->setGeometry(toPixels(layout.LblFctLeg[i]));
    VScFct_[i] = new QScrollBar(Qt::Vertical, frame);
    VScFct_[i]->setObjectName(indexed("VScFct", i));
    VScFct_[i]->setAccessibleName(kScaleLegends[i]);
    VScFct_[i]->setGeometry(toPixels(layout.VScFct[i]));
    VScFct_[i]->setRange(GraphicPanel::kScrollMin, GraphicPanel::kScrollMax);
    VScFct_[i]->setPageStep(5);
    VScFct_[i]->setFocusPolicy(Qt::StrongFocus);
    LblFctVal_[i] = new QLabel(frame);
    LblFctVal_[i]->setObjectName(indexed("LblFctVal", i));
    LblFctVal_[i]->setGeometry(toPixels(layout.LblFctVal[i]));
    connect(VScFct_[i], &QScrollBar::valueChanged, this, [this, i](int value) {
      if (!syncing_) handle([&] { panel_.scroll(static_cast<int>(i), value); });
    });
  }
}

void FraGra::buildButtons(const GraphicPanelLayout& layout, std::function<void(int)> button) {
  for (std::size_t i = 0; i < kGraphicButtons.size(); ++i) {
    auto* pushed = new AccessButton(fromCaption(kGraphicButtons[i]), this);
    pushed->setObjectName(indexed("CmdImpGra", i));
    pushed->setGeometry(toPixels(layout.CmdImpGra[i]));
    pushed->setAutoDefault(true);
    connect(pushed, &QPushButton::clicked, this,
            [this, button, i] { run_([&] { button(static_cast<int>(i)); }); });
  }
}

void FraGra::handle(const std::function<void()>& change) {
  run_(change);
  sync();
}

void FraGra::sync() {
  syncing_ = true;
  showPicture();
  for (std::size_t i = 0; i < VScFct_.size(); ++i) {
    VScFct_[i]->setValue(panel_.scrollValue(static_cast<int>(i)));
    LblFctVal_[i]->setText(fromText(WindowText(panel_.valueText(static_cast<int>(i)))));
  }
  OptOri_.at(static_cast<std::size_t>(panel_.paperOption()))->setChecked(true);
  syncing_ = false;
}

}  // namespace vk
