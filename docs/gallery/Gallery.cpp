// Draws the sheets of the gallery and writes each as PNG, SVG and PDF. Usage: gallery [FOLDER]

#include <filesystem>
#include <fstream>
#include <iostream>

#include "docs/gallery/Sheets.h"
#include "gral/NoPrinter.h"
#include "ui/qt/devices/ImageDevice.h"
#include "ui/qt/devices/QtGraphics.h"
#include "ui/qt/devices/VectorDevice.h"

namespace {

void write(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  if (!file) throw std::runtime_error("cannot write " + path.string());
}

void drawOn(vk::Device& device, const vk::Sheet& sheet) {
  vk::NoPrinter printer;
  vk::GralCls drawing(printer);
  drawing.GralCaption = sheet.name;
  drawing.GralGrStr(device, sheet.orientation, vk::kGalleryScale);
  sheet.draw(drawing);
  drawing.GralGrEnd();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::filesystem::path folder = argc > 1 ? argv[1] : ".";
    std::filesystem::create_directories(folder);
    vk::QtGraphics graphics;
    for (const vk::Sheet& sheet : vk::gallerySheets()) {
      vk::ImageDevice image(graphics.letters());
      drawOn(image, sheet);
      write(folder / (std::string(sheet.name) + ".png"), image.png());
      vk::VectorDevice vectors(graphics.letters());
      drawOn(vectors, sheet);
      write(folder / (std::string(sheet.name) + ".svg"), vectors.svg());
      write(folder / (std::string(sheet.name) + ".pdf"), vectors.pdf());
    }
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
  return 0;
}
