// SPDX-License-Identifier: MIT
// Lays out an editor: the record's boxes, the staged rules, the entry of a rule, Save and Cancel.
#include "qt/window/further/editor_window.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

#include "qt/services/code_page.h"
#include "qt/window/look/form_parts.h"

namespace requite {
namespace {

constexpr char kFieldLetters[] = {'W', 'L', 'U', 'T', 'D'};
constexpr char kMainSiteLetter = 'M';

}  // namespace

EditorView::EditorView(Form2& editor, const WindowSurroundings& surroundings)
    : FurtherWindow(editor, surroundings), editor_(editor) {
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(BuildFields());
  layout->addWidget(NewHeading(editor.lblHeading, this));
  if (!editor.lblNote.Text().empty()) {
    auto* const note = new QLabel(ToUnicode(editor.lblNote.Text()), this);
    note->setWordWrap(true);
    layout->addWidget(note);
  }
  auto* const rules =
      NewTable(editor.ListView1, tr("No rules yet. Choose a type, enter a value, and press Add Rule."),
               ToUnicode(editor.lblHeading.Text()).remove(':'), {1, 1, 1, 2});
  AddMenu(*rules, -1);
  rules->setMinimumHeight(120);
  layout->addWidget(rules, 1);
  layout->addLayout(BuildRuleTypes());
  layout->addLayout(BuildValue());
  layout->addSpacing(8);
  layout->addLayout(BuildEnd());
  RestoreSize({680, editor.Kind.Fields.empty() ? 440 : 560});
}

QLayout* EditorView::BuildFields() {
  auto* const form = new QFormLayout;
  for (std::size_t i = 0; i < editor_.Kind.Fields.size(); ++i) {
    auto* const box = new QLineEdit(this);
    bind_.Bind(editor_.Text[i], *box);
    const char letter = editor_.Kind.OfLinkingSite ? kFieldLetters[i] : kMainSiteLetter;
    form->addRow(NewBoxLabel(editor_.FieldLabel[i], QChar(letter), *box, this), box);
    if (i == 0) box->setFocus();
  }
  return form;
}

QLayout* EditorView::BuildRuleTypes() {
  auto* const grid = new QGridLayout;
  auto* const group = new QButtonGroup(this);
  std::vector<QAbstractButton*> options;
  for (int i = 0; i < static_cast<int>(editor_.Option1.Captions.size()); ++i) {
    auto* const option = new QRadioButton(this);
    group->addButton(option);
    grid->addWidget(option, i / 2, i % 2);
    options.push_back(option);
  }
  bind_.Bind(editor_.Option1, options);
  return grid;
}

QLayout* EditorView::BuildValue() {
  auto* const row = new QHBoxLayout;
  auto* const value = new QLineEdit(this);
  bind_.Bind(editor_.Text6, *value);
  row->addWidget(NewBoxLabel(editor_.lblValue, 'V', *value, this));
  row->addWidget(value, 1);
  row->addWidget(NewButton(editor_.Command1, tr("&Add Rule")));
  row->addWidget(NewButton(editor_.Command2, tr("Delete &Rule")));
  if (editor_.Kind.Fields.empty()) value->setFocus();
  return row;
}

QLayout* EditorView::BuildEnd() {
  auto* const row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(NewButton(editor_.cmdSave, tr("&Save")));
  row->addWidget(NewButton(editor_.Command3, tr("&Cancel")));
  return row;
}

}  // namespace requite
