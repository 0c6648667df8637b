// SPDX-License-Identifier: MIT
// Reads the pages of one site before the scan comes to it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "runahead/get_recorder.h"
#include "runahead/lane_surroundings.h"
#include "runahead/page_recorder.h"
#include "scan/analyser.h"
#include "scan/fetcher.h"
#include "scan/triage.h"

namespace requite {

/// The steps of the scan itself, on a state of their own, find out which pages it will ask for. Only the
/// recordings of their answers are ever used. A wrong forecast costs a request.
class Lane : private ConnectionEvents,
             private PageRecorder::Owner,
             private Fetcher::Next,
             private Triage::Next,
             private Analyser::Next {
 public:
  /// A longer page is recorded, but not searched for further ones: that takes too long for one go.
  static constexpr std::size_t kMostRead = std::size_t{4} * 1024 * 1024;

  struct Needs {
    LaneSurroundings& Surroundings;
    HostGate& Gate;
    RecordedBytes& Bytes;
    std::function<void()> OnFinished;
  };

  Lane(Needs needs, PlannedSite site, Line line, std::uint64_t rank);
  ~Lane() override;
  Lane(const Lane&) = delete;
  Lane& operator=(const Lane&) = delete;

  void Begin();
  [[nodiscard]] const PlannedSite& Site() const { return site_; }
  /// The rows of the project have moved.
  void SetPlace(SitePlace place);
  void SetRank(std::uint64_t rank);

  /// No further page will be asked for.
  [[nodiscard]] bool IsFinished() const { return finished_; }
  /// Frees what a finished lane does not need any more. Not to be called from one of its steps.
  void FreeSteps();

  /// The first recording with this key that is not yet played.
  [[nodiscard]] Recording* Find(const std::string& key);
  /// The scan has had the recording, or does not want the rest.
  void Done(Recording& recording);

 private:
  struct Steps;

  void OnConnect() override;
  void OnDataArrival(std::size_t bytesTotal) override;
  void OnClose() override;
  void OnCertificateFault(const std::string& host, std::string_view words) override;
  Recording& NewRecording(const std::string& host) override;
  void OnSecond() override;
  void CheckHttpStatus(const std::string& header, const std::string& url) override;
  void ProcessPage(PageBody body) override;
  void AnalysePage() override;
  void NextSite() override { Finish(); }
  void ScanNextPage() override;
  void GetMovedPage(std::string address) override;

  Recording& Add(std::string key);
  void Finish();
  template <class Step>
  void Run(Step&& step);

  Needs needs_;
  PlannedSite site_;
  std::uint64_t rank_;
  bool finished_ = false;
  std::vector<std::unique_ptr<Recording>> recordings_;
  std::unique_ptr<Steps> steps_;
};

}  // namespace requite
