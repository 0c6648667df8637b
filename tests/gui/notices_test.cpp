// SPDX-License-Identifier: MIT
// What the main window says about its project and its scans, and how replaced or deleted work comes back.
#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QSettings>
#include <QTableView>
#include <QToolButton>

#include "shell/editors/form2.h"
#include "shell/imports/form4.h"
#include "shell/options/frm_options.h"
#include "window_rig.h"

namespace requite::test {

class NoticesTest : public QObject, private WindowRig {
  Q_OBJECT

 private slots:
  void init() {
    QSettings("requite", "window").clear();
    Start([](Form1&) {});
    QVERIFY(QTest::qWaitForWindowActive(window_.get()));
  }
  void cleanup() { End(); }

  void everyCommandAnswers() {
    AddSite("main.example", {"partner.example"});
    QCOMPARE(Answer(), QString("partner.example added."));
    AddSite("", {"http://www.PARTNER.example"});
    QCOMPARE(Answer(), QString("www.PARTNER.example added, although it is in the list already."));
    form_->mnuScan.Click(1);
    QCOMPARE(Answer(), QString("Start Scan now scans the selected Main Site."));
    form_->Sites.List1(1).SelectOnly(0);
    form_->cmdEdit.Click();
    auto* const editor = dynamic_cast<Form2*>(form_->Windows.Find("Form2"));
    editor->Option1.Choose(0);
    editor->Text6.SetText("links");
    editor->Command1.Click();
    editor->cmdSave.Click();
    QCOMPARE(Answer(), QString("partner.example stored with 1 rule."));
    const std::string sites = folder_->File("sites.txt");
    WriteFile(sites, "new.example\r\npartner.example\r\nnew.example\r\n");
    form_->Windows.Show("Form4");
    auto* const import = dynamic_cast<Form4*>(form_->Windows.Find("Form4"));
    services_->Dialogs.Names = {sites};
    import->Command4.Click();
    QCOMPARE(Answer(), QString("3 sites added to main.example (2 of them were in the list already)."));
    form_->Windows.Close("Form4");
    form_->Popup2.Click(3);
    QCOMPARE(Answer(), QString("Choose a row of the results first."));
    for (const char* status : {"Direct Link", "None Found"})
      form_->Sites.List3.Add({"main.example", "partner.example", status, "001", "u"});
    form_->Sites.List3.SelectOnly(1);
    form_->Popup2.Click(4);
    QCOMPARE(Answer(), QString("Copied: partner.example"));
    form_->Popup2.Click(7);
    QCOMPARE(Answer(), QString("partner.example marked as found."));
    form_->Sites.txtPost.SetText("http://own.example/?$Status");
    services_->Internet.Bodies["http://own.example/?True"] = "thanks";
    form_->cmdPost.Click();
    QCOMPARE(Answer(), QString("Posted 2 of 2, 1 answered."));
    form_->Command5.Click();
    QCOMPARE(Answer(), QString("1 link generated."));
    const std::string page = folder_->File("page.html");
    services_->Dialogs.Names = {page};
    form_->Command6.Click();
    QCOMPARE(Answer(), QString::fromStdString("Saved to " + page));
    services_->Dialogs.Names = {folder_->File("report")};
    form_->Command8.Click();
    QVERIFY(Answer().startsWith("Not saved"));
    form_->Windows.Show("frmOptions");
    auto* const options = dynamic_cast<frmOptions*>(form_->Windows.Find("frmOptions"));
    QVERIFY2(Answer().startsWith("Not saved"), "the opening of the options stores nothing of the user's");
    options->chkHistory.Click();
    QCOMPARE(Answer(), QString("The option is stored."));
    const std::string broken = folder_->File("broken.prj");
    WriteFile(broken, "main.example\r\na line without a bar\r\n");
    services_->Dialogs.Names = {broken};
    form_->mnuFile.Click(1);
    QVERIFY(Answer().startsWith("Read in part"));
  }

