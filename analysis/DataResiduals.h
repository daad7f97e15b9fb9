#pragma once

#include <span>
#include <vector>

#include "numeric/Minimise.h"
#include "platform/Dialogs.h"
#include "session/Session.h"

namespace vk {

/// Residuals of the current model function over the loaded data, weighted by the given errors of y.
class DataResiduals : public Residuals {
 public:
  /// `errors` holds one number for each point; all must outlive this object.
  DataResiduals(Session& session, Dialogs& dialogs, std::span<const double> errors);

  /// Leaves X in `ParValues`. `ErrFlag` afterwards tells of the last point alone: a failure at an earlier one
  /// is overwritten, and that point takes part with the residual that stood in F.
  bool ComputeResiduals(std::span<const double> X, std::span<double> F, double& sum) override;

 private:
  bool weigh(std::span<double> F, double& sum) const;

  Session& session_;
  Dialogs& dialogs_;
  std::span<const double> errors_;
  std::vector<double> model_;
};

/// Writes the free parameters' values to their places among all parameters.
void storeFreeValues(Session& session, std::span<const double> X);

}  // namespace vk
