// SPDX-License-Identifier: MIT
// GETs over libcurl: as events, or waited for while events go on.
#pragma once

#include <memory>
#include <vector>

#include "platform/services.h"
#include "system/connect_map.h"
#include "system/curl_multi.h"
#include "system/curl_transfer.h"

namespace requite {

/// Nothing of the library is started before the first GET. Names are looked up by the library's own threads,
/// which nobody ever waits for.
class CurlInternet : public Internet {
 public:
  /// Loop and map must outlive this object.
  CurlInternet(DescriptorLoop& loop, const ConnectMap& map, HostToAscii hostToAscii, GetLimits limits = {});
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
    Wait* Waiting;  ///< null for one that nobody waits for
    std::unique_ptr<CurlTransfer> Transfer;
  };

  void Begin(Owner owner, const std::string& url, std::string_view agent, OnAnswer onAnswer, Wait* waiting);
  void OnDone(CURL* handle);
  /// Takes the matching GETs out of the library, unanswered.
  template <class Matches>
  std::vector<Get> Take(Matches matches);

  DescriptorLoop& loop_;
  const ConnectMap& map_;
  HostToAscii hostToAscii_;
  GetLimits limits_;
  std::unique_ptr<CurlMulti> multi_;
  std::vector<Get> inProgress_;
};

}  // namespace requite
