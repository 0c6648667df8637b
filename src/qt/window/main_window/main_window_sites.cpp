// SPDX-License-Identifier: MIT
// The left side of the main window: the site lists, the queue and the statistics of a scan.
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>
#include <initializer_list>

#include "qt/services/code_page.h"
#include "qt/window/controls/entry_line.h"
#include "qt/window/controls/steady_place.h"
#include "qt/window/lists/column_fit.h"
#include "qt/window/lists/new_rows.h"
#include "qt/window/main_window/main_window.h"

namespace requite {
namespace {

constexpr int kProgressMargin = 16;
constexpr int kLowestList = 44;  // keeps the window within a screen of 600 lines, frame and all
constexpr int kGap = 4;

constexpr std::size_t kFewSites = 20;  // are found at a glance

struct Command {
  Button* Control;
  const char* Text;
};

/// The box and its buttons in one line. Tool buttons are only as wide as their text, which leaves room for
/// the address.
QLayout* LineOf(Binder& bind, QLineEdit* entry, std::initializer_list<Command> commands) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(kGap);
  row->addWidget(entry, 1);
  for (const Command& command : commands) {
    auto* const button = new QToolButton(entry->parentWidget());
    button->setFocusPolicy(Qt::StrongFocus);
    row->addWidget(button);
    bind.Bind(*command.Control, *button, command.Text);
  }
  return row;
}

}  // namespace

QTableView* MainWindow::NewTable(ListView& list, ListTable& table, const ListLook& look) {
  auto* const view = new QTableView(this);
  table.Show(&list);
  WireTable(*view, table, user_, look.EmptyText);
  FitColumns(*view, look.Shares);
  view->setAccessibleName(look.Name);
  view->setMinimumHeight(kLowestList);
  bind_.BindState(list, *view);
  return view;
}

QWidget* MainWindow::BuildWebsites() {
  auto* const box = new QGroupBox(ToUnicode(form_.Frame1.Caption), this);
  auto* const layout = new QVBoxLayout(box);
  layout->addWidget(BuildMainSites(), 1);
  layout->addWidget(BuildLinkingSites(), 3);
  bind_.BindState(form_.Frame1, *box);
  return box;
}

QWidget* MainWindow::BuildMainSites() {
  auto* const block = new QWidget(this);
  auto* const layout = new QVBoxLayout(block);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* const entry = new EntryLine(block);
  entry->setPlaceholderText(tr("Your own site"));
  entry->setToolTip(tr("Your own site, such as www.mysite.example"));
  entry->setAccessibleName(tr("New Main Site"));
  bind_.Bind(form_.txtDomain, *entry);
  layout->addLayout(LineOf(bind_, entry,
                           {{&form_.cmdAdd2, "&Add"},
                            {&form_.cmdDelete, "&Del"},
                            {&form_.cmdEditMain, "&Edit"},
                            {&form_.cmdImport2, "I&mport"}}));
  QTableView* const list =
      NewTable(form_.Sites.List4, mainSites_,
               {tr("Main Sites"), tr("No Main Sites yet. Type your own site above and press Add."), {}});
  list->horizontalHeader()->hide();
  AddRowMenu(*list, mainSites_, user_, OffersFor(0));
  ShowNewRows(*list, mainSites_);
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
  entry->setPlaceholderText(tr("A partner's site"));
  entry->setToolTip(tr("A site that ought to link back"));
  entry->setAccessibleName(tr("New Linking Site"));
  bind_.Bind(form_.Text1, *entry);
  layout->addLayout(LineOf(bind_, entry,
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
  FitColumns(*view, {6, 1, 2, 2, 2});
  ShowNewRows(*view, linkingSites_);
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
  ShowCurrentLinkingSites();
  return block;
}

void MainWindow::ShowCurrentLinkingSites() {
  const int k = form_.Sites.List4.SelectedRow() + 1;
  const bool exists = k >= 1 && k <= form_.Sites.ListCount();
  linkingSites_.Show(exists ? &form_.Sites.List1(k) : nullptr);
}

/// Narrow enough for large letters on a small screen.
QLayout* MainWindow::BuildFigures(QWidget* box) {
  auto* const grid = new QGridLayout;
  grid->setVerticalSpacing(1);
  grid->setHorizontalSpacing(kGap);
  const auto heading = [&](int row, const QString& text) {
    grid->addWidget(new QLabel("<b>" + text + "</b>", box), row, 0, 1, 2);
  };
  const auto figure = [&](int row, int column, const QString& caption, std::size_t index) {
    auto* const value = new QLabel(box);
    bind_.BindLabel(form_.lblStats[index], *value);
    value->setAccessibleName(caption);
    grid->addWidget(new QLabel(caption, box), row, column);
    grid->addWidget(new SteadyPlace(value, box), row, column + 1);
  };
  heading(0, tr("Scan Statistics"));
  figure(1, 0, "Pages Scanned:", 0);
  figure(2, 0, "Pages Found:", 1);
  figure(3, 0, "Links Found:", 2);
  figure(1, 2, "Linking Sites Scanned:", 5);
  figure(2, 2, "Main Sites Scanned:", 6);
  heading(4, tr("Historically"));
  figure(5, 0, "Pages Scanned:", 3);
  figure(5, 2, "Links Found:", 4);
  grid->addWidget(queueFold_->Button(), 3, 2, 2, 2, Qt::AlignRight | Qt::AlignVCenter);
  for (const int column : {1, 3}) grid->setColumnStretch(column, 1);
  return grid;
}

QWidget* MainWindow::BuildProgress() {
  auto* const box = new QGroupBox(ToUnicode(form_.Frame6.Caption), this);
  auto* const layout = new QVBoxLayout(box);
  layout->setSpacing(kGap);
  QTableView* const queue =
      NewTable(form_.Lists.List2, queue_, {tr("Queued pages"), tr("No pages are queued."), {}});
  queue->horizontalHeader()->hide();
  AddRowMenu(*queue, queue_, user_, OffersFor(0));
  queueFold_ = new QueueFold(*queue, *box, *left_);
  layout->addWidget(queueFold_, 1);
  layout->addLayout(BuildFigures(box));
  auto* const progress = new QProgressBar(box);
  progress->setAccessibleName(tr("Progress of the page"));
  bind_.Bind(form_.pb1, *progress);
  scanLine_ = new ScanLine(form_, box);
  // Only the number must fit: in a scan the line beside it needs the room.
  progress->setMinimumWidth(progress->fontMetrics().horizontalAdvance("100%") + kProgressMargin);
  auto* const progressRow = new QHBoxLayout;
  progressRow->addWidget(progress, 1);
  progressRow->addWidget(scanLine_);
  layout->addLayout(progressRow);
  ahead_ = new AheadLine(form_, box);
  layout->addWidget(ahead_);
  notice_ = new QLabel(box);
  notice_->setObjectName("scanNotice");
  notice_->setWordWrap(true);
  notice_->hide();
  layout->addWidget(notice_);
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
