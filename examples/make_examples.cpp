// Makes the sample data files of this folder: measurements as they come out of a first-year laboratory, with
// errors drawn from a fixed sequence, so that every run gives the same bytes.
// Usage: make_examples FOLDER

#include <algorithm>
#include <cmath>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "base/Text.h"
#include "data/DataFiles.h"
#include "examples/Noise.h"
#include "platform/system/SystemFiles.h"

namespace {

using namespace vk;

/// One sample: what the instrument would read without errors, and how large its errors are.
struct Sample {
  const char* file;
  const char* comment;
  const char* titleX;
  const char* titleY;
  unsigned seed;
  int points;
  double first, last;
  std::function<double(double)> truth;
  std::function<double(double)> errorOfY;  ///< from the true y
  double errorOfX;                         ///< 0: no column of x errors
};

// An x error moves the point along the curve; y is read at the true place.
DataSet measure(const Sample& sample) {
  Noise noise(sample.seed);
  DataSet data;
  data.allocate(sample.points, toFlag(sample.errorOfX > 0));
  data.TitleX = sample.titleX;
  data.TitleY = sample.titleY;
  for (int i = 1; i <= sample.points; ++i) {
    const double x = sample.first + (sample.last - sample.first) * (i - 1) / (sample.points - 1);
    const double y = sample.truth(x);
    data.ErrYpnt[i] = sample.errorOfY(y);
    data.Ypnt[i] = y + data.ErrYpnt[i] * noise();
    data.ErrXpnt[i] = sample.errorOfX;
    data.Xpnt[i] = x + (sample.errorOfX > 0 ? sample.errorOfX * noise() : 0);
  }
  return data;
}

std::function<double(double)> constant(double value) {
  return [value](double) { return value; };
}

// Counts have no decimals, and their error is the root of the counts.
void turnIntoCounts(DataSet& data) {
  for (int i = 1; i <= data.NumPnt; ++i) {
    data.Ypnt[i] = std::round(data.Ypnt[i]);
    data.ErrYpnt[i] = std::sqrt(std::max(data.Ypnt[i], 1.0));
  }
}

const std::vector<Sample>& samples() {
  static const std::vector<Sample> kSamples{
      {"ohm.dat", "Voltage across a resistor of 47 ohm against the current; both instruments have an error.",
       "I (A)", "U (V)", 11, 12, 0.02, 0.24, [](double x) { return 47 * x + 0.05; }, constant(0.08), 0.002},
      {"decay.dat", "Counts of a radioactive sample in one minute, every half minute, over a background.",
       "t (min)", "Conteggi", 23, 40, 0, 19.5, [](double x) { return 520 * std::exp(-0.31 * x) + 24; },
       [](double y) { return std::sqrt(y); }, 0},
      {"resonance.dat", "Amplitude of a driven circuit against the frequency of the driving voltage.",
       "f (kHz)", "A (V)", 37, 41, 4, 6,
       [](double x) {
         const double detuning = x * x - 5.03 * 5.03;
         return std::sqrt(9.2 / (detuning * detuning + 0.34 * 0.34 * x * x));
       },
       constant(0.05), 0},
      {"pendulum.dat", "Deflection of a damped torsion pendulum.", "t (s)", "Angolo (gradi)", 41, 61, 0, 12,
       [](double x) { return 31 * std::exp(-0.16 * x) * std::sin(2.4 * x + 0.5); }, constant(0.6), 0},
      {"thermocouple.dat", "Voltage of a thermocouple against a reference thermometer: a calibration.",
       "T (\xB0"
       "C)",
       "U (mV)", 53, 21, 0, 200, [](double x) { return 2.4e-5 * x * x + 0.0388 * x + 0.01; }, constant(0.03),
       0},
  };
  return kSamples;
}

std::string fileText(const Sample& sample) {
  DataSet data = measure(sample);
  if (std::string(sample.file) == "decay.dat") turnIntoCounts(data);
  return "% " + std::string(sample.comment) + std::string(kCrLf) + dataFileText(data);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "Usage: make_examples FOLDER\n";
    return 2;
  }
  SystemFiles files;
  for (const Sample& sample : samples()) files.writeAll(joinPath(argv[1], sample.file), fileText(sample));
  return 0;
}
