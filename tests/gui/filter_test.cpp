// SPDX-License-Identifier: MIT
// The filters over the results and the Linking Sites: what is shown, and which row a click means.
#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <random>

#include "qt/window/lists/filter_box.h"
#include "window_rig.h"

namespace requite::test {

class FilterTest : public QObject, private WindowRig {
  Q_OBJECT

 private slots:
  void cleanup() { End(); }

  /// Against a list that is filtered afresh after each of many changes, also in the middle of a search.
  void rowsFoundAreThoseThatPass() {
    std::mt19937 random(7);
    std::vector<int> list;
    int divisor = 3;
    RowFilter filter;
    const auto test = [&](std::size_t row) { return list[row] % divisor == 0; };
    const auto below = [&](std::size_t end) {
      return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
    };
    for (int change = 0; change < 4000; ++change) {
      const std::size_t row = list.empty() ? 0 : below(list.size());
      switch (below(list.size() > 400 ? 7 : 12)) {
        case 0: divisor = 2 + static_cast<int>(below(3)), filter.Set(test); break;
        case 1: filter.Again(); break;
        case 2: std::shuffle(list.begin(), list.end(), random), filter.ListReset(); break;
        case 3:
          if (below(100) == 0) list.clear(), filter.ListReset();
          break;
        case 4:
        case 5:
          if (!list.empty())
            list.erase(list.begin() + static_cast<std::ptrdiff_t>(row)), filter.RowRemoved(row);
          break;
        case 6:
          if (!list.empty()) list[row] = static_cast<int>(below(1000)), filter.RowChanged(row);
          break;
        default:
          list.insert(list.begin() + static_cast<std::ptrdiff_t>(row), static_cast<int>(below(1000)));
          filter.RowAdded(row);
      }
      if (!filter.Work(list.size(), std::chrono::seconds(0)) || !filter.Active()) continue;
      std::vector<std::size_t> expected, found;
      for (std::size_t i = 0; i < list.size(); ++i) {
        if (test(i)) expected.push_back(i);
      }
      for (std::size_t i = 0; i < filter.Count(list.size()); ++i) found.push_back(filter.RowAt(i));
      QCOMPARE(found, expected);
      for (std::size_t i = 0; i < list.size(); ++i) QCOMPARE(filter.PlaceOf(i) >= 0, test(i));
    }
  }

  void clicksSortAndPopupMeanTheRowOnShow() {
    Start([](Form1& form) {
      for (const char* site : {"alpha", "beta", "gamma", "Beta two"})
        form.Sites.List3.Add({"m", site, "Direct Link", "001", "u"});
    });
    RecordList<LinkResult>& rows = form_->Sites.List3;
    const auto* const list = Widget<QTableView>("List3");
    QTest::keyClicks(Widget<QLineEdit>("resultFilter"), "BETA direct");
    QCOMPARE(Shown(), QStringList({"beta", "Beta two"}));
    Click(1);
    QCOMPARE(rows.SelectedRow(), 3);
    form_->Popup2.Click(static_cast<int>(PopupRow::CopyLinkingSite));
    QCOMPARE(services_->Clipboard.Text, std::string("Beta two"));
    rows.OnColumnClick(1);  // the first click sorts from the last to the first
    QTRY_COMPARE(Shown(), QStringList({"Beta two", "beta"}));
    QCOMPARE(rows.SelectedRow(), 1);
    QCOMPARE(list->selectionModel()->selectedRows().front().row(), 0);
    for (const char* site : {"zeta", "beta 3"}) rows.Add({"m", site, "Direct Link", "001", "u"});
    QTRY_COMPARE(Shown(), QStringList({"Beta two", "beta 3", "beta"}));
    QCOMPARE(rows.SelectedRow(), 2);  // the row has moved, and stays selected
    rows.Remove(3);
    QTRY_COMPARE(Shown(), QStringList({"Beta two", "beta"}));
    QTest::keyClicks(Widget<QLineEdit>("resultFilter"), " x");
    QCOMPARE(rows.SelectedRow(), -1);  // no command may act on a row that nobody sees
    QCOMPARE(rows.RowCount(), std::size_t{5});
  }

