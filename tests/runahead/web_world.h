// SPDX-License-Identifier: MIT
// A web that only moves when the test says so: what happens next, and to whom, is drawn by lot.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "runahead/host_gate.h"
#include "runahead/random_web.h"
#include "support/fakes.h"

namespace requite::test {

class WebWorld;

/// One connection and the timer of its seconds: both move together.
class Wire : public Connection {
 public:
  Wire(WebWorld& world, ManualTimer& seconds);
  ~Wire() override;

  void Connect(const std::string& host, std::uint16_t port) override;
  void SendData(std::string_view bytes) override;
  std::string GetData() override { return std::exchange(received_, {}); }
  void Close() override { open_ = false; }

  [[nodiscard]] bool CanMove() const;
  /// The next thing happens: an event, or a second passes.
  void Move();

  [[nodiscard]] bool IsOpen() const { return open_; }
  [[nodiscard]] const std::string& Host() const { return host_; }

 private:
  struct Coming {
    enum class Kind { CertificateFault, Connect, Second, Data, Close } What;
    std::string Text{};
  };

  void TellFault();

  WebWorld& world_;
  ManualTimer& seconds_;
  bool open_ = false;
  std::string host_;
  std::deque<Coming> coming_;
  std::string received_;
};

/// A timer that the world may let tick.
class WorldTimer : public ManualTimer {
 public:
  explicit WorldTimer(WebWorld& world);
  ~WorldTimer() override;

 private:
  WebWorld& world_;
};

class WebInternet : public Internet {
 public:
  explicit WebInternet(WebWorld& world) : world_(world) {}
  void Start(Owner owner, const std::string& url, std::string_view agent, OnAnswer onAnswer) override;
  std::optional<std::string> OpenUrl(Owner owner, const std::string& url, std::string_view agent) override;
  void Abort(Owner owner) override;

 private:
  WebWorld& world_;
};

/// Three hosts share an address; some are looked up first.
class WebAddresses : public HostAddresses {
 public:
  explicit WebAddresses(WebWorld& world) : world_(world) {}
  void Find(const std::string& host, const void* asker, OnFound onFound) override;
  void Forget(const void* asker) override;
  [[nodiscard]] static std::string Of(const std::string& host);

 private:
  WebWorld& world_;
};

class WebWorld {
 public:
  WebWorld(const Web& web, std::uint64_t seed) : Pages(web), Lots(seed) {}

  /// Something that is free to happen happens. False when nothing is.
  bool Move(bool mayTick = true);
  [[nodiscard]] bool Faulty(const std::string& host) const { return Secure() && Pages.Faults.contains(host); }

  /// Whether several sites are read at a time.
  [[nodiscard]] bool Replays() const { return Clock != nullptr; }

  const Web& Pages;
  Dice Lots;
  std::function<bool()> Secure = [] { return false; };
  std::map<std::string, int> Requests;
  WebInternet Internet{*this};
  WebAddresses Addresses{*this};
  std::function<void()> Turn;    ///< of the scan that replays, if it has asked for one
  ManualTimer* Clock = nullptr;  ///< of that scan
  std::size_t MostOpen = 1;      ///< what the gate has to keep
  int TicksOfASecond = 1;

 private:
  friend class Wire;
  friend class WorldTimer;
  friend class WebInternet;
  friend class WebAddresses;

  struct Waiting {
    const void* Owner;
    std::function<void()> Go;
  };
  void CheckManners(const Wire& begun) const;

  bool handling_ = false;  ///< a server's event, during which no other one comes
  std::vector<Wire*> wires_;
  std::vector<WorldTimer*> timers_;
  std::deque<Waiting> waiting_;  ///< GETs and look-ups
};

}  // namespace requite::test
