#include "batch/figures/ToolkitFigures.h"

#include <array>

#include "base/Text.h"
#include "batch/TerminalPorts.h"
#include "platform/Files.h"
#include "ui/qt/devices/ImageDevice.h"
#include "ui/qt/devices/VectorDevice.h"

namespace vk {
namespace {

/// A form of a device, and the operation that gives its file.
template <class FormDevice, auto bytes>
FigureForm makeForm(QtLetters& letters) {
  auto device = std::make_unique<FormDevice>(letters);
  FormDevice* form = device.get();
  return {std::move(device), [form] { return (form->*bytes)(); }};
}

struct Format {
  const char* extension;
  FigureForm (*make)(QtLetters& letters);
};

constexpr std::array kFormats{
    Format{"PNG", makeForm<ImageDevice, &ImageDevice::png>},
    Format{"SVG", makeForm<VectorDevice, &VectorDevice::svg>},
    Format{"PDF", makeForm<VectorDevice, &VectorDevice::pdf>},
};

}  // namespace

FigureForm ToolkitFigures::formFor(const std::string& fileName) {
  for (const Format& format : kFormats) {
    if (equalIgnoringCase(GetExtensionName(fileName), format.extension))
      return format.make(graphics_.letters());
  }
  throw UsageError(shownName(fileName) + ": si attende un nome .PNG, .SVG o .PDF");
}

}  // namespace vk
