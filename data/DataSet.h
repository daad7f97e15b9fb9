#pragma once

#include <string>

#include "base/Array.h"
#include "base/Int16.h"

namespace vk {

/// The measurements. Element 0 of the arrays is never used.
struct DataSet {
  /// The data set of the start: room for 100 points and none loaded.
  DataSet() { allocate(kFirstPoints, kFalse); }

  /// Allocates the five arrays as 1..points. Nothing of the old content stays. More than 32767 points is run-time
  /// error 6.
  void allocate(int points, Flag hasXErrors);

  /// Keeps the first points alone.
  void shorten(int points);

  Int16 NumPnt;
  Array<double> Xpnt, Ypnt;
  Array<double> ErrXpnt;  ///< zero where the file has no column of x errors
  Array<double> ErrYpnt;
  Array<double> ErrEff;  ///< effective errors, filled by a fit of data with x errors
  Flag kXpntErr;         ///< the data have x errors
  std::string TitleX, TitleY;

 private:
  static constexpr int kFirstPoints = 100;
};

}  // namespace vk
