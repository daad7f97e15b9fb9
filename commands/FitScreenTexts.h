/// Unit FitMod: heads and masks of the tables of a fit, code page 437.
#pragma once

#include <string>

#include "analysis/ParameterSet.h"
#include "base/EncodedText.h"

namespace vk {

inline const std::string kMinimisation = "Minimizzazione";

inline const std::string kParameterHead = "Par";
inline const std::string kErrorHead = "Errore";
inline const std::string kScaledHead = "Err. Scalato";
inline const std::string kMatrixHead = "Mat. Cor.%";

// Figures of a fit, in the rows of its status block.
inline const std::string kFreedom = "\xE6               ";
inline const std::string kFreedomMask = "#####";
inline const std::string kChiSquare = "X\xFD/\xE6       ";
inline const std::string kChiSquareMask = "#.####^^^^";
inline const std::string kConfidence = "Liv. Conf. ";
inline const std::string kConfidenceMask = "###.####";
inline const std::string kPerCent = " %";

inline const std::string kNumberMask = "#.######^^^^";
inline const std::string kNoError = "___________";
inline const std::string kNoMatrix = " _____";

inline constexpr int kFrameStyle = 3;

/// Columns of the names, odd and at least 3.
int nameWidthOf(const ParameterSet& par);

/// The name of a parameter in its field with a blank behind it, unless the name fills the column.
std::string nameText(const ParameterSet& par, int parameter, int width);

/// A confidence level in per cent, as the status block has it.
std::string confidenceText(double confidence);

/// A correlation in per cent; run-time error 6 where it is none.
std::string correlationText(double correlation);

}  // namespace vk
