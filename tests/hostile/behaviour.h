// SPDX-License-Identifier: MIT
// The ways in which a hostile or broken web server may treat a scan, each with a name and the verdict it must
// lead to.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "system/local_server.h"

namespace requite::hostile {

using test::ServedConnection;

/// What a server does with one connection, from the moment it is accepted.
using Act = std::function<void(ServedConnection&)>;

/// How a server answers at port 443, and what comes of it.
struct SecurePort {
  /// Empty: nobody serves, and connections go to `Closed`.
  hostile::Act Act;
  /// How many connections this port and the plain one must see.
  int Connections = 1;
  int PlainConnections = 0;
  /// The row that the site has among the errors, if any.
  std::string Error = {};
  std::uint16_t (*Closed)() = test::RefusingPort;
};

/// One server, which plays the site "NAME.example".
struct Behaviour {
  const char* Name;
  /// The statuses of the site's result rows in their order, with ", " between them.
  const char* Verdict;
  /// Empty: nobody listens on the port.
  hostile::Act Act;
  int LinksExpected = 1;
  /// The site as the project names it, in the code page; empty: "NAME.example".
  std::string Site = {};
  /// The scan is one with secure connections when a row has this.
  std::optional<SecurePort> Secure = {};

  [[nodiscard]] std::string SiteName() const { return Site.empty() ? std::string(Name) + ".example" : Site; }
};

/// Rows that are scanned together, in one run of the program.
struct BehaviourGroup {
  const char* Name;
  std::vector<Behaviour> (*Rows)();

  friend std::ostream& operator<<(std::ostream& out, const BehaviourGroup& group) {
    return out << group.Name;
  }
};

std::vector<Behaviour> SilentServers();
std::vector<Behaviour> BrokenConnections();
std::vector<Behaviour> OddHeaders();
std::vector<Behaviour> OddBodies();
std::vector<Behaviour> Floods();
std::vector<Behaviour> OddLinks();
std::vector<Behaviour> MovedPages();
std::vector<Behaviour> SecurePages();
std::vector<Behaviour> BrokenSecurePages();
std::vector<Behaviour> SecurePortsGivenUp();

/// The Main Site that all of them are scanned for, and a link to it.
inline constexpr std::string_view kMainSite = "main-site.example";
inline constexpr std::string_view kLink = "<a href=\"http://main-site.example/\">partner</a>\r\n";
inline constexpr std::string_view kHeader = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n";

inline constexpr const char* kFound = "Direct Link";
inline constexpr const char* kNotFound = "None Found";
inline constexpr const char* kTimeout = "None Found (Timeout)";
/// The Main Site's text is on the page, but in no link that counts.
inline constexpr const char* kTextOnly = "Redirect Link";

/// The pieces joined.
[[nodiscard]] std::string Joined(std::initializer_list<std::string_view> pieces);
/// A text, so many times.
[[nodiscard]] std::string Times(std::size_t count, std::string_view text);

/// Reads the request, sends the bytes, closes.
[[nodiscard]] Act Answer(std::string bytes);
/// The same with an ordinary header before the body.
[[nodiscard]] Act Page(std::string body);
/// An ordinary page, but with this status line and these header lines; each ends in CR LF.
[[nodiscard]] Act WithHeader(std::string_view lines, std::string_view body = kLink);
/// Reads the request, sends the bytes, and leaves the connection open.
[[nodiscard]] Act AnswerAndStay(std::string bytes);
/// Reads the request, sends the bytes, and breaks the connection.
[[nodiscard]] Act AnswerAndReset(std::string bytes);
/// Reads the request, sends the bytes, then the piece for ever.
[[nodiscard]] Act AnswerForEver(std::string bytes, std::string_view piece);

/// The path of a request.
[[nodiscard]] std::string PathOf(std::string_view request);

}  // namespace requite::hostile
