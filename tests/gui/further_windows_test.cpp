// SPDX-License-Identifier: MIT
// The editors, the options and the import windows, offscreen, by mouse and keyboard, over fake services.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>

#include "window_rig.h"

namespace requite::test {

class FurtherWindowsTest : public QObject, private WindowRig {
  Q_OBJECT

 private slots:
  void init() {
    Start([](Form1& form) {
      form.txtDomain.UserSets("main.example");
      form.cmdAdd2.Click();
      form.Text1.UserSets("partner.example");
      form.cmdAdd.Click();
    });
  }
  void cleanup() { End(); }

  void aSiteAndItsRulesAreEditedByKeyboard() {
    QWidget* const editor = Open("Form2", [this] {
      form_->Sites.List1(1).SelectOnly(0);
      form_->cmdEdit.Click();
    });
    auto* const url = Part<QLineEdit>(editor, "Text1");
    QCOMPARE(url->text(), QString("partner.example"));
    QVERIFY(editor->focusWidget() == url);
    for (const char* next : {"Text2", "Text3", "Text4", "Text5", "ListView1", "Option1(0)"}) {
      QTest::keyClick(editor->focusWidget(), Qt::Key_Tab);
      QCOMPARE(editor->focusWidget()->objectName(), QString(next));
    }
    QTest::keyClick(editor->focusWidget(), Qt::Key_Space);
    QTest::keyClick(editor->focusWidget(), Qt::Key_Right);
    auto* const value = Part<QLineEdit>(editor, "Text6");
    QTest::keyClicks(value, "links");
    QTest::keyClick(value, Qt::Key_Return);
    const auto* const rules = Part<QAbstractItemView>(editor, "ListView1")->model();
    QTRY_COMPARE(rules->rowCount(), 1);
    QCOMPARE(rules->headerData(2, Qt::Horizontal).toString(), QString("Rule Type"));
    QTRY_COMPARE(value->text(), QString());
    QVERIFY(Part<QAbstractButton>(editor, "Option1(1)")->isChecked());
    QTest::keyClicks(Part<QLineEdit>(editor, "Text5"), "words");
    QTest::keyClick(Part<QLineEdit>(editor, "Text5"), Qt::Key_Return);
    QVERIFY(form_->Windows.IsShown("Form2"));
    QTest::keyClick(url, Qt::Key_Return);
    QVERIFY(!form_->Windows.IsShown("Form2"));
    QTRY_VERIFY(window_->findChild<QWidget*>("Form2") == nullptr);
    QCOMPARE(form_->Sites.List1(1).At(0).Description, std::string("words"));
    QCOMPARE(form_->Sites.lstRules.RowCount(), std::size_t{1});
    QCOMPARE(form_->Sites.lstRules.At(0).RuleType, std::string("ExcludeDirectory"));
  }

  void escapeDropsWhatWasEnteredAndAnOpenEditorIsNotFilledAgain() {
    QWidget* const editor = Open("Form2a", [this] { form_->cmdEditMain.Click(); });
    QTest::keyClicks(Part<QLineEdit>(editor, "Text1"), "/x");
    form_->cmdEditMain.Click();
    QCOMPARE(Part<QLineEdit>(editor, "Text1")->text(), QString("main.example/x"));
    QTest::keyClicks(Part<QLineEdit>(editor, "Text6"), "v");
    QTest::keyClick(Part<QLineEdit>(editor, "Text6"), Qt::Key_Return);
    QVERIFY(services_->Dialogs.Boxes.empty());
    QTest::keyClick(editor, Qt::Key_Escape);
    QVERIFY(!form_->Windows.IsShown("Form2a"));
    QCOMPARE(form_->Sites.List4.At(0).Text, std::string("main.example"));
  }

