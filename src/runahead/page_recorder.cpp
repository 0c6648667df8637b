// SPDX-License-Identifier: MIT
// Between a connection and who reads its pages.
#include "runahead/page_recorder.h"

#include <utility>

namespace requite {
namespace {

constexpr int kSecond = 1000;

}  // namespace

PageRecorder::PageRecorder(Line line, HostGate& gate, Owner& owner)
    : line_(std::move(line)), gate_(gate), owner_(owner) {
  line_.Connection->Events = this;
  line_.Seconds->OnTick = [this] {
    if (recording_ == nullptr) return;
    recording_->Note(Happening::Second);
    owner_.OnSecond();
  };
  place_.OnGranted = [this] {
    line_.Seconds->Start(kSecond);
    line_.Connection->Connect(host_, port_);
  };
}

PageRecorder::~PageRecorder() { GiveUp(); }

void PageRecorder::Connect(const std::string& host, std::uint16_t port) {
  Close();
  recording_ = &owner_.NewRecording(host);
  host_ = host;
  port_ = port;
  recordedBytes_ = 0;
  gate_.Ask(place_, host, rank_);
}

void PageRecorder::SendData(std::string_view bytes) {
  if (recording_ == nullptr) return;
  recording_->NoteRequest(bytes);
  if (Events == nullptr) line_.Seconds->Start(kSecond);
  line_.Connection->SendData(bytes);
}

void PageRecorder::End() {
  recording_ = nullptr;
  line_.Seconds->Stop();
  line_.Connection->Close();
  gate_.Leave(place_);
}

void PageRecorder::Close() { GiveUp(); }

void PageRecorder::GiveUp() {
  received_.clear();
  if (recording_ == nullptr) return;
  recording_->NoteOver();
  End();
}

void PageRecorder::SetRank(std::uint64_t rank) {
  rank_ = rank;
  gate_.SetRank(place_, rank);
}

void PageRecorder::OnConnect() {
  recording_->Note(Happening::Connect);
  if (Events != nullptr) return Events->OnConnect();
  line_.Seconds->Stop();  // until the scan, which may be busy, has sent its request
}

void PageRecorder::OnDataArrival(std::size_t) {
  std::string bytes = line_.Connection->GetData();
  const std::size_t size = bytes.size();
  recording_->NoteData(bytes);
  if (Events != nullptr) {
    received_.append(bytes);
    Events->OnDataArrival(received_.size());
  } else if ((recordedBytes_ += size) >= kMostBytes) {
    Close();
  }
}

void PageRecorder::OnClose() {
  recording_->Note(Happening::Close);
  End();
  if (Events != nullptr) Events->OnClose();
}

void PageRecorder::OnCertificateFault(const std::string& host, std::string_view words) {
  recording_->NoteFault(words);
  if (Events != nullptr) Events->OnCertificateFault(host, words);
}

}  // namespace requite
