// SPDX-License-Identifier: MIT
// What the logic needs of a desktop: small abstract services that only a main program makes.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/late_work.h"

namespace requite {

/// The one thread's event loop.
class EventLoop {
 public:
  virtual ~EventLoop() = default;

  /// Delivers waiting user, timer and connection events. A call that comes a few milliseconds after
  /// the last one may return at once, so loops call it freely. Trust nothing after it:
  /// lists may have been emptied and the scan may have been stopped.
  virtual void LetPendingEventsRun() = 0;
  /// Differs from an earlier value when events may have run since then.
  [[nodiscard]] virtual std::uint64_t Deliveries() const = 0;

  /// What is put off until the loop delivers other events.
  [[nodiscard]] virtual LateWork& Late() { return late_; }

 private:
  LateWork late_;
};

/// A repeating timer. Starting it again restarts the interval.
class Timer {
 public:
  virtual ~Timer() = default;
  virtual void Start(int intervalMilliseconds) = 0;
  virtual void Stop() = 0;

  std::function<void()> OnTick;
};

/// The events of a connection. Errors raise none: a refused, unknown or reset host is silence.
class ConnectionEvents {
 public:
  virtual ~ConnectionEvents() = default;
  virtual void OnConnect() = 0;
  virtual void OnDataArrival(std::size_t bytesTotal) = 0;
  virtual void OnClose() = 0;
  /// The host is asked over plain HTTP because of its certificate; `words` say why, such as "Certificate has
  /// expired". Comes with each connection to the host, perhaps while Connect runs. Only when secure
  /// connections are on. Must not let events run.
  virtual void OnCertificateFault(const std::string& host, std::string_view words) {
    static_cast<void>(host);
    static_cast<void>(words);
  }
};

/// One TCP connection. While a handler of its events runs, its further events wait.
class Connection {
 public:
  virtual ~Connection() = default;

  /// Drops any connection and starts a new one; the host's name is resolved exactly as given.
  virtual void Connect(const std::string& host, std::uint16_t port) = 0;
  virtual void SendData(std::string_view bytes) = 0;
  /// The bytes received since the last call.
  [[nodiscard]] virtual std::string GetData() = 0;
  /// Drops the connection. Safe when closed; raises no event.
  virtual void Close() = 0;
  /// Whether the system has certificate authorities, so that certificates can be checked.
  [[nodiscard]] virtual bool HasAuthorities() { return true; }

  /// Receives the events; not owned, set once before the first Connect.
  ConnectionEvents* Events = nullptr;
};

/// The platform's library for GETs. Each GET belongs to the object that started it, known by
/// its address; use it through `Gets` below.
class Internet {
 public:
  using Owner = const void*;
  /// Receives the body, or nothing when the URL could not be opened.
  using OnAnswer = std::function<void(std::optional<std::string> body)>;

  virtual ~Internet() = default;

  /// Starts a GET of a URL, from the network and never from a cache; redirects to http and https are
  /// followed, and the body of an error status is a body like any other. The URL is sent as typed, except
  /// that a space or a control character becomes "%XX". One request is made, whatever the server does. Bodies
  /// are cut at 64 MiB, and 60 s of silence end the GET. `onAnswer` runs once, as an event, unless the GET is
  /// aborted first.
  virtual void Start(Owner owner, const std::string& url, std::string_view agent, OnAnswer onAnswer) = 0;
  /// A GET that the caller waits for while events run. Returns nothing when it is aborted.
  [[nodiscard]] virtual std::optional<std::string> OpenUrl(Owner owner, const std::string& url,
                                                           std::string_view agent) = 0;
  /// Ends the owner's GETs in progress, and nobody else's.
  virtual void Abort(Owner owner) = 0;
};

/// The GETs of one part of the program. Those still in progress end with this object.
class Gets {
 public:
  explicit Gets(Internet& internet) : internet_(internet) {}
  ~Gets() { Abort(); }
  Gets(const Gets&) = delete;
  Gets& operator=(const Gets&) = delete;

  void Start(const std::string& url, std::string_view agent, Internet::OnAnswer onAnswer) {
    internet_.Start(this, url, agent, std::move(onAnswer));
  }
  /// This object may have been destroyed when the call returns.
  [[nodiscard]] std::optional<std::string> OpenUrl(const std::string& url, std::string_view agent) {
    return internet_.OpenUrl(this, url, agent);
  }
  void Abort() { internet_.Abort(this); }

