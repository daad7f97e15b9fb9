#pragma once

#include <sstream>
#include <string>

#include "platform/InputForm.h"

namespace vk {

/// A whole form as text: one line for each frame, text and field.
inline std::string describe(const InputTables& form) {
  std::ostringstream out;
  out << form.caption.bytes() << "\n"
      << "rows " << form.InpRows << ", cols " << form.InpCols << ", fields " << form.InpFieldCount
      << ", frames " << form.InpFrameCount << ", texts " << form.InpTextCount << "\n";
  const auto place = [&](const auto& numbers) {
    for (const Int16 number : numbers) out << " " << number;
  };
  for (int i = 1; i <= form.InpFrames.upper(); ++i) {
    out << "frame";
    place(form.InpFrames[i]);
    out << "\n";
  }
  for (int i = 1; i <= form.InpTexts.upper(); ++i) {
    out << "text";
    place(form.InpTextPos[i]);
    out << " [" << form.InpTexts[i].bytes() << "]\n";
  }
  for (int i = 1; i <= form.InpFieldCount; ++i) {
    out << "field";
    place(form.InpFieldPos[i]);
    out << " [" << form.InpValues[i].bytes() << "] " << form.InpFieldKinds[i] << " label";
    place(form.InpLabelPos[i]);
    out << " [" << form.InpLabels[i].bytes() << "]\n";
  }
  return out.str();
}

}  // namespace vk
