// SPDX-License-Identifier: MIT
// Every window on a screen of 1024 x 600, which the test must be given.
#include <QApplication>
#include <QScreen>

#include "qt/window/desktop/help_window.h"
#include "window_rig.h"

namespace requite::test {

class SmallScreenTest : public QObject, private WindowRig {
  Q_OBJECT

 private slots:
  void everyWindowFits() {
    QCOMPARE(QGuiApplication::primaryScreen()->size(), QSize(1024, 600));
    Start([this](Form1& form) {
      WriteFile(folder_->File("spider.mdb"), ReadFile(REQUITE_INSTALLED "/spider.mdb"));
      form.txtDomain.UserSets("main.example");
      form.cmdAdd2.Click();
      form.Text1.UserSets("partner.example");
      form.cmdAdd.Click();
      form.Sites.List1(1).SelectOnly(0);
    });
    for (int tab = 1; tab <= 5; ++tab) {
      form_->TabStrip1.Select(tab);
      QTest::qWait(50);
      CheckFit(*window_);
    }
    form_->cmdEdit.Click();
    form_->cmdEditMain.Click();
    for (const char* name : {"frmAbout", "frmWebsite", "Form5", "Form2", "Form2a", "Form2b", "Form4",
                             "Form4a", "frmOptions", "frmChanges", "Form3", "frmExport"}) {
      form_->Windows.Show(name);
      CheckFit(*TopLevel(name));
      form_->Windows.Close(name);
    }
    QVERIFY(ShowHelpPages(REQUITE_INSTALLED "/Help.chm"));
    CheckFit(*TopLevel("helpPages"));
    TopLevel("helpPages")->close();
    End();
  }

 private:
  static QWidget* TopLevel(const char* name) {
    for (QWidget* each : QApplication::topLevelWidgets()) {
      if (each->objectName() == name && each->isVisible()) return each;
    }
    qFatal("no window %s", name);
  }

  /// With the room that a window manager's title takes.
  static void CheckFit(const QWidget& window) {
    QTest::qWait(50);
    const QSize size = window.size().expandedTo(window.minimumSizeHint());
    QVERIFY2(size.width() <= 1024 && size.height() <= 600 - 28 && window.y() >= 0 &&
                 window.geometry().bottom() < 600,
             qPrintable(QString("%1: %2 x %3 at %4")
                            .arg(window.objectName())
                            .arg(size.width())
                            .arg(size.height())
                            .arg(window.y())));
  }
};

}  // namespace requite::test

QTEST_MAIN(requite::test::SmallScreenTest)
#include "small_screen_test.moc"
