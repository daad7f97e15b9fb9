#include "batch/FigureArguments.h"

#include <algorithm>

#include "batch/TerminalPicture.h"

namespace vk {
namespace {

constexpr const char* kShow = "--show";

}  // namespace

void addFigureOptions(CLI::App& command, FigureOptions& options, SizeWithout other) {
  command.add_option("--format", options.format, "Formato del grafico, se il nome del file non lo dice")
      ->type_name("png|svg|pdf|eps");
  CLI::Option* size =
      command.add_option("--size", options.size, "Grandezza della figura, per esempio 12x8cm o 120x80mm");
  CLI::Option* scale =
      command.add_option("--scale", options.scale, "Scala della figura, lettere comprese (1)");
  CLI::Option* portrait = command.add_flag("--portrait", options.portrait, "Pagina in verticale");
  command.add_option("--dpi", options.dpi, "Punti per pollice di un'immagine .PNG (192)");
  command.add_flag("--transparent", options.transparent, "Senza sfondo");
  size->excludes(other == SizeWithout::kScale ? scale : portrait);
}

void addShow(CLI::App& command, std::string& show) {
  command.add_option(kShow, show, "Mostra il grafico nel terminale (blocks)")
      ->type_name(std::string("=") + kBlocks + "|" + kSixel);
}

void nameShownForm(std::vector<std::string>& words) {
  std::ranges::replace(words, kShow, std::string(kShow) + "=" + kBlocks);
}

}  // namespace vk
