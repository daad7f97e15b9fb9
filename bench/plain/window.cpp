// A process that shows a window with the menus, the title and the size of the main window.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>

namespace {

void addMenu(QMenu* menu, const QStringList& entries) {
  for (const QString& entry : entries) menu->addAction(entry);
}

void addMenus(QMenuBar* bar) {
  const QString show("&Visualizza"), save("Salva File &Grafico"), read("&Lettura File"),
      edit("&Modifica File");
  addMenu(bar->addMenu("&Dati"),
          {read, edit, "Salva con &Nome", "&Trasformazione Dati", "&Simulazione Dati", "1", "2", "3", "4"});
  addMenu(bar->addMenu("&Funzioni"), {"&Selezione Funzione", "Sostituzione &Variabili", read, edit,
                                      "&Carica Funzione", "1", "2", "3", "4"});
  QMenu* figures = bar->addMenu("&Grafici");
  for (const char* kind : {"&Dati", "Dati e &Funzione", "D&ifferenze"})
    addMenu(figures->addMenu(kind), {show, save});
  addMenu(figures, {"&Lettura File Grafico", "&Modifica File Grafico", "&Visualizza File Grafico",
                    "&Stampa File Grafico", "1", "2", "3", "4"});
  addMenu(bar->addMenu("&Adattamento"), {"&Parametri Iniziali", "&Adattamento Funzione-Dati"});
  QMenu* services = bar->addMenu("&Servizi");
  addMenu(services, {"&Calcolatrice", "&Propagazione Errori", "&Modifica Diario"});
  addMenu(services->addMenu("&Opzioni"),
          {"&Directory di Lavoro", "Impostazioni &Grafiche", "&Visualizzazione Messaggi Errori"});
}

}  // namespace

int main(int argc, char** argv) {
  QApplication toolkit(argc, argv);
  QMainWindow window;
  window.setWindowTitle("VOR_KEL");
  addMenus(window.menuBar());
  window.statusBar()->showMessage("1");
  auto* area = new QWidget(&window);
  area->setFixedSize(750, 500);
  window.setCentralWidget(area);
  window.show();
  return QApplication::exec();
}
