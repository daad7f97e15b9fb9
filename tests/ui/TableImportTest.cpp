#include "ui/TableImport.h"

#include <gmock/gmock.h>

namespace vk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const std::string kVelocity =
    "Misura del 12/05\n"
    "Tempo [s];Velocit\u00E0;Errore;Note\n"
    "0,5;1,234;0,05;si\n"
    "1;2,5;0,05;ok\n"
    "2;n.d.;0,05;saltata\n"
    "4;9,25;0,07;si\n";
const std::string kFive = "n;t;V;dt;dV\n1;0,5;1,5;0,2;0,1\n2;1,5;2,5;0,2;0,1\n";

/// What is chosen, and what follows.
struct Case {
  std::string bytes;
  std::vector<std::pair<TableImport::Field, int>> chosen;
  std::string message, lastPoint;
};

class TableImportTest : public testing::Test {
 protected:
  using T = TableImport;
  std::vector<std::string> points() {
    std::vector<std::string> lines;
    const std::string text = import.firstPoints();
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = text.find("\r\n", at);
      lines.push_back(text.substr(at, end - at));
      at = end + 2;
    }
    return lines;
  }
  std::string lastPoint() { return points().empty() ? "" : points().back(); }
  std::string first(T::Field field) { return import.entries(field).front(); }
  void expect(const Case& each) {
    import.open(each.bytes);
    for (const auto& [field, entry] : each.chosen) import.choose(field, entry);
    for (const auto& [field, entry] : each.chosen) EXPECT_EQ(import.chosen(field), entry);
    EXPECT_THAT(import.message(), HasSubstr(each.message));
    EXPECT_EQ(lastPoint(), each.lastPoint) << each.message;
    EXPECT_EQ(import.text().empty(), each.lastPoint.empty());
  }

  T import;
};

TEST_F(TableImportTest, OffersWhatAFileCanHave) {
  import.open(kVelocity);
  EXPECT_THAT(import.entries(T::kSeparator),
              ElementsAre("auto: ';'", "';'", "','", "tabulazione", "spazio", "'|'"));
  EXPECT_THAT(import.entries(T::kDecimal), ElementsAre("auto: virgola", "virgola", "punto"));
}

TEST_F(TableImportTest, ShowsWhatWasFoundOut) {
  import.open(kVelocity);
  EXPECT_EQ(
      import.message(),
      "UTF-8, separatore ';', virgola decimale, 2 righe di intestazione, colonne 1, 2 e 3, 3 punti, 1 riga "
      "tralasciata");
  EXPECT_TRUE(import.isUnderstood());
  const std::vector<std::string> found{
      "auto: UTF-8",   "auto: ';'",        "auto: virgola", "auto: 1 (Tempo [s])", "auto: 2 (Velocit\u00E0)",
      "auto: nessuna", "auto: 3 (Errore)", "tutti"};
  for (int i = 0; i < T::kFields; ++i) {
    const auto field = static_cast<T::Field>(i);
    EXPECT_EQ(first(field), found.at(static_cast<std::size_t>(i)));
    EXPECT_EQ(import.chosen(field), 0);
  }
  EXPECT_EQ(import.headerLinesFound(), 2);
  EXPECT_THAT(import.entries(T::kDy),
              ElementsAre(found[6], "1 (Tempo [s])", "2 (Velocit\u00E0)", "3 (Errore)", "4 (Note)", "valore",
                          "% di y", "radice di y", "1"));
  EXPECT_THAT(points(),
              ElementsAre("Tempo [s]", "Velocit\u00E0", " 3", "  5.00000E-01   1.23400E+00   5.00000E-02 ",
                          "  1.00000E+00   2.50000E+00   5.00000E-02 ",
                          "  4.00000E+00   9.25000E+00   7.00000E-02 "));
}

