#include "grafile/GridFigure.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

Grid smallGrid() {
  return parseGrid(
             "T (\xC2\xB0"
             "C)\ny\nCosta (\xC2\xB5m)\n2 3\n0 7\n-1 0 1\n1 2\n3 4\n5 6\n")
      .grid;
}

TEST(GridFigure, ContoursHaveRoundScalesLegendsAndAKey) {
  EXPECT_EQ(gridFigureText(smallGrid(), "a.grd", {}),
            "%File Grafico Griglia\r\n"
            "%File Griglia: a.grd\r\n"
            "\\XSCALA(5, 22, 0, 7)\r\n"
            "\\YSCALA(4, 18, -1, 1)\r\n"
            "\\TITOLO(Costa (\\\\mm))\r\n"
            "\\XLEGENDA(T (^oC))\r\n"
            "\\YLEGENDA(y)\r\n"
            "\\RIQUADRO(7, 4, 1)\r\n"
            "%Linee di Livello, a Colori e con la Loro Chiave\r\n"
            "\\TIPO_LINEA(3, 1)\r\n"
            "\\CONTORNI(10, 2, 1, a.grd)\r\n");
}

TEST(GridFigure, SurfaceAndColumnsHaveABoxOfTheSameView) {
  EXPECT_EQ(gridFigureText(smallGrid(), "a.grd", {.kind = GridFigureKind::kSurface, .levels = 5}),
            "%File Grafico Griglia\r\n"
            "%File Griglia: a.grd\r\n"
            "\\XSCALA(5, 24, 0, 1)\r\n"
            "\\YSCALA(4, 18, 0, 1)\r\n"
            "\\RIQUADRO3D(110, 125, 0.5, 0, 0, 1, 0, a.grd)\r\n"
            "\\SUPERFICIE(110, 125, 0.5, 0, 0, 3, 5, a.grd)\r\n");
  EXPECT_EQ(
      gridFigureText(smallGrid(), "a.grd", {.kind = GridFigureKind::kColumns, .theta = 117.5, .phi = 145}),
      "%File Grafico Griglia\r\n"
      "%File Griglia: a.grd\r\n"
      "\\XSCALA(5, 24, 0, 1)\r\n"
      "\\YSCALA(4, 18, 0, 1)\r\n"
      "\\RIQUADRO3D(117.5, 145, 0.5, 0, 0, 1, 1, a.grd)\r\n"
      "\\COLONNE(117.5, 145, 0.5, 0, 0, 1, a.grd)\r\n");
}

}  // namespace
}  // namespace vk
