#pragma once

#include <QIcon>
#include <QPainter>
#include <QPixmap>

/// The pictures of the program. All are drawn by code, so they are sharp on every screen.
namespace vk {

inline constexpr int kBackgrounds = 3;

/// Fills the rectangle with a background picture: 0 points on a curve, 1 lines of a field, 2 a histogram.
void paintBackground(QPainter& painter, const QRectF& place, int picture);

/// Picture 1..4 of the message dialog: question, exclamation, information, stop. `ratio` is the number of
/// screen points in a pixel.
QPixmap dialogIcon(int icon, int pixels, double ratio);

/// The program's own icon in several sizes.
QIcon applicationIcon();

}  // namespace vk
