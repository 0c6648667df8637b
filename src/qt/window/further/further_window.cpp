// SPDX-License-Identifier: MIT
// What all windows but the main one have in common on screen.
#include "qt/window/further/further_window.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QShortcut>
#include <QTableView>

#include "qt/services/code_page.h"
#include "qt/window/lists/column_fit.h"
#include "qt/window/lists/new_rows.h"
#include "qt/window/lists/row_menu.h"
#include "qt/window/look/screen_fit.h"

namespace requite {
namespace {

constexpr int kLowestList = 44;

QString GeometryKey(const ProgramWindow& window) {
  return QString::fromStdString(window.Name()) + "/geometry";
}

}  // namespace

FurtherWindow::FurtherWindow(ProgramWindow& window, const WindowSurroundings& surroundings)
    : QWidget(surroundings.Owner, Qt::Window),
      window_(window),
      surroundings_(surroundings),
      bind_(surroundings.Refresh, surroundings.User) {
  setObjectName(QString::fromStdString(window.Name()));
  setWindowTitle(ToUnicode(window.Main.Title()));
  // A shortcut, because a web page would take the key.
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
}

FurtherWindow::~FurtherWindow() {
  QSettings layout("requite", "window");
  layout.setValue(GeometryKey(window_), saveGeometry());
  SaveColumns(*this, layout);
}

void FurtherWindow::RestoreSize(QSize first) {
  const QSettings layout("requite", "window");
  if (!restoreGeometry(layout.value(GeometryKey(window_)).toByteArray())) {
    resize(first);
    move(surroundings_.MainWindow.frameGeometry().center() - rect().center());
  }
  FitToScreen(*this, *surroundings_.MainWindow.screen());
  RestoreColumns(*this, layout);
}

void FurtherWindow::closeEvent(QCloseEvent* event) {
  surroundings_.User.Run([this] { window_.Close(); });
  event->accept();
}

QLabel* FurtherWindow::NewLabel(TextBox& control, QWidget* buddy) {
  auto* const label = new QLabel(this);
  label->setBuddy(buddy);
  bind_.BindLabel(control, *label);
  return label;
}

QPushButton* FurtherWindow::NewButton(Button& control, const QString& mnemonic) {
  auto* const button = new QPushButton(this);
  bind_.Bind(control, *button, mnemonic);
  return button;
}

QTableView* FurtherWindow::NewTable(ListView& list, const QString& emptyText, const QString& accessibleName,
                                    std::vector<int> shares) {
  auto* const view = new QTableView(this);
  ListTable& table = *tables_.emplace_back(std::make_unique<ListTable>(surroundings_.Refresh));
  table.Show(&list);
  WireTable(*view, table, surroundings_.User, emptyText);
  FitColumns(*view, std::move(shares));
  ShowNewRows(*view, table);
  bind_.BindState(list, *view);
  view->setAccessibleName(accessibleName);
  view->setMinimumHeight(kLowestList);
  return view;
}

void FurtherWindow::AddMenu(QTableView& view, int address) {
  RowOffers offers;
  offers.Address = address;
  Shell& shell = surroundings_.Platform.Shell;
  if (address >= 0) offers.OpenAddress = [&shell](const std::string& url) { shell.OpenUrlOutside(url); };
  AddRowMenu(view, static_cast<ListTable&>(*view.model()), surroundings_.User, offers);
}

}  // namespace requite
