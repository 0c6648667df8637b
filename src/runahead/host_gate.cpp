// SPDX-License-Identifier: MIT
// Each place waits in one queue, for the first thing that it lacks. What becomes free wakes only those who
// wait for it.
#include "runahead/host_gate.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/text.h"

namespace requite {
namespace {

bool ComesFirst(std::uint64_t a, std::uint64_t b, const void* left, const void* right) {
  return a != b ? a < b : std::less<>()(left, right);
}

}  // namespace

HostGate::Crowd::Crowd()
    : Waiting([](const Place* a, const Place* b) { return ComesFirst(a->Rank, b->Rank, a, b); }) {}

HostGate::HostGate(Needs needs) : needs_(std::move(needs)), full_(all_.Waiting.key_comp()) {}

void HostGate::Ask(Place& place, const std::string& host, std::uint64_t rank) {
  Leave(place);
  place.Rank = rank;
  place.Host = Lower(host);
  place.Address.clear();
  place.Is = Place::State::LookingUp;
  needs_.Addresses.Find(host, &place, [this, &place](const std::string& address) {
    place.Address = address;
    Try(place);
  });
}

void HostGate::Try(Place& place) {
  if (isFull_ && place.Rank != kFirst) return Wait(place, full_);
  if (!place.Host.empty()) {
    Crowd& host = hosts_[place.Host];
    if (host.Inside > 0) return Wait(place, host.Waiting);
    if (!place.Address.empty()) {
      Crowd& address = addresses_[place.Address];
      if (address.Inside >= kMostOfAddress) return Wait(place, address.Waiting);
    }
  }
  if (isShut_ || static_cast<std::size_t>(all_.Inside) >= most_) return Wait(place, all_.Waiting);
  place.Is = Place::State::Inside;
  ++all_.Inside;
  if (!place.Host.empty()) ++hosts_[place.Host].Inside;
  if (!place.Address.empty()) ++addresses_[place.Address].Inside;
  place.OnGranted();
}

void HostGate::Wait(Place& place, Queue& queue) {
  place.Is = Place::State::Waiting;
  place.Queue = &queue;
  queue.insert(&place);
  if (IsHostQueue(&queue)) ++waitingForHost_;
}

void HostGate::StopWaiting(Place& place) {
  if (IsHostQueue(place.Queue)) --waitingForHost_;
  place.Queue->erase(&place);
  place.Queue = nullptr;
  place.Is = Place::State::LookingUp;
}

void HostGate::Leave(Place& place) {
  const Place::State was = place.Is;
  if (was == Place::State::LookingUp) needs_.Addresses.Forget(&place);
  if (was == Place::State::Waiting) StopWaiting(place);
  place.Is = Place::State::Outside;
  if (was != Place::State::Inside) return;
  --all_.Inside;
  const std::string host = place.Host;
  const std::string address = place.Address;
  if (!address.empty()) --addresses_[address].Inside;
  const std::chrono::milliseconds pause = isShut_ ? std::chrono::milliseconds(0) : needs_.Pause();
  if (pause.count() > 0 && !host.empty()) {
    Rest(host, pause);
  } else if (!host.empty()) {
    --hosts_[host].Inside;
  }
  Admit(host, address);
}

/// Lets in whom the given host, its address or the number in all have kept out.
void HostGate::Admit(const std::string& host, const std::string& address) {
  while (!isShut_) {
    Place* next = nullptr;
    const auto consider = [&next](const Queue& queue) {
      if (queue.empty()) return;
      Place* const head = *queue.begin();
      if (next == nullptr || ComesFirst(head->Rank, next->Rank, head, next)) next = head;
    };
    if (const auto found = hosts_.find(host); found != hosts_.end() && found->second.Inside == 0) {
      consider(found->second.Waiting);
    }
    const auto found = addresses_.find(address);
    if (found != addresses_.end() && found->second.Inside < kMostOfAddress) consider(found->second.Waiting);
    if (static_cast<std::size_t>(all_.Inside) < most_) consider(all_.Waiting);
    if (next == nullptr) break;
    StopWaiting(*next);
    Try(*next);
  }
  Tidy(hosts_, host);
  Tidy(addresses_, address);
}

void HostGate::Tidy(Crowds& crowds, const std::string& name) {
  const auto found = crowds.find(name);
  if (found != crowds.end() && found->second.Inside == 0 && found->second.Waiting.empty())
    crowds.erase(found);
}

void HostGate::FreeHost(const std::string& host) {
  --hosts_[host].Inside;
  Admit(host, {});
}

void HostGate::Rest(const std::string& host, std::chrono::milliseconds pause) {
  auto free = std::find_if(resting_.begin(), resting_.end(), [](const auto& each) { return each->Over; });
  if (free == resting_.end()) {
    resting_.push_back(std::make_unique<Resting>());
    free = resting_.end() - 1;
    (*free)->Alarm = needs_.MakeTimer();
    (*free)->Alarm->OnTick = [this, rest = free->get()] {
      rest->Alarm->Stop();
      rest->Over = true;
      FreeHost(rest->Host);
    };
  }
  (*free)->Over = false;
  (*free)->Host = host;
  (*free)->Alarm->Start(static_cast<int>(pause.count()));
}

void HostGate::SetRank(Place& place, std::uint64_t rank) {
  if (place.Rank == rank) return;
  const bool waits = place.Is == Place::State::Waiting;
  if (waits) StopWaiting(place);
  place.Rank = rank;
  if (waits) Try(place);
}

void HostGate::SetMost(std::size_t inAll) { most_ = std::max<std::size_t>(1, inAll); }

void HostGate::SetShut(bool shut) {
  isShut_ = shut;
  if (!shut) Admit({}, {});
}

void HostGate::SetFull(bool full) {
  if (isFull_ == full) return;
  isFull_ = full;
  if (full) return;
  const std::vector<Place*> waiting(full_.begin(), full_.end());
  for (Place* place : waiting) {
    if (place->Queue != &full_) continue;
    StopWaiting(*place);
    Try(*place);
  }
}

}  // namespace requite