 private:
  Internet& internet_;
};

/// The per-user store of settings. Key names are compared without regard to case.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  [[nodiscard]] virtual std::optional<std::string> Read(std::string_view key) = 0;
  /// The value is on disk when the call returns.
  virtual void Write(std::string_view key, std::string_view value) = 0;
  /// Write for a value that is soon replaced by the next one, such as a counter: it may be on disk a few
  /// milliseconds later. It is there before anything that is written after it.
  virtual void WriteSoon(std::string_view key, std::string_view value) { Write(key, value); }
};

enum class Answer { Ok, Cancel, Yes, No };
enum class Buttons { Ok, OkCancel, YesNo };
enum class BoxIcon { None, Information, Question, Critical };

/// A message box. An empty title means the program's own.
struct MessageBox {
  std::string Text;
  std::string Title{};
  Buttons Choice = Buttons::Ok;
  BoxIcon Icon = BoxIcon::None;
};

/// What a save dialog does with the name that the user chose.
struct SaveHabits {
  std::string DefaultSuffix;      ///< without its dot, added to a name without one; empty: nothing is added
  bool AsksToReplace = false;     ///< whether it asks before it returns the name of an existing file
  std::string ReplacedUnasked{};  ///< the one path that it never asks about
};

/// A file dialog. `Filter` has the form "Words (*.x)|*.x".
struct FileDialog {
  std::string Folder;  ///< in the file system's encoding
  std::string Filter;
  std::string DefaultName;  ///< in the code page, because it is made from a site's text
  SaveHabits Habits{};
  /// A dialog that opens a file may begin in the folder that the user chose last instead; the folders are
  /// remembered by this name. Empty: it always begins in `Folder`.
  std::string RememberedAs{};
};

/// Message boxes and file dialogs.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual Answer Show(const MessageBox& box) = 0;
  /// The chosen path, or an empty text when the dialog was cancelled.
  [[nodiscard]] virtual std::string AskOpenName(const FileDialog& dialog) = 0;
  [[nodiscard]] virtual std::string AskSaveName(const FileDialog& dialog) = 0;

  /// A plain message box with one button and no title of its own.
  void Say(std::string text) { Show({std::move(text), {}, Buttons::Ok, BoxIcon::None}); }
};

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void Clear() = 0;
  virtual void SetText(const std::string& text) = 0;
};

/// Plays a wave file asynchronously; a second sound cuts off the first, and a missing file plays nothing.
class SoundPlayer {
 public:
  virtual ~SoundPlayer() = default;
  virtual void PlaySoundFile(const std::string& path) = 0;
};

/// The desktop's shell.
class Shell {
 public:
  virtual ~Shell() = default;
  virtual void OpenDocument(const std::string& path) = 0;
  virtual void OpenUrlOutside(const std::string& url) = 0;
  /// A file or a folder, with the desktop's program for it.
  virtual void OpenFile(const std::string& path) = 0;
};

/// The wall clock, as the user's locale writes it. A date or a time that does not fit the code page comes in
/// its ISO form.
class Clock {
 public:
  virtual ~Clock() = default;
  [[nodiscard]] virtual std::string ShortDate() = 0;
  [[nodiscard]] virtual std::string ShortTime() = 0;
  /// Local date and time in a form that sorts, whatever the locale: "2026-01-02 15:04:05".
  [[nodiscard]] virtual std::string IsoDateTime() = 0;
  /// Date and time of UTC: "2026-01-02T15:04:05Z".
  [[nodiscard]] virtual std::string UtcDateTime() = 0;
  /// A number with exactly two digits after the decimal sign, halves rounded away from zero: ASCII digits,
  /// with the locale's decimal and grouping signs, or the nearest ones in the code page.
  [[nodiscard]] virtual std::string TwoDecimals(double value) = 0;
};

/// All services, handed down by reference. The timers and the connection are those of the one
/// page fetch (`timTimeout`, `wsc`) and of the main window (`Timer1`).
struct Services {
  requite::EventLoop& EventLoop;
  requite::Connection& Connection;
  Timer& timTimeout;
  Timer& Timer1;
  requite::Internet& Internet;
  SettingsStore& Store;
  requite::Dialogs& Dialogs;
  requite::Clipboard& Clipboard;
  SoundPlayer& Sounds;
  requite::Shell& Shell;
  requite::Clock& Clock;
};

}  // namespace requite
