#include "commands/FitCommand.h"

#include "commands/ExhaustedBox.h"
#include "commands/FitDiagnosis.h"
#include "commands/FitScreen.h"
#include "commands/Preconditions.h"

namespace vk {

void MenAdaAda(Session& session, Ports& ports) {
  ExhaustedBox listener(ports.dialogs);
  fitOnScreen(session, ports, listener);
}

void fitOnScreen(Session& session, Ports& ports, EvaluationListener& listener) {
  if (!canFit(session, ports)) return;
  ports.report.close();  // beside this fit it would be taken for its own
  FitScreen screen(session.analysis.fun.FunctionText, session.analysis.par,
                   {ports.output, ports.dialogs, ports.clock});
  const ShutWindow shut(ports.window, Form::kOutput);
  auto record = std::make_shared<FitRecord>();
  record->start = session.analysis.par;
  record->result = FitData(session, listener, screen);
  record->functionText = session.analysis.fun.FunctionText;
  record->data = session.loaded.data;
  record->model = session.analysis.model;
  session.analysis.lastFit = std::move(record);
  ports.output.setDetail({kDiagnosisMeaning, [&] { showDiagnosis(session, ports); }});
}

void showDiagnosis(Session& session, Ports& ports) {
  const std::shared_ptr<const FitRecord> fit = session.analysis.lastFit;
  if (!fit) return;
  const ShutWindow shut(ports.window, Form::kOutput);
  ExhaustedBox listener(ports.dialogs);
  Model model = fit->model;
  const RefinedFit refined = refine({fit->data, model, listener}, fit->start, &fit->result,
                                    XErrors::kEffective, [&] { ports.output.refresh(); });
  ports.report.show(fitDiagnosis(*fit, refined));
}

FitResult FitData(Session& session, EvaluationListener& listener, FitObserver& observer) {
  Model& model = session.analysis.model;
  FitResult result = FitData({session.loaded.data, model, listener}, session.analysis.par, observer);
  session.analysis.par = result.par;
  if (result.ErrEff.upper() >= 0) session.loaded.data.ErrEff = result.ErrEff;
  session.ErrFlag = toFlag(!result.complete());
  return result;
}

}  // namespace vk
