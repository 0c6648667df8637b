// SPDX-License-Identifier: MIT
// The lists of the main window, offscreen: widths of columns, new rows, the page queue.
#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSettings>
#include <QSplitter>
#include <QTableView>
#include <numeric>

#include "qt/window/lists/column_widths.h"
#include "window_rig.h"

namespace requite::test {

class ListsTest : public QObject, private WindowRig {
  Q_OBJECT

 private slots:
  void init() {
    QSettings("requite", "window").clear();
    StartProgram();
  }
  void cleanup() { End(); }

  void widthIsSharedByNeed() {
    struct Row {
      const char* Name;
      std::vector<ColumnNeed> Needs;
      int Room;
      std::vector<int> Widths;
    };
    const std::vector<Row> rows{
        {"the largest share takes the rest", {{10, 50, 3}, {10, 30, 1}}, 100, {70, 30}},
        {"the widest are cut", {{10, 20, 1}, {10, 500, 1}, {10, 500, 2}}, 200, {20, 60, 120}},
        {"what one does not need is for the others", {{10, 300, 1}, {10, 90, 3}}, 200, {110, 90}},
        {"captions stay whole", {{40, 40, 1}, {60, 90, 1}}, 50, {40, 60}},
        {"nothing to share", {}, 50, {}}};
    for (const Row& row : rows) QVERIFY2(ShareWidth(row.Needs, row.Room) == row.Widths, row.Name);
  }

  void columnsFitTheirContentAndTheWebsiteTakesTheRest() {
    window_->resize(1600, 900);
    window_->findChild<QSplitter*>()->setSizes({800, 800});
    QHeaderView& header = *Sites().horizontalHeader();
    const int empty = header.sectionSize(3);
    for (int i = 0; i < 30; ++i) {
      Add({"partner" + std::to_string(i) + ".example", i == 29 ? "12345" : "1", "", "", ""});
    }
    QTRY_COMPARE(Sites().model()->rowCount(), 30);
    QTRY_VERIFY(header.sectionSize(1) >= Needed(Sites(), 29, 1));
    QVERIFY(header.sectionSize(0) >= Needed(Sites(), 0, 0));
    QCOMPARE(header.sectionSize(3), empty);
    QVERIFY(header.sectionSize(3) < Sites().fontMetrics().horizontalAdvance("HTML Name") + 20);
    QTRY_COMPARE(header.length(), Sites().viewport()->width());
    // A text that is wider than the list costs only its own column.
    Add({std::string(5000, 'w'), "1", "", std::string(5000, 'n'), ""});
    QTRY_VERIFY(header.sectionSize(3) > empty);
    QVERIFY(header.sectionSize(0) > header.sectionSize(3));
    QVERIFY(header.sectionSize(1) >= Needed(Sites(), 29, 1));
    QCOMPARE(header.length(), Sites().viewport()->width());
  }

  void whatTheUserDoesToColumnsIsKept() {
    Add({"partner.example", "1", "", "A name that is too long", ""});
    QTRY_COMPARE(Sites().model()->rowCount(), 1);
    QHeaderView* header = Sites().horizontalHeader();
    // A double click on the edge shows the whole text.
    const auto edge = [&](int column) {
      return QPoint(header->sectionViewportPosition(column) + header->sectionSize(column) - 2,
                    header->height() / 2);
    };
    QTRY_VERIFY(header->sectionSize(3) < Needed(Sites(), 0, 3));
    QTest::mouseMove(header->viewport(), edge(3));
    QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, edge(3));
    QVERIFY(header->sectionSize(3) >= Needed(Sites(), 0, 3));
    // A drag of the edge.
    const int before = header->sectionSize(0);
    const QPoint from = edge(0);
    QTest::mousePress(header->viewport(), Qt::LeftButton, {}, from);
    Drag(*header, from + QPoint(-10, 0));
    Drag(*header, from + QPoint(-30, 0));
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, from + QPoint(-30, 0));
    QCOMPARE(header->sectionSize(0), before - 30);
    header->moveSection(0, 1);
    Choose(*header, "HTML Link");
    QVERIFY(header->isSectionHidden(2));

