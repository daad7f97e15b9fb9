#pragma once

#include "analysis/RefinedFit.h"
#include "gral/ReportWindow.h"
#include "session/FitRecord.h"

namespace vk {

/// What F2 on the screen of a fit opens.
inline constexpr const char* kDiagnosisMeaning = "F2 o il tasto Menu mostrano la Diagnosi dell'Adattamento";

/// The diagnosis of a fit: its true minimum as a table, chi-square with its probability, each warning in a sentence,
/// and the residuals at the minimum. `refined` is of the same data.
FigureReport fitDiagnosis(const FitRecord& fit, const RefinedFit& refined);

}  // namespace vk
