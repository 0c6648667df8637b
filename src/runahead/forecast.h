// SPDX-License-Identifier: MIT
// Where the services of a scan that runs ahead get their answers.
#pragma once

#include <string>

#include "runahead/recording.h"

namespace requite {

/// Implemented by `RunAhead`.
class Forecast {
 public:
  virtual ~Forecast() = default;
  /// What a server answered, or is answering, to the page that the scan asks for. Null when it was not
  /// foreseen. It lives until Done, or until the scan closes its site.
  [[nodiscard]] virtual Recording* FindPage(const std::string& host) = 0;
  [[nodiscard]] virtual Recording* FindGet(const std::string& url, std::string_view agent) = 0;
  virtual void Done(Recording& recording) = 0;
  /// The scan has closed its connection, at the end of a page, of a site or of the whole scan.
  virtual void ConnectionClosed() = 0;
  /// There is something to deliver to the scan: ReplayConnection::Deliver is to be called as an event.
  virtual void AskForTurn() = 0;
};

}  // namespace requite
