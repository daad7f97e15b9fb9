#include "batch/figures/ToolkitFigures.h"

#include <array>

#include "base/Text.h"
#include "batch/TerminalPorts.h"
#include "platform/Files.h"
#include "ui/qt/devices/ImageDevice.h"
#include "ui/qt/devices/VectorDevice.h"

namespace vk {
namespace {

FigureForm makeImage(QtLetters& letters) {
  auto device = std::make_unique<ImageDevice>(letters);
  ImageDevice* form = device.get();
  return {std::move(device), [form] { return form->png(); }};
}

/// A form of vectors, and the operation that gives its file.
template <auto bytes>
FigureForm makeVectors(QtLetters& letters) {
  auto device = std::make_unique<VectorDevice>(letters);
  const VectorDevice* form = device.get();
  return {std::move(device), [form] { return (form->*bytes)({}); }};
}

struct Format {
  const char* extension;
  FigureForm (*make)(QtLetters& letters);
};

constexpr std::array kFormats{
    Format{"PNG", makeImage},
    Format{"SVG", makeVectors<&VectorDevice::svg>},
    Format{"PDF", makeVectors<&VectorDevice::pdf>},
};

}  // namespace

FigureForm ToolkitFigures::formFor(const std::string& fileName, const std::string& format) {
  const std::string wanted = format.empty() ? GetExtensionName(fileName) : format;
  for (const Format& known : kFormats) {
    if (equalIgnoringCase(wanted, known.extension)) return known.make(graphics_.letters());
  }
  if (!format.empty()) throw UsageError("--format: si attende png, svg o pdf");
  throw UsageError(shownName(fileName) + ": si attende un nome .PNG, .SVG o .PDF, o --format");
}

}  // namespace vk
