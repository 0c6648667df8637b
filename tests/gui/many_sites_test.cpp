// SPDX-License-Identifier: MIT
// Several sites at once, and projects, pasted or dropped: what is asked, what is added, what is left out.
#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTableView>
#include <QUrl>

#include "qt/window/main_window/site_lines.h"
#include "window_rig.h"

namespace requite::test {

class ManySitesTest : public QObject, private WindowRig {
  Q_OBJECT

 private slots:
  void init() {
    Start([](Form1&) {});
    form_->txtDomain.UserSets("main.example");
    form_->cmdAdd2.Click();
    form_->Text1.UserSets("known.example");
    form_->cmdAdd.Click();
    QTRY_COMPARE(Widget<QTableView>("List1")->model()->rowCount(), 1);
    bar_ = Widget<QWidget>("addSites");
  }
  void cleanup() { End(); }

  void threePastedLinesAreThreeRowsAndDuplicatesAreTold() {
    QTest::keyClicks(Widget<QLineEdit>("Text1"), "half typed");
    Paste("Text1",
          "HTTP://Known.example/\r\n\n  https://new.example/links  \t1\t\nhttp://\nnew.example/links/\n");
    QVERIFY(bar_->isVisible());
    QCOMPARE(Question(), QString("Add 3 Linking Sites? 2 are in the list already. 1 line is left out."));
    QVERIFY(bar_->toolTip().contains("Known.example"));
    QVERIFY(bar_->toolTip().contains("http:// - no address"));
    QCOMPARE(Sites(), QStringList("known.example"));
    Click("addSitesAll");
    QCOMPARE(Sites(),
             QStringList({"known.example", "Known.example/", "new.example/links", "new.example/links/"}));
    QCOMPARE(form_->Sites.List1(1).At(3).LinksExpected, std::string("1"));
    QVERIFY(services_->Dialogs.Boxes.empty());
    QCOMPARE(form_->Text1.Text(), std::string("half typed"));
    QVERIFY(Answer().startsWith("3 sites added; 2 of them were"));
    QVERIFY(!bar_->isVisible() && !form_->Sites.ProjectSaved);

    QApplication::clipboard()->setText("known.example\nfresh.example\n");
    const std::unique_ptr<QMenu> menu(Widget<QLineEdit>("Text1")->createStandardContextMenu());
    for (QAction* each : menu->actions()) {
      if (each->text().startsWith("&Paste")) each->trigger();
    }
    Click("addSitesNew");
    QCOMPARE(Sites().size(), 5);
    Widget<QLineEdit>("Text1")->clear();
    Paste("Text1", "one.example\n");
    QCOMPARE(Widget<QLineEdit>("Text1")->text(), QString("one.example"));
    QVERIFY(!bar_->isVisible());
  }

  void aHostileTextAddsNothingUnasked() {
    const QString cyrillic = QString::fromUtf8("\xd0\xbf\xd1\x80.example");
    Paste("txtDomain", "a.example\n" + QString(3000, 'x') + '\n' + cyrillic + "\nb" + QChar(0xE9) +
                           ".example\n" + QString::fromLatin1("z\0y\n", 4));
    QCOMPARE(Question().section('?', 0, 0), QString("Add 2 Main Sites"));
    QVERIFY(bar_->toolTip().contains("Windows-1252") && bar_->toolTip().contains("too long") &&
            bar_->toolTip().contains("not text"));
    Click("addSitesAll");
    QCOMPARE(form_->Sites.List4.RowCount(), std::size_t{3});
    QCOMPARE(form_->Sites.List4.At(2).Text, std::string("b\xe9.example"));
    for (const QString& huge : {QString(10'000'000, 'x'), QString("x.example\n").repeated(1'000'000)}) {
      Paste("Text1", huge);
      QVERIFY(!bar_->isVisible());
      QVERIFY(Answer().startsWith("That is too much text"));
    }
    QVERIFY(form_->Text1.Text().empty());
    QCOMPARE(DecodeText("\xEF\xBB\xBF\xC3\xA9"), QString(QChar(0xE9)));
    QCOMPARE(DecodeText("\xE9"), QString(QChar(0xE9)));
    QCOMPARE(DecodeText(QByteArray("\xFF\xFE\xE9\0", 4)), QString(QChar(0xE9)));
  }

