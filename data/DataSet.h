#pragma once

#include <string>

#include "base/Array.h"
#include "base/Int16.h"

namespace vk {

/// The measurements of the session and the curves drawn over them. Element 0 of the point arrays is never
/// used; element 0 of the curves is their first point.
struct DataSet {
  /// The data set of the start: room for 100 points and none loaded.
  DataSet();

  /// Allocates the five point arrays as 1..points, and the curves for twice as many points, at least 50.
  /// Nothing of the old content stays. More than 32767 points is run-time error 6.
  void allocate(int points, Flag hasXErrors);

  Int16 NumPnt;
  Array<double> Xpnt, Ypnt;
  Array<double> ErrXpnt;  ///< zero where the file has no column of x errors
  Array<double> ErrYpnt;
  Array<double> ErrEff;  ///< effective errors, filled by a fit of data with x errors
  Flag kXpntErr;         ///< the data have x errors
  std::string TitleX, TitleY;

  int NumFunPnt = 0;  ///< segments of a curve: twice NumPnt, at least 50
  Array<double> FunX, FunY;
  Array<Flag> FunFailed;           ///< the function has no value here: FunY tells nothing
  Array<double> OldFunX, OldFunY;  ///< the curve of the figure before
  Array<Flag> OldFunFailed;
  int NumOldFun = 0;

 private:
  void allocatePoints(int points);
  void allocateCurves(int segments);
};

}  // namespace vk
