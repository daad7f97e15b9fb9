#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/DataSet.h"
#include "grafile/FineCurve.h"
#include "grafile/FunctionLines.h"
#include "gral/Plotting.h"
#include "platform/Files.h"

/// Figures with colours and a key whose box is as large as the texts about it let it be. Titles and names are texts
/// that are drawn, with markup.
namespace vk {

/// Data of a file. A band has the columns x, lower and upper border.
struct SheetData {
  std::string name;  ///< in the key; empty for no entry
  std::string file;  ///< by which the graphic file calls them
  DataSet data;
};

/// A function over the whole box.
struct SheetCurve {
  std::string name;
  FunctionLines lines;
  CurveValues values;
};

/// What a sheet shows, and in the colours of the sets in this order: points, curves. Bands have those of the curves.
struct PlotSheet {
  std::string heading;  ///< notes at the top of the graphic file, lines with CR LF
  std::string titleX, titleY;
  std::vector<SheetData> points;
  std::vector<SheetCurve> curves;
  std::vector<SheetData> bands;
  std::optional<SheetData> residuals;  ///< in units of their errors, in a box of its own below
  double from = 0, to = 0;             ///< range of x of a sheet without points
};

/// The title of the axis of the residuals.
inline constexpr const char* kResidualTitle = "Scarti / \\\\s";

/// A name as a key shows it: the signs of markup, which cannot be written, are blanks.
std::string nameInKey(std::string name);

/// A formula in the old 8-bit code as a key shows it: powers are raised, signs are markup.
std::string formulaInKey(const std::string& formula);

/// The graphic file that draws the sheet on a page like that of the open drawing.
std::string sheetText(const PlotSheet& sheet, GralCls& drawing);

/// Draws a sheet by its graphic file, with the data that it has. Gives the list of errors, CR LF ended.
std::string drawSheet(const PlotSheet& sheet, const std::string& text, Files& files, GralCls& drawing,
                      EvaluationListener& listener);

}  // namespace vk
