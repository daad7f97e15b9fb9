#include "platform/system/Sixel.h"

#include <dlfcn.h>
#include <sixel/sixel.h>

#include <vector>

namespace vk {
namespace {

constexpr const char* kLibrary = "libsixel.so.1";
constexpr int kColours = 256, kChannels = 3;

/// The library as long as it is in use.
class Library {
 public:
  Library() : handle_(dlopen(kLibrary, RTLD_NOW)) {}
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
  ~Library() {
    if (handle_ != nullptr) dlclose(handle_);
  }

  explicit operator bool() const { return handle_ != nullptr; }
  template <class Function>
  Function* find(const char* name) const {
    return reinterpret_cast<Function*>(dlsym(handle_, name));
  }

 private:
  void* handle_;
};

int append(char* data, int size, void* text) {
  static_cast<std::string*>(text)->append(data, static_cast<std::size_t>(size));
  return size;
}

std::vector<unsigned char> bytesOf(std::span<const std::uint32_t> pixels) {
  std::vector<unsigned char> bytes;
  bytes.reserve(kChannels * pixels.size());
  for (const std::uint32_t pixel : pixels) {
    for (const int shift : {16, 8, 0}) bytes.push_back(static_cast<unsigned char>(pixel >> shift));
  }
  return bytes;
}

}  // namespace

std::optional<std::string> sixelsOf(std::span<const std::uint32_t> pixels, int width, int height) {
  const Library library;
  if (!library) return std::nullopt;
  const auto newOutput = library.find<decltype(sixel_output_new)>("sixel_output_new");
  const auto dropOutput = library.find<decltype(sixel_output_unref)>("sixel_output_unref");
  const auto newColours = library.find<decltype(sixel_dither_new)>("sixel_dither_new");
  const auto chooseColours = library.find<decltype(sixel_dither_initialize)>("sixel_dither_initialize");
  const auto dropColours = library.find<decltype(sixel_dither_unref)>("sixel_dither_unref");
  const auto encode = library.find<decltype(sixel_encode)>("sixel_encode");
  for (const bool found : {newOutput != nullptr, dropOutput != nullptr, newColours != nullptr,
                           chooseColours != nullptr, dropColours != nullptr, encode != nullptr}) {
    if (!found) return std::nullopt;
  }
  std::vector<unsigned char> bytes = bytesOf(pixels);
  std::string text;
  sixel_output_t* output = nullptr;
  sixel_dither_t* colours = nullptr;
  const bool made =
      SIXEL_SUCCEEDED(newOutput(&output, append, &text, nullptr)) &&
      SIXEL_SUCCEEDED(newColours(&colours, kColours, nullptr)) &&
      SIXEL_SUCCEEDED(chooseColours(colours, bytes.data(), width, height, SIXEL_PIXELFORMAT_RGB888,
                                    SIXEL_LARGE_AUTO, SIXEL_REP_AUTO, SIXEL_QUALITY_AUTO)) &&
      SIXEL_SUCCEEDED(encode(bytes.data(), width, height, 8 * kChannels, colours, output));
  if (colours != nullptr) dropColours(colours);
  if (output != nullptr) dropOutput(output);
  return made ? std::optional(text) : std::nullopt;
}

}  // namespace vk