TEST_F(TableImportTest, TheLinesStandInColumnsWithTheirRoles) {
  import.open(kVelocity);
  const std::vector<TableLine> lines = import.lines();
  ASSERT_EQ(lines.size(), 6u);
  EXPECT_THAT(lines[0].cells, ElementsAre("Misura del 12/05"));
  EXPECT_THAT(lines[3].cells, ElementsAre("1", "2,5", "0,05", "ok"));
  using enum TableLine::Kind;
  const std::vector<TableLine::Kind> kinds{kAbove, kAbove, kPoint, kPoint, kLeftOut, kPoint};
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    EXPECT_EQ(lines[i].number, static_cast<int>(i) + 1);
    EXPECT_EQ(lines[i].kind, kinds[i]) << i;
  }
  EXPECT_EQ(lines[4].reason, "\"n.d.\" non e` un numero");
  const std::vector<std::string> heads{"1: x", "2: y", "3: dy", "4"};
  for (std::size_t i = 0; i < heads.size(); ++i) EXPECT_EQ(import.columnHead(i), heads[i]);
  EXPECT_EQ(TableImport().columnHead(0), "1") << "nothing is open";
}

TEST_F(TableImportTest, AColumnWithoutANameHasItsNumber) {
  import.open("t;;V\n1;2;3\n2;4;6\n");
  EXPECT_THAT(import.entries(T::kX), ElementsAre("auto: 1 (t)", "1 (t)", "2", "3 (V)"));
}

TEST_F(TableImportTest, FurtherDownOnlyTheLinesThatWereLeftOutAreShown) {
  std::string bytes;
  for (int i = 1; i <= 100; ++i) bytes += std::to_string(i) + (i == 77 ? ";?;1\n" : ";2;1\n");
  import.open(bytes);
  const std::vector<TableLine> lines = import.lines();
  ASSERT_EQ(lines.size(), 31u);
  EXPECT_EQ(lines.back().number, 77);
}

TEST_F(TableImportTest, AChoiceWinsOverWhatWasFoundOut) {
  const std::string numbered = "colonne 1 e 2, 3 punti",
                    tooMany = "5 colonne di numeri: 1 (n), 2 (t), 3 (V), 4 (dt), 5 (dV)";
  const std::vector<Case> cases{
      {kVelocity, {{T::kEncoding, 5}}, "Windows-1252, ", "  4.00000E+00   9.25000E+00   7.00000E-02 "},
      {kVelocity, {{T::kSeparator, 2}}, "nessuna riga contiene almeno due numeri", ""},
      {kVelocity, {{T::kX, 2}}, "colonne 2, 1 e 3, 3 punti", "  9.25000E+00   4.00000E+00   7.00000E-02 "},
      {kVelocity,
       {{T::kY, 3}},
       "colonne 1 e 3, 4 punti; errori assenti: dy = 1",
       "  4.00000E+00   7.00000E-02   1.00000E+00 "},
      {kVelocity, {{T::kDy, 5}}, numbered, "  4.00000E+00   9.25000E+00   1.00000E+00 "},
      {kVelocity, {{T::kDy, 6}}, numbered, "  4.00000E+00   9.25000E+00   9.25000E-02 "},
      {kVelocity, {{T::kDy, 7}}, numbered, "  4.00000E+00   9.25000E+00   3.04138E+00 "},
      {kVelocity, {{T::kDy, 8}}, numbered, "  4.00000E+00   9.25000E+00   1.00000E+00 "},
      {kVelocity,
       {{T::kDx, 3}},
       "colonne 1, 2 e 3, 3 punti, 1 riga tralasciata; errori assenti: dy = 1",
       "  4.00000E+00   9.25000E+00   7.00000E-02   1.00000E+00 "},
      {kVelocity, {{T::kThinning, 1}}, "2 punti", "  4.00000E+00   9.25000E+00   7.00000E-02 "},
      {kVelocity, {{T::kThinning, 2}}, "2 punti", "  4.00000E+00   9.25000E+00   7.00000E-02 "},
      {kFive, {}, tooMany + "; indicare quali usare con Colonne x,y[,dx],dy", ""},
      {kFive,
       {{T::kX, 2}, {T::kY, 3}},
       "colonne 2 e 3, 2 punti; errori assenti",
       "  1.50000E+00   2.50000E+00   1.00000E+00 "},
      {kFive,
       {{T::kX, 2}, {T::kY, 3}, {T::kDx, 4}, {T::kDy, 5}},
       "colonne 2, 3, 4 e 5, 2 punti",
       "  1.50000E+00   2.50000E+00   2.00000E-01   1.00000E-01 "},
      {kFive,
       {{T::kX, 2}, {T::kY, 3}, {T::kDx, 4}},
       "2 punti",
       "  1.50000E+00   2.50000E+00   2.00000E-01   1.00000E+00 "},
      {"1.250;3\n1.500;4\n",
       {},
       "\"1.250\" puo` valere 1250 (Decimali ,) o 1.25 (Decimali .): indicare il segno decimale",
       ""},
      {"1.250;3\n1.500;4\n",
       {{T::kDecimal, 2}},
       "punto decimale, colonne 1 e 2",
       "  1.50000E+00   4.00000E+00   1.00000E+00 "},
      {"t\ns\n2\n1 2 .1\n2 4 .2\n", {}, "file dati, 2 punti", "  2.00000E+00   4.00000E+00   2.00000E-01 "},
      {"1;-1\n2;3\n", {{T::kDy, 5}}, "dy sqrt: ci sono y negativi", ""},
      {"1;2\n2;1,234567\n",
       {},
       "; errori assenti: dy = 1; dati arrotondati a 6 cifre",
       "  2.00000E+00   1.23457E+00   1.00000E+00 "},
      {"  \n", {}, "il file non contiene dati", ""},
  };
  for (const Case& each : cases) expect(each);
}

