// SPDX-License-Identifier: MIT
// The frame of the main window: tool bar, menus, shortcuts, title and the close.
#include "qt/window/main_window/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "qt/services/code_page.h"
#include "qt/window/controls/shown_text.h"
#include "qt/window/lists/column_fit.h"
#include "qt/window/look/glyphs.h"
#include "qt/window/look/product_icon.h"
#include "qt/window/look/screen_fit.h"
#include "scan/scan_share.h"

namespace requite {
namespace {

constexpr int kLeftPercent = 41;  // of the width, for the site lists the first time

}  // namespace

/// Is told that the title has changed; the next refresh writes it.
class MainWindow::TitleView final : public ControlView, public RefreshedView {
 public:
  TitleView(Window& control, ViewRefresh& refresh) : RefreshedView(refresh), control_(control) {
    control_.SetView(this);
  }
  ~TitleView() override { control_.SetView(nullptr); }

  void Refresh(const Control&) override { Mark(); }
  void Apply() override {}

 private:
  Window& control_;
};

MainWindow::MainWindow(Form1& form, const EventGuard& guard, DesktopBus* desktop)
    : form_(form), guard_(guard) {
  setObjectName("Form1");
  setWindowIcon(ProductIcon());
  if (desktop != nullptr) desktopNotice_.emplace(*desktop);
  bind_.Bind(form_.StatusBar1, *statusBar());
  answers_ = new AnswerLine(*statusBar());
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
  // A splitter leaves its own margins out of its minimum size.
  auto* const frame = new QWidget(this);
  auto* const around = new QVBoxLayout(frame);
  around->setContentsMargins(6, 4, 6, 0);
  around->addWidget(columns_);
  setCentralWidget(frame);
  BuildPopups();
  TakeManySites();
  title_ = std::make_unique<TitleView>(form_.Main, refresh_);
  refresh_.OnApplied = [this] { ShowScan(); };
  ShowScan();
  form_.Sites.OnListDropped = [this](LinkingSiteList& list, int) {
    if (linkingSites_.List() == &list) linkingSites_.Show(nullptr);
  };
  form_.OnClosed = [this] {
    hide();
    further_.HideOwned();
    project_->End();
  };
  AddShortcuts();
  RestoreLayout();
  // The first thing to do is typing a site.
  findChild<QLineEdit*>("txtDomain")->setFocus();
}

MainWindow::~MainWindow() {
  SaveLayout();
  form_.Sites.OnListDropped = nullptr;
  form_.OnClosed = nullptr;
  form_.OnNotice = nullptr;
  form_.OnHttpsOnly = nullptr;
  form_.OnScanBegins = nullptr;
  form_.OnScanEnds = nullptr;
}

void MainWindow::FollowProject() {
  ProjectNotices::Place place{form_,
                              user_,
                              *bars_,
                              *bars_->parentWidget(),
                              *findChild<QToolButton*>("cmdOpen"),
                              [this](const QString& answer) { Answer(answer); },
                              [this] { result_->hide(); },
                              [this] { title_->Mark(); }};
  project_ = std::make_unique<ProjectNotices>(std::move(place));
}

void MainWindow::Answer(const QString& answer) {
  answers_->Say(answer);
  QWidget* const front = QApplication::activeWindow();
  auto* const line = front == nullptr || front == this ? nullptr : front->findChild<AnswerLine*>();
  if (line != nullptr) line->Say(answer);
}

/// "Site 5 of 12, page 1 of 1, 1 link"
QString MainWindow::ScanTitle() const {
  const auto all = static_cast<std::int32_t>(SitesToScan(form_.Sites, form_.State));
  const int links = form_.Figures.LinksFound;
  return tr("%1, page %2 of %3, %4")
      .arg(ToUnicode(form_.Tally.Position(all)))
      .arg(form_.State.PagesDone)
      .arg(std::int64_t{form_.State.PagesQueued} + 1)
      .arg(links == 1 ? tr("1 link") : tr("%1 links").arg(links));
}

/// The name of the project's file, with the place of the mark for unsaved edits.
QString MainWindow::ProjectTitle() const {
  const QString path = QFile::decodeName(form_.Files.OpenPath().c_str());
  QString name = QFileInfo(path).fileName().simplified();
  if (name.isEmpty()) name = tr("New project");
  return name.replace("[*]", "[*][*]") + "[*]";
}

/// The title and the task bar show the progress of a scan.
void MainWindow::ShowScan() {
  QString title = ProjectTitle() + " - " + OneLine(form_.Main.Title()).replace("[*]", "[*][*]");
  if (form_.State.Scanning) title = ScanTitle() + " - " + title;
  if (windowTitle() != title) setWindowTitle(title);
  setWindowModified(!form_.Sites.ProjectSaved);
  if (!form_.State.WorkFilesUnwritten && !form_.State.AuthoritiesMissing) notice_->hide();
  httpsOnly_->Follow();
  ahead_->Follow();
  scanLine_->Follow();
  project_->Follow();
  resultFilter_->Follow();
  addSites_->Follow();
  queueFold_->Follow(form_.State.Scanning);
  firstSteps_->Follow();
  pageTools_->Follow();
  reportTools_->Follow();
  reportChart_->Follow();
  if (!desktopNotice_) return;
  // The message about the end of a recorded scan says what has changed too.
  desktopNotice_->See({form_.State.Scanning || form_.Recording(), QApplication::activeWindow() != nullptr,
                       ScanPercent(form_.Sites, form_.State, form_.Figures.LinkingSitesScanned),
                       form_.Figures.LinksFound, form_.Figures.PagesScanned,
                       form_.Changed ? ToUnicode(form_.Changed->Headline()) : QString()});
}

void MainWindow::BuildToolBar() {
  auto* const bar = addToolBar(tr("Commands"));
  bar->setObjectName("toolBar");
  bar->setMovable(false);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  const auto add = [&](Button& control, Glyph glyph, const QString& mnemonic = {}, Tone tone = Tone::Text) {
    auto* const button = new QToolButton(bar);
    button->setIcon(GlyphIcon(glyph, tone));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::TabFocus);
    bar->addWidget(button);
    bind_.Bind(control, *button, mnemonic);
  };
  add(form_.Command1, Glyph::Start, "S&tart Scan", Tone::Green);
  add(form_.Command10, Glyph::More, "&V");
  add(form_.cmdSkip, Glyph::Skip, "S&kip");
  add(form_.cmdStop, Glyph::Stop, "Sto&p", Tone::Red);
  bar->addSeparator();
  add(form_.Command9, Glyph::Options, "Optio&ns");
  bar->addSeparator();
  add(form_.cmdOpen, Glyph::Open);
  add(form_.cmdSave, Glyph::Save);
  add(form_.cmdNew, Glyph::New);
  bar->addSeparator();
  add(form_.cmdWebsite, Glyph::Site);
}

