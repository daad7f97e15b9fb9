#include "numeric/Elementary.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "ElementaryArguments.h"
#include "doubles/Places.h"
#include "doubles/Tolerances.h"

namespace vk {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
const std::string kReference = "tests/numeric/references/elementary.txt";

/// Bits in which all numbers that are none are one.
std::uint64_t bitsOf(double x) {
  return std::bit_cast<std::uint64_t>(std::isnan(x) ? kNone : x);
}

std::string asHex(double x) {
  std::ostringstream text;
  text << std::hex << bitsOf(x);
  return text.str();
}

std::vector<double> argumentsOf(simd::Function function, int count) {
  Arguments arguments;
  std::vector<double> x = specialValues();
  while (static_cast<int>(x.size()) < count) x.push_back(arguments.of(function));
  return x;
}

struct Pairs {
  std::vector<double> x, y;
};

Pairs argumentsOfPower(int count) {
  Pairs pairs;
  for (const double x : specialValues()) {
    for (const double y : specialValues()) {
      pairs.x.push_back(x);
      pairs.y.push_back(y);
    }
  }
  Arguments arguments;
  while (static_cast<int>(pairs.x.size()) < count) {
    const auto [x, y] = arguments.ofPower();
    pairs.x.push_back(x);
    pairs.y.push_back(y);
  }
  return pairs;
}

void expectSameBits(const std::vector<double>& found, const std::vector<double>& expected) {
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t i = 0; i < found.size(); ++i) ASSERT_EQ(asHex(found[i]), asHex(expected[i])) << i;
}

simd::Values column(const std::vector<double>& values) {
  return {values.data()};
}

#ifdef __x86_64__
TEST(Elementary, TheInstructionSetsAreThoseOfTheMachine) {
  const auto has = [](std::string_view name) {
    const auto sets = elementary::instructionSets();
    return std::ranges::find(sets, name, &elementary::InstructionSet::name) != sets.end();
  };
  EXPECT_TRUE(has("scalar") && has("sse2"));
  EXPECT_EQ(has("sse4"), __builtin_cpu_supports("sse4.1") != 0);
  EXPECT_EQ(has("avx"), __builtin_cpu_supports("avx") != 0);
  EXPECT_EQ(has("avx512"), __builtin_cpu_supports("avx512f") != 0);
}
#endif

TEST(Elementary, EveryInstructionSetGivesTheBitsOfTheSingleFunctions) {
  for (const NamedFunction& named : kElementary) {
    const std::vector<double> x = argumentsOf(named.function, 20000);
    std::vector<double> expected(x.size());
    std::ranges::transform(x, expected.begin(), named.single);
    for (const elementary::InstructionSet& set : elementary::instructionSets()) {
      SCOPED_TRACE(named.name + " " + std::string(set.name));
      std::vector<double> found(x.size());
      std::ranges::transform(x, found.begin(), set.kernels->*named.inSet);
      expectSameBits(found, expected);
      EXPECT_FALSE(set.kernels->functions[named.function](column(x), found.data(), x.size()));
      expectSameBits(found, expected);
    }
  }
}

TEST(Elementary, EveryInstructionSetGivesTheBitsOfTheSinglePower) {
  const auto [x, y] = argumentsOfPower(30000);
  std::vector<double> expected(x.size());
  std::ranges::transform(x, y, expected.begin(), elementary::pow);
  for (const elementary::InstructionSet& set : elementary::instructionSets()) {
    SCOPED_TRACE(set.name);
    std::vector<double> found(x.size());
    std::ranges::transform(x, y, found.begin(), set.kernels->pow);
    expectSameBits(found, expected);
    EXPECT_FALSE(set.kernels->operators[simd::kPower](column(x), column(y), found.data(), x.size()));
    expectSameBits(found, expected);
  }
}

/// Plain arithmetic at one point, and the kernel that does it in blocks.
struct PlainFunction {
  simd::Function function;
  double (*plain)(double x);
};
struct PlainOperator {
  simd::Operator op;
  double (*plain)(double x, double y);
};

