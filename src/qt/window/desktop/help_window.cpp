// SPDX-License-Identifier: MIT
// One window with the pages and three buttons to move between them.
#include "qt/window/desktop/help_window.h"

#include <QApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "qt/window/look/product_icon.h"
#include "qt/window/look/screen_fit.h"

namespace requite {
namespace {

constexpr QSize kSize(760, 560);
constexpr auto kName = "helpPages";

QWidget* OpenOne() {
  for (QWidget* each : QApplication::topLevelWidgets()) {
    if (each->objectName() == kName) return each;
  }
  return nullptr;
}

QWidget* NewWindow(const QUrl& first) {
  auto* const window = new QWidget;
  window->setObjectName(kName);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWindowIcon(ProductIcon());
  const auto button = [window](const QString& caption) {
    auto* const made = new QPushButton(caption, window);
    made->setAutoDefault(false);
    return made;
  };
  QPushButton* const contents = button(QTextBrowser::tr("&Contents"));
  QPushButton* const back = button(QTextBrowser::tr("&Back"));
  QPushButton* const forward = button(QTextBrowser::tr("&Forward"));
  auto* const pages = new QTextBrowser(window);
  pages->setAccessibleName(QTextBrowser::tr("Help page"));
  QObject::connect(contents, &QPushButton::clicked, pages, [pages, first] { pages->setSource(first); });
  QObject::connect(back, &QPushButton::clicked, pages, &QTextBrowser::backward);
  QObject::connect(forward, &QPushButton::clicked, pages, &QTextBrowser::forward);
  QObject::connect(pages, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
  QObject::connect(pages, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
  QObject::connect(pages, &QTextBrowser::sourceChanged, window,
                   [window, pages] { window->setWindowTitle(pages->documentTitle()); });
  QObject::connect(new QShortcut(Qt::Key_Escape, window), &QShortcut::activated, window, &QWidget::close);
  auto* const row = new QHBoxLayout;
  for (QPushButton* each : {contents, back, forward}) row->addWidget(each);
  row->addStretch();
  auto* const layout = new QVBoxLayout(window);
  layout->addLayout(row);
  layout->addWidget(pages, 1);
  pages->setSource(first);
  pages->setFocus();
  window->resize(kSize);
  FitToScreen(*window, *window->screen());
  return window;
}

}  // namespace

bool ShowHelpPages(const QString& file) {
  const QFileInfo help(file);
  const QFileInfo first(help.absolutePath() + "/help/index.html");
  if (help.suffix().compare("chm", Qt::CaseInsensitive) != 0 || !first.isFile()) return false;
  QWidget* window = OpenOne();
  if (window == nullptr) window = NewWindow(QUrl::fromLocalFile(first.absoluteFilePath()));
  window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
  window->show();
  window->raise();
  window->activateWindow();
  return true;
}

}  // namespace requite
