// SPDX-License-Identifier: MIT
// The time that a scan will still take, in words that do not jump about.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace requite {

class TimeLeft {
 public:
  using Moment = std::chrono::steady_clock::time_point;

  /// A scan begins: what is known of the last one is forgotten.
  void Begin(Moment now);

  /// "under 1 min", "about 4 min" or "about 2 h"; empty while too few of the `all` sites are done to
  /// know. `done` also counts the sites that were read ahead. To be called several times a second at most;
  /// the estimate moves slowly from one call to the next.
  [[nodiscard]] std::string Words(double done, double all, Moment now);

 private:
  [[nodiscard]] std::optional<double> Estimate(double done, double all, Moment now);

  Moment begin_;
  Moment last_;
  std::optional<double> seconds_;  ///< at `last_`
  std::optional<double> minutes_;  ///< as they were last said
};

}  // namespace requite
