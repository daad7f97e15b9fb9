/// Form FrmImp: the window in which a table of another program becomes a data file.
#pragma once

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <array>

#include "platform/FontSpec.h"
#include "platform/ImportForm.h"
#include "ui/TableImport.h"
#include "ui/qt/forms/ModalLoop.h"
#include "ui/qt/forms/Windows.h"

namespace vk {

/// The window `FrmImp`: the first lines of the file in columns, what was found out about them as fields that can be
/// changed, and the points that follow, which change with them. Modal; Esc is "&Rinuncia".
class FrmImp : public QWidget, public ImportForm {
 public:
  FrmImp(const Windows& windows, const FontSpec& font);

  void show(const std::string& name, std::string bytes,
            const std::function<bool(const std::string& text)>& save) override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildTable();
  QWidget* buildFields();
  QComboBox* makeList(TableImport::Field field);
  QSpinBox* makeCount(const char* name, const QString& meaning, int least);
  QWidget* buildPoints();
  QWidget* buildButtons();
  void placeForm();
  /// Runs a change of the engine and shows what follows from it.
  void change(const std::function<void()>& what);
  void sync();
  void syncFields();
  void syncTable();
  void fillLine(int row, const TableLine& line);
  void save();

  const Windows& windows_;
  TableImport engine_;
  ModalLoop loop_;
  std::function<bool(const std::string& text)> save_;
  bool syncing_ = false;

  QGroupBox* FraLin_;
  QTableWidget* TabLin_;
  std::array<QComboBox*, TableImport::kFields> LstImp_{};
  QSpinBox* TxtInt_ = nullptr;
  QLineEdit* TxtErr_ = nullptr;
  QSpinBox* TxtRid_ = nullptr;
  QPlainTextEdit* TxtPun_ = nullptr;
  QLabel* LblRis_ = nullptr;
  QPushButton* CmdSal_ = nullptr;
  QPushButton* CmdRin_ = nullptr;
};

}  // namespace vk
