#include "batch/FigureArguments.h"

namespace vk {

CLI::Option* addFigureOptions(CLI::App& command, FigureOptions& options) {
  command.add_option("--format", options.format, "Formato del grafico, se il nome del file non lo dice")
      ->type_name("png|svg|pdf|eps");
  CLI::Option* size =
      command.add_option("--size", options.size, "Grandezza della figura, per esempio 12x8cm o 120x80mm");
  command.add_option("--scale", options.scale, "Scala della figura, lettere comprese (1)");
  command.add_flag("--portrait", options.portrait, "Pagina in verticale");
  command.add_option("--dpi", options.dpi, "Punti per pollice di un'immagine .PNG (192)");
  command.add_flag("--transparent", options.transparent, "Senza sfondo");
  return size;
}

}  // namespace vk
