// SPDX-License-Identifier: MIT
// Hand-written services for tests: no socket, no clock, no screen; everything is remembered.
#pragma once

#include <algorithm>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/services.h"
#include "platform/text.h"

namespace requite::test {

/// Counts yields and runs an action at a given yield: "at yield number N do X".
class FakeEventLoop : public EventLoop {
 public:
  void LetPendingEventsRun() override {
    ++Yields;
    const auto due = at_.find(Yields);
    if (due == at_.end() && !OnEveryYield) return;
    const LateWork::Pause pause(Late());
    if (due != at_.end()) {
      const auto action = due->second;
      at_.erase(due);
      Deliver(action);
    }
    if (OnEveryYield) Deliver(OnEveryYield);
  }
  std::uint64_t Deliveries() const override { return deliveries_; }
  void AtYield(int number, std::function<void()> action) { at_[number] = std::move(action); }

  int Yields = 0;
  std::function<void()> OnEveryYield;

 private:
  void Deliver(const std::function<void()>& action) {
    ++deliveries_;
    action();
    ++deliveries_;
  }

  std::map<int, std::function<void()>> at_;
  std::uint64_t deliveries_ = 0;
};

/// Ticks only when the test says so.
class ManualTimer : public Timer {
 public:
  void Start(int intervalMilliseconds) override {
    Interval = intervalMilliseconds;
    Running = true;
    ++Starts;
  }
  void Stop() override { Running = false; }
  /// One tick, if the timer runs.
  void Tick() {
    if (Running && OnTick) OnTick();
  }

  bool Running = false;
  int Interval = 0;
  int Starts = 0;
};

/// A connection whose server is the test. Events arrive only through Arrive, Establish and
/// ServerCloses, and never on a connection that the program has closed.
class ScriptedConnection : public Connection {
 public:
  void Connect(const std::string& host, std::uint16_t port) override {
    Host = host;
    Port = port;
    Open = true;
    Sent.clear();
    received_.clear();
    ++Connects;
    if (WhenConnecting) WhenConnecting();
  }
  void SendData(std::string_view bytes) override { Sent.append(bytes); }
  std::string GetData() override { return std::exchange(received_, {}); }
  void Close() override {
    Open = false;
    ++Closes;
  }
  bool HasAuthorities() override { return Authorities; }

  void Establish() {
    if (Open) Events->OnConnect();
  }
  void Arrive(std::string_view bytes) {
    if (!Open) return;
    received_.append(bytes);
    Events->OnDataArrival(bytes.size());
  }
  void ServerCloses() {
    if (!Open) return;
    Open = false;
    Events->OnClose();
  }
  /// A whole page: established, sent in pieces of at most `chunk` bytes, closed.
  void Serve(std::string_view response, std::size_t chunk = std::string::npos) {
    Establish();
    const int connect = Connects;
    while (!response.empty() && Open && connect == Connects) {
      const std::string_view piece = response.substr(0, chunk);
      response.remove_prefix(piece.size());
      Arrive(piece);
    }
    if (connect == Connects) ServerCloses();
  }

  bool Open = false;
  std::string Host;
  std::uint16_t Port = 0;
  std::string Sent;
  int Connects = 0;
  int Closes = 0;
  bool Authorities = true;
  std::function<void()> WhenConnecting;

 private:
  std::string received_;
};

/// Bodies by URL. A GET that is waited for is answered at once; the others wait for the test.
class FakeInternet : public Internet {
 public:
  void Start(Owner owner, const std::string& url, std::string_view agent, OnAnswer onAnswer) override {
    Ask(url, agent);
    Started.push_back({owner, url, std::move(onAnswer)});
  }
  std::optional<std::string> OpenUrl(Owner owner, const std::string& url, std::string_view agent) override {
    Ask(url, agent);
    const std::size_t before = aborted_.size();
    if (OnOpen) OnOpen();
    if (std::find(aborted_.begin() + static_cast<std::ptrdiff_t>(before), aborted_.end(), owner) !=
        aborted_.end()) {
      ++EndedWaits;
      return std::nullopt;
    }
    return BodyOf(url);
  }
  void Abort(Owner owner) override {
    aborted_.push_back(owner);
    ++Aborts;
    std::erase_if(Started, [owner](const Get& get) { return get.StartedBy == owner; });
  }
  /// Answers the GET that waits longest; false when there is none.
  bool AnswerNext() {
    if (Started.empty()) return false;
    const Get get = std::move(Started.front());
    Started.pop_front();
    if (OnOpen) OnOpen();
    get.Answer(BodyOf(get.Url));
    return true;
  }

  struct Get {
    Owner StartedBy;
    std::string Url;
    OnAnswer Answer;
  };

