// SPDX-License-Identifier: MIT
// The real main window, offscreen, over fake services: widgets are found by their controls' names.
#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTableView>
#include <QWheelEvent>
#include <map>

#include "window_rig.h"

namespace requite::test {

class MainWindowTest : public QObject, private WindowRig {
  Q_OBJECT

 private slots:
  void init() {
    Start([](Form1&) {});
  }
  void cleanup() { End(); }

  void keysDoWhatTheirButtonsAndEntriesDo() {
    QVERIFY(QTest::qWaitForWindowActive(window_.get()));  // shortcuts are those of the active window
    form_->Files.LastOpenWasProject = false;
    QTest::keyClick(window_.get(), Qt::Key_O, Qt::ControlModifier);
    QVERIFY(form_->Files.LastOpenWasProject);
    AddSites();
    auto* const linking = Widget<QTableView>("List1");
    QTRY_COMPARE(linking->model()->rowCount(), 1);
    linking->setFocus(Qt::TabFocusReason);
    QVERIFY(!form_->cmbDel.Enabled());  // getting the focus selects no row
    QTest::keyClick(linking, Qt::Key_Delete);
    QCOMPARE(form_->Sites.List1(1).RowCount(), std::size_t{1});
    QTest::keyClick(window_.get(), Qt::Key_F5);
    QVERIFY(form_->State.Scanning);
    QTest::keyClick(window_.get(), Qt::Key_Escape);
    QVERIFY(!form_->State.Scanning);
    QTRY_VERIFY(linking->isEnabled());
    linking->setFocus(Qt::TabFocusReason);
    QTest::keyClick(linking, Qt::Key_Down);
    QTest::keyClick(linking, Qt::Key_Space);
    QTRY_COMPARE(form_->Sites.List1(1).SelectedRow(), 0);
    QTest::keyClick(linking, Qt::Key_Delete);
    QCOMPARE(form_->Sites.List1(1).RowCount(), std::size_t{0});
    QTest::keyClick(Widget<QTableView>("List4"), Qt::Key_Delete);
    QCOMPARE(form_->Sites.List4.RowCount(), std::size_t{1});  // its button waits for a new choice
  }

  void aMinimisedWindowComesBackAndTheExitTakesAllButTheSitesWindowOff() {
    form_->Windows.Show("frmOptions");
    auto* const options = Widget<QWidget>("frmOptions");
    options->showMinimized();
    form_->Windows.Show("frmOptions");
    QVERIFY(options->isVisible() && !options->isMinimized());
    form_->Windows.Show("frmWebsite");
    bool ended = false;
    form_->OnEnd = [&ended] { ended = true; };
    form_->mnuFile.Click(4);
    QVERIFY(!window_->isVisible() && !options->isVisible() && !ended);
    form_->Windows.Close("frmWebsite");
    QVERIFY(ended);
  }

  void theWindowIsUpToDateWhenAHandlerEnds() {
    AddSites();
    auto* const site = Widget<QLineEdit>("txtDomain");
    QTest::keyClicks(site, "second.example\rthird");
    QCOMPARE(site->text(), QString("third"));
    auto* const stop = Widget<QAbstractButton>("cmdStop");
    QTest::mouseClick(Widget<QAbstractButton>("Command1"), Qt::LeftButton);
    QVERIFY(stop->isEnabled() && !site->isEnabled());
    form_->Scan.cmdStop();
    const auto sites = form_->Figures.MainSitesScanned;
    QVERIFY(stop->isEnabled());  // what the scan itself changes is shown a little later
    QTest::mouseClick(stop, Qt::LeftButton);
    QCOMPARE(form_->Figures.MainSitesScanned, sites);
  }

  void popupsOpenByMouseAndKeyAndOnlyLinkingSitesAreChosenByThem() {
    for (const char* site : {"a", "b"}) form_->Sites.List3.Add({site, "l", "Direct Link", "001", "u"});
    AddSites();
    for (const char* name : {"List3", "List1"}) {
      auto* const list = Widget<QTableView>(name);
      QTRY_VERIFY(list->model()->rowCount() > 0);
      QTest::mouseClick(list->viewport(), Qt::RightButton, {},
                        list->visualRect(list->model()->index(0, 0)).center());
      ClosePopup(name);
      QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
      QApplication::sendEvent(list, &menuKey);
      ClosePopup(name);
    }
    QCOMPARE(form_->Sites.List3.SelectedRow(), -1);
    QCOMPARE(form_->Sites.List1(1).SelectedRow(), 0);
  }