void MainWindow::BuildMenus() {
  bind_.Bind(form_.mnuFile, *menuBar()->addMenu("&File"),
             {"&New Project\tCtrl+N", "&Open Project\tCtrl+O", "&Import Project", "&Save Project\tCtrl+S",
              "E&xit\tCtrl+Q"});
  bind_.Bind(
      form_.mnuScan, *menuBar()->addMenu("Scan T&ype"),
      {"Scan &all main sites", "Just scan the selected &main site", "Just scan the selected &linking site"});
  bind_.Bind(form_.mnuHelp, *menuBar()->addMenu("&Help"), {"View &Help File\tF1"});
  bind_.Bind(form_.mnuAbout, *menuBar()->addMenu("A&bout"), {"&About this software"});
}

void MainWindow::ShowChanges() {
  user_.Run([this] { form_.Windows.Show("frmChanges"); });
}

void MainWindow::AddShortcuts() {
  const auto press = [this](const QKeySequence& keys, Button& control) {
    auto* const shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, this, [this, &control] {
      if (control.EnabledInEffect()) user_.Run([&control] { control.Click(); });
    });
  };
  press(Qt::Key_F5, form_.Command1);
  press(Qt::Key_Escape, form_.cmdStop);
  // A text box with the focus undoes its own typing instead.
  connect(new QShortcut(QKeySequence::Undo, this), &QShortcut::activated, this, [this] { project_->Undo(); });
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, &MainWindow::FindRows);
}

/// The box of the results, or that of the list that has the keyboard; from there on to the other one.
void MainWindow::FindRows() {
  const QWidget* const now = QApplication::focusWidget();
  const bool amongSites = now != nullptr && siteFilter_->parentWidget()->isAncestorOf(now);
  if (amongSites && now != siteFilter_ && siteFilter_->isVisible()) return siteFilter_->Take();
  user_.Run([this] { form_.TabStrip1.Select(static_cast<int>(ResultTab::Links)); });
  if (resultFilter_->isVisible()) return resultFilter_->Box().Take();
  answers_->Say(tr("There are no results to look through yet."));
}

void MainWindow::PressOnDelete(QTableView& list, Button& control) {
  auto* const shortcut = new QShortcut(QKeySequence::Delete, &list);
  shortcut->setContext(Qt::WidgetShortcut);
  connect(shortcut, &QShortcut::activated, this, [this, &control] {
    if (control.EnabledInEffect()) user_.Run([&control] { control.Click(); });
  });
}

/// The positions of the splitters and the columns belong to the window alone, so they are in a file beside
/// the settings.
void MainWindow::RestoreLayout() {
  const QSettings layout("requite", "window");
  const QSize room = screen()->availableSize();
  resize(QSize(1180, 760).boundedTo(room * 0.95));
  columns_->setSizes({width() * kLeftPercent / 100, width() * (100 - kLeftPercent) / 100});
  RestoreColumns(*this, layout);
  const bool known = restoreGeometry(layout.value("geometry").toByteArray());
  FitToScreen(*this, *screen());
  queueFold_->SetHeight(layout.value("progress").toInt());
  if (!known) return;
  columns_->restoreState(layout.value("columns").toByteArray());
  links_->restoreState(layout.value("links").toByteArray());
}

void MainWindow::SaveLayout() const {
  QSettings layout("requite", "window");
  layout.setValue("geometry", saveGeometry());
  layout.setValue("columns", columns_->saveState());
  layout.setValue("progress", queueFold_->Height());
  SaveColumns(*this, layout);
  layout.setValue("links", links_->saveState());
}

void MainWindow::showEvent(QShowEvent* event) {
  refresh_.ApplyMarked();  // the first frame shows everything that was loaded
  QMainWindow::showEvent(event);
  project_->Begin();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  user_.Run([this] { form_.Close(); });
  event->accept();
}

}  // namespace requite