TEST_F(TableImportTest, ColumnsThatLeaveNoneForXOrYAreNotTaken) {
  const std::string tooMany = "5 colonne di numeri: 1 (n), 2 (t), 3 (V), 4 (dt), 5 (dV)";
  const std::vector<Case> cases{
      {kFive, {{T::kY, 3}}, tooMany, ""},
      {kFive, {{T::kX, 2}}, tooMany, ""},
      {"1;2\n3;4\n",
       {{T::kX, 2}, {T::kDy, 1}},
       "colonne 1 e 2, 2 punti",
       "  3.00000E+00   4.00000E+00   1.00000E+00 "},
      {"1;2\n3;4\n",
       {{T::kY, 1}, {T::kDy, 2}},
       "colonne 1 e 2, 2 punti",
       "  3.00000E+00   4.00000E+00   1.00000E+00 "},
  };
  for (const Case& each : cases) expect(each);
}

TEST_F(TableImportTest, AnErrorOfYMustBePositive) {
  import.open(kVelocity);
  EXPECT_FALSE(import.takesErrorValue());
  import.choose(T::kDy, 5);
  EXPECT_TRUE(import.takesErrorValue());
  for (const char* wrong : {"", "0", "-1", "x", "1,5"}) {
    import.setErrorValue(wrong);
    EXPECT_EQ(import.message(), "dy: si attende un numero positivo") << wrong;
    EXPECT_EQ(import.text(), "");
  }
  import.setErrorValue("2.5");
  EXPECT_EQ(lastPoint(), "  4.00000E+00   9.25000E+00   2.50000E+00 ");
}

TEST_F(TableImportTest, HeaderLinesAndThinningAreTaken) {
  import.open(kVelocity);
  import.setHeaderLines(3);
  EXPECT_THAT(import.message(), HasSubstr("2 punti"));
  import.setHeaderLines(std::nullopt);
  EXPECT_THAT(import.message(), HasSubstr("3 punti"));
  EXPECT_FALSE(import.takesThinning());
  import.choose(T::kThinning, 2);
  import.setThinning(3);
  EXPECT_TRUE(import.takesThinning());
  EXPECT_EQ(import.message(), "un file dati contiene almeno due punti");
}

TEST_F(TableImportTest, AColumnThatIsNoLongerThereIsForgotten) {
  import.open(kVelocity);
  import.choose(T::kY, 4);
  import.choose(T::kSeparator, 2);
  EXPECT_EQ(import.chosen(T::kY), 0);
  import.choose(T::kSeparator, 0);
  EXPECT_TRUE(import.isUnderstood());
}

TEST_F(TableImportTest, ADataFileStaysAsItIs) {
  const std::string bytes = "t\ns\n2\n1 2 .1\n2 4 .2\n% fine\n";
  import.open(bytes);
  EXPECT_EQ(import.text(), bytes);
}

}  // namespace
}  // namespace vk
