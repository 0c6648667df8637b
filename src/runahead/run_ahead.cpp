// SPDX-License-Identifier: MIT
// Which sites are read ahead, and which of them the scan is at.
#include "runahead/run_ahead.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "model/visitor.h"
#include "platform/runtime_failure.h"

namespace requite {
namespace {

constexpr std::uint64_t kBoundRank = HostGate::kFirst + 1;

std::uint64_t RankOf(SitePlace place) {
  return (static_cast<std::uint64_t>(place.MainSiteNumber) << 32U) + static_cast<std::uint64_t>(place.Row);
}

std::chrono::milliseconds PauseOf(SettingsStore& store) {
  std::int32_t pause = 0;
  PassOver([&] { pause = Settings(store).LongNumber(setting::PauseBetweenPages); });
  return std::chrono::milliseconds(std::max(0, pause));
}

}  // namespace

std::string Words(const AheadFigures& figures) {
  return "Ahead: " + std::to_string(figures.SitesRead) + (figures.SitesRead == 1 ? " site" : " sites") +
         " read, " + std::to_string(figures.SitesInProgress) + " in progress, " +
         std::to_string(figures.SitesWaiting) + " waiting for their host";
}

std::size_t SitesAtATime(const Settings& settings) {
  std::int16_t number = 1;
  PassOver([&] { number = settings.Number(setting::SitesAtATime); });
  return std::clamp<std::size_t>(static_cast<std::size_t>(std::max<std::int16_t>(1, number)), 1,
                                 kMostSitesAtATime);
}

RunAhead::RunAhead(Needs needs)
    : needs_(std::move(needs)),
      gate_({needs_.Addresses, needs_.MakeTimer, [this] { return PauseOf(needs_.Platform.Store); }}),
      loop_(needs_.Platform.EventLoop, [this] { TurnIfMissed(); }),
      connection_({needs_.MakeLine(), gate_, bytes_, *this, needs_.Platform.timTimeout}),
      internet_({needs_.Platform.Internet, gate_, bytes_, *this, needs_.Wait}),
      services_{loop_,
                connection_,
                connection_.timTimeout(),
                needs_.Platform.Timer1,
                internet_,
                needs_.Platform.Store,
                needs_.Platform.Dialogs,
                needs_.Platform.Clipboard,
                needs_.Platform.Sounds,
                needs_.Platform.Shell,
                needs_.Platform.Clock} {}

RunAhead::~RunAhead() {
  scan_ = nullptr;  // it has ended
  connection_.Close();
  End();
}

void RunAhead::Follow(ScanContext& scan) {
  scan_ = &scan;
  internet_.SetScan(&scan.Gets);
}

// --- the scan's own events

void RunAhead::AskForTurn() {
  if (!std::exchange(turnAsked_, true)) needs_.AskForTurn();
}

void RunAhead::TakeTurn() {
  turnAsked_ = false;
  if (std::exchange(mustTend_, false)) Tend();
  // A handler of the scan may let events run, and one may open a message box. Its next event waits for it.
  if (delivering_) return;
  if (loop_.IsYielding()) {
    missedTurn_ = true;
    return;
  }
  struct Delivery {
    explicit Delivery(RunAhead& ahead) : Ahead(ahead) { Ahead.delivering_ = true; }
    ~Delivery() {
      Ahead.delivering_ = false;
      if (Ahead.connection_.HasEvent()) Ahead.AskForTurn();
    }
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;
    RunAhead& Ahead;
  };
  const Delivery delivery(*this);
  const auto end = std::chrono::steady_clock::now() + needs_.Limits.Turn;
  while (connection_.Deliver() && std::chrono::steady_clock::now() < end) {
  }
}

void RunAhead::TurnIfMissed() {
  if (std::exchange(missedTurn_, false)) AskForTurn();
}

// --- what the scan asks for

Recording* RunAhead::FindPage(const std::string& host) {
  if (unbound_) BindNewLane();
  if (!bound_) return nullptr;
  const ScanState& state = scan_->State;
  const bool securely = AsksSecurely(scan_->Settings);
  Recording* const found = bound_->Find(Recording::KeyOfPage(host, state.Page.PagePath, securely));
  if (found == nullptr) return nullptr;
  if (!found->IsWholeFor(state.TimeoutSeconds, PageRecorder::kMostBytes)) return nullptr;
  bound_->SetRank(HostGate::kFirst);
  return found;
}

Recording* RunAhead::FindGet(const std::string& url, std::string_view agent) {
  if (!bound_) return nullptr;
  Recording* const found = bound_->Find(Recording::KeyOfGet(url, agent));
  if (found == nullptr) return nullptr;
  bound_->SetRank(HostGate::kFirst);
  return found;
}

void RunAhead::Done(Recording& recording) {
  if (!bound_) return;
  bound_->Done(recording);
  bound_->SetRank(kBoundRank);
  AskToTend();
}

/// After a stop, nothing is read any more.
void RunAhead::ConnectionClosed() {
  if (scan_ != nullptr && !scan_->State.Scanning) End();
}

// --- from site to site

void RunAhead::SiteBegins(const ScannedSite& site) {
  DropBound();
  const SitePlace place{site.MainSiteNumber, site.SiteRow};
  if (!plan_) Begin(place);
  if (most_ == 1) return;
  PlannedSite current{place, site.MainSite, site.LinkingSite, scan_->State.LinksExpected};
  bound_ = TakeLane(current);
  if (bound_) {
    bound_->SetRank(kBoundRank);
  } else {
    unbound_ = std::move(current);
  }
  if (!place.IsBefore(plan_->At())) plan_->GoTo(place.Next());
  AskToTend();
}

void RunAhead::Begin(SitePlace place) {
  most_ = SitesAtATime(scan_->Settings);
  gate_.SetMost(most_);
  gate_.SetShut(false);
  surroundings_ = std::make_unique<LaneSurroundings>(*scan_);
  plan_.emplace(scan_->Project, scan_->State, scan_->Settings);
  plan_->GoTo(place.Next());
}

void RunAhead::End() {
  gate_.SetShut(true);  // or each lane that ends would let in another one
  DropBound();
  lanes_.clear();
  leaving_.clear();
  bound_.reset();
  active_.clear();
  plan_.reset();
  surroundings_.reset();
  most_ = 1;
  gate_.SetShut(false);
}

void RunAhead::DropBound() {
  unbound_.reset();
  if (!bound_) return;
  // A scan that is started twice turns to its first site again in the middle of a page.
  if (IsReplaying()) {
    leaving_.push_back(std::move(bound_));
    return;
  }
  Forget(bound_.get());
  bound_.reset();
}

bool RunAhead::IsReplaying() const { return connection_.IsReplaying() || internet_.IsWaiting(); }

void RunAhead::Forget(const Lane* lane) { std::erase(active_, lane); }

std::unique_ptr<Lane> RunAhead::TakeLane(const PlannedSite& site) {
  const auto drop = [this] {
    Forget(lanes_.front().get());
    lanes_.pop_front();
  };
  while (!lanes_.empty() && lanes_.front()->Site().Place.IsBefore(site.Place))
    drop();  // sites that were skipped
  if (lanes_.empty() || lanes_.front()->Site().Place != site.Place) return nullptr;
  // Rows may have moved, or been edited: only the texts tell a site.
  if (!lanes_.front()->Site().HasTexts(site.MainSite, site.LinkingSite)) PlanAgain(site.Place);
  if (lanes_.empty() || !lanes_.front()->Site().HasTexts(site.MainSite, site.LinkingSite)) return nullptr;
  std::unique_ptr<Lane> lane = std::move(lanes_.front());
  lanes_.pop_front();
  return lane;
}

/// Finds the lanes of the sites to come again after the rows have moved, and drops the others.
void RunAhead::PlanAgain(SitePlace from) {
  std::unordered_multimap<std::string, std::unique_ptr<Lane>> old;
  const auto key = [](const PlannedSite& site) { return site.MainSite + "\n" + site.LinkingSite; };
  const std::size_t sites = lanes_.size();
  for (std::unique_ptr<Lane>& lane : lanes_) {
    std::string name = key(lane->Site());
    old.emplace(std::move(name), std::move(lane));
  }
  lanes_.clear();
  plan_->GoTo(from);
  for (std::size_t i = 0; i < sites && !old.empty(); ++i) {
    const std::optional<PlannedSite> site = plan_->TakeNext();
    if (!site) break;
    const auto found = old.find(key(*site));
    if (found == old.end()) continue;
    found->second->SetPlace(site->Place);
    found->second->SetRank(RankOf(site->Place));
    lanes_.push_back(std::move(found->second));
    old.erase(found);
  }
  for (const auto& each : old) Forget(each.second.get());
}

// --- the lanes

std::unique_ptr<Lane> RunAhead::MakeLane(PlannedSite site, std::uint64_t rank) {
  auto lane = std::make_unique<Lane>(Lane::Needs{*surroundings_, gate_, bytes_, [this] { AskToTend(); }},
                                     std::move(site), needs_.MakeLine(), rank);
  active_.push_back(lane.get());
  return lane;
}

/// The scan asks for the first page of a site that nobody has begun.
void RunAhead::BindNewLane() {
  bound_ = MakeLane(*std::exchange(unbound_, std::nullopt), kBoundRank);
  bound_->Begin();
}

void RunAhead::AskToTend() {
  mustTend_ = true;
  AskForTurn();
}

void RunAhead::Tend() {
  std::erase_if(active_, [](Lane* lane) {
    if (lane->IsFinished()) lane->FreeSteps();
    return lane->IsFinished();
  });
  if (!leaving_.empty() && !IsReplaying()) {
    for (const auto& lane : leaving_) Forget(lane.get());
    leaving_.clear();
  }
  while (bytes_.Held > 2 * needs_.Limits.RecordedBytes && DropYoungest()) {
  }
  gate_.SetFull(bytes_.Held > needs_.Limits.RecordedBytes);
  if (plan_ && most_ > 1) StartLanes();
}

void RunAhead::StartLanes() {
  // Those that wait for their host keep nobody else from beginning, up to as many again.
  while (active_.size() < 2 * most_ &&
         active_.size() - std::min(active_.size(), gate_.WaitingForHost()) < most_ &&
         lanes_.size() < needs_.Limits.SitesAhead && bytes_.Held <= needs_.Limits.RecordedBytes) {
    std::optional<PlannedSite> site = plan_->TakeNext();
    if (!site) {
      if (plan_->HasMore()) AskToTend();
      return;
    }
    const std::uint64_t rank = RankOf(site->Place);
    lanes_.push_back(MakeLane(*std::move(site), rank));
    lanes_.back()->Begin();
  }
}

bool RunAhead::DropYoungest() {
  if (lanes_.empty()) return false;
  plan_->GoTo(lanes_.back()->Site().Place);
  Forget(lanes_.back().get());
  lanes_.pop_back();
  AskToTend();
  return true;
}

AheadFigures RunAhead::Figures() const {
  const std::size_t bound = bound_ && !bound_->IsFinished() ? 1 : 0;
  const std::size_t active = active_.size() - std::min(bound, active_.size());
  const std::size_t waiting = std::min(active, gate_.WaitingForHost());
  return {lanes_.size() - std::min(active, lanes_.size()), active - waiting, waiting};
}

}  // namespace requite
