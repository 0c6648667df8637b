// SPDX-License-Identifier: MIT
// GETs with libcurl, answered by an event or waited for while events run.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/services.h"
#include "system/connect_map.h"
#include "system/curl_multi.h"
#include "system/curl_transfer.h"

namespace requite {

/// The library is loaded and started at the first GET. It looks names up in threads of its own, which nobody
/// waits for.
class CurlInternet : public Internet {
 public:
  /// Loop and map must outlive this object. Without a store it is the system's.
  CurlInternet(DescriptorLoop& loop, const ConnectMap& map, HostToAscii hostToAscii, GetLimits limits = {},
               std::optional<TlsStore> store = std::nullopt);
  ~CurlInternet() override;
  CurlInternet(const CurlInternet&) = delete;
  CurlInternet& operator=(const CurlInternet&) = delete;

  void Start(Owner owner, const std::string& url, std::string_view agent, OnAnswer onAnswer) override;
  [[nodiscard]] std::optional<std::string> OpenUrl(Owner owner, const std::string& url,
                                                   std::string_view agent) override;
  void Abort(Owner owner) override;

 private:
  /// A call that waits, on its stack.
  struct Wait {
    bool Over = false;
    std::optional<std::string> Body;
  };
  struct Get {
    Owner StartedBy;
    OnAnswer Answer;
    Wait* Waiting;  ///< null when nobody waits for it
    std::unique_ptr<CurlTransfer> Transfer;
  };

  void Begin(Owner owner, const std::string& url, std::string_view agent, OnAnswer onAnswer, Wait* waiting);
  void OnDone(CURL* handle);
  /// Removes the matching GETs from the library, unanswered.
  template <class Matches>
  std::vector<Get> Take(Matches matches);

  DescriptorLoop& loop_;
  GetAuthorities authorities_;
  const GetRules rules_;
  std::unique_ptr<CurlMulti> multi_;
  std::vector<Get> inProgress_;
};

}  // namespace requite