    window_.reset();
    window_ = std::make_unique<MainWindow>(*form_, guard_);
    window_->show();
    header = Sites().horizontalHeader();
    QCOMPARE(header->sectionSize(0), before - 30);
    QCOMPARE(header->visualIndex(0), 1);
    QVERIFY(header->isSectionHidden(2));
    QVERIFY(!Part<QTableView>(window_.get(), "List3")->isColumnHidden(2));
    Choose(*header, "&Fit Columns to Their Content");
    QVERIFY(header->sectionSize(0) != before - 30);
    QTRY_VERIFY(header->length() >= Sites().viewport()->width());
  }

  void theKeyboardReachesTheMenuOfTheColumns() {
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::activePopupWidget(), key); };
    for (const char* name : {"List1", "List3", "lstErr"}) {
      auto* const list = Part<QTableView>(window_.get(), name);
      QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
      QApplication::sendEvent(list, &menuKey);
      press(Qt::Key_M);
      press(Qt::Key_Down);
      press(Qt::Key_Return);
      QVERIFY2(!list->isColumnHidden(0) && list->isColumnHidden(1), name);
      QVERIFY(QApplication::activePopupWidget() == nullptr);
    }
  }

  void theLastColumnCannotBeHiddenAndThePictureMovesToTheFirst() {
    form_->Sites.List3.Add({"m", "l", "Direct Link", "001", "u"}, 2, kBlue);
    auto* const results = Part<QTableView>(window_.get(), "List3");
    QTRY_COMPARE(results->model()->rowCount(), 1);
    QHeaderView& header = *results->horizontalHeader();
    const auto pictureIsIn = [&](int column) {
      const QRect cell = results->visualRect(results->model()->index(0, column));
      const QImage drawn = results->viewport()->grab(cell.adjusted(0, 0, 22 - cell.width(), 0)).toImage();
      int blue = 0;
      for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
          blue += drawn.pixelColor(x, y).blue() > drawn.pixelColor(x, y).red() + 100 ? 1 : 0;
        }
      }
      return blue > 60;
    };
    QVERIFY(pictureIsIn(0));
    QVERIFY(!pictureIsIn(1));
    for (const char* caption : {"Main", "Status", "No.", "Link URL", "Linking"}) Choose(header, caption);
    QCOMPARE(header.hiddenSectionCount(), 4);
    QVERIFY(!header.isSectionHidden(1) && pictureIsIn(1));
    form_->Sites.List3.SelectOnly(0);
    QTRY_VERIFY(results->selectionModel()->isRowSelected(0));
  }

  void aSiteThatIsAddedComesIntoViewAndALoadedListBeginsAtItsTop() {
    for (int i = 0; i < 300; ++i) Add({"partner" + std::to_string(i) + ".example", "1", "", "", ""});
    QTRY_COMPARE(Sites().model()->rowCount(), 300);
    QCOMPARE(Sites().verticalScrollBar()->value(), 0);
    auto* const entry = Part<QLineEdit>(window_.get(), "Text1");
    QTest::keyClicks(entry, "last.example\r");
    QCOMPARE(Sites().model()->rowCount(), 301);
    QVERIFY(IsInView(Sites(), 300));
  }

  void resultsFollowAScanUntilTheUserLooksElsewhere() {
    auto* const results = Part<QTableView>(window_.get(), "List3");
    QScrollBar& bar = *results->verticalScrollBar();
    const auto find = [&](int links) {
      for (int i = 0; i < links; ++i) form_->Sites.List3.Add({"m", "l", "Direct Link", "001", "u"}, 2, kBlue);
      QTRY_COMPARE(results->model()->rowCount(), static_cast<int>(form_->Sites.List3.RowCount()));
    };
    find(1);
    find(100);
    QCOMPARE(bar.value(), 0);  // no scan runs: a project was loaded
    form_->State.Scanning = true;
    find(5);
    QCOMPARE(bar.value(), 0);  // the user has not gone to the end
    results->scrollToBottom();
    find(50);
    QVERIFY(IsInView(*results, 155));
    form_->Sites.List3.SelectOnly(150);
    const int place = bar.value();
    find(50);
    QCOMPARE(bar.value(), place);
    form_->State.Scanning = false;
  }

  void theQueueUnfoldsForAScanAndGivesItsRoomBack() {
    auto* const queue = Part<QTableView>(window_.get(), "List2");
    const int rows = Sites().viewport()->height();
    QVERIFY(!queue->isVisible());
    QTest::keyClicks(Part<QLineEdit>(window_.get(), "Text1"), "partner.example\r");
    form_->Command1.Click();
    QTRY_VERIFY(queue->isVisible() && queue->height() > 40);
    QVERIFY(Sites().viewport()->height() < rows);
    form_->cmdStop.Click();
    QTRY_VERIFY(!queue->isVisible());
    QTRY_COMPARE(Sites().viewport()->height(), rows);
    QTest::mouseClick(Part<QAbstractButton>(window_.get(), "showQueue"), Qt::LeftButton);
    QVERIFY(queue->isVisible());
  }

 private:
  void StartProgram() {
    Start([](Form1& form) {
      form.txtDomain.UserSets("main.example");
      form.cmdAdd2.Click();
    });
  }
  QTableView& Sites() { return *Part<QTableView>(window_.get(), "List1"); }
  void Add(const LinkingSite& site) { form_->Sites.List1(1).Add(site); }

  static int Needed(const QTableView& view, int row, int column) {
    return view.sizeHintForIndex(view.model()->index(row, column)).width();
  }
  static bool IsInView(const QTableView& view, int row) {
    const QRect place = view.visualRect(view.model()->index(row, 0));
    return place.isValid() && view.viewport()->rect().contains(place.center());
  }
  static void Drag(QHeaderView& header, QPoint to) {
    QMouseEvent move(QEvent::MouseMove, to, header.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(header.viewport(), &move);
  }
  /// An entry of the header's menu.
  static void Choose(QHeaderView& header, const char* entry) {
    bool chosen = false;
    QTimer::singleShot(0, &header, [&] {
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (menu == nullptr) return;
      for (QAction* const action : menu->actions()) {
        if (action->text() == entry) chosen = true, action->trigger();
      }
      menu->close();
    });
    emit header.customContextMenuRequested({5, 5});
    QVERIFY2(chosen, entry);
  }
};

}  // namespace requite::test

QTEST_MAIN(requite::test::ListsTest)
#include "lists_test.moc"
