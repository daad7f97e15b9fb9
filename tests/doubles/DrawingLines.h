#pragma once

#include <string>
#include <vector>

namespace vk {

/// The numbers of a recorder line, in order; "x,y" is two.
std::vector<double> numbersOf(const std::string& line);

/// Both drawings have the same lines, where numbers may differ by the tolerance in twips, pixels by one.
void expectSameLines(const std::vector<std::string>& drawn, const std::vector<std::string>& wanted,
                     double tolerance);

/// A figure of data and function in two parts.
struct FigureWithCurve {
  std::vector<std::string> rest;   ///< axes, texts, marks and bars, without the clipping
  std::vector<std::string> curve;  ///< the function: segments, or one polyline
};
FigureWithCurve splitCurve(const std::vector<std::string>& figure);

/// True when a line begins with this.
bool contains(const std::vector<std::string>& drawing, const std::string& start);

std::vector<std::string> withoutClip(const std::vector<std::string>& drawing);

/// The arguments of all commands of a name in a graphic text.
std::vector<std::string> commandsOf(const std::string& text, const std::string& name);

}  // namespace vk
