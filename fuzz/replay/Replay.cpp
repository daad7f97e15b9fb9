// Runs a fuzz target once over each file of a folder, so that whatever a fuzzer has found stays found.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: replay FOLDER\n";
    return 2;
  }
  int inputs = 0;
  for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    std::cout << entry.path().filename().string()
              << std::endl;  // the last one printed is the one that failed
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    ++inputs;
  }
  if (inputs == 0) std::cerr << "no inputs in " << argv[1] << "\n";
  return inputs == 0 ? 1 : 0;
}
