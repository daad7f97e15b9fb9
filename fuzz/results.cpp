#include <cmath>
#include <string_view>

#include "batch/FitResultFile.h"
#include "batch/TerminalPorts.h"
#include "fuzz/Input.h"
#include "fuzz/OneFile.h"

namespace vk {

/// Any bytes are refused in words, or give parameters with errors and correlations that a propagation can use.
void probe(Input input) {
  OneFile files(input.rest());
  FittedParameters fitted;
  try {
    fitted = readFitResult(files, "risultato.json");
  } catch (const UsageError& refusal) {
    require(std::string_view(refusal.what()).starts_with("risultato.json: "),
            "a refusal that names the file");
    return;
  }
  const int count = static_cast<int>(fitted.parameters.size());
  require(fitted.correlation.size() == count, "a correlation for each two parameters");
  for (const FittedParameter& parameter : fitted.parameters) {
    require(!parameter.name.empty(), "a name");
    require(std::isfinite(parameter.value), "a value");
    require(std::isfinite(parameter.error) && parameter.error >= 0, "an error");
  }
  for (int a = 1; a <= count; ++a) {
    for (int b = 1; b < a; ++b) require(std::abs(fitted.correlation.at(a, b)) <= 1 + 1E-9, "a correlation");
  }
  factorOf(fitted.correlation, fitted.file);
}

}  // namespace vk
