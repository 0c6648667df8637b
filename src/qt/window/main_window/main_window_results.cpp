// SPDX-License-Identifier: MIT
// The right side of the main window: the tabs of the link results.
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include "qt/services/code_page.h"
#include "qt/web/open_outside_button.h"
#include "qt/web/web_view_holder.h"
#include "qt/window/lists/new_rows.h"
#include "qt/window/look/glyphs.h"
#include "qt/window/main_window/main_window.h"

namespace requite {
QWidget* MainWindow::BuildResults() {
  auto* const box = new QGroupBox(ToUnicode(form_.Frame2.Caption), this);
  auto* const layout = new QVBoxLayout(box);
  bars_ = new QVBoxLayout;
  layout->addLayout(bars_);
  result_ = new ResultBar(form_, user_, box);
  result_->OnShowMissing = [this] { ShowMissing(); };
  bars_->addWidget(result_);
  form_.OnScanBegins = [this] { result_->hide(); };
  form_.OnScanEnds = [this] { result_->Tell(); };
  httpsOnly_ = new HttpsOnlyBar(form_, user_, box);
  bars_->addWidget(httpsOnly_);
  form_.OnHttpsOnly = [this] { httpsOnly_->Offer(); };
  FollowProject();  // makes its bars here, so that Tab reaches all bars before the tabs below them
  auto* const tabs = new QTabBar(box);
  tabs->setExpanding(false);
  tabs->setUsesScrollButtons(true);
  tabs->setAccessibleName(ToUnicode(form_.Frame2.Caption));
  layout->addWidget(tabs);
  auto* const pages = new QStackedWidget(box);
  for (QWidget* page :
       {BuildLinksPage(), BuildWebPage(), BuildPagesPage(), BuildReportsPage(), BuildPostPage()}) {
    pages->addWidget(page);
  }
  layout->addWidget(pages, 1);
  bind_.Bind(form_.TabStrip1, *tabs, {"&Links", "&Web", "Pa&ges", "Report&s", "P&ost"},
             [pages](int number) { pages->setCurrentIndex(number - 1); });
  bind_.BindState(form_.Frame2, *box);
  return box;
}

QWidget* MainWindow::BuildLinksPage() {
  links_ = new QSplitter(Qt::Vertical, this);
  auto* const above = new QWidget(links_);
  auto* const aboveLayout = new QVBoxLayout(above);
  aboveLayout->setContentsMargins(0, 0, 0, 0);
  QTableView* const results =
      NewTable(form_.Sites.List3, results_,
               {tr("Link results"),
                tr("No results yet. Press Start Scan (F5) to look for links back; Esc stops."),
                {4, 7, 6, 1, 8}});
  firstSteps_ = new FirstSteps(form_, user_, *results);
  FollowNewRows(*results, results_, [this] { return form_.State.Scanning; });
  resultFilter_ = new ResultFilter(form_, results_, *results, above);
  aboveLayout->addWidget(resultFilter_);
  aboveLayout->addWidget(results, 1);
  links_->addWidget(above);
  auto* const below = new QWidget(links_);
  auto* const layout = new QVBoxLayout(below);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* const caption = new QLabel(below);
  bind_.BindLabel(form_.lblErr, *caption);
  layout->addWidget(caption);
  QTableView* const errors =
      NewTable(form_.Lists.lstErr, errors_, {tr("Errors and warnings"), tr("No errors."), {1, 2}});
  AddRowMenu(*errors, errors_, user_, OffersFor(1));
  FollowNewRows(*errors, errors_, [this] { return form_.State.Scanning; });
  layout->addWidget(errors, 1);
  links_->addWidget(below);
  links_->setSizes({420, 140});
  links_->setChildrenCollapsible(false);
  return links_;
}

void MainWindow::ShowMissing() {
  user_.Run([this] { form_.TabStrip1.Select(static_cast<int>(ResultTab::Links)); });
  resultFilter_->ShowOnly(SiteOutcome::Missing);
}

QWidget* MainWindow::BuildWebPage() {
  auto* const page = new QWidget(this);
  auto* const layout = new QVBoxLayout(page);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* const bar = new QHBoxLayout;
  // Tool buttons are only as wide as their text, which leaves room for the address.
  const auto add = [&](Button& control) {
    auto* const button = new QToolButton(page);
    button->setFocusPolicy(Qt::StrongFocus);
    bar->addWidget(button);
    bind_.Bind(control, *button);
  };
  for (Button* control : {&form_.cmdBack, &form_.cmdForward, &form_.cmdWebStop, &form_.cmdRefresh}) {
    add(*control);
  }
  auto* const address = new QLineEdit(page);
  address->setAccessibleName(tr("Address"));
  bind_.Bind(form_.txtURL, *address);
  bar->addWidget(address, 1);
  add(form_.cmdGo);
  auto* const outside = new OpenOutsideButton(*address, form_.Platform.Shell, guard_, page);
  outside->setIcon(GlyphIcon(Glyph::Site));
  bar->addWidget(outside);
  layout->addLayout(bar);
  layout->addWidget(new WebViewHolder(form_.WebBrowser1, form_.Platform.Internet, guard_, page), 1);
  return page;
}

QWidget* MainWindow::BuildReportsPage() {
  auto* const page = new QWidget(this);
  auto* const layout = new QVBoxLayout(page);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* const bar = new QHBoxLayout;
  for (Button* control : {&form_.Command8, &form_.Command8a}) {
    auto* const button = new QPushButton(page);
    bar->addWidget(button);
    bind_.Bind(*control, *button);
  }
  auto* const changes = new QPushButton(tr("&Changes..."), page);
  changes->setObjectName("showChanges");
  changes->setToolTip(tr("Changes since the last scan: who stopped linking back, and who links back now"));
  connect(changes, &QPushButton::clicked, this, [this] { ShowChanges(); });
  bar->addWidget(changes);
  bar->addStretch();
  layout->addLayout(bar);
  auto* const view = new WebViewHolder(form_.WebBrowser2, form_.Platform.Internet, guard_, page);
  view->SetEmptyNotice(tr("There is no report yet."),
                       tr("A report is written here when a scan ends: how many sites link back, and from "
                          "which pages."));
  auto* const beside = new QSplitter(Qt::Horizontal, page);
  reportChart_ = new ReportChart(form_, beside);
  beside->addWidget(view);
  beside->addWidget(reportChart_);
  beside->setStretchFactor(0, 1);
  beside->setChildrenCollapsible(false);
  layout->addWidget(beside, 1);
  reportTools_ = new ReportTools(form_, *view, user_, *answers_, page);
  layout->insertWidget(1, reportTools_, 0, Qt::AlignLeft);
  return page;
}

}  // namespace requite
