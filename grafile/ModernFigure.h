#pragma once

#include "grafile/PlotSheet.h"
#include "grafile/StandardFigure.h"

namespace vk {

/// The sheet of a figure of data or of data and function. Its curve computes by source and listener.
PlotSheet modernSheet(const FigureSource& source, const FigureValues& values, EvaluationListener& listener);

/// Draws such a figure on an open drawing. Nothing is read of `files`; the texts hold what the graphic file needs
/// beside the data of the source.
FigureTexts drawModern(const FigureSource& source, const FigureValues& values, Files& files, GralCls& drawing,
                       EvaluationListener& listener);

}  // namespace vk
