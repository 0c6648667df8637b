// SPDX-License-Identifier: MIT
// A user's whole visit on a real display: type sites, scan the sample sites, read the report, delete a
// Main Site, save at the close, and find it all again.
#include <QAbstractItemView>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTabBar>

#include "desk_rig.h"

namespace requite::test {

class EndToEndTest : public QObject {
  Q_OBJECT

 private slots:
  void aWholeVisit() {
    const QTemporaryDir place;
    const ProgramFolder folder{place.path().toStdString()};
    FillProgramFolder(REQUITE_INSTALLED, folder.Path);
    const SampleServer server;
    {
      DeskProgram program(folder, server.Map);
      QVERIFY(QTest::qWaitForWindowActive(&program.Window));
      for (const auto step : {EnterSites, ScanToTheVerdict, ReadTheReport, DeleteTheFirstMainSite}) {
        step(program);
        if (QTest::currentTestFailed()) return;
      }
      CloseAndSave(program, place.filePath("visit.prj"));
      if (QTest::currentTestFailed()) return;
    }
    DeskProgram again(folder, server.Map);
    const auto* const sites = again.Widget<QAbstractItemView>("List4");
    QTRY_COMPARE(sites->model()->rowCount(), 1);
    QCOMPARE(sites->model()->index(0, 0).data().toString(), QString("shop.harbour-books.example"));
    QTRY_COMPARE(again.Widget<QAbstractItemView>("List3")->model()->rowCount(), 2);
    // Nothing was edited since the load: the close asks nothing, else this would wait for an answer.
    again.Window.close();
    QVERIFY(again.Ended);
  }

 private:
  static void EnterSite(DeskProgram& program, const char* box, const QString& site) {
    auto* const edit = program.Widget<QLineEdit>(box);
    QTRY_VERIFY(edit->isVisible() && edit->isEnabled());
    edit->setFocus();
    QTest::keyClicks(QApplication::focusWidget(), site);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  }

  static void EnterSites(DeskProgram& program) {
    const auto* const mainSites = program.Widget<QAbstractItemView>("List4")->model();
    for (const auto& [mainSite, linkingSite] :
         {std::pair{"harbour-books.example", "lighthouse-cafe.example"},
          std::pair{"shop.harbour-books.example", "pebble-beach-hotel.example"}}) {
      EnterSite(program, "txtDomain", mainSite);
      QTRY_COMPARE(mainSites->index(mainSites->rowCount() - 1, 0).data().toString(), QString(mainSite));
      EnterSite(program, "Text1", linkingSite);
      QTRY_COMPARE(program.Widget<QAbstractItemView>("List1")->model()->rowCount(), 1);
    }
  }

  static void ScanToTheVerdict(DeskProgram& program) {
    QTest::keyClick(&program.Window, Qt::Key_F5);
    const auto* const start = program.Widget<QAbstractButton>("Command1");
    const auto* const results = program.Widget<QAbstractItemView>("List3")->model();
    QTRY_VERIFY_WITH_TIMEOUT(start->isEnabled() && results->rowCount() == 2, 20000);
    QCOMPARE(results->index(0, 2).data().toString(), QString("Direct Link"));
    QCOMPARE(results->index(0, 4).data().toString(), QString("lighthouse-cafe.example/links/friends.html"));
    QCOMPARE(results->index(1, 2).data().toString(), QString("Domain Link"));
  }

  static void ReadTheReport(DeskProgram& program) {
    auto* const tabs = program.Widget<QTabBar>("TabStrip1");
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(3).center());
    const BrowserView& browser = program.Form.WebBrowser2;
    QTRY_VERIFY_WITH_TIMEOUT(browser.LocationUrl().ends_with("tempreport.html"), 20000);
    QVERIFY(program.Widget<QAbstractButton>("Command8")->isVisible());
    QVERIFY(!program.Widget<QAbstractItemView>("List3")->isVisible());
    const std::string report = ReadFile(program.Form.Folder.File("tempreport.html"));
    QVERIFY(report.find("lighthouse-cafe.example/links/friends.html") != std::string::npos);
  }

  static void DeleteTheFirstMainSite(DeskProgram& program) {
    auto* const sites = program.Widget<QAbstractItemView>("List4");
    QTest::mouseClick(sites->viewport(), Qt::LeftButton, {},
                      sites->visualRect(sites->model()->index(0, 0)).center());
    program.Click("cmdDelete");
    QTRY_COMPARE(sites->model()->rowCount(), 1);
    const auto* const linking = program.Widget<QAbstractItemView>("List1")->model();
    QTRY_COMPARE(linking->index(0, 0).data().toString(), QString("pebble-beach-hotel.example"));
    QCOMPARE(program.Widget<QAbstractItemView>("List3")->model()->rowCount(), 2);
  }

  static void CloseAndSave(DeskProgram& program, const QString& path) {
    ModalAnswers answers({[](QWidget& modal) {
                            auto* const box = qobject_cast<QMessageBox*>(&modal);
                            if (box == nullptr || box->windowTitle() != "Save Project?") return false;
                            QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
                            return true;
                          },
                          [&](QWidget& modal) {
                            auto* const dialog = qobject_cast<QFileDialog*>(&modal);
                            if (dialog == nullptr) return false;
                            auto* const name = dialog->findChild<QLineEdit*>("fileNameEdit");
                            name->setText(path);  // typed, the dialog's own list of names would open
                            QTest::keyClick(name, Qt::Key_Return);
                            return true;
                          }});
    program.Window.close();
    QCOMPARE(answers.Given, std::size_t{2});
    QVERIFY(program.Ended);
    QVERIFY(ReadFile(path.toStdString()).starts_with("shop.harbour-books.example\r\n"));
  }
};

}  // namespace requite::test

QTEST_MAIN(requite::test::EndToEndTest)
#include "end_to_end_test.moc"
