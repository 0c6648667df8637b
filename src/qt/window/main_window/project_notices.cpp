// SPDX-License-Identifier: MIT
// Words and bars for what happens to the project.
#include "qt/window/main_window/project_notices.h"

#include <QFile>
#include <QPushButton>
#include <QSettings>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "platform/runtime_failure.h"
#include "qt/services/code_page.h"
#include "qt/window/controls/shown_text.h"
#include "qt/window/main_window/open_menu.h"
#include "shell/main_window/form1.h"

namespace requite {
namespace {

const char* const kKeptAtEnd = "keptAtEnd";  // for the next run: the copy, its project, the failure

QString PathText(const std::string& path) { return QFile::decodeName(path.c_str()); }

QVariant Bytes(const std::string& text) { return QByteArray::fromStdString(text); }

}  // namespace

ProjectNotices::ProjectNotices(Place place)
    : place_(std::move(place)),
      keeper_(place_.Form),
      undo_(place_.Form),
      answers_(place_.Form,
               [this](const std::string& words, const std::string& path) { Answer(words, path); }),
      keptBar_(new NoticeBar("keptProject", tr("Hide"), tr("Hide this notice; the copy stays"),
                             &place_.ParentOfBars)),
      deletedBar_(new NoticeBar("deletedSite", tr("Hide"), tr("Hide this notice"), &place_.ParentOfBars)),
      menu_(new OpenMenu(place_.OpenButton, place_.Form, keeper_, place_.User)) {
  place_.Bars.addWidget(keptBar_);
  place_.Bars.addWidget(deletedBar_);
  bringBack_ = &keptBar_->Offer("keptProjectBringBack", tr("Bring back"),
                                [this] { place_.User.Run([this] { BringBack(); }); });
  bringBack_->setToolTip(tr("Open the unsaved project again in place of the one on show"));
  undoButton_ = &deletedBar_->Offer("deletedSiteUndo", tr("Undo"), [this] { Undo(); });
  undoButton_->setToolTip(tr("Bring the site back with its rules (Ctrl+Z)"));
  menu_->OnCopy = [this](const std::string& copy) { OpenCopy(copy, {}); };
  WireKeeper();
  undo_.OnDeleted = [this] {
    SayDeleted();
    Answer("The site was deleted.");
  };
}

void ProjectNotices::WireKeeper() {
  keeper_.OnKept = [this](const WorkKeeper::Kept& kept) {
    SayKept(kept, tr("The unsaved project was kept."));
  };
  keeper_.OnReplaced = [this] {
    undo_.Forget();
    deletedBar_->hide();
    keptBar_->hide();
    place_.OnReplaced();
    place_.OnFlag();
  };
  keeper_.OnNew = [this] { Answer("This is a new project."); };
  keeper_.OnOpened = [this](const std::string& path, bool whole) { SayOpened(path, whole); };
  keeper_.OnSaved = [this](const std::string& path) {
    undo_.ProjectIsSaved();
    menu_->Remember(path);
    Answer("Saved to", path);
    place_.OnFlag();
  };
}

void ProjectNotices::Begin() {
  if (std::exchange(begun_, true)) return;
  keeper_.Begin();
  answers_.Begin();
  const std::string& open = place_.Form.Files.OpenPath();
  const std::string last = place_.Form.Settings.GetSetting(setting::LastProject);
  if (!open.empty()) menu_->Remember(open);
  if (open.empty() && !last.empty()) SayOpened(last, false);
  QSettings layout("requite", "window");
  const QVariantList kept = layout.value(kKeptAtEnd).toList();
  layout.remove(kKeptAtEnd);
  if (kept.size() != 3) return;
  SayKept({kept[0].toByteArray().toStdString(), kept[1].toByteArray().toStdString(),
           kept[2].toByteArray().toStdString()},
          tr("The unsaved project of the last run was kept."));
}

void ProjectNotices::End() {
  const auto kept = keeper_.KeepUnsaved();
  if (!kept) return;
  QSettings("requite", "window")
      .setValue(kKeptAtEnd, QVariantList{Bytes(kept->Copy), Bytes(kept->Project), Bytes(kept->Failure)});
}

void ProjectNotices::Follow() {
  const bool free = !place_.Form.State.Scanning;
  if (bringBack_->isEnabled() != free) bringBack_->setEnabled(free);
  if (undoButton_->isEnabled() != free) undoButton_->setEnabled(free);
}

void ProjectNotices::SayKept(const WorkKeeper::Kept& kept, const QString& words) {
  kept_ = kept;
  bringBack_->setVisible(!kept.Copy.empty());
  if (!kept.Copy.empty()) return keptBar_->Say(words, PathText(kept.Copy));
  keptBar_->Say(tr("The unsaved project could not be kept: %1.").arg(ToUnicode(kept.Failure)));
}

void ProjectNotices::SayOpened(const std::string& path, bool whole) {
  if (whole) {
    menu_->Remember(path);
    return Answer("Opened", path);
  }
  const bool nothing = place_.Form.Files.OpenPath().empty();
  Answer(nothing ? "Could not be read:" : "Read in part, up to a line that is not one of a project:", path);
}

void ProjectNotices::BringBack() {
  keptBar_->hide();
  const WorkKeeper::Kept kept = kept_;
  OpenCopy(kept.Copy, kept.Project);
}

void ProjectNotices::OpenCopy(const std::string& copy, const std::string& project) {
  try {
    if (!keeper_.BringBack(copy, project)) return;
    Answer("Opened as an unsaved project.");
  } catch (const RuntimeFailure& failure) {
    Answer(failure.Description + ":", copy);
  }
  place_.OnFlag();
}

void ProjectNotices::SayDeleted() {
  if (undo_.Empty()) return deletedBar_->hide();
  deletedBar_->Say(OneLine(undo_.Words()));
}

void ProjectNotices::Undo() {
  if (undo_.Empty() || place_.Form.State.Scanning) return;
  place_.User.Run([this] {
    const std::string words = undo_.Undo();
    SayDeleted();
    Answer(words);
    place_.OnFlag();
  });
}

void ProjectNotices::Answer(const std::string& words, const std::string& path) {
  QString answer = OneLine(words);
  if (!path.empty()) answer += ' ' + PathText(path).simplified();
  place_.Answer(answer);
}

}  // namespace requite
