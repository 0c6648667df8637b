// SPDX-License-Identifier: MIT
// The tabs of the Page Builder and of posting.
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>

#include "qt/services/code_page.h"
#include "qt/window/lists/new_rows.h"
#include "qt/window/main_window/main_window.h"

namespace requite {
namespace {

QLabel* NewLabel(Binder& bind, TextBox& control, QWidget* parent) {
  auto* const label = new QLabel(parent);
  bind.BindLabel(control, *label);
  return label;
}

QPushButton* NewButton(Binder& bind, Button& control, QWidget* parent) {
  auto* const button = new QPushButton(parent);
  bind.Bind(control, *button);
  return button;
}

}  // namespace

QWidget* MainWindow::BuildPagesPage() {
  auto* const box = new QGroupBox(ToUnicode(form_.Frame5.Caption), this);
  auto* const layout = new QGridLayout(box);
  const std::pair<TextBox*, TextBox*> texts[] = {{&form_.Label11, &form_.Sites.txtHTML1},
                                                 {&form_.Label12, &form_.Sites.txtHTML2},
                                                 {&form_.Label10, &form_.Sites.txtHTML3}};
  int row = 0;
  for (const auto& [caption, text] : texts) {
    auto* const edit = new QPlainTextEdit(box);
    edit->setTabChangesFocus(true);
    edit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    bind_.Bind(*text, *edit);
    QLabel* const label = NewLabel(bind_, *caption, box);
    label->setBuddy(edit);
    layout->addWidget(label, row++, 0);
    layout->addWidget(edit, row++, 0);
  }
  auto* const options = new QVBoxLayout;
  options->addWidget(NewLabel(bind_, form_.Label13, box));
  auto* const all = new QRadioButton(box);
  auto* const one = new QRadioButton(box);
  bind_.Bind(form_.optAll, {all, one});
  auto* const site = new QComboBox(box);
  site->setAccessibleName(tr("Main Site to generate links for"));
  bind_.Bind(form_.Combo3, *site);
  auto* const newWindow = new QCheckBox(box);
  bind_.Bind(form_.chkNewWin, *newWindow);
  auto* const bullets = new QCheckBox(box);
  bind_.Bind(form_.chkBullet, *bullets);
  for (QWidget* each : std::initializer_list<QWidget*>{all, one, site, newWindow, bullets})
    options->addWidget(each);
  options->addStretch();
  options->addWidget(NewButton(bind_, form_.Command5, box));
  options->addWidget(NewButton(bind_, form_.Command6, box));
  pageTools_ = new PageTools(form_, user_, *answers_, box);
  options->addWidget(pageTools_);
  layout->addLayout(options, 0, 1, row, 1);
  layout->setColumnStretch(0, 1);
  bind_.BindState(form_.Frame5, *box);
  return box;
}

QWidget* MainWindow::BuildPostPage() {
  auto* const page = new QWidget(this);
  auto* const layout = new QGridLayout(page);
  // Made in the order in which Tab visits them.
  auto* const single = new QRadioButton(page);
  auto* const url = new QLineEdit(page);
  auto* const multi = new QRadioButton(page);
  bind_.Bind(form_.optScript, {single, multi});
  url->setAccessibleName(tr("Script URL"));
  bind_.Bind(form_.Sites.txtPost, *url);
  auto* const site = new QComboBox(page);
  site->setAccessibleName(tr("Main Site of the script URL"));
  bind_.Bind(form_.cmbSites, *site);
  auto* const siteUrl = new QLineEdit(page);
  siteUrl->setAccessibleName(tr("Script URL of the Main Site"));
  bind_.Bind(form_.txtPost2, *siteUrl);
  layout->addWidget(single, 0, 0, 1, 4);
  layout->addWidget(url, 1, 0, 1, 4);
  layout->addWidget(multi, 2, 0, 1, 4);
  layout->addWidget(site, 3, 0);
  layout->addWidget(siteUrl, 3, 1);
  layout->addWidget(NewButton(bind_, form_.cmdScriptAdd, page), 3, 2);
  layout->addWidget(NewButton(bind_, form_.cmdScriptDel, page), 3, 3);
  QTableView* const list =
      NewTable(form_.Sites.lstMulti, scriptUrls_, {tr("Script URLs"), tr("No script URLs yet."), {1, 2}});
  AddRowMenu(*list, scriptUrls_, user_, OffersFor(1));
  ShowNewRows(*list, scriptUrls_);
  layout->addWidget(list, 4, 0, 1, 4);
  auto* const commands = new QHBoxLayout;
  for (Button* control : {&form_.cmdPost, &form_.cmdVariables, &form_.cmdExample}) {
    commands->addWidget(NewButton(bind_, *control, page));
  }
  commands->addStretch();
  layout->addLayout(commands, 5, 0, 1, 4);
  layout->setColumnStretch(1, 1);
  bind_.BindState(form_.framePost, *page);
  return page;
}

}  // namespace requite
