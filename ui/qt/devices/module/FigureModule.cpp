// The module that a program loads when a figure is to be written as a file.

#include "platform/FigureFiles.h"
#include "ui/qt/devices/ImageDevice.h"
#include "ui/qt/devices/QtGraphics.h"
#include "ui/qt/devices/VectorDevice.h"

namespace vk {
namespace {

class ImageFile : public FigureFile {
 public:
  explicit ImageFile(QtLetters& letters) : image_(letters) {}
  Device& device() override { return image_; }
  std::string bytes() override { return image_.png(); }

 private:
  ImageDevice image_;
};

class VectorFile : public FigureFile {
 public:
  VectorFile(QtLetters& letters, FigureFormat format) : vectors_(letters), format_(format) {}
  Device& device() override { return vectors_; }
  std::string bytes() override { return format_ == FigureFormat::kSvg ? vectors_.svg() : vectors_.pdf(); }

 private:
  VectorDevice vectors_;
  FigureFormat format_;
};

class QtFigureFiles : public FigureFiles {
 public:
  std::unique_ptr<FigureFile> create(FigureFormat format) override {
    if (format == FigureFormat::kPng) return std::make_unique<ImageFile>(graphics_.letters());
    return std::make_unique<VectorFile>(graphics_.letters(), format);
  }

 private:
  QtGraphics graphics_;
};

}  // namespace
}  // namespace vk

extern "C" vk::FigureFiles* vor_figure_files() {
  static vk::QtFigureFiles files;
  return &files;
}
