// SPDX-License-Identifier: MIT
// The real main window, offscreen, over fake services: widgets are found by their controls' names.
#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>
#include <QTableView>

#include "shell/qt/window/main_window.h"
#include "support/fakes.h"

namespace requite::test {

class MainWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    folder_ = std::make_unique<TemporaryFolder>();
    WriteFile(folder_->File("filetypes.txt"), ".htm\r\n");
    services_ = std::make_unique<FakeServices>();
    form_ = std::make_unique<Form1>(services_->All, folder_->Folder);
    form_->Start();
    window_ = std::make_unique<MainWindow>(*form_, guard_);
    window_->show();
  }
  void cleanup() {
    window_.reset();
    form_.reset();
    services_.reset();
    folder_.reset();
  }

  void aScanFromTypingToTheVerdict() {
    AddSites();
    Click("Command1");
    QTRY_VERIFY(Widget<QAbstractButton>("cmdStop")->isEnabled());
    QVERIFY(!Widget<QLineEdit>("txtDomain")->isEnabled());
    services_->Connection.Serve("HTTP/1.1 200 OK\r\n\r\n<a href=\"http://main.example/\">x</a>");
    const auto* const results = Widget<QTableView>("List3");
    QTRY_COMPARE(results->model()->rowCount(), 1);
    QCOMPARE(results->model()->index(0, 2).data().toString(), QString("Direct Link"));
    QTRY_COMPARE(Widget<QLabel>("lblStats(2)")->text(), QString("1"));
    QTRY_VERIFY(Widget<QAbstractButton>("Command1")->isEnabled());
  }

  void deletingAMainSiteEmptiesTheListsOnShow() {
    AddSites();
    QTRY_COMPARE(Widget<QTableView>("List1")->model()->rowCount(), 1);
    Click("cmdDelete");
    QTRY_COMPARE(Widget<QTableView>("List4")->model()->rowCount(), 0);
    QTRY_COMPARE(Widget<QTableView>("List1")->model()->rowCount(), 0);
    QTRY_VERIFY(!Widget<QLineEdit>("Text1")->isVisible());
  }

  void tabsShowTheirPagesAndTheCloseAsks() {
    auto* const tabs = Widget<QTabBar>("TabStrip1");
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(3).center());
    QTRY_VERIFY(Widget<QAbstractButton>("Command8")->isVisible());
    QVERIFY(!Widget<QTableView>("List3")->isVisible());
    QTest::keyClicks(Widget<QLineEdit>("txtDomain"), "x");
    services_->Dialogs.Answers = {Answer::No};
    window_->close();
    QCOMPARE(services_->Dialogs.Boxes.size(), std::size_t{1});
    QCOMPARE(services_->Dialogs.Boxes[0].Title, std::string("Save Project?"));
  }

  void aHundredThousandRowsAreShownAtOnce() {
    for (int i = 0; i < 100000; ++i) {
      form_->Sites.List3.Add({"m", std::to_string(i), "Direct Link", "001", "u"});
    }
    const auto* const model = Widget<QTableView>("List3")->model();
    QTRY_COMPARE(model->rowCount(), 100000);
    QCOMPARE(model->index(99999, 1).data().toString(), QString("99999"));
    form_->Sites.List3.Clear();
    QVERIFY(!model->index(99999, 1).data().isValid());
    QTRY_COMPARE(model->rowCount(), 0);
  }

 private:
  template <class Kind>
  Kind* Widget(const char* name) {
    auto* const found = window_->findChild<Kind*>(name);
    if (found == nullptr) qFatal("no widget %s", name);
    return found;
  }

  void Click(const char* name) {
    auto* const button = Widget<QAbstractButton>(name);
    QTRY_VERIFY(button->isVisible() && button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
  }

  void AddSites() {
    QTest::keyClicks(Widget<QLineEdit>("txtDomain"), "main.example");
    QTest::keyClick(Widget<QLineEdit>("txtDomain"), Qt::Key_Return);
    auto* const linking = Widget<QLineEdit>("Text1");
    QTRY_VERIFY(linking->isVisible());
    QTest::keyClicks(linking, "partner.example");
    Click("cmdAdd");
  }

  const EventGuard guard_{[](const RuntimeFailure& failure) { qFatal("%s", failure.what()); }};
  std::unique_ptr<TemporaryFolder> folder_;
  std::unique_ptr<FakeServices> services_;
  std::unique_ptr<Form1> form_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace requite::test

QTEST_MAIN(requite::test::MainWindowTest)
#include "main_window_test.moc"
