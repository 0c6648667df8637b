// SPDX-License-Identifier: MIT
// Answering boxes and dialogs, and the history of the browser.
#include "console/console_services.h"

#include "platform/files.h"
#include "platform/runtime_failure.h"
#include "shell/product.h"

namespace requite {
namespace {

const char* Word(Answer answer) {
  switch (answer) {
    case Answer::Ok: return "ok";
    case Answer::Cancel: return "cancel";
    case Answer::Yes: return "yes";
    case Answer::No: return "no";
  }
  return "";
}

Answer FirstButton(Buttons choice) { return choice == Buttons::YesNo ? Answer::Yes : Answer::Ok; }

bool HasButton(Buttons choice, Answer answer) {
  switch (choice) {
    case Buttons::Ok: return answer == Answer::Ok;
    case Buttons::OkCancel: return answer == Answer::Ok || answer == Answer::Cancel;
    case Buttons::YesNo: return answer == Answer::Yes || answer == Answer::No;
  }
  return false;
}

}  // namespace

Answer ConsoleDialogs::Show(const MessageBox& box) {
  Answer answer = FirstButton(box.Choice);
  if (!ready_.empty()) {
    if (HasButton(box.Choice, ready_.front().Button)) answer = ready_.front().Button;
    ready_.pop_front();
  }
  Remember({box.Choice == Buttons::Ok ? "message" : "question",
            box.Title.empty() ? std::string(product::kName) : box.Title, box.Text, Word(answer)});
  return answer;
}

std::string ConsoleDialogs::AskName(const char* kind, const FileDialog& dialog) {
  std::string path;
  if (!ready_.empty()) {
    const Ready answer = std::move(ready_.front());
    ready_.pop_front();
    path = answer.Path;
    // OK without a path takes the name that the dialog offers.
    if (path.empty() && answer.Button == Answer::Ok && !dialog.DefaultName.empty()) {
      path = dialog.Folder + "/" + codec_.ToUtf8(dialog.DefaultName);
    }
  }
  Remember({kind, {}, dialog.DefaultName, path.empty() ? "cancel" : "file " + codec_.FromUtf8(path)});
  return path;
}

void ConsoleDialogs::Remember(Shown shown) {
  shown_.push_back(std::move(shown));
  if (OnShown) OnShown(shown_.back());
}

void SoundRecorder::PlaySoundFile(const std::string& path) {
  if (FileExists(path)) played_.push_back(FileNameOfPath(path));
}

HistoryBrowser::HistoryBrowser(BrowserView& view, ConsoleLoop& loop) : view_(view), loop_(loop) {
  view_.SetEngine(this);
}

HistoryBrowser::~HistoryBrowser() { view_.SetEngine(nullptr); }

void HistoryBrowser::Navigate(const std::string& url) {
  history_.resize(history_.empty() ? 0 : at_ + 1);
  history_.push_back(url);
  at_ = history_.size() - 1;
  CompleteSoon();
}

void HistoryBrowser::Refresh() {
  if (!history_.empty()) CompleteSoon();
}

void HistoryBrowser::GoBack() {
  if (at_ == 0) throw RuntimeFailure(Failure::InvalidArgument);
  --at_;
  CompleteSoon();
}

void HistoryBrowser::GoForward() {
  if (at_ + 1 >= history_.size()) throw RuntimeFailure(Failure::InvalidArgument);
  ++at_;
  CompleteSoon();
}

void HistoryBrowser::CompleteSoon() {
  loop_.After(0, [this, mine = ++navigation_] {
    if (mine == navigation_) view_.DocumentComplete(history_[at_]);
  });
}

}  // namespace requite
