// SPDX-License-Identifier: MIT
// The frame of the main window: tool bar, menus, shortcuts, title and the close.
#include "shell/qt/window/main_window.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>

#include "shell/qt/code_page.h"

namespace requite {

/// The window's title, with the scan's progress in front of it while one runs.
class MainWindow::TitleView final : public ControlView, public RefreshedView {
 public:
  TitleView(MainWindow& window, ViewRefresh& refresh) : RefreshedView(refresh), window_(window) {
    window_.form_.Main.SetView(this);
    Apply();
  }
  ~TitleView() override { window_.form_.Main.SetView(nullptr); }

  void Refresh(const Control&) override { Mark(); }
  void Apply() override {
    const Form1& form = window_.form_;
    QString title = ToUnicode(form.Main.Title());
    if (form.State.Scanning) {
      title = QString("%1, %2 links - %3")
                  .arg(ToUnicode(form.StatusBar1.Panel(2)))
                  .arg(form.Figures.LinksFound)
                  .arg(title);
    }
    if (window_.windowTitle() != title) window_.setWindowTitle(title);
  }

 private:
  MainWindow& window_;
};

MainWindow::MainWindow(Form1& form, const EventGuard& guard) : form_(form), guard_(guard) {
  setObjectName("Form1");
  BuildToolBar();
  BuildMenus();
  columns_ = new QSplitter(Qt::Horizontal, this);
  left_ = new QSplitter(Qt::Vertical, columns_);
  left_->addWidget(BuildWebsites());
  left_->addWidget(BuildProgress());
  columns_->addWidget(left_);
  columns_->addWidget(BuildResults());
  columns_->setStretchFactor(1, 1);
  columns_->setChildrenCollapsible(false);
  left_->setChildrenCollapsible(false);
  setCentralWidget(columns_);
  bind_.Bind(form_.StatusBar1, *statusBar());
  title_ = std::make_unique<TitleView>(*this, refresh_);
  // The figures change the main window's drawing lock at every count, which keeps the title fresh.
  form_.Sites.OnListDropped = [this](LinkingSiteList& list, int) {
    if (linkingSites_.List() == &list) linkingSites_.Show(nullptr);
  };
  AddShortcuts();
  RestoreLayout();
}

MainWindow::~MainWindow() {
  SaveLayout();
  form_.Sites.OnListDropped = nullptr;
}

void MainWindow::BuildToolBar() {
  auto* const bar = addToolBar(tr("Commands"));
  bar->setObjectName("toolBar");
  bar->setMovable(false);
  const auto add = [&](Button& control, QStyle::StandardPixmap icon, const QString& mnemonic) {
    auto* const button = new QToolButton(bar);
    button->setIcon(style()->standardIcon(icon));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::TabFocus);
    bar->addWidget(button);
    bind_.Bind(control, *button, mnemonic);
    return button;
  };
  add(form_.Command1, QStyle::SP_MediaPlay, "S&tart Scan");
  auto* const kind = add(form_.Command10, QStyle::SP_ArrowDown, {});
  kind->setToolButtonStyle(Qt::ToolButtonIconOnly);
  kind->setAccessibleName(ToUnicode(form_.Command10.ToolTip));
  add(form_.cmdSkip, QStyle::SP_MediaSkipForward, "S&kip");
  add(form_.cmdStop, QStyle::SP_MediaStop, "Sto&p");
  bar->addSeparator();
  add(form_.Command9, QStyle::SP_FileDialogDetailedView, "&Options");
  bar->addSeparator();
  add(form_.cmdOpen, QStyle::SP_DialogOpenButton, {});
  add(form_.cmdSave, QStyle::SP_DialogSaveButton, {});
  add(form_.cmdNew, QStyle::SP_FileIcon, {});
  bar->addSeparator();
  add(form_.cmdWebsite, QStyle::SP_DriveNetIcon, {});
}

void MainWindow::BuildMenus() {
  bind_.Bind(form_.mnuFile, *menuBar()->addMenu("&File"),
             {"&New Project", "&Open Project", "&Import Project", "&Save Project", "E&xit"});
  bind_.Bind(
      form_.mnuScan, *menuBar()->addMenu("Scan T&ype"),
      {"Scan &all main sites", "Just scan the selected &main site", "Just scan the selected &linking site"});
  bind_.Bind(form_.mnuHelp, *menuBar()->addMenu("&Help"), {"View &Help File"});
  bind_.Bind(form_.mnuAbout, *menuBar()->addMenu("&About"), {"&About this software"});
  for (Menu* popup : {&form_.mnuSkipPopup, &form_.Popup1, &form_.Popup2})
    bind_.Bind(*popup, *new QMenu(this));
}

void MainWindow::AddShortcuts() {
  const auto press = [this](const QKeySequence& keys, Button& control) {
    auto* const shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, this, [this, &control] {
      if (control.EnabledInEffect()) guard_.Run([&control] { control.Click(); });
    });
  };
  press(QKeySequence::New, form_.cmdNew);
  press(QKeySequence::Open, form_.cmdOpen);
  press(QKeySequence::Save, form_.cmdSave);
  press(Qt::Key_F5, form_.Command1);
  press(Qt::Key_Escape, form_.cmdStop);
  auto* const help = new QShortcut(QKeySequence::HelpContents, this);
  connect(help, &QShortcut::activated, this, [this] { guard_.Run([this] { form_.mnuHelp.Click(0); }); });
}

/// Where the splitters stand is the window's own matter: it lies beside the program's settings.
void MainWindow::RestoreLayout() {
  const QSettings layout("requite", "window");
  resize(1100, 720);
  columns_->setSizes({380, 720});
  left_->setSizes({420, 220});
  if (!restoreGeometry(layout.value("geometry").toByteArray())) return;
  columns_->restoreState(layout.value("columns").toByteArray());
  left_->restoreState(layout.value("left").toByteArray());
  links_->restoreState(layout.value("links").toByteArray());
}

void MainWindow::SaveLayout() const {
  QSettings layout("requite", "window");
  layout.setValue("geometry", saveGeometry());
  layout.setValue("columns", columns_->saveState());
  layout.setValue("left", left_->saveState());
  layout.setValue("links", links_->saveState());
}

void MainWindow::closeEvent(QCloseEvent* event) {
  guard_.Run([this] { form_.Close(); });
  event->accept();
}

void MainWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::WindowStateChange) form_.Main.Minimised = isMinimized();
  QMainWindow::changeEvent(event);
}

}  // namespace requite
