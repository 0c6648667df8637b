// SPDX-License-Identifier: MIT
// Steps of the same kind are kept as one, as long as nobody could tell.
#include "runahead/recording.h"

#include <algorithm>
#include <utility>

namespace requite {

Recording::Recording(std::string key, RecordedBytes& bytes) : key_(std::move(key)), all_(bytes) {
  Grow(kOverhead + key_.size());
}

Recording::~Recording() { all_.Held -= counted_; }

std::string Recording::KeyOfPage(std::string_view host, std::string_view path, bool securely) {
  return std::string(securely ? "secure page\n" : "page\n").append(host).append("\n").append(path);
}

std::string Recording::KeyOfGet(std::string_view url, std::string_view agent) {
  return std::string("get\n").append(agent).append("\n").append(url);
}

void Recording::Grow(std::size_t bytes) {
  counted_ += bytes;
  all_.Held += bytes;
}

void Recording::Keep(Happening what, std::size_t count) {
  if (over_) return;
  const bool joins = what == Happening::Data || what == Happening::Second;
  if (joins && HasStep() && steps_.back().What == what) {
    steps_.back().Count += count;
  } else {
    steps_.push_back({what, count});
  }
}

void Recording::Note(Happening what) {
  if (what == Happening::Second) ++silence_;
  if (what == Happening::Close) closed_ = true;
  Keep(what, 1);
  if (what == Happening::Close) over_ = true;
  if (OnMore) OnMore();
}

void Recording::NoteData(std::string_view bytes) {
  silence_ = 0;
  bytes_.append(bytes);
  Grow(bytes.size());
  Keep(Happening::Data, bytes.size());
  if (OnMore) OnMore();
}

void Recording::NoteFault(std::string_view words) {
  fault_ = words;
  Note(Happening::CertificateFault);
}

void Recording::NoteBody(std::optional<std::string> body) {
  if (body) Grow(body->size());
  body_ = std::move(body);
  answered_ = true;
  NoteOver();
}

void Recording::NoteOver() {
  over_ = true;
  if (OnMore) OnMore();
}

Recording::Step Recording::TakeStep(std::size_t mostBytes) {
  Kept& next = steps_[nextStep_];
  Step step{next.What, {}};
  std::size_t taken = 1;
  if (next.What == Happening::CertificateFault) step.Bytes = fault_;
  if (next.What == Happening::Data) {
    taken = std::min(next.Count, mostBytes);
    // A page usually comes as one step, which needs no copy.
    step.Bytes = taken == bytes_.size() ? std::exchange(bytes_, {}) : bytes_.substr(taken_, taken);
    taken_ = bytes_.empty() ? 0 : taken_ + taken;
  }
  next.Count -= taken;
  if (next.Count == 0) ++nextStep_;
  if (!HasStep()) {
    steps_.clear();
    nextStep_ = 0;
  }
  return step;
}

bool Recording::IsWholeFor(int seconds, std::size_t mostBytes) const {
  return !over_ || closed_ || silence_ >= seconds || bytes_.size() >= mostBytes;
}

}  // namespace requite
