#include "batch/figures/ToolkitFigures.h"

#include <algorithm>
#include <array>

#include "base/Text.h"
#include "batch/TerminalPorts.h"
#include "platform/Files.h"
#include "platform/system/Processes.h"
#include "ui/qt/devices/ImageDevice.h"
#include "ui/qt/devices/VectorDevice.h"

namespace vk {
namespace {

constexpr const char* kPsProgram = "pdftops";

/// Sides and pixels of an image that the toolkit and the machine can bear.
constexpr double kMostSide = 32000, kMostPixels = 1.6E8;

void requireBearable(const FigureSheet& sheet, const SheetSize& drawing) {
  const SheetSize size = sheet.placeFor(drawing).sheet;
  const double width = size.width / kTwipsPerInch * sheet.dpi,
               height = size.height / kTwipsPerInch * sheet.dpi;
  if (std::max(width, height) > kMostSide || width * height > kMostPixels)
    throw UsageError("--dpi: la figura avrebbe troppi punti");
}

std::string png(const VectorDevice& form, const FigureSheet& sheet) {
  requireBearable(sheet, form.area());
  return form.png(sheet);
}
std::string svg(const VectorDevice& form, const FigureSheet& sheet) {
  return form.svg(sheet);
}
std::string pdf(const VectorDevice& form, const FigureSheet& sheet) {
  return form.pdf(sheet);
}

std::string eps(const VectorDevice& form, const FigureSheet& sheet) {
  const ProcessEnd end = runProgram({kPsProgram, "-eps", "-", "-"}, form.pdf(sheet));
  if (end.exitCode != 0)
    throw UsageError(std::string(kPsProgram) + " NON ha scritto la figura: " + end.errors);
  return end.output;
}

/// A format and how a drawing of lines and letters becomes it.
struct Format {
  const char* extension;
  std::string (*bytes)(const VectorDevice& form, const FigureSheet& sheet);
};
constexpr Format kPng{"PNG", png}, kEps{"EPS", eps};
constexpr std::array kFormats{kPng, Format{"SVG", svg}, Format{"PDF", pdf}, kEps};

const Format& formatFor(const std::string& fileName, const std::string& format) {
  const std::string wanted = format.empty() ? GetExtensionName(fileName) : format;
  for (const Format& known : kFormats) {
    if (equalIgnoringCase(wanted, known.extension)) return known;
  }
  if (!format.empty()) throw UsageError("--format: si attende png, svg, pdf o eps");
  throw UsageError(shownName(fileName) + ": si attende un nome .PNG, .SVG, .PDF o .EPS, o --format");
}

/// The picture that a window shows, where nothing else is asked for.
FigureForm windowPicture(QtLetters& letters) {
  auto device = std::make_unique<ImageDevice>(letters);
  ImageDevice* form = device.get();
  return {std::move(device), [form](const FigureWords&) { return form->png(); }};
}

}  // namespace

FigureForm ToolkitFigures::formFor(const std::string& fileName, const FigureOptions& options) {
  const Format& format = formatFor(fileName, options.format);
  FigureSheet sheet = sheetOf(options);
  const bool image = format.bytes == kPng.bytes;
  if (options.dpi && !image) throw UsageError("--dpi: solo per figure .PNG");
  if (format.bytes == kEps.bytes && runProgram({kPsProgram, "-v"}).exitCode != 0)
    throw UsageError("Per figure .EPS serve il programma pdftops (pacchetto poppler-utils)");
  if (image && !options.dpi && options.size.empty() && !options.transparent)
    return windowPicture(graphics_.letters());
  auto device = std::make_unique<VectorDevice>(graphics_.letters());
  const VectorDevice* form = device.get();
  return {std::move(device), [form, bytes = format.bytes, sheet](const FigureWords& words) mutable {
            sheet.words = words;
            return bytes(*form, sheet);
          }};
}

}  // namespace vk