  void anOfferIsForTheListThatItWasMadeFor() {
    Paste("Text1", "one.example\ntwo.example");
    QVERIFY(bar_->isVisible());
    form_->txtDomain.UserSets("other.example");
    form_->cmdAdd2.Click();  // and selects it
    QTRY_VERIFY(!bar_->isVisible());
    Paste("Text1", "one.example\ntwo.example");
    form_->Text1.UserSets("third.example");
    form_->cmdAdd.Click();
    form_->Command1.Click();
    QVERIFY(form_->State.Scanning);
    QTRY_VERIFY(!bar_->isVisible());
    QCOMPARE(form_->Sites.List1(2).RowCount(), std::size_t{1});
  }

  void filesAndLinksAreDroppedOnLists() {
    WriteFile(folder_->File("sites.txt"), "one.example\r\nknown.example\r\n");
    WriteFile(folder_->File("binary.txt"), std::string("MZ\0\0", 4));
    QWidget* const list = Widget<QTableView>("List1")->viewport();
    QVERIFY(Drop(list, {QUrl::fromLocalFile(Path("sites.txt")), QUrl("https://www.two.example/a b"),
                        QUrl("mailto:me@x.example")}));
    QCOMPARE(Question(), QString("Add 3 Linking Sites? 1 is in the list already."));
    Click("addSitesNew");
    QCOMPARE(Sites(), QStringList({"known.example", "one.example", "www.two.example/a%20b"}));
    QVERIFY(!Drop(list, {QUrl::fromLocalFile(Path("binary.txt"))}));
    QCOMPARE(Answer(), QString("binary.txt is not a text file."));
    QVERIFY(!Drop(list, {QUrl::fromLocalFile(Path("."))}));
    QVERIFY(!Drop(window_.get(), {QUrl::fromLocalFile(Path("sites.txt"))}));
  }

  void aDroppedProjectOpensUnlessAScanRuns() {
    WriteFile(folder_->File("other.PRJ"), "dropped.example\r\nlinked.example|1|||\r\nHTML01:x\r\n\r\n");
    const QList<QUrl> project{QUrl::fromLocalFile(Path("other.PRJ"))};
    form_->Command1.Click();
    QVERIFY(!Drop(window_.get(), project));
    form_->cmdStop.Click();
    QVERIFY(Drop(Widget<QTableView>("List4")->viewport(), project));
    QCOMPARE(form_->Sites.List4.At(0).Text, std::string("dropped.example"));
    QCOMPARE(form_->Files.OpenPath(), folder_->File("other.PRJ"));
    QVERIFY(services_->Dialogs.Boxes.empty());
  }

 private:
  template <class Kind>
  Kind* Widget(const char* name) {
    return Part<Kind>(window_.get(), name);
  }
  void Click(const char* name) { QTest::mouseClick(Widget<QAbstractButton>(name), Qt::LeftButton); }
  void Paste(const char* entry, const QString& text) {
    QApplication::clipboard()->setText(text);
    QTest::keyClick(Widget<QLineEdit>(entry), Qt::Key_V, Qt::ControlModifier);
  }
  QString Question() { return Widget<QLabel>("addSitesWords")->text(); }
  QString Answer() { return Widget<QLabel>("answerLine")->accessibleName(); }
  QString Path(const char* name) { return QString::fromStdString(folder_->File(name)); }
  QStringList Sites() {
    QStringList sites;
    const LinkingSiteList& list = form_->Sites.List1(1);
    for (std::size_t row = 0; row < list.RowCount(); ++row)
      sites << QString::fromStdString(list.At(row).WebsiteUrl);
    return sites;
  }
  static bool Drop(QWidget* on, const QList<QUrl>& urls) {
    QMimeData dragged;
    dragged.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(on, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(on, &drop);
    return drop.isAccepted();
  }

  QWidget* bar_ = nullptr;
};

}  // namespace requite::test

QTEST_MAIN(requite::test::ManySitesTest)
#include "many_sites_test.moc"
