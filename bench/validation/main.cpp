// Writes the page docs/validation.md to the standard output.
#include <iostream>

#include "bench/validation/Sections.h"

namespace {

struct Section {
  const char* heading;
  void (*write)(std::ostream& page);
};

constexpr Section kSections[]{
    {"Certified regression problems", vk::writeCertifiedProblems},
    {"Simulated data", vk::writeCalibration},
    {"The same fit asked in other ways", vk::writeOtherWays},
    {"Propagation of errors", vk::writePropagation},
    {"Special functions and distributions", vk::writeFunctions},
};

}  // namespace

int main() {
  std::cout << "# Validation\n\n"
               "How near the results come to what is certified or known. `bench/validate` makes this page, "
               "with the same bytes\n"
               "each time.\n";
  for (const Section& section : kSections) {
    std::cout << "\n## " << section.heading << "\n\n";
    section.write(std::cout);
  }
}
