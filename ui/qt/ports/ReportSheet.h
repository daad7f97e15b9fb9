#pragma once

#include "gral/Device.h"
#include "gral/ReportWindow.h"
#include "platform/FontSpec.h"
#include "platform/Printer.h"

namespace vk {

/// Prints a report on one upright page, the figure below the text in `font`, which is made smaller where it would fill
/// the page. Both printers are the same one, for text and for figures.
void printReport(const FigureReport& report, const FontSpec& font, Printer& printer, Device& figurePrinter);

}  // namespace vk