double arcSine(double x) {
  const double end = x < 0 ? -3.1415926 / 2 : 3.1415926 / 2;
  return std::fabs(x) >= 1 ? end : elementary::atan(x / std::sqrt(1 - x * x));
}

TEST(Elementary, EveryInstructionSetDoesPlainFunctionsLikeTheProcessor) {
  const PlainFunction functions[] = {{simd::kAbs, [](double x) { return std::fabs(x); }},
                                     {simd::kSqr, [](double x) { return std::sqrt(x); }},
                                     {simd::kAsin, arcSine},
                                     {simd::kAcos, [](double x) { return 3.1415926 / 2 - arcSine(x); }},
                                     {simd::kSgn, [](double x) { return x < 0 ? -1.0 : 1.0; }},
                                     {simd::kInt, [](double x) { return std::floor(x); }},
                                     {simd::kNegate, [](double x) { return -x; }}};
  std::vector<double> x = argumentsOf(simd::kSin, 6000);
  Arguments arguments;
  while (x.size() < 12000) x.push_back(arguments.between(-1, 1));
  for (const elementary::InstructionSet& set : elementary::instructionSets()) {
    for (const PlainFunction& function : functions) {
      SCOPED_TRACE(std::string(set.name) + " " + std::to_string(function.function));
      std::vector<double> found(x.size()), expected(x.size());
      std::ranges::transform(x, expected.begin(), function.plain);
      set.kernels->functions[function.function](column(x), found.data(), x.size());
      expectSameBits(found, expected);
      set.kernels->functions[function.function]({nullptr, 0.7}, found.data(), x.size());
      expectSameBits(found, std::vector<double>(x.size(), function.plain(0.7)));
    }
  }
}

TEST(Elementary, EveryInstructionSetDoesPlainOperatorsLikeTheProcessor) {
  const PlainOperator operators[] = {{simd::kTimes, [](double x, double y) { return x * y; }},
                                     {simd::kDivide, [](double x, double y) { return x / y; }},
                                     {simd::kPlus, [](double x, double y) { return x + y; }},
                                     {simd::kMinus, [](double x, double y) { return x - y; }}};
  const auto [x, y] = argumentsOfPower(10000);
  for (const elementary::InstructionSet& set : elementary::instructionSets()) {
    for (const PlainOperator& op : operators) {
      SCOPED_TRACE(std::string(set.name) + " " + std::to_string(op.op));
      std::vector<double> found(x.size()), expected(x.size());
      std::ranges::transform(x, y, expected.begin(), op.plain);
      set.kernels->operators[op.op](column(x), column(y), found.data(), x.size());
      expectSameBits(found, expected);
      set.kernels->operators[op.op](column(x), {nullptr, 0.7}, found.data(), x.size());
      std::ranges::transform(x, expected.begin(), [&](double value) { return op.plain(value, 0.7); });
      expectSameBits(found, expected);
      set.kernels->operators[op.op]({nullptr, -3}, column(y), found.data(), x.size());
      std::ranges::transform(y, expected.begin(), [&](double value) { return op.plain(-3, value); });
      expectSameBits(found, expected);
    }
  }
}

TEST(Elementary, OneBaseOrOneExponentForAllPointsGivesTheSameBits) {
  const std::vector<double> x = argumentsOf(simd::kLog, 300);
  for (const elementary::InstructionSet& set : elementary::instructionSets()) {
    for (const double value : {-2.0, -1.0, 0.0, 0.5, 1.0, 2.0, 3.0, 10.0, 2.37}) {
      SCOPED_TRACE(std::string(set.name) + " " + std::to_string(value));
      std::vector<double> found(x.size()), expected;
      set.kernels->operators[simd::kPower](column(x), {nullptr, value}, found.data(), x.size());
      for (const double base : x) expected.push_back(elementary::pow(base, value));
      expectSameBits(found, expected);
      set.kernels->operators[simd::kPower]({nullptr, value}, column(x), found.data(), x.size());
      for (std::size_t i = 0; i < x.size(); ++i) expected[i] = elementary::pow(value, x[i]);
      expectSameBits(found, expected);
      set.kernels->operators[simd::kPower]({nullptr, value}, {nullptr, value}, found.data(), x.size());
      expectSameBits(found, std::vector<double>(x.size(), elementary::pow(value, value)));
    }
  }
}

