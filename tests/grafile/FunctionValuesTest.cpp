#include "grafile/FunctionValues.h"

#include <cmath>
#include <limits>

#include "tests/commands/MakeGraphFixture.h"

namespace vk {
namespace {

/// What happened, in its order: "!" for an exhausted kernel, else the place and the fault of a value.
struct EventLog : EvaluationListener {
  void exhausted(Kernel) override { events.emplace_back("!"); }
  void add(std::size_t i, const Evaluation& value) {
    events.push_back(std::to_string(i) + ":" + std::to_string(static_cast<int>(value.fault)));
    values.push_back(value.value);
  }
  std::vector<std::string> events;
  std::vector<double> values;
};

class FunctionValuesTest : public MakeGraphTest {
 protected:
  FunctionValuesTest() {
    for (int i = 0; i < 500; ++i) points.push_back(i * .02);
  }
  /// Gives all values until `most` have failed; true when there were not as many.
  bool together(EventLog& log, int most) {
    Model& model = session.analysis.model;
    int failed = 0;
    return eachValue(model, session.analysis.par.ParValues, points, log,
                     [&](std::size_t i, const Evaluation& value) {
                       log.add(i, value);
                       return value.fault == Fault::kNone || ++failed < most;
                     });
  }
  /// The same by single calls.
  void singly(EventLog& log, int most) {
    Model& model = session.analysis.model;
    int failed = 0;
    for (std::size_t i = 0; i < points.size() && failed < most; ++i) {
      const Evaluation value = model.at(points[i], session.analysis.par.ParValues, log);
      log.add(i, value);
      if (value.fault != Fault::kNone) ++failed;
    }
  }
  void expectAsSingly(int most) {
    EventLog block, single;
    together(block, most);
    singly(single, most);
    EXPECT_EQ(block.events, single.events);
    EXPECT_EQ(block.values, single.values);
  }

  static constexpr int kAll = std::numeric_limits<int>::max();
  std::vector<double> points;
};

TEST_F(FunctionValuesTest, ComeInTheirOrderUntilOneIsNotTaken) {
  takeFormula("LOG(x-t)", .05);
  EventLog log;
  EXPECT_FALSE(together(log, 2));
  EXPECT_EQ(log.events, (std::vector<std::string>{"0:1", "1:1"}));
  EventLog all;
  EXPECT_TRUE(together(all, 4));
  EXPECT_EQ(all.events.size(), points.size());
  EXPECT_EQ(all.values[3], std::log(points[3] - .05));
  expectAsSingly(kAll);
}

TEST_F(FunctionValuesTest, AnExhaustedKernelIsHeardBeforeItsPointAndBehindThePointsBefore) {
  takeFormula("LOG(x-t)+C_X2(20004+x,20000)", .05);
  EventLog log;
  together(log, 5);
  ASSERT_GE(log.events.size(), 3U);
  EXPECT_EQ(log.events[0], "!");
  EXPECT_EQ(log.events[1].substr(0, 2), "0:");
  for (const int most : {1, 3, kAll}) expectAsSingly(most);
}

TEST_F(FunctionValuesTest, NothingIsHeardOfPointsThatAreNotAskedForAnyMore) {
  // Far below its middle the distribution needs few terms.
  takeFormula("LOG(x-t)+C_X2(4000*x,20000)", .05);
  EventLog log, all;
  EXPECT_FALSE(together(log, 2));
  EXPECT_EQ(log.events, (std::vector<std::string>{"0:1", "1:1"}));
  together(all, kAll);
  EXPECT_THAT(all.events, testing::Contains("!"));
  for (const int most : {3, 4, kAll}) expectAsSingly(most);
}

}  // namespace
}  // namespace vk
