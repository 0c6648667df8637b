// SPDX-License-Identifier: MIT
// Replaying one recording after the other.
#include "runahead/replay_connection.h"

#include <utility>

namespace requite {

void ReplayTimer::Start(int intervalMilliseconds) {
  isRunning_ = true;
  clock_.Start(intervalMilliseconds);
}

void ReplayTimer::Stop() {
  isRunning_ = false;
  clock_.Stop();
}

void ReplayTimer::Tick() const {
  if (isRunning_ && OnTick) OnTick();
}

ReplayConnection::ReplayConnection(Needs needs)
    : forecast_(needs.Forecast),
      bytes_(needs.Bytes),
      recorder_(std::move(needs.Line), needs.Gate, *this),
      timer_(needs.Clock) {
  recorder_.SetRank(HostGate::kFirst);
  needs.Clock.OnTick = [this] {
    const bool recordingTicks = playing_ != nullptr && (playing_->HasStep() || !playing_->Over());
    if (!recordingTicks) timer_.Tick();
  };
}

ReplayConnection::~ReplayConnection() { Drop(); }

void ReplayConnection::Connect(const std::string& host, std::uint16_t port) {
  Drop();
  host_ = host;
  port_ = port;
  if (Recording* const recording = forecast_.FindPage(host)) {
    Play(*recording);
  } else {
    GoLive();
  }
  if (HasEvent()) forecast_.AskForTurn();
}

void ReplayConnection::Play(Recording& recording) {
  playing_ = &recording;
  playing_->OnMore = [this] { forecast_.AskForTurn(); };
}

void ReplayConnection::GoLive() { recorder_.Connect(host_, port_); }

Recording& ReplayConnection::NewRecording(const std::string& host) {
  live_ = std::make_unique<Recording>(Recording::KeyOfPage(host, {}, false), bytes_);
  Play(*live_);
  return *live_;
}

void ReplayConnection::Drop() {
  established_ = false;
  received_.clear();
  resend_.clear();
  Recording* const played = std::exchange(playing_, nullptr);
  if (played == nullptr) return;
  played->OnMore = nullptr;
  if (played != live_.get()) return forecast_.Done(*played);
  recorder_.Close();
  live_.reset();
}

void ReplayConnection::Close() {
  Drop();
  forecast_.ConnectionClosed();
}

/// A lane may have asked in other words: the name given to sites can change at any time. Then its answer is
/// no answer to this request.
void ReplayConnection::SendData(std::string_view bytes) {
  if (!established_) return;
  if (playing_ == live_.get()) return recorder_.SendData(bytes);
  if (bytes == playing_->Request()) return;
  Drop();
  resend_ = bytes;
  GoLive();
}

std::string ReplayConnection::GetData() {
  std::string data = std::exchange(received_, {});
  if (HasEvent()) forecast_.AskForTurn();
  return data;
}

bool ReplayConnection::HasEvent() const {
  return playing_ != nullptr && playing_->HasStep() && received_.size() < kMostHeld;
}

void ReplayConnection::TakeConnect() {
  established_ = true;
  if (resend_.empty()) return Events->OnConnect();
  recorder_.SendData(std::exchange(resend_, {}));
}

bool ReplayConnection::Deliver() {
  if (!HasEvent()) return false;
  Recording::Step step = playing_->TakeStep(kPiece);
  switch (step.What) {
    case Happening::CertificateFault: Events->OnCertificateFault(host_, step.Bytes); break;
    case Happening::Connect: TakeConnect(); break;
    case Happening::Second: timer_.Tick(); break;
    case Happening::Data:
      received_.append(step.Bytes);
      Events->OnDataArrival(received_.size());
      break;
    case Happening::Close: {
      std::string rest = std::exchange(received_, {});
      Drop();
      received_ = std::move(rest);
      Events->OnClose();
      break;
    }
  }
  return true;
}

}  // namespace requite
