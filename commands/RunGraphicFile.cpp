#include "base/Text.h"
#include "commands/DisplayRefresh.h"
#include "commands/ExhaustedBox.h"
#include "commands/FigureCommands.h"
#include "commands/PlotWindowCommands.h"
#include "grafile/GraphicFile.h"
#include "gral/Plotting.h"

namespace vk {
namespace {

constexpr const char* kFigureCaption = "VOR_KEL: Visualizza File Grafico";
constexpr const char* kErrorCaption = "VOR_KEL: File Grafico - Controllo File";
constexpr const char* kWarning = "*** Attenzione: ";
constexpr const char* kPrinterDevice = "Printer";
constexpr std::size_t kFileScale = 3;

void showErrors(OutputWindow& output, const std::string& errors, bool onPrinter) {
  OutputRequest request = reportRequest(kErrorCaption, Cp437Text(errors), ManualTopic::kFigureErrors);
  request.owner = onPrinter ? Form::kMain : Form::kActivePlot;
  output.OutShow(request);
}

}  // namespace

void RunGraphicFile(Session& session, Ports& ports, const std::string& fileName, const std::string& device,
                    Int16 errorFlag) {
  const bool onPrinter = device == kPrinterDevice;
  const std::string text = ports.files.readAll(fileName);
  GralCls drawing(ports.printer());
  drawing.GralCaption = kFigureCaption;
  drawing.GralGrStr(onPrinter ? ports.printer() : newPlotWindow(ports).device(),
                    paperOrientation(session.figures),
                    static_cast<double>(session.figures.GraphScale[kFileScale]));

  try {
    ExhaustedBox listener(ports.dialogs);
    GraphicRun run(ports.files, drawing, listener, errorFlag);
    run.seekIn({session.files.DataDir, folderOf(fileName)});
    run.runText(text);
    // Each line clears the register; a file without any leaves what stood in it.
    if (!text.empty()) session.ErrFlag = toFlag(run.lastPointFailed());
    // QUIRK: a function that cannot be computed at its last point, drawn by the last line, opens an empty list.
    std::string told = run.errors();
    for (const std::string& warning : run.warnings()) told += kWarning + warning + std::string(kCrLf);
    const bool wrong = !told.empty() || session.ErrFlag != 0;
    if (wrong && session.settings.ShowErrors != kFalse) showErrors(ports.output, told, onPrinter);
    drawing.GralGrEnd();
  } catch (...) {
    drawing.GralGrAbort();
    throw;
  }
  // QUIRK: behind a graphic file the name of the data is shown in capitals.
  if (session.loaded.DataDefined != kFalse) session.loaded.DataFile = upper(session.loaded.DataFile);
  Msg(session, ports.window);
}

}  // namespace vk
