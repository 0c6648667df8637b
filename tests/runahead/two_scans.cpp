// SPDX-License-Identifier: MIT
// Commands of the user come at the first yield after a given call of the host, which both scans make alike.
#include "runahead/two_scans.h"

#include <gtest/gtest.h>

#include "support/rows.h"

namespace requite::test {
namespace {

constexpr int kMostMoves = 400'000;
constexpr int kMostMovesOfAPage = 5000;

}  // namespace

class ScanOfCase::Host : public FakeScanHost {
 public:
  explicit Host(ScanOfCase& scan) : FakeScanHost(scan.Rig.Sites), scan_(scan) {}
  void UpdateStats(Counted kind) override {
    FakeScanHost::UpdateStats(kind);
    Count();
  }
  void SiteBegins(const ScannedSite& site) override {
    if (scan_.ahead_) scan_.ahead_->SiteBegins(site);
    Calls.push_back("begins " + site.MainSite + " " + site.LinkingSite);
    Count();
  }
  void SiteFinished(const SiteVerdict& verdict) override {
    if (scan_.ahead_) scan_.ahead_->SiteFinished(verdict);
    Calls.push_back("finished " + verdict.Url + " " + verdict.Reason + (verdict.LinksBack ? " back" : "") +
                    (verdict.HttpsOnly ? " https" : "") + (verdict.Reached ? " reached" : ""));
    Count();
  }

