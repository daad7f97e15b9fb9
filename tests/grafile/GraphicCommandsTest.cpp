#include "grafile/GraphicCommandsFixture.h"

namespace vk {
namespace {

TEST_F(GraphicCommandsTest, TheTableHasEveryCommandOfTheLanguage) {
  struct Row {
    const char* name;
    int numeric, integer;
  };
  const Row rows[] = {{"PARAMETRI", 0, 0},    {"XLOG", 0, 0},       {"YLOG", 0, 0},       {"XSCALA", 4, 0},
                      {"YSCALA", 4, 0},       {"AREA", 4, 0},       {"LINEA", 4, 0},      {"XASSE", 5, 1},
                      {"YASSE", 5, 1},        {"XLEGENDA", 0, 0},   {"YLEGENDA", 0, 0},   {"SCRIVI", 2, 3},
                      {"TIPO_SIMBOLO", 1, 1}, {"TIPO_LINEA", 1, 1}, {"SIMBOLO", 2, 0},    {"DATI", 0, 0},
                      {"SPEZZATA", 0, 0},     {"CURVA", 0, 0},      {"FUNZIONE", 0, 0},   {"COLORE", 0, 0},
                      {"TITOLO", 0, 0},       {"CHIAVE", 2, 0},     {"BANDA", 0, 0},      {"RIQUADRO", 0, 3},
                      {"CONTORNI", 0, 3},     {"RIQUADRO3D", 5, 2}, {"SUPERFICIE", 5, 2}, {"COLONNE", 5, 1}};
  ASSERT_EQ(graphicCommands().size(), std::size(rows));
  std::size_t i = 0;
  for (const Row& row : rows) {
    const GraphicCommand& command = graphicCommands()[i++];
    EXPECT_EQ(command.name, row.name);
    EXPECT_EQ(command.numericFields(), row.numeric) << row.name;
    EXPECT_EQ(command.integerFields, row.integer) << row.name;
    EXPECT_EQ(findGraphicCommand(row.name), &command);
  }
  EXPECT_EQ(findGraphicCommand("Dati"), nullptr);
}

TEST_F(GraphicCommandsTest, AnUnknownNameFailsEveryCommandThatHasFields) {
  for (const GraphicCommand& command : graphicCommands()) {
    const int fields = command.numericFields() + command.integerFields;
    for (int bad = 0; bad < fields; ++bad) {
      std::string arguments;
      for (int i = 0; i < fields; ++i) arguments += (i == 0 ? "" : ",") + std::string(i == bad ? "q" : "1");
      const std::string name(command.name);
      EXPECT_EQ(errorsOf("\\" + name + "(" + arguments + ")\r\n"),
                "*** Parametri di " + name + " Errati\r\n");
    }
  }
}

TEST_F(GraphicCommandsTest, ScalesMapLogicalToUserCoordinates) {
  expectDraws(lines({"\\XSCALA(2,18,100,0)", "\\YSCALA(3,13,-1,1)", "\\SIMBOLO(25,.5)"}), [](GralCls& d) {
    d.GralXMap(2, 18, 100, 0);
    d.GralYMap(3, 13, -1, 1);
    d.GralMark(25, .5);
  });
}

TEST_F(GraphicCommandsTest, AreaLimitsTheDrawing) {
  expectDraws("\\AREA(2,3,15,12)\r\n", [](GralCls& d) { d.GralClip(2, 3, 15, 12); });
}

TEST_F(GraphicCommandsTest, MarksAreChosenAndDrawn) {
  expectDraws(lines({"\\TIPO_SIMBOLO(2.5,7.5)", "\\SIMBOLO(3,4)"}), [](GralCls& d) {
    d.GralMakeMark(2.5, 8);
    d.GralMark(3, 4);
  });
}

TEST_F(GraphicCommandsTest, ASolidLineIsOneLine) {
  expectDraws(lines({"\\TIPO_LINEA(6,1)", "\\LINEA(1,2,10,7)"}), [](GralCls& d) {
    d.GralPen(6, 1);
    d.GralLine(1, 2, 10, 7);
  });
}

TEST_F(GraphicCommandsTest, ADashedLineStartsThePatternAnewEachTime) {
  expectDraws(lines({"\\TIPO_LINEA(3,4)", "\\LINEA(1,2,10,7)", "\\LINEA(10,7,1,3)"}), [](GralCls& d) {
    d.GralPen(3, 4);
    std::string pattern = d.GralPenTra;
    d.GralTraLine(1, 2, 10, 7, pattern);
    pattern = d.GralPenTra;
    d.GralTraLine(10, 7, 1, 3, pattern);
  });
}

TEST_F(GraphicCommandsTest, ALineOnADrawingWhoseDeviceMakesTheDashesIsALineOfTheDevice) {
  const auto drawn = [&](const std::function<void(GralCls&)>& draw) {
    RecorderDevice form;
    GralCls d(printer);
    d.GralGrStr(form, "LANDSCAPE", static_cast<double>(session.figures.GraphScale[3]));
    d.GralUseTra = false;
    draw(d);
    return form.lines();
  };
  EXPECT_EQ(drawn([&](GralCls& d) {
              GraphicRun run(files, d, kernels);
              run.runText("\\TIPO_LINEA(3,4)\r\n\\LINEA(1,2,10,7)\r\n");
              EXPECT_EQ(run.errors(), "");
            }),
            drawn([](GralCls& d) {
              d.GralPen(3, 4);
              d.GralLine(1, 2, 10, 7);
            }));
}

TEST_F(GraphicCommandsTest, AFileThatIsNamedFromTheRootIsSoughtNowhereElse) {
  addThreePoints();
  for (const char* name : {"THREE.DAT", "/THREE.DAT", "\\THREE.DAT"}) {
    files.content["/D/" + std::string(name)] = files.content["THREE.DAT"];
  }
  files.content.erase("THREE.DAT");
  for (const auto& [name, found] :
       {std::pair("THREE.DAT", true), {"/THREE.DAT", false}, {"\\THREE.DAT", false}}) {
    RecorderDevice form;
    GralCls d(printer);
    d.GralGrStr(form, "LANDSCAPE", static_cast<double>(session.figures.GraphScale[3]));
    GraphicRun run(files, d, kernels);
    run.seekIn({"/D"});
    run.runText("\\DATI(" + std::string(name) + ")\r\n");
    EXPECT_EQ(run.errors().empty(), found) << name << run.errors();
  }
}

TEST_F(GraphicCommandsTest, ADashedLineWithoutLengthIsAWrongParameter) {
  EXPECT_EQ(errorsOf(lines({"\\TIPO_LINEA(3,2)", "\\LINEA(1,2,1,2)"})), "*** Parametri di LINEA Errati\r\n");
}

TEST_F(GraphicCommandsTest, AxesGetTheirFieldsAndLegends) {
  expectDraws(lines({"\\XASSE(1,16,2,4.5,3,1,Tempo, (s), e altro)", "\\YASSE(2,13,1,5.5,-3,0)"}),
              [](GralCls& d) {
                d.GralOaxis(1, 16, 2, 4, 3, false, true, "Tempo, (s), e altro");
                d.GralVaxis(2, 13, 1, 6, -3, false, false, "");
              });
  expectDraws("\\YASSE(2,13,1,6,3,1,Corsa (m))\r\n",
              [](GralCls& d) { d.GralVaxis(2, 13, 1, 6, 3, false, true, "Corsa (m)"); });
}

// QUIRK: the legend field of an axis, even an empty one, replaces the legend set before.
TEST_F(GraphicCommandsTest, LegendsSetBeforeAreReplacedByTheFieldOfTheAxis) {
  expectDraws(
      lines({"\\XLEGENDA(Tempo)", "\\YLEGENDA(Corsa)", "\\XASSE(1,16,2,5,3,1)", "\\YASSE(2,13,1,6,3,1)"}),
      [](GralCls& d) {
        d.GralOaxis(1, 16, 2, 5, 3, false, true, "");
        d.GralVaxis(2, 13, 1, 6, 3, false, true, "");
      });
}

TEST_F(GraphicCommandsTest, TheLogFlagsReachTheAxes) {
  expectDraws(lines({"\\XLOG( 1 )", "\\YLOG(0.6)", "\\XASSE(1,4,2,3,3,1,x)", "\\YASSE(2,5,1,3,3,1,y)"}),
              [](GralCls& d) {
                d.GralOaxis(1, 4, 2, 3, 3, true, true, "x");
                d.GralVaxis(2, 5, 1, 3, 3, true, true, "y");
              });
  expectDraws(
      lines({"\\XLOG(1)", "\\XLOG(0)", "\\YLOG(0.5)", "\\XASSE(1,4,2,3,3,1,x)", "\\YASSE(2,5,1,3,3,1,y)"}),
      [](GralCls& d) {
        d.GralOaxis(1, 4, 2, 3, 3, false, true, "x");
        d.GralVaxis(2, 5, 1, 3, 3, false, true, "y");
      });
}

TEST_F(GraphicCommandsTest, ALogFlagIsANumberAndNoParameter) {
  expectDraws(lines({"\\PARAMETRI(uno=1)", "\\XLOG(uno)", "\\YLOG(1 e altro)", "\\XASSE(1,4,2,3,3,1)",
                     "\\YASSE(2,5,1,3,3,1)"}),
              [](GralCls& d) {
                d.GralOaxis(1, 4, 2, 3, 3, false, true, "");
                d.GralVaxis(2, 5, 1, 3, 3, true, true, "");
              });
}

TEST_F(GraphicCommandsTest, WritingPassesThreeIntegersAndTheUntrimmedText) {
  expectDraws("\\SCRIVI(5,6,1,90,12.5,  a, b (c)  )\r\n",
              [](GralCls& d) { d.GralWPrint(5, 6, 1, 90, 12, "  a, b (c)  "); });
}

TEST_F(GraphicCommandsTest, OldSignsInTextsBecomeMarkup) {
  expectDraws(lines({"\\SCRIVI(5,6,0,0,12,\xE0x\xFD\xB0)", "\\XASSE(1,16,2,5,3,1,\xE6m)",
                     "\\YASSE(2,13,1,6,3,1,T (\xF8\x43))"}),
              [](GralCls& d) {
                d.GralWPrint(5, 6, 0, 0, 12, "\\\\ax^2?\?");
                d.GralOaxis(1, 16, 2, 5, 3, false, true, "\\\\mm");
                d.GralVaxis(2, 13, 1, 6, 3, false, true, "T (^oC)");
              });
}

TEST_F(GraphicCommandsTest, TextsInUtf8KeepTheirLetters) {
  expectDraws(
      lines({"\xEF\xBB\xBF\\XASSE(1,16,2,5,3,1,Velocità (µm))", "\\SCRIVI(5,6,0,0,12,&", "Più È ±\u4E16)"}),
      [](GralCls& d) {
        d.GralOaxis(1, 16, 2, 5, 3, false, true, "Velocit\xE0 (\\\\mm)");
        d.GralWPrint(5, 6, 0, 0, 12, "Pi\xF9 \xC8 \xB1?");
      });
  expectDraws(lines({"\\SCRIVI(5,6,0,0,12,è)", "% \xE0"}),
              [](GralCls& d) { d.GralWPrint(5, 6, 0, 0, 12, "????"); });
}

TEST_F(GraphicCommandsTest, FileNamesKeepTheirBytes) {
  addThreePoints();
  const std::string three = files.content["THREE.DAT"];
  files.content["Più.DAT"] = files.content["\xE8.DAT"] = three;
  for (const char* name : {"Più.DAT", "\xE8.DAT"}) {
    expectDraws(lines({"\\SPEZZATA(" + std::string(name) + ")"}), [](GralCls& d) {
      d.GralDraw(column({1, 2, 4}), column({2, 3, 1}), 3);
    });
  }
}

TEST_F(GraphicCommandsTest, ErrorsQuoteLinesAsReportsShowThem) {
  EXPECT_EQ(errorsOf("\\SCRIVO(è)"), "***\\SCRIVO(\x8A) Comando Errato\r\n");
  EXPECT_EQ(errorsOf("\\SCRIVO(\x8A)"), "***\\SCRIVO(\x8A) Comando Errato\r\n");
  EXPECT_EQ(errorsOf("\\DATI(è)"), "*** File Dati \x8A Errato\r\n");
}

TEST_F(GraphicCommandsTest, ParametersStandForNumbers) {
  expectDraws(lines({"\\PARAMETRI(a1=2.5, k=1.6)", "\\XSCALA(0,20,-10,10)", "\\TIPO_SIMBOLO(a1,k)",
                     "\\SIMBOLO(-a1, 1)"}),
              [](GralCls& d) {
                d.GralXMap(0, 20, -10, 10);
                d.GralMakeMark(2.5, 2);
                d.GralMark(-2.5, 1);
              });
  EXPECT_EQ(errorsOf(lines({"\\PARAMETRI(a1=2.5)", "\\SIMBOLO(A1,1)"})),
            "*** Parametri di SIMBOLO Errati\r\n");
}

TEST_F(GraphicCommandsTest, ParametersOfOneRunAreUnknownInTheNext) {
  EXPECT_EQ(errorsOf(lines({"\\PARAMETRI(a1=2.5)", "\\SIMBOLO(a1,1)"})), "");
  EXPECT_EQ(errorsOf("\\SIMBOLO(a1,1)\r\n"), "*** Parametri di SIMBOLO Errati\r\n");
}

TEST_F(GraphicCommandsTest, MissingFieldsAreZeroWithoutAnError) {
  expectDraws(lines({"\\SIMBOLO(3)", "\\SIMBOLO(x,2)", "\\SIMBOLO()"}), [](GralCls& d) {
    d.GralMark(3, 0);
    d.GralMark(0, 2);
    d.GralMark(0, 0);
  });
}

TEST_F(GraphicCommandsTest, ValuesOfParametersHaveSinglePrecision) {
  expectDraws(lines({"\\PARAMETRI(a=0.1234567891)", "\\SIMBOLO(a,1)"}),
              [](GralCls& d) { d.GralMark(.1234568, 1); });
}

TEST_F(GraphicCommandsTest, CoordinatesOfNarrowRangesKeepTheDoublesOfTheirParameters) {
  expectDraws(kNarrowScales + lines({"\\PARAMETRI(x1=1700000123.5,y1=5.0001234, n=-1700000123.5)",
                                     "\\AREA(Xi,Yi,Xf,Yf)", "\\LINEA(x1,Yi,Xf,y1)", "\\SIMBOLO(x1,y1)",
                                     "\\SIMBOLO(-n,y1)", "\\SCRIVI(x1,y1,1,0,12,qui)",
                                     "\\XASSE(Xi,x1,y1,6,3,0,ora)", "\\YASSE(y1,Yf,x1,4,3,0)"}),
              [](GralCls& d) {
                mapNarrowly(d);
                d.GralClip(1.7E9, 5, 1.7E9 + 600, 5.0004);
                d.GralLine(1700000123.5, 5, 1.7E9 + 600, 5.0001234);
                d.GralMark(1700000123.5, 5.0001234);
                d.GralMark(1700000123.5, 5.0001234);
                d.GralWPrint(1700000123.5, 5.0001234, 1, 0, 12, "qui");
                d.GralOaxis(1.7E9, 1700000123.5, 5.0001234, 6, 3, false, false, "ora");
                d.GralVaxis(5.0001234, 5.0004, 1700000123.5, 4, 3, false, false, "");
              });
}

TEST_F(GraphicCommandsTest, OnlyTheNarrowAxisKeepsDoubles) {
  expectDraws(lines({"\\PARAMETRI(Xi=1700000000, Xf=1700000600, a=0.1234567891)", "\\XSCALA(5,18,Xi,Xf)",
                     "\\SIMBOLO(Xf,a)", "\\XSCALA(a,18,0,a)", "\\SIMBOLO(a,a)"}),
              [](GralCls& d) {
                d.GralXMap(5, 18, 1.7E9, 1.7E9 + 600);
                d.GralMark(1.7E9 + 600, .1234568);
                d.GralXMap(.1234568, 18, 0, .1234568);
                d.GralMark(.1234568, .1234568);
              });
}

TEST_F(GraphicCommandsTest, AScaleThatFailsLeavesThePrecision) {
  EXPECT_EQ(run(lines({"\\PARAMETRI(a=0.1234567891)", "\\XSCALA(5,18,a,a)", "\\SIMBOLO(a,1)"})),
            drawing([](GralCls& d) { d.GralMark(.1234568, 1); }));
}

TEST_F(GraphicCommandsTest, ValuesBeyondTheExponentsOfSinglesAreMapped) {
  expectDraws(lines({"\\PARAMETRI(Yf=1.2E-43)", "\\YSCALA(4,13,0,Yf)", "\\XSCALA(5,18,0,1E50)",
                     "\\SIMBOLO(5E49,Yf)"}),
              [](GralCls& d) {
                d.GralYMap(4, 13, 0, 1.2E-43);
                d.GralXMap(5, 18, 0, 1E50);
                d.GralMark(5E49, 1.2E-43);
              });
}

TEST_F(GraphicCommandsTest, AParameterTooLargeForItsPrecisionIsAWrongParameter) {
  EXPECT_EQ(errorsOf("\\PARAMETRI(a=1E300)\r\n"), "*** Parametri di PARAMETRI Errati\r\n");
}

TEST_F(GraphicCommandsTest, DataArePlottedWithTheirErrors) {
  addThreePoints();
  expectDraws("\\Dati(THREE.DAT)\r\n", [](GralCls& d) {
    d.PlotData(column({1, 2, 4}), column({0, 0, 0}), column({2, 3, 1}), column({.5, .5, .5}), 3, false, false,
               false);
  });
  files.content["BARS.DAT"] = lines({"t", "u", "2 1", "1 2 .25 .5", "3 4 .75 1"});
  expectDraws("\\DATI(BARS.DAT)\r\n", [](GralCls& d) {
    d.PlotData(column({1, 3}), column({.25, .75}), column({2, 4}), column({.5, 1}), 2, true, false, false);
  });
}

TEST_F(GraphicCommandsTest, DataOnLogarithmicAxesAreGivenLinear) {
  addThreePoints();
  expectDraws(lines({"\\XLOG(1)", "\\YLOG(1)", "\\DATI(THREE.DAT)"}), [](GralCls& d) {
    d.PlotData(column({1, 2, 4}), column({0, 0, 0}), column({2, 3, 1}), column({.5, .5, .5}), 3, false, true,
               true);
  });
}

TEST_F(GraphicCommandsTest, PointsAreJoinedByLinesOrByACurve) {
  addThreePoints();
  expectDraws("\\SPEZZATA(THREE.DAT)\r\n", [](GralCls& d) {
    d.GralDraw(column({1, 2, 4}), column({2, 3, 1}), 3);
  });
  expectDraws("\\CURVA(THREE.DAT)\r\n", [](GralCls& d) {
    d.GralCurve(column({1, 2, 4}), column({2, 3, 1}), 3);
  });
}

TEST_F(GraphicCommandsTest, JoinedPointsAreDecimalLogarithmsOnLogarithmicAxes) {
  files.content["DECADES.DAT"] = lines({"t", "u", "3", "1 -100 1", "10 1000 1", "100 10 1"});
  expectDraws(lines({"\\XLOG(1)", "\\SPEZZATA(DECADES.DAT)"}), [](GralCls& d) {
    d.GralDraw(column({0, 1, 2}), column({-100, 1000, 10}), 3);
  });
  expectDraws(lines({"\\XLOG(1)", "\\YLOG(1)", "\\CURVA(DECADES.DAT)"}), [](GralCls& d) {
    d.GralCurve(column({0, 1, 2}), column({2, 3, 1}), 3);
  });
}

TEST_F(GraphicCommandsTest, ALogarithmOfZeroOrARepeatedColumnIsAWrongParameter) {
  files.content["ZERO.DAT"] = lines({"t", "u", "2", "0 1 1", "10 1 1"});
  files.content["TWICE.DAT"] = lines({"t", "u", "3", "1 1 1", "3 1 1", "3 2 1"});
  EXPECT_EQ(errorsOf(lines({"\\CURVA(TWICE.DAT)", "\\XLOG(1)", "\\DATI(ZERO.DAT)", "\\SPEZZATA(ZERO.DAT)",
                            "\\CURVA(ZERO.DAT)"})),
            lines({"*** Parametri di CURVA Errati", "*** Parametri di DATI Errati",
                   "*** Parametri di SPEZZATA Errati", "*** Parametri di CURVA Errati"}));
}

TEST_F(GraphicCommandsTest, AMissingDataFileIsToldWithItsFoldedName) {
  EXPECT_EQ(errorsOf(lines({"\\DATI(/no/where.dat)", "\\SPEZZATA(none.dat)", "\\CURVA()"})),
            lines({"*** File Dati /NO/WHERE.DAT Errato", "*** File Dati NONE.DAT Errato",
                   "*** File Dati  Errato"}));
}

TEST_F(GraphicCommandsTest, ADataFileWithUnreadableNumbersIsWrong) {
  files.content["BAD.DAT"] = lines({"t", "u", "2", "1 2 tre", "2 3 1"});
  EXPECT_EQ(errorsOf("\\DATI(BAD.DAT)\r\n"), "*** File Dati BAD.DAT Errato\r\n");
}

TEST_F(GraphicCommandsTest, DepartureTheNameAsItStandsComesBeforeTheFoldedOne) {
  files.content["D.DAT"] = lines({"x", "y", "2", "1 2 .1", "3 4 .1"});
  files.content["d.dat"] = lines({"x", "y", "2", "1 7 .1", "3 9 .1"});
  EXPECT_EQ(run("\\SPEZZATA(d.dat)\r\n"), drawing([](GralCls& d) {
              d.GralDraw(column({1, 3}), column({7, 9}), 2);
            }));
}

TEST_F(GraphicCommandsTest, PlacesFarOutsideAreNoErrorsOnAnyDevice) {
  files.content["FAR.DAT"] = lines({"t", "u", " 4", "1 2 .5", "2 3E12 .5", "2.0001 -1E11 1E15", "4 1 .5"});
  const std::string text =
      lines({"\\LINEA(0,0,1E8,1E7)", "\\AREA(-1E12,0,10,1E12)", "\\TIPO_LINEA(40000,2)",
             "\\LINEA(0,0,1E8,1E7)", "\\TIPO_LINEA(1,1)", "\\TIPO_SIMBOLO(1E9,1)", "\\SIMBOLO(1E12,1)",
             "\\DATI(FAR.DAT)", "\\SPEZZATA(FAR.DAT)", "\\CURVA(FAR.DAT)", "\\XASSE(0,1E12,1,5,1,1)",
             "\\FUNZIONE(EXP(x/1E11))", "\\SCRIVI(1E15,1,0,0,10,A)"});
  for (const char* device : {"Form", "Printer"}) {
    output.requests.clear();
    run(text, device);
    EXPECT_TRUE(output.requests.empty()) << device << ": " << output.requests.back().text.bytes();
  }
}

TEST_F(GraphicCommandsTest, ListOfErrorsIsTheSameOnAllDevices) {
  files.content["TWICE.DAT"] = lines({"t", "u", " 4", "1 2 .5", "2 3 .5", "2 1 .5", "4 1 .5"});
  const std::string text = lines({"\\TIPO_LINEA(70000,1)", "\\CURVA(TWICE.DAT)", "\\LINEA(0,0,1.7E308,0)",
                                  "\\TIPO_LINEA(1,2)", "\\LINEA(1,1,1,1)", "\\AREA(0,0,1,1.7E308)"});
  std::vector<std::string> errors;
  for (const char* device : {"Form", "Printer"}) {
    output.requests.clear();
    run(text, device);
    ASSERT_EQ(output.requests.size(), 1U) << device;
    errors.emplace_back(output.requests.back().text.bytes());
  }
  EXPECT_EQ(errors[0], lines({"*** Parametri di TIPO_LINEA Errati", "*** Parametri di CURVA Errati",
                              "*** Parametri di LINEA Errati", "*** Parametri di LINEA Errati",
                              "*** Parametri di AREA Errati"}));
  EXPECT_EQ(errors[1], errors[0]);
}

}  // namespace
}  // namespace vk
