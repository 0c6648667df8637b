// SPDX-License-Identifier: MIT
// The left side of the main window: the site lists, the queue and the statistics of a scan.
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <initializer_list>

#include "qt/services/code_page.h"
#include "qt/window/controls/entry_line.h"
#include "qt/window/lists/column_fit.h"
#include "qt/window/main_window/main_window.h"

namespace requite {
namespace {

constexpr int kLowestList = 44;  // keeps the window within a screen of 600 lines, frame and all

constexpr std::size_t kFewSites = 20;  // are found at a glance

struct Command {
  Button* Control;
  const char* Text;
};

QHBoxLayout* RowOf(Binder& bind, QWidget* parent, std::initializer_list<Command> commands) {
  auto* const row = new QHBoxLayout;
  for (const Command& command : commands) {
    auto* const button = new QPushButton(parent);
    row->addWidget(button);
    bind.Bind(*command.Control, *button, command.Text);
  }
  row->addStretch();
  return row;
}

}  // namespace

QTableView* MainWindow::NewTable(ListView& list, ListTable& table, const ListLook& look) {
  auto* const view = new QTableView(this);
  table.Show(&list);
  WireTable(*view, table, user_, look.EmptyText);
  FitColumns(*view, look.ColumnShares);
  view->setAccessibleName(look.Name);
  view->setMinimumHeight(kLowestList);
  bind_.BindState(list, *view);
  return view;
}

QWidget* MainWindow::BuildWebsites() {
  auto* const box = new QGroupBox(ToUnicode(form_.Frame1.Caption), this);
  auto* const layout = new QVBoxLayout(box);
  layout->addWidget(BuildMainSites(), 2);
  layout->addWidget(BuildLinkingSites(), 3);
  bind_.BindState(form_.Frame1, *box);
  return box;
}

QWidget* MainWindow::BuildMainSites() {
  auto* const block = new QWidget(this);
  auto* const layout = new QVBoxLayout(block);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* const entry = new EntryLine(block);
  entry->setPlaceholderText(tr("Your own site, such as www.mysite.example"));
  entry->setAccessibleName(tr("New Main Site"));
  bind_.Bind(form_.txtDomain, *entry);
  layout->addWidget(entry);
  layout->addLayout(RowOf(bind_, block,
                          {{&form_.cmdAdd2, "&Add"},
                           {&form_.cmdDelete, "&Del"},
                           {&form_.cmdEditMain, "&Edit"},
                           {&form_.cmdImport2, "I&mport"}}));
  QTableView* const list =
      NewTable(form_.Sites.List4, mainSites_,
               {tr("Main Sites"), tr("No Main Sites yet. Type your own site above and press Add."), {100}});
  list->horizontalHeader()->hide();
  AddRowMenu(*list, mainSites_, user_, OffersFor(0));
  PressOnDelete(*list, form_.cmdDelete);
  layout->addWidget(list, 1);
  bind_.BindState(form_.innerFrame1, *block);
  return block;
}

QWidget* MainWindow::BuildLinkingSites() {
  auto* const block = new QWidget(this);
  auto* const layout = new QVBoxLayout(block);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* const caption = new QLabel(block);
  bind_.BindLine(form_.lblblah, *caption);
  layout->addWidget(caption);
  auto* const entry = new EntryLine(block);
  entry->setPlaceholderText(tr("A site that ought to link back"));
  entry->setAccessibleName(tr("New Linking Site"));
  bind_.Bind(form_.Text1, *entry);
  layout->addWidget(entry);
  layout->addLayout(RowOf(bind_, block,
                          {{&form_.cmdAdd, "Add"},
                           {&form_.cmbDel, "Del"},
                           {&form_.cmdEdit, "Ed&it"},
                           {&form_.cmdImport, "Impo&rt"}}));
  auto* const view = new QTableView(block);
  view->setObjectName("List1");
  view->setAccessibleName(tr("Linking Sites"));
  view->setMinimumHeight(kLowestList);
  linkingSites_.Show(&form_.Sites.List1(0));  // sets up the columns
  WireTable(*view, linkingSites_, user_, tr("No Linking Sites yet. Type a site above and press Add."));
  FitColumns(*view, {33, 0, 21, 23, 23});
  PressOnDelete(*view, form_.cmbDel);
  siteFilter_ = new FilterBox("siteFilter", tr("Filter the Linking Sites"), linkingSites_, *view, block);
  layout->addWidget(siteFilter_);
  layout->addWidget(view, 1);
  bind_.BindState(form_.innerFrame2, *block);
  // The selected Main Site decides which list is on show.
  const auto shown = mainSites_.OnRefreshed;
  mainSites_.OnRefreshed = [this, shown] {
    shown();
    ShowCurrentLinkingSites();
  };
  const auto refreshed = linkingSites_.OnRefreshed;
  linkingSites_.OnRefreshed = [this, refreshed] {
    refreshed();
    const ListView* const list = linkingSites_.List();
    const bool isLong = list != nullptr && list->RowCount() > kFewSites;
    siteFilter_->setVisible(isLong || !siteFilter_->text().isEmpty());
  };
  linkingSites_.OnRefreshed();
  return block;
}

void MainWindow::ShowCurrentLinkingSites() {
  const int k = form_.Sites.List4.SelectedRow() + 1;
  const bool exists = k >= 1 && k <= form_.Sites.ListCount();
  linkingSites_.Show(exists ? &form_.Sites.List1(k) : nullptr);
}

QWidget* MainWindow::BuildProgress() {
  auto* const box = new QGroupBox(ToUnicode(form_.Frame6.Caption), this);
  auto* const layout = new QGridLayout(box);
  QTableView* const queue =
      NewTable(form_.Lists.List2, queue_, {tr("Queued pages"), tr("No pages are queued."), {100}});
  queue->horizontalHeader()->hide();
  AddRowMenu(*queue, queue_, user_, OffersFor(0));
  layout->addWidget(queue, 0, 0, 1, 4);
  layout->setRowStretch(0, 1);
  const auto figure = [&](int row, int column, const QString& caption, std::size_t index) {
    auto* const value = new QLabel(box);
    bind_.BindLabel(form_.lblStats[index], *value);
    value->setAccessibleName(caption);
    layout->addWidget(new QLabel(caption, box), row, column);
    layout->addWidget(value, row, column + 1);
  };
  layout->addWidget(new QLabel(tr("<b>Scan Statistics</b>"), box), 1, 0, 1, 2);
  layout->addWidget(new QLabel(tr("<b>Historically</b>"), box), 1, 2, 1, 2);
  figure(2, 0, "Pages Scanned:", 0);
  figure(3, 0, "Pages Found:", 1);
  figure(4, 0, "Links Found:", 2);
  figure(2, 2, "Pages Scanned:", 3);
  figure(3, 2, "Links Found:", 4);
  figure(5, 0, "Linking Sites Scanned:", 5);
  figure(5, 2, "Main Sites Scanned:", 6);
  auto* const progress = new QProgressBar(box);
  progress->setAccessibleName(tr("Progress of the page"));
  bind_.Bind(form_.pb1, *progress);
  scanLine_ = new ScanLine(form_, box);
  auto* const far = new QHBoxLayout;
  far->addWidget(progress, 1);
  far->addWidget(scanLine_);
  layout->addLayout(far, 6, 0, 1, 4);
  ahead_ = new AheadLine(form_, box);
  layout->addWidget(ahead_, 7, 0, 1, 4);
  notice_ = new QLabel(box);
  notice_->setObjectName("scanNotice");
  notice_->setWordWrap(true);
  notice_->hide();
  layout->addWidget(notice_, 8, 0, 1, 4);
  form_.OnNotice = [this](std::string_view text) {
    // One scan has two things to tell at most; the second must not replace the first.
    const bool second = form_.State.WorkFilesUnwritten && form_.State.AuthoritiesMissing;
    notice_->setText(second ? notice_->text() + '\n' + ToUnicode(text) : ToUnicode(text));
    notice_->show();
  };
  bind_.BindState(form_.Frame6, *box);
  return box;
}

}  // namespace requite
