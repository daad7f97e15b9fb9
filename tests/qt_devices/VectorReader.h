#pragma once

#include <QRectF>
#include <string>
#include <vector>

namespace vk {

/// What stands in a file of vectors, in twips from the top left corner.
struct VectorContent {
  /// A painted outline as points close to one another, and the width of its pen (0 when only filled).
  struct Shape {
    std::vector<QPointF> points;
    double penWidth = 0;
  };
  struct Letter {
    QPointF base;  ///< where its base line begins
    double size = 0;
    double angle = 0;  ///< degrees counter-clockwise
  };
  std::vector<Shape> shapes;
  std::vector<Letter> letters;
  std::vector<QRectF> clips;
};

VectorContent readSvg(const std::string& bytes);
VectorContent readPdf(const std::string& bytes);

/// The box around the shapes with their pens.
QRectF inkBox(const VectorContent& content);

}  // namespace vk
