// Letters that are printed one by one, as texts of an SVG document.

#include "gral/BlockLetters.h"
#include "gral/sinks/SvgWriter.h"

namespace vk {
namespace {

/// Letters of which "A" and "V" are set closer.
class KernedLetters : public BlockLetters {
 public:
  double kerning(bool, unsigned char code, unsigned char next) override {
    return code == 'A' && next == 'V' ? -0.1 : 0;
  }
};

class SvgTexts : public ::testing::Test {
 protected:
  void SetUp() override { writer.clear({3000, 1500}, kWhite); }
  /// The texts of the document, one on each line.
  std::string texts() {
    const std::string document = writer.document();
    std::string found;
    for (std::size_t at = 0; (at = document.find("<text ", at)) != std::string::npos; ++at) {
      found += document.substr(at, document.find('\n', at) + 1 - at);
    }
    return found;
  }
  void print(const TwipPoint& place, const std::string& text, double size = 10, const char* font = "Arial",
             double angle = 0) {
    writer.text({place, PointSize(size), angle, font, text});
  }

  KernedLetters letters;
  SvgWriter writer{15, letters};
};

std::string started(const char* size, const char* place, const char* color = "#000000") {
  return std::string("<text stroke=\"none\" fill=\"") + color + "\" font-size=\"" + size + "\" transform=\"" +
         place + "\"";
}

TEST_F(SvgTexts, LettersThatFollowOneAnotherAreOneText) {
  print({100, 200}, "V");
  print({200, 200}, "o");
  print({301, 200}, " ");
  print({350.5, 200}, "<");
  EXPECT_EQ(texts(),
            started("200", "translate(100 200)") + " x=\"0 100 201 250.5\" y=\"180\">Vo &lt;</text>\n");
}

TEST_F(SvgTexts, LettersElsewhereAreTextsOfTheirOwn) {
  print({100, 200}, "a");
  print({251, 200}, "b");
  print({351, 200}, "c", 10, "Arial", 90);
  print({351, 400}, "d", 10, "Arial", 90);
  print({100, 400}, "e");
  print({200, 561}, "f");
  EXPECT_EQ(texts(), started("200", "translate(100 200)") + " x=\"0\" y=\"180\">a</text>\n" +
                         started("200", "translate(251 200)") + " x=\"0\" y=\"180\">b</text>\n" +
                         started("200", "translate(351 200)rotate(-90)") + " x=\"0\" y=\"180\">c</text>\n" +
                         started("200", "translate(351 400)rotate(-90)") + " x=\"0\" y=\"180\">d</text>\n" +
                         started("200", "translate(100 400)") + " x=\"0\" y=\"180\">e</text>\n" +
                         started("200", "translate(200 561)") + " x=\"0\" y=\"180\">f</text>\n");
}

TEST_F(SvgTexts, OtherColoursAndLinesBetweenEndAText) {
  print({100, 200}, "a");
  writer.pen({Colour::fromBgr(0x0000FF), 1, kDrawSolid});
  print({200, 200}, "b");
  writer.line({1, 2}, {3, 4});
  print({300, 200}, "c");
  writer.line({3, 4}, {5, 6});
  const std::string document = writer.document();
  const std::string red = started("200", "translate(200 200)", "#ff0000") + " x=\"0\" y=\"180\">b</text>\n";
  EXPECT_NE(document.find(started("200", "translate(100 200)") + " x=\"0\" y=\"180\">a</text>\n</g>\n"),
            std::string::npos);
  EXPECT_NE(document.find(red + "<path fill=\"none\" d=\"M1 2l2 2\"/>\n<text "), std::string::npos);
  EXPECT_NE(document.find(">c</text>\n<path fill=\"none\" d=\"M3 4l2 2\"/>"), std::string::npos);
}

TEST_F(SvgTexts, ScriptsAndGreekLettersArePiecesOfTheirText) {
  print({100, 200}, "x");
  print({200, 250}, "m", 7.5);
  print({275, 150}, "2", 7.5);
  print({350, 200}, " ");
  print({400, 200}, "m", 10, "Symbol");
  EXPECT_EQ(texts(), started("200", "translate(100 200)") +
                         " x=\"0\" y=\"180\">x<tspan font-size=\"150\" x=\"100\" y=\"185\">m</tspan>"
                         "<tspan font-size=\"150\" x=\"175 250\" y=\"85\">2 </tspan>"
                         "<tspan x=\"300\" y=\"180\">\xCE\xBC</tspan></text>\n");
}

TEST_F(SvgTexts, TurnedLettersFollowAlongTheirLine) {
  print({100, 500}, "a", 10, "Symbol", 90);
  print({100, 400}, "b", 10, "Symbol", 90);
  EXPECT_EQ(texts(), started("200", "translate(100 500)rotate(-90)") +
                         " x=\"0\" y=\"180\">\xCE\xB1<tspan x=\"100\" y=\"180\">\xCE\xB2</tspan></text>\n");
}

/// For viewers that read only the first place of a list.
TEST_F(SvgTexts, APieceEndsWhereAViewerWouldSetALetterElsewhere) {
  print({0, 0}, "A");
  print({100, 0}, "V");
  print({201, 0}, "e");
  print({302, 0}, "n");
  print({403, 0}, "t");
  EXPECT_EQ(texts(), started("200", "translate(0 0)") +
                         " x=\"0\" y=\"180\">A<tspan x=\"100 201 302\" y=\"180\">Ven</tspan>"
                         "<tspan x=\"403\" y=\"180\">t</tspan></text>\n");
}

TEST_F(SvgTexts, BlanksAroundATextAreLeftOutAndGapsKept) {
  print({0, 0}, "  a  b \x01 ");
  EXPECT_EQ(texts(), started("200", "translate(0 0)") +
                         " xml:space=\"preserve\" x=\"100 200 250 300\" y=\"180\">a  b</text>\n");
}

TEST_F(SvgTexts, NothingIsWrittenForATextWithoutLetters) {
  print({0, 0}, " ");
  print({0, 0}, "\x01");
  print({0, 0}, "");
  EXPECT_EQ(texts(), "");
}

}  // namespace
}  // namespace vk
