// SPDX-License-Identifier: MIT
// The blocking GET: a whole body in one call, while events go on.
#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QUrl>
#include <chrono>
#include <memory>
#include <vector>

#include "platform/services.h"
#include "shell/qt/connect_map.h"
#include "shell/qt/look_up.h"

namespace requite {

struct GetLimits {
  std::size_t MostBytes = std::size_t{64} * 1024 * 1024;  ///< a longer body is cut there
  std::chrono::milliseconds Silence{60'000};              ///< without a byte from the server
  int MostRedirects = 20;
};

/// Nothing of the network library is started before the first GET. A GET whose body stops midway
/// (silence, a reset) returns what came; one without a response returns nothing. Names are looked up
/// here: the library would hold up the end of the program until a look-up of its own has ended.
class BlockingGet : public Internet {
 public:
  /// The map must outlive this object.
  explicit BlockingGet(const ConnectMap& map, GetLimits limits = {}, LookUp lookUp = SystemLookUp);
  ~BlockingGet() override;

  [[nodiscard]] std::optional<std::string> OpenUrl(const std::string& url, std::string_view agent) override;
  void Abort() override;

 private:
  class Transfer;

  /// One URL, over each address of its host until one answers; its redirects are the caller's.
  void Run(Transfer& transfer, const QUrl& url, const QByteArray& agent);
  [[nodiscard]] SocketAddresses AddressesOf(const std::string& host, Transfer& transfer);

  const ConnectMap& map_;
  GetLimits limits_;
  LookUp lookUp_;
  AddressCache cache_;
  std::unique_ptr<QNetworkAccessManager> manager_;
  std::vector<Transfer*> inProgress_;
};

}  // namespace requite
