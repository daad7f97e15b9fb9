// Makes the data files of laboratorio/: measurements with errors drawn from a fixed sequence, so that every run gives
// the same bytes. The pages there tell the true values.
// Usage: make_laboratory FOLDER

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <numbers>
#include <string>
#include <vector>

#include "examples/Noise.h"

namespace {

using namespace vk;

using Curve = std::function<double(double)>;

/// One column as it is written down: its errors, and the decimals that the instrument shows. An error of 0 is no
/// column.
struct Column {
  const char* title;
  Curve error;  ///< as the student states it, from the true value
  int decimals, decimalsOfError;
};

/// A measurement: what the instruments would read without errors, and how large their errors are.
struct Measurement {
  const char* file;
  const char* comments;
  unsigned seed;
  Column x, y;
  std::vector<double> places;
  Curve truth;
  bool counts = false;      ///< y is counted: its error is the root of the counts
  double scatter = 1;       ///< the true errors of y in units of the stated ones
  std::size_t misread = 0;  ///< the point, from 1, whose second and third digits were swapped; 0 for none
};

Curve always(double value) {
  return [value](double) { return value; };
}

std::vector<double> evenly(int points, double first, double last) {
  std::vector<double> places;
  for (int i = 0; i < points; ++i) places.push_back(first + (last - first) * i / (points - 1));
  return places;
}

/// A straight line of errors: `floor` and a part of the value.
Curve partly(double part, double floor) {
  return [part, floor](double value) { return part * value + floor; };
}

void add(std::string& line, double value, int decimals) {
  char text[40];
  std::snprintf(text, sizeof text, " %9.*f", decimals, value);
  line += text;
}

double withSwappedDigits(double counts) {
  std::string digits = std::to_string(std::lround(counts));
  std::swap(digits.at(1), digits.at(2));
  return std::stod(digits);
}

// An x error moves the point along the curve; y is read at the true place.
std::string pointLine(const Measurement& measurement, std::size_t point, Noise& noise) {
  const double place = measurement.places.at(point - 1);
  const double truth = measurement.truth(place);
  const double errorOfX = measurement.x.error(place);
  double y = 0, errorOfY = 0;
  if (measurement.counts) {
    y = noise.counts(truth);
    if (point == measurement.misread) y = withSwappedDigits(y);
    errorOfY = std::sqrt(y);
  } else {
    errorOfY = measurement.y.error(truth);
    y = truth + measurement.scatter * errorOfY * noise();
  }
  std::string line;
  add(line, errorOfX > 0 ? place + errorOfX * noise() : place, measurement.x.decimals);
  add(line, y, measurement.y.decimals);
  if (errorOfX > 0) add(line, errorOfX, measurement.x.decimalsOfError);
  add(line, errorOfY, measurement.y.decimalsOfError);
  return line + "\n";
}

std::string fileText(const Measurement& measurement) {
  const bool withErrorsOfX = measurement.x.error(measurement.places.front()) > 0;
  Noise noise(measurement.seed);
  std::string text = measurement.comments;
  text += std::string(measurement.x.title) + "\n" + measurement.y.title + "\n";
  text += " " + std::to_string(measurement.places.size()) + (withErrorsOfX ? " 1\n" : "\n");
  for (std::size_t point = 1; point <= measurement.places.size(); ++point)
    text += pointLine(measurement, point, noise);
  return text;
}

Measurement pendulum() {
  return {.file = "01-pendolo/pendolo.dat",
          .comments =
              "% Pendolo semplice: lunghezza del filo e periodo, da 20 oscillazioni cronometrate a mano.\n",
          .seed = 401,
          .x = {"l (m)", always(0), 2, 0},
          .y = {"T (s)", always(0.01), 3, 3},
          .places = evenly(11, 0.2, 1.2),
          .truth = [](double l) { return 2 * std::numbers::pi * std::sqrt((l + 0.02) / 9.806); }};
}

Measurement spring() {
  return {.file = "02-molla/molla.dat",
          .comments = "% Molla: massa appesa e posizione dell'indice sulla scala.\n",
          .seed = 102,
          .x = {"Massa (g)", always(0), 0, 0},
          .y = {"Posizione (cm)", always(0.1), 2, 1},
          .places = evenly(12, 20, 240),
          .truth = [](double mass) { return 15.2 + 0.9806 / 8 * mass; },
          .scatter = 0.3};
}

Measurement fall() {
  return {
      .file = "03-caduta/caduta.dat",
      .comments = "% Caduta libera: posizione dei segni sulla striscia, uno ogni cinquantesimo di secondo.\n",
      .seed = 103,
      .x = {"t (s)", always(0), 2, 0},
      .y = {"s (m)", always(0.0005), 4, 4},
      .places = evenly(16, 0, 0.3),
      .truth = [](double t) { return 0.013 + 0.42 * t + 9.806 / 2 * t * t; }};
}

Measurement capacitor() {
  return {.file = "04-condensatore/condensatore.dat",
          .comments = "% Scarica di un condensatore di 100 microfarad nominali su 100 kiloohm.\n",
          .seed = 104,
          .x = {"t (s)", always(0), 1, 0},
          .y = {"U (V)", always(0.05), 2, 2},
          .places = evenly(21, 0, 60),
          .truth = [](double t) { return 9.8 * std::exp(-t / 10.8); }};
}

Measurement diode() {
  return {
      .file = "05-diodo/diodo.dat",
      .comments = "% Diodo al silicio a 20 gradi: tensione e corrente, con gli errori dei due strumenti.\n",
      .seed = 605,
      .x = {"U (V)", always(0.001), 3, 3},
      .y = {"I (mA)", partly(0.005, 0.001), 3, 3},
      .places = evenly(12, 0.44, 0.66),
      .truth = [](double u) { return 3e-6 * (std::exp(u / (1.8 * 0.02526)) - 1); }};
}

Measurement resonance() {
  return {.file = "06-risonanza/risonanza.dat",
          .comments = "% Circuito RLC in serie: ampiezza della tensione sulla resistenza.\n",
          .seed = 106,
          .x = {"f (kHz)", always(0), 2, 0},
          .y = {"U (V)", partly(0.01, 0.005), 3, 3},
          .places = {12, 12.5, 13,   13.5, 14, 14.4, 14.8, 15.1, 15.4, 15.6, 15.8,
                     16, 16.2, 16.4, 16.7, 17, 17.4, 17.8, 18.3, 18.8, 19.4, 20},
          .truth = [](double f) { return 1.79 / std::hypot(1, 8.9 * (f / 15.93 - 15.93 / f)); }};
}

Measurement decay() {
  return {.file = "07-decadimento/decadimento.dat",
          .comments =
              "% Bario 137m: conteggi in 10 secondi, ogni 30 secondi. Fondo: 372 conteggi in 600 secondi.\n",
          .seed = 107,
          .x = {"t (s)", always(0), 0, 0},
          .y = {"Conteggi in 10 s", {}, 0, 1},
          .places = evenly(31, 0, 900),
          .truth = [](double t) { return 800 * std::exp(-std::numbers::ln2 / 153.1 * t) + 6.2; },
          .counts = true};
}

Measurement absorption() {
  return {.file = "08-assorbimento/assorbimento.dat",
          .comments =
              "% Raggi gamma di 662 keV in lastre di piombo: spessore e conteggi in 100 secondi.\n"
              "% Fondo, senza sorgente: 1398 conteggi in 1000 secondi.\n",
          .seed = 108,
          .x = {"d (cm)", always(0.005), 3, 3},
          .y = {"Conteggi in 100 s", {}, 0, 0},
          .places = evenly(13, 0.25, 3.25),
          .truth = [](double d) { return 12000 * std::exp(-1.25 * d) + 140; },
          .counts = true,
          .misread = 4};
}

Measurement lens() {
  return {.file = "09-lente/lente.dat",
          .comments = "% Lente sul banco ottico: distanze dell'oggetto e dell'immagine dalla lente.\n",
          .seed = 609,
          .x = {"p (mm)", always(1), 0, 0},
          .y = {"q (mm)", partly(0.01, 1), 0, 0},
          .places = {130, 140, 150, 160, 180, 200, 230, 270, 320, 400, 500, 600},
          .truth = [](double p) { return 101.2 * p / (p - 101.2); }};
}

Measurement calibration() {
  return {.file = "10-taratura/taratura.dat",
          .comments = "% Taratura di un sensore di pressione con un manometro.\n",
          .seed = 610,
          .x = {"p (kPa)", always(0.5), 1, 1},
          .y = {"U (V)", always(0.01), 3, 3},
          .places = evenly(10, 10, 100),
          .truth = [](double p) { return 0.21 + 0.0452 * p; }};
}

Measurement peaks() {
  return {.file = "11-due-picchi/due-picchi.dat",
          .comments = "% Raggi X del ferro 55: conteggi per canali di 0.05 keV.\n",
          .seed = 111,
          .x = {"E (keV)", always(0), 2, 0},
          .y = {"Conteggi", {}, 0, 1},
          .places = evenly(51, 5, 7.5),
          .truth =
              [](double energy) {
                const auto line = [energy](double counts, double centre) {
                  return 0.05 * counts * std::exp(-std::pow((energy - centre) / 0.2, 2) / 2) /
                         (0.2 * std::sqrt(2 * std::numbers::pi));
                };
                return line(12000, 5.895) + line(1650, 6.49) + 12;
              },
          .counts = true};
}

Measurement cooling() {
  return {.file = "12-raffreddamento/raffreddamento.dat",
          .comments = "% Blocco di metallo che si raffredda in aria ferma; aria a 21.5 gradi.\n",
          .seed = 112,
          .x = {"t (min)", always(0), 0, 0},
          .y = {"T (°C)", always(0.2), 1, 1},
          .places = evenly(31, 0, 60),
          .truth = [](double t) { return 21.5 + std::pow(std::pow(60, -0.25) + 0.014 * t / 4, -4); }};
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "Usage: make_laboratory FOLDER\n";
    return 2;
  }
  for (const auto& make : {pendulum, spring, fall, capacitor, diode, resonance, decay, absorption, lens,
                           calibration, peaks, cooling}) {
    const Measurement measurement = make();
    const std::filesystem::path path = std::filesystem::path(argv[1]) / measurement.file;
    std::filesystem::create_directories(path.parent_path());
    if (!(std::ofstream(path) << fileText(measurement) << std::flush)) {
      std::cerr << "make_laboratory: cannot write " << path.string() << '\n';
      return 1;
    }
  }
  return 0;
}
