// SPDX-License-Identifier: MIT
// Lays out the options in two columns.
#include "qt/window/further/options_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QVBoxLayout>

#include "qt/services/code_page.h"
#include "qt/window/controls/answer_line.h"
#include "qt/window/look/form_parts.h"

namespace requite {
namespace {

constexpr int kGroupGap = 4;
constexpr int kLongestLine = 60;  // characters of a check box's text

}  // namespace

OptionsView::OptionsView(frmOptions& options, const WindowSurroundings& surroundings)
    : FurtherWindow(options, surroundings), options_(options) {
  auto* const layout = new QVBoxLayout(this);
  auto* const columns = new QHBoxLayout;
  columns->setSpacing(24);
  layout->addLayout(columns, 1);
  columns->addWidget(BuildLeft());
  columns->addWidget(BuildRight(), 1);
  auto* const status = new QStatusBar(this);
  status->setSizeGripEnabled(false);
  new AnswerLine(*status);  // owned by the bar
  layout->addWidget(status);
  // The status bar has room enough around its text, and a small screen has none to spare.
  QMargins margins = layout->contentsMargins();
  margins.setBottom(0);
  layout->setContentsMargins(margins);
  layout->setSpacing(0);
  RestoreSize({900, 500});
}

QWidget* OptionsView::BuildLeft() {
  auto* const column = new QWidget(this);
  auto* const layout = new QVBoxLayout(column);
  layout->setContentsMargins(0, 0, 0, 0);
  const auto heading = [&](const TextBox& label) {
    if (layout->count() > 0) layout->addSpacing(kGroupGap);
    layout->addWidget(NewHeading(label, column));
  };
  heading(options_.Label6);
  layout->addWidget(NewCheck(options_.chkAuto2, options_.Label9, 'e'));
  layout->addLayout(BuildPageLimit());
  heading(options_.Label18);
  layout->addWidget(NewCheck(options_.chkRedirect, options_.Label19, 'r'));
  heading(options_.Label5_4);
  layout->addWidget(NewCheck(options_.chkAudioEmail, 'L'));
  layout->addWidget(NewCheck(options_.chkAudioNext, 'N'));
  layout->addWidget(NewCheck(options_.chkAudioFinished, 'F'));
  heading(options_.Label20);
  layout->addLayout(BuildTimeout());
  heading(options_.Label5_3);
  layout->addWidget(NewCheck(options_.chkLog, 'g'));
  layout->addWidget(NewCheck(options_.chkHistory, 'K'));
  heading(options_.Label5_5);
  layout->addWidget(NewCheck(options_.chkUpdate, 'u'));
  layout->addLayout(BuildSitesAtATime());
  layout->addStretch();
  return column;
}

QLayout* OptionsView::BuildPageLimit() {
  auto* const row = new QHBoxLayout;
  row->addWidget(NewCheck(options_.chkAuto, options_.Label7, 'p'));
  auto* const limit = new QComboBox(this);
  bind_.BindDropDownList(options_.cmbAdvance, *limit);
  limit->setToolTip(ToUnicode(options_.Label7.ToolTip));
  limit->setAccessibleName(tr("Pages to scan before the next site"));
  row->addWidget(limit);
  row->addStretch();
  return row;
}

QLayout* OptionsView::BuildTimeout() {
  // The label's one text has a gap for the box.
  const QStringList words = ToUnicode(options_.Label21.Text()).split(' ', Qt::SkipEmptyParts);
  auto* const row = new QHBoxLayout;
  auto* const box = new QLineEdit(this);
  bind_.Bind(options_.txtTimeout, *box);
  box->setMaximumWidth(80);
  box->setAccessibleName(tr("Seconds until a page counts as silent"));
  auto* const before = new QLabel(WithMnemonic(words.first(), 't'), this);
  before->setBuddy(box);
  auto* const behind = new QLabel(words.last(), this);
  for (QWidget* each : std::initializer_list<QWidget*>{before, box, behind}) {
    each->setToolTip(ToUnicode(options_.Label21.ToolTip));
    row->addWidget(each);
  }
  row->addStretch();
  return row;
}

QLayout* OptionsView::BuildSitesAtATime() {
  auto* const row = new QHBoxLayout;
  auto* const box = new QLineEdit(this);
  bind_.Bind(options_.SitesAtATime, *box);
  box->setMaximumWidth(80);
  row->addWidget(NewBoxLabel(options_.lblSitesAtATime, 'S', *box, this));
  row->addWidget(box);
  row->addStretch();
  return row;
}

QWidget* OptionsView::BuildRight() {
  auto* const column = new QWidget(this);
  auto* const layout = new QVBoxLayout(column);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(BuildFileTypes());
  auto* const list = NewTable(options_.List1, tr("No file types."), tr("File types"));
  list->setMinimumHeight(140);
  list->horizontalHeader()->hide();
  layout->addWidget(list, 1);
  layout->addSpacing(kGroupGap);
  layout->addWidget(NewHeading(options_.Label5_2, column));
  auto* const about = new QLabel(ToUnicode(options_.Label2.Text()), column);
  about->setObjectName("Label2");
  about->setToolTip(ToUnicode(options_.Label2.ToolTip));
  about->setWordWrap(true);
  layout->addWidget(about);
  layout->addWidget(NewButton(options_.Command1, tr("&Open Global Rules Editor")), 0, Qt::AlignLeft);
  layout->addSpacing(kGroupGap);
  layout->addWidget(NewHeading(options_.lblSecure, column));
  layout->addWidget(NewCheck(options_.chkSecure, 'H'));
  layout->addLayout(BuildVisitorName());
  return column;
}

QLayout* OptionsView::BuildFileTypes() {
  auto* const block = new QVBoxLayout;
  // The box is only wide enough for its mark; the heading says what it is for.
  auto* const title = new QHBoxLayout;
  QCheckBox* const use = NewCheck(options_.chkFileTypes, {});
  use->setText({});
  QLabel* const heading = NewHeading(options_.Label5_1, this);
  use->setAccessibleName(tr("Use the list of webpage file types"));
  title->addWidget(use);
  title->addWidget(heading, 1);
  block->addLayout(title);
  auto* const row = new QHBoxLayout;
  auto* const entry = new QLineEdit(this);
  bind_.Bind(options_.txtDomain, *entry);
  entry->setMinimumWidth(160);
  entry->setAccessibleName(tr("New file type"));
  row->addWidget(entry, 1);
  row->addWidget(NewButton(options_.cmdAdd2, tr("&Add")));
  row->addWidget(NewButton(options_.cmdDelete, tr("&Delete")));
  block->addLayout(row);
  return block;
}

QLayout* OptionsView::BuildVisitorName() {
  auto* const row = new QHBoxLayout;
  auto* const name = new QLineEdit(this);
  bind_.Bind(options_.txtUserAgent, *name);
  row->addWidget(NewBoxLabel(options_.lblUserAgent, 'm', *name, this));
  row->addWidget(name, 1);
  return row;
}

QCheckBox* OptionsView::NewCheck(CheckBox& control, QChar letter) {
  auto* const box = new QCheckBox(this);
  bind_.Bind(control, *box);
  box->setAccessibleName(box->text());
  box->setText(WithMnemonic(InLines(box->text(), kLongestLine), letter));
  return box;
}

QCheckBox* OptionsView::NewCheck(CheckBox& control, const TextBox& label, QChar letter) {
  QCheckBox* const box = NewCheck(control, letter);
  box->setAccessibleName(ToUnicode(label.Text()));
  box->setText(WithMnemonic(InLines(ToUnicode(label.Text()), kLongestLine), letter));
  box->setToolTip(ToUnicode(label.ToolTip));
  return box;
}

}  // namespace requite
