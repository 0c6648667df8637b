// SPDX-License-Identifier: MIT
// The same scan one site at a time and several at a time, and all that each leaves as one text.
#pragma once

#include <memory>
#include <string>

#include "runahead/run_ahead.h"
#include "runahead/web_world.h"
#include "scan/scan.h"
#include "support/scan_rig.h"

namespace requite::test {

/// Makes the RunAhead under test, or one that is wrong on purpose.
using MakeRunAhead = std::function<std::unique_ptr<RunAhead>(RunAhead::Needs)>;

struct AheadOptions {
  MakeRunAhead Make = [](RunAhead::Needs needs) { return std::make_unique<RunAhead>(std::move(needs)); };
  RunAhead::Limits Limits{};
  std::size_t Sites = 4;
  int EvictionsOneIn = 0;  ///< moves of the world; 0: none
  int TicksOfASecond = 1;  ///< anything else is wrong
};

class ScanOfCase {
 public:
  /// Without options, one site at a time.
  ScanOfCase(const Case& given, std::uint64_t seed, const AheadOptions* ahead);
  ~ScanOfCase();
  ScanOfCase(const ScanOfCase&) = delete;
  ScanOfCase& operator=(const ScanOfCase&) = delete;

  /// From the start until nothing more happens, then Stop if the scan stands still. False when it does not
  /// come to an end.
  bool Run();
  [[nodiscard]] std::string Remains() const;
  [[nodiscard]] int Requests() const;
  [[nodiscard]] std::size_t CallsOfHost() const;

  ScanRig Rig;
  WebWorld World;

 private:
  class Host;
  void Grant(const Wish& wish);
  void OnYield();

  const Case& given_;
  int evictionsOneIn_ = 0;
  std::size_t mostBytes_ = 0;
  std::unique_ptr<Wire> wire_;  ///< of the scan of one site at a time
  std::unique_ptr<Host> host_;
  Services plain_;
  std::unique_ptr<RunAhead> ahead_;
  std::unique_ptr<Scan> road_;
  std::vector<Wish> due_;
  bool granting_ = false;
  int depth_ = 0;
};

}  // namespace requite::test
