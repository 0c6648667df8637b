// SPDX-License-Identifier: MIT
// Who may have a connection: no site shall notice that many are read at a time.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/services.h"

namespace requite {

/// Finds the address that a connection to a host will be made to.
class HostAddresses {
 public:
  using OnFound = std::function<void(const std::string& address)>;

  virtual ~HostAddresses() = default;
  /// Calls `onFound`, at once or as an event, with any text that two hosts have in common only when they have
  /// the same address; it is empty for an unknown host. Each asker may have one question.
  virtual void Find(const std::string& host, const void* asker, OnFound onFound) = 0;
  virtual void Forget(const void* asker) = 0;
};

/// One connection to a host name, four to an address, a given number in all. Who has the lowest rank comes
/// first. A pause may follow each connection to a host.
class HostGate {
 public:
  static constexpr int kMostOfAddress = 4;

  /// The rank of the site that the scan is at. Only this one may begin a page while the memory is full.
  static constexpr std::uint64_t kFirst = 0;

  /// One who wants a connection. It leaves the gate before its end.
  struct Place {
    std::function<void()> OnGranted;  ///< may run at once

   private:
    friend class HostGate;
    enum class State { Outside, LookingUp, Waiting, Inside };
    State Is = State::Outside;
    std::uint64_t Rank = 0;
    std::string Host;
    std::string Address;
    std::set<Place*, bool (*)(const Place*, const Place*)>* Queue = nullptr;
  };

  struct Needs {
    HostAddresses& Addresses;
    std::function<std::unique_ptr<Timer>()> MakeTimer;
    std::function<std::chrono::milliseconds()> Pause;  ///< between two connections to a host
  };

  explicit HostGate(Needs needs);

  /// Wants a connection to a host; leaves the gate before, if need be.
  void Ask(Place& place, const std::string& host, std::uint64_t rank);
  /// Has no connection any more, or wants none.
  void Leave(Place& place);
  void SetRank(Place& place, std::uint64_t rank);

  void SetMost(std::size_t inAll);
  /// Nobody gets in while it is shut.
  void SetShut(bool shut);
  /// The memory for recordings is full.
  void SetFull(bool full);

  /// Those who could get in if their host or its address were free.
  [[nodiscard]] std::size_t WaitingForHost() const { return waitingForHost_; }

 private:
  using Queue = std::set<Place*, bool (*)(const Place*, const Place*)>;

  struct Crowd {
    Crowd();
    int Inside = 0;
    Queue Waiting;
  };
  struct Resting {
    std::unique_ptr<Timer> Alarm;
    std::string Host;
    bool Over = true;
  };
  using Crowds = std::unordered_map<std::string, Crowd>;

  void Try(Place& place);
  void Wait(Place& place, Queue& queue);
  void StopWaiting(Place& place);
  void Admit(const std::string& host, const std::string& address);
  void FreeHost(const std::string& host);
  void Rest(const std::string& host, std::chrono::milliseconds pause);
  [[nodiscard]] bool IsHostQueue(const Queue* queue) const {
    return queue != &all_.Waiting && queue != &full_;
  }
  static void Tidy(Crowds& crowds, const std::string& name);

  Needs needs_;
  Crowds hosts_;
  Crowds addresses_;
  Crowd all_;
  Queue full_;
  std::size_t most_ = 1;
  std::size_t waitingForHost_ = 0;
  bool isShut_ = false;
  bool isFull_ = false;
  std::vector<std::unique_ptr<Resting>> resting_;
};

}  // namespace requite