  void optionsAreCheckedAndStoredAsTheyAreTyped() {
    QWidget* const options = Open("frmOptions", [this] { form_->Command9.Click(); });
    auto* const timeout = Part<QLineEdit>(options, "txtTimeout");
    QCOMPARE(timeout->text(), QString("60"));
    QTest::keyClick(timeout, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(timeout, "3x");
    QTRY_COMPARE(timeout->text(), QString("60"));
    QTest::keyClick(Part<QAbstractButton>(options, "chkLog"), Qt::Key_Space);
    QCOMPARE(services_->Store.Read("chkLog").value_or(""), std::string("1"));
    auto* const limit = Part<QComboBox>(options, "cmbAdvance");
    QVERIFY(!limit->isEditable());
    QTest::keyClick(limit, Qt::Key_Down);
    QCOMPARE(services_->Store.Read("cmbAdvance").value_or(""), std::string("5"));
    QVERIFY(Part<QAbstractButton>(options, "chkAuto2")->toolTip().startsWith("Skipping"));
    Part<QAbstractButton>(options, "Command1")->setFocus();
    QTest::keyClick(options->focusWidget(), Qt::Key_Tab);
    QCOMPARE(options->focusWidget()->objectName(), QString("chkSecure"));
    QTest::keyClick(options->focusWidget(), Qt::Key_Tab);
    auto* const name = Part<QLineEdit>(options, "txtUserAgent");
    QVERIFY(options->focusWidget() == name && name->accessibleName() == "Name given to sites");
    QTest::keyClicks(name, "ab");
    QTest::keyClick(name, Qt::Key_Left);
    name->insert("1\r\n2\t");
    QTRY_COMPARE(name->text(), QString("a12b"));
    QCOMPARE(name->cursorPosition(), 3);

    QWidget* const global = Open(
        "Form2b", [&] { QTest::mouseClick(Part<QAbstractButton>(options, "Command1"), Qt::LeftButton); });
    QCOMPARE(global->windowTitle(), QString("Global Rules Editor"));
    QVERIFY(global->findChild<QLineEdit*>("Text1") == nullptr);
  }

  void linksAreFoundSelectedAndAdded() {
    std::string page(300, ' ');
    for (int i = 0; i < 1000; ++i) page += "<a href=\"http://site" + std::to_string(i) + ".example\">";
    services_->Internet.Bodies["http://me.example/links"] = page;
    QWidget* const import = Open("Form4", [this] { form_->cmdImport.Click(); });
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
    QCOMPARE(sites.RowCount(), std::size_t{5});
    const auto* const answer = Part<QLabel>(import, "answerLine");
    QVERIFY(answer->isVisible());
    QTRY_COMPARE(answer->text(), answer->accessibleName());  // not cut
    const auto* const panel = Part<QLabel>(import, "StatusBar1(1)");
    QVERIFY(panel->fontMetrics().horizontalAdvance(panel->text()) <= panel->width());
    QCOMPARE(sites.At(2).WebsiteUrl, std::string("site2.example/"));

    press(1, Qt::NoModifier);
    QTest::mouseClick(rows->viewport(), Qt::RightButton, Qt::NoModifier, {5, 5});
    QTRY_COMPARE(rows->selectionModel()->selectedRows().size(), 1001);
    add->click();
    QCOMPARE(sites.RowCount(), std::size_t{1005});

    press(3, Qt::NoModifier);
    QTest::keyClick(rows, Qt::Key_A, Qt::ControlModifier);
    add->click();
    QCOMPARE(sites.RowCount(), std::size_t{2005});

    QTest::mouseClick(Part<QAbstractButton>(import, "Command1"), Qt::LeftButton);
    QTRY_COMPARE(rows->selectionModel()->selectedRows().size(), 0);
  }

  void tabsChangeByKeyboardAndEscapeCloses() {
    QWidget* const import = Open("Form4a", [this] { form_->cmdImport2.Click(); });
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
  template <class Act>
  QWidget* Open(const char* name, Act&& act) {
    act();
    auto* const opened = window_->findChild<QWidget*>(name);
    if (opened == nullptr || !QTest::qWaitForWindowActive(opened)) qFatal("%s did not open", name);
    return opened;
  }
};

}  // namespace requite::test

QTEST_MAIN(requite::test::FurtherWindowsTest)
#include "further_windows_test.moc"
