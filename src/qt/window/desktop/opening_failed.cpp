// SPDX-License-Identifier: MIT
// The box with the Copy button, and the way to the help's own window.
#include "qt/window/desktop/opening_failed.h"

#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

#include "qt/services/code_page.h"
#include "qt/window/desktop/help_window.h"
#include "shell/product.h"

namespace requite {
namespace {

/// An address may come from a remote page, so it must not decide the size of the box.
constexpr int kMostShown = 300;

}  // namespace

void ShowUnopened(const QString& what) {
  if (ShowHelpPages(what)) return;
  const QString shown = what.size() <= kMostShown ? what : what.left(kMostShown) + QChar(0x2026);
  auto* const box = new QMessageBox(
      QMessageBox::Warning, ToUnicode(product::kName),
      QCoreApplication::translate("ShowUnopened", "No program on this computer opened\n\n%1").arg(shown),
      QMessageBox::Ok, QApplication::activeWindow());
  box->setObjectName("unopened");
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setTextFormat(Qt::PlainText);
  box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  const QPushButton* const copy =
      box->addButton(QCoreApplication::translate("ShowUnopened", "&Copy"), QMessageBox::ActionRole);
  QObject::connect(copy, &QPushButton::clicked, box, [what] { QApplication::clipboard()->setText(what); });
  box->setModal(false);
  box->show();
}

}  // namespace requite
