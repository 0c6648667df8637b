// SPDX-License-Identifier: MIT
// The GETs in progress: who owns each, and who waits for it.
#include "system/curl_internet.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace requite {

CurlInternet::CurlInternet(DescriptorLoop& loop, const ConnectMap& map, HostToAscii hostToAscii,
                           GetLimits limits, std::optional<TlsStore> store)
    : loop_(loop), authorities_(std::move(store)), rules_{map, hostToAscii, limits, authorities_} {}

CurlInternet::~CurlInternet() {
  Take([](const Get&) { return true; });
}

void CurlInternet::Begin(Owner owner, const std::string& url, std::string_view agent, OnAnswer onAnswer,
                         Wait* waiting) {
  if (!multi_) multi_ = std::make_unique<CurlMulti>(loop_, [this](CURL* handle) { OnDone(handle); });
  auto transfer = std::make_unique<CurlTransfer>(url, agent, rules_);
  multi_->Add(transfer->Handle());
  inProgress_.push_back({owner, std::move(onAnswer), waiting, std::move(transfer)});
}

template <class Matches>
std::vector<CurlInternet::Get> CurlInternet::Take(Matches matches) {
  const auto rest = std::stable_partition(inProgress_.begin(), inProgress_.end(),
                                          [&](const Get& get) { return !matches(get); });
  std::vector<Get> taken(std::make_move_iterator(rest), std::make_move_iterator(inProgress_.end()));
  inProgress_.erase(rest, inProgress_.end());
  for (const Get& get : taken) multi_->Remove(get.Transfer->Handle());
  return taken;
}

void CurlInternet::Start(Owner owner, const std::string& url, std::string_view agent, OnAnswer onAnswer) {
  Begin(owner, url, agent, std::move(onAnswer), nullptr);
}

std::optional<std::string> CurlInternet::OpenUrl(Owner owner, const std::string& url,
                                                 std::string_view agent) {
  Wait wait;
  const auto take = [&](std::optional<std::string> body) {
    wait.Body = std::move(body);
    wait.Over = true;
    loop_.Wake();
  };
  Begin(owner, url, agent, take, &wait);
  if (!loop_.RunUntil(wait.Over)) Take([&](const Get& get) { return get.Waiting == &wait; });
  return std::move(wait.Body);
}

void CurlInternet::OnDone(CURL* handle) {
  std::vector<Get> done = Take([handle](const Get& get) { return get.Transfer->Handle() == handle; });
  for (Get& get : done) {
    if (get.Transfer->FollowRedirect()) {
      multi_->Add(handle);
      inProgress_.push_back(std::move(get));
    } else {
      get.Answer(get.Transfer->TakeBody());
    }
  }
}

void CurlInternet::Abort(Owner owner) {
  for (const Get& get : Take([owner](const Get& each) { return each.StartedBy == owner; })) {
    if (get.Waiting != nullptr) get.Waiting->Over = true;
  }
  loop_.Wake();
}

}  // namespace requite
