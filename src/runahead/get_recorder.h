// SPDX-License-Identifier: MIT
// The GET of a moved page that nobody waits for on the stack.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/http_get_text.h"
#include "platform/services.h"
#include "runahead/host_gate.h"
#include "runahead/recording.h"

namespace requite {

/// Waits for its place at the gate like a page, then gets one moved page.
class GetRecorder {
 public:
  GetRecorder(Internet& internet, HostGate& gate) : gets_(internet), gate_(gate) {}
  ~GetRecorder() { Cancel(); }
  GetRecorder(const GetRecorder&) = delete;
  GetRecorder& operator=(const GetRecorder&) = delete;

  /// The recording gets the answer, and then `onDone` runs. The recording must live until then or Cancel.
  void Begin(GetRequest request, std::uint64_t rank, Recording& recording, std::function<void()> onDone = {});
  void Cancel();
  [[nodiscard]] bool IsBusy() const { return recording_ != nullptr; }
  void SetRank(std::uint64_t rank) { gate_.SetRank(place_, rank); }

 private:
  void OnAnswer(std::optional<std::string> body);

  Gets gets_;
  HostGate& gate_;
  HostGate::Place place_;
  Recording* recording_ = nullptr;
  std::function<void()> onDone_;
};

}  // namespace requite
