#pragma once

#include <functional>

#include "GralFixture.h"
#include "base/RuntimeError.h"

namespace vk {

/// An array with elements 1..n; element 0 is 0.
inline Array<float> levelsOf(std::initializer_list<double> values) {
  Array<float> result(static_cast<int>(values.size()));
  int k = 0;
  for (const double value : values) result[++k] = static_cast<float>(value);
  return result;
}

/// z(i, j) = f(i, j) for i = 1..nx, j = 1..ny.
inline Array2<float> gridOf(int nx, int ny, const std::function<double(int, int)>& f) {
  Array2<float> z(nx, ny);
  for (int j = 1; j <= ny; ++j) {
    for (int i = 1; i <= nx; ++i) z(i, j) = static_cast<float>(f(i, j));
  }
  return z;
}

/// Number of the run-time error that an operation ends in, 0 for none.
inline int failureOf(const std::function<void()>& operation) {
  try {
    operation();
    return 0;
  } catch (const RuntimeError& error) {
    return error.number();
  }
}

/// The lines of a drawing, in twips, with the colour of each.
class LineCatcher : public LineWriter {
 public:
  struct Line {
    double x1, y1, x2, y2;
    Colour color;
  };
  std::vector<Line> caught;
  void pen(const Pen& pen) override { color_ = pen.color; }
  void line(const TwipPoint& a, const TwipPoint& b) override {
    caught.push_back({a.x, a.y, b.x, b.y, color_});
  }

 private:
  Colour color_ = kBlack;
};

}  // namespace vk
