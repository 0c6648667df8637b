// SPDX-License-Identifier: MIT
// The commands for a first project, for the built page and for the report, offscreen, over fake services.
#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include "window_rig.h"

namespace requite::test {

class FirstStepsTest : public QObject, private WindowRig {
  Q_OBJECT

 private slots:
  void init() {
    Start([](Form1&) {});
  }
  void cleanup() { End(); }

  void anEmptyProgramOffersThreeWaysToBegin() {
    auto* const steps = Widget<QWidget>("firstSteps");
    QVERIFY(steps->isVisible() && Widget<QWidget>("firstSample")->isHidden());  // no sample in this folder
    Click("firstType");
    QCOMPARE(window_->focusWidget(), Widget<QLineEdit>("txtDomain"));
    QTimer::singleShot(0, [] {
      auto* const question = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
      QVERIFY(question != nullptr);
      question->setTextValue(" https://www.mine.example/links/page.html");
      question->accept();
    });
    Click("firstImport");
    QCOMPARE(form_->Sites.List4.At(0).Text, std::string("www.mine.example"));
    QVERIFY(form_->Windows.IsShown("Form4"));
    QCOMPARE(Part<QLineEdit>(Widget<QWidget>("Form4"), "Text1")->text(),
             QString("https://www.mine.example/links/page.html"));
    QVERIFY(!steps->isVisible());
    form_->mnuFile.Click(0);
    QTRY_VERIFY(steps->isVisible());
  }

  void theBuiltPageIsCopiedAndPreviewedAndItsSamplesAreTold() {
    form_->TabStrip1.Select(3);
    auto* const hint = Widget<QLabel>("sampleHint");
    QTRY_VERIFY(hint->isVisible());
    form_->mnuFile.Click(0);  // a new project has its own wording of one sample
    form_->Sites.txtHTML1.SetText("<p>1</p>");
    form_->Sites.txtHTML3.SetText("<p>3</p>");
    QTest::qWait(2 * ViewRefresh::kIntervalMilliseconds);
    QVERIFY(hint->isVisible());
    form_->Sites.txtHTML2.SetText("<p>2</p>");
    QTRY_VERIFY(!hint->isVisible());
    Click("copyPage");
    QCOMPARE(services_->Clipboard.Text, std::string("<p>1</p>\r\n\r\n<p>2</p>\r\n\r\n<p>3</p>\r\n"));
    Click("previewPage");
    QCOMPARE(form_->TabStrip1.Selected(), 2);
    QCOMPARE(ReadFile(form_->WebBrowser1.AskedFor()), services_->Clipboard.Text);
  }

  void aReportIsOpenedElsewhereWithoutTheMarkupOfStrangers() {
    form_->TabStrip1.Select(4);
    auto* const open = Widget<QAbstractButton>("openReport");
    QVERIFY(!open->isEnabled());
    form_->Sites.AddMainSite("<script>a</script>");
    form_->Report.GenerateLinkReport();
    Click("openReport");
    QCOMPARE(services_->Shell.Opened.size(), std::size_t{1});
    const std::string copy = ReadFile(services_->Shell.Opened.back());
    QVERIFY(copy.find("&lt;script&gt;a") != std::string::npos && copy.find("<script>") == std::string::npos);
  }

 private:
  template <class Kind>
  Kind* Widget(const char* name) {
    return Part<Kind>(window_.get(), name);
  }

  void Click(const char* name) {
    auto* const button = Widget<QAbstractButton>(name);
    QTRY_VERIFY(button->isVisible() && button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
  }
};

}  // namespace requite::test

QTEST_MAIN(requite::test::FirstStepsTest)
#include "first_steps_test.moc"
