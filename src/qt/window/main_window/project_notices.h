// SPDX-License-Identifier: MIT
// What the main window says about its project: what was kept, deleted, opened and saved, and how to undo it.
#pragma once

#include <QObject>
#include <functional>
#include <string>

#include "qt/window/controls/notice_bar.h"
#include "qt/window/controls/user_events.h"
#include "shell/main_window/action_answers.h"
#include "shell/main_window/site_undo.h"
#include "shell/main_window/work_keeper.h"

class QPushButton;
class QToolButton;
class QVBoxLayout;

namespace requite {

class OpenMenu;

/// Owns what keeps unsaved work and deleted sites, and the bars that offer them back.
class ProjectNotices : public QObject {
  Q_OBJECT

 public:
  /// What the notices are shown with; all of it must outlive them.
  struct Place {
    Form1& Form;
    const UserEvents& User;
    QVBoxLayout& Bars;
    QWidget& ParentOfBars;
    QToolButton& OpenButton;
    std::function<void(const QString& answer)> Answer;
    std::function<void()> OnReplaced;  ///< the results on show were removed with their project
    std::function<void()> OnFlag;      ///< the project has become saved or unsaved
  };

  explicit ProjectNotices(Place place);

  /// The window is on screen: from here on the project is followed. Says once what the last run kept.
  void Begin();
  /// The program ends: keeps unsaved work for the next run.
  void End();
  /// To be called when a scan may have begun or ended: nothing is brought back meanwhile.
  void Follow();
  /// Undoes the last deletion, if there was one.
  void Undo();

 private:
  void WireKeeper();
  void SayKept(const WorkKeeper::Kept& kept, const QString& words);
  void SayOpened(const std::string& path, bool whole);
  void BringBack();
  void OpenCopy(const std::string& copy, const std::string& project);
  void SayDeleted();
  void Answer(const std::string& words, const std::string& path = {});

  Place place_;
  WorkKeeper keeper_;
  SiteUndo undo_;
  ActionAnswers answers_;
  NoticeBar* keptBar_;
  NoticeBar* deletedBar_;
  QPushButton* bringBack_ = nullptr;
  QPushButton* undoButton_ = nullptr;
  OpenMenu* menu_;
  WorkKeeper::Kept kept_;  ///< what the bar offers
  bool begun_ = false;
};

}  // namespace requite