  std::map<std::string, std::string> Bodies;
  std::vector<std::string> Asked;
  std::deque<Get> Started;
  std::string Agent;
  std::function<void()> OnOpen;
  int Aborts = 0;
  int EndedWaits = 0;  ///< aborts that ended a GET that was waited for

 private:
  void Ask(const std::string& url, std::string_view agent) {
    Asked.push_back(url);
    Agent = agent;
  }
  [[nodiscard]] std::optional<std::string> BodyOf(const std::string& url) const {
    const auto found = Bodies.find(url);
    return found == Bodies.end() ? std::nullopt : std::optional(found->second);
  }

  std::vector<Owner> aborted_;
};

class MemorySettings : public SettingsStore {
 public:
  std::optional<std::string> Read(std::string_view key) override {
    const auto found = Values.find(Lower(key));
    return found == Values.end() ? std::nullopt : std::optional(found->second);
  }
  void Write(std::string_view key, std::string_view value) override {
    Values[Lower(key)] = value;
    ++Writes;
  }
  void Set(std::string_view key, std::string_view value) { Values[Lower(key)] = value; }

  std::map<std::string, std::string> Values;  // by lower-case key
  int Writes = 0;
};

/// Gives the answers laid ready, in order; else the first button, and no file name.
class ScriptedDialogs : public Dialogs {
 public:
  Answer Show(const MessageBox& box) override {
    Boxes.push_back(box);
    if (OnShow) OnShow();
    if (!Answers.empty()) {
      const Answer answer = Answers.front();
      Answers.pop_front();
      return answer;
    }
    return box.Choice == Buttons::YesNo ? Answer::Yes : Answer::Ok;
  }
  std::string AskOpenName(const FileDialog& dialog) override { return NextName(dialog); }
  std::string AskSaveName(const FileDialog& dialog) override { return NextName(dialog); }

  std::deque<Answer> Answers;
  std::deque<std::string> Names;
  std::vector<MessageBox> Boxes;
  std::function<void()> OnShow;  ///< runs while the box is open
  std::vector<FileDialog> FileDialogs;

 private:
  std::string NextName(const FileDialog& dialog) {
    FileDialogs.push_back(dialog);
    if (Names.empty()) return {};
    std::string name = Names.front();
    Names.pop_front();
    return name;
  }
};

class FakeClipboard : public Clipboard {
 public:
  void Clear() override { Text.clear(); }
  void SetText(const std::string& text) override { Text = text; }

  std::string Text;
};

class FakeSounds : public SoundPlayer {
 public:
  void PlaySoundFile(const std::string& path) override { Played.push_back(FileNameOfPath(path)); }

  std::vector<std::string> Played;
};

class FakeShell : public Shell {
 public:
  void OpenDocument(const std::string& path) override { Opened.push_back(path); }
  void OpenUrlOutside(const std::string& url) override { Opened.push_back(url); }
  void OpenFile(const std::string& path) override { Opened.push_back(path); }

  std::vector<std::string> Opened;
};

class ManualClock : public Clock {
 public:
  std::string ShortDate() override { return "1/2/2026"; }
  std::string ShortTime() override { return "3:04 PM"; }
  std::string IsoDateTime() override { return "2026-01-02 15:04:05"; }
  std::string UtcDateTime() override { return Utc; }
  std::string TwoDecimals(double value) override {
    std::string digits = std::to_string(static_cast<long long>(value * 100 + 0.5));
    while (digits.size() < 3) digits.insert(0, 1, '0');
    return digits.insert(digits.size() - 2, ".");
  }

  std::string Utc = "2026-01-02T14:04:05Z";
};

/// All fakes together, with the Services that hand them down.
struct FakeServices {
  FakeEventLoop EventLoop;
  ScriptedConnection Connection;
  ManualTimer timTimeout;
  ManualTimer Timer1;
  FakeInternet Internet;
  MemorySettings Store;
  ScriptedDialogs Dialogs;
  FakeClipboard Clipboard;
  FakeSounds Sounds;
  FakeShell Shell;
  ManualClock Clock;
  Services All{EventLoop, Connection, timTimeout, Timer1, Internet, Store,
               Dialogs,   Clipboard,  Sounds,     Shell,  Clock};
};

/// A folder of its own for one test, removed with everything in it.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const std::filesystem::path& where = std::filesystem::temp_directory_path()) {
    std::string name = (where / "requite-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    Folder.Path = name;
    std::filesystem::create_directories(name + "/Project Files");
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(Folder.Path, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] std::string File(std::string_view name) const { return Folder.File(name); }

  ProgramFolder Folder;
};

}  // namespace requite::test
