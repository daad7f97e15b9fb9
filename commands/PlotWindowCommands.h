/// Unit GralFrm: the plot window.
#pragma once

#include <string>

#include "commands/Ports.h"
#include "session/Session.h"

/// The plot window `GralFrm`: what it does when the user clicks into it.
namespace vk {

/// A new plot window. A click asks what to do with the figure, and does it: go on, close, copy or print. What the
/// printer or the clipboard refuses is passed over.
PlotWindow& newPlotWindow(Ports& ports);

/// Prints the picture of a figure centred on the page, on landscape paper if it is wider than high.
void printPicture(Device& printer, Device& figure);

/// The text for `GralGrStr` of the paper orientation.
std::string paperOrientation(const FigureSettings& figures);

}  // namespace vk
