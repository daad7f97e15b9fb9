#include "grafile/FigureDescription.h"

namespace vk {
namespace {

TEST(FigureDescription, TellsAxesWithLabelsDataAndFunctions) {
  const FigureWords words = describeFigure(
      "%note\r\n\\PARAMETRI(Xi=0, Xf=.25)\r\n\\XASSE(Xi, Xf, 0, 5, 3, 1,I (A))\r\n\\XASSE(Xi, Xf, 12, 5, -3, "
      "0)\r\n"
      "\\YLOG(1)\r\n\\YASSE(-2, 3, &\r\nXi, 6, 3, 1,\\\\m/\\\\r "
      "(cm^2/g))\r\n\\FUNZIONE(b*x+c)\r\n\\Dati(some/where/ohm.dat)\r\n"
      "\\SPEZZATA(a.dat)\r\n\\BANDA(x/2;x)\r\n\\CHIAVE(1,2,first)\r\n",
      "figure.gra");
  EXPECT_EQ(words.title, "figure.gra");
  EXPECT_EQ(words.description,
            "Asse x: I (A), da 0 a .25. Asse y: \xCE\xBC/\xCF\x81 (cm2/g), da 10^-2 a 10^3. Funzione: b*x+c. "
            "Dati: ohm.dat. Spezzata: a.dat. Banda: x/2;x. Chiave: first.");
}

TEST(FigureDescription, TakesTheTitleOfTheFigure) {
  EXPECT_EQ(describeFigure("\\TITOLO(Decadimento di ^{137}Cs)\r\n", "a.gra").title, "Decadimento di 137Cs");
}

TEST(FigureDescription, ReadsNamesOfFilesInUtf8OrAsDosText) {
  for (const char* name : {"caff\xC3\xA8.dat", "caff\x8A.dat"})
    EXPECT_EQ(describeFigure("\\DATI(" + std::string(name) + ")\r\n", "t").description,
              "Dati: caff\xC3\xA8.dat.");
}

TEST(FigureDescription, NamesFilesWithoutTheirFolders) {
  EXPECT_EQ(
      describeFigure("\\DATI(d/a.dat)\r\n\\SPEZZATA(d/b.dat)\r\n\\CURVA(d/c.dat)\r\n"
                     "\\CONTORNI(8,2,1,d/g.grd)\r\n\\SUPERFICIE(110,125,0.5,0,0,4,8,d/h.grd)\r\n"
                     "\\COLONNE(110,125,0.5,0,0,1,d/k.grd)\r\n",
                     "t")
          .description,
      "Dati: a.dat. Spezzata: b.dat. Curva: c.dat. Contorni: g.grd. Superficie: h.grd. Colonne: k.grd.");
}

TEST(FigureDescription, PassesOverWhatCannotBeDrawn) {
  const FigureWords words = describeFigure(
      "\\CERCHIO(1)\r\n\\XASSE(a, 70000, 0, 5, 3, "
      "70000,x)\r\nDati(a)\r\n\\Dati(b.dat\r\n\\XASSE(0,1,0,1,1,1)\r\n\\LINEA(0,&",
      "t");
  EXPECT_EQ(words.description, "Asse x: da 0 a 1.");
}

}  // namespace
}  // namespace vk