  void popupsNameTheirRowAndAreGreyWithoutOne() {
    AddSites();
    form_->Sites.List3.Add({"a", "l & m", "Direct Link", "001", "u"});
    QTRY_COMPARE(Widget<QTableView>("List3")->model()->rowCount(), 1);
    const auto seen = [this](const char* name) {
      auto* const popup = Widget<QMenu>(name);
      emit popup->aboutToShow();
      QString entries = popup->actions().front()->text() + ":";
      for (const QAction* each : popup->actions().mid(1))
        entries += each->isSeparator() ? " -"
                   : each->isEnabled() ? " " + each->text().section(' ', 0, 0)
                                       : " .";
      return entries.remove('&');
    };
    QCOMPARE(seen("Popup2"), QString("No row is selected: - . . . . . . - . . - . - Changes - Columns"));
    form_->Sites.List3.SelectOnly(0);
    QCOMPARE(seen("Popup2"), QString("l  m: Direct Link: - Browse Browse Browse Copy Copy Copy - Mark Mark - "
                                     "Copy - Changes - Columns"));
    QCOMPARE(seen("Popup1"), QString("No site is selected: - . - . . . . - Columns"));
    form_->Sites.List1(1).SelectOnly(0);
    QCOMPARE(seen("Popup1"), QString("partner.example: - Delete - Edit... Copy Open Scan - Columns"));

    form_->Lists.lstErr.Add({"404", "broken.example/page"});
    auto* const errors = Widget<QTableView>("lstErr");
    QTRY_COMPARE(errors->model()->rowCount(), 1);
    QTest::mouseClick(errors->viewport(), Qt::RightButton, {},
                      errors->visualRect(errors->model()->index(0, 0)).center());
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu != nullptr);
    QCOMPARE(menu->actions()[0]->text(), QString("broken.example/page"));
    menu->actions()[3]->trigger();
    menu->close();
    QCOMPARE(services_->Shell.Opened, std::vector<std::string>{"broken.example/page"});
    QCOMPARE(form_->Lists.lstErr.SelectedRow(), -1);
  }

