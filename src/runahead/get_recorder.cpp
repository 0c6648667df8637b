// SPDX-License-Identifier: MIT
// One GET at a time.
#include "runahead/get_recorder.h"

#include <utility>

#include "platform/text.h"

namespace requite {
namespace {

/// The host that a URL names, which may be anything.
std::string HostOf(std::string_view url) {
  const std::size_t scheme = url.find("://");
  if (scheme != std::string_view::npos) url.remove_prefix(scheme + 3);
  for (const char end : {'/', '?', '#'}) url = Before(url, end);
  if (const std::size_t user = url.rfind('@'); user != std::string_view::npos) url.remove_prefix(user + 1);
  return std::string(Before(url, ':'));
}

}  // namespace

void GetRecorder::Begin(GetRequest request, std::uint64_t rank, Recording& recording,
                        std::function<void()> onDone) {
  Cancel();
  recording_ = &recording;
  onDone_ = std::move(onDone);
  const std::string host = HostOf(request.Url);
  place_.OnGranted = [this, request = std::move(request)] {
    gets_.Start(request.Url, request.Agent,
                [this](std::optional<std::string> body) { OnAnswer(std::move(body)); });
  };
  gate_.Ask(place_, host, rank);
}

void GetRecorder::OnAnswer(std::optional<std::string> body) {
  Recording* const recording = std::exchange(recording_, nullptr);
  const std::function<void()> onDone = std::exchange(onDone_, {});
  gate_.Leave(place_);
  recording->NoteBody(std::move(body));
  if (onDone) onDone();
}

void GetRecorder::Cancel() {
  recording_ = nullptr;
  gets_.Abort();
  gate_.Leave(place_);
}

}  // namespace requite
