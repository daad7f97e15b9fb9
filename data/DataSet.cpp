#include "data/DataSet.h"

#include <algorithm>

namespace vk {
namespace {

constexpr int kFirstPoints = 100;
constexpr int kLeastCurveSegments = 50;

}  // namespace

DataSet::DataSet() : NumPnt(kFirstPoints) {
  allocatePoints(kFirstPoints);
  allocateCurves(kLeastCurveSegments);
}

void DataSet::allocate(int points, Flag hasXErrors) {
  NumPnt = points;
  kXpntErr = hasXErrors;
  allocatePoints(points);
  allocateCurves(std::max(2 * points, kLeastCurveSegments));
}

void DataSet::allocatePoints(int points) {
  for (Array<double>* column : {&Xpnt, &Ypnt, &ErrXpnt, &ErrYpnt, &ErrEff}) column->dim(points);
}

void DataSet::allocateCurves(int segments) {
  NumFunPnt = segments;
  NumOldFun = 0;
  for (Array<double>* curve : {&FunX, &FunY, &OldFunX, &OldFunY}) curve->dim(segments);
  for (Array<Flag>* failures : {&FunFailed, &OldFunFailed}) failures->dim(segments);
}

}  // namespace vk
