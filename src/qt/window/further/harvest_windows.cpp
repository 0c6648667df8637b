// SPDX-License-Identifier: MIT
// Lays out the windows of the harvesters.
#include "qt/window/further/harvest_windows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/services/code_page.h"
#include "qt/window/look/form_parts.h"

namespace requite {
namespace {

constexpr QRgb kGreyBackground = 0xFFE0E0E0;

}  // namespace

ExportView::ExportView(frmExport& window, const WindowSurroundings& surroundings)
    : FurtherWindow(window, surroundings) {
  auto* const delimiter = new QComboBox(this);
  delimiter->setPlaceholderText(ToUnicode(window.Combo1.Text()));
  bind_.BindDropDownList(window.Combo1, *delimiter);
  auto* const space = new QCheckBox(WithMnemonic(ToUnicode(window.Check2.Caption), 'P'), this);
  bind_.Bind(window.Check2, *space);
  auto* const empty = new QCheckBox(WithMnemonic(ToUnicode(window.Check1.Caption), 'D'), this);
  bind_.Bind(window.Check1, *empty);

  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(NewBoxLabel(window.Label1, 'O', *delimiter, this));
  layout->addWidget(delimiter);
  layout->addWidget(space);
  layout->addWidget(empty);
  layout->addWidget(NewButton(window.Command1, "&Export"), 0, Qt::AlignRight);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

HarvestView::HarvestView(Form3& window, const WindowSurroundings& surroundings)
    : FurtherWindow(window, surroundings) {
  auto* const status = new QLineEdit(this);
  bind_.Bind(window.Text1, *status);
  QPalette grey = status->palette();
  grey.setColor(QPalette::Base, QColor::fromRgb(kGreyBackground));
  grey.setColor(QPalette::Disabled, QPalette::Text, Qt::black);
  status->setPalette(grey);
  status->setAccessibleName(tr("State of the search"));

  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(status);
  RestoreSize({420, 60});
  bind_.BindState(window.Main, *this);
}

}  // namespace requite
