#include "ui_qt/Desktop.h"

#include <QDropEvent>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>

namespace vk {

void Desktop::start() {
  user.press("FrmMsg", "CmdMsg(0)");
  application.StartUp();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
}

bool Desktop::drop(const QList<QUrl>& urls) {
  QMimeData data;
  data.setUrls(urls);
  const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
  QDragEnterEvent enter(QPoint(40, 80), actions, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&window(), &enter);
  QDropEvent release(QPointF(40, 80), actions, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&window(), &release);
  EXPECT_EQ(enter.isAccepted(), release.isAccepted());
  EXPECT_EQ(release.dropAction(), Qt::CopyAction) << "a move would delete the file";
  return release.isAccepted();
}

bool Desktop::drop(const std::vector<std::string>& names) {
  QList<QUrl> urls;
  for (const std::string& name : names) urls << QUrl::fromLocalFile(QString::fromStdString(name));
  return drop(urls);
}

void Desktop::open(const std::vector<std::string>& names) {
  EXPECT_TRUE(drop(names));
  QCoreApplication::processEvents();
  act();
}

void Desktop::enterFields(const std::vector<QString>& fields) {
  for (const QString& text : fields) {
    user.at("InpFrm", [text](QWidget* form) {
      auto* box = control<QLineEdit>(form, "txtGet");
      box->selectAll();
      typeText(box, text);
      QTest::keyClick(box, Qt::Key_Return);
    });
  }
}

void Desktop::fillForm(const std::vector<QString>& fields) {
  enterFields(fields);
  user.press("InpFrm", "cmdEse");
}

void Desktop::chooseFunction(int outer, int inner) {
  user.choose("MenFunSel");
  user.at("Sel_Fun", [outer, inner](QWidget* form) {
    for (int i = 0; i < outer; ++i) QTest::keyClick(control<QListWidget>(form, "LstOut"), Qt::Key_Down);
    for (int i = 0; i < inner; ++i) QTest::keyClick(control<QListWidget>(form, "LstInn"), Qt::Key_Down);
  });
  user.press("Sel_Fun", "CmdAcc");
}

void Desktop::answerBox() {
  user.at("PlainBox", [this](QWidget* box) {
    boxes.push_back(qobject_cast<QMessageBox*>(box)->text());
    QTest::keyClick(box, Qt::Key_Return);
  });
}

bool Desktop::menuOn(const QString& name) {
  if (auto* menu = window().findChild<QMenu*>(name)) return menu->menuAction()->isEnabled();
  return control<QAction>(&window(), name)->isEnabled();
}

std::string lineData() {
  return "x\r\ny\r\n9\r\n0 1.02 .1\r\n1 2.95 .1\r\n2 5.05 .1\r\n3 7.01 .1\r\n4 8.93 .1\r\n5 11.08 .1\r\n"
         "6 12.97 .1\r\n7 15.03 .1\r\n8 17.01 .1\r\n";
}

}  // namespace vk
