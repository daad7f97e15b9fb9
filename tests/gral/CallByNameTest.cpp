#include "gral/CallByName.h"

#include "GralFixture.h"
#include "base/RuntimeError.h"

namespace vk {
namespace {

/// The arguments that each method is called with, and what it then draws or gives.
class Names : public GralFixture {
 protected:
  GralValue call(std::string_view method, std::vector<GralValue> arguments = {}) {
    return callByName(drawing, method, arguments);
  }
  double number(std::string_view method, double argument) {
    return std::get<double>(call(method, {argument}));
  }
  int failure(std::string_view method, std::vector<GralValue> arguments) {
    try {
      call(method, std::move(arguments));
      return 0;
    } catch (const RuntimeError& error) {
      return error.number();
    }
  }
};

TEST_F(Names, ReachEveryPublicMethod) {
  const std::vector<std::string_view> expected{
      "GralGrStr",  "GralGrEnd",          "GralCls",     "GralRefresh",   "GralHide",      "GralShow",
      "GralXMap",   "GralYMap",           "xLog2Scr",    "xScr2Log",      "xUsr2Log",      "xLog2Usr",
      "xUsr2Scr",   "xScr2Usr",           "yLog2Scr",    "yScr2Log",      "yUsr2Log",      "yLog2Usr",
      "yUsr2Scr",   "yScr2Usr",           "xUsr2Pixel",  "yUsr2Pixel",    "xScr2Pixel",    "yScr2Pixel",
      "xPixel2Usr", "yPixel2Usr",         "GralColor",   "GralFillColor", "GralFillStyle", "GralPen",
      "GralLine",   "GralLineScr",        "GralTraLine", "GralBox",       "GralClip",      "GralMakeMark",
      "GralMark",   "GralOaxis",          "GralVaxis",   "Makescale",     "basnum2str",    "Shift",
      "GralWPrint", "GralWinPrintString", "MakLenLett",  "GralDraw",      "GralCurve",     "PlotData",
      "GralFill",   "GralPrintScreen",    "GralContour", "Surf3D",        "GralLego3d",    "GralFrame3d",
      "Frame3D"};
  const std::vector<std::string_view> names = methodNames();
  for (const std::string_view name : expected) {
    EXPECT_NE(std::find(names.begin(), names.end(), name), names.end()) << name;
  }
}

TEST_F(Names, OpenAndEndADrawing) {
  call("GralGrStr", {static_cast<Device*>(&form), std::string("portrait"), 2.0});
  EXPECT_EQ(drawing.XrLog, 8);
  call("GralGrStr", {static_cast<Device*>(&printer), std::string("LANDSCAPE"), 1.0});
  call("GralGrEnd");
  EXPECT_EQ(printer.documents(), 1);
}

TEST_F(Names, ReachTheFormsOperations) {
  call("GralCls");
  call("GralRefresh");
  EXPECT_EQ(form.lines(), (std::vector<std::string>{"clear 9075,4530 tw FFFFFF", "refresh"}));
  call("GralHide");
  EXPECT_FALSE(form.Visible());
  call("GralShow");
  EXPECT_TRUE(form.Visible());
}

TEST_F(Names, ReachMappingsAndConversions) {
  call("GralXMap", {0.0, 16.0, 0.0, 32.0});
  call("GralYMap", {0.0, 8.0, 0.0, 4.0});
  EXPECT_EQ(number("xUsr2Log", 32), 16);
  EXPECT_EQ(number("xLog2Usr", 16), 32);
  EXPECT_EQ(number("xLog2Scr", 16), 9075);
  EXPECT_EQ(number("xScr2Log", 9075), 16);
  EXPECT_EQ(number("xUsr2Scr", 32), 9075);
  EXPECT_EQ(number("xScr2Usr", 9075), 32);
  EXPECT_EQ(number("yUsr2Log", 4), 8);
  EXPECT_EQ(number("yLog2Usr", 8), 4);
  EXPECT_EQ(number("yLog2Scr", 0), 4530);
  EXPECT_EQ(number("yScr2Log", 4530), 0);
  EXPECT_EQ(number("yUsr2Scr", 0), 4530);
  EXPECT_EQ(number("yScr2Usr", 4530), 0);
  EXPECT_EQ(number("xUsr2Pixel", 32), 605);
  EXPECT_EQ(number("yUsr2Pixel", 0), 302);
  EXPECT_EQ(number("xScr2Pixel", 9075), 605);
  EXPECT_EQ(number("yScr2Pixel", 4530), 302);
  EXPECT_EQ(number("xPixel2Usr", 605), 32);
  EXPECT_EQ(number("yPixel2Usr", 302), 0);
}

TEST_F(Names, ReachPensAndLines) {
  call("GralColor", {255.0});
  call("GralFillColor", {254.0});
  call("GralFillStyle", {9.0});
  EXPECT_EQ(form.ForeColor(), Colour::fromBgr(255));
  EXPECT_EQ(form.FillColor(), Colour::fromBgr(254));
  EXPECT_EQ(form.FillStyle(), 1);
  call("GralPen", {4.0, 2.0});
  EXPECT_EQ(drawing.kGralPen, 1);
  call("GralLine", {0.0, 8.0, 16.0, 0.0});
  call("GralLineScr", {1.0, 2.0, 3.0, 4.0});
  std::string text = pattern({0, 75, 45});
  call("GralTraLine", {0.0, 4.0, 0.1, 4.0, &text});
  EXPECT_EQ(text[0], '\0');
  EXPECT_NE(text, pattern({0, 75, 45}));
  call("GralBox", {0.0, 8.0, 16.0, 0.0, 0.0});
  call("GralClip", {0.0, 8.0, 16.0, 0.0});
  EXPECT_EQ(drawn(), (std::vector<std::string>{"line 0,0 9075,4530 tw", "line 1,2 3,4 tw",
                                               "filledbox 0,0 9075,4530 tw FFFFFF", "box 0,0 9075,4530 tw",
                                               "clip 0,0 605,302 px"}));
}

TEST_F(Names, ReachMarksAxesAndTexts) {
  call("GralMakeMark", {2.0, 3.0});
  EXPECT_EQ(drawing.GralMarkTyp, 3);
  call("GralMark", {8.0, 4.0});
  EXPECT_EQ(drawn().size(), 1U);
  call("GralOaxis", {0.0, 4.0, 4.0, 1.0, 3.0, 0.0, 1.0, std::string("x")});
  EXPECT_EQ(drawn().size(), 3U + 3 + 1);
  call("GralVaxis", {0.0, 4.0, 4.0, 1.0, 3.0, 0.0, -1.0, std::string("x")});
  EXPECT_EQ(drawn().size(), 3U + 3 + 1);
  call("GralWPrint", {8.0, 4.0, 0.0, 0.0, 10.0, std::string("ab")});
  call("GralWinPrintString", {8.0, 4.0, 0.0, 0.0, 10.0, 0.0, std::string("ab")});
  EXPECT_EQ(letters().size(), 4U);
  call("MakLenLett");
  EXPECT_EQ(drawing.LetterWidth('a', 1), 120);
}

TEST_F(Names, ReachLabelHelpers) {
  Array<std::string> labels;
  double longest = 0;
  call("Makescale", {0.0, 1.0, &labels, 4.0, 0.0, &longest, 0.0});
  EXPECT_EQ(labels[1], "0.25");
  EXPECT_EQ(longest, 4);
  double x = 0.12345;
  std::string text;
  call("basnum2str", {&x, &text});
  EXPECT_EQ(text, ".1235");
  EXPECT_EQ(x, 0.1235);
  EXPECT_EQ(std::get<double>(call("Shift", {1.0, 1.0})), 2);
}

TEST_F(Names, ReachCurvesAndData) {
  Array<double> x(2), y(2), none(2);
  x[2] = 8;
  y[1] = y[2] = 4;
  const Array<double>*px = &x, *py = &y, *errors = &none;
  call("GralDraw", {px, py, 2.0});
  call("GralCurve", {px, py, 2.0});
  call("PlotData", {px, errors, py, errors, 2.0, 0.0, 0.0, 0.0});
  std::string kinds;
  for (const std::string& line : drawn()) kinds += line[0];
  EXPECT_EQ(kinds, "prbrcc");
}

TEST_F(Names, ReachTheFillingAndThePrintOfTheScreen) {
  call("GralFill", {8.0, 4.0, 255.0});
  EXPECT_EQ(drawn(), std::vector<std::string>{"floodfill 302,151 px to FF0000"});
  EXPECT_EQ(failure("GralPrintScreen", {}), 5);  // this form has no image
}

TEST_F(Names, ReachTheContours) {
  Array2<float> z(2, 2);
  z(2, 1) = z(2, 2) = 1;
  Array<float> levels(1);
  levels[1] = 0.5F;
  Array<Colour> colors(1);
  const Array2<float>* values = &z;
  const Array<float>* level = &levels;
  const Array<Colour>* color = &colors;
  call("GralContour", {0.0, 16.0, 0.0, 8.0, values, 2.0, 2.0, level, color, 1.0});
  EXPECT_EQ(drawn().size(), 2U);
  EXPECT_EQ(failure("GralContour", {0.0, 16.0, 0.0, 8.0, values, 2.0, 2.0, color, level, 1.0}), 13);
  EXPECT_EQ(failure("GralContour", {0.0, 16.0, 0.0, 8.0, values, 40000.0, 2.0, level, color, 1.0}), 6);
}

TEST_F(Names, ReachSurfacesAndFrames) {
  Array2<float> z(2, 2), colors(2, 3);
  Array<float> triple(3), levels(1), ticks(1);
  Array<std::string> x(1), y(1), up(1);
  const Array2<float>*values = &z, *hsb = &colors;
  const Array<float>*surface = &triple, *level = &levels, *tick = &ticks;
  const auto withBox = [](std::vector<GralValue> rest) {
    std::vector<GralValue> arguments{8.0, 4.0, 30.0, 45.0, 4.0, 3.0, 2.0};
    arguments.insert(arguments.end(), rest.begin(), rest.end());
    return arguments;
  };
  call("Surf3D", withBox({values, 2.0, 2.0, 1.0, 1.0, surface, level, 1.0, hsb, 2.0}));
  EXPECT_EQ(drawn().size(), 2U + 1 + 1);
  call("GralLego3d", withBox({values, 1.0, 1.0, 1.0, 1.0}));
  EXPECT_EQ(drawn().size(), 3U);
  const std::vector<GralValue> axes{tick, tick, tick, 1.0, 1.0, 1.0, &x, &y, &up, 1.0, 1.0, 1.0, 0.0};
  call("GralFrame3d", withBox(axes));
  EXPECT_EQ(drawn().size(), 9U);
  std::vector<GralValue> walled = axes;
  walled.insert(walled.end(), {1.0, 1.0, surface});
  call("Frame3D", withBox(walled));
  EXPECT_EQ(drawn().size(), 3U + 9);
}

TEST_F(Names, AreTakenInAnyCase) {
  call("GRALMAKEMARK", {2.0, 7.0});
  call("gralmakemark", {2.0, 7.0});
  EXPECT_EQ(drawing.GralMarkTyp, 7);
}

TEST_F(Names, IntegersAreRoundedTiesToEven) {
  call("GralWPrint", {8.0, 4.0, 0.0, 2.5, 10.0, std::string("a")});
  EXPECT_EQ(letters()[0].angle, 2);
}

TEST_F(Names, FailuresAreTold) {
  EXPECT_EQ(failure("GralNothing", {}), 5);
  EXPECT_EQ(failure("GralMark", {1.0}), 5);
  EXPECT_EQ(failure("GralMark", {1.0, std::string("1")}), 13);
  EXPECT_EQ(failure("GralXMap", {0.0, 0.0, 0.0, 0.0}), 11);
  EXPECT_EQ(failure("GralMakeMark", {1.0, 40000.0}), 6);
}

TEST_F(Names, ReachEveryPublicField) {
  const std::vector<std::string_view> expected{
      "GralDev", "GralCaption", "GralMarkDim", "GralMarkTyp", "XlLog",   "XrLog",     "xScaleL2S",
      "YtLog",   "YbLog",       "yScaleL2S",   "XlUsr",       "XrUsr",   "xScaleU2L", "YtUsr",
      "YbUsr",   "yScaleU2L",   "GralUseTra",  "GralPenTra",  "kGralPen"};
  EXPECT_EQ(fieldNames(), expected);
  for (const std::string_view name : expected) {
    const GralValue value = readField(drawing, name);
    writeField(drawing, name, value);
    EXPECT_EQ(readField(drawing, name), value) << name;
  }
}

TEST_F(Names, FieldsAreReadAndWritten) {
  writeField(drawing, "GralCaption", std::string("Titolo"));
  EXPECT_EQ(drawing.GralCaption, "Titolo");
  writeField(drawing, "GralMarkDim", 0.1);
  EXPECT_EQ(std::get<double>(readField(drawing, "gralmarkdim")), static_cast<double>(0.1F));
  writeField(drawing, "GralUseTra", 0.0);
  EXPECT_FALSE(drawing.GralUseTra);
  EXPECT_EQ(std::get<Device*>(readField(drawing, "GralDev")), &form);
  writeField(drawing, "kGralPen", 3.0);
  EXPECT_EQ(drawing.kGralPen, 3);
  EXPECT_THROW(writeField(drawing, "kGralPen", std::string("3")), RuntimeError);
  EXPECT_THROW(readField(drawing, "GralNothing"), RuntimeError);
  EXPECT_THROW(writeField(drawing, "GralMarkTyp", 1E6), RuntimeError);
  EXPECT_THROW(writeField(drawing, "XlLog", 1E60), RuntimeError);
}

}  // namespace
}  // namespace vk
