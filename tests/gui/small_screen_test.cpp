// SPDX-License-Identifier: MIT
// Every window on a screen of 1024 x 600, which the test must be given: with usual and with large letters,
// light and dark.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QStyle>
#include <QStyleFactory>
#include <QTabBar>

#include "gui/dark_palette.h"
#include "gui/window_checks.h"
#include "qt/window/desktop/help_window.h"
#include "window_rig.h"

namespace requite::test {

class SmallScreenTest : public QObject, private WindowRig {
  Q_OBJECT

 private slots:
  void initTestCase() {
    QCOMPARE(QGuiApplication::primaryScreen()->size(), QSize(1024, 600));
    QApplication::setStyle(QStyleFactory::create("Fusion"));
  }
  void cleanup() {
    End();
    faults_.clear();
    QApplication::setFont(font_);
    QApplication::setPalette(palette_);
  }

  void everyWindow_data() {
    QTest::addColumn<int>("points");
    QTest::addColumn<bool>("dark");
    QTest::newRow("usual letters") << 0 << false;
    QTest::newRow("large letters") << 12 << false;
    QTest::newRow("dark") << 0 << true;
  }
  void everyWindow() {
    QFETCH(const int, points);
    QFETCH(const bool, dark);
    QFont letters = font_;
    if (points != 0) letters.setPointSize(points);
    QApplication::setFont(letters);
    QApplication::setPalette(dark ? DarkPalette() : QApplication::style()->standardPalette());
    QSettings("requite", "window").clear();
    Start([this](Form1& form) { FillProject(form); });
    Check(*window_, "main window");
    form_->State.Scanning = true;
    form_->StatusBar1.SetPanel(static_cast<StatusPanel>(1), "Downloading: partner.example/ (72)");
    QTRY_VERIFY(Part<QWidget>(window_.get(), "List2")->isVisible());
    Check(*window_, "while scanning");
    form_->State.Scanning = false;
    form_->cmdEdit.Click();
    form_->cmdEditMain.Click();
    for (const char* name : {"frmAbout", "frmWebsite", "Form5", "Form2", "Form2a", "Form2b", "Form4",
                             "Form4a", "frmOptions", "frmChanges", "Form3", "frmExport"}) {
      form_->Windows.Show(name);
      Check(*TopLevel(name), name);
      form_->Windows.Close(name);
    }
    QVERIFY(ShowHelpPages(REQUITE_INSTALLED "/Help.chm"));
    Check(*TopLevel("helpPages"), "help");
    TopLevel("helpPages")->close();
    for (const QString& fault : faults_) qWarning().noquote() << fault;
    QVERIFY2(faults_.isEmpty(), "the faults are above");
  }

  /// One fault of each kind in a small window.
  void theChecksSeeFaults() {
    QWidget bad;
    bad.setObjectName("bad");
    auto* const label = new QLabel("a caption that is cut", &bad);
    label->setGeometry(0, 0, 30, 20);
    auto* const lower = new QPushButton("faint", &bad);
    lower->setGeometry(0, 80, 90, 24);
    auto* const upper = new QLineEdit(&bad);
    upper->setGeometry(0, 40, 80, 24);
    QPalette faint = lower->palette();
    faint.setColor(QPalette::ButtonText, faint.color(QPalette::Button).darker(110));
    lower->setPalette(faint);
    bad.resize(1100, 120);
    bad.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bad));
    QCOMPARE(CutTexts(bad).size(), 1);
    QCOMPARE(BeyondTheScreen(bad).size(), 1);
    QCOMPARE(TabLeapsBack(bad).size(), 1);
    QCOMPARE(Nameless(bad).size(), 1);
    QCOMPARE(Faint(bad).size(), 1);
  }

 private:
  void FillProject(Form1& form) {
    WriteFile(folder_->File("spider.mdb"), ReadFile(REQUITE_INSTALLED "/spider.mdb"));
    form.txtDomain.UserSets("main.example");
    form.cmdAdd2.Click();
    form.Text1.UserSets("partner.example");
    form.cmdAdd.Click();
    for (const char* expected : {"1", "250", "12345"}) {
      form.Sites.List1(1).Add({"a-partner.example/with/a/long/address.html", expected, "", "", ""}, 0,
                              kGreen);
    }
    form.Sites.List1(1).SelectOnly(0);
    form.Sites.List3.Add({"main.example", "partner.example", "Direct Link", "001", "u"}, 2, kBlue);
    form.Sites.List3.Add({"main.example", "partner.example", "None Found (Timeout)", "1000", "u"}, 1, kRed);
    form.Lists.lstErr.Add({"404 Not found", "partner.example/a"});
    for (TextBox& figure : form.lblStats) figure.SetText("12345");
  }

  /// With each tab of the window on show.
  void Check(const QWidget& window, const QString& state) {
    QTabBar* tabs = nullptr;
    for (QTabBar* const each : window.findChildren<QTabBar*>()) {
      if (each->window() == &window && each->isVisible()) tabs = each;
    }
    for (int tab = 0; tabs != nullptr && tab < tabs->count(); ++tab) {
      tabs->setCurrentIndex(tab);
      CheckNow(window, state + ", " + tabs->tabText(tab));
    }
    if (tabs == nullptr) return CheckNow(window, state);
    tabs->setCurrentIndex(0);
  }

  void CheckNow(const QWidget& window, const QString& state) {
    QTest::qWait(60);
    for (const auto check : {CutTexts, BeyondTheScreen, TabLeapsBack, Nameless, Faint}) {
      for (const QString& fault : check(window)) faults_ << state + ": " + fault;
    }
  }

  static QWidget* TopLevel(const char* name) {
    for (QWidget* each : QApplication::topLevelWidgets()) {
      if (each->objectName() == name && each->isVisible()) return each;
    }
    qFatal("no window %s", name);
  }

  const QFont font_ = QApplication::font();
  const QPalette palette_ = QApplication::palette();
  QStringList faults_;
};

}  // namespace requite::test

QTEST_MAIN(requite::test::SmallScreenTest)
#include "small_screen_test.moc"
