#include "platform/system/FigureModule.h"

#include <dlfcn.h>

#include <filesystem>

#include "base/RuntimeError.h"

namespace vk {
namespace {

constexpr const char* kModuleName = "vor_figures.so";
constexpr const char* kInstalledFolder = "../lib/vor_kel/";

}  // namespace

std::unique_ptr<FigureFile> FigureModule::create(FigureFormat format) {
  if (files_ == nullptr) {
    void* module = dlopen(path_.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* entry = module == nullptr ? nullptr : dlsym(module, kFigureModuleEntry);
    if (entry == nullptr) throw RuntimeError(kFileNotFound);
    files_ = reinterpret_cast<FigureModuleEntry>(entry)();
  }
  return files_->create(format);
}

std::string figureModulePath(const std::string& programFolder) {
  const std::filesystem::path folder = programFolder;
  const std::filesystem::path beside = folder / kModuleName;
  std::error_code ignored;
  if (std::filesystem::exists(beside, ignored)) return beside.string();
  return (folder / kInstalledFolder / kModuleName).string();
}

}  // namespace vk
