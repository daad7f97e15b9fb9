#pragma once

#include <memory>
#include <string>

#include "platform/FigureFiles.h"

namespace vk {

/// The devices that write figures as files, in a module that is loaded when the first figure is asked for:
/// a program that draws nothing needs neither the toolkit nor its fonts.
class FigureModule : public FigureFiles {
 public:
  /// Name of the module's file. It is loaded once and stays to the end of the program.
  explicit FigureModule(std::string path) : path_(std::move(path)) {}

  /// A module that is missing, or is none, is run-time error 53.
  std::unique_ptr<FigureFile> create(FigureFormat format) override;

 private:
  std::string path_;
  FigureFiles* files_ = nullptr;
};

/// The module's file beside a program, or in the library folder of an installation.
std::string figureModulePath(const std::string& programFolder);

}  // namespace vk
