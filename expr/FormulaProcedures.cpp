#include <algorithm>
#include <vector>

#include "expr/CmpMod.h"
#include "expr/Model.h"

namespace vk {
namespace {

/// One command asks for a function at thousands of points: it is told once that the gamma function does not
/// converge.
class ExhaustedBox : public EvaluationListener {
 public:
  ExhaustedBox(Session& session, Dialogs& dialogs) : session_(session), dialogs_(dialogs) {}
  void exhausted(Kernel kernel) override {
    if (kernel == Kernel::kBetaFraction) return;
    if (session_.GammaTold == kFalse) dialogs_.plainBox("D_X2", "Errori nel Calcolo della Funzione");
    session_.GammaTold = kTrue;
  }

 private:
  Session& session_;
  Dialogs& dialogs_;
};

Flag flagOf(Fault fault) {
  return toFlag(fault != Fault::kNone);
}

double told(Session& session, const Evaluation& evaluation) {
  session.ErrFlag = flagOf(evaluation.fault);
  return evaluation.value;
}

void tellFlags(std::span<const Fault> faults, std::span<Int16> flags) {
  std::transform(faults.begin(), faults.end(), flags.begin(), flagOf);
}

Model modelOf(const AnalysisState& analysis) {
  return {analysis.fun.InnerIndex, analysis.fun.OuterIndex, analysis.model};
}

}  // namespace

double EvaluateCode(Session& session, Dialogs& dialogs, const std::string& code, Array<double>& Slots) {
  ExhaustedBox box(session, dialogs);
  return told(session, evaluate(code, Slots.span(0, Slots.upper()), box));
}

double EvaluateFunction(Session& session, Dialogs& dialogs, double x) {
  ExhaustedBox box(session, dialogs);
  return told(session, modelOf(session.analysis).at(x, session.analysis.par.ParValues, box));
}

void evaluateFunctionAt(Session& session, Dialogs& dialogs, std::span<const double> x,
                        std::span<double> result, std::span<Int16> flags) {
  if (result.empty()) return;
  ExhaustedBox box(session, dialogs);
  std::vector<Fault> faults(flags.size());
  session.ErrFlag =
      flagOf(modelOf(session.analysis).at(x, session.analysis.par.ParValues, result, box, faults));
  tellFlags(faults, flags);
}

void evaluateCodeAt(Session& session, Dialogs& dialogs, CompiledExpression& compiled,
                    std::span<const std::span<const double>> columns, std::span<double> result,
                    std::span<Int16> flags) {
  ExhaustedBox box(session, dialogs);
  std::vector<Fault> faults(flags.size());
  const Fault last = Formula(compiled).values(columns, result, box, faults);
  if (!result.empty()) session.ErrFlag = flagOf(last);
  tellFlags(faults, flags);
}

}  // namespace vk
