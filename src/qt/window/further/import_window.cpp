// SPDX-License-Identifier: MIT
// Lays out the import windows: both tabs are in one column, and the tab strip shows and hides their frames.
#include "qt/window/further/import_window.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <algorithm>

#include "qt/services/code_page.h"
#include "qt/window/controls/answer_line.h"
#include "qt/window/look/form_parts.h"

namespace requite {
namespace {

constexpr int kLongestLine = 86;  // characters of an option's text

void NameOption(QRadioButton& option, QChar mnemonic) {
  option.setAccessibleName(option.text());
  option.setText(WithMnemonic(InLines(option.text(), kLongestLine), mnemonic));
}

}  // namespace

ImportView::ImportView(Form4& form, const WindowSurroundings& surroundings)
    : FurtherWindow(form, surroundings), form_(form) {
  auto* const layout = new QVBoxLayout(this);
  auto* const tabs = new QTabBar(this);
  tabs->setExpanding(false);
  tabs->setAccessibleName(tr("What to do"));
  layout->addWidget(tabs);
  layout->addWidget(BuildGetLinks(), 1);
  layout->addWidget(BuildFile());
  layout->addWidget(BuildPostLinks(), 1);
  auto* const status = new QStatusBar(this);
  bind_.Bind(form_.StatusBar1, *status);
  for (int panel = 2; panel <= StatusBar::kPanels; ++panel) {
    auto* const unused = status->findChild<QLabel*>(QString("StatusBar1(%1)").arg(panel));
    if (unused != nullptr) unused->parentWidget()->hide();  // its place leaves room for the others
  }
  new AnswerLine(*status);  // owned by the bar
  layout->addWidget(status);
  bind_.Bind(form_.TabStrip1, *tabs, {tr("Get Lin&ks"), tr("P&ost Links")}, [](int) {});
  RestoreSize({680, 640});
}

QLineEdit* ImportView::NewLine(TextBox& control, const QString& accessibleName) {
  auto* const line = new QLineEdit(this);
  bind_.Bind(control, *line);
  line->setAccessibleName(accessibleName);
  return line;
}

QComboBox* ImportView::NewCombo(ComboBox& control, const QString& accessibleName) {
  auto* const combo = new QComboBox(this);
  bind_.Bind(control, *combo);
  combo->setAccessibleName(accessibleName);
  return combo;
}

QWidget* ImportView::BuildGetLinks() {
  auto* const box = new QGroupBox(ToUnicode(form_.Frame1.Caption), this);
  auto* const layout = new QGridLayout(box);
  BuildSources(*layout, box);
  layout->addWidget(NewButton(form_.Command1, tr("&Get Links")), 5, 0, 1, 2, Qt::AlignRight);

  QTableView* const links =
      NewTable(form_.ListView1, tr("The links that are found appear here."), tr("Results"));
  links->setSelectionMode(QAbstractItemView::ExtendedSelection);
  AddMenu(*links, 0);
  auto* const caption = new QLabel(
      tr("&Results (Control + Click or Shift + Click to Select Multiple, Right Click to Select All):"), box);
  caption->setWordWrap(true);
  caption->setBuddy(links);
  layout->addWidget(caption, 6, 0, 1, 2);
  layout->addWidget(links, 7, 0, 1, 2);
  layout->addWidget(NewButton(form_.cmdAdd, tr("&Add Selected Links to My Link List")), 8, 0, 1, 2,
                    Qt::AlignRight);
  layout->setColumnStretch(1, 1);
  layout->setRowStretch(7, 1);
  bind_.BindState(form_.Frame1, *box);
  return box;
}

/// Each source with its URL indented below it.
void ImportView::BuildSources(QGridLayout& layout, QWidget* box) {
  // Made in the order in which Tab visits them.
  auto* const page = new QRadioButton(box);
  QLineEdit* const pageUrl = NewLine(form_.Text1, tr("URL of my link page"));
  auto* const script = new QRadioButton(box);
  bind_.Bind(form_.Option1, {page, script});
  NameOption(*page, 'S');
  NameOption(*script, 'v');
  const auto line = [&](int row, const QString& caption, QWidget* widget) {
    auto* const label = new QLabel(caption, box);
    label->setBuddy(widget);
    label->setIndent(20);
    layout.addWidget(label, row, 0);
    layout.addWidget(widget, row, 1);
  };
  layout.addWidget(page, 0, 0, 1, 2);
  line(1, tr("&URL:"), pageUrl);
  layout.addWidget(script, 2, 0, 1, 2);
  line(3, tr("UR&L:"), NewLine(form_.Text2, tr("URL of my script")));
  line(4, tr("&Delimiter:"), NewCombo(form_.Combo1, tr("Delimiter")));
}

QWidget* ImportView::BuildFile() {
  auto* const box = new QGroupBox(ToUnicode(form_.Frame3.Caption), this);
  auto* const layout = new QHBoxLayout(box);
  QLabel* const words = NewLabel(form_.Label12);
  words->setWordWrap(true);
  layout->addWidget(words, 1);
  layout->addWidget(NewButton(form_.Command4, tr("&Import")));
  bind_.BindState(form_.Frame3, *box);
  return box;
}

QWidget* ImportView::BuildPostLinks() {
  auto* const page = new QWidget(this);
  auto* const layout = new QGridLayout(page);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* const single = new QRadioButton(page);
  QLineEdit* const url = NewLine(form_.txtPost, tr("Script URL"));
  auto* const multiple = new QRadioButton(page);
  bind_.Bind(form_.optScript, {single, multiple});
  NameOption(*single, 'U');
  NameOption(*multiple, 'd');
  layout->addWidget(single, 0, 0, 1, 4);
  layout->addWidget(url, 1, 0, 1, 4);
  layout->addWidget(multiple, 2, 0, 1, 4);
  layout->addWidget(NewCombo(form_.cmbSites, tr("Main Site of the script URL")), 3, 0);
  layout->addWidget(NewLine(form_.txtPost2, tr("Script URL of the Main Site")), 3, 1);
  layout->addWidget(NewButton(form_.cmdScriptAdd, tr("&Add")), 3, 2);
  layout->addWidget(NewButton(form_.cmdScriptDel, tr("D&el")), 3, 3);
  QTableView* const urls = NewTable(form_.lstMulti, tr("No script URLs yet."), tr("Script URLs"), {1, 2});
  AddMenu(*urls, 1);
  layout->addWidget(urls, 4, 0, 1, 4);
  auto* const commands = new QHBoxLayout;
  commands->addWidget(NewButton(form_.cmdPost, tr("&Post Links Now")));
  commands->addWidget(NewButton(form_.cmdVariables, tr("&View URL Variables")));
  commands->addWidget(NewButton(form_.cmdExample, tr("View E&xample")));
  commands->addStretch();
  layout->addLayout(commands, 5, 0, 1, 4);
  layout->setColumnStretch(1, 1);
  bind_.BindState(form_.framePost, *page);
  return page;
}

}  // namespace requite
