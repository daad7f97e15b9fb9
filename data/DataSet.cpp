#include "data/DataSet.h"

namespace vk {

void DataSet::allocate(int points, Flag hasXErrors) {
  NumPnt = points;
  kXpntErr = hasXErrors;
  for (Array<double>* column : {&Xpnt, &Ypnt, &ErrXpnt, &ErrYpnt, &ErrEff}) column->dim(points);
}

void DataSet::shorten(int points) {
  NumPnt = points;
  for (Array<double>* column : {&Xpnt, &Ypnt, &ErrXpnt, &ErrYpnt, &ErrEff}) column->redim(points);
}

}  // namespace vk
