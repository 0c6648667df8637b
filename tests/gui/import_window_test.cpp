// SPDX-License-Identifier: MIT
// The import windows on screen, offscreen, by mouse and keyboard, over fake services.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>

#include "window_rig.h"

namespace requite::test {

class ImportWindowTest : public QObject, private WindowRig {
  Q_OBJECT

 private slots:
  void init() {
    Start([](Form1& form) {
      form.txtDomain.UserSets("main.example");
      form.cmdAdd2.Click();
    });
  }
  void cleanup() { End(); }

  void linksAreFoundSelectedAndAdded() {
    std::string page(300, ' ');
    for (int i = 0; i < 1000; ++i) page += "<a href=\"http://site" + std::to_string(i) + ".example\">";
    services_->Internet.Bodies["http://me.example/links"] = page;
    QWidget* const import = Open("cmdImport", "Form4");
    auto* const url = Part<QLineEdit>(import, "Text1");
    url->selectAll();
    QTest::keyClicks(url, "me.example/links");
    auto* const rows = Part<QAbstractItemView>(import, "ListView1");
    int yields = 0;
    int drawn = 0;
    services_->EventLoop.OnEveryYield = [&] {
      if (++yields % 200 != 0) return;
      QTest::qWait(80);
      const bool adds = Part<QLabel>(import, "StatusBar1(1)")->text().startsWith("Added");
      if (adds) drawn = std::max(drawn, rows->model()->rowCount());
    };
    QTest::mouseClick(Part<QAbstractButton>(import, "Command1"), Qt::LeftButton);
    services_->EventLoop.OnEveryYield = nullptr;
    QCOMPARE(drawn, 0);
    QTRY_COMPARE(rows->model()->rowCount(), 1001);
    QTRY_COMPARE(Part<QLabel>(import, "StatusBar1(1)")->text(),
                 QString("Finished Downloading - 1001 links found."));

    auto* const add = Part<QAbstractButton>(import, "cmdAdd");
    const auto press = [&](int row, Qt::KeyboardModifiers keys) {
      QTest::mouseClick(rows->viewport(), Qt::LeftButton, keys,
                        rows->visualRect(rows->model()->index(row, 0)).center());
    };
    press(0, Qt::NoModifier);
    press(2, Qt::ControlModifier);
    press(4, Qt::ControlModifier | Qt::ShiftModifier);
    add->click();
    const LinkingSiteList& sites = form_->Sites.List1(1);
    QCOMPARE(sites.RowCount(), std::size_t{4});
    QCOMPARE(sites.At(1).WebsiteUrl, std::string("site2.example/"));

    press(1, Qt::NoModifier);
    QTest::mouseClick(rows->viewport(), Qt::RightButton, Qt::NoModifier, {5, 5});
    QTRY_COMPARE(rows->selectionModel()->selectedRows().size(), 1001);
    add->click();
    QCOMPARE(sites.RowCount(), std::size_t{1004});

    press(3, Qt::NoModifier);
    QTest::keyClick(rows, Qt::Key_A, Qt::ControlModifier);
    add->click();
    QCOMPARE(sites.RowCount(), std::size_t{2004});

    QTest::mouseClick(Part<QAbstractButton>(import, "Command1"), Qt::LeftButton);
    QTRY_COMPARE(rows->selectionModel()->selectedRows().size(), 0);
  }

  void tabsChangeByKeyboardAndEscapeCloses() {
    QWidget* const import = Open("cmdImport2", "Form4a");
    QCOMPARE(import->windowTitle(), QString("Import Main Sites"));
    QVERIFY(Part<QWidget>(import, "Frame1")->isVisible());
    QVERIFY(!Part<QWidget>(import, "framePost")->isVisible());
    QTest::keyClick(Part<QTabBar>(import, "TabStrip1"), Qt::Key_Right);
    QTRY_VERIFY(Part<QWidget>(import, "framePost")->isVisible());
    QVERIFY(!Part<QWidget>(import, "Frame3")->isVisible());
    QTest::keyClick(import, Qt::Key_Escape);
    QTRY_VERIFY(!form_->Windows.IsShown("Form4a"));
  }

 private:
  QWidget* Open(const char* button, const char* name) {
    Part<QAbstractButton>(window_.get(), button)->click();
    QWidget* const opened = window_->findChild<QWidget*>(name);
    if (opened == nullptr || !QTest::qWaitForWindowActive(opened)) qFatal("%s did not open", name);
    return opened;
  }
};

}  // namespace requite::test

QTEST_MAIN(requite::test::ImportWindowTest)
#include "import_window_test.moc"
