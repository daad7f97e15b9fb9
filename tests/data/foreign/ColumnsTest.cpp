#include "data/foreign/Columns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/foreign/Refusal.h"

namespace vk {
namespace {

using ::testing::ElementsAre;
using Names = std::vector<std::string>;

/// A table of so many columns, all of numbers.
TableShape numbersIn(std::size_t columns) {
  TableShape shape{columns, {}};
  for (std::size_t i = 0; i < columns; ++i) shape.numbered.push_back(i);
  return shape;
}

/// Why the columns have no roles; empty where they have some.
std::string refusalOf(const TableShape& shape, const Names& names, const Names& wanted = {}) {
  try {
    rolesOf(shape, names, wanted);
  } catch (const Refusal& refusal) {
    return refusal.what();
  }
  return {};
}

TEST(ForeignColumns, AreThoseWithNumbersInHalfOfTheRows) {
  const std::vector<ForeignLine> lines{
      {1, "1;a;2"}, {2, "# 3;4"}, {3, "5;6;b"}, {4, "7;c;d;8"}, {5, "e;f;9"}};
  const TableShape shape = shapeOf(lines, {';', '.'});
  EXPECT_EQ(shape.cells, 3U);
  EXPECT_THAT(shape.numbered, ElementsAre(0U));
  EXPECT_EQ(refusalOf(shape, {}), "c'e` una sola colonna di numeri: ne servono almeno due, x e y");
}

TEST(ForeignColumns, HaveTheirUsualRolesByTheirCount) {
  EXPECT_THAT(usualRoles(numbersIn(1)).columns(), ElementsAre(0U, 1U));
  EXPECT_THAT(usualRoles(numbersIn(2)).columns(), ElementsAre(0U, 1U));
  const Roles three = usualRoles(numbersIn(3)), four = usualRoles(numbersIn(4));
  EXPECT_EQ(three.dx, Roles::kNone);
  EXPECT_EQ(three.dy, 2U);
  EXPECT_EQ(four.dx, 2U);
  EXPECT_EQ(four.dy, 3U);
  EXPECT_THAT(usualRoles(numbersIn(5)).columns(), ElementsAre(0U, 1U));
}

TEST(ForeignColumns, AreListedByNumberAndNameWhereThereAreTooMany) {
  EXPECT_EQ(refusalOf(numbersIn(5), {"t", "", "V"}),
            "5 colonne di numeri: 1 (t), 2, 3 (V), 4, 5; indicare quali usare con --columns x,y[,dx],dy");
}

TEST(ForeignColumns, AreRefusedWhereANameMayBeThatOfAnErrorOfX) {
  EXPECT_EQ(
      refusalOf(numbersIn(3), {"t (s)", "dt (s)", "V"}),
      "la colonna 2 (dt (s)) puo` contenere gli errori di t (s) (--columns 1,3) o la y (--columns 1,2,3): "
      "indicare le colonne");
  EXPECT_EQ(
      refusalOf(numbersIn(4), {"t", "err_t", "V", "err_V"}),
      "la colonna 2 (err_t) puo` contenere gli errori di t (--columns 1,3,2,4) o la y (--columns 1,2,3,4): "
      "indicare le colonne");
  for (const Names& names : {Names{"t", "err_", "V"}, {"t", "dV", "V"}, {"t", "V", "dV"}, {"t", "dt"}, {}}) {
    EXPECT_EQ(refusalOf(numbersIn(3), names), "");
  }
}

TEST(ForeignColumns, ThatAreWantedAreTwoToFour) {
  EXPECT_EQ(refusalOf(numbersIn(5), {}, {"1", "5", "2", "3"}), "");
  for (const Names& wanted : {Names{"1"}, {"1", "2", "3", "4", "5"}}) {
    EXPECT_EQ(refusalOf(numbersIn(5), {}, wanted),
              "--columns: si attendono da due a quattro colonne, x,y[,dx],dy");
  }
}

}  // namespace
}  // namespace vk
