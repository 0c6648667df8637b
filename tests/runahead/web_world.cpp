// SPDX-License-Identifier: MIT
// Lists what can happen next each time, and picks one of it at random.
#include "runahead/web_world.h"

#include <gtest/gtest.h>

namespace requite::test {

Wire::Wire(WebWorld& world, ManualTimer& seconds) : world_(world), seconds_(seconds) {
  world_.wires_.push_back(this);
}

Wire::~Wire() { std::erase(world_.wires_, this); }

void Wire::Connect(const std::string& host, std::uint16_t) {
  open_ = true;
  host_ = host;
  received_.clear();
  coming_.clear();
  world_.CheckManners(*this);
  // A fault that is known from before may be told at once; the replay of it is an event in any case.
  const bool faulty = world_.Faulty(host);
  const bool told = faulty && world_.Replays() && world_.Lots.OneIn(2);
  if (faulty && !told) coming_.push_back({Coming::Kind::CertificateFault});
  const auto root = world_.Pages.Pages.find(host + "/");
  if (root != world_.Pages.Pages.end() && root->second.Connects) coming_.push_back({Coming::Kind::Connect});
  if (told) TellFault();
}

void Wire::TellFault() { Events->OnCertificateFault(host_, world_.Pages.Faults.at(host_)); }

void Wire::SendData(std::string_view bytes) {
  if (!open_) return;
  const std::string path(Before(bytes.substr(4), ' '));
  ++world_.Requests[host_ + path];
  const auto page = world_.Pages.Pages.find(host_ + path);
  if (page == world_.Pages.Pages.end()) {
    coming_.push_back({Coming::Kind::Data, "HTTP/1.1 404 Not Found\r\n\r\nnone"});
    coming_.push_back({Coming::Kind::Close});
    return;
  }
  const bool named = bytes.find("User-Agent") != std::string_view::npos;
  for (const ServerAnswer::Piece& piece : page->second.Pieces) {
    for (int i = 0; i < piece.SilentSeconds; ++i) coming_.push_back({Coming::Kind::Second});
    coming_.push_back({Coming::Kind::Data, named ? piece.Text + " " : piece.Text});
  }
  if (page->second.Closes) coming_.push_back({Coming::Kind::Close});
}

bool Wire::CanMove() const { return !world_.handling_ && (seconds_.Running || (open_ && !coming_.empty())); }

void Wire::Move() {
  if (!open_ || coming_.empty() || coming_.front().What == Coming::Kind::Second) {
    if (open_ && !coming_.empty()) coming_.pop_front();
    for (int i = 0; i < world_.TicksOfASecond; ++i) seconds_.Tick();
    return;
  }
  Coming next = std::move(coming_.front());
  coming_.pop_front();
  WebWorld& world = world_;
  world.handling_ = true;
  switch (next.What) {
    case Coming::Kind::CertificateFault: TellFault(); break;
    case Coming::Kind::Connect: Events->OnConnect(); break;
    case Coming::Kind::Close:
      open_ = false;
      Events->OnClose();
      break;
    default:
      received_ += next.Text;
      Events->OnDataArrival(received_.size());
      break;
  }
  world.handling_ = false;
}

WorldTimer::WorldTimer(WebWorld& world) : world_(world) { world_.timers_.push_back(this); }
WorldTimer::~WorldTimer() { std::erase(world_.timers_, this); }

void WebInternet::Start(Owner owner, const std::string& url, std::string_view, OnAnswer onAnswer) {
  ++world_.Requests[url];
  const auto body = world_.Pages.Bodies.find(url);
  const auto found = body == world_.Pages.Bodies.end() ? std::nullopt : body->second;
  world_.waiting_.push_back({owner, [found, onAnswer = std::move(onAnswer)] { onAnswer(found); }});
}

std::optional<std::string> WebInternet::OpenUrl(Owner, const std::string& url, std::string_view) {
  ++world_.Requests[url];
  const auto body = world_.Pages.Bodies.find(url);
  return body == world_.Pages.Bodies.end() ? std::nullopt : body->second;
}

void WebInternet::Abort(Owner owner) {
  std::erase_if(world_.waiting_, [owner](const auto& each) { return each.Owner == owner; });
}

std::string WebAddresses::Of(const std::string& host) { return std::string(1, char('0' + host.size() % 3)); }

void WebAddresses::Find(const std::string& host, const void* asker, OnFound onFound) {
  if (world_.Lots.OneIn(2)) return onFound(Of(host));
  world_.waiting_.push_back({asker, [host, onFound = std::move(onFound)] { onFound(Of(host)); }});
}

void WebAddresses::Forget(const void* asker) { world_.Internet.Abort(asker); }

void WebWorld::CheckManners(const Wire& begun) const {
  std::size_t open = 0;
  std::size_t ofHost = 0;
  std::size_t ofAddress = 0;
  for (const Wire* wire : wires_) {
    if (!wire->IsOpen()) continue;
    ++open;
    if (Lower(wire->Host()) == Lower(begun.Host())) ++ofHost;
    if (WebAddresses::Of(wire->Host()) == WebAddresses::Of(begun.Host())) ++ofAddress;
  }
  EXPECT_LE(open, MostOpen);
  EXPECT_EQ(ofHost, 1U) << begun.Host();
  EXPECT_LE(ofAddress, 4U) << begun.Host();
}

bool WebWorld::Move(bool mayTick) {
  std::vector<std::function<void()>> free;
  for (Wire* wire : wires_) {
    if (wire->CanMove()) free.emplace_back([wire] { wire->Move(); });
  }
  for (WorldTimer* timer : timers_) {
    if (timer->Running) free.emplace_back([timer] { timer->Tick(); });
  }
  for (std::size_t i = 0; i < waiting_.size(); ++i) {
    free.emplace_back([this, i] {
      const Waiting next = std::move(waiting_[i]);
      waiting_.erase(waiting_.begin() + static_cast<std::ptrdiff_t>(i));
      next.Go();
    });
  }
  if (Turn) {
    for (int weight = 0; weight < 2; ++weight) free.emplace_back([this] { std::exchange(Turn, nullptr)(); });
  }
  if (mayTick && Clock != nullptr && Clock->Running && (free.empty() || Lots.OneIn(20))) {
    free.assign(1, [this] { Clock->Tick(); });
  }
  if (free.empty()) return false;
  Lots.Of(free)();
  return true;
}

}  // namespace requite::test
