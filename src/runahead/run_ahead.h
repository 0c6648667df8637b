// SPDX-License-Identifier: MIT
// Several sites at a time: lanes read the sites to come, and the one scan replays what they have read.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/services.h"
#include "runahead/forecast.h"
#include "runahead/host_gate.h"
#include "runahead/lane.h"
#include "runahead/replay_connection.h"
#include "runahead/replay_internet.h"
#include "runahead/replay_loop.h"
#include "runahead/site_plan.h"
#include "scan/scan_context.h"

namespace requite {

/// How far ahead of the scan sites have been read, for whoever shows it.
struct AheadFigures {
  std::size_t SitesRead = 0;
  std::size_t SitesInProgress = 0;
  std::size_t SitesWaiting = 0;  ///< for a connection to their host
};

/// "Ahead: 37 sites read, 16 in progress, 4 waiting for their host".
[[nodiscard]] std::string Words(const AheadFigures& figures);

/// The setting SitesAtATime: 1 to 256; 1 when it is not a number.
[[nodiscard]] std::size_t SitesAtATime(const Settings& settings);

/// The scan stays the only authority: it runs as always, on services that answer from recordings. So whatever
/// flows from one site to the next, and whatever the user does meanwhile, has the same effects in the same
/// order as in a scan of one site at a time.
class RunAhead : public SiteEvents, protected Forecast {
 public:
  struct Limits {
    std::size_t RecordedBytes = std::size_t{256} * 1024 * 1024;  ///< above it no page begins
    std::size_t SitesAhead = 10'000;
    std::chrono::nanoseconds Turn = std::chrono::milliseconds(4);  ///< for events of the scan in one go
  };

  struct Needs {
    Services& Platform;  ///< of a scan of one site at a time
    std::function<requite::Line()> MakeLine;
    std::function<std::unique_ptr<Timer>()> MakeTimer;
    HostAddresses& Addresses;
    ReplayInternet::Waiting Wait;
    std::function<void()> AskForTurn;  ///< TakeTurn is to be called as an event of its own, once
    RunAhead::Limits Limits{};
  };

  explicit RunAhead(Needs needs);
  ~RunAhead() override;
  RunAhead(const RunAhead&) = delete;
  RunAhead& operator=(const RunAhead&) = delete;

  /// The services to make the scan with. They live as long as this object.
  [[nodiscard]] Services& ServicesOfScan() { return services_; }
  /// The scan made with them. It must also tell this object its site events, and may end first.
  void Follow(ScanContext& scan);

  /// Delivers waiting events to the scan, unless one of them is still being handled, and tends the lanes.
  void TakeTurn();

  /// Whether the scan's time-out is running.
  [[nodiscard]] bool PageInProgress() { return connection_.timTimeout().IsRunning(); }
  [[nodiscard]] AheadFigures Figures() const;
  [[nodiscard]] std::size_t BytesHeld() const { return bytes_.Held; }

  /// Forgets the site that is furthest ahead; it will be read again. False when no site is ahead.
  bool DropYoungest();

  void SiteBegins(const ScannedSite& site) override;
  void SiteFinished(const SiteVerdict&) override { DropBound(); }

 protected:
  /// The state of the scan that is followed.
  [[nodiscard]] ScanState& StateOfScan() { return scan_->State; }

  [[nodiscard]] Recording* FindPage(const std::string& host) override;
  [[nodiscard]] Recording* FindGet(const std::string& url, std::string_view agent) override;
  void Done(Recording& recording) override;
  void ConnectionClosed() override;
  void AskForTurn() override;

 private:
  void TurnIfMissed();
  void Begin(SitePlace place);
  void End();
  void Tend();
  void AskToTend();
  void StartLanes();
  std::unique_ptr<Lane> MakeLane(PlannedSite site, std::uint64_t rank);
  std::unique_ptr<Lane> TakeLane(const PlannedSite& site);
  void PlanAgain(SitePlace from);
  void Forget(const Lane* lane);
  void BindNewLane();
  void DropBound();
  [[nodiscard]] bool IsReplaying() const;

  Needs needs_;
  RecordedBytes bytes_;
  HostGate gate_;
  ReplayLoop loop_;
  ReplayConnection connection_;
  ReplayInternet internet_;
  Services services_;
  ScanContext* scan_ = nullptr;
  std::size_t most_ = 1;  ///< sites at a time; 1 while no scan runs
  std::unique_ptr<LaneSurroundings> surroundings_;
  std::optional<SitePlan> plan_;
  std::deque<std::unique_ptr<Lane>> lanes_;     ///< in the order of the plan
  std::unique_ptr<Lane> bound_;                 ///< the lane of the site that the scan is at
  std::vector<std::unique_ptr<Lane>> leaving_;  ///< bound before; one of their recordings is still replayed
  std::optional<PlannedSite> unbound_;          ///< that site, as long as it has no lane and no page
  std::vector<Lane*> active_;                   ///< those that have their steps
  bool turnAsked_ = false;
  bool mustTend_ = false;
  bool delivering_ = false;
  bool missedTurn_ = false;  ///< because of a yield
};

}  // namespace requite