  void unsavedWorkAndDeletedSitesComeBackFromTheirBars() {
    AddSite("main.example", {"a.example", "b.example"});
    QTRY_VERIFY(window_->isWindowModified());
    QTRY_VERIFY(window_->windowTitle().startsWith("New project[*] - Requite by "));
    form_->Sites.List1(1).SelectOnly(0);
    form_->cmbDel.Click();
    QVERIFY(Part<QWidget>(window_.get(), "deletedSite")->isVisible());
    window_->setFocus();
    QTest::keyClick(window_.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(form_->Sites.List1(1).At(0).WebsiteUrl, std::string("a.example"));
    QVERIFY(!Part<QWidget>(window_.get(), "deletedSite")->isVisible());
    const std::string path = folder_->File("Project Files/a[*].prj");
    services_->Dialogs.Names = {path};
    Press("cmdSave");
    QTRY_VERIFY(!window_->isWindowModified());
    QTRY_VERIFY(window_->windowTitle().startsWith("a[*][*].prj[*] - "));
    AddSite("second.example", {});
    Press("cmdNew");
    QCOMPARE(Part<QLabel>(window_.get(), "keptProjectWords")->text(),
             QString("The unsaved project was kept."));
    Press("keptProjectBringBack");
    QCOMPARE(form_->Sites.List4.RowCount(), std::size_t{2});
    QCOMPARE(form_->Files.OpenPath(), path);
    QTRY_VERIFY(window_->isWindowModified());
    services_->Dialogs.Answers = {requite::Answer::No};
    window_->close();
    // The next run opens the saved project, and says once what was kept.
    StartAgain();
    QCOMPARE(form_->Sites.List4.RowCount(), std::size_t{1});
    Press("keptProjectBringBack");
    QCOMPARE(form_->Sites.List4.RowCount(), std::size_t{2});
    form_->Files.SaveProject(path);
    StartAgain();
    QVERIFY(!Part<QWidget>(window_.get(), "keptProject")->isVisible());
    // The menu at Open has the project, and the copy that was kept.
    form_->cmdNew.Click();
    auto* const menu = Part<QMenu>(window_.get(), "openMenu");
    QCOMPARE(Part<QToolButton>(window_.get(), "cmdOpen")->menu(), menu);
    emit menu->aboutToShow();
    QVERIFY(menu->actions().front()->text().contains("a[*].prj"));
    menu->actions().front()->trigger();
    QCOMPARE(form_->Files.OpenPath(), path);
    emit menu->aboutToShow();
    const QList<QMenu*> copies = menu->findChildren<QMenu*>();
    QCOMPARE(copies.size(), qsizetype{2});
    copies.front()->actions().front()->trigger();
    QCOMPARE(form_->Files.OpenPath(), std::string());
    QCOMPARE(form_->Sites.List4.RowCount(), std::size_t{2});
  }

  void tabReachesTheBarsFromTopToBottom() {
    QStringList names;
    const QWidget* each = Part<QWidget>(window_.get(), "scanResultMissing");
    for (; each->objectName() != "TabStrip1" && names.size() < 50; each = each->nextInFocusChain()) {
      if (each->focusPolicy() & Qt::TabFocus) names << each->objectName();
    }
    QCOMPARE(names,
             QStringList({"scanResultMissing", "scanResultReport", "scanResultSave", "scanResultDismiss",
                          "httpsOnlyTurnOn", "httpsOnlyDismiss", "keptProjectBringBack", "keptProjectDismiss",
                          "deletedSiteUndo", "deletedSiteDismiss"}));
  }

  void aScanTellsHowFarItIsAndWhatItCameTo() {
    AddSite("main.example", {"good.example", "bad.example", "last.example"});
    form_->Command1.Click();
    QTRY_COMPARE(Part<QLabel>(window_.get(), "scanLine")->accessibleName(),
                 QString::fromUtf8("Site 1 of 3 \u00B7 0 link back"));
    QTRY_VERIFY(window_->windowTitle().startsWith("Site 1 of 3, page 1 of 1, 0 links - New project[*] - "));
    Serve("<a href=\"http://main.example/\">main</a>");
    QTRY_VERIFY(window_->windowTitle().startsWith("Site 2 of 3, page 1 of 1, 1 link - "));
    Serve("nothing");
    auto* const bar = Part<QWidget>(window_.get(), "scanResult");
    QVERIFY(!bar->isVisible());
    form_->cmdStop.Click();
    QVERIFY(bar->isVisible());
    const auto* const words = Part<QLabel>(window_.get(), "scanResultWords");
    QCOMPARE(words->text(), QString("Stopped. 2 of 3 sites: 1 link back, 1 do not, 0 not reached"));
    QTRY_VERIFY(!Part<QLabel>(window_.get(), "scanLine")->isVisible());
    Press("scanResultMissing");
    QCOMPARE(Part<QTableView>(window_.get(), "List3")->model()->rowCount(), 1);
    Press("scanResultReport");
    QCOMPARE(form_->TabStrip1.Selected(), 4);
    form_->Command1.Click();
    QVERIFY(!bar->isVisible());
    while (form_->State.Scanning) Serve("<a href=\"http://main.example/\">main</a>");
    QCOMPARE(words->text(), QString("3 sites: 3 link back, 0 do not, 0 not reached"));
    QVERIFY(!Part<QWidget>(window_.get(), "scanResultMissing")->isVisible());
    // Three bars would leave no room for the results on a small screen.
    form_->HttpsOnly.Add("good.example");
    form_->OnHttpsOnly();
    QVERIFY(bar->isVisible());
    form_->Sites.List1(1).SelectOnly(0);
    form_->cmbDel.Click();
    QVERIFY(!bar->isVisible());
    QVERIFY(Part<QWidget>(window_.get(), "deletedSite")->isVisible());
    QTest::qWait(60);
    const QSize least = window_->minimumSizeHint();
    QVERIFY2(least.width() <= 1024 && least.height() <= 570, qPrintable(QString::number(least.height())));
    form_->cmdNew.Click();
    QVERIFY(!Part<QWidget>(window_.get(), "deletedSite")->isVisible());
  }

 private:
  QString Answer() { return Part<QLabel>(window_.get(), "answerLine")->accessibleName(); }
  void Press(const char* name) {
    QTest::mouseClick(Part<QAbstractButton>(window_.get(), name), Qt::LeftButton);
  }
  void Serve(const char* body) { services_->Connection.Serve(std::string("HTTP/1.1 200 OK\r\n\r\n") + body); }

  void AddSite(const std::string& mainSite, const std::vector<std::string>& linkingSites) {
    if (!mainSite.empty()) {
      form_->txtDomain.UserSets(mainSite);
      form_->cmdAdd2.Click();
    }
    for (const std::string& each : linkingSites) {
      form_->Text1.UserSets(each);
      form_->cmdAdd.Click();
    }
  }

  void StartAgain() {
    window_.reset();
    form_ = std::make_unique<Form1>(services_->All, folder_->Folder);
    form_->Start();
    window_ = std::make_unique<MainWindow>(*form_, guard_);
    window_->show();
  }
};

}  // namespace requite::test

QTEST_MAIN(requite::test::NoticesTest)
#include "notices_test.moc"