TEST(Elementary, BlocksOfAnyLengthStayWithinTheirPointsAndReplaceTheirArguments) {
  const std::vector<double> x = argumentsOf(simd::kSin, 400);
  for (const elementary::InstructionSet& set : elementary::instructionSets()) {
    for (std::size_t count = 0; count <= 40; ++count) {
      for (std::size_t begin = 0; begin < 3; ++begin) {
        std::vector<double> values = x;
        set.kernels->functions[simd::kSin]({&values[begin]}, &values[begin], count);
        for (std::size_t i = 0; i < x.size(); ++i) {
          const bool within = i >= begin && i < begin + count;
          ASSERT_EQ(asHex(values[i]), asHex(within ? elementary::sin(x[i]) : x[i])) << set.name << " " << i;
        }
      }
    }
  }
}

TEST(Elementary, ABlockTellsWhetherAllItsResultsAreFinite) {
  for (const elementary::InstructionSet& set : elementary::instructionSets()) {
    for (std::size_t count = 1; count <= 20; ++count) {
      std::vector<double> x(count, 1.5), found(count);
      EXPECT_TRUE(set.kernels->functions[simd::kLog](column(x), found.data(), count)) << set.name << count;
      for (std::size_t wrong = 0; wrong < count; ++wrong) {
        x.assign(count, 1.5);
        x[wrong] = wrong % 2 == 0 ? 0 : -1;
        EXPECT_FALSE(set.kernels->functions[simd::kLog](column(x), found.data(), count)) << set.name << count;
      }
    }
  }
}

/// What the file holds: name, arguments and result as bits; and of many results together a sum of their bits.
std::vector<std::string> resultLines() {
  constexpr int kListed = 150, kSummed = 50000;
  std::vector<std::string> lines;
  for (const NamedFunction& named : kElementary) {
    const std::vector<double> x = argumentsOf(named.function, kSummed);
    std::vector<double> y(x.size());
    elementary::kernels().functions[named.function](column(x), y.data(), x.size());
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < x.size(); ++i) {
      if (i < kListed) lines.push_back(named.name + " " + asHex(x[i]) + " " + asHex(y[i]));
      sum = sum * 31 + bitsOf(y[i]);
    }
    lines.push_back(named.name + " all " + std::to_string(sum));
  }
  const auto [x, y] = argumentsOfPower(kSummed);
  std::vector<double> power(x.size());
  elementary::kernels().operators[simd::kPower](column(x), column(y), power.data(), x.size());
  std::uint64_t sum = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (i >= x.size() - kListed)
      lines.push_back("pow " + asHex(x[i]) + " " + asHex(y[i]) + " " + asHex(power[i]));
    sum = sum * 31 + bitsOf(power[i]);
  }
  lines.push_back("pow all " + std::to_string(sum));
  return lines;
}

/// The bits that every machine must give, with every set that VOR_SIMD can name. Under VOR_RENEW_REFERENCES they are
/// written down, and the test fails.
TEST(Elementary, ResultsAreThoseWrittenDown) {
  std::ostringstream found;
  for (const std::string& line : resultLines()) found << line << "\n";
  if (std::getenv("VOR_RENEW_REFERENCES") != nullptr) {
    std::ofstream(sourcePath(kReference)) << found.str();
    FAIL() << "renewed";
  }
  std::ifstream file(sourcePath(kReference));
  std::istringstream lines(found.str());
  for (std::string expected, line; std::getline(lines, line);) {
    ASSERT_TRUE(std::getline(file, expected));
    ASSERT_EQ(line, expected) << elementary::instructionSet().name;
  }
  EXPECT_EQ(file.peek(), std::char_traits<char>::eof());
}

