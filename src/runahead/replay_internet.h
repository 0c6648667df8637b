// SPDX-License-Identifier: MIT
// The library for GETs that a scan gets: its moved pages come from recordings.
#pragma once

#include <functional>
#include <vector>

#include "platform/services.h"
#include "runahead/forecast.h"
#include "runahead/get_recorder.h"

namespace requite {

/// GETs of all other owners are handed on. A GET of the scan that was not foreseen takes its place at the
/// gate too, and is waited for as always.
class ReplayInternet : public Internet {
 public:
  /// How a call waits while events run.
  struct Waiting {
    std::function<bool(const bool& over)> Until;  ///< false when the program was told to end first
    std::function<void()> Wake;                   ///< makes every Until look again
  };

  struct Needs {
    Internet& Real;
    HostGate& Gate;
    RecordedBytes& Bytes;
    requite::Forecast& Forecast;
    Waiting Wait;
  };

  explicit ReplayInternet(Needs needs) : needs_(std::move(needs)) {}

  /// Whose GETs are those of the scan.
  void SetScan(Owner owner) { scan_ = owner; }

  void Start(Owner owner, const std::string& url, std::string_view agent, OnAnswer onAnswer) override;
  [[nodiscard]] std::optional<std::string> OpenUrl(Owner owner, const std::string& url,
                                                   std::string_view agent) override;
  void Abort(Owner owner) override;

  /// Whether a GET of the scan is waited for.
  [[nodiscard]] bool IsWaiting() const { return !calls_.empty(); }

 private:
  /// A call that waits, on its stack.
  struct Call {
    bool Over = false;
    bool Aborted = false;
  };

  [[nodiscard]] bool WaitFor(Recording& recording);

  Needs needs_;
  Owner scan_ = nullptr;
  std::vector<Call*> calls_;
};

}  // namespace requite