  void aRowIsCopiedWholeAndASiteIsEditedByEnter() {
    AddSites();
    const std::string longUrl = "p.example/" + std::string(2000, 'x');
    form_->Sites.List1(1).Set(0, &LinkingSite::WebsiteUrl, longUrl);
    form_->Sites.List1(1).Set(0, &LinkingSite::Description, "two\r\nlines\tand a tab \xA9");
    auto* const list = Widget<QTableView>("List1");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Space);
    QTRY_COMPARE(form_->Sites.List1(1).SelectedRow(), 0);
    QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(),
             QString::fromStdString(longUrl) + "\t1\t\t\ttwo  lines and a tab " + QChar(0xA9));
    QTest::keyClick(list, Qt::Key_Return);
    QVERIFY(form_->Windows.IsShown("Form2"));
    form_->Windows.Close("Form2");
    auto* const main = Widget<QTableView>("List4");
    QTest::mouseDClick(main->viewport(), Qt::LeftButton, {},
                       main->visualRect(main->model()->index(0, 0)).center());
    QVERIFY(form_->Windows.IsShown("Form2a"));
  }

  void aTypedKeyChangesNoOtherByteAndARefreshMovesNoCursor() {
    form_->TabStrip1.Select(3);
    std::string all = "first\xA0line\n";
    for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
    TextBox& control = form_->Sites.txtHTML1;
    control.SetText(all + "\r\n");
    auto* const box = Widget<QPlainTextEdit>("txtHTML1");
    QTRY_VERIFY(box->isVisible() && box->toPlainText().startsWith("first"));
    const auto placeCursor = [box](int anchor, int at) {
      QTextCursor cursor = box->textCursor();
      cursor.setPosition(anchor);
      cursor.setPosition(at, QTextCursor::KeepAnchor);
      box->setTextCursor(cursor);
    };
    placeCursor(5, 5);
    TypeOutsidePage(box, "x", "y");
    QTest::keyClick(box, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(control.Text(), "firstx?y\r\n" + all.substr(5) + "\r\n");
    QCOMPARE(box->textCursor().position(), 9);
    box->undo();
    QVERIFY(!box->toPlainText().contains(QChar(0x416)));
    control.SetText(all + "\r\n");
    QTRY_VERIFY(box->toPlainText().startsWith("first" + QString(" line")));
    // A stretch that is rewritten before the selection leaves it where it is.
    placeCursor(8, 6);
    control.SetText("another" + control.Text().substr(5));
    QTRY_VERIFY(box->toPlainText().startsWith("another"));
    QCOMPARE(box->textCursor().selectedText(), QString("li"));
    QCOMPARE(box->textCursor().position(), 8);
    form_->TabStrip1.Select(5);
    auto* const line = Widget<QLineEdit>("txtPost");
    QTRY_VERIFY(line->isVisible() && line->isEnabled());
    TypeOutsidePage(line, "abc", "");
    QVERIFY(line->text().endsWith("abc?"));
    QCOMPARE(form_->Sites.txtPost.Text(), line->text().toStdString());
    line->setSelection(static_cast<int>(line->text().size()) - 1, -2);
    form_->Sites.txtPost.SetText("new " + form_->Sites.txtPost.Text());
    QTRY_VERIFY(line->text().startsWith("new "));
    QCOMPARE(line->selectedText(), QString("bc"));
    QCOMPARE(line->cursorPosition(), line->text().size() - 3);
  }

  void aTextThatGrowsIsShownWholeAndAFigureThatGrowsGetsItsRoom() {
    form_->TabStrip1.Select(3);
    TextBox& control = form_->Sites.txtHTML1;
    auto* const box = Widget<QPlainTextEdit>("txtHTML1");
    QTRY_VERIFY(box->isVisible());
    control.SetText("first\r");
    const auto shows = [&](const QString& lines) {
      return QTest::qWaitFor([&] { return box->toPlainText() == lines; });
    };
    QVERIFY(shows("first\n"));
    box->selectAll();
    control.SetText(control.Text() + "\nsecond");  // the LF belongs to the CR that is shown
    QVERIFY(shows("first\nsecond"));
    control.SetText(control.Text() + "\r\n\x80 third");
    QVERIFY(shows(QString("first\nsecond\n") + QChar(0x20AC) + " third"));
    box->moveCursor(QTextCursor::Start);
    QTest::keyClick(box, 'X');
    control.SetText(control.Text() + "!");
    QVERIFY(shows(QString("Xfirst\nsecond\n") + QChar(0x20AC) + " third!"));
    QCOMPARE(box->textCursor().position(), 1);
    control.SetText("other");
    QVERIFY(shows("other"));
    auto* const figure = Widget<QLabel>("lblStats(0)");
    form_->lblStats[0].SetText(std::string(12, '8'));
    QTRY_VERIFY(figure->text().size() == 12 && figure->width() >= figure->minimumSizeHint().width());
  }

  void aTypedNameIsNotTakenForTheRowThatReadsAlike() {
    form_->TabStrip1.Select(3);
    form_->optAll.Choose(1);
    form_->Combo3.AddItem("Comma");
    auto* const combo = Widget<QComboBox>("Combo3");
    QTRY_COMPARE(combo->count(), 1);
    QTRY_VERIFY(combo->isEnabled() && combo->isVisible());
    combo->lineEdit()->selectAll();
    TypeOutsidePage(combo->lineEdit(), "com", "a");
    combo->lineEdit()->setCursorPosition(4);
    QTest::qWait(100);
    QCOMPARE(form_->Combo3.Text(), std::string("com?a"));
    QCOMPARE(combo->lineEdit()->cursorPosition(), 4);
    QTest::keyClick(combo, Qt::Key_Backspace);
    QTest::keyClick(combo, Qt::Key_M);
    QTest::qWait(100);
    QCOMPARE(combo->lineEdit()->cursorPosition(), 4);
    QTest::keyClick(combo, Qt::Key_Home);
    QTest::keyClick(combo, Qt::Key_Delete);
    QTest::keyClick(combo, 'C');
    QCOMPARE(form_->Combo3.Text(), std::string("Comma"));
    QTest::keyClick(combo, Qt::Key_Return);
    Widget<QPlainTextEdit>("txtHTML1")->setFocus();
    QCOMPARE(form_->Combo3.ListIndex(), -1);
  }

  void otherButtonsAndTheWheelAreNoClicksOfATab() {
    AddSites();
    auto* const tabs = Widget<QTabBar>("TabStrip1");
    const auto click = [&](Qt::MouseButton button) {
      QTest::mouseClick(tabs, button, {}, tabs->tabRect(2).center());
    };
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) click(button);
    QCOMPARE(form_->TabStrip1.Selected(), 1);
    for (int visit = 0; visit < 2; ++visit) click(Qt::LeftButton);
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) click(button);
    QWheelEvent wheel(tabs->tabRect(2).center(), tabs->mapToGlobal(tabs->tabRect(2).center()), {}, {0, -120},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(tabs, &wheel);
    QCOMPARE(form_->TabStrip1.Selected(), 3);
    QCOMPARE(form_->Combo3.Items().size(), std::size_t{2});
  }

  void aPressBesideTheMainSitesShowsNoList() {
    AddSites();
    auto* const sites = Widget<QTableView>("List4");
    QTRY_COMPARE(Widget<QTableView>("List1")->model()->rowCount(), 1);
    const QPoint beside(sites->viewport()->width() / 2, sites->viewport()->height() - 3);
    QTest::mouseClick(sites->viewport(), Qt::RightButton, {}, beside);
    QCOMPARE(form_->Sites.CurrentMainSite, std::int16_t{1});
    QTest::mouseClick(sites->viewport(), Qt::LeftButton, {}, beside);
    QCOMPARE(form_->Sites.CurrentMainSite, std::int16_t{0});
    QVERIFY(!form_->Sites.List1(1).Visible());
    QTRY_COMPARE(Widget<QTableView>("List1")->model()->rowCount(), 0);
    QVERIFY(sites->selectionModel()->selectedRows().isEmpty());
    const QPoint row = sites->visualRect(sites->model()->index(0, 0)).center();
    QTest::mouseClick(sites->viewport(), Qt::LeftButton, {}, row);
    QCOMPARE(form_->Sites.CurrentMainSite, std::int16_t{1});
    QTRY_COMPARE(Widget<QTableView>("List1")->model()->rowCount(), 1);
  }

  void secureConnectionsAreOfferedAfterAScanThatNeededThem() {
    AddSites();
    const QSize before = window_->minimumSizeHint();
    auto* const bar = Widget<QWidget>("httpsOnly");
    const auto scan = [&] {
      form_->Sites.List1(1).SetFieldAt(0, 0, "<img src=x>");
      form_->Command1.Click();
      QVERIFY(!bar->isVisible());
      services_->Connection.Serve("HTTP/1.1 301 M\r\nLocation: https://partner.example/\r\n\r\n");
      QVERIFY(bar->isVisible());
    };
    scan();
    QVERIFY(Widget<QLabel>("httpsOnlyWords")->text().startsWith("1 site answers over HTTPS only"));
    QVERIFY(bar->toolTip().contains("&lt;img src=x&gt;"));
    const QSize with = window_->minimumSizeHint();
    QVERIFY2(with.width() <= 1024 && with.height() <= 570, qPrintable(QString::number(with.height())));
    Click("httpsOnlyDismiss");
    QVERIFY(!bar->isVisible());
    QTRY_COMPARE(window_->minimumSizeHint(), before);
    scan();
    form_->cmdNew.Click();
    QTRY_VERIFY(!bar->isVisible());  // the results that it is about are gone
    AddSites();
    scan();
    QVERIFY(QTest::qWaitForWindowActive(window_.get()));
    QTest::keyClick(window_.get(), Qt::Key_U, Qt::AltModifier);
    QTRY_VERIFY(form_->State.Scanning);
    QVERIFY(!bar->isVisible());
    QCOMPARE(services_->Store.Read("chkSecure").value_or(""), std::string("1"));
  }

  void noKeyBelongsToTwo() {
    AddSites();
    form_->HttpsOnly.Add("partner.example");
    form_->Sites.List3.Add({"main.example", "partner.example", "None Found", "000", "u"});
    form_->ScanEnds();
    QApplication::clipboard()->setText("partner.example\nsecond.example");
    QTest::keyClick(Widget<QLineEdit>("Text1"), Qt::Key_V, Qt::ControlModifier);
    QVERIFY(Widget<QWidget>("addSitesNew")->isVisible());
    for (int tab = 1; tab <= 5; ++tab) {
      form_->TabStrip1.Select(tab);
      QTest::qWait(60);
      std::map<QString, QString> owners;
      const auto claim = [&](const QString& key, const QString& owner) {
        if (key.isEmpty()) return;
        const auto [at, isNew] = owners.emplace(key, owner);
        QVERIFY2(isNew, qPrintable(key + ": " + at->second + ", " + owner));
      };
      for (const QAction* menu : window_->menuBar()->actions())
        claim(QKeySequence::mnemonic(menu->text()).toString(), menu->text());
      const auto* const tabs = Widget<QTabBar>("TabStrip1");
      for (int i = 0; i < tabs->count(); ++i)
        claim(QKeySequence::mnemonic(tabs->tabText(i)).toString(), tabs->tabText(i));
      for (const auto* button : window_->findChildren<QAbstractButton*>()) {
        if (button->isVisible()) claim(button->shortcut().toString(), button->objectName());
      }
    }
  }

  void brokenTextsStayInTheirLine() {
    AddSites();
    QTest::qWait(60);  // until the list of Linking Sites has its room
    const QSize before = window_->minimumSizeHint();
    QVERIFY2(before.width() <= 1024 && before.height() <= 570,
             qPrintable(QString("%1x%2 is too large").arg(before.width()).arg(before.height())));
    const std::string broken = std::string("a\0b\r\n\x07<img src='x'>", 19) + std::string(100'000, 'w');
    form_->Sites.List3.Add({broken, broken, broken, broken, broken});
    form_->Sites.AddMainSite(broken);
    form_->SelectMainSite(1);
    for (int panel = 1; panel <= 4; ++panel)
      form_->StatusBar1.SetPanel(static_cast<StatusPanel>(panel), broken);
    const auto* const results = Widget<QTableView>("List3");
    QTRY_COMPARE(results->model()->rowCount(), 1);
    const QModelIndex cell = results->model()->index(0, 0);
    QVERIFY(cell.data().toString().startsWith("a b   <img"));
    QVERIFY(cell.data().toString().size() < 1000);
    QVERIFY(cell.data(Qt::ToolTipRole).toString().contains("&lt;img"));
    QTRY_VERIFY(Widget<QLabel>("lblblah")->text().contains("www"));
    QCOMPARE(window_->minimumSizeHint(), before);
  }

  void theDesktopHearsOfWhatIsNew() {
    struct Bus final : DesktopBus {
      void Notify(const QString&, const QString& body) override { Told << body; }
      void ShowProgress(int percent) override { Told << QString::number(percent); }
      QStringList Told;
    } bus;
    ScanNotice notice(bus);
    notice.See({});
    for (const int percent : {0, 50, 50, 250}) notice.See({true, true, percent, 0, 0});
    notice.See({false, true, 0, 3, 4});
    notice.See({true, false, 10, 0, 0});
    for (int again = 0; again < 2; ++again) notice.See({false, false, 0, 3, 4});
    QCOMPARE(bus.Told, QStringList({"0", "50", "100", "-1", "10", "-1", "3 links found on 4 pages."}));
    notice.See({true, false, 10, 0, 0});
    notice.See({false, false, 0, 3, 4, "2 links lost, 1 new"});
    QCOMPARE(bus.Told.back(),
             QString("Since the last scan: 2 links lost, 1 new.\n3 links found on 4 pages."));
  }

  void changesAreOpenedFromTheResultsAndTheReports() {
    for (QAction* const entry : Widget<QMenu>("Popup2")->actions()) {
      if (entry->text() == "Changes Since Last Scan...") entry->trigger();
    }
    auto* const changes = Widget<QWidget>("frmChanges");
    QVERIFY(changes->isVisible());
    QVERIFY(Part<QLabel>(changes, "lblState")->text().startsWith("Switch on"));
    changes->close();
    QVERIFY(!form_->Windows.IsShown("frmChanges"));
    form_->TabStrip1.Select(4);
    Click("showChanges");
    QVERIFY(form_->Windows.IsShown("frmChanges"));
    form_->Windows.Close("frmChanges");
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
    return Part<Kind>(window_.get(), name);
  }

  void Click(const char* name) {
    auto* const button = Widget<QAbstractButton>(name);
    QTRY_VERIFY(button->isVisible() && button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
  }

  /// Types a Cyrillic letter between the two texts.
  static void TypeOutsidePage(QWidget* box, const char* before, const char* after) {
    QTest::keyClicks(box, before);
    QKeyEvent letter(QEvent::KeyPress, 0x416, Qt::NoModifier, QString(QChar(0x416)));
    QApplication::sendEvent(box, &letter);
    QTest::keyClicks(box, after);
  }

  static void ClosePopup(const char* of) {
    auto* const popup = QApplication::activePopupWidget();
    QVERIFY2(popup != nullptr, of);
    popup->close();
  }

  void AddSites() {
    QTest::keyClicks(Widget<QLineEdit>("txtDomain"), "main.example");
    QTest::keyClick(Widget<QLineEdit>("txtDomain"), Qt::Key_Return);
    auto* const linking = Widget<QLineEdit>("Text1");
    QTRY_VERIFY(linking->isVisible());
    QTest::keyClicks(linking, "partner.example");
    Click("cmdAdd");
  }
};

}  // namespace requite::test

QTEST_MAIN(requite::test::MainWindowTest)
#include "main_window_test.moc"