  void escapeEmptiesTheBoxFirstAndStopsTheScanThen() {
    Start([](Form1&) {});
    form_->txtDomain.UserSets("main.example");
    form_->cmdAdd2.Click();
    for (int site = 0; site < 30; ++site) {
      form_->Text1.UserSets("partner" + std::to_string(site) + ".example");
      form_->cmdAdd.Click();
    }
    QVERIFY(QTest::qWaitForWindowActive(window_.get()));
    auto* const sites = Widget<QLineEdit>("siteFilter");
    QTRY_VERIFY(sites->isVisible());
    QVERIFY(!Widget<QWidget>("resultFilter")->isVisible());
    Widget<QLineEdit>("Text1")->setFocus();
    QTest::keyClick(window_.get(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(sites->hasFocus());
    QTest::keyClicks(sites, "er7");
    QCOMPARE(Shown("List1", 0), QStringList("partner7.example"));
    Click(0, "List1");
    form_->Popup1.Click(0);
    QCOMPARE(form_->Sites.List1(1).RowCount(), std::size_t{29});
    QTRY_COMPARE(Shown("List1", 0), QStringList());
    sites->setFocus();
    QTest::keyClick(sites, Qt::Key_Escape);
    QCOMPARE(Shown("List1", 0).size(), 29);
    QVERIFY(Widget<QLineEdit>("Text1")->hasFocus());

    form_->Command1.Click();
    form_->Sites.List3.Add({"m", "partner1", "None Found", "000", "u"});
    QTRY_VERIFY(Widget<QWidget>("resultFilter")->isVisible());
    auto* const results = Widget<QLineEdit>("resultFilter");
    QTest::keyClick(window_.get(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(results, "x");
    QTest::keyClick(results, Qt::Key_Escape);
    QVERIFY(form_->State.Scanning && results->text().isEmpty());
    QTest::keyClick(window_.get(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClick(results, Qt::Key_Escape);
    QVERIFY(!form_->State.Scanning);
  }

  void sitesAreShownByWhetherTheyLinkBack() {
    Start([](Form1& form) {
      for (const char* site : {"a", "b"}) form.Sites.List3.Add({"m", site, "Direct Link", "001", "u"});
      form.Sites.List3.Add({"m", "c", "None Found", "000", "u"});
      form.Sites.List3.Add({"m", "d", "None Found (Timeout)", "000", "u"});
    });
    form_->TabStrip1.Select(2);
    window_->ShowMissing();
    QCOMPARE(form_->TabStrip1.Selected(), 1);
    QCOMPARE(Shown(), QStringList("c"));
    QCOMPARE(Widget<QAbstractButton>("showAll")->text(), QString("All 4"));
    QCOMPARE(Widget<QAbstractButton>("showNotReached")->text(), QString("Not reached 1"));
    form_->Sites.List3.Add({"m", "b", "Missing 001", "000", "u"});  // it has fewer links than expected now
    QTRY_COMPARE(Shown(), QStringList({"b", "c", "b"}));
    QCOMPARE(Widget<QAbstractButton>("showLinking")->text(), QString("Linking 1"));
    form_->cmdNew.Click();
    QTRY_VERIFY(!Widget<QWidget>("resultFilter")->isVisible());
  }

  void aHundredThousandRowsAreFilteredInShortSteps() {
    Start([](Form1& form) {
      for (int i = 0; i < 100'000; ++i)
        form.Sites.List3.Add({"m", std::to_string(i), "Direct Link", "001", "u"});
    });
    const auto* const model = Widget<QTableView>("List3")->model();
    QTRY_COMPARE(model->rowCount(), 100'000);
    auto* const box = Widget<QLineEdit>("resultFilter");
    box->setText("9999");
    QVERIFY(model->rowCount() == 100'000);  // the search has only begun
    QTRY_COMPARE(model->rowCount(), 19);
    form_->Sites.List3.Add({"m", "19999 more", "None Found", "000", "u"});
    QTRY_COMPARE(model->rowCount(), 20);
    Widget<QAbstractButton>("showMissing")->click();
    QTRY_COMPARE(Shown(), QStringList("19999 more"));
    form_->Sites.List3.Clear();
    QTRY_COMPARE(model->rowCount(), 0);
  }

 private:
  template <class Kind>
  Kind* Widget(const char* name) {
    return Part<Kind>(window_.get(), name);
  }
  QStringList Shown(const char* name = "List3", int column = 1) {
    const QAbstractItemModel* const model = Widget<QTableView>(name)->model();
    QStringList shown;
    for (int row = 0; row < model->rowCount(); ++row) shown << model->index(row, column).data().toString();
    return shown;
  }
  void Click(int shownRow, const char* name = "List3") {
    auto* const list = Widget<QTableView>(name);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(shownRow, 0)).center());
  }
};

}  // namespace requite::test

QTEST_MAIN(requite::test::FilterTest)
#include "filter_test.moc"
