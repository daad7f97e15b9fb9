#include <algorithm>

#include "doubles/DrawingLines.h"
#include "grafile/GraphicCommandsFixture.h"

namespace vk {
namespace {

/// Titles, keys, frames and bands of graphic files on a page of 20 x 15 cm.
class BoxAndBandTest : public GraphicCommandsTest {
 protected:
  const std::string scales = lines({"\\XSCALA(4,18,0,10)", "\\YSCALA(3,12,0,6)"});
  static void scale(GralCls& d) {
    d.GralXMap(4, 18, 0, 10);
    d.GralYMap(3, 12, 0, 6);
  }
  /// The lines that are no texts of their own device.
  std::vector<std::string> linesWith(const std::string& text, const std::string& begin) {
    std::vector<std::string> drawn = run(text);
    std::erase_if(drawn, [&](const std::string& line) { return !line.starts_with(begin); });
    return drawn;
  }
};

TEST_F(BoxAndBandTest, AColourHoldsForLinesMarksAndTexts) {
  expectDraws(lines({"\\COLORE( D55E00 )", "\\LINEA(1,2,10,7)", "\\TIPO_SIMBOLO(2,6)", "\\SIMBOLO(3,4)",
                     "\\SCRIVI(5,6,0,0,12,a)", "\\COLORE(0072b2)", "\\SIMBOLO(3,5)"}),
              [](GralCls& d) {
                d.GralColor(Colour::fromRgb(0xD55E00));
                d.GralMarkColor = Colour::fromRgb(0xD55E00);
                d.GralLine(1, 2, 10, 7);
                d.GralMakeMark(2, 6);
                d.GralMark(3, 4);
                d.GralWPrint(5, 6, 0, 0, 12, "a");
                d.GralColor(Colour::fromRgb(0x0072B2));
                d.GralMarkColor = Colour::fromRgb(0x0072B2);
                d.GralMark(3, 5);
              });
  EXPECT_TRUE(contains(linesWith("\\COLORE(d55e00)\r\n\\LINEA(1,2,10,7)\r\n", "pen "), "pen D55E00 width 1"));
}

TEST_F(BoxAndBandTest, AColourHasSixHexadecimalDigits) {
  for (const char* digits :
       {"", "12345", "1234567", "GGGGGG", "#12345", "-12345", "0x1234", "red", "12 345"}) {
    EXPECT_EQ(errorsOf("\\COLORE(" + std::string(digits) + ")\r\n"), "*** Parametri di COLORE Errati\r\n")
        << digits;
  }
}

TEST_F(BoxAndBandTest, ATitleStandsAboveTheBox) {
  expectDraws(scales + "\\TITOLO( Moto \xE0 )\r\n", [](GralCls& d) {
    scale(d);
    d.GralWinPrintString(d.xLog2Scr(11), d.yLog2Scr(13), 1, 0, 20, 0, "Moto \\\\a");
  });
  expectDraws("\\YSCALA(12,3,0,6)\r\n\\TITOLO(Moto)\r\n", [](GralCls& d) {
    d.GralYMap(12, 3, 0, 6);
    d.GralWinPrintString(d.xLog2Scr(10), d.yLog2Scr(13), 1, 0, 20, 0, "Moto");
  });
}

TEST_F(BoxAndBandTest, WithoutABoxATitleStandsAtTheTopOfThePage) {
  expectDraws("\\TITOLO(Moto)\r\n",
              [](GralCls& d) { d.GralWinPrintString(d.xLog2Scr(10), d.yLog2Scr(14), 1, 0, 20, 0, "Moto"); });
}

TEST_F(BoxAndBandTest, AKeyHasASampleOfLineAndMark) {
  expectDraws(scales + lines({"\\TIPO_LINEA(3,2)", "\\TIPO_SIMBOLO(2,3)", "\\CHIAVE(5, 4, dati, e altro)"}),
              [](GralCls& d) {
                scale(d);
                d.GralPen(3, 2);
                d.GralMakeMark(2, 3);
                const double cm = 10.0 / 14;
                d.GralDraw(column({5, 5 + 1.5 * cm}), column({4, 4}), 2);
                d.GralMark(5 + .75 * cm, 4);
                d.GralWPrint(5 + 1.8 * cm, 4, 0, 0, 16, "dati, e altro");
              });
}

TEST_F(BoxAndBandTest, ATextOfAKeyIsBlackAndTheColourGoesOn) {
  EXPECT_EQ(run(lines({"\\COLORE(D55E00)", "\\CHIAVE(5,4,ab)", "\\LINEA(1,2,3,4)"})),
            run(lines({"\\COLORE(D55E00)", "\\CHIAVE(5,4,)", "\\COLORE(000000)", "\\SCRIVI(6.8,4,0,0,16,ab)",
                       "\\COLORE(D55E00)", "\\LINEA(1,2,3,4)"})));
}

TEST_F(BoxAndBandTest, AKeyGoesToTheRightOnAnAxisThatIsTurnedRound) {
  expectDraws("\\XSCALA(4,18,10,0)\r\n\\CHIAVE(5,4,a)\r\n", [](GralCls& d) {
    d.GralXMap(4, 18, 10, 0);
    const double cm = -10.0 / 14;
    d.GralDraw(column({5, 5 + 1.5 * cm}), column({4, 4}), 2);
    d.GralMark(5 + .75 * cm, 4);
    d.GralWPrint(5 + 1.8 * cm, 4, 0, 0, 16, "a");
  });
}

TEST_F(BoxAndBandTest, AKeyLeavesOutALineWithoutWidthAndAMarkWithoutRadius) {
  expectDraws(lines({"\\TIPO_LINEA(0,1)", "\\CHIAVE(5,4,a)"}), [](GralCls& d) {
    d.GralPen(0, 1);
    d.GralMark(5.75, 4);
    d.GralWPrint(6.8, 4, 0, 0, 16, "a");
  });
  expectDraws(lines({"\\TIPO_SIMBOLO(0,5)", "\\CHIAVE(5,4,a)"}), [](GralCls& d) {
    d.GralMakeMark(0, 5);
    d.GralDraw(column({5, 6.5}), column({4, 4}), 2);
    d.GralWPrint(6.8, 4, 0, 0, 16, "a");
  });
}

TEST_F(BoxAndBandTest, AFrameHasTicksOnItsFourSidesAndRoundOnesBetween) {
  expectDraws(scales + "\\RIQUADRO(5,3)\r\n", [](GralCls& d) {
    scale(d);
    for (const double side : {1, -1}) {  // an interval of 2 in steps of 0.5
      d.GralOaxis(0, 10, side > 0 ? 0 : 6, 20, side * 1.8, false, false, "");
      d.GralOaxis(0, 10, side > 0 ? 0 : 6, 5, side * 3, false, false, "");
    }
    for (const double side : {1, -1}) {
      d.GralVaxis(0, 6, side > 0 ? 0 : 10, 12, side * 1.8, false, false, "");
      d.GralVaxis(0, 6, side > 0 ? 0 : 10, 3, side * 3, false, false, "");
    }
  });
}

TEST_F(BoxAndBandTest, ShortTicksPartAnIntervalByTheFinestRoundStep) {
  const auto parts = [&](const std::string& upper) {
    const auto drawn = linesWith("\\XSCALA(4,18,0," + upper + ")\r\n\\RIQUADRO(1,1)\r\n", "line ");
    const auto without =
        linesWith("\\XSCALA(4,18,0," + upper + ")\r\n\\XLOG(1)\r\n\\RIQUADRO(1,1)\r\n", "line ");
    // A short axis has a line and a tick for each part, and a first tick; a decade has nine ticks more.
    return (static_cast<int>(drawn.size()) - static_cast<int>(without.size()) + 2 * 9 - 2) / 4;
  };
  EXPECT_EQ(parts("1"), 5);
  EXPECT_EQ(parts("0.2"), 4);
  EXPECT_EQ(parts("2.5"), 5);
  EXPECT_EQ(parts("3"), 3);
  EXPECT_EQ(parts("4E10"), 4);
  EXPECT_EQ(parts("5E-7"), 5);
  EXPECT_EQ(parts("6"), 3);
  EXPECT_EQ(parts("1.5"), 3);
  EXPECT_EQ(parts("2.9999998"), 3) << "a step of a hair less than 1";
}

TEST_F(BoxAndBandTest, AFrameOfLogarithmicAxesHasTheTicksOfTheDecades) {
  expectDraws(
      lines({"\\XSCALA(4,18,1,-2)", "\\YSCALA(12,3,2,0)", "\\XLOG(1)", "\\YLOG(1)", "\\RIQUADRO(3,2)"}),
      [](GralCls& d) {
        d.GralXMap(4, 18, 1, -2);
        d.GralYMap(12, 3, 2, 0);
        d.GralOaxis(-2, 1, 0, 3, 3, true, false, "");
        d.GralOaxis(-2, 1, 2, 3, -3, true, false, "");
        d.GralVaxis(0, 2, 1, 2, 3, true, false, "");
        d.GralVaxis(0, 2, -2, 2, -3, true, false, "");
      });
}

TEST_F(BoxAndBandTest, AFrameWithoutIntervalsIsAWrongParameter) {
  for (const char* fields : {"", "5", "0,5", "5,-1"}) {
    EXPECT_EQ(errorsOf(scales + "\\RIQUADRO(" + fields + ")\r\n"), "*** Parametri di RIQUADRO Errati\r\n");
  }
}

TEST_F(BoxAndBandTest, ABandOfAFileLiesBetweenItsColumns) {
  files.content["BAND.DAT"] = lines({"x", "y", "3", "0 1 2", "5 2 4", "10 1 5"});
  const auto drawn = run(scales + lines({"\\COLORE(0000FF)", "\\BANDA(band.dat)"}));
  ASSERT_GE(drawn.size(), 2U);
  EXPECT_EQ(drawn[drawn.size() - 2], "filling CBCBFF solid");
  std::string wanted = "fill";
  GralCls drawing(printer);
  RecorderDevice form;
  drawing.GralGrStr(form, "LANDSCAPE", static_cast<double>(session.figures.GraphScale[3]));
  scale(drawing);
  for (const auto& [x, y] :
       std::initializer_list<std::pair<double, double>>{{0, 1}, {5, 2}, {10, 1}, {10, 5}, {5, 4}, {0, 2}}) {
    wanted += " " + std::to_string(drawing.xUsr2Pixel(x)) + "," + std::to_string(drawing.yUsr2Pixel(y));
  }
  EXPECT_EQ(drawn.back(), wanted + " px");
  EXPECT_TRUE(output.requests.empty());
}

TEST_F(BoxAndBandTest, WhatIsDrawnBehindABandHasItsOwnFilling) {
  files.content["BAND.DAT"] = lines({"x", "y", "2", "0 1 2", "5 2 4"});
  const auto drawn = run(lines({"\\BANDA(band.dat)", "\\SIMBOLO(3,3)"}));
  EXPECT_EQ(drawn[drawn.size() - 2], "filling FFFFFF solid");
  EXPECT_TRUE(drawn.back().starts_with("circle "));
}

TEST_F(BoxAndBandTest, TintsOfDarkColoursAreOfOneGrey) {
  EXPECT_EQ(lightTint(kBlack).rgb(), 0xD1D1D1U);
  EXPECT_EQ(lightTint(Colour::fromRgb(0x0000FF)).rgb(), 0xCBCBFFU);
  EXPECT_EQ(lightTint(Colour::fromRgb(0xFF8000)).rgb(), 0xFFC78EU);
  EXPECT_EQ(lightTint(kWhite), kWhite);
  EXPECT_EQ(lightTint(Colour::fromRgb(0xFFFF00)).rgb(), 0xFFFF00U);
}

TEST_F(BoxAndBandTest, ABandOfFormulasHasGapsWhereEitherHasNoValue) {
  const auto bands = [&](const std::string& formulas) {
    return linesWith(
        scales + lines({"\\PARAMETRI(a=2)", "\\XASSE(0,10,0,5,3,0)", "\\BANDA(" + formulas + ")"}), "fill ");
  };
  const auto corners = [](const std::string& line) { return numbersOf(line).size() / 2; };
  const auto whole = bands("x/10 ; a+x/10");
  ASSERT_EQ(whole.size(), 1U);
  EXPECT_EQ(corners(whole[0]), 400U);
  const auto half = bands("LOG(5-x);a");
  ASSERT_EQ(half.size(), 1U);
  EXPECT_EQ(corners(half[0]), 200U);
  const auto both = bands("1;SQR((x-4)*(x-6))");
  ASSERT_EQ(both.size(), 2U);
  EXPECT_EQ(corners(both[0]), 160U);
  EXPECT_EQ(corners(both[1]), 160U);
}

TEST_F(BoxAndBandTest, InAFrameWithNumbersABandOfFormulasRunsOverTheDecades) {
  const auto band = [&](const std::string& logarithm, const std::string& formulas) {
    return linesWith(lines({"\\XSCALA(4,18,0,2)", "\\YSCALA(3,12,0,10)", logarithm, "\\RIQUADRO(2,5,1)",
                            "\\BANDA(" + formulas + ")"}),
                     "fill ");
  };
  const auto drawn = band("\\XLOG(1)", "0*x;SQR(x)");
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_EQ(drawn, band("\\XLOG(0)", "0*x;SQR(10^x)"));
}

TEST_F(BoxAndBandTest, OnLogarithmicAxesABandTakesLogarithmsAndEndsAtTheScale) {
  files.content["BAND.DAT"] = lines({"x", "y", "3", "1 1 10", "10 -5 100", "100 1 10"});
  files.content["LOG.DAT"] = lines({"x", "y", "3", "0 0 1", "1 -1 2", "2 0 1"});
  const std::string logScales = lines({"\\XSCALA(4,18,0,2)", "\\YSCALA(12,3,2,-1)"});
  EXPECT_EQ(run(logScales + lines({"\\XLOG(1)", "\\YLOG(1)", "\\BANDA(BAND.DAT)"})),
            run(logScales + lines({"\\BANDA(LOG.DAT)"})));
}

TEST_F(BoxAndBandTest, TellWhatIsWrongWithTheFileOfABand) {
  files.content["FOUR.DAT"] = lines({"x", "y", "2 1", "0 1 2 3", "5 2 4 3"});
  files.content["TWO.DAT"] = lines({"x", "y", "2", "0 1", "5 2"});
  files.content["WORD.DAT"] = lines({"x", "y", "2", "0 1 due", "5 2 3"});
  files.content["ZERO.DAT"] = lines({"x", "y", "2", "0 1 2", "0 2 3"});
  EXPECT_EQ(errorsOf(lines({"\\BANDA(none.dat)", "\\BANDA()", "\\BANDA(Four.dat)", "\\BANDA(TWO.DAT)",
                            "\\BANDA(WORD.DAT)", "\\XLOG(1)", "\\BANDA(ZERO.DAT)"})),
            lines({"*** File Dati NONE.DAT Errato", "*** File Dati  Errato",
                   "*** File Dati FOUR.DAT Errato (Servono 3 Colonne: x, Minimo, Massimo)",
                   "*** File Dati TWO.DAT Errato (Servono 3 Colonne: x, Minimo, Massimo)",
                   "*** File Dati WORD.DAT Errato (Servono 3 Colonne: x, Minimo, Massimo)",
                   "*** File Dati ZERO.DAT NON Calcolabile"}));
}

TEST_F(BoxAndBandTest, TellWhichFormulaOfABandIsWrong) {
  EXPECT_EQ(errorsOf(lines({"\\BANDA(x;2*x)", "\\XASSE(0,10,0,5,3,0)", "\\BANDA(q;x)", "\\BANDA(x; x+)",
                            "\\BANDA(x;)", "\\BANDA(SQR(-1);x)", "\\BANDA(SQR(x-6);SQR(4-x))"})),
            lines({"*** Funzione x NON Calcolabile (Intervallo x NON Definito)", "*** Funzione q Errata",
                   "*** Funzione x+ Errata", "*** Funzione  Errata", "*** Funzione SQR(-1);x NON Calcolabile",
                   "*** Funzione SQR(x-6);SQR(4-x) NON Calcolabile"}));
}

TEST_F(BoxAndBandTest, AreDrawnOnPaperToo) {
  files.content["BAND.DAT"] = lines({"x", "y", "2", "0 1 2", "5 2 4"});
  run(scales + lines({"\\COLORE(0072B2)", "\\TITOLO(Moto)", "\\BANDA(BAND.DAT)", "\\CHIAVE(1,1,dati)",
                      "\\RIQUADRO(5,3)"}),
      "Printer");
  EXPECT_TRUE(output.requests.empty());
  EXPECT_TRUE(contains(printer.lines(), "fill "));
  EXPECT_TRUE(contains(printer.lines(), "pen 0072B2"));
}

}  // namespace
}  // namespace vk
