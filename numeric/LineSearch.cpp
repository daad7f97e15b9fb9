#include "numeric/LineSearch.h"

#include <cmath>
#include <utility>

namespace vk {
namespace {

// Phases: what the point that was returned last is for.
constexpr int kPredicted = 1;
constexpr int kThirdPoint = 2;
constexpr int kFirstSteps = 3;

constexpr int kExtending = 1;
constexpr int kBracketed = 2;

struct Limits {
  Int16 maxfun;
  double absacc;
  double relacc;
  double xstep;
};

// One call: each path ends in ask() or finish(). Tests are turned so that a value that is no number ends the
// search instead of going round in it.
class Call {
 public:
  Call(LineSearchState& state, Int16& outcome, double& position, double& value, const Limits& given)
      : s(state), itest(outcome), x(position), f(value), limits(given) {}

  void first();
  void next();

 private:
  void start();
  void firstSteps();
  void thirdPoint();
  void predicted();
  void takeAsB();
  void judge();
  void judgePrediction();
  void halveEqualPair();
  void bisect();
  void extend();
  void ask();
  void finish(LineSearchOutcome outcome);

  void setA() { s.xa = x, s.fa = f; }
  void setB() { s.xb = x, s.fb = f; }
  void setC() { s.xc = x, s.fc = f; }
  void copyAToB() { s.xb = s.xa, s.fb = s.fa; }
  void copyAToC() { s.xc = s.xa, s.fc = s.fa; }

  LineSearchState& s;
  Int16& itest;
  double& x;
  double& f;
  const Limits& limits;
};

void Call::first() {
  s.is = 6 - itest;
  itest = kSearchEvaluate;
  s.inc = kExtending;
  s.d = 2 * limits.xstep;
  // A search that has to ask for the value at its start counts three values for that, not one.
  s.mc = s.is - 3;
  if (s.mc <= 0) start();
}

void Call::next() {
  switch (s.is) {
    case kPredicted:
      return predicted();
    case kThirdPoint:
      return thirdPoint();
    case kFirstSteps:
      return firstSteps();
    default:
      s.is = kFirstSteps;
      start();
  }
}

void Call::start() {
  setA();  // a search without a single value to spend still ends at its start
  setB();
  x = x + limits.xstep;
  ask();
}

void Call::firstSteps() {
  if (s.fb == f) return extend();
  if (s.fb < f) {
    setA();
    s.d = -s.d;
  } else {
    s.xa = s.xb;
    s.fa = s.fb;
    setB();
  }
  x = 2 * s.xb - s.xa;
  s.is = kThirdPoint;
  ask();
}

void Call::thirdPoint() {
  s.xc = s.xa;
  s.fc = s.fa;
  s.xa = s.xb;
  s.fa = s.fb;
  takeAsB();
}

void Call::predicted() {
  if (s.fa < s.fb) {
    if (s.fc > s.fb) {
      std::swap(s.xb, s.xc);
      std::swap(s.fb, s.fc);
    }
    if ((s.xp - s.xa) * (s.xp - s.xb) < 0) return takeAsB();
    if (!(f < s.fc)) {
      setC();
    } else {
      copyAToB();
      setA();
    }
  } else {
    if (!(f < s.fa)) return takeAsB();
    copyAToC();
    setA();
  }
  judge();
}

void Call::takeAsB() {
  setB();
  judge();
}

void Call::judge() {
  if (s.fa <= s.fb) {
    s.inc = kBracketed;
    s.d = s.xb;
    if (s.fa == s.fb) return halveEqualPair();
  }
  s.xp = (s.fc - s.fa) / (s.xc - s.xa) - (s.fc - s.fb) / (s.xc - s.xb);
  if (!((s.xa - s.xb) * s.xp > 0)) {  // the parabola has no minimum
    s.is = kThirdPoint;
    if (s.inc == kBracketed) return bisect();
    x = s.xb;
    return extend();
  }
  s.xp = ((s.xa + s.xb) - (s.fa - s.fb) / s.xp) / 2;
  judgePrediction();
}

void Call::judgePrediction() {
  const double move = std::abs(s.xp - x);
  if (move <= std::abs(limits.absacc) || move <= std::abs(limits.relacc * s.xp)) {
    return finish(kSearchAccurate);
  }
  s.is = kPredicted;
  x = s.xp;
  const double inside = (s.xb - s.xp) * (s.xc - s.xb);
  if (inside < 0) return ask();
  if (!(inside > 0)) return finish(kSearchFlat);
  s.is = kThirdPoint;
  if (s.inc == kBracketed) {
    return std::abs(s.d - x) > std::abs(x - s.xb) ? ask() : bisect();
  }
  if (std::abs(s.xp - s.xb) > std::abs(s.d)) {
    x = s.xb;
    return extend();
  }
  ask();
}

void Call::halveEqualPair() {
  x = (s.xa + s.xb) / 2;
  if ((x - s.xa) * (s.xb - x) > 0) return ask();
  finish(kSearchFlat);
}

void Call::bisect() {
  x = (s.xb + s.d) / 2;
  if ((x - s.xb) * (s.d - x) > 0) return ask();
  finish(kSearchFlat);
}

void Call::extend() {
  x = x + s.d;
  s.d = 2 * s.d;
  ask();
}

void Call::ask() {
  s.mc += 1;
  if (s.mc > limits.maxfun) finish(kSearchExhausted);
}

void Call::finish(LineSearchOutcome outcome) {
  itest = outcome;
  x = s.xa;
  f = s.fa;
  if (s.fb < s.fa) {
    x = s.xb;
    f = s.fb;
  }
}

}  // namespace

void LineSearch(LineSearchState& state, Int16& itest, double& x, double& f, Int16 maxfun, double absacc,
                double relacc, double xstep) {
  const Limits limits{maxfun, absacc, relacc, xstep};
  Call call(state, itest, x, f, limits);
  if (itest == kSearchEvaluate) {
    call.next();
  } else {
    call.first();
  }
}

}  // namespace vk
