#include "analysis/HistogramFile.h"

#include <algorithm>
#include <cmath>

#include "base/CheckedMath.h"
#include "base/CodePage.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "data/DataFiles.h"

namespace vk {
namespace {

constexpr const char* kTitleX = "Sim. M.C. per ";
constexpr const char* kTitleY = "Densita` di Probabilita`";
const NumberMask kMask("  ##.####^^^^");

// Bins with fewer hits are merged, once a bin with more has been met.
constexpr double kThin = 10;

/// A histogram with a width for each bin.
class Histogram {
 public:
  explicit Histogram(MonteCarloResult& bins) : bins_(bins), BinWidths_(bins.McBinCount) {
    for (double& width : BinWidths_.span(1, count())) width = bins.McBinWidth;
  }

  void mergeThinTails();
  std::string lines(std::optional<int> digits) const;

 private:
  int count() const { return bins_.McBinCount; }
  void mergeWithRight(int i);

  MonteCarloResult& bins_;
  Array<double> BinWidths_;
};

/// Joins bin i with the one on its right; the bins behind move down.
void Histogram::mergeWithRight(int i) {
  Array<double>& c = bins_.McBinCentre;
  const int j = i + 1;
  c[i] = (c[i] + c[j]) / 2 + (BinWidths_[j] - BinWidths_[i]) / 4;
  BinWidths_[i] += BinWidths_[j];
  bins_.McBinHits[i] += bins_.McBinHits[j];
  for (Array<double>* column : {&c, &BinWidths_, &bins_.McBinHits}) {
    const auto behind = column->span(j, count());
    std::rotate(behind.begin(), behind.begin() + 1, behind.end());
  }
  bins_.McBinCount -= 1;
}

void Histogram::mergeThinTails() {
  bool Started = false;
  int i = 1;
  while (i <= count()) {
    if (!Started || bins_.McBinHits[i] >= kThin) {
      ++i;
      Started = Started || (i <= count() && bins_.McBinHits[i] > kThin);
      continue;
    }
    if (count() == 1) return;
    i = std::min(i, count() - 1);
    mergeWithRight(i);
  }
}

/// The count of the bins that have hits, and a line for each of them.
std::string Histogram::lines(std::optional<int> digits) const {
  std::string points;
  int filled = 0;
  for (int b = 1; b <= count(); ++b) {
    const double h = bins_.McBinHits[b];
    if (h <= 0) continue;
    const double q = checked::divide(1, checked::finite(bins_.McSamples * BinWidths_[b]));
    for (const double number : {bins_.McBinCentre[b], h * q, std::sqrt(h) * q}) {
      points += digits ? dataField(number, *digits) : dataField(number, kMask);
    }
    points += kCrLf;
    ++filled;
  }
  return signedText(filled) + std::string(kCrLf) + points;
}

}  // namespace

std::string monteCarloFileText(MonteCarloResult& histogram, const std::string& functionText,
                               std::optional<int> digits) {
  Histogram bins(histogram);
  bins.mergeThinTails();
  const std::string lineEnd(kCrLf);
  return kTitleX + toUtf8(trim(functionText), CodePage::kCp437) + lineEnd + kTitleY + lineEnd +
         bins.lines(digits);
}

}  // namespace vk