 private:
  void Count() {
    if (++calls_ == scan_.given_.BoxAfter) scan_.Rig.Services.Dialogs.Say("A message");
    const auto wish = scan_.given_.Wishes.find(calls_);
    if (wish != scan_.given_.Wishes.end()) scan_.due_.push_back(wish->second);
  }
  ScanOfCase& scan_;
  int calls_ = 0;
};

ScanOfCase::ScanOfCase(const Case& given, std::uint64_t seed, const AheadOptions* ahead)
    : World(given.World, seed),
      given_(given),
      wire_(ahead == nullptr ? std::make_unique<Wire>(World, Rig.Services.timTimeout) : nullptr),
      host_(std::make_unique<Host>(*this)),
      plain_{Rig.Services.EventLoop,  wire_ ? static_cast<Connection&>(*wire_) : Rig.Services.Connection,
             Rig.Services.timTimeout, Rig.Services.Timer1,
             World.Internet,          Rig.Services.Store,
             Rig.Services.Dialogs,    Rig.Services.Clipboard,
             Rig.Services.Sounds,     Rig.Services.Shell,
             Rig.Services.Clock} {
  WriteFile(Rig.Folder.File("filetypes.txt"), ".htm\r\n.php\r\n");
  for (const auto& [mainSite, rows] : given.MainSites) {
    LinkingSiteList& list = Rig.AddMainSite(mainSite, {});
    for (const SiteRow& row : rows) list.Add({row.Url, row.Expected, "", "", ""});
    if (!list.Empty()) list.SelectOnly(0);
  }
  Rig.Sites.List4.SelectOnly(0);
  for (const auto& rule : given.Rules) Rig.Sites.lstRules.Add({rule[0], rule[1], rule[2], rule[3]});
  for (const auto& [key, value] : given.Settings) Rig.Services.Store.Set(key, value);
  Rig.Controls.mnuScan.CheckOnly(given.ScanType);
  World.Secure = [this] { return Rig.Services.Store.Read("chkSecure") == "1"; };
  if (ahead != nullptr) {
    World.Clock = &Rig.Services.timTimeout;
    World.MostOpen = ahead->Sites;
    World.TicksOfASecond = ahead->TicksOfASecond;
    evictionsOneIn_ = ahead->EvictionsOneIn;
    // What is already on its way is always read, and the site of the scan goes on.
    mostBytes_ = 2 * ahead->Limits.RecordedBytes + 4000 * ahead->Sites;
    Rig.Services.Store.Set("SitesAtATime", std::to_string(ahead->Sites));
    const auto line = [this] {
      auto seconds = std::make_unique<ManualTimer>();
      auto wire = std::make_unique<Wire>(World, *seconds);
      return Line{std::move(wire), std::move(seconds)};
    };
    ahead_ = ahead->Make({plain_,
                          line,
                          [this] { return std::make_unique<WorldTimer>(World); },
                          World.Addresses,
                          {[this](const bool& over) {
                             while (!over && World.Move(false)) {
                             }
                             return over;
                           },
                           [] {}},
                          [this] { World.Turn = [this] { ahead_->TakeTurn(); }; },
                          ahead->Limits});
  }
  Rig.Services.EventLoop.OnEveryYield = [this] { OnYield(); };
  road_ = std::make_unique<Scan>(Rig.Sites, Rig.Lists, Rig.State, Rig.Controls.Window(), *host_,
                                 ahead_ ? ahead_->ServicesOfScan() : plain_, Rig.Folder.Folder, Rig.Work);
  if (ahead_) ahead_->Follow(road_->Context());
}

ScanOfCase::~ScanOfCase() { road_.reset(); }

void ScanOfCase::OnYield() {
  while (!due_.empty() && !granting_) {
    const Wish wish = due_.front();
    due_.erase(due_.begin());
    granting_ = true;
    Grant(wish);
    granting_ = false;
  }
  // While a handler of the scan waits, the lanes go on.
  if (!ahead_ || depth_ > 2 || !World.Lots.OneIn(10)) return;
  ++depth_;
  // Now and then for long, as while a message box is open.
  for (int moves = World.Lots.OneIn(40) ? 5000 : World.Lots.Below(20); moves > 0 && World.Move(false);
       --moves) {
  }
  --depth_;
}

void ScanOfCase::Grant(const Wish& wish) {
  using enum Wish::Kind;
  Project& sites = Rig.Sites;
  if (wish.What == ChangeSetting) return Rig.Services.Store.Set(wish.Key, wish.Value);
  if (wish.What == AddRule) {
    sites.lstRules.Add({"Global", "Global", "ExcludeString", "p2"});
    return;
  }
  if (wish.What == Restart) {
    if (Rig.Controls.Command1.Enabled()) road_->StartScan();
    return;
  }
  if (wish.What == Stop && Rig.State.Scanning) return road_->cmdStop();
  if (wish.What == SkipWithoutReason && Rig.State.Scanning) return road_->cmdNextSearch();
  if ((wish.What == Skip || wish.What == SkipMainSite) && Rig.State.Scanning) {
    Rig.Controls.mnuSkip.CheckOnly(wish.What == Skip ? 0 : 1);
    return road_->cmdSkip();
  }
  const int k = 1 + wish.MainSite % sites.ListCount();
  LinkingSiteList& list = sites.List1(k);
  if (wish.What == AddRow) list.Add({wish.Value, "1", "", "", ""});
  if (wish.What == SortRows) list.SetSort({true, 0, wish.Row % 2});
  if (wish.What == EditMainSite) {
    sites.List4.Set(static_cast<std::size_t>(k) - 1, &MainSite::Text, wish.Value);
  }
  if (list.Empty()) return;
  const std::size_t row = static_cast<std::size_t>(wish.Row) % list.RowCount();
  if (wish.What == DeleteRow) list.Remove(row);
  if (wish.What == EditRow) list.Set(row, &LinkingSite::WebsiteUrl, wish.Value);
}

bool ScanOfCase::Run() {
  road_->StartScan();
  int movesAfterEnd = 0;
  int movesWithoutTimer = 0;
  for (int moves = 0; World.Move(); ++moves) {
    if (moves > kMostMoves) return false;
    // A stop while a page is being asked for leaves its timer running, to no effect.
    if (!Rig.State.Scanning && ++movesAfterEnd > 100) break;
    // A scan that has lost its timer stands still at a page that says no more; the page's lane does not.
    const bool waitsForGood = ahead_ && Rig.State.Scanning && !ahead_->PageInProgress();
    movesWithoutTimer = waitsForGood ? movesWithoutTimer + 1 : 0;
    if (movesWithoutTimer > kMostMovesOfAPage) break;
    if (ahead_ && mostBytes_ > 0) {
      EXPECT_LE(ahead_->BytesHeld(), mostBytes_);
    }
    if (ahead_ && evictionsOneIn_ > 0 && World.Lots.OneIn(evictionsOneIn_)) ahead_->DropYoungest();
  }
  host_->Calls.emplace_back(Rig.State.Scanning ? "stands still" : "ended");
  if (Rig.State.Scanning) road_->cmdStop();
  return true;
}

std::size_t ScanOfCase::CallsOfHost() const { return host_->Calls.size(); }

int ScanOfCase::Requests() const {
  int all = 0;
  for (const auto& [page, count] : World.Requests) all += count;
  return all;
}

std::string ScanOfCase::Remains() const {
  std::string text;
  const auto say = [&text](const std::string& piece) { text.append(piece).append("\n"); };
  const auto rows = [&say](const ListView& list) {
    say("[" + list.Name() + "]");
    for (std::size_t row = 0; row < list.RowCount(); ++row) {
      say(RowText(list, row) + " " + std::to_string(list.Colour(row)) + " " + std::to_string(list.Icon(row)));
    }
  };
  for (const ListView* list : std::vector<const ListView*>{
           &Rig.Sites.List4, &Rig.Sites.List3, &Rig.Lists.lstErr, &Rig.Lists.List2, &Rig.Sites.lstRules}) {
    rows(*list);
  }
  for (int k = 1; k <= Rig.Sites.ListCount(); ++k) rows(Rig.Sites.List1(k));
  for (const std::string& call : host_->Calls) say(call);
  for (const std::string& played : Rig.Services.Sounds.Played) say(played);
  for (const MessageBox& box : Rig.Services.Dialogs.Boxes) say(box.Text);
  for (const auto& [key, value] : Rig.Services.Store.Values) {
    if (key != "sitesatatime") say(key + "=" + value);
  }
  const ScanState& state = Rig.State;
  for (const int number : {state.LinksOnSite, int{state.LinksCounted}, state.LinkNumber, state.PagesQueued,
                           int{state.LinkFound}, int{state.RedirectSuspected}, int{state.SkipRequested},
                           int{Rig.Sites.CurrentMainSite}, int{Rig.Sites.ProjectSaved}}) {
    say(std::to_string(number));
  }
  for (const std::string* field :
       {&state.CurrentLinkingUrl, &state.ReasonNote, &state.RedirectPage, &state.PageFull, &state.PageDir}) {
    say(*field);
  }
  for (const char* file : {"html0.txt", "html20.txt", "rules.log"}) {
    say(FileExists(Rig.Folder.File(file)) ? ReadFile(Rig.Folder.File(file)) : "none");
  }
  return text;
}

}  // namespace requite::test
