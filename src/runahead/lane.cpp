// SPDX-License-Identifier: MIT
// A lane is a scan of one site without its controller.
#include "runahead/lane.h"

#include <utility>

#include "model/url_forms.h"
#include "model/visitor.h"
#include "platform/runtime_failure.h"
#include "scan/page_decision.h"

namespace requite {

struct Lane::Steps {
  Steps(Lane& lane, Line line)
      : Recorder(std::move(line), lane.needs_.Gate, lane),
        Get(lane.needs_.Surroundings.Scan().Platform.Internet, lane.needs_.Gate),
        Platform(lane.needs_.Surroundings.ServicesFor(Recorder)),
        Context{lane.needs_.Surroundings.Project(),
                Lists,
                State,
                lane.needs_.Surroundings.Window(),
                lane.needs_.Surroundings.Host(),
                Platform,
                lane.needs_.Surroundings.Settings(),
                lane.needs_.Surroundings.Scan().Folder,
                lane.needs_.Surroundings.Work()},
        Fetch(Context, lane),
        Judge(Context, lane),
        Analyse(Context, lane) {
    Context.WritesWorkFiles = false;
    Recorder.Events = &lane;
  }

  PageRecorder Recorder;
  GetRecorder Get;
  Services Platform;
  ScanLists Lists;
  ScanState State;
  ScanContext Context;
  Fetcher Fetch;
  Triage Judge;
  Analyser Analyse;
};

Lane::Lane(Needs needs, PlannedSite site, Line line, std::uint64_t rank)
    : needs_(std::move(needs)),
      site_(std::move(site)),
      rank_(rank),
      steps_(std::make_unique<Steps>(*this, std::move(line))) {
  steps_->Recorder.SetRank(rank);
}

Lane::~Lane() {
  finished_ = true;
  steps_.reset();  // their recorders write to the recordings until then
}

/// Runs a step of the site. One that ends without a further request, in a failure or not, ends the lane.
template <class Step>
void Lane::Run(Step&& step) {
  if (finished_) return;
  needs_.Surroundings.Enter(site_);
  PassOver(std::forward<Step>(step));
  if (!finished_ && !steps_->Recorder.IsBusy() && !steps_->Get.IsBusy()) Finish();
}

void Lane::Begin() {
  Run([this] {
    needs_.Surroundings.Prepare(site_);
    const ScanState& scan = needs_.Surroundings.Scan().State;
    ScanState& state = steps_->State;
    state.Scanning = true;
    state.ScanType = scan.ScanType;
    state.SiteRow = site_.Place.Row;
    state.CurrentLinkingUrl = site_.LinkingSite;
    state.MainSiteKey = site_.MainSite;
    NormaliseMainSite(state.MainSiteKey);
    state.LinksExpected = site_.LinksExpected;
    state.PageLimit = scan.PageLimit;
    state.TimeoutSeconds = steps_->Context.Settings.Number(setting::txtTimeout);
    state.FileTypes = scan.FileTypes;
    steps_->Lists.List2.Add({site_.LinkingSite});
    ScanNextPage();
  });
}

void Lane::FreeSteps() { steps_.reset(); }

void Lane::SetPlace(SitePlace place) {
  site_.Place = place;
  if (steps_) steps_->State.SiteRow = place.Row;
}

void Lane::SetRank(std::uint64_t rank) {
  rank_ = rank;
  if (!steps_) return;
  steps_->Recorder.SetRank(rank);
  steps_->Get.SetRank(rank);
}

void Lane::Finish() {
  if (std::exchange(finished_, true)) return;
  steps_->State.Scanning = false;
  steps_->Recorder.Close();
  steps_->Get.Cancel();
  needs_.OnFinished();
}

void Lane::OnConnect() {
  Run([this] { steps_->Fetch.OnConnect(); });
}

void Lane::OnDataArrival(std::size_t bytesTotal) {
  Run([&] { steps_->Fetch.OnDataArrival(bytesTotal); });
}

void Lane::OnClose() {
  Run([this] { steps_->Fetch.OnClose(); });
}

void Lane::OnCertificateFault(const std::string& host, std::string_view words) {
  if (!finished_) steps_->Fetch.OnCertificateFault(host, words);
}

Recording& Lane::Add(std::string key) {
  std::erase_if(recordings_, [](const auto& each) { return each->Played && each->Over(); });
  return *recordings_.emplace_back(std::make_unique<Recording>(std::move(key), needs_.Bytes));
}

Recording& Lane::NewRecording(const std::string& host) {
  return Add(Recording::KeyOfPage(host, steps_->State.Page.PagePath, AsksSecurely(steps_->Context.Settings)));
}

/// A silent page ends its whole site. How long the scan waits for the page that it is at, only the scan
/// knows: one that is started in the middle of the stop of another one loses its timer, and waits for good.
void Lane::OnSecond() {
  ScanState& state = steps_->State;
  if (state.Page.TimeoutTicks < state.TimeoutSeconds) ++state.Page.TimeoutTicks;
  if (state.Page.TimeoutTicks >= state.TimeoutSeconds && !recordings_.back()->IsPlayed()) Finish();
}

void Lane::CheckHttpStatus(const std::string& header, const std::string& url) {
  steps_->Judge.CheckHttpStatus(header, url);
}

void Lane::ProcessPage(PageBody body) {
  if (body.View().size() > kMostRead) return Finish();
  steps_->Judge.ProcessPage(std::move(body));
}

void Lane::AnalysePage() { steps_->Analyse.AnalysePage(); }

void Lane::ScanNextPage() {
  PageQueue& queue = steps_->Lists.List2;
  if (DecidePage(steps_->Context) != PageDecision::TakePage) return Finish();
  steps_->State.PageUrl = queue.At(0).Url;
  queue.Remove(0);
  steps_->Fetch.FetchPage();
}

void Lane::GetMovedPage(std::string address) {
  GetRequest request = RequestFor(address, VisitorOf(steps_->Context.Settings));
  Recording& recording = Add(Recording::KeyOfGet(request.Url, request.Agent));
  steps_->Get.Begin(std::move(request), rank_, recording, [this, &recording] {
    Run([&] { steps_->Analyse.TakeMovedPage(TextOf(recording.Body())); });
  });
}

Recording* Lane::Find(const std::string& key) {
  for (const auto& each : recordings_) {
    if (!each->Played && each->Key() == key) return each.get();
  }
  return nullptr;
}

void Lane::Done(Recording& recording) {
  recording.Played = true;
  if (!recording.Over()) return;
  std::erase_if(recordings_, [&](const auto& each) { return each.get() == &recording; });
}

}  // namespace requite
