#pragma once

#include <optional>
#include <string>

#include "batch/FigureMaker.h"
#include "grafile/StandardFigure.h"
#include "numeric/Fault.h"

namespace vk {

struct Session;

/// A band about the function in the figures.
struct BandWish {
  double percent = 0;       ///< probability that it holds the true function
  bool prediction = false;  ///< also the band of a further measurement
};

/// The files that `fit` makes of its figures; what has no name is not made.
struct WantedFigures {
  bool drawn() const { return !figure.empty() || !graphicFile.empty() || !show.empty(); }
  bool any() const { return drawn() || !differences.empty(); }

  std::string figure;         ///< data and function, drawn
  FigureOptions options{};    ///< of that drawing
  std::string graphicFile;    ///< the same as a graphic file
  std::string differences;    ///< differences of data and function, as a data file
  std::optional<int> digits;  ///< of the differences; by default those that they have
  std::string band;           ///< "68" or "95", per cent of the band about the function; empty without one
  bool prediction = false;    ///< also the band of a further measurement
  std::string style;          ///< `kModernStyle`, or empty for the standard one
  std::string show;           ///< how a terminal shows that drawing; empty where none does
  bool residuals = false;     ///< a second box below with the residuals; the style is modern then

  bool modern() const { return residuals || !style.empty(); }
};

inline constexpr const char* kModernStyle = "modern";

/// The band that is asked for. Another word, and a band without a figure that could show it, raise `UsageError`.
std::optional<BandWish> bandWish(const WantedFigures& wanted);

/// Said where a band cannot be computed.
inline constexpr const char* kNoBand = "fit: la banda di confidenza NON si puo` calcolare\n";

/// Draws a standard figure of the session (`FigureKind`) on a form as a page; its texts stay in the session.
void drawFigure(Session& session, int kind, Device& form, EvaluationListener& listener,
                const FigurePage& page = {});

/// The figures of a fit that is still to run.
class FitFigures {
 public:
  /// A name with a wrong ending raises `UsageError` now, before the work begins.
  FitFigures(const WantedFigures& wanted, FigureMaker* maker);

  /// Makes the files from the session's data and function. False when the function cannot be computed, which
  /// is told on the error stream. A file that cannot be written raises `UsageError`.
  bool write(Session& session, EvaluationListener& listener);

 private:
  bool writeFunction(Session& session, EvaluationListener& listener);
  FigureTexts drawFunction(Session& session, EvaluationListener& listener, Device& form,
                           const FigurePage& page) const;
  bool writeDifferences(Session& session, EvaluationListener& listener) const;

  WantedFigures wanted_;
  FigureForm form_, shown_;
};

}  // namespace vk