TEST(Elementary, TheSetOfTheEnvironmentIsUsed) {
  const char* word = std::getenv("VOR_SIMD");
  const std::string_view widest = elementary::instructionSets().back().name;
  const bool known =
      word != nullptr &&
      std::ranges::find(elementary::instructionSets(), std::string_view(word),
                        &elementary::InstructionSet::name) != elementary::instructionSets().end();
  EXPECT_EQ(elementary::instructionSet().name, known ? word : widest);
  EXPECT_EQ(elementary::instructionSetOf("scalar").name, "scalar");
  EXPECT_EQ(elementary::instructionSetOf("mmx").name, widest);
  EXPECT_EQ(elementary::instructionSetOf("").name, widest);
}

TEST(Elementary, EndsOfTheRange) {
  using namespace elementary;
  EXPECT_EQ(exp(0), 1);
  EXPECT_LT(exp(709.7827111495574), kInfinity);
  EXPECT_EQ(exp(709.7827111495576), kInfinity);
  EXPECT_EQ(elementary::pow(2, 1024), kInfinity);
  EXPECT_EQ(exp(-kInfinity), 0);
  EXPECT_EQ(exp(-746), 0);
  EXPECT_GT(exp(-744), 0);
  EXPECT_EQ(log(1), 0);
  EXPECT_EQ(log(0), -kInfinity);
  EXPECT_TRUE(std::isnan(log(-1)));
  EXPECT_EQ(log(kInfinity), kInfinity);
  for (double (*const odd)(double) : {elementary::sin, elementary::tan, elementary::atan}) {
    EXPECT_EQ(asHex(odd(0)), asHex(0));
    EXPECT_EQ(asHex(odd(-0.0)), asHex(-0.0));
  }
  EXPECT_EQ(cos(0), 1);
  for (double (*const periodic)(double) : {elementary::sin, elementary::cos, elementary::tan}) {
    EXPECT_TRUE(std::isnan(periodic(kInfinity)));
    EXPECT_TRUE(std::isnan(periodic(kNone)));
  }
  EXPECT_EQ(atan(kInfinity), 1.5707963267948966);
  EXPECT_EQ(atan(-1E300), -1.5707963267948966);
}

TEST(Elementary, PowersThatNeedNoLogarithmAreExact) {
  for (const double x : {0.1, -0.3, 1E-310, 1E160, 1E-170, -7.0, 0.0, -0.0}) {
    EXPECT_EQ(asHex(elementary::pow(x, 2)), asHex(x * x)) << x;
    EXPECT_EQ(asHex(elementary::pow(x, 1)), asHex(x)) << x;
    EXPECT_EQ(elementary::pow(x, 0), 1) << x;
    EXPECT_EQ(asHex(elementary::pow(x, -1)), asHex(1 / x)) << x;
  }
  for (int n = -22; n <= 22; ++n) {
    EXPECT_EQ(elementary::pow(10, n), std::strtod(("1E" + std::to_string(n)).c_str(), nullptr)) << n;
  }
  EXPECT_NE(elementary::pow(10, 0.5), elementary::pow(10, 0));
}

/// The C library stands for the rules of signs, zeros and infinities, and for the size of what is finite.
TEST(Elementary, PowersKeepTheRulesOfSignsAndZeros) {
  const auto [x, y] = argumentsOfPower(0);
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double found = elementary::pow(x[i], y[i]), expected = std::pow(x[i], y[i]);
    if (std::fabs(expected) <= 1.79769E308 && expected != 0) {
      EXPECT_NEAR(found / expected, 1, kLastBit) << x[i] << " " << y[i];
    } else {
      const bool beyond = std::fabs(expected) > 1.79769E308 && y[i] != 1;
      EXPECT_EQ(asHex(found), asHex(beyond ? std::copysign(kInfinity, expected) : expected))
          << x[i] << " " << y[i];
    }
  }
}

}  // namespace
}  // namespace vk
