// SPDX-License-Identifier: MIT
// Waiting for a recording of a GET.
#include "runahead/replay_internet.h"

#include <utility>

namespace requite {

void ReplayInternet::Start(Owner owner, const std::string& url, std::string_view agent, OnAnswer onAnswer) {
  needs_.Real.Start(owner, url, agent, std::move(onAnswer));
}

std::optional<std::string> ReplayInternet::OpenUrl(Owner owner, const std::string& url,
                                                   std::string_view agent) {
  if (owner != scan_) return needs_.Real.OpenUrl(owner, url, agent);
  if (Recording* const recording = needs_.Forecast.FindGet(url, agent)) {
    if (!WaitFor(*recording)) return std::nullopt;
    std::optional<std::string> body = recording->Body();
    needs_.Forecast.Done(*recording);
    return body;
  }
  Recording live(Recording::KeyOfGet(url, agent), needs_.Bytes);
  GetRecorder get(needs_.Real, needs_.Gate);
  get.Begin({url, std::string(agent)}, HostGate::kFirst, live);
  if (!WaitFor(live)) return std::nullopt;
  return live.Body();
}

/// False after an abort or at the end of the program; the recording may not exist any more then.
bool ReplayInternet::WaitFor(Recording& recording) {
  if (recording.Over()) return true;
  Call call;
  recording.OnMore = [this, &call] {
    call.Over = true;
    needs_.Wait.Wake();
  };
  calls_.push_back(&call);
  const bool over = needs_.Wait.Until(call.Over);
  std::erase(calls_, &call);
  if (call.Aborted) return false;
  recording.OnMore = nullptr;
  return over;
}

void ReplayInternet::Abort(Owner owner) {
  needs_.Real.Abort(owner);
  if (owner != scan_) return;
  for (Call* call : calls_) call->Over = call->Aborted = true;
  needs_.Wait.Wake();
}

}  // namespace requite
