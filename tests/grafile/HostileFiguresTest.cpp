#include <charconv>

#include "base/NumberText.h"
#include "doubles/DrawingLines.h"
#include "tests/commands/FigureFixture.h"

namespace vk {
namespace {

/// Measurements that a figure cannot show without care.
struct HostileSet {
  const char* name;
  std::vector<std::array<double, 4>> points;
};

void PrintTo(const HostileSet& set, std::ostream* out) {
  *out << set.name;
}

/// All digits of a number.
std::string exactText(double value) {
  std::array<char, 32> text{};
  return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

class HostileFiguresTest : public FigureFixture, public ::testing::WithParamInterface<HostileSet> {
 protected:
  void SetUp() override {
    const auto& points = GetParam().points;
    loadData("/D/A.DAT", points);
    std::string& file = files.content["/D/A.DAT"];
    file = lines({"Tempo (s)", "Corsa (m)", std::to_string(points.size())});
    for (const auto& [x, y, dx, dy] : points) {
      file += exactText(x) + " " + exactText(y) + " " + exactText(dy) + "\r\n";
    }
    takeFunction(2, 1, {0, points.front()[1]});
  }

  std::vector<std::string> makeGraph(int kind) {
    MakeGraph(session, ports, kind, kernels);
    EXPECT_EQ(session.ErrFlag, 0);
    return lastWindow().form.lines();
  }

  const std::string& textOf(int kind) const {
    return session.figures.GraphText.at(static_cast<std::size_t>(kind));
  }

  /// The marks stand where the limits that the text tells put them.
  void expectMarks(int kind, const std::vector<std::string>& drawn) {
    std::vector<double> limits;
    std::string piece = commandsOf(textOf(kind), "PARAMETRI").at(1);
    for (auto at = piece.find('='); at != std::string::npos; at = piece.find('=')) {
      piece.erase(0, at + 1);
      limits.push_back(scanNumber(piece.substr(0, piece.find(','))));
    }
    ASSERT_EQ(limits.size(), 4U);
    const double Xi = limits[0], Yi = limits[1], Xf = limits[2], Yf = limits[3];
    ASSERT_LT(Xi, Xf);
    ASSERT_LT(Yi, Yf);
    const PictureForm& form = lastWindow().form;
    const double width = form.ScaleWidth() / 20, height = form.ScaleHeight() / 15;
    std::size_t i = 0;
    for (const std::string& line : drawn) {
      if (!line.starts_with("circle ")) continue;
      const auto& point = GetParam().points.at(i++);
      const double y = point[1] - (kind == kDifferencesFigure ? GetParam().points.front()[1] : 0);
      const auto place = numbersOf(line);
      constexpr double kHalfAPixel = 8;
      EXPECT_NEAR(place.at(0), width * (5 + 13 * ((point[0] - Xi) / (Xf - Xi))), kHalfAPixel);
      EXPECT_NEAR(place.at(1), height * (15 - 4 - 9 * ((y - Yi) / (Yf - Yi))), kHalfAPixel);
    }
    EXPECT_EQ(i, GetParam().points.size());
  }
};

TEST_P(HostileFiguresTest, ShowEachPointWhereItIsAndSoDoTheirTexts) {
  const auto data = makeGraph(kDataFigure);
  expectMarks(kDataFigure, data);
  auto again = run(textOf(kDataFigure));
  EXPECT_TRUE(output.requests.empty());
  expectSameLines(withoutClip(again), withoutClip(data), 8);

  expectMarks(kFunctionFigure, makeGraph(kFunctionFigure));
  again = run(textOf(kFunctionFigure));
  EXPECT_TRUE(output.requests.empty());
  expectMarks(kFunctionFigure, again);

  expectMarks(kDifferencesFigure, makeGraph(kDifferencesFigure));
  run(textOf(kDifferencesFigure));
  EXPECT_TRUE(output.requests.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Sets, HostileFiguresTest,
    ::testing::Values(
        HostileSet{"one_point", {{3, 4, 0, .5}}}, HostileSet{"the_origin_alone", {{0, 0, 0, .5}}},
        HostileSet{"equal_x", {{3, 1, 0, .5}, {3, 2, 0, .5}, {3, 7, 0, .5}}},
        HostileSet{"equal_y", {{1, -5, 0, .5}, {2, -5, 0, .5}, {3, -5, 0, .5}}},
        HostileSet{"equal_but_for_rounding", {{1, .3, 0, 0}, {2, .1 + .2, 0, 0}, {3, .3, 0, 0}}},
        HostileSet{"an_outlier", {{1, 2, 0, .5}, {2, 1E12, 0, .5}, {3, 4, 0, .5}}},
        HostileSet{"an_outlier_in_x", {{1, 2, 0, .5}, {2, 3, 0, .5}, {-1E12, 4, 0, .5}}},
        HostileSet{"a_large_error", {{1, 2, 0, .5}, {2, 3, 0, 1E12}, {3, 4, 0, .5}}},
        HostileSet{"a_clock", {{1.7E9, 2, 0, .5}, {1.7E9 + 299, 3, 0, .5}, {1.7E9 + 600, 4, 0, .5}}},
        HostileSet{"a_constant_that_drifts", {{1, 1E9 + 1, 0, .3}, {2, 1E9 + 2.5, 0, .3}}},
        HostileSet{"millionths", {{1E-6, 0, 0, 1E-7}, {4E-6, 7E-6, 0, 1E-7}, {5E-6, 12E-6, 0, 0}}},
        HostileSet{"below_singles", {{1, 2E-44, 0, 1E-45}, {2, 5E-44, 0, 1E-45}}},
        HostileSet{"below_their_squares", {{1, 2E-200, 0, 1E-201}, {2, 5E-200, 0, 1E-201}}},
        HostileSet{"large_singles", {{1, -3E37, 0, 1E36}, {2, 3E37, 0, 1E36}}}),
    [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
}  // namespace vk
