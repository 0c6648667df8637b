// SPDX-License-Identifier: MIT
// Desktop services without a desktop: they answer, record and show nothing.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "console/console_loop.h"
#include "console/text_codec.h"
#include "platform/controls.h"
#include "platform/services.h"

namespace requite {

/// Message boxes and file dialogs that are answered from a queue. When it is empty, a message box is
/// answered by its first button and a file dialog is cancelled.
class ConsoleDialogs : public Dialogs {
 public:
  explicit ConsoleDialogs(TextCodec codec) : codec_(codec) {}

  /// A box or dialog as it was shown and answered.
  struct Shown {
    std::string Kind;  ///< "message", "question", "open" or "save"
    std::string Title;
    std::string Text;    ///< for a file dialog the name it offers
    std::string Answer;  ///< "ok", "cancel", "yes", "no", or "file " and the path
  };

  Answer Show(const MessageBox& box) override;
  std::string AskOpenName(const FileDialog& dialog) override { return AskName("open", dialog); }
  std::string AskSaveName(const FileDialog& dialog) override { return AskName("save", dialog); }

  /// Adds an answer to the end of the queue.
  void LayReady(Answer answer) { ready_.push_back({answer, {}}); }
  void LayReadyFile(std::string path) { ready_.push_back({Answer::Ok, std::move(path)}); }

  /// The boxes shown since the last call.
  [[nodiscard]] std::vector<Shown> TakeShown() { return std::exchange(shown_, {}); }
  /// Called for each box after it was answered.
  std::function<void(const Shown&)> OnShown;

 private:
  struct Ready {
    Answer Button;
    std::string Path;  ///< the answer to a file dialog, if not empty
  };

  std::string AskName(const char* kind, const FileDialog& dialog);
  void Remember(Shown shown);

  TextCodec codec_;
  std::deque<Ready> ready_;
  std::vector<Shown> shown_;
};

/// Plays nothing; records the names of the files it would have played.
class SoundRecorder : public SoundPlayer {
 public:
  void PlaySoundFile(const std::string& path) override;
  [[nodiscard]] std::vector<std::string> TakePlayed() { return std::exchange(played_, {}); }

 private:
  std::vector<std::string> played_;
};

class MemoryClipboard : public Clipboard {
 public:
  void Clear() override { text_.clear(); }
  void SetText(const std::string& text) override { text_ = text; }
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

/// A desktop where nothing opens.
class QuietShell : public Shell {
 public:
  void OpenDocument(const std::string&) override {}
  void OpenUrlOutside(const std::string&) override {}
  void OpenFile(const std::string&) override {}
};

/// A browser without a page engine: each navigation is complete at the next event, at the URL itself. It
/// keeps a history for back and forward. It sees only navigations after it was made.
class HistoryBrowser : public BrowserEngine {
 public:
  /// Both must outlive this object, which must outlive the events it has posted.
  HistoryBrowser(BrowserView& view, ConsoleLoop& loop);
  ~HistoryBrowser() override;
  HistoryBrowser(const HistoryBrowser&) = delete;
  HistoryBrowser& operator=(const HistoryBrowser&) = delete;

  void Navigate(const std::string& url) override;
  void Stop() override { ++navigation_; }
  void Refresh() override;
  void GoBack() override;
  void GoForward() override;

 private:
  void CompleteSoon();

  BrowserView& view_;
  ConsoleLoop& loop_;
  std::vector<std::string> history_;
  std::size_t at_ = 0;
  int navigation_ = 0;  // events of older navigations do nothing
};

}  // namespace requite
